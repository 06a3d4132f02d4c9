// SPDX-FileCopyrightText: The Morvane developers
#include "review/y_calc.h"

#include "company/data_set.h"
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

/// The results of a national corporation, if nothing else is said.
Y_Result Y_Of(const Statement_Figures& statement, Firm_Kind kind = {}) {
    return Calc_Y(statement, kind);
}

void Expect_Floats(const std::array<float, 8>& found, const std::array<float, 8>& expected) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_FLOAT_EQ(found[i], expected[i]) << "X" << i + 1;
    }
}

TEST(Calc_Y, Best_Worst_And_All_Zero) {
    const struct {
        const char* name;
        Yen_1000 amounts;
        std::array<float, 8> x, ritu;
        float a;
        std::int16_t y;
        bool has_figures;
    } cases[] = {
        {"all zero",
         {},
         {5.1F, 18.0F, 6.5F, -8.5F, -76.5F, 0.0F, 0.0F, 0.0F},
         {0, 0, 0, 0, 0, 50.036469F, 40, 2.9126213F},
         -3.24F,
         41,
         false},
        {"all best",
         {{402, 100'000},
          {470, 300},
          {229, 1},
          {419, 500'000},
          {489, 10'000'000},
          {833, 10'000'000},
          {319, 700'000},
          {179, 100'000},
          {399, 100'000},
          {289, 20'000'000}},
         {-0.3F, 0.9F, 63.6F, 5.1F, 350.0F, 68.5F, 15.0F, 100.0F},
         {100, 100, 100, 100, 100, 100, 100, 100},
         6.05F,
         1595,
         true},
        {"all worst",
         {{402, 1},
          {480, 9'000},
          {229, 90'000},
          {419, -1},
          {489, -9'000'000},
          {833, -9'000'000},
          {319, -900'000},
          {179, 1},
          {399, 1},
          {289, -900'000}},
         {5.1F, 18.0F, 6.5F, -8.5F, -76.5F, -68.6F, -10.0F, -3.0F},
         {0, 0, 0, 0, 0, 0, 0, 0},
         -4.72F,
         0,
         true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Y_Result y = Y_Of(Of(c.amounts));
        Expect_Floats(y.indicators, c.x);
        for (std::size_t i = 0; i < c.ritu.size(); ++i) {
            EXPECT_NEAR(y.rates[i], c.ritu[i], 1e-4) << i;
        }
        EXPECT_EQ(y.points, c.a);
        EXPECT_EQ(y.score.Count(), c.y);
        EXPECT_EQ(y.has_figures, c.has_figures);
    }
}

// The limits themselves, a step beside them, and the rounding: up from 0.499 of the last place, downward for
// negative figures.
TEST(Calc_Y, Indicators) {
    const struct {
        int x;
        Yen_1000 others;
        int code; ///< the account that varies, with its amounts and what they give
        std::vector<std::pair<double, float>> points;
    } cases[] = {
        {1, {{402, 100'000}}, 480, {{5'100, 5.1F}, {5'099, 5.099F}, {5'101, 5.1F}, {0, 0.0F}}},
        {1, {{402, 100'000}}, 470, {{300, -0.3F}, {299, -0.299F}, {301, -0.3F}}},
        {1, {{402, 100'000}, {470, 600}}, 480, {{700, 0.1F}}},
        {1, {}, 470, {{301, 5.1F}}},
        {1, {{402, 200'000'000}}, 480, {{999, 0.001F}, {997, 0.0F}, {-1'001, 0.0F}, {-1'003, -0.001F}}},
        {2, {{402, 12'000'000}, {248, 400'000}}, 229, {{500'000, 0.9F}, {501'000, 0.901F}, {499'000, 0.9F}}},
        {2,
         {{402, 12'000'000}},
         248,
         {{18'000'000, 18.0F}, {17'999'000, 17.999F}, {18'001'000, 18.0F}, {-1, 0.9F}}},
        {2, {{402, 1}}, 229, {{2'000'000'000, 18.0F}}},
        {2, {}, 229, {{0, 18.0F}, {1, 18.0F}}},
        {2, {{402, 120'000'000}}, 229, {{10'004'995, 1.001F}, {10'004'985, 1.0F}}},
        {3, {}, 419, {{19'080, 63.6F}, {19'079, 63.597F}, {1'950, 6.5F}, {1'951, 6.503F}, {-1, 6.5F}}},
        {3,
         {{419, 19'000}, {830, 30'000}},
         399,
         {{29'998, 63.333F}, {29'999, 63.333F}, {30'000, 63.333F}, {30'002, 63.331F}, {-9e4, 63.333F}}},
        {4, {{402, 100'000}}, 489, {{5'100, 5.1F}, {5'099, 5.099F}, {-8'500, -8.5F}, {-8'499, -8.499F}}},
        {4, {}, 489, {{5'100, -8.5F}}},
        {5,
         {{179, 100'000}},
         319,
         {{350'000, 350.0F}, {349'999, 349.999F}, {-76'500, -76.5F}, {-76'499, -76.499F}}},
        {5, {}, 319, {{350'000, -76.5F}}},
        {6,
         {{399, 100'000}},
         319,
         {{68'500, 68.5F}, {68'499, 68.499F}, {-68'600, -68.6F}, {-68'599, -68.599F}}},
        {6, {}, 319, {{68'500, 0.0F}}},
        {7, {{833, 1'500'000}}, 489, {{1'500'000, 15.0F}, {1'499'800, 14.999F}, {1'500'200, 15.0F}}},
        {7, {{833, -1'000'000}}, 489, {{-1'000'000, -10.0F}, {-999'800, -9.999F}}},
        {7, {}, 489, {{100, 0.001F}, {99, 0.0F}, {-100, 0.0F}, {-101, -0.001F}}},
        {8, {}, 289, {{10'000'000, 100.0F}, {9'999'900, 99.999F}, {-300'000, -3.0F}, {-299'900, -2.999F}}},
        {8, {}, 289, {{50, 0.001F}, {49, 0.0F}, {-51, -0.001F}}},
    };
    for (const auto& c : cases) {
        for (const auto& [amount, expected] : c.points) {
            Yen_1000 amounts = c.others;
            amounts.emplace_back(c.code, amount);
            const Y_Result y = Y_Of(Of(amounts));
            EXPECT_FLOAT_EQ(y.indicators[static_cast<std::size_t>(c.x - 1)], expected)
                << "X" << c.x << " " << c.code << "=" << amount;
        }
    }
}

TEST(Calc_Y, Accounts_Are_Cut_Before_They_Are_Summed) {
    const struct {
        double yen;
        std::int32_t thousands;
    } cases[] = {{999, 0}, {-999, 0}, {1'000, 1}, {1'999, 1}, {-1'999, -1}, {-2'000, -2}};
    for (const auto& c : cases) {
        const Y_Result y = Y_Of(Of({{179, c.yen / 1000}}));
        EXPECT_EQ(y.elements[e::fixed_assets].Count(), c.thousands) << c.yen;
    }
    EXPECT_EQ(Y_Of(Of({{400, 1.999}, {410, 0.999}}), {Edition::Hokkaido}).elements[e::sales],
              Thousand_Yen(1));
    EXPECT_EQ(Y_Of(Of({{101, 0.6}, {103, 0.6}})).elements[e::cash_flow], Thousand_Yen());
}

// Each account moved by one step moves the two cash flows (and the other elements) as the statutory text
// says. The edition decides between 114 and 115, 536 and 552, the data form between 209 and 210.
TEST(Calc_Y, Every_Account_Moves_Its_Element) {
    constexpr int all = 3, national = 1, hokkaido = 2;
    const struct {
        int edition, flow_step, prior_step;
        std::vector<int> codes;
    } moves[] = {{all, 0, 1, {833, 831, 835, 836, 837, 800, 801, 802, 803}},
                 {all, 0, -1, {834, 804, 805, 806, 807, 808}},
                 {all, 1, 0, {436, 724, 729, 177, 200, 201, 489}},
                 {all, -1, 0, {511, 101, 103, 106, 107}},
                 {all, -1, 1, {824, 825, 826, 827, 828}},
                 {all, 1, -1, {820, 821, 822, 823}},
                 {national, 1, 0, {114, 536}},
                 {hokkaido, 1, 0, {115, 552}},
                 {national, 0, 0, {115, 552, 400, 410, 402}},
                 {hokkaido, 0, 0, {114, 536, 400, 410, 402}},
                 {all, 0, 0, {208, 838, 179, 229, 248, 289, 319, 399, 830, 419, 470, 480}}};
    const std::map<int, e::Place> elements = {{179, e::fixed_assets},
                                              {229, e::current_liabilities},
                                              {248, e::fixed_liabilities},
                                              {289, e::retained_earnings},
                                              {319, e::equity},
                                              {399, e::total_capital},
                                              {830, e::prior_total_capital},
                                              {419, e::gross_profit},
                                              {470, e::interest_received},
                                              {480, e::interest_paid},
                                              {489, e::ordinary_profit}};
    for (const bool is_hokkaido : {false, true}) {
        const Firm_Kind kind = {is_hokkaido ? Edition::Hokkaido : Edition::National};
        for (const auto& move : moves) {
            if ((move.edition & (is_hokkaido ? hokkaido : national)) == 0) {
                continue;
            }
            for (const int code : move.codes) {
                std::array<Thousand_Yen, e::count> expected{};
                expected[e::cash_flow] = Thousand_Yen(move.flow_step);
                expected[e::prior_cash_flow] = Thousand_Yen(move.prior_step);
                if (elements.contains(code)) {
                    expected[elements.at(code)] = Thousand_Yen(1);
                }
                const bool is_sales = is_hokkaido ? code == 400 || code == 410 : code == 402;
                expected[e::sales] = Thousand_Yen(is_sales ? 1 : 0);
                EXPECT_EQ(Y_Of(Of({{code, 1}}), kind).elements, expected) << is_hokkaido << " " << code;
            }
        }
        for (const int form : {3, 4, 5, 6}) {
            EXPECT_EQ(Y_Of(Of({{209, 1}}, form), kind).elements[e::cash_flow].Count(), form == 6 ? 0 : 1)
                << form;
            EXPECT_EQ(Y_Of(Of({{210, 1}}, form), kind).elements[e::cash_flow].Count(), form == 6 ? 1 : 0)
                << form;
        }
    }
    EXPECT_EQ(Y_Of(Of({{289, 7}, {319, 9}}), {Edition::National, Firm_Type::Individual})
                  .elements[e::retained_earnings],
              Thousand_Yen(9))
        << "an individual";
}

// The statement without figures has A -3.24; from there each indicator moves A by its weight, rounded from
// 0.499 on.
TEST(Calc_Y, Points_Are_Rounded_Down_From_Below_Half) {
    const struct {
        double retained; ///< 利益剰余金 of 100,000 thousand yen is 1 in X8, 0.0172 in the points
        float a;
        std::int16_t y;
    } cases[] = {// -3.2433 + 0.0172 X8: A rises where the points reach -3.23501 and -3.22501, a thousandth
                 // before the half.
                 {0, -3.24F, 41},
                 {48'100, -3.24F, 41},
                 {48'200, -3.23F, 43},
                 {106'300, -3.23F, 43},
                 {106'400, -3.22F, 44},
                 {-9'900, -3.24F, 41},
                 {-10'000, -3.25F, 39},
                 {-300'000, -3.29F, 33},
                 // 167.3 × -2.37 + 583 = 186.499
                 {5'077'000, -2.37F, 187}};
    for (const auto& c : cases) {
        const Y_Result y = Y_Of(Of({{289, c.retained}}));
        EXPECT_EQ(y.points, c.a) << c.retained;
        EXPECT_EQ(y.score.Count(), c.y) << c.retained;
    }
}

TEST(Calc_Y, What_Leaves_32_Bits_Is_Told) {
    const struct {
        Yen_1000 amounts;
        const char* text;
    } cases[] = {{{{402, 2'147'483'648.0}},
                  "財務諸表の「402」（2,147,483,648,000円）の計算で桁あふれが発生しました。"},
                 {{{402, 1}, {229, 1'500'000'000}, {248, 1'500'000'000}}, overflow},
                 {{{480, 2'000'000'000}, {470, -2'000'000'000}}, overflow},
                 {{{399, 2'000'000'000}, {830, 2'000'000'000}}, overflow},
                 {{{101, 2'000'000'000}, {103, 2'000'000'000}}, overflow},
                 {{{489, 2'000'000'000}, {436, 2'000'000'000}}, overflow}};
    for (const auto& c : cases) {
        try {
            static_cast<void>(Y_Of(Of(c.amounts)));
            ADD_FAILURE() << c.amounts.front().first;
        } catch (const Run_Time_Error& error) {
            EXPECT_STREQ(error.what(), c.text);
        }
    }
    EXPECT_EQ(Y_Of(Of({{179, 2'147'483'647.0}})).elements[e::fixed_assets], Thousand_Yen(INT32_MAX));
}

TEST(Calc_Y, A_Statement_Without_Rows_Keeps_The_Indicators) {
    const Y_Result former = Y_Of(Of({{289, 300'000}}));
    const Y_Result y = Calc_Y(Statement_Figures{}, {}, former);
    Expect_Floats(y.indicators, {5.1F, 18.0F, 6.5F, -8.5F, -76.5F, 0.0F, 0.0F, 3.0F});
    EXPECT_NEAR(y.rates[7], 600.0 / 103.0, 1e-4);
    EXPECT_EQ(y.score.Count(), 49); // 167.3 × -3.19 + 583 = 49.313
    EXPECT_TRUE(former.has_figures);
    EXPECT_FALSE(y.has_figures);
    // Without a former one the indicators are 0: A is its base, 0.19.
    EXPECT_EQ(Y_Of({}).score.Count(), 615); // 167.3 × 0.19 + 583 = 614.787
}

class Y_Store : public Installation {};

TEST_F(Y_Store, A_Side_Has_Its_Own_Column) {
    Make_Company(1, 1, 5);
    Put_Amounts({{179, 11'000}});
    ASSERT_TRUE(Period_Copy(session, 6, 5, Copy_Mode::After));
    double amount = 0;
    for (const Scenario scenario : every_scenario) {
        Put_Amounts({{179, amount += 1'000}}, std::string(Columns_Of(scenario).zaihyo).c_str());
    }
    const auto fixed_assets = [this](Side side) { return Calc_Y(session, side).elements[e::fixed_assets]; };
    std::int32_t thousands = 0;
    for (const Scenario scenario : every_scenario) {
        EXPECT_EQ(fixed_assets({6, scenario}), Thousand_Yen(++thousands));
    }
    EXPECT_EQ(fixed_assets(Side_In_Hand(session).Before()), Thousand_Yen(11));
}

TEST(Show_Keiei, Elements_Stand_Under_Their_Captions) {
    // Each account at the place of its caption.
    const Keiei_Texts texts = Show_Keiei(Y_Of(Of({{402, 1001},
                                                  {419, 1002},
                                                  {470, 3},
                                                  {480, 4},
                                                  {489, 1005},
                                                  {833, 7},
                                                  {179, 1008},
                                                  {229, 1009},
                                                  {248, 1010},
                                                  {289, 1011},
                                                  {319, 1012},
                                                  {399, 1013},
                                                  {830, -1014}})));
    const std::pair<const char*, const char*> shown[] = {
        {"売上高", "1,001"},
        {"売上総利益", "1,002"},
        {"受取利息配当金", "3"},
        {"支払利息", "4"},
        {"経常（事業主）利益", "1,005"},
        {"営業ｷｬｯｼｭﾌﾛｰ（当期）", "1,005"},
        {"営業ｷｬｯｼｭﾌﾛｰ（前期）", "7"},
        {"固定資産", "1,008"},
        {"流動負債", "1,009"},
        {"固定負債", "1,010"},
        {"利益剰余金", "1,011"},
        {"自己資本", "1,012"},
        {"総資本（当期）", "1,013"},
        {"総資本（前期）", "-1,014"},
    };
    for (std::size_t i = 0; i < y_elements.size(); ++i) {
        EXPECT_STREQ(y_elements[i].name, shown[i].first);
        EXPECT_EQ(texts.Yoso[i], shown[i].second);
    }
    EXPECT_EQ(Show_Keiei(Y_Result{}).Y, "") << "no figure for 0";
}

TEST(Fixed_Str, Decimals_Round_The_Digits_That_Stand_There) {
    const struct {
        float figure;
        int decimals;
        const char* text;
    } cases[] = {{12.35F, 1, "12.4"},  {45.25F, 1, "45.3"}, {-0.25F, 1, "-0.3"}, {-0.04F, 1, "0.0"},
                 {99.95F, 1, "100.0"}, {5.1F, 3, "5.100"},  {1.005F, 2, "1.01"}, {0.0F, 3, "0.000"}};
    for (const auto& c : cases) {
        EXPECT_EQ(Fixed_Str(c.figure, c.decimals), c.text) << c.figure;
    }
}

} // namespace
} // namespace morvane::tests
