// SPDX-FileCopyrightText: The Morvane developers
#include "review/p_gain.h"

#include <cstdlib>

namespace morvane {

std::optional<std::int32_t> P_Change::Difference() const {
    return before && after ? std::optional(*after - *before) : std::nullopt;
}

P_Gain P_Gain_Of(const P_Changes& lines) {
    P_Gain gain{.lines = lines};
    std::int32_t largest = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const P_Change& line = lines[i];
        gain.added += line.after && !line.before ? 1 : 0;
        gain.dropped += line.before && !line.after ? 1 : 0;
        const std::int32_t difference = line.Difference().value_or(0);
        gain.sum += difference;
        gain.risen += difference > 0 ? 1 : 0;
        gain.fallen += difference < 0 ? 1 : 0;
        if (std::abs(difference) > largest) {
            largest = std::abs(difference);
            gain.most_changed = i;
        }
    }
    return gain;
}

P_Gain P_Gain_Of(const Review_Figures& before, const Review_Figures& after) {
    const auto p_of = [](const Work_Line& line) {
        return line.P.up ? std::optional(line.P.value) : std::nullopt;
    };
    P_Changes lines;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lines[i] = {p_of(before.works[i]), p_of(after.works[i])};
    }
    return P_Gain_Of(lines);
}

} // namespace morvane
