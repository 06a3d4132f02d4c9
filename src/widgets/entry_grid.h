// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/grid_view.h"

#include <QFrame>
#include <QUndoStack>
#include <memory>

class QWidget;

namespace morvane {

class Grid_Cell;

/// What Enter, Up and Down do at the end of a column.
enum class Grid_Wrap {
    Stop,        ///< stay
    Same_Column, ///< go to its other end
    Next_Column  ///< go to the first row of the next column, or back to the last of the one before
};

/// How the keys move in a grid.
struct Grid_Keys {
    Grid_Wrap wrap = Grid_Wrap::Next_Column;
    bool enter_along_row = false; ///< Enter goes to the next field of the row instead of the next row
    bool arrows_leave = false; ///< Left and Right go to the neighbouring field instead of moving in the text
    int row_step_at_right = 1; ///< rows that Ctrl+Right goes on by when it leaves the last column
};

/// A total row at the foot of a grid. Its cells are named by the column's name and `suffix` ("Zzki_Kei").
struct Grid_Total {
    std::string caption = {};
    std::string suffix = "_Kei";
};

/// A pasted cell that was no entry for the cell it fell on, or fell beyond the grid.
struct Paste_Refused {
    int row = 0;
    int column = 0;
    QString text;
};

/// A grid of entry cells for keying figures. The current cell is always in entry while the grid has the
/// focus: light yellow, bare number, selected. Locked cells take the focus but no key, and only from the
/// arrow keys and the mouse; shown cells are passed by. Leaving a cell takes its entry.
///
/// Keys: Enter and Down, Up along the column (Grid_Keys); Tab and Shift+Tab along the rows and out at the
/// ends; Ctrl+Left and Ctrl+Right to the neighbouring column, across rows at the ends; PageUp, PageDown,
/// Ctrl+Home, Ctrl+End; Shift+Up, Shift+Down, Ctrl+Shift+Left, Ctrl+Shift+Right mark a block, which Ctrl+C
/// copies and Delete clears; Ctrl+V of a block fills cell by cell; Ctrl+Z, Ctrl+Y undo and redo.
class Entry_Grid : public QFrame {
    Q_OBJECT

  public:
    Entry_Grid(std::vector<Grid_Column> columns, int rows, QWidget* parent = nullptr);
    ~Entry_Grid() override;

    /// Makes all rows anew, blank, with nothing to undo.
    void Set_Row_Count(int rows);
    void Set_Captions(const std::vector<Grid_Caption>& captions,
                      const std::vector<std::vector<std::string>>& rows);
    void Set_Totals(const std::vector<Grid_Total>& total_rows);
    void Set_Keys(const Grid_Keys& grid_keys) { keys = grid_keys; }
    void Set_Heading(int column, const std::string& heading);

    /// Gives a column another width, in half-width characters.
    void Set_Width(int column, int characters);

    /// Asked whenever the focus leaves a cell, with the entry already in place and whether or not it has
    /// changed: here the screen calculates. False takes a changed entry back, with a beep, and keeps the
    /// focus; an unchanged one is left all the same. Must not throw.
    std::function<bool(int row, int column)> on_left;

    /// Asked in the same way after a paste, a clearing, an undo or a redo with all cells that changed. None:
    /// on_left for each.
    std::function<bool(const std::vector<Cell_At>& cells)> on_block;

    /// Told once after a paste of which cells were refused. The others are in place.
    std::function<void(const std::vector<Paste_Refused>& refused)> on_refused;

    /// Sets a value: Null is blank. Not for the user's doing, so not to be undone.
    void Set_Value(int row, int column, const Value& value);
    void Set_Total(int total, int column, const Value& value);

    /// The value, with what is just being keyed where it is an entry.
    [[nodiscard]] Value Get_Value(int row, int column) const;

    /// The same by control name, "Zzki(3)" or for totals (only set) "Zzki_Kei". Raises std::out_of_range.
    void Set_Value(std::string_view name, const Value& value);
    [[nodiscard]] Value Get_Value(std::string_view name) const;

    /// The text that a cell or total shows, in entry the bare one. Raises std::out_of_range.
    [[nodiscard]] QString Cell_Text(std::string_view name) const;

    [[nodiscard]] bool Is_Locked(int row, int column) const { return data->Is_Locked({row, column}); }
    void Set_Locked(int row, int column, bool locked);

    /// Shows a row in bold: one that is computed from others.
    void Set_Strong(int row, bool strong) { data->Set_Strong(row, strong); }

    /// Tints a cell as the best of those that it is compared with.
    void Set_Best(int row, int column, bool best) { data->Set_Best({row, column}, best); }
    [[nodiscard]] bool Is_Best(int row, int column) const { return data->Is_Best({row, column}); }

    /// Gives a cell the room of the one at its right, which is no entry.
    void Join_Next(int row, int column) { view->setSpan(row, column, 1, 2); }

    /// Keeps the room of the scroll bar free, so that columns stay in their places whatever the rows are.
    void Keep_Bar_Room();

    [[nodiscard]] int Row_Count() const { return data->rowCount(); }
    [[nodiscard]] int Column_Count() const { return data->columnCount(); }

    /// The current cell; row -1 in a grid without entry cells.
    [[nodiscard]] Cell_At Current() const { return current; }

    /// Leaves the current cell and goes to another one; false where the entry was refused or taken back.
    bool Go_To(int row, int column);

    /// The same, and puts the focus there.
    bool Focus_Cell(int row, int column);
    bool Focus_Cell(std::string_view name);

    /// Takes what is just being keyed, as leaving the cell would; false where it was refused or taken back.
    /// Before the values are saved.
    bool Finish_Entry();

    /// Whether the user has changed anything since Set_Unedited.
    [[nodiscard]] bool Is_Edited() const;
    void Set_Unedited();

    void Undo() { Step(true); }
    void Redo() { Step(false); }

    /// Fills from the current cell on, as Ctrl+V does with a block.
    void Paste_Block(const QString& text);

    /// The marked block, or the current cell, as text for spreadsheets, with bare numbers.
    [[nodiscard]] QString Copied_Text() const;

    /// A text that names refused cells by row and heading, for a message box.
    [[nodiscard]] std::string Refusal_Text(const std::vector<Paste_Refused>& refused) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    void Cell_Entered(int row, int column);
    void Cell_Left(int row, int column);                       ///< the entry holds
    void Entry_Typed(int row, int column, const Value& value); ///< a key: what the entry would be by now
    void Values_Changed();  ///< the user has changed one or more cells, and they hold
    void Values_Restored(); ///< a change was taken back: what was calculated from it is stale
    void Button_Pressed(int row, int column);

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    friend class Grid_Cell;
    class Command;

    /// One changed cell.
    struct Change {
        Cell_At at;
        Value former;
        Value later;
    };

    // Moving (entry_grid_move.cpp).
    void Move_Row(int step);
    bool Move_Open(int step, bool along_row, bool round);
    [[nodiscard]] Cell_At Next_In_Column(Cell_At at, int step) const;
    [[nodiscard]] Cell_At Next_In_Row(Cell_At at, int step, bool round) const;
    void Move_Column(int step);
    void Move_Page(int pages);
    void Move_End(int step);
    void Extend(int rows, int columns);
    void Extend_To(Cell_At at);
    [[nodiscard]] int Neighbour(Cell_At at, int step, bool with_buttons) const;
    [[nodiscard]] int End_Column(int step) const;
    [[nodiscard]] Cell_At First_Cell() const;
    void Pressed(Cell_At at, bool extend);

    // The editor.
    void Place(Cell_At at);
    void Mark_Current();
    void Put_Editor();
    void Show_Editor();
    void Editor_Left();
    void Name_Editor();
    bool Leave();
    [[nodiscard]] bool Is_Typed() const;

    // Changes (entry_grid_change.cpp).
    void Apply(const std::vector<Change>& changes, bool later);
    bool Ask(const std::vector<Cell_At>& cells) const;
    bool Carry_Out(std::vector<Change> changes);
    void Remember(std::vector<Change> changes);
    void Step(bool back);
    void Clear_Block();
    [[nodiscard]] int Block_Column(int first, int offset) const;
    bool Read_Cell(int column, const QString& text, Value& value) const;
    [[nodiscard]] QRect Marked() const;
    [[nodiscard]] bool Has_Block() const { return !view->Block().isNull(); }

    // Values by name and totals (entry_grid_values.cpp).
    [[nodiscard]] std::optional<Cell_At> Find_Total(std::string_view name) const;
    void Fit_Foot();

    Grid_Data* data;
    Grid_View* view;
    std::unique_ptr<Grid_Data> total_data;
    Grid_View* foot = nullptr;
    QFrame* foot_row = nullptr;
    QWidget* foot_gap = nullptr;
    std::vector<Grid_Total> totals;
    Grid_Cell* editor;
    Grid_Keys keys;
    Cell_At current;
    Cell_At block_end; ///< the corner of the marked block opposite to the current cell
    bool leaving = false;
    QUndoStack undo_stack;
    std::vector<Cell_At> last_applied;
};

} // namespace morvane
