// SPDX-FileCopyrightText: The Morvane developers
#include "report/y_chart.h"

#include "session/kyotu_mod.h"

#include <cmath>

namespace morvane {

float Plotted_Share(float rate) {
    return static_cast<float>(std::floor(static_cast<double>(rate) * 10) / 1000);
}

Radar_Chart Y_Chart(std::span<const Y_Chart_Side> sides) {
    Radar_Chart chart;
    for (const Y_Indicator& indicator : y_indicators) {
        chart.axes.push_back(std::string(indicator.name.name) + "(X" + std::to_string(chart.axes.size() + 1) +
                             ")");
    }
    chart.rings = {{0.25F, "25%"}, {0.5F, "50%"}, {0.75F, "75%"}, {1.0F, "100%"}};
    for (const Y_Chart_Side& side : sides) {
        Chart_Series series = {"：" + side.name, {}};
        for (std::size_t i = 0; side.y != nullptr && i < y_indicators.size(); ++i) {
            series.shares.push_back(Plotted_Share(side.y->rates[i]));
            series.values.push_back(Fixed_Str(side.y->rates[i], 1) + "%");
        }
        chart.series.push_back(std::move(series));
    }
    return chart;
}

} // namespace morvane
