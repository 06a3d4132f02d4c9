// SPDX-FileCopyrightText: The Morvane developers
#include "screens/syokuta_edit.h"

#include "law/elements.h"
#include "widgets/entry_text.h"

#include <QKeyEvent>
#include <string>

namespace morvane {

namespace {

Entry_Kind Kind_Of(const Element_Info& item) {
    if (item.choice != nullptr) {
        return Entry_Kind::Choice;
    }
    return item.amount ? Entry_Kind::Figure : Entry_Kind::Digits;
}

} // namespace

Syokuta_Edit::Syokuta_Edit(const Syokuta_Cell& field, const Law_Year& law, QWidget* parent)
    : Entry_Cell(Kind_Of(*Find_Element(field.element)), parent), cell(field) {
    const Element_Info& item = *Find_Element(field.element);
    const Choice* choice = Choice_Of(item, law);
    setObjectName(QString::fromUtf8(field.name));
    int digits = 1;
    if (choice != nullptr) {
        Set_Choices(QString::fromUtf8(choice->keys.data(), static_cast<qsizetype>(choice->keys.size())));
    } else {
        digits = static_cast<int>(std::to_string(item.most).size());
    }
    hint = choice != nullptr ? QString::fromStdString(choice->Hint()) : QString::fromUtf8(field.hint);
    setToolTip(hint);
    setAccessibleDescription(hint);
    setMaxLength(digits);
    // The commas of an amount.
    Set_Width(digits + (item.amount ? (digits - 1) / 3 : 0));
    setAlignment((choice != nullptr ? Qt::AlignHCenter : Qt::AlignRight) | Qt::AlignVCenter);
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
