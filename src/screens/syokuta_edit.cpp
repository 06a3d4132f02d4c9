// SPDX-FileCopyrightText: The Morvane developers
#include "screens/syokuta_edit.h"

#include "widgets/entry_text.h"

#include <QKeyEvent>

namespace morvane {

namespace {

Entry_Kind Kind_Of(const Syokuta_Cell& cell) {
    if (cell.keys != nullptr) {
        return Entry_Kind::Choice;
    }
    return cell.amount ? Entry_Kind::Figure : Entry_Kind::Digits;
}

} // namespace

Syokuta_Edit::Syokuta_Edit(const Syokuta_Cell& field, QWidget* parent)
    : Entry_Cell(Kind_Of(field), parent), cell(field) {
    setObjectName(QString::fromUtf8(field.name));
    if (field.keys != nullptr) {
        Set_Choices(QString::fromLatin1(field.keys));
    }
    setMaxLength(field.digits);
    // The commas of an amount.
    Set_Width(field.digits + (field.amount ? (field.digits - 1) / 3 : 0));
    setAlignment((field.keys != nullptr ? Qt::AlignHCenter : Qt::AlignRight) | Qt::AlignVCenter);
}

std::int32_t Syokuta_Edit::Number() const {
    // Within the digits that the cell takes.
    return static_cast<std::int32_t>(Entry().As_Integer());
}

void Syokuta_Edit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        if (on_arrow) {
            on_arrow(event->key() == Qt::Key_Up ? -1 : 1);
        }
        event->accept();
        return;
    }
    Entry_Cell::keyPressEvent(event);
}

// Within the field what is being typed, outside of it the entries of the screen.
void Syokuta_Edit::Undo_Last() {
    if (Is_Uncommitted() || isUndoAvailable() || !on_step) {
        undo();
    } else {
        on_step(true);
    }
}

void Syokuta_Edit::Redo_Last() {
    if (Is_Uncommitted() || isRedoAvailable() || !on_step) {
        redo();
    } else {
        on_step(false);
    }
}

} // namespace morvane
