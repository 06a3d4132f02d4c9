// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/page_layout.h"

#include <string>
#include <vector>

namespace morvane {

/// A series of a chart: a share of the whole, 0 to 1, on each axis. Shares outside are drawn at the edge.
struct Chart_Series {
    std::string name;
    std::vector<float> shares;
};

/// Rings of a chart with their labels, at shares of the whole.
struct Chart_Ring {
    float share;
    std::string label;
};

/// A chart of axes around a middle, the first one upwards, the others clockwise, with a closed line for each
/// series. Two series differ by line and marker, so that they are told apart in black and white.
struct Radar_Chart {
    std::vector<std::string> axes;
    std::vector<Chart_Ring> rings;
    std::vector<Chart_Series> series; ///< at most two
};

/// Draws a chart into an area: axes, rings, lines, captions, and below it what the lines stand for.
void Draw_Radar(Page_Layout& page, const Area& area, const Radar_Chart& chart);

} // namespace morvane
