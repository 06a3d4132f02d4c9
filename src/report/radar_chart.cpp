// SPDX-FileCopyrightText: The Morvane developers
#include "report/radar_chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace morvane {

namespace {

constexpr Type label_type = {font_p_gothic, 8.0F, Align::Center, 0.0F};
constexpr Type ring_type = {font_p_mincho, 7.0F, Align::Left, 0.6F};
constexpr Type legend_type = {font_p_gothic, 8.0F, Align::Left, 0.0F};
constexpr float label_width = 42.0F;
constexpr float label_height = 5.0F;
constexpr float legend_height = 8.0F;
constexpr float marker = 1.1F; ///< half of its width
constexpr std::uint32_t pale_fill = 0xF8EDE3;
constexpr std::uint32_t black = 0;
constexpr std::uint32_t white = 0xFFFFFF;

/// How the series look: a full line with filled dots, a dashed one with hollow squares.
struct Look {
    std::int16_t width;
    int style;
    bool square;
};
constexpr std::array<Look, 2> looks = {{{4, 0, false}, {2, 1, true}}};

class Radar {
  public:
    Radar(Page_Layout& layout, const Area& area, const Radar_Chart& of)
        : page(layout),
          chart(of), middle{(area.left + area.right) / 2, (area.top + area.bottom - legend_height) / 2},
          radius(std::min((area.Width() - 2 * label_width) / 2,
                          (area.Height() - legend_height - 2 * label_height) / 2)) {}

    void Draw(const Area& area) {
        Draw_Rings();
        Draw_Axes(area);
        for (std::size_t i = 0; i < chart.series.size(); ++i) {
            Draw_Series(chart.series[i], looks.at(i), i == 0 && chart.series.size() == 1);
        }
        Draw_Ring_Labels();
        Draw_Legend(area);
    }

  private:
    [[nodiscard]] Point At(std::size_t axis, float share) const {
        const float angle =
            2 * std::numbers::pi_v<float> * static_cast<float>(axis) / static_cast<float>(chart.axes.size());
        return {middle.x + radius * share * std::sin(angle), middle.y - radius * share * std::cos(angle)};
    }

    template <class Share>
    [[nodiscard]] std::vector<Point> Around(Share share) const {
        std::vector<Point> points;
        for (std::size_t axis = 0; axis < chart.axes.size(); ++axis) {
            points.push_back(At(axis, share(axis)));
        }
        points.push_back(points.front());
        return points;
    }

    void Draw_Rings() {
        for (const Chart_Ring& ring : chart.rings) {
            const auto points = Around([&](std::size_t) { return ring.share; });
            for (std::size_t i = 1; i < points.size(); ++i) {
                page.Draw(Rule::Pale, points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
            }
        }
    }

    void Draw_Axes(const Area& area) {
        for (std::size_t axis = 0; axis < chart.axes.size(); ++axis) {
            const Point end = At(axis, 1.0F);
            page.Draw(Rule::Pale, middle.x, middle.y, end.x, end.y);
            const Point place = At(axis, 1.0F + 0.75F * label_height / radius);
            const float side = (end.x - middle.x) / radius; // -1 left, 1 right
            const float x = std::clamp(place.x + side * label_width / 2, area.left + label_width / 2,
                                       area.right - label_width / 2);
            page.Text({x - label_width / 2, place.y - label_height / 2, x + label_width / 2,
                       place.y + label_height / 2},
                      chart.axes[axis], label_type);
        }
    }

    void Draw_Ring_Labels() {
        for (const Chart_Ring& ring : chart.rings) {
            const Point place = At(0, ring.share);
            page.Text({place.x, place.y, place.x + 14.0F, place.y + 3.2F}, ring.label, ring_type);
        }
    }

    void Draw_Series(const Chart_Series& series, const Look& look, bool filled) {
        const auto points =
            Around([&](std::size_t axis) { return std::clamp(series.shares.at(axis), 0.0F, 1.0F); });
        if (filled) {
            page.Fill(points, pale_fill);
        }
        page.Polyline(points, look.width, look.style);
        for (std::size_t i = 0; i + 1 < points.size(); ++i) {
            Draw_Marker(points[i], look);
        }
    }

    void Draw_Marker(Point at, const Look& look) {
        if (look.square) {
            page.Fill(Area{at.x - marker, at.y - marker, at.x + marker, at.y + marker}, black);
            constexpr float inner = marker * 0.6F;
            page.Fill(Area{at.x - inner, at.y - inner, at.x + inner, at.y + inner}, white);
            return;
        }
        constexpr int corners = 16;
        std::array<Point, corners> dot{};
        for (int i = 0; i < corners; ++i) {
            const float angle = 2 * std::numbers::pi_v<float> * static_cast<float>(i) / corners;
            dot[static_cast<std::size_t>(i)] = {at.x + marker * std::cos(angle),
                                                at.y + marker * std::sin(angle)};
        }
        page.Fill(dot, black);
    }

    void Draw_Legend(const Area& area) {
        constexpr float line = 14.0F;
        constexpr float gap = 3.0F;
        constexpr float entry = 70.0F;
        const float y = area.bottom - legend_height / 2;
        float x = middle.x - entry * static_cast<float>(chart.series.size()) / 2;
        for (std::size_t i = 0; i < chart.series.size(); ++i) {
            const std::array<Point, 2> sample = {{{x, y}, {x + line, y}}};
            page.Polyline(sample, looks.at(i).width, looks.at(i).style);
            Draw_Marker({x + line / 2, y}, looks.at(i));
            page.Text({x + line + gap, area.bottom - legend_height, x + entry - gap, area.bottom},
                      chart.series[i].name, legend_type);
            x += entry;
        }
    }

    Page_Layout& page;
    const Radar_Chart& chart;
    const Point middle;
    const float radius;
};

} // namespace

void Draw_Radar(Page_Layout& page, const Area& area, const Radar_Chart& chart) {
    Radar(page, area, chart).Draw(area);
}

} // namespace morvane
