// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/radar_chart.h"
#include "review/y_calc.h"

#include <span>

namespace morvane {

/// A side of the chart of the analysis: its name in the legend, and its result, null where it has none.
struct Y_Chart_Side {
    std::string name;
    const Y_Result* y;
};

/// The share of an axis at which an achievement rate is plotted: whole tenths of a percent, what is beyond
/// them is cut.
[[nodiscard]] float Plotted_Share(float rate);

/// The chart of the eight indicators (経営状況（Ｙ）分析チャート) of one side or two, for screen and paper
/// alike: an axis for each, with the achievement rate from 0 % in the middle to 100 % at the edge.
[[nodiscard]] Radar_Chart Y_Chart(std::span<const Y_Chart_Side> sides);

} // namespace morvane
