// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/prt_modset.h"

#include <span>
#include <string>

namespace morvane {

/// A rectangle on the sheet, millimetres.
struct Area {
    float left, top, right, bottom;

    [[nodiscard]] float Width() const { return right - left; }
    [[nodiscard]] float Height() const { return bottom - top; }
};

enum class Align : std::uint8_t { Left, Center, Right, Spread };

/// How a text is set.
struct Type {
    const char* font;
    float size;
    Align align = Align::Left;
    float padding = 0.9F; ///< between the text and the edges of its cell, mm
};

/// What a sheet is laid out with: texts that stay inside their cells, three kinds of rules.
class Page_Layout {
  public:
    explicit Page_Layout(Prt_ModSet& operations) : prt(operations) {}

    /// A text in the middle of a cell's height, made smaller where it would not fit.
    void Text(const Area& cell, const std::string& text, const Type& type);

    /// The type in which all texts of a column fit into its width, so that they are set alike; not smaller
    /// than 6 points, below which Text makes single texts that are longer still.
    [[nodiscard]] Type Fitted(float width, Type type, std::span<const std::string> texts) const;

    void Thick_Box(const Area& area);
    void Thick(float x1, float y1, float x2, float y2);
    void Thin(float x1, float y1, float x2, float y2);
    /// The grey rules between the rows of a table.
    void Pale(float x1, float y1, float x2, float y2);

  private:
    Prt_ModSet& prt;
};

/// A column of a table: its width and how its entries are set.
struct Table_Column {
    float width;
    Type type;
};

/// The cells of a table: columns from the left edge of its area on, rows of one height from its top on. The
/// last column takes what is left.
class Table_Cells {
  public:
    Table_Cells(const Area& table, std::span<const Table_Column> table_columns, std::size_t row_count)
        : area(table), columns(table_columns), row_height(table.Height() / static_cast<float>(row_count)) {}

    [[nodiscard]] float X(std::size_t column) const;
    [[nodiscard]] float Y(std::size_t row) const { return area.top + static_cast<float>(row) * row_height; }
    [[nodiscard]] Area Cell(std::size_t row, std::size_t column) const {
        return Cells(row, column, row, column);
    }

    /// The cells from one to another.
    [[nodiscard]] Area Cells(std::size_t row1, std::size_t column1, std::size_t row2,
                             std::size_t column2) const {
        return {X(column1), Y(row1), X(column2 + 1), Y(row2 + 1)};
    }

    const Area area;
    const std::span<const Table_Column> columns;
    const float row_height;
};

} // namespace morvane
