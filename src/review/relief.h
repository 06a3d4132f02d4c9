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

/// P of a work type under the four ways (columns a, b, c, d) and which of them are best; equal ones all are.
struct Gekihen_Line {
    std::array<std::int16_t, 4> P{};
    std::array<bool, 4> best{};
};

using Gekihen_Table = std::array<Gekihen_Line, scored_lines>;

/// Compares the four ways on figures in hand; nothing is stored. Raises Run_Time_Error on overflow.
Gekihen_Table Calc_Gekihen(const Review_Figures& figures);

/// The same for the current figures of the period in hand. Raises Store_Error, Run_Time_Error.
Gekihen_Table Calc_Gekihen(const Session& session);

} // namespace morvane
