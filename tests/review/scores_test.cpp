// SPDX-FileCopyrightText: The Morvane developers
#include "review/scores.h"

#include "law/run_time_error.h"
#include "review/works.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <utility>
#include <vector>

// The scores of whole firms are held against the calculation of tests/reference. Here stands what firms at
// random seldom meet: limits, figures that no choice has, and what leaves its width.

namespace morvane {
namespace {

TEST(Scores, W5_Accountants_At_Every_Limit) {
    const std::pair<std::array<std::int32_t, 2>, std::vector<int>> bands[] = {
        // from, to: second-grade accountants (0.4 each) for 10 points, 8, 6, 4, 2
        {{0, 99'999}, {1}},
        {{100'000, 999'999}, {3, 2, 1}},
        {{1'000'000, 3'999'999}, {6, 4, 3, 2, 1}},
        {{4'000'000, 14'999'999}, {11, 8, 6, 3, 2}},
        {{15'000'000, 59'999'999}, {22, 17, 12, 7, 4}},
        {{60'000'000, -1}, {34, 27, 18, 13, 7}}};
    for (const auto& [ends, needed] : bands) {
        for (const std::int32_t kanko : ends) {
            for (int nikyu = 0; nikyu <= 36; ++nikyu) {
                const auto reached =
                    std::find_if(needed.begin(), needed.end(), [&](int n) { return nikyu >= n; });
                const auto expected = reached == needed.end() ? 0 : 10 - 2 * (reached - needed.begin());
                const W5_Score w5 =
                    Calc_W5_Ten(0, Thousand_Yen(kanko), Head_Count(nikyu / 5 * 2), Head_Count(nikyu % 5));
                EXPECT_EQ(w5.total.Count(), expected) << kanko << " " << nikyu;
            }
        }
    }
}

int W10(int cpd, int gijutusya, int level_up, int ginosya, int kojyo) {
    return Calc_W10_Ten({Head_Count(cpd), Head_Count(gijutusya), Head_Count(level_up), Head_Count(ginosya),
                         Head_Count(kojyo)})
        .Count();
}

Averages Average(std::int32_t years, std::int32_t a, std::int32_t b, std::int32_t c) {
    return Averages_Of(years, Thousand_Yen(a), Thousand_Yen(b), Thousand_Yen(c));
}

TEST(Scores, Figures_That_Are_No_Choice) {
    const std::tuple<const char*, std::int32_t, int> cases[] = {
        {"W2 of a negative count", Calc_W2_Ten(Head_Count(-1)).Count(), 60},
        {"W3", Calc_W3_Ten(2).Count(), 0},
        {"W3 below", Calc_W3_Ten(-1).Count(), 0},
        {"W4", Calc_W4_Ten(3).Count(), 0},
        {"W5, audit", Calc_W5_Ten(4, Thousand_Yen(0), Head_Count(0), Head_Count(0)).total.Count(), 0},
        {"W7", Calc_W7_Ten(Head_Count(-1)).Count(), 0},
        {"W8", Calc_W8_Ten(1, 1, 2).Count(), 0},
        {"certificates", Calc_WLB_Ten(-1, 9, 2).Count(), 0},
        {"site history", Calc_Rireki_Ten(-1).Count(), 0},
        {"W10, more left out than there are", W10(0, 0, 1, 10, 11), 0},
        {"W10, weight above one", W10(30'030, 1'001, 0, -1, 0), 0},
        {"W10, negative weight", W10(-30, -1, 0, 5, 0), 0},
        {"W10, nothing counts", W10(0, 5, 0, -5, 0), 0},
        {"W10, units just above 30", W10(3'001, 100, 0, 0, 0), 0},
        {"average of a loss", Average(3, -3, 0, 0).three_year.Count(), -1},
        {"two years of a loss", Average(3, 0, -1, -2).two_year.Count(), -1},
        {"any other number of years takes three", Average(0, 0, 0, 4).adopted.Count(), 1},
        {"the period before counts alone", Average(2, 9, 3, 4).previous.Count(), 3},
        {"W without a date", Calc_W_2011({Points(8)}, {}).Count(), 76},
    };
    for (const auto& [name, score, expected] : cases) {
        EXPECT_EQ(score, expected) << name;
    }
}

TEST(Scores, What_Leaves_Its_Width_Is_Told) {
    using enum Run_Time_Error::Kind;
    const auto adopted = [](std::int32_t a, std::int32_t b, std::int32_t c) {
        return Average(3, a, b, c).adopted.Count();
    };
    const auto w_2008 = [](std::int16_t a, std::int16_t b, std::int16_t c) {
        return Calc_W_2008({Points(a), Points(b), Points(c)}).Count();
    };
    const std::tuple<const char*, Run_Time_Error::Kind, std::function<std::int32_t()>> cases[] = {
        {"Z1", Overflow, [] { return Calc_Z1_Ten({Head_Count(INT32_MAX)}).points.Count(); }},
        {"W1", Overflow, [] { return Calc_W1_Ten_40(Head_Count(0), Head_Count(820)).Count(); }},
        {"W6", Overflow, [] { return Calc_W6_Ten(3, Thousand_Yen(INT32_MAX), Thousand_Yen(1)).Count(); }},
        {"W10, units", Division_By_Zero, [] { return W10(1, 5, 0, -5, 0); }},
        {"W10, levels", Division_By_Zero, [] { return W10(0, 5, 1, -5, 0); }},
        {"young engineers", Division_By_Zero,
         [] { return static_cast<std::int32_t>(Young_Rate(Head_Count(1), Head_Count(0))); }},
        {"ten times W", Overflow, [&] { return w_2008(3'277, 0, 0); }},
        {"a sum that would come back", Overflow, [&] { return w_2008(32'767, 1, -32'767); }},
        {"W of eight", Overflow,
         [] {
             return Calc_W_2011({Points(3'276), {}, {}, {}, {}, {}, {}, Points(1)}, {}).Count();
         }},
        {"average of two", Overflow, [&] { return adopted(0, INT32_MAX, 1); }},
        {"twice the average of two", Overflow, [&] { return adopted(2, 0, INT32_MAX); }},
        {"average of the periods before", Overflow, [&] { return adopted(INT32_MAX, 0, -9); }},
    };
    for (const auto& [name, kind, score] : cases) {
        try {
            score();
            ADD_FAILURE() << name << ": no error";
        } catch (const Run_Time_Error& error) {
            EXPECT_EQ(error.kind, kind) << name;
        }
    }
}

} // namespace
} // namespace morvane
