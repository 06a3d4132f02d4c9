// SPDX-FileCopyrightText: The Morvane developers
#include "report/radar_chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace morvane {

namespace {

constexpr Type caption_type = {font_p_gothic, 8.0F, Align::Center, 0.0F};
constexpr Type value_type = {font_p_gothic, 9.0F, Align::Left, 0.0F};
constexpr Type ring_type = {font_p_gothic, 6.5F, Align::Center, 0.0F};
constexpr Type legend_type = {font_p_gothic, 8.0F, Align::Left, 0.0F};

// Millimetres.
constexpr float line_height = 4.0F;
constexpr float block_height = 2 * line_height; ///< a caption and the values under it
constexpr float gap = 2.5F;                     ///< between the outer ring and what stands around it
constexpr float least_radius = 22.0F;           ///< captions around a smaller ring would meet
constexpr float marker = 0.95F;                 ///< half of its width
constexpr float behind_marker = 0.8F;
constexpr float between_values = 3.0F;
constexpr float sample = 14.0F; ///< the line of a series in the legend
constexpr float legend_height = 8.0F;
constexpr float between_entries = 10.0F;
constexpr float ring_label_height = 2.4F;
constexpr float enough_clearance = 1.5F; ///< of a label of a ring from the lines
constexpr float room_of_rounding = 0.01F;

// 0xBBGGRR
constexpr std::uint32_t white = 0xFFFFFF;
constexpr std::uint32_t pale_fill = 0xF8EDE3;
constexpr std::uint32_t ring_grey = 0xC8BEB4;
constexpr std::uint32_t edge_grey = 0x9A8E82;

/// How a series looks.
struct Look {
    std::int16_t width; ///< dots
    int style;
    bool hollow_square;
    std::uint32_t color;
};
constexpr Look in_hand = {4, 0, false, 0xA85F1F};
constexpr Look compared = {4, 1, true, 0x6B5A4A};

float Width(const std::string& text, const Type& type) {
    return static_cast<float>(
        Print_Target::Text_Width(text, Report_Face::Gothic, static_cast<double>(type.size)));
}

/// What stands at the end of an axis.
struct Block {
    std::string caption;
    std::vector<std::string> values; ///< by series; empty ones are left out
    float values_width = 0;

    [[nodiscard]] float Width() const {
        return std::max(morvane::Width(caption, caption_type), values_width);
    }
};

std::vector<Block> Blocks_Of(const Radar_Chart& chart) {
    std::vector<Block> blocks;
    for (std::size_t axis = 0; axis < chart.axes.size(); ++axis) {
        Block block = {chart.axes[axis], {}};
        for (const Chart_Series& series : chart.series) {
            block.values.push_back(axis < series.values.size() ? series.values[axis] : std::string());
            if (!block.values.back().empty()) {
                const float before = block.values_width > 0 ? between_values : 0.0F;
                const float mark = chart.series.size() > 1 ? 2 * marker + behind_marker : 0.0F;
                block.values_width += before + mark + Width(block.values.back(), value_type);
            }
        }
        blocks.push_back(std::move(block));
    }
    return blocks;
}

/// The direction of an axis, the first one upwards: right and up are positive.
struct Direction {
    float right, up;
};

Direction Direction_Of(float axis, std::size_t axes) {
    // An upright or level axis is so to the last digit, and drawn sharp.
    const auto whole = [](float part) { return std::abs(part) < 1e-6F ? 0.0F : part; };
    const float angle = 2 * std::numbers::pi_v<float> * axis / static_cast<float>(axes);
    return {whole(std::sin(angle)), whole(std::cos(angle))};
}

/// At the upper and the lower end a block stands in the middle over its axis, else beside the end.
bool Is_Beside(Direction direction) {
    return std::abs(direction.right) > 0.3F;
}

float Legend_Height(const Radar_Chart& chart) {
    return chart.series.size() > 1 ? legend_height : 0.0F;
}

class Radar {
  public:
    Radar(Page_Layout& layout, const Area& chart_area, const Radar_Chart& of)
        : page(layout), area(chart_area), chart(of),
          blocks(Blocks_Of(of)), middle{(area.left + area.right) / 2,
                                        (area.top + area.bottom - Legend_Height(of)) / 2},
          radius(Radius()) {}

    void Draw() {
        Draw_Rings();
        Draw_Ring_Labels();
        for (std::size_t i = 0; i < chart.series.size(); ++i) {
            Draw_Series(chart.series[i], Look_Of(i));
        }
        for (std::size_t axis = 0; axis < blocks.size(); ++axis) {
            Draw_Block(axis);
        }
        if (chart.series.size() > 1) {
            Draw_Legend();
        }
    }

  private:
    [[nodiscard]] const Look& Look_Of(std::size_t series) const {
        return series + 1 == chart.series.size() ? in_hand : compared;
    }

    /// The largest radius at which every block is inside.
    [[nodiscard]] float Radius() const {
        float largest = (area.Height() - Legend_Height(chart)) / 2 - gap - block_height;
        for (std::size_t axis = 0; axis < blocks.size(); ++axis) {
            const Direction way = Direction_Of(static_cast<float>(axis), blocks.size());
            if (Is_Beside(way)) {
                const float room = area.Width() / 2 - blocks[axis].Width() - room_of_rounding;
                largest = std::min(largest, room / std::abs(way.right) - gap);
            }
        }
        return std::max(largest, 1.0F);
    }

    /// A point by its axis, which may lie between two, and its share of the radius.
    [[nodiscard]] Point At(float axis, float share, float beyond = 0.0F) const {
        const Direction way = Direction_Of(axis, chart.axes.size());
        const float distance = radius * share + beyond;
        return {middle.x + distance * way.right, middle.y - distance * way.up};
    }

    [[nodiscard]] std::vector<Point> Around(const std::vector<float>& shares) const {
        std::vector<Point> points;
        for (std::size_t axis = 0; axis < chart.axes.size(); ++axis) {
            points.push_back(At(static_cast<float>(axis), std::clamp(shares.at(axis), 0.0F, 1.0F)));
        }
        points.push_back(points.front());
        return points;
    }

    void Draw_Rings() {
        if (chart.series.size() == 1 && !chart.series[0].shares.empty()) {
            page.Fill(Around(chart.series[0].shares), pale_fill);
        }
        for (const Chart_Ring& ring : chart.rings) {
            page.Polyline(Around(std::vector(chart.axes.size(), ring.share)), 1, 0,
                          ring.share < 1.0F ? ring_grey : edge_grey);
        }
        for (std::size_t axis = 0; axis < chart.axes.size(); ++axis) {
            const std::array<Point, 2> line = {middle, At(static_cast<float>(axis), 1.0F)};
            page.Polyline(line, 1, 0, ring_grey);
        }
    }

    /// How far the lines of the series, between two neighbouring axes, stay away from a box.
    [[nodiscard]] float Clearance(std::size_t axis, const Area& box) const {
        constexpr int steps = 24;
        float least = enough_clearance;
        for (const Chart_Series& series : chart.series) {
            if (series.shares.empty()) {
                continue;
            }
            const auto points = Around(series.shares);
            for (int step = 0; step <= steps; ++step) {
                const float way = static_cast<float>(step) / steps;
                const float x = std::lerp(points[axis].x, points[axis + 1].x, way);
                const float y = std::lerp(points[axis].y, points[axis + 1].y, way);
                least = std::min(least, std::hypot(std::max({box.left - x, x - box.right, 0.0F}),
                                                   std::max({box.top - y, y - box.bottom, 0.0F})));
            }
        }
        return least;
    }

    /// A label between two neighbouring axes on one side of its ring, which is straight there.
    [[nodiscard]] Area Ring_Place(std::size_t axis, const Chart_Ring& ring, bool inside) const {
        const float flat = Direction_Of(0.5F, chart.axes.size()).up;
        const float half_width = Width(ring.label, ring_type) / 2 + room_of_rounding;
        const float beyond = ring_label_height / 2 + 0.2F;
        const Point at = At(static_cast<float>(axis) + 0.5F, ring.share * flat, inside ? -beyond : beyond);
        return {at.x - half_width, at.y - ring_label_height / 2, at.x + half_width,
                at.y + ring_label_height / 2};
    }

    /// The labels stand over each other, all inside or all outside of their rings, between those two axes
    /// where the lines leave them the most room.
    void Draw_Ring_Labels() {
        std::pair<std::size_t, bool> best = {0, true};
        float most = -1.0F;
        for (std::size_t axis = 0; axis < chart.axes.size(); ++axis) {
            const Direction way = Direction_Of(static_cast<float>(axis) + 0.5F, chart.axes.size());
            if (std::abs(way.up) < std::abs(way.right)) {
                continue; // beside each other they would meet
            }
            for (const bool inside : {true, false}) {
                float room = enough_clearance;
                for (const Chart_Ring& ring : chart.rings) {
                    room = std::min(room, Clearance(axis, Ring_Place(axis, ring, inside)));
                }
                if (room > most) {
                    most = room;
                    best = {axis, inside};
                }
            }
        }
        for (const Chart_Ring& ring : chart.rings) {
            page.Text(Ring_Place(best.first, ring, best.second), ring.label, ring_type);
        }
    }

    void Draw_Series(const Chart_Series& series, const Look& look) {
        if (series.shares.empty()) {
            return;
        }
        const auto points = Around(series.shares);
        page.Polyline(points, look.width, look.style, look.color);
        for (std::size_t i = 0; i + 1 < points.size(); ++i) {
            Draw_Marker(points[i], look);
        }
    }

    void Draw_Marker(Point at, const Look& look) {
        if (look.hollow_square) {
            page.Fill(Area{at.x - marker, at.y - marker, at.x + marker, at.y + marker}, look.color);
            constexpr float inner = marker * 0.6F;
            page.Fill(Area{at.x - inner, at.y - inner, at.x + inner, at.y + inner}, white);
            return;
        }
        constexpr int corners = 24;
        std::array<Point, corners> dot{};
        for (int i = 0; i < corners; ++i) {
            const float angle = 2 * std::numbers::pi_v<float> * static_cast<float>(i) / corners;
            dot[static_cast<std::size_t>(i)] = {at.x + marker * std::cos(angle),
                                                at.y + marker * std::sin(angle)};
        }
        page.Fill(dot, look.color);
    }

    /// Beside the end of an axis, the further over or under it the more the axis points there.
    void Draw_Block(std::size_t axis) {
        const Block& block = blocks[axis];
        const Direction way = Direction_Of(static_cast<float>(axis), blocks.size());
        const Point end = At(static_cast<float>(axis), 1.0F, gap);
        const float width = block.Width() + room_of_rounding;
        const float side = Is_Beside(way) ? (way.right > 0 ? 1.0F : -1.0F) : 0.0F;
        const float left = end.x + (side - 1) * width / 2;
        const float top = end.y - way.up * block_height / 2 - block_height / 2;
        Type caption = caption_type;
        caption.align = side > 0 ? Align::Left : side < 0 ? Align::Right : Align::Center;
        page.Text({left, top, left + width, top + line_height}, block.caption, caption);
        Draw_Values(block, left + (1 - side) * (width - block.values_width) / 2, top + line_height);
    }

    void Draw_Values(const Block& block, float left, float top) {
        for (std::size_t i = 0; i < block.values.size(); ++i) {
            if (block.values[i].empty()) {
                continue;
            }
            if (chart.series.size() > 1) {
                Draw_Marker({left + marker, top + line_height / 2}, Look_Of(i));
                left += 2 * marker + behind_marker;
            }
            const float width = Width(block.values[i], value_type);
            page.Text({left, top, left + width + room_of_rounding, top + line_height}, block.values[i],
                      value_type);
            left += width + between_values;
        }
    }

    void Draw_Legend() {
        float width = -between_entries;
        for (const Chart_Series& series : chart.series) {
            width += sample + Width(series.name, legend_type) + between_entries;
        }
        const float y = area.bottom - legend_height / 2;
        float x = middle.x - width / 2;
        for (std::size_t i = 0; i < chart.series.size(); ++i) {
            const Look& look = Look_Of(i);
            const std::array<Point, 2> line = {{{x, y}, {x + sample, y}}};
            page.Polyline(line, look.width, look.style, look.color);
            Draw_Marker({x + sample / 2, y}, look);
            const float name = Width(chart.series[i].name, legend_type);
            page.Text({x + sample, y - legend_height / 2, x + sample + name + room_of_rounding,
                       y + legend_height / 2},
                      chart.series[i].name, legend_type);
            x += sample + name + between_entries;
        }
    }

    Page_Layout& page;
    const Area area;
    const Radar_Chart& chart;
    const std::vector<Block> blocks;
    const Point middle;
    const float radius;
};

} // namespace

Room Least_Room(const Radar_Chart& chart) {
    const std::vector<Block> blocks = Blocks_Of(chart);
    constexpr float around = least_radius + gap;
    Room room = {0, 2 * (around + block_height) + Legend_Height(chart)};
    for (std::size_t axis = 0; axis < blocks.size(); ++axis) {
        const Direction way = Direction_Of(static_cast<float>(axis), blocks.size());
        const float beside = Is_Beside(way) ? around * std::abs(way.right) : -blocks[axis].Width() / 2;
        room.width = std::max(room.width, 2 * (beside + blocks[axis].Width() + room_of_rounding));
    }
    return room;
}

void Draw_Radar(Page_Layout& page, const Area& area, const Radar_Chart& chart) {
    Radar(page, area, chart).Draw();
}

} // namespace morvane
