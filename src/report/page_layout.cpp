// SPDX-FileCopyrightText: The Morvane developers
#include "report/page_layout.h"

#include "report/line_break.h"

#include <algorithm>
#include <array>

namespace morvane {

namespace {

constexpr std::int16_t thin_dots = 1;
constexpr std::int16_t thick_dots = 4;
constexpr std::uint32_t pale_grey = 0xB4B4B4;
/// Figures and capitals stand on the baseline, which leaves more room above them than below.
constexpr float lift = 0.03F;
/// The pitch of lines in a text of several, parts of its size.
constexpr float line_pitch = 1.3F;
/// What sums of widths in single precision may be off, mm.
constexpr float rounding = 0.005F;

float Em(float size) {
    return size * static_cast<float>(Print_Target::mm_per_point);
}

} // namespace

float Page_Layout::Line_Height(float size) {
    return Em(size) * line_pitch;
}

float Page_Layout::Width_Of(std::string_view text, const Type& type) const {
    return prt.Width_Of(text, type.font, type.size);
}

float Page_Layout::Size_For(const Type& type, float width, float room) {
    return width > room ? std::min(type.size, std::max(type.size * room / width, least_size)) : type.size;
}

void Page_Layout::Set(const Area& cell, const std::string& text, const Type& type, float size, float width) {
    const float height = Em(size);
    const float top = std::max(cell.top, (cell.top + cell.bottom - height) / 2 - lift * height);
    float x = cell.left + type.padding;
    if (type.align == Align::Center) {
        x = (cell.left + cell.right - width) / 2;
    } else if (type.align == Align::Right) {
        x = cell.right - type.padding - width;
    }
    prt.Prt_Text(text, x, top, type.font, size);
}

/// What of a text that is too long in this size can stand in the room.
std::string Page_Layout::Shortened(std::string_view text, const Type& type, float size, float room) const {
    const auto fits = [&](const std::string& part, float most) {
        return prt.Width_Of(part, type.font, size) <= most + rounding;
    };
    if (type.overflow == Overflow::Figure) {
        constexpr float least_gap = 0.1F; // on the side where the column's figures do not align
        const float most = room + type.padding - least_gap;
        std::string figure(text);
        if (!fits(figure, most)) {
            std::erase(figure, ',');
        }
        return fits(figure, most) ? figure : "####";
    }
    std::vector<Letter> letters = Letters_Of(text);
    std::string part;
    do {
        letters.pop_back();
        part.clear();
        for (const Letter& letter : letters) {
            part += Utf8_Of(letter);
        }
        part += "…";
    } while (!letters.empty() && !fits(part, room));
    return part;
}

void Page_Layout::Text(const Area& cell, std::string_view text, const Type& type) {
    if (!text.empty()) {
        Text(cell, text, type, Size_For(type, Width_Of(text, type), cell.Width() - 2 * type.padding));
    }
}

void Page_Layout::Text(const Area& cell, std::string_view text, const Type& type, float size) {
    if (text.empty()) {
        return;
    }
    const float room = cell.Width() - 2 * type.padding;
    const float width = prt.Width_Of(text, type.font, size);
    if (width <= room + rounding) {
        Set(cell, std::string(text), type, size, width);
        return;
    }
    const std::string part = Shortened(text, type, size, room);
    Set(cell, part, type, size, prt.Width_Of(part, type.font, size));
}

void Page_Layout::Lines(const Area& cell, std::span<const std::string> lines, const Type& type, float size) {
    const float pitch = Line_Height(size);
    float top = (cell.top + cell.bottom - pitch * static_cast<float>(lines.size())) / 2;
    for (const std::string& line : lines) {
        Text({cell.left, top, cell.right, top + pitch}, line, type, size);
        top += pitch;
    }
}

float Page_Layout::Paragraph(const Area& area, std::string_view text, const Type& type) {
    const auto lines = Break_Lines(text, area.Width() - 2 * type.padding,
                                   [&](std::string_view part) { return Width_Of(part, type); });
    const float height = Line_Height(type.size) * static_cast<float>(lines.size());
    Lines({area.left, area.top, area.right, area.top + height}, lines, type, type.size);
    return height;
}

void Page_Layout::Draw(Rule rule, float x1, float y1, float x2, float y2) {
    switch (rule) {
    case Rule::None:
        return;
    case Rule::Pale:
        pale.push_back({x1, y1, x2, y2});
        return;
    case Rule::Thin:
        thin.push_back({x1, y1, x2, y2});
        return;
    case Rule::Thick:
        thick.push_back({x1, y1, x2, y2});
        return;
    }
}

void Page_Layout::Box(Rule rule, const Area& area) {
    if (rule == Rule::Thick) {
        boxes.push_back(area);
        return;
    }
    Draw(rule, area.left, area.top, area.right, area.top);
    Draw(rule, area.left, area.bottom, area.right, area.bottom);
    Draw(rule, area.left, area.top, area.left, area.bottom);
    Draw(rule, area.right, area.top, area.right, area.bottom);
}

void Page_Layout::Fill(const Area& area, std::uint32_t color) {
    const std::array<Point, 4> corners = {
        {{area.left, area.top}, {area.right, area.top}, {area.right, area.bottom}, {area.left, area.bottom}}};
    prt.Prt_Fill(corners, color);
}

void Page_Layout::Polyline(std::span<const Point> points, std::int16_t width, int style,
                           std::uint32_t color) {
    for (std::size_t i = 1; i < points.size(); ++i) {
        std::int16_t dots = width;
        prt.Prt_Line_Color2(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y, dots, style, color);
    }
}

void Page_Layout::End_Page() {
    std::int16_t width = 0;
    for (const Drawn_Rule& rule : pale) {
        prt.Prt_Line_Color2(rule.x1, rule.y1, rule.x2, rule.y2, width = thin_dots, 0, pale_grey);
    }
    for (const Drawn_Rule& rule : thin) {
        prt.Prt_Line(rule.x1, rule.y1, rule.x2, rule.y2, width = thin_dots, 0);
    }
    for (const Drawn_Rule& rule : thick) {
        prt.Prt_Line(rule.x1, rule.y1, rule.x2, rule.y2, width = thick_dots, 0);
    }
    for (const Area& box : boxes) {
        prt.Prt_Box(box.left, box.top, box.right, box.bottom, width = thick_dots, 0);
    }
    pale.clear();
    thin.clear();
    thick.clear();
    boxes.clear();
    prt.Prt_Page_End();
}

} // namespace morvane
