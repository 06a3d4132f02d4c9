// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/grid_cell.h"

#include "widgets/entry_grid.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <algorithm>

namespace morvane {

Grid_Cell::Grid_Cell(Entry_Grid& entry_grid, QWidget* parent)
    : Entry_Cell(Entry_Kind::Amount, parent), grid(entry_grid) {
    theme::Set_Look(this, "grid");
    setFocusPolicy(Qt::ClickFocus);
    setContextMenuPolicy(Qt::DefaultContextMenu);
    connect(this, &QLineEdit::textChanged, this, &Grid_Cell::Fit_Figure);
    connect(this, &QLineEdit::textEdited, this, [this] {
        const Cell_At at = grid.Current();
        Q_EMIT grid.Entry_Typed(at.row, at.column, Entry());
    });
    hide();
}

// A figure is narrowed where it is wider than the cell, as the painted one is: its first digit stays in view.
void Grid_Cell::Fit_Figure() {
    constexpr int narrowest = 50; ///< percent of the natural width
    constexpr int beside = 6;     ///< the line edit's own margins and the cursor
    QStyleOptionFrame option;
    initStyleOption(&option);
    const int room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).width() - beside;
    QFont fitted = font();
    fitted.setStretch(QFont::Unstretched);
    const int natural = QFontMetrics(fitted).horizontalAdvance(text());
    if (Kind() != Entry_Kind::Text && natural > room && room > 0) {
        fitted.setStretch(std::max(narrowest, QFont::Unstretched * room / natural));
    }
    if (fitted != font()) {
        setFont(fitted);
    }
}

void Grid_Cell::resizeEvent(QResizeEvent* event) {
    Entry_Cell::resizeEvent(event);
    Fit_Figure();
}

void Grid_Cell::Load(Cell_At at) {
    const Grid_Column& column = grid.data->Column(at.column);
    is_button = column.use == Cell_Use::Button;
    button = is_button ? QString::fromStdString(column.button) : QString();
    Set_Kind(column.kind);
    setAlignment(Alignment_Of(column));
    Set_Choices(QString::fromStdString(column.choices));
    setMaxLength(column.max_length);
    Set_Locked(is_button || grid.data->Is_Locked(at));
    Set_Value(grid.data->Value_At(at));
    // Not in focus the text would have its commas.
    loaded = Bare();
}

bool Grid_Cell::Moves(const QKeyEvent& event) {
    const bool control = (event.modifiers() & Qt::ControlModifier) != 0;
    const bool shift = (event.modifiers() & Qt::ShiftModifier) != 0;
    const int sideways = event.key() == Qt::Key_Left ? -1 : 1;
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const int step = event.key() == Qt::Key_Up ? -1 : 1;
        shift ? grid.Extend(step, 0) : grid.Move_Row(step);
        return true;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (is_button) {
            return false;
        }
        if (!grid.Move_Open(shift ? -1 : 1, grid.keys.enter_along_row, grid.keys.wrap != Grid_Wrap::Stop)) {
            grid.Finish_Entry();
        }
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (control && shift) {
            grid.Extend(0, sideways);
        } else if (control || is_button || (grid.keys.arrows_leave && !shift)) {
            grid.Move_Column(sideways);
        } else {
            return false;
        }
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        grid.Move_Page(event.key() == Qt::Key_PageUp ? -1 : 1);
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        if (!control) {
            return false;
        }
        grid.Move_End(event.key() == Qt::Key_Home ? -1 : 1);
        return true;
    default:
        return false;
    }
}

bool Grid_Cell::Changes(const QKeyEvent& event) {
    if (!grid.Has_Block()) {
        return false;
    }
    if (event.matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(grid.Copied_Text());
        return true;
    }
    if (event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace) {
        grid.Clear_Block();
        return true;
    }
    return false;
}

void Grid_Cell::keyPressEvent(QKeyEvent* event) {
    if (Moves(*event) || Changes(*event)) {
        event->accept();
        return;
    }
    if (is_button) {
        const bool presses =
            event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (presses && !grid.data->Is_Locked(grid.current)) {
            Q_EMIT grid.Button_Pressed(grid.current.row, grid.current.column);
        }
        event->setAccepted(presses);
        return;
    }
    if (!event->text().isEmpty() && !event->matches(QKeySequence::Paste)) {
        grid.view->Set_Block({});
    }
    Entry_Cell::keyPressEvent(event);
}

bool Grid_Cell::focusNextPrevChild(bool next) {
    if (grid.Move_Open(next ? 1 : -1, true, false)) {
        return true;
    }
    // Out of the grid, which would be the next stop backwards itself.
    grid.setFocusPolicy(Qt::NoFocus);
    const bool moved = Entry_Cell::focusNextPrevChild(next);
    grid.setFocusPolicy(Qt::TabFocus);
    return moved;
}

void Grid_Cell::mousePressEvent(QMouseEvent* event) {
    if (is_button) {
        grid.Pressed(grid.current, false);
        return;
    }
    grid.view->Set_Block({});
    Entry_Cell::mousePressEvent(event);
}

void Grid_Cell::paintEvent(QPaintEvent* event) {
    if (!is_button) {
        Entry_Cell::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.fillRect(rect(), QColor(theme::shown));
    Paint_Grid_Button(painter, rect(), button, !grid.data->Is_Locked(grid.current), true);
}

void Grid_Cell::Take_Pasted(const QString& pasted) {
    const QString text = pasted.trimmed();
    const bool is_block = pasted.contains(u'\t') || text.contains(u'\n') || text.contains(u'\r');
    if (is_block || grid.Has_Block()) {
        grid.Paste_Block(pasted);
    } else {
        Entry_Cell::Take_Pasted(pasted);
    }
}

void Grid_Cell::Undo_Last() {
    if (Is_Typed() || isUndoAvailable()) {
        undo();
    } else {
        grid.Undo();
    }
}

void Grid_Cell::Redo_Last() {
    if (Is_Typed() || isRedoAvailable()) {
        redo();
    } else {
        grid.Redo();
    }
}

bool Grid_Cell::May_Leave() {
    return grid.Leave();
}

} // namespace morvane
