// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/value.h"

#include <QLineEdit>

namespace morvane {

/// What a cell takes from the keyboard.
enum class Entry_Kind {
    Text,   ///< any text
    Digits, ///< "0" to "9"
    Amount, ///< digits and "-"; shown with commas while it has no focus
    Choice  ///< one of a few keys
};

/// An entry cell: tinted while it has the focus, with a key filter that beeps at a key it does not take. An
/// amount is bare in focus and gets its commas when left; a text that is no number then goes back to the
/// former value and the focus stays. Full-width digits count as digits. Enter moves on to the next field.
class Entry_Cell : public QLineEdit {
    Q_OBJECT

  public:
    explicit Entry_Cell(Entry_Kind entry_kind, QWidget* parent = nullptr);

    /// The keys that a Choice takes.
    void Set_Choices(const QString& keys) { choices = keys; }

    /// The width that shows so many half-width characters.
    void Set_Width(int characters);

    /// A locked cell takes the focus but no key.
    void Set_Locked(bool locked);

    /// Shows a value; Null is blank.
    void Set_Value(const Value& value);

    /// The entry: Null where it is blank, a number for Amount and Digits, else text. An entry of Amount that
    /// is no number gives the last one that was.
    [[nodiscard]] Value Entry() const;

    /// The text as typed, without commas.
    [[nodiscard]] QString Bare() const;
    [[nodiscard]] std::string Bare_Text() const { return Bare().toStdString(); }

    /// What remains of a pasted or typed text after the key filter; sets `refused` where something was
    /// dropped.
    [[nodiscard]] QString Filtered(const QString& input, bool& refused) const;

  Q_SIGNALS:
    void Entered();    ///< the focus has come
    void Left();       ///< the focus has gone and the entry holds
    void Next_Field(); ///< Enter was pressed

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void Take_Text(const QString& input);
    void Show_Formatted();

    Entry_Kind kind;
    QString choices;
    QString accepted; ///< the last bare text that was a valid entry
};

} // namespace morvane
