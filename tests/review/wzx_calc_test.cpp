// SPDX-FileCopyrightText: The Morvane developers
#include "review/wzx_calc.h"

#include "session/run_time_error.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace morvane {
namespace {

constexpr std::int32_t int32_max = std::numeric_limits<std::int32_t>::max();
constexpr std::int16_t int16_max = std::numeric_limits<std::int16_t>::max();

template <class Call>
void Expect_Error(Run_Time_Error::Kind kind, Call call) {
    try {
        static_cast<void>(call());
        ADD_FAILURE() << "no error";
    } catch (const Run_Time_Error& error) {
        EXPECT_EQ(error.kind, kind);
    }
}

TEST(WZX_Calc, Amount_Scores_And_Their_Row_Numbers) {
    const struct {
        std::int16_t (WZX_Calc::*calc)(std::int32_t);
        int WZX_Calc::*tbl_no;
        int ten_0, lowest_row;
        std::int32_t failing, constant_from, constant;
    } cases[] = {
        {&WZX_Calc::Calc_X1_Ten_A, &WZX_Calc::Tbl_No_X1, 390, 41, 99'999'999, 100'000'000, 2'268},
        {&WZX_Calc::Calc_X1_Ten_B, &WZX_Calc::Tbl_No_X1, 397, 41, 28'633'116, 100'000'000, 2'309},
        {&WZX_Calc::Calc_X2_1_Ten, &WZX_Calc::Tbl_No_X2_1, 361, 46, 32'537'632, 300'000'000, 2'114},
        {&WZX_Calc::Calc_X2_2_Ten, &WZX_Calc::Tbl_No_X2_2, 547, 36, 29'999'999, 30'000'000, 2'447},
        {&WZX_Calc::Calc_Z2_Ten_A, &WZX_Calc::Tbl_No_Z2, 210, 41, 30'000'000, 100'000'000, 2'268},
        {&WZX_Calc::Calc_Z2_Ten_B, &WZX_Calc::Tbl_No_Z2, 241, 41, 19'522'579, 100'000'000, 2'865},
    };
    for (const auto& c : cases) {
        WZX_Calc calc;
        EXPECT_EQ((calc.*c.calc)(0), c.ten_0);
        EXPECT_EQ(calc.*c.tbl_no, c.lowest_row);
        EXPECT_EQ((calc.*c.calc)(-1), 0);
        Expect_Error(Run_Time_Error::Kind::Overflow, [&] { return (calc.*c.calc)(c.failing); });
        EXPECT_EQ(calc.*c.tbl_no, c.lowest_row);
        EXPECT_EQ(calc.Tbl_No_X1 + calc.Tbl_No_X2_1 + calc.Tbl_No_X2_2 + calc.Tbl_No_Z2, c.lowest_row);
        EXPECT_EQ((calc.*c.calc)(c.constant_from), c.constant);
        EXPECT_EQ(calc.*c.tbl_no, 0);
    }
}

TEST(WZX_Calc, Z1_Weights) {
    const struct {
        std::int32_t n[6], ten;
    } cases[] = {
        {{0, 0, 0, 0, 0, 0}, 510},       {{1, 0, 0, 0, 0, 0}, 584}, {{0, 1, 0, 0, 0, 0}, 572},
        {{0, 0, 1, 0, 0, 0}, 547},       {{0, 0, 0, 1, 0, 0}, 534}, {{0, 0, 0, 0, 1, 0}, 522},
        {{0, 0, 0, 0, 0, 1}, 559},       {{1, 1, 1, 1, 1, 1}, 766}, {{2'583, 0, 0, 0, 1, 0}, 2'334},
        {{2'583, 0, 0, 1, 0, 0}, 2'335}, {{-1, 1, 0, 0, 0, 0}, 0},
    };
    WZX_Calc calc;
    for (const auto& c : cases) {
        EXPECT_EQ(calc.Calc_Z1_Ten(c.n[0], c.n[1], c.n[2], c.n[3], c.n[4], c.n[5]), c.ten);
    }
    EXPECT_EQ(calc.Tbl_No_Z1, 0);
    Expect_Error(Run_Time_Error::Kind::Overflow, [&] { return calc.Calc_Z1_Ten(int32_max, 0, 0, 0, 0, 0); });
}

TEST(WZX_Calc, Scores_Of_One_Figure) {
    using Score = std::int16_t (WZX_Calc::*)(std::int32_t) const;
    const Score w2 = &WZX_Calc::Calc_W2_Ten;
    const Score w3 = &WZX_Calc::Calc_W3_Ten;
    const Score w4 = &WZX_Calc::Calc_W4_Ten;
    const Score w7 = &WZX_Calc::Calc_W7_Ten;
    const Score rireki = &WZX_Calc::Calc_Rireki_Ten;
    const struct {
        const char* name;
        Score score;
        std::int32_t value;
        std::int16_t ten;
    } cases[] = {
        {"W2", w2, 0, 0},        {"W2", w2, 5, 0},       {"W2", w2, 6, 2},          {"W2", w2, 34, 58},
        {"W2", w2, 35, 60},      {"W2", w2, 200, 60},    {"W2", w2, -1, 60},        {"W3", w3, 0, 0},
        {"W3", w3, 1, 20},       {"W3", w3, 2, 0},       {"W3", w3, -1, 0},         {"W4", w4, 0, 0},
        {"W4", w4, 1, -15},      {"W4", w4, 2, -30},     {"W4", w4, 3, 0},          {"W7", w7, -1, 0},
        {"W7", w7, 0, 0},        {"W7", w7, 1, 5},       {"W7", w7, 7, 11},         {"W7", w7, 8, 12},
        {"W7", w7, 9, 12},       {"W7", w7, 10, 13},     {"W7", w7, 11, 13},        {"W7", w7, 12, 14},
        {"W7", w7, 13, 14},      {"W7", w7, 14, 15},     {"W7", w7, int32_max, 15}, {"履歴", rireki, 0, 0},
        {"履歴", rireki, 1, 10}, {"履歴", rireki, 2, 5}, {"履歴", rireki, 3, 5},    {"履歴", rireki, 4, 15},
        {"履歴", rireki, 5, 10}, {"履歴", rireki, 6, 0}, {"履歴", rireki, -1, 0},
    };
    const WZX_Calc calc;
    for (const auto& c : cases) {
        EXPECT_EQ((calc.*c.score)(c.value), c.ten) << c.name << " of " << c.value;
    }
}

TEST(WZX_Calc, W1_And_W2_With_Deductions) {
    const WZX_Calc calc;
    EXPECT_EQ(calc.Calc_W1_Ten_30(3, 0), 45);
    EXPECT_EQ(calc.Calc_W1_Ten_30(1, 2), -45);
    EXPECT_EQ(calc.Calc_W1_Ten_40(0, 3), -120);
    EXPECT_EQ(calc.Calc_W1_Ten_40(2, 1), -10);
    Expect_Error(Run_Time_Error::Kind::Overflow, [&] { return calc.Calc_W1_Ten_40(0, 820); });
    EXPECT_EQ(calc.Calc_W2_Ten_Saisei(35, 1), 0);
    EXPECT_EQ(calc.Calc_W2_Ten_Saisei(5, 1), -60);
    EXPECT_EQ(calc.Calc_W2_Ten_Saisei(6, 1), -58);
    EXPECT_EQ(calc.Calc_W2_Ten_Saisei(6, 0), 2);
    EXPECT_EQ(calc.Calc_W2_Ten_Saisei(35, 2), 60);
}

// All limits are multiples of one second-grade accountant (0.4), so the points can be found in whole tenths.
TEST(WZX_Calc, W5_Accountants_At_Every_Limit) {
    constexpr int never = 1'000'000;
    const struct {
        std::int32_t kanko[3];
        int needed[5]; ///< second-grade accountants for 10, 8, 6, 4, 2 points
    } bands[] = {
        {{0, 1, 99'999}, {1, never, never, never, never}},
        {{100'000, 100'001, 999'999}, {3, 2, 1, never, never}},
        {{1'000'000, 1'000'001, 3'999'999}, {6, 4, 3, 2, 1}},
        {{4'000'000, 4'000'001, 14'999'999}, {11, 8, 6, 3, 2}},
        {{15'000'000, 15'000'001, 59'999'999}, {22, 17, 12, 7, 4}},
        {{60'000'000, int32_max, -1}, {34, 27, 18, 13, 7}},
    };
    WZX_Calc calc;
    for (const auto& band : bands) {
        for (const std::int32_t kanko : band.kanko) {
            for (int ikkyu = 0; ikkyu <= 14; ++ikkyu) {
                for (int nikyu = 0; nikyu <= 36; ++nikyu) {
                    int expected = 0;
                    for (int i = 0; i < 5 && expected == 0; ++i) {
                        expected = 10 * ikkyu + 4 * nikyu >= 4 * band.needed[i] ? 10 - 2 * i : 0;
                    }
                    EXPECT_EQ(calc.Calc_W5_Ten(0, kanko, ikkyu, nikyu), expected)
                        << kanko << " " << ikkyu << " " << nikyu;
                }
            }
        }
    }
}

TEST(WZX_Calc, W5_Adds_The_Audit_And_Keeps_Its_Parts) {
    const int points[] = {0, 2, 10, 20, 0};
    WZX_Calc calc;
    for (std::int32_t kansa = 0; kansa < 5; ++kansa) {
        EXPECT_EQ(calc.Calc_W5_Ten(kansa, 15'000'000, 1, 9), points[kansa] + 4);
        EXPECT_EQ(calc.W5_Kansa_Ten, points[kansa]);
        EXPECT_EQ(calc.W5_Kaikei_Ten, 4);
        EXPECT_EQ(calc.W5_Kaikei_Su, 4.6F);
    }
}

TEST(WZX_Calc, W6_Bands) {
    std::vector<std::int32_t> starts{50'000}; // the start of the band of 1 point, 2 points, ...
    for (std::int32_t start = 100'000; start <= 2'000'000; start += 100'000) {
        starts.push_back(start);
    }
    starts.insert(starts.end(), {3'000'000, 5'000'000, 7'500'000, 10'000'000});
    const WZX_Calc calc;
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const int ten = static_cast<int>(i) + 1;
        EXPECT_EQ(calc.Calc_W6_Ten(3, starts[i], starts[i]), ten) << starts[i];
        EXPECT_EQ(calc.Calc_W6_Ten(3, 0, 2 * starts[i] + 1), ten) << starts[i];
        EXPECT_EQ(calc.Calc_W6_Ten(3, 2 * starts[i] - 1, 0), ten - 1) << starts[i];
    }
    EXPECT_EQ(starts.size(), 25U);
    EXPECT_EQ(calc.Calc_W6_Ten(3, -100'000, -200'001), 0);
    EXPECT_EQ(calc.Calc_W6_Ten(2, int32_max, int32_max), 0);
    Expect_Error(Run_Time_Error::Kind::Overflow, [&] { return calc.Calc_W6_Ten(3, int32_max, 1); });
}

TEST(WZX_Calc, W8_And_WLB) {
    const WZX_Calc calc;
    const std::int16_t w8[2][2][3] = {{{0, 5, 0}, {5, 10, 0}}, {{3, 5, 0}, {8, 10, 0}}};
    for (int iso0 = 0; iso0 < 2; ++iso0) {
        for (int iso1 = 0; iso1 < 2; ++iso1) {
            for (int iso2 = 0; iso2 < 3; ++iso2) {
                EXPECT_EQ(calc.Calc_W8_Ten(iso0, iso1, iso2), w8[iso0][iso1][iso2]) << iso0 << iso1 << iso2;
            }
        }
    }
    const std::int16_t wlb[][4] = {
        {0, 0, 0, 0}, {1, 0, 0, 5}, {2, 0, 0, 4}, {3, 0, 0, 3}, {4, 0, 0, 2},  {5, 0, 0, 0},
        {0, 1, 0, 5}, {0, 2, 0, 3}, {0, 3, 0, 3}, {0, 4, 0, 0}, {0, 0, 1, 4},  {0, 0, 2, 0},
        {4, 2, 0, 3}, {4, 3, 1, 4}, {1, 1, 1, 5}, {2, 1, 1, 5}, {-1, 9, 1, 4},
    };
    for (const auto& c : wlb) {
        EXPECT_EQ(calc.Calc_WLB_Ten(c[0], c[1], c[2]), c[3]) << c[0] << c[1] << c[2];
    }
}

// Limits lie on decimals that single precision cannot hold: a rate formed exactly on one must still reach it.
TEST(WZX_Calc, W10_Each_Part_At_Its_Limits) {
    const WZX_Calc calc;
    for (int point = 1; point <= 10; ++point) {
        for (const int scale : {200, 1'000, 3'000}) {
            const int reached = 15 * point * scale / 1'000;
            const auto skill = [&](int kojyo) { return calc.Calc_W10_Ten(0, 0, 1, scale + kojyo, kojyo); };
            EXPECT_EQ(skill(reached), point) << scale;
            EXPECT_EQ(skill(reached - 1), point - 1) << scale;
        }
        for (const int engineers : {1, 7, 100}) {
            EXPECT_EQ(calc.Calc_W10_Ten(3 * point * engineers, engineers, 0, 0, 0), point) << engineers;
            EXPECT_EQ(calc.Calc_W10_Ten(3 * point * engineers - 1, engineers, 0, 0, 0), point - 1)
                << engineers;
        }
    }
}

TEST(WZX_Calc, W10_Full_Points_Stay_Ten_Whatever_The_Weights) {
    const WZX_Calc calc;
    for (int engineers = 1; engineers <= 100; ++engineers) {
        for (int skilled = 1; skilled <= 100; ++skilled) { // 1 and 22 among them
            EXPECT_EQ(calc.Calc_W10_Ten(30 * engineers, engineers, 1, 2 * skilled, skilled), 10)
                << engineers << " " << skilled;
        }
    }
}

TEST(WZX_Calc, W10_Cases) {
    const struct {
        const char* name;
        std::int32_t cpd, gijutusya, level_up, ginosya, kojyo;
        std::int16_t ten;
    } cases[] = {
        {"31 units per engineer", 31, 1, 0, 0, 0, 0},
        {"just above 30", 3'001, 100, 0, 0, 0, 0},
        {"above 30 beside full skill", 62, 2, 1, 2, 1, 5},
        {"no units: the engineers still weigh", 0, 10, 1, 10, 5, 5},
        {"no engineers: the skilled weigh all", 30, 0, 1, 10, 5, 10},
        {"no levels: the skilled still weigh", 300, 10, 0, 10, 5, 5},
        {"levels only switch the part on", 0, 0, 9, 10, 0, 0},
        {"a third of ten is floored", 30, 1, 1, 2, 0, 3},
        {"all deducted", 0, 0, 1, 10, 10, 0},
        {"more deducted than there are", 0, 0, 1, 10, 11, 0},
        {"weight above one", 30'030, 1'001, 0, -1, 0, 0},
        {"negative weight", -30, -1, 0, 5, 0, 0},
        {"nothing counts", 0, 5, 0, -5, 0, 0},
    };
    const WZX_Calc calc;
    for (const auto& c : cases) {
        EXPECT_EQ(calc.Calc_W10_Ten(c.cpd, c.gijutusya, c.level_up, c.ginosya, c.kojyo), c.ten) << c.name;
    }
    Expect_Error(Run_Time_Error::Kind::Division_By_Zero, [&] { return calc.Calc_W10_Ten(1, 5, 0, -5, 0); });
    Expect_Error(Run_Time_Error::Kind::Division_By_Zero, [&] { return calc.Calc_W10_Ten(0, 5, 1, -5, 0); });
}

TEST(WZX_Calc, W_2008) {
    const WZX_Calc calc;
    EXPECT_EQ(calc.Calc_W_2008(1, 2, 4, 8, 16, 32), 630);
    EXPECT_EQ(calc.Calc_W_2008(-1, 0, 0, 0, 0, 0), 0);
    EXPECT_EQ(calc.Calc_W_2008(3'276, 0, 0, 0, 0, 0), 32'760);
    for (const std::int16_t w1 : {std::int16_t{3'277}, std::int16_t{-3'277}}) {
        Expect_Error(Run_Time_Error::Kind::Overflow, [&] { return calc.Calc_W_2008(w1, 0, 0, 0, 0, 0); });
    }
    // The sum itself is of 16 bits: it fails although later sub-scores would bring it back.
    Expect_Error(Run_Time_Error::Kind::Overflow,
                 [&] { return calc.Calc_W_2008(int16_max, 1, -int16_max, 0, 0, 0); });
}

TEST(WZX_Calc, W_2011_Cuts_Toward_Zero) {
    WZX_Calc calc;
    for (int sum = -3'276; sum <= 3'276; ++sum) {
        const auto w1 = static_cast<std::int16_t>(sum);
        EXPECT_EQ(calc.Calc_W_2011(w1, 0, 0, 0, 0, 0, 0, 0, Review_Date{2023, 8, 13}), std::trunc(9.5 * sum));
        EXPECT_EQ(calc.Calc_W_2011(w1, 0, 0, 0, 0, 0, 0, 0, Review_Date{2023, 8, 14}),
                  std::trunc(8.75 * sum));
    }
    EXPECT_EQ(calc.Calc_W_2011(1, 2, 4, 8, 16, 32, 64, 128, Review_Date{2012, 3, 31}), 2'422);
    Expect_Error(Run_Time_Error::Kind::Overflow,
                 [&] { return calc.Calc_W_2011(3'276, 0, 0, 0, 0, 0, 0, 1, std::nullopt); });
}

TEST(WZX_Calc, W_2011_Date) {
    const struct {
        std::optional<Review_Date> date;
        int w;
    } calls[] = {
        {{}, 950},
        {{{2023, 8, 14}}, 875},
        {{}, 875},
        {{{2023, 7, 31}}, 950},
        {{}, 950},
        {{{2023, 9, 1}}, 875},
        {{{2022, 12, 31}}, 950},
        {{{2024, 1, 1}}, 875},
    };
    WZX_Calc calc; // one object: a call without a date takes that of the call before
    for (const auto& c : calls) {
        EXPECT_EQ(calc.Calc_W_2011(100, 0, 0, 0, 0, 0, 0, 0, c.date), c.w);
    }
}

TEST(Young_Engineers, Rates_And_Points) {
    const struct {
        std::int32_t young, all;
        double rate;
        std::int16_t keizoku, sinki;
    } cases[] = {
        {0, 7, 0, 0, 0},   {1, 101, 0, 0, 0},   {1, 100, 1, 0, 1},   {14, 100, 14, 0, 1},
        {3, 20, 15, 1, 1}, {2, 14, 14, 0, 1},   {15, 100, 15, 1, 1}, {149, 1'000, 14, 0, 1},
        {5, 5, 100, 1, 1}, {29, 100, 28, 1, 1},
    };
    for (const auto& c : cases) {
        const double rate = Young_Rate(c.young, c.all);
        EXPECT_EQ(rate, c.rate) << c.young << "/" << c.all;
        EXPECT_EQ(Young_Keizoku_Ten(rate), c.keizoku);
        EXPECT_EQ(Young_Sinki_Ten(rate), c.sinki);
    }
    Expect_Error(Run_Time_Error::Kind::Division_By_Zero, [] { return Young_Rate(1, 0); });
}

TEST(Averages, Halves_Go_Up_And_Three_Years_Use_The_Rounded_Pair) {
    const struct {
        std::int32_t a, b, c;
        std::int32_t two, three, pair; ///< two-year, three-year average; average of the two earlier periods
    } cases[] = {
        {0, 1, 2, 2, 1, 1},     {0, 0, 1, 1, 0, 0},
        {0, 1, 0, 1, 1, 1},     {0, 0, 2, 1, 1, 0},
        {0, -1, -2, -1, -1, 0}, {100, 200, 301, 251, 200, 150},
        {-3, 0, 0, 0, -1, -1},  {0, 0, int32_max, 1'073'741'824, 715'827'882, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.a << " " << c.b << " " << c.c);
        EXPECT_EQ(Calc_Avg_Nen(2, c.a, c.b, c.c), c.two);
        EXPECT_EQ(Calc_Avg_Mae(2, c.a, c.b, c.c), c.b);
        EXPECT_EQ(Calc_Avg_Mae(3, c.a, c.b, c.c), c.pair);
        EXPECT_EQ(Calc_Avg_Nen(3, c.a, c.b, c.c), c.three);
    }
    Expect_Error(Run_Time_Error::Kind::Overflow, [] { return Two_Year_Avg(int32_max, 1); });
    Expect_Error(Run_Time_Error::Kind::Overflow, [] { return Three_Year_Avg(2, 0, int32_max); });
    Expect_Error(Run_Time_Error::Kind::Overflow, [] { return Three_Year_Avg(int32_max, 0, -9); });
}

TEST(Total_Scores, Z) {
    const std::int16_t cases[][3] = {
        {510, 520, 512}, {1'000, 999, 999}, {999, 1'000, 999}, {2'335, 2'865, 2'441},
        {449, 449, 450}, {0, 0, 450},       {0, 2'865, 573},   {0, 521, 450},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Calc_Z_Ten(c[0], c[1]), c[2]) << c[0] << " " << c[1];
    }
    for (std::int16_t ten = 450; ten < 2'900; ++ten) { // weights that add up to one lose no whole score
        EXPECT_EQ(Calc_Z_Ten(ten, ten), ten);
    }
}

TEST(Total_Scores, P) {
    const struct {
        std::int16_t x1, x2, y, z, w, p;
    } cases[] = {
        {1'000, 1'000, 1'000, 1'000, 1'000, 1'000},
        {100, 0, 0, 0, 0, 25},
        {0, 100, 0, 0, 0, 15},
        {0, 0, 100, 0, 0, 20},
        {0, 0, 0, 100, 0, 25},
        {0, 0, 0, 0, 100, 15},
        {2, 0, 0, 0, 0, 1},
        {1, 0, 1, 0, 0, 0},
        {0, 10, 0, 0, 0, 2},
        {0, 0, 0, 0, 3, 0},
        {0, 0, 0, 0, -1'000, -150},
        {int16_max, int16_max, int16_max, int16_max, int16_max, int16_max},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Calc_P_Ten(c.x1, c.x2, c.y, c.z, c.w), c.p) << c.x1 << " " << c.x2 << " " << c.w;
    }
}

} // namespace
} // namespace morvane
