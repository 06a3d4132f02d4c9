// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/entry_cell.h"

#include <QAbstractTableModel>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// What a column of a grid is for.
enum class Cell_Use {
    Entry, ///< keyed by the user, unless locked
    Shown, ///< only shown; the focus passes it by
    Button ///< pressed by the user; a locked one is disabled
};

/// One column of an Entry_Grid. Texts are UTF-8; a heading may have several lines.
struct Grid_Column {
    std::string name = {}; ///< of the control array: its row 3 is "name(3)"
    std::string heading = {};
    std::string group = {}; ///< heading above consecutive columns of the same group
    Cell_Use use = Cell_Use::Entry;
    std::string button = {}; ///< what stands on a Button
    Entry_Kind kind = Entry_Kind::Amount;
    int width = 14;           ///< in half-width characters; 0 takes the room that is left
    int max_length = 11;      ///< of the typed text
    std::string choices = {}; ///< keys of a Choice
    int decimals = -1;        ///< decimals always shown; -1 as Comma_Str shows them
    Qt::Alignment align = {}; ///< none: Amount at the right, others at the left
    bool in_blocks = true;    ///< a column of blocks that are copied and pasted; not so a mere mark
    std::function<QString(const Value&)> format = {}; ///< in place of the usual form; never sees Null
    std::function<bool(int row)> locked = {};         ///< none: no row is
};

/// Where a cell is, both from 0.
struct Cell_At {
    int row = -1;
    int column = -1;
    friend bool operator==(const Cell_At&, const Cell_At&) = default;
};

/// The cells of a grid: values, the texts that show them, and locks.
class Grid_Data : public QAbstractTableModel {
  public:
    Grid_Data(std::vector<Grid_Column> grid_columns, int rows, QObject* parent);

    /// Blank rows; locks as the columns tell.
    void Reset(int rows);

    [[nodiscard]] const Grid_Column& Column(int column) const {
        return columns[static_cast<std::size_t>(column)];
    }
    [[nodiscard]] const Value& Value_At(Cell_At at) const { return cells[Index(at)].value; }
    [[nodiscard]] const QString& Text_At(Cell_At at) const { return cells[Index(at)].text; }
    [[nodiscard]] bool Is_Locked(Cell_At at) const { return cells[Index(at)].locked; }
    [[nodiscard]] bool Is_Strong(Cell_At at) const { return cells[Index(at)].strong; }
    [[nodiscard]] bool Is_Best(Cell_At at) const { return cells[Index(at)].best; }
    [[nodiscard]] bool Has(Cell_At at) const;

    void Set_Value(Cell_At at, const Value& value);
    void Set_Locked(Cell_At at, bool locked);
    void Set_Strong(int row, bool strong);
    void Set_Best(Cell_At at, bool best);
    void Set_Heading(int column, const std::string& heading);

    /// The cell of a control name ("Zzki(3)").
    [[nodiscard]] std::optional<Cell_At> Find(std::string_view name) const;

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : row_count; }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(columns.size());
    }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    std::vector<QString> row_names; ///< what a screen reader says of a row

  private:
    struct Cell {
        Value value;
        QString text;
        bool locked = false;
        bool strong = false;
        bool best = false;
    };

    [[nodiscard]] std::size_t Index(Cell_At at) const {
        return static_cast<std::size_t>(at.row) * columns.size() + static_cast<std::size_t>(at.column);
    }
    void Tell(Cell_At at);

    std::vector<Grid_Column> columns;
    int row_count = 0;
    std::vector<Cell> cells;
};

/// How a column shows a value.
QString Shown_Text(const Grid_Column& column, const Value& value);

/// Where the text of a column stands.
Qt::Alignment Alignment_Of(const Grid_Column& column);

} // namespace morvane
