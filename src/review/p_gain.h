// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/review_figures.h"

#include <array>
#include <cstdint>
#include <optional>

namespace morvane {

/// P of a work type before and after a change (点); empty where it has none.
struct P_Change {
    std::optional<std::int32_t> before;
    std::optional<std::int32_t> after;

    /// By how much it rises, negative where it falls; empty unless it has P before and after.
    [[nodiscard]] std::optional<std::int32_t> Difference() const;
};

using P_Changes = std::array<P_Change, scored_lines>;

/// What a change brings to the work types together. Only those with P before and after have a difference;
/// those that have it on one side alone are counted.
struct P_Gain {
    P_Changes lines{};
    std::int32_t sum = 0; ///< of all differences
    int risen = 0;
    int fallen = 0;
    int added = 0;                                ///< P only after
    int dropped = 0;                              ///< P only before
    std::optional<std::size_t> most_changed = {}; ///< the first line of the largest difference, up or down
};

[[nodiscard]] P_Gain P_Gain_Of(const P_Changes& lines);

/// The same of two sides by their P, which stands where it was stored or formed since.
[[nodiscard]] P_Gain P_Gain_Of(const Review_Figures& before, const Review_Figures& after);

} // namespace morvane
