// SPDX-FileCopyrightText: The Morvane developers
#include "report/cell_table.h"

#include "report/line_break.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace morvane {

namespace {

constexpr Type group_type = {font_p_gothic, 7.0F, Align::Center, 0.2F};
constexpr Type head_type = {font_p_mincho, 7.0F, Align::Center, 0.0F};
constexpr float head_margin = 1.6F; ///< above and below the lines of a heading together
constexpr float cell_margin = 0.6F; ///< the same of a wrapped text
constexpr std::array<const char*, 4> mark_texts = {"", "○", "×", "◎"};
constexpr Type mark_type = {font_p_gothic, 7.0F, Align::Left, 0.4F};
constexpr float mark_room = 3.3F;

std::vector<std::string> Lines_Of(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

float Height_Of_Head(const std::string& head) {
    const auto lines = static_cast<float>(1 + std::count(head.begin(), head.end(), '\n'));
    return lines * Page_Layout::Line_Height(head_type.size) + head_margin;
}

} // namespace

Cell_Table::Cell_Table(const Page_Layout& page, float width, std::vector<Table_Column> table_columns,
                       std::vector<Table_Row> table_rows, float row_height)
    : columns(std::move(table_columns)), rows(std::move(table_rows)), mark_rooms(columns.size()),
      heights(rows.size(), row_height), joins(rows.size() * columns.size()) {
    Place_Columns(width);
    Place_Cells();
    Find_Sizes(page);
    Wrap(page);
    if (rows.size() > 1) {
        rows[rows.size() - 2].keeps = true; // no last row alone on a page
    }
}

void Cell_Table::Place_Columns(float width) {
    float given = 0;
    float open = 0;
    for (const Table_Column& column : columns) {
        given += column.width;
        open += column.width == 0 ? 1.0F : 0.0F;
    }
    edges.push_back(0);
    for (const Table_Column& column : columns) {
        edges.push_back(edges.back() + (column.width == 0 ? (width - given) / open : column.width));
    }
    edges.back() = width;
}

void Cell_Table::Place_Cells() {
    std::vector<std::size_t> free_from(columns.size()); // the first row in which a column is free again
    for (std::size_t row = 0; row < rows.size(); ++row) {
        std::size_t column = 0;
        for (const Table_Cell& cell : rows[row].cells) {
            while (free_from.at(column) > row) {
                ++column;
            }
            for (std::size_t r = row; r < row + cell.rows; ++r) {
                for (std::size_t c = column; c < column + cell.columns; ++c) {
                    joins.at(r * columns.size() + c) = static_cast<std::uint8_t>(
                        (c > column ? with_left : 0) | (r + 1 < row + cell.rows ? with_below : 0));
                    free_from[c] = row + cell.rows;
                }
                rows[r].keeps = rows[r].keeps || r + 1 < row + cell.rows;
            }
            if (!cell.text.empty()) {
                placed_cells.push_back({&cell, row, column});
            }
            mark_rooms[column] = cell.mark == Mark::None ? mark_rooms[column] : mark_room;
            column += cell.columns;
        }
    }
}

const Type& Cell_Table::Type_Of(const Placed& placed) const {
    return placed.cell->type != nullptr ? *placed.cell->type : columns[placed.column].type;
}

float Cell_Table::Room_Of(const Placed& placed) const {
    return edges[placed.column + placed.cell->columns] - edges[placed.column] - 2 * Type_Of(placed).padding -
           placed.cell->indent - mark_rooms[placed.column];
}

bool Cell_Table::Are_Alike(std::size_t one, std::size_t other) const {
    const Type& a = columns[one].type;
    const Type& b = columns[other].type;
    return columns[one].width == columns[other].width && a.font == b.font && a.size == b.size &&
           a.align == b.align && a.overflow == b.overflow;
}

/// The size of each column: that of its longest text, where that one is not wrapped.
void Cell_Table::Find_Sizes(const Page_Layout& page) {
    std::vector<float> fitting(columns.size(), HUGE_VALF);
    for (const Placed& placed : placed_cells) {
        const Type& type = Type_Of(placed);
        const float width = page.Width_Of(placed.cell->text, type);
        const float room = Room_Of(placed);
        const bool wraps =
            type.overflow == Overflow::Wrap && width * Page_Layout::least_size > room * type.size;
        if (width > room && !wraps && placed.cell->columns == 1) {
            float& size = fitting[placed.column];
            size = std::min(size, Page_Layout::Size_For(type, width, room));
        }
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        sizes.push_back(fitting[i]);
        for (std::size_t k = 0; k < columns.size(); ++k) {
            sizes[i] = Are_Alike(i, k) ? std::min(sizes[i], fitting[k]) : sizes[i];
        }
    }
}

void Cell_Table::Wrap(const Page_Layout& page) {
    for (Placed& placed : placed_cells) {
        const Type& type = Type_Of(placed);
        if (type.overflow != Overflow::Wrap) {
            continue;
        }
        const float size = std::min(type.size, sizes[placed.column]);
        const float scale = size / type.size;
        placed.lines = Break_Lines(placed.cell->text, Room_Of(placed),
                                   [&](std::string_view part) { return page.Width_Of(part, type) * scale; });
        float& height = heights[placed.row];
        height = std::max(height, static_cast<float>(placed.lines.size()) * Page_Layout::Line_Height(size) +
                                      cell_margin);
    }
}

void Cell_Table::Stretch(float height) {
    std::fill(heights.begin(), heights.end(), (height - Head_Height()) / static_cast<float>(rows.size()));
}

// ---- headings

std::size_t Cell_Table::Levels() const {
    std::size_t levels = 0;
    for (const Table_Column& column : columns) {
        levels = std::max(levels, column.head.size());
    }
    return levels;
}

/// Whether a column stands under the same heading of a level as the one to its left.
bool Cell_Table::Is_Same_Head(std::size_t column, std::size_t level) const {
    const auto& own = columns[column].head;
    const auto& other = columns[column - 1].head;
    return own.size() > level && other.size() > level &&
           std::equal(own.begin(), own.begin() + static_cast<std::ptrdiff_t>(level) + 1, other.begin());
}

std::size_t Cell_Table::Behind_Head(std::size_t column, std::size_t level) const {
    std::size_t behind = column + 1;
    while (behind < columns.size() && Is_Same_Head(behind, level)) {
        ++behind;
    }
    return behind;
}

/// The heights of the levels: of those headings that stand in one, the last one more where a heading over
/// several needs it.
std::vector<float> Cell_Table::Level_Heights() const {
    std::vector<float> level_heights(Levels());
    for (const Table_Column& column : columns) {
        for (std::size_t level = 0; level < column.head.size(); ++level) {
            if (level + 1 < column.head.size() || level + 1 == level_heights.size()) {
                level_heights[level] = std::max(level_heights[level], Height_Of_Head(column.head[level]));
            }
        }
    }
    for (const Table_Column& column : columns) {
        float room = 0;
        for (std::size_t level = column.head.size() - std::min<std::size_t>(column.head.size(), 1);
             level < level_heights.size(); ++level) {
            room += level_heights[level];
        }
        if (!column.head.empty() && Height_Of_Head(column.head.back()) > room) {
            level_heights.back() += Height_Of_Head(column.head.back()) - room;
        }
    }
    return level_heights;
}

float Cell_Table::Head_Height() const {
    float height = 0;
    for (const float level : Level_Heights()) {
        height += level;
    }
    return height;
}

void Cell_Table::Draw_Head(Page_Layout& page, float left, float top) const {
    std::vector<float> ys = {top};
    for (const float height : Level_Heights()) {
        ys.push_back(ys.back() + height);
    }
    const std::size_t levels = ys.size() - 1;
    for (std::size_t level = 0; level < levels; ++level) {
        for (std::size_t column = 0; column < columns.size(); column = Behind_Head(column, level)) {
            const auto& head = columns[column].head;
            if (head.size() <= level) {
                continue;
            }
            const bool own = head.size() == level + 1;
            const Area area = {left + edges[column], ys[level], left + edges[Behind_Head(column, level)],
                               own ? ys.back() : ys[level + 1]};
            const Type& type = own ? head_type : group_type;
            const auto lines = Lines_Of(head[level]);
            float size = type.size;
            for (const std::string& line : lines) {
                const float room = area.Width() - 2 * type.padding;
                size = std::min(size, Page_Layout::Size_For(type, page.Width_Of(line, type), room));
            }
            page.Lines(area, lines, type, size);
            if (!own) {
                page.Draw(Rule::Thin, area.left, area.bottom, area.right, area.bottom);
            }
        }
    }
    Draw_Head_Rules(page, left, ys);
}

/// Between the headings, from where they part; nested ones in black, like the edges of their groups below.
void Cell_Table::Draw_Head_Rules(Page_Layout& page, float left, const std::vector<float>& ys) const {
    const std::size_t levels = ys.size() - 1;
    for (std::size_t column = 1; column < columns.size(); ++column) {
        std::size_t level = 0;
        while (level < levels && Is_Same_Head(column, level)) {
            ++level;
        }
        if (level < columns[column].head.size() || level < columns[column - 1].head.size()) {
            const float x = left + edges[column];
            page.Draw(levels > 1 ? Rule::Thin : columns[column].rule, x, ys[level], x, ys.back());
        }
    }
    page.Draw(Rule::Thin, left, ys.back(), left + edges.back(), ys.back());
}

// ---- rows

float Cell_Table::Draw(Page_Layout& page, float left, float top, std::size_t first,
                       std::size_t behind) const {
    std::vector<float> ys = {top + Head_Height()};
    for (std::size_t row = first; row < behind; ++row) {
        ys.push_back(ys.back() + heights[row]);
    }
    if (Levels() > 0) {
        Draw_Head(page, left, top);
    }
    for (const Placed& placed : placed_cells) {
        if (placed.row >= first && placed.row < behind) {
            const std::size_t end = std::min(placed.row + placed.cell->rows, behind);
            Draw_Cell(page,
                      {left + edges[placed.column], ys[placed.row - first],
                       left + edges[placed.column + placed.cell->columns], ys[end - first]},
                      placed);
        }
    }
    Draw_Columns(page, left, ys, first);
    Draw_Rows(page, left, ys, first);
    return ys.back();
}

void Cell_Table::Draw_Cell(Page_Layout& page, const Area& area, const Placed& placed) const {
    const Type& type = Type_Of(placed);
    const float size = std::min(type.size, sizes[placed.column]);
    const Mark mark = placed.cell->mark;
    Area room = area;
    room.left += mark_rooms[placed.column] + placed.cell->indent;
    if (mark != Mark::None) {
        page.Text({area.left, area.top, area.left + mark_room, area.bottom},
                  mark_texts[static_cast<std::size_t>(mark)], mark_type, mark_type.size);
    }
    if (!placed.lines.empty()) {
        page.Lines(room, placed.lines, type, size);
    } else if (placed.cell->columns > 1) {
        page.Text(room, placed.cell->text, type);
    } else {
        page.Text(room, placed.cell->text, type, size);
    }
}

/// The rules between columns, broken where a cell stands over both.
void Cell_Table::Draw_Columns(Page_Layout& page, float left, const std::vector<float>& ys,
                              std::size_t first) const {
    const std::size_t count = ys.size() - 1;
    for (std::size_t column = 1; column < columns.size(); ++column) {
        const bool begins_group = Levels() > 1 && !Is_Same_Head(column, 0);
        const Rule rule = begins_group ? Rule::Thin : columns[column].rule;
        const float x = left + edges[column];
        for (std::size_t row = 0; row < count;) {
            std::size_t end = row;
            while (end < count && !Is(first + end, column, with_left)) {
                ++end;
            }
            if (end > row) {
                page.Draw(rule, x, ys[row], x, ys[end]);
            }
            row = end + 1;
        }
    }
}

/// The same between rows.
void Cell_Table::Draw_Rows(Page_Layout& page, float left, const std::vector<float>& ys,
                           std::size_t first) const {
    for (std::size_t row = 0; row + 2 < ys.size(); ++row) {
        for (std::size_t column = 0; column < columns.size();) {
            std::size_t end = column;
            while (end < columns.size() && !Is(first + row, end, with_below)) {
                ++end;
            }
            if (end > column) {
                page.Draw(rows[first + row].below, left + edges[column], ys[row + 1], left + edges[end],
                          ys[row + 1]);
            }
            column = end + 1;
        }
    }
}

} // namespace morvane
