// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/review_figures.h"
#include "session/session.h"

#include <array>
#include <cstdint>

namespace morvane {

/// The four ways of averaging that the transitional relief (激変緩和措置) leaves to the firm: completed work
/// over two or three years, equity of the base period or of two periods.
struct Gekihen_Column {
    const char* kanko;  ///< caption of the completed work
    const char* jiko;   ///< caption of the equity
    std::int32_t years; ///< 2 or 3
    std::int32_t basis; ///< 1 or 2
};

inline constexpr std::array<Gekihen_Column, 4> gekihen_columns = {{
    {"2年平均", "基準決算", 2, 1},
    {"2年平均", "2期平均", 2, 2},
    {"3年平均", "基準決算", 3, 1},
    {"3年平均", "2期平均", 3, 2},
}};

/// The scores of a work type by the years of the average (0: two, 1: three), and P under the four ways
/// (columns a, b, c, d) with those that are best; equal ones all are.
struct Gekihen_Line {
    std::array<Points, 2> X1, Z2, Z;
    std::array<Points, 4> P;
    std::array<bool, 4> best{};
    bool entered = false; ///< the firm has a P of this work type
};

struct Gekihen_Table {
    Points Y;
    std::array<Points, 2> X2; ///< by the basis of the equity
    std::array<Points, 2> W;  ///< by the years of the average
    std::array<Gekihen_Line, scored_lines> lines;
    std::size_t chosen = 0; ///< the column that the firm has chosen

    [[nodiscard]] const Gekihen_Line& operator[](std::size_t line) const { return lines[line]; }

    /// What a column brings to all work types that the firm has a P of, parts of another one left out: the
    /// sum of P, and of how many it is a best one.
    struct Sum {
        std::int32_t P = 0;
        std::int32_t best = 0;
    };
    [[nodiscard]] Sum Of_All(std::size_t column) const;
};

/// Compares the four ways on figures in hand; nothing is stored. Raises Run_Time_Error on overflow.
Gekihen_Table Calc_Gekihen(const Review_Figures& figures);

/// The same for the current figures of the period in hand. Raises Store_Error, Run_Time_Error.
Gekihen_Table Calc_Gekihen(const Session& session);

} // namespace morvane
