// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_grid.h"
#include "widgets/grid_cell.h"

#include <QScrollBar>
#include <QTimer>
#include <algorithm>

namespace morvane {

// The nearest column at a side of a cell that takes the focus; -1 none.
int Entry_Grid::Neighbour(Cell_At at, int step, bool with_buttons) const {
    for (int column = at.column + step; column >= 0 && column < data->columnCount(); column += step) {
        const Cell_Use use = data->Column(column).use;
        const bool presses = use == Cell_Use::Button && with_buttons && !data->Is_Locked({at.row, column});
        if (use == Cell_Use::Entry || presses) {
            return column;
        }
    }
    return -1;
}

// The first entry column in the direction `step`, seen from outside.
int Entry_Grid::End_Column(int step) const {
    return Neighbour({0, step > 0 ? -1 : data->columnCount()}, step, false);
}

Cell_At Entry_Grid::First_Cell() const {
    const int column = End_Column(1);
    return data->rowCount() > 0 && column >= 0 ? Cell_At{0, column} : Cell_At{};
}

// The cell above or below, beyond the ends as Grid_Keys tell; none where they stop.
Cell_At Entry_Grid::Next_In_Column(Cell_At at, int step) const {
    const int rows = data->rowCount();
    Cell_At to{at.row + step, at.column};
    if (to.row < 0 || to.row >= rows) {
        if (keys.wrap == Grid_Wrap::Stop) {
            return {};
        }
        to.row = step > 0 ? 0 : rows - 1;
        if (keys.wrap == Grid_Wrap::Next_Column) {
            const int next = Neighbour(at, step, false);
            to.column = next >= 0 ? next : End_Column(step);
        }
    }
    return to;
}

// The next entry field in reading order. At the end of the grid none, or `round` the one at its other end.
Cell_At Entry_Grid::Next_In_Row(Cell_At at, int step, bool round) const {
    Cell_At to{at.row, Neighbour(at, step, false)};
    if (to.column < 0) {
        to = {at.row + step, End_Column(step)};
    }
    if (to.row < 0 || to.row >= data->rowCount()) {
        if (!round) {
            return {};
        }
        to.row = step > 0 ? 0 : data->rowCount() - 1;
    }
    return to;
}

void Entry_Grid::Move_Row(int step) {
    const Cell_At to = Next_In_Column(current, step);
    if (to.row < 0) {
        Finish_Entry();
    } else {
        Go_To(to.row, to.column);
    }
}

// Goes to the next cell that can be keyed; false where there is none in this direction.
bool Entry_Grid::Move_Open(int step, bool along_row, bool round) {
    Cell_At to = current;
    for (int tried = data->rowCount() * data->columnCount(); tried > 0; --tried) {
        to = along_row ? Next_In_Row(to, step, round) : Next_In_Column(to, step);
        if (to.row < 0 || to == current) {
            return false;
        }
        if (!data->Is_Locked(to)) {
            Go_To(to.row, to.column);
            return true;
        }
    }
    return false;
}

void Entry_Grid::Move_Column(int step) {
    Cell_At to{current.row, Neighbour(current, step, true)};
    if (to.column < 0) {
        const int rows = data->rowCount();
        to.row = current.row + (step > 0 ? keys.row_step_at_right : -1);
        if (keys.wrap == Grid_Wrap::Stop && (to.row < 0 || to.row >= rows)) {
            Finish_Entry();
            return;
        }
        to.row = (to.row + rows) % rows;
        to.column = End_Column(step);
    }
    Go_To(to.row, to.column);
}

void Entry_Grid::Move_Page(int pages) {
    const int rows = std::max(view->verticalScrollBar()->pageStep() - 1, 1);
    Go_To(std::clamp(current.row + pages * rows, 0, data->rowCount() - 1), current.column);
}

void Entry_Grid::Move_End(int step) {
    Go_To(step < 0 ? 0 : data->rowCount() - 1, End_Column(-step));
}

void Entry_Grid::Extend(int rows, int columns) {
    Extend_To({std::clamp(block_end.row + rows, 0, data->rowCount() - 1),
               std::clamp(block_end.column + columns, 0, data->columnCount() - 1)});
    view->scrollTo(data->index(block_end.row, block_end.column));
}

void Entry_Grid::Extend_To(Cell_At at) {
    block_end = at;
    const QRect block(QPoint(std::min(current.column, at.column), std::min(current.row, at.row)),
                      QPoint(std::max(current.column, at.column), std::max(current.row, at.row)));
    view->Set_Block(at == current ? QRect() : block);
}

void Entry_Grid::Pressed(Cell_At at, bool extend) {
    if (extend && current.row >= 0) {
        Extend_To(at);
        return;
    }
    if (!Go_To(at.row, at.column)) {
        return;
    }
    Show_Editor();
    editor->Note_Click();
    const bool presses = data->Column(at.column).use == Cell_Use::Button && !data->Is_Locked(at);
    if (presses) {
        // What it opens must not come up in the middle of the press.
        QTimer::singleShot(0, this, [this, at] { Q_EMIT Button_Pressed(at.row, at.column); });
    }
}

} // namespace morvane
