// SPDX-FileCopyrightText: The Morvane developers
#include "review/y_calc.h"

#include "law/run_time_error.h"
#include "screens/keiei.h"
#include "session/kyotu_mod.h"
#include "support/installation_fixture.h"

namespace morvane::tests {
namespace {

namespace e = y_element;

constexpr const char* overflow = "経営状況評点（Ｙ）の計算で桁あふれが発生しました。";

using Yen_1000 = std::vector<std::pair<int, double>>;

/// A statement of thousand yen.
Statement_Figures Of(const Yen_1000& amounts, int form = 5) {
    Statement_Figures figures;
    figures.has_rows = true;
    figures.form = form;
    for (const auto& [code, amount] : amounts) {
        figures.amount[static_cast<std::size_t>(code)] = Yen(amount * 1000);
    }
    return figures;
}

// Indicators, points and elements are held against the calculation of tests/reference, over statements whose
// totals lie at every limit. Here stands what no case file can say, and what firms at random do not meet.

// The data form of the period tells where the advances received stand.
TEST(Calc_Y, Advances_Received_By_Data_Form) {
    for (const Edition edition : {Edition::National, Edition::Hokkaido}) {
        for (const int form : {3, 4, 5, 6}) {
            const auto flow = [&](int code) {
                return Calc_Y(Of({{code, 1}}, form), {edition}).elements[e::cash_flow].Count();
            };
            EXPECT_EQ(flow(209), form == 6 ? 0 : 1) << form;
            EXPECT_EQ(flow(210), form == 6 ? 1 : 0) << form;
        }
    }
}

TEST(Calc_Y, A_Score_Is_Rounded_Up_From_499) {
    const Y_Result y = Calc_Y(Of({{289, 5'077'000}}), {});
    EXPECT_EQ(y.points, -2.37F);
    EXPECT_EQ(y.score.Count(), 187); // 167.3 × -2.37 + 583 = 186.499
}

TEST(Calc_Y, What_Leaves_32_Bits_Is_Told) {
    const std::pair<Yen_1000, const char*> cases[] = {
        {{{402, 2'147'483'648.0}},
         "財務諸表の「402」（2,147,483,648,000円）の計算で桁あふれが発生しました。"},
        {{{402, 1}, {229, 1'500'000'000}, {248, 1'500'000'000}}, overflow},
        {{{480, 2'000'000'000}, {470, -2'000'000'000}}, overflow},
        {{{399, 2'000'000'000}, {830, 2'000'000'000}}, overflow},
        {{{101, 2'000'000'000}, {103, 2'000'000'000}}, overflow},
        {{{489, 2'000'000'000}, {436, 2'000'000'000}}, overflow}};
    for (const auto& [amounts, text] : cases) {
        const auto calc = [&of = amounts] { static_cast<void>(Calc_Y(Of(of), {})); };
        EXPECT_EQ(Refusal_Of<Run_Time_Error>(calc), text);
    }
    EXPECT_EQ(Calc_Y(Of({{179, 2'147'483'647.0}}), {}).elements[e::fixed_assets], Thousand_Yen(INT32_MAX));
}

TEST(Calc_Y, A_Statement_Without_Rows_Keeps_The_Indicators) {
    const Y_Result former = Calc_Y(Of({{289, 300'000}}), {});
    const Y_Result y = Calc_Y(Statement_Figures{}, {}, former);
    EXPECT_EQ(y.indicators, (std::array{5.1F, 18.0F, 6.5F, -8.5F, -76.5F, 0.0F, 0.0F, 3.0F}));
    EXPECT_NEAR(y.rates[7], 600.0 / 103.0, 1e-4);
    EXPECT_EQ(y.score.Count(), 49); // 167.3 × -3.19 + 583 = 49.313
    EXPECT_TRUE(former.has_figures);
    EXPECT_FALSE(y.has_figures || Calc_Y(Of({}), {}).has_figures);
    // Without a former one the indicators are 0: A is its base, 0.19.
    EXPECT_EQ(Calc_Y(Statement_Figures{}, {}).score.Count(), 615); // 167.3 × 0.19 + 583 = 614.787
}

TEST(Show_Keiei, Elements_Stand_Under_Their_Captions) {
    // Caption, the account that moves the element alone, its amount, its text
    const std::tuple<const char*, int, double, const char*> rows[] = {
        {"売上高", 402, 1001, "1,001"},
        {"売上総利益", 419, 1002, "1,002"},
        {"受取利息配当金", 470, 3, "3"},
        {"支払利息", 480, 4, "4"},
        {"経常（事業主）利益", 489, 1005, "1,005"},
        {"営業ｷｬｯｼｭﾌﾛｰ（当期）", 436, 1, "1,006"},
        {"営業ｷｬｯｼｭﾌﾛｰ（前期）", 833, 7, "7"},
        {"固定資産", 179, 1008, "1,008"},
        {"流動負債", 229, 1009, "1,009"},
        {"固定負債", 248, 1010, "1,010"},
        {"利益剰余金", 289, 1011, "1,011"},
        {"自己資本", 319, 1012, "1,012"},
        {"総資本（当期）", 399, 1013, "1,013"},
        {"総資本（前期）", 830, -1014, "-1,014"},
    };
    Yen_1000 amounts;
    for (const auto& [caption, account, amount, text] : rows) {
        amounts.emplace_back(account, amount);
    }
    const Keiei_Texts texts = Show_Keiei(Calc_Y(Of(amounts), {}));
    for (std::size_t i = 0; i < y_elements.size(); ++i) {
        EXPECT_STREQ(y_elements[i].name, std::get<0>(rows[i]));
        EXPECT_EQ(texts.Yoso[i], std::get<3>(rows[i]));
    }
    EXPECT_EQ(Show_Keiei(Y_Result{}).Y, "") << "no figure for 0";
}

TEST(Fixed_Str, Decimals_Round_The_Digits_That_Stand_There) {
    const std::tuple<float, int, const char*> cases[] = {
        {12.35F, 1, "12.4"},  {45.25F, 1, "45.3"}, {-0.25F, 1, "-0.3"}, {-0.04F, 1, "0.0"},
        {99.95F, 1, "100.0"}, {5.1F, 3, "5.100"},  {1.005F, 2, "1.01"}, {0.0F, 3, "0.000"}};
    for (const auto& [figure, decimals, text] : cases) {
        EXPECT_EQ(Fixed_Str(figure, decimals), text) << figure;
    }
}

} // namespace
} // namespace morvane::tests
