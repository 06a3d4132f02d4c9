// SPDX-FileCopyrightText: The Morvane developers
#include "report/page_layout.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr float least_size = 6.0F;
constexpr std::int16_t thin_dots = 1;
constexpr std::int16_t thick_dots = 4;
constexpr std::uint32_t pale_grey = 0xB4B4B4;
constexpr float spread_margin = 3.0F;
/// Figures and capitals stand on the baseline, which leaves more room above them than below.
constexpr float lift = 0.03F;

} // namespace

void Page_Layout::Text(const Area& cell, const std::string& text, const Type& type) {
    if (text.empty()) {
        return;
    }
    const float padding = type.padding;
    const float room = cell.Width() - 2 * padding;
    const float wanted = prt.Width_Of(text, type.font, type.size);
    const float size = std::min({type.size, wanted > room ? type.size * room / wanted : type.size,
                                 cell.Height() / static_cast<float>(Print_Target::mm_per_point)});
    const float height = size * static_cast<float>(Print_Target::mm_per_point);
    const float top = std::max(cell.top, (cell.top + cell.bottom - height) / 2 - lift * height);
    float x = cell.left + padding;
    switch (type.align) {
    case Align::Left:
        prt.Prt_Text(text, x, top, type.font, size);
        return;
    case Align::Center:
        x = (cell.left + cell.right) / 2;
        prt.Prt_Text_Center(text, x, top, type.font, size);
        return;
    case Align::Right:
        x = cell.right - padding;
        prt.Prt_Text_Right(text, x, top, type.font, size);
        return;
    case Align::Spread:
        // The last character's right end stands as far from the edge as the first one's left end.
        const float margin = wanted + 2 * spread_margin > cell.Width() ? padding : spread_margin;
        prt.Prt_Text_Wide(text, cell.left + margin, cell.right - margin - height, top, type.font, size);
        return;
    }
}

Type Page_Layout::Fitted(float width, Type type, std::span<const std::string> texts) const {
    const float room = width - 2 * type.padding;
    float size = type.size;
    for (const std::string& text : texts) {
        const float wanted = prt.Width_Of(text, type.font, type.size);
        size = wanted > room ? std::min(size, type.size * room / wanted) : size;
    }
    type.size = std::min(type.size, std::max(size, least_size));
    return type;
}

void Page_Layout::Thick_Box(const Area& area) {
    std::int16_t width = thick_dots;
    prt.Prt_Box(area.left, area.top, area.right, area.bottom, width, 0);
}

void Page_Layout::Thick(float x1, float y1, float x2, float y2) {
    std::int16_t width = thick_dots;
    prt.Prt_Line(x1, y1, x2, y2, width, 0);
}

void Page_Layout::Thin(float x1, float y1, float x2, float y2) {
    std::int16_t width = thin_dots;
    prt.Prt_Line(x1, y1, x2, y2, width, 0);
}

void Page_Layout::Pale(float x1, float y1, float x2, float y2) {
    std::int16_t width = thin_dots;
    prt.Prt_Line_Color2(x1, y1, x2, y2, width, 0, pale_grey);
}

float Table_Cells::X(std::size_t column) const {
    float x = area.left;
    for (std::size_t i = 0; i < column && i < columns.size(); ++i) {
        x += columns[i].width;
    }
    return column >= columns.size() ? area.right : x;
}

} // namespace morvane
