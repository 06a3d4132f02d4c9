// SPDX-FileCopyrightText: The Morvane developers
#include "review/scores.h"

#include "law/run_time_error.h"
#include "review/works.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
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

TEST(Scores, Amounts_By_Their_Tables) {
    const struct {
        Scored (*calc)(Thousand_Yen);
        int ten_0, lowest_row;
        std::int32_t failing, constant_from, constant;
    } cases[] = {
        {Calc_X1_Ten_A, 390, 41, 99'999'999, 100'000'000, 2'268},
        {Calc_X1_Ten_B, 397, 41, 28'633'116, 100'000'000, 2'309},
        {Calc_X2_1_Ten, 361, 46, 32'537'632, 300'000'000, 2'114},
        {Calc_X2_2_Ten, 547, 36, 29'999'999, 30'000'000, 2'447},
        {Calc_Z2_Ten_A, 210, 41, 30'000'000, 100'000'000, 2'268},
        {Calc_Z2_Ten_B, 241, 41, 19'522'579, 100'000'000, 2'865},
    };
    for (const auto& c : cases) {
        const struct {
            std::int32_t amount;
            int ten, row;
        } amounts[] = {{-1, 0, -1}, {0, c.ten_0, c.lowest_row}, {c.constant_from, c.constant, 0}};
        for (const auto& a : amounts) {
            const Scored scored = c.calc(Thousand_Yen(a.amount));
            EXPECT_EQ(scored.points.Count(), a.ten) << c.constant << " " << a.amount;
            EXPECT_EQ(scored.row, a.row) << c.constant << " " << a.amount;
        }
        Expect_Error(Run_Time_Error::Kind::Overflow, [&] { return c.calc(Thousand_Yen(c.failing)); });
    }
}

Engineers Of_Kinds(const std::array<std::int32_t, 6>& numbers) {
    Engineers engineers;
    std::transform(numbers.begin(), numbers.end(), engineers.begin(),
                   [](std::int32_t number) { return Head_Count(number); });
    return engineers;
}

TEST(Scores, Z1_Weights) {
    const struct {
        std::array<std::int32_t, 6> n;
        int ten;
    } cases[] = {
        {{0, 0, 0, 0, 0, 0}, 510},       {{1, 0, 0, 0, 0, 0}, 584}, {{0, 1, 0, 0, 0, 0}, 572},
        {{0, 0, 1, 0, 0, 0}, 547},       {{0, 0, 0, 1, 0, 0}, 534}, {{0, 0, 0, 0, 1, 0}, 522},
        {{0, 0, 0, 0, 0, 1}, 559},       {{1, 1, 1, 1, 1, 1}, 766}, {{2'583, 0, 0, 0, 1, 0}, 2'334},
        {{2'583, 0, 0, 1, 0, 0}, 2'335}, {{-1, 1, 0, 0, 0, 0}, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Calc_Z1_Ten(Of_Kinds(c.n)).points.Count(), c.ten);
    }
    Expect_Error(Run_Time_Error::Kind::Overflow, [] {
        return Calc_Z1_Ten(Of_Kinds({int32_max, 0, 0, 0, 0, 0}));
    });
}

TEST(Scores, Of_One_Figure) {
    using Score = Points (*)(std::int32_t);
    const Score w2 = [](std::int32_t years) { return Calc_W2_Ten(Head_Count(years)); };
    const Score w7 = [](std::int32_t machines) { return Calc_W7_Ten(Head_Count(machines)); };
    const Score w3 = Calc_W3_Ten;
    const Score w4 = Calc_W4_Ten;
    const Score rireki = Calc_Rireki_Ten;
    const struct {
        const char* name;
        Score score;
        std::int32_t value;
        int ten;
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
    for (const auto& c : cases) {
        EXPECT_EQ(c.score(c.value).Count(), c.ten) << c.name << " of " << c.value;
    }
}

TEST(Scores, W1_And_W2_With_Deductions) {
    const auto w1 = [](Points (*calc)(Head_Count, Head_Count), int joined, int missing) {
        return calc(Head_Count(joined), Head_Count(missing)).Count();
    };
    EXPECT_EQ(w1(Calc_W1_Ten_30, 3, 0), 45);
    EXPECT_EQ(w1(Calc_W1_Ten_30, 1, 2), -45);
    EXPECT_EQ(w1(Calc_W1_Ten_40, 0, 3), -120);
    EXPECT_EQ(w1(Calc_W1_Ten_40, 2, 1), -10);
    Expect_Error(Run_Time_Error::Kind::Overflow, [&] { return w1(Calc_W1_Ten_40, 0, 820); });
    const auto w2 = [](int years, int saisei) {
        return Calc_W2_Ten_Saisei(Head_Count(years), saisei).Count();
    };
    EXPECT_EQ(w2(35, 1), 0);
    EXPECT_EQ(w2(5, 1), -60);
    EXPECT_EQ(w2(6, 1), -58);
    EXPECT_EQ(w2(6, 0), 2);
    EXPECT_EQ(w2(35, 2), 60);
}

W5_Score W5(std::int32_t kansa, std::int32_t kanko, std::int32_t ikkyu, std::int32_t nikyu) {
    return Calc_W5_Ten(kansa, Thousand_Yen(kanko), Head_Count(ikkyu), Head_Count(nikyu));
}

// All limits are multiples of one second-grade accountant (0.4), so the points can be found in whole tenths.
TEST(Scores, W5_Accountants_At_Every_Limit) {
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
    for (const auto& band : bands) {
        for (const std::int32_t kanko : band.kanko) {
            for (int ikkyu = 0; ikkyu <= 14; ++ikkyu) {
                for (int nikyu = 0; nikyu <= 36; ++nikyu) {
                    int expected = 0;
                    for (int i = 0; i < 5 && expected == 0; ++i) {
                        expected = 10 * ikkyu + 4 * nikyu >= 4 * band.needed[i] ? 10 - 2 * i : 0;
                    }
                    EXPECT_EQ(W5(0, kanko, ikkyu, nikyu).total.Count(), expected)
                        << kanko << " " << ikkyu << " " << nikyu;
                }
            }
        }
    }
}

TEST(Scores, W5_Adds_The_Audit) {
    const int points[] = {0, 2, 10, 20, 0};
    for (std::int32_t kansa = 0; kansa < 5; ++kansa) {
        const W5_Score score = W5(kansa, 15'000'000, 1, 9);
        EXPECT_EQ(score.total.Count(), points[kansa] + 4);
        EXPECT_EQ(score.kansa.Count(), points[kansa]);
        EXPECT_EQ(score.kaikei.Count(), 4);
        EXPECT_EQ(score.kaikei_su, 4.6F);
    }
}

TEST(Scores, W6_Bands) {
    const auto w6 = [](std::int32_t kansa, std::int32_t hiyo_1, std::int32_t hiyo_2) {
        return Calc_W6_Ten(kansa, Thousand_Yen(hiyo_1), Thousand_Yen(hiyo_2)).Count();
    };
    std::vector<std::int32_t> starts{50'000}; // the start of the band of 1 point, 2 points, ...
    for (std::int32_t start = 100'000; start <= 2'000'000; start += 100'000) {
        starts.push_back(start);
    }
    starts.insert(starts.end(), {3'000'000, 5'000'000, 7'500'000, 10'000'000});
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const int ten = static_cast<int>(i) + 1;
        EXPECT_EQ(w6(3, starts[i], starts[i]), ten) << starts[i];
        EXPECT_EQ(w6(3, 0, 2 * starts[i] + 1), ten) << starts[i];
        EXPECT_EQ(w6(3, 2 * starts[i] - 1, 0), ten - 1) << starts[i];
    }
    EXPECT_EQ(w6(3, -100'000, -200'001), 0);
    EXPECT_EQ(w6(2, int32_max, int32_max), 0);
    Expect_Error(Run_Time_Error::Kind::Overflow, [&] { return w6(3, int32_max, 1); });
}

TEST(Scores, W8_And_WLB) {
    const int w8[2][2][3] = {{{0, 5, 0}, {5, 10, 0}}, {{3, 5, 0}, {8, 10, 0}}};
    for (int iso0 = 0; iso0 < 2; ++iso0) {
        for (int iso1 = 0; iso1 < 2; ++iso1) {
            for (int iso2 = 0; iso2 < 3; ++iso2) {
                EXPECT_EQ(Calc_W8_Ten(iso0, iso1, iso2).Count(), w8[iso0][iso1][iso2])
                    << iso0 << iso1 << iso2;
            }
        }
    }
    const int wlb[][4] = {
        {0, 0, 0, 0}, {1, 0, 0, 5}, {2, 0, 0, 4}, {3, 0, 0, 3}, {4, 0, 0, 2},  {5, 0, 0, 0},
        {0, 1, 0, 5}, {0, 2, 0, 3}, {0, 3, 0, 3}, {0, 4, 0, 0}, {0, 0, 1, 4},  {0, 0, 2, 0},
        {4, 2, 0, 3}, {4, 3, 1, 4}, {1, 1, 1, 5}, {2, 1, 1, 5}, {-1, 9, 1, 4},
    };
    for (const auto& c : wlb) {
        EXPECT_EQ(Calc_WLB_Ten(c[0], c[1], c[2]).Count(), c[3]) << c[0] << c[1] << c[2];
    }
}

int W10(int cpd, int gijutusya, int level_up, int ginosya, int kojyo) {
    return Calc_W10_Ten({Head_Count(cpd), Head_Count(gijutusya), Head_Count(level_up), Head_Count(ginosya),
                         Head_Count(kojyo)})
        .Count();
}

// Limits lie on decimals that single precision cannot hold: a rate formed exactly on one must still reach it.
TEST(Scores, W10_Each_Part_At_Its_Limits) {
    for (int point = 1; point <= 10; ++point) {
        for (const int scale : {200, 1'000, 3'000}) {
            const int reached = 15 * point * scale / 1'000;
            EXPECT_EQ(W10(0, 0, 1, scale + reached, reached), point) << scale;
            EXPECT_EQ(W10(0, 0, 1, scale + reached - 1, reached - 1), point - 1) << scale;
        }
        for (const int engineers : {1, 7, 100}) {
            EXPECT_EQ(W10(3 * point * engineers, engineers, 0, 0, 0), point) << engineers;
            EXPECT_EQ(W10(3 * point * engineers - 1, engineers, 0, 0, 0), point - 1) << engineers;
        }
    }
}

TEST(Scores, W10_Full_Points_Stay_Ten_Whatever_The_Weights) {
    for (int engineers = 1; engineers <= 100; ++engineers) {
        for (int skilled = 1; skilled <= 100; ++skilled) { // 1 and 22 among them
            EXPECT_EQ(W10(30 * engineers, engineers, 1, 2 * skilled, skilled), 10)
                << engineers << " " << skilled;
        }
    }
}

TEST(Scores, W10_Cases) {
    const struct {
        const char* name;
        int cpd, gijutusya, level_up, ginosya, kojyo, ten;
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
    for (const auto& c : cases) {
        EXPECT_EQ(W10(c.cpd, c.gijutusya, c.level_up, c.ginosya, c.kojyo), c.ten) << c.name;
    }
    Expect_Error(Run_Time_Error::Kind::Division_By_Zero, [] { return W10(1, 5, 0, -5, 0); });
    Expect_Error(Run_Time_Error::Kind::Division_By_Zero, [] { return W10(0, 5, 1, -5, 0); });
}

Sub_Scores Sub(const std::array<std::int16_t, 8>& numbers) {
    Sub_Scores scores;
    std::transform(numbers.begin(), numbers.end(), scores.begin(),
                   [](std::int16_t number) { return Points(number); });
    return scores;
}

TEST(Scores, W_2008) {
    EXPECT_EQ(Calc_W_2008(Sub({1, 2, 4, 8, 16, 32, 64, 128})).Count(), 630) << "six of them";
    EXPECT_EQ(Calc_W_2008(Sub({-1})).Count(), 0);
    EXPECT_EQ(Calc_W_2008(Sub({3'276})).Count(), 32'760);
    // The sum itself is of 16 bits: it fails although later sub-scores would bring it back.
    for (const Sub_Scores& beyond : {Sub({3'277}), Sub({-3'277}), Sub({int16_max, 1, -int16_max})}) {
        Expect_Error(Run_Time_Error::Kind::Overflow, [&] { return Calc_W_2008(beyond); });
    }
}

TEST(Scores, W_2011_Cuts_Toward_Zero_By_The_Share_Of_The_Date) {
    const struct {
        std::optional<Review_Date> date;
        double share;
    } dates[] = {{{}, 9.5},
                 {{{2012, 3, 31}}, 9.5},
                 {{{2023, 7, 31}}, 9.5},
                 {{{2023, 8, 13}}, 9.5},
                 {{{2023, 8, 14}}, 8.75},
                 {{{2023, 9, 1}}, 8.75},
                 {{{2024, 1, 1}}, 8.75}};
    for (const auto& d : dates) {
        for (int sum = -3'276; sum <= 3'276; ++sum) {
            EXPECT_EQ(Calc_W_2011(Sub({static_cast<std::int16_t>(sum)}), d.date).Count(),
                      std::trunc(d.share * sum));
        }
    }
    EXPECT_EQ(Calc_W_2011(Sub({1, 2, 4, 8, 16, 32, 64, 128}), {}).Count(), 2'422);
    Expect_Error(Run_Time_Error::Kind::Overflow, [] {
        return Calc_W_2011(Sub({3'276, 0, 0, 0, 0, 0, 0, 1}), {});
    });
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
        const double rate = Young_Rate(Head_Count(c.young), Head_Count(c.all));
        EXPECT_EQ(rate, c.rate) << c.young << "/" << c.all;
        EXPECT_EQ(Young_Keizoku_Ten(rate).Count(), c.keizoku);
        EXPECT_EQ(Young_Sinki_Ten(rate).Count(), c.sinki);
    }
    Expect_Error(Run_Time_Error::Kind::Division_By_Zero,
                 [] { return Young_Rate(Head_Count(1), Head_Count(0)); });
}

Averages Average(std::int32_t years, std::int32_t a, std::int32_t b, std::int32_t c) {
    return Averages_Of(years, Thousand_Yen(a), Thousand_Yen(b), Thousand_Yen(c));
}

TEST(Scores, Averages_Round_Halves_Up_And_Three_Years_Use_The_Rounded_Pair) {
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
        for (const int years : {0, 2, 3}) { // any other number than 2 takes three
            SCOPED_TRACE(testing::Message() << c.a << " " << c.b << " " << c.c << ", years " << years);
            const Averages averages = Average(years, c.a, c.b, c.c);
            EXPECT_EQ(averages.two_year.Count(), c.two);
            EXPECT_EQ(averages.three_year.Count(), c.three);
            EXPECT_EQ(averages.adopted.Count(), years == 2 ? c.two : c.three);
            EXPECT_EQ(averages.previous.Count(), years == 2 ? c.b : c.pair);
        }
    }
    const std::int32_t beyond[][3] = {{0, int32_max, 1}, {2, 0, int32_max}, {int32_max, 0, -9}};
    for (const auto& n : beyond) {
        Expect_Error(Run_Time_Error::Kind::Overflow, [&n] { return Average(3, n[0], n[1], n[2]); });
    }
}

TEST(Scores, Z) {
    const auto z = [](int z1, int z2) {
        return Calc_Z_Ten(Points(static_cast<std::int16_t>(z1)), Points(static_cast<std::int16_t>(z2)))
            .Count();
    };
    const int cases[][3] = {
        {510, 520, 512}, {1'000, 999, 999}, {999, 1'000, 999}, {2'335, 2'865, 2'441},
        {449, 449, 450}, {0, 0, 450},       {0, 2'865, 573},   {0, 521, 450},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(z(c[0], c[1]), c[2]) << c[0] << " " << c[1];
    }
    for (int ten = 450; ten < 2'900; ++ten) { // weights that add up to one lose no whole score
        EXPECT_EQ(z(ten, ten), ten);
    }
}

TEST(Scores, P) {
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
        EXPECT_EQ(Calc_P_Ten(Points(c.x1), Points(c.x2), Points(c.y), Points(c.z), Points(c.w)).Count(), c.p)
            << c.x1 << " " << c.x2 << " " << c.w;
    }
}

} // namespace
} // namespace morvane
