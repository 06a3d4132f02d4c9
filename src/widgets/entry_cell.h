// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/entry_text.h"

#include <QLineEdit>

namespace morvane {

/// An entry cell: tinted while it has the focus, with a key filter that beeps at a key it does not take; all
/// ways in (keys, input method, paste, drop) pass it, and no text comes in with Ctrl, Alt or Meta. An amount
/// is bare in focus and gets its commas when left; a text that is no entry of the kind then goes back to the
/// former value and the focus stays; a mouse click that was to leave the cell does nothing. Full-width digits
/// count as digits. Enter moves on to the next field, Esc takes back what was typed and not taken, and else
/// goes to the form. The first click selects the text, whether it brings the focus or finds it there, a
/// further one places the cursor. A window that comes up over the cell's own does not count as
/// leaving it.
class Entry_Cell : public QLineEdit {
    Q_OBJECT

  public:
    explicit Entry_Cell(Entry_Kind entry_kind, QWidget* parent = nullptr);

    void Set_Kind(Entry_Kind entry_kind);
    [[nodiscard]] Entry_Kind Kind() const { return kind; }

    /// The keys that a Choice takes.
    void Set_Choices(const QString& keys) { choices = keys; }

    /// The width that shows so many half-width characters.
    void Set_Width(int characters);

    /// How many characters can be typed. Values of the program are never cut, and the commas of an amount do
    /// not count. In place of the line edit's own limit.
    void setMaxLength(int characters) { max_length = characters; }
    [[nodiscard]] int maxLength() const { return max_length; }

    /// A locked cell takes the focus but no key.
    void Set_Locked(bool locked);

    /// Shows a value; Null is blank.
    void Set_Value(const Value& value);

    /// The entry: Null where it is blank, a number for Amount, Figure and Digits, else text. A text that is
    /// no entry of the kind gives the last value that was.
    [[nodiscard]] Value Entry() const;

    /// The text as typed, without commas.
    [[nodiscard]] QString Bare() const;
    [[nodiscard]] std::string Bare_Text() const { return Bare().toStdString(); }

    /// Takes what is typed and composed as the entry. A text that is no entry of the kind goes back to the
    /// former value with a beep: false.
    bool Finish_Entry();

    /// Whether something is typed that was not taken yet.
    [[nodiscard]] bool Is_Uncommitted() const;

    /// Whether the entry was refused on leaving and the focus is on its way back.
    [[nodiscard]] bool Is_Called_Back() const { return called_back; }

  Q_SIGNALS:
    void Entered();    ///< the focus has come
    void Left();       ///< the focus has gone and the entry holds
    void Next_Field(); ///< Enter was pressed and the entry holds
    void Refused();    ///< a key or a text was refused, with a beep

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    /// Takes a text from the clipboard or a drop in place of the selected text.
    virtual void Take_Pasted(const QString& pasted);

    /// Asked when the focus has gone and the text is an entry; false calls the focus back.
    virtual bool May_Leave() { return true; }

    /// Undoes the last change of the text in this cell, and does again what was undone.
    virtual void Undo_Last() { undo(); }
    virtual void Redo_Last() { redo(); }

    void Take_Text(const QString& input);
    void Commit_Composition();
    void Refuse();

    /// A click has selected the text: the next one places the cursor.
    void Note_Click() { clicked = true; }

  private:
    QString Fitting(QString kept, bool& refused) const;
    void Begin_Entry();
    void Leave();
    void Call_Back();
    void Restore();
    bool Is_Command(QKeyEvent* event);
    void Show_Value();

    Entry_Kind kind = Entry_Kind::Text;
    QString choices;
    int max_length = 32767;
    bool in_entry = false; ///< from the coming of the focus until it goes to another widget
    Value held;            ///< the last value that was set or taken
    QString accepted;      ///< the same as bare text
    QString formatted;     ///< how it is shown while the cell is not in entry, or locked
    bool called_back = false;
    bool clicked = false;    ///< a click has selected the text
    bool clicked_in = false; ///< its button is still down
    QPoint pressed_at;       ///< where it went down
    QString composing;       ///< what the input method has not committed yet
};

} // namespace morvane
