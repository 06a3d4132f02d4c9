// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/page_layout.h"

#include <string>
#include <vector>

namespace morvane {

/// A series of a chart: a share of the whole, 0 to 1, on each axis. Shares outside are drawn at the edge.
struct Chart_Series {
    std::string name;                     ///< in the legend
    std::vector<float> shares;            ///< none: the series stands in the legend alone
    std::vector<std::string> values = {}; ///< what stands beside the axes of it
};

/// Rings of a chart with their labels, at shares of the whole.
struct Chart_Ring {
    float share;
    std::string label;
};

/// A chart of axes around a middle, the first one upwards, the others clockwise, with a closed line for each
/// series: a full one with dots for the last, a dashed one with hollow squares for the one that it is
/// compared with, so that they are told apart in black and white.
struct Radar_Chart {
    std::vector<std::string> axes;
    std::vector<Chart_Ring> rings;
    std::vector<Chart_Series> series; ///< at most two; the legend stands where there are two
};

/// A width and a height, mm.
struct Room {
    float width, height;
};

/// The smallest area in which no text of the chart lies on another one or on its lines.
Room Least_Room(const Radar_Chart& chart);

/// Draws a chart into an area: rings, axes, lines, captions with the values under them, and below it what the
/// lines stand for. In an area smaller than its least room the texts may meet.
void Draw_Radar(Page_Layout& page, const Area& area, const Radar_Chart& chart);

} // namespace morvane
