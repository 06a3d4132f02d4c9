// SPDX-FileCopyrightText: The Morvane developers
#include "review/y_calc.h"

#include "company/data_set.h"
#include "law/run_time_error.h"
#include "support/installation_fixture.h"

namespace morvane::tests {
namespace {

using Yen_1000 = std::vector<std::pair<int, double>>;

/// A statement of thousand yen.
Statement_Figures Of(const Yen_1000& amounts, int form = 5) {
    Statement_Figures figures;
    figures.has_rows = true;
    figures.form = form;
    for (const auto& [code, amount] : amounts) {
        figures.amount[static_cast<std::size_t>(code)] = amount * 1000;
    }
    return figures;
}

/// A national corporation's results.
Y_Calc Calculated(const Statement_Figures& statement, Firm_Kind kind = {}) {
    Y_Calc y;
    y.Calc_Y(statement, kind);
    return y;
}

void Expect_Floats(const std::array<float, 8>& found, const std::array<float, 8>& expected) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_FLOAT_EQ(found[i], expected[i]) << "X" << i + 1;
    }
}

TEST(Y_Calc, Best_Worst_And_All_Zero) {
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
        const Y_Calc y = Calculated(Of(c.amounts));
        Expect_Floats(y.Y_Kekka, c.x);
        for (std::size_t i = 0; i < c.ritu.size(); ++i) {
            EXPECT_NEAR(y.Y_Ritu[i], c.ritu[i], 1e-4) << i;
        }
        EXPECT_EQ(y.Y_A_Ten, c.a);
        EXPECT_EQ(y.Y_Ten, c.y);
        EXPECT_EQ(y.has_figures, c.has_figures);
    }
}

// The limits themselves, a step beside them, and the rounding: up from 0.499 of the last place, downward for
// negative figures.
TEST(Y_Calc, Indicators) {
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
            const Y_Calc y = Calculated(Of(amounts));
            EXPECT_FLOAT_EQ(y.Y_Kekka[static_cast<std::size_t>(c.x - 1)], expected)
                << "X" << c.x << " " << c.code << "=" << amount;
        }
    }
}

TEST(Y_Calc, Accounts_Are_Cut_Before_They_Are_Summed) {
    const struct {
        double yen;
        std::int32_t thousands;
    } cases[] = {{999, 0}, {-999, 0}, {1'000, 1}, {1'999, 1}, {-1'999, -1}, {-2'000, -2}};
    for (const auto& c : cases) {
        const Y_Calc y = Calculated(Of({{179, c.yen / 1000}}));
        EXPECT_EQ(y.Y_Yoso[0], c.thousands) << c.yen;
    }
    EXPECT_EQ(Calculated(Of({{400, 1.999}, {410, 0.999}}), {Edition::Hokkaido}).Y_Yoso[7], 1);
    EXPECT_EQ(Calculated(Of({{101, 0.6}, {103, 0.6}})).Y_Work[10], 0);
}

// Each account moved by one step moves the two cash flows (and the other elements) as the statutory text
// says. The edition decides between 114 and 115, 536 and 552, the data form between 209 and 210.
TEST(Y_Calc, Every_Account_Moves_Its_Element) {
    constexpr int all = 3, national = 1, hokkaido = 2;
    constexpr std::size_t flow = 12, prior_flow = 13;
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
    const std::map<int, std::size_t> elements = {{179, 0}, {229, 1}, {248, 2}, {289, 3},  {319, 4}, {399, 5},
                                                 {830, 6}, {419, 8}, {470, 9}, {480, 10}, {489, 11}};
    for (const bool is_hokkaido : {false, true}) {
        const Firm_Kind kind = {is_hokkaido ? Edition::Hokkaido : Edition::National};
        for (const auto& move : moves) {
            if ((move.edition & (is_hokkaido ? hokkaido : national)) == 0) {
                continue;
            }
            for (const int code : move.codes) {
                std::array<std::int32_t, 14> expected{};
                expected[flow] = move.flow_step;
                expected[prior_flow] = move.prior_step;
                if (elements.contains(code)) {
                    expected[elements.at(code)] = 1;
                }
                expected[7] = is_hokkaido ? (code == 400 || code == 410 ? 1 : 0) : (code == 402 ? 1 : 0);
                EXPECT_EQ(Calculated(Of({{code, 1}}), kind).Y_Yoso, expected) << is_hokkaido << " " << code;
            }
        }
        for (const int form : {3, 4, 5, 6}) {
            EXPECT_EQ(Calculated(Of({{209, 1}}, form), kind).Y_Yoso[flow], form == 6 ? 0 : 1) << form;
            EXPECT_EQ(Calculated(Of({{210, 1}}, form), kind).Y_Yoso[flow], form == 6 ? 1 : 0) << form;
        }
    }
    EXPECT_EQ(Calculated(Of({{289, 7}, {319, 9}}), {Edition::National, Firm_Type::Individual}).Y_Yoso[3], 9)
        << "an individual";
}

// The statement without figures has A -3.24; from there each indicator moves A by its weight, rounded from
// 0.499 on.
TEST(Y_Calc, Points_Are_Rounded_Down_From_Below_Half) {
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
        const Y_Calc y = Calculated(Of({{289, c.retained}}));
        EXPECT_EQ(y.Y_A_Ten, c.a) << c.retained;
        EXPECT_EQ(y.Y_Ten, c.y) << c.retained;
    }
}

TEST(Y_Calc, Overflow_Keeps_The_Former_Results) {
    const Yen_1000 cases[] = {{{402, 2'147'483'648.0}},
                              {{402, 1}, {229, 1'500'000'000}, {248, 1'500'000'000}},
                              {{480, 2'000'000'000}, {470, -2'000'000'000}},
                              {{399, 2'000'000'000}, {830, 2'000'000'000}},
                              {{101, 2'000'000'000}, {103, 2'000'000'000}},
                              {{489, 2'000'000'000}, {436, 2'000'000'000}}};
    for (const Yen_1000& amounts : cases) {
        Y_Calc y = Calculated(Of({{402, 100'000}, {489, 5'099}, {319, 7}}));
        const Y_Calc before = y;
        EXPECT_THROW(y.Calc_Y(Of(amounts), {}), Run_Time_Error) << amounts.front().first;
        EXPECT_EQ(y.Y_Kekka, before.Y_Kekka);
        EXPECT_EQ(y.Y_Yoso, before.Y_Yoso);
        EXPECT_EQ(y.Y_Work, before.Y_Work);
        EXPECT_EQ(y.Y_Ritu, before.Y_Ritu);
        EXPECT_EQ(y.Y_A_Ten, before.Y_A_Ten);
        EXPECT_EQ(y.Y_Ten, before.Y_Ten);
    }
    EXPECT_EQ(Calculated(Of({{179, 2'147'483'647.0}})).Y_Yoso[0], INT32_MAX);
}

class Y_Store : public Installation {};

TEST_F(Y_Store, Columns_Slots_And_Periods) {
    Make_Company(1, 1, 5);
    Put_Amounts({{179, 11'000}});
    ASSERT_TRUE(Period_Copy(session, 6, 5, Copy_Mode::After));
    const struct {
        const char* column;
        double fixed_assets;
    } columns[] = {{"金額", 1'000},
                   {"改善後残高", 2'000},
                   {"改善後残高1", 3'000},
                   {"改善後残高2", 4'000},
                   {"改善後残高3", 5'000}};
    for (const auto& c : columns) {
        Put_Amounts({{179, c.fixed_assets}}, c.column);
    }
    const struct {
        bool slot;
        std::uint8_t kikan, kbn;
        std::int32_t fixed_assets;
    } cases[] = {{false, 1, 1, 1}, {false, 1, 2, 2}, {false, 1, 7, 2}, {true, 1, 1, 1},  {true, 1, 2, 2},
                 {true, 1, 3, 3},  {true, 1, 4, 4},  {true, 1, 5, 5},  {false, 2, 1, 11}};
    for (const auto& c : cases) {
        Y_Calc y;
        y.Y_Slot_Flg = c.slot;
        y.Y_Kikan = c.kikan;
        y.Calc_Y(session, c.kbn);
        EXPECT_EQ(y.Y_Yoso[0], c.fixed_assets) << c.slot << int{c.kikan} << int{c.kbn};
        EXPECT_EQ(y.Y_Col, c.kbn == 1 ? 1 : 2);
    }
}

TEST_F(Y_Store, A_Period_Without_Rows_Keeps_The_Indicators) {
    Make_Company(1, 1, 5);
    Put_Amounts({{289, 300'000'000}});
    for (const std::uint8_t kikan : {std::uint8_t{2}, std::uint8_t{3}}) {
        Y_Calc y;
        y.Calc_Y(session, 1);
        EXPECT_FLOAT_EQ(y.Y_Kekka[7], 3.0F);
        EXPECT_TRUE(y.has_figures);
        const float points = y.Y_A_Ten;
        y.Y_A_Ten = 0;
        y.Y_Ten = 7;
        y.Y_Ritu = {};
        y.Y_Kikan = kikan;
        y.Calc_Y(session, 1);
        Expect_Floats(y.Y_Kekka, {5.1F, 18.0F, 6.5F, -8.5F, -76.5F, 0.0F, 0.0F, 3.0F});
        EXPECT_NEAR(y.Y_Ritu[7], 600.0 / 103.0, 1e-4);
        EXPECT_EQ(y.Y_A_Ten, points);
        EXPECT_EQ(y.Y_Ten, 49); // 167.3 × -3.19 + 583 = 49.313
        EXPECT_FALSE(y.has_figures);
    }
}

} // namespace
} // namespace morvane::tests
