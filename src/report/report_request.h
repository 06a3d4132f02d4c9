// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/side.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace morvane {

/// How a figure stands beside the one it is compared with. Printed as ○, × and ◎.
enum class Mark : std::uint8_t { None, Better, Worse, Best };

/// A part of a statement by its accounts (建設科目CD), the first and the last one included.
struct Account_Range {
    int first = 0;
    int last = 0;
};

/// What a report is asked for.
struct Report_Request {
    std::vector<Side> sides;                 ///< whose figures, in the order of their columns; at least one
    std::optional<Account_Range> range = {}; ///< of a statement; empty: the whole
    int work_type = 0;                       ///< 工種CD, where a report shows one at a time
    std::vector<Mark> marks = {};            ///< by column of figures, as the asking screen shows them
};

/// Which sides a report lays beside each other.
enum class Report_Sides : std::uint8_t {
    One,          ///< the side in hand
    Improvement,  ///< the period before and after improvement
    Prior,        ///< the period before and the period in hand
    All_Scenarios ///< current, improved and the three saved ones
};

/// The sides of a report on the one in hand.
std::vector<Side> Sides_Of(Report_Sides sides, const Side& in_hand);

} // namespace morvane
