// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/page_layout.h"
#include "report/report_request.h"

#include <cstddef>
#include <string>
#include <vector>

namespace morvane {

/// A column of a table.
struct Table_Column {
    float width = 0; ///< mm; 0: an equal share of what the others leave
    Type type = {};
    std::vector<std::string> head = {}; ///< from the outermost group to its own; those that neighbours have
                                        ///< in common stand over them together; "\n" parts lines
    Rule rule = Rule::Pale;             ///< at its left edge
};

/// A cell; it may take in columns to its right and rows below it.
struct Table_Cell {
    std::string text = {};
    const Type* type = nullptr; ///< where it is not that of its column
    std::size_t columns = 1;
    std::size_t rows = 1;
    Mark mark = Mark::None;
    float indent = 0; ///< at the left, mm beside the padding
};

/// A row: its cells from the left, without those that others take in. What is behind the last one is blank.
struct Table_Row {
    std::vector<Table_Cell> cells;
    Rule below = Rule::Pale;
    bool keeps = false; ///< on one page with the next row: the title of what follows
};

/// A table: headings, cells, rules, over as many pages as it takes. The texts of a column are set in one
/// size, as its longest one asks for, those of columns that are alike too.
class Cell_Table {
  public:
    Cell_Table(const Page_Layout& page, float width, std::vector<Table_Column> columns,
               std::vector<Table_Row> rows, float row_height);

    Cell_Table(const Cell_Table&) = delete;
    Cell_Table& operator=(const Cell_Table&) = delete;
    ~Cell_Table() = default;

    /// Gives all rows the same height, so that head and rows fill this one.
    void Stretch(float height);

    [[nodiscard]] std::size_t Rows() const { return rows.size(); }
    [[nodiscard]] float Width() const { return edges.back(); }
    [[nodiscard]] float Head_Height() const;
    [[nodiscard]] float Row_Height(std::size_t row) const { return heights[row]; }

    /// Whether a page may not end behind the row.
    [[nodiscard]] bool Keeps(std::size_t row) const { return rows[row].keeps; }

    /// Draws the head and under it the rows from `first` to before `behind`; gives where they end.
    float Draw(Page_Layout& page, float left, float top, std::size_t first, std::size_t behind) const;

    /// Draws the whole.
    float Draw(Page_Layout& page, float left, float top) const { return Draw(page, left, top, 0, Rows()); }

  private:
    /// A cell with a text in its place.
    struct Placed {
        const Table_Cell* cell;
        std::size_t row, column;
        std::vector<std::string> lines = {}; ///< where it is wrapped
    };

    /// What is not parted: bits of a place.
    enum Joined : std::uint8_t { with_left = 1, with_below = 2 };

    void Place_Columns(float width);
    void Place_Cells();
    void Find_Sizes(const Page_Layout& page);
    void Wrap(const Page_Layout& page);
    [[nodiscard]] bool Are_Alike(std::size_t one, std::size_t other) const;
    [[nodiscard]] const Type& Type_Of(const Placed& placed) const;
    [[nodiscard]] float Room_Of(const Placed& placed) const;
    [[nodiscard]] std::size_t Levels() const;
    [[nodiscard]] bool Is_Same_Head(std::size_t column, std::size_t level) const;
    [[nodiscard]] std::size_t Behind_Head(std::size_t column, std::size_t level) const;
    [[nodiscard]] std::vector<float> Level_Heights() const;
    [[nodiscard]] bool Is(std::size_t row, std::size_t column, Joined joined) const {
        return (joins[row * columns.size() + column] & joined) != 0;
    }

    void Draw_Head(Page_Layout& page, float left, float top) const;
    void Draw_Head_Rules(Page_Layout& page, float left, const std::vector<float>& ys) const;
    void Draw_Columns(Page_Layout& page, float left, const std::vector<float>& ys, std::size_t first) const;
    void Draw_Rows(Page_Layout& page, float left, const std::vector<float>& ys, std::size_t first) const;
    void Draw_Cell(Page_Layout& page, const Area& area, const Placed& placed) const;

    const std::vector<Table_Column> columns;
    std::vector<Table_Row> rows;
    std::vector<float> edges;      ///< of the columns, from the left edge of the table
    std::vector<float> sizes;      ///< of the columns' texts at most
    std::vector<float> mark_rooms; ///< of the columns
    std::vector<float> heights;    ///< of the rows
    std::vector<Placed> placed_cells;
    std::vector<std::uint8_t> joins; ///< by row and column
};

} // namespace morvane
