// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_cell.h"

#include "session/kyotu_mod.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethod>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <utility>

namespace morvane {

namespace {

/// Holds the mouse off while a refused entry is waiting for its focus: what a press was aimed at does not act
/// before the refusal is seen, even where press and release come at once. A button that is still down then is
/// held until it is let go.
class Mouse_Hold : public QObject {
  public:
    explicit Mouse_Hold(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

    void End() {
        ended = true;
        if (QGuiApplication::mouseButtons() == Qt::NoButton) {
            Let_Go();
        }
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!watched->isWidgetType()) {
            return false; // the window keeps its account of the buttons
        }
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            if (ended) {
                Let_Go();
                return false;
            }
            break;
        case QEvent::MouseButtonRelease:
            if (ended) {
                Let_Go();
            }
            break;
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::ContextMenu:
            break;
        default:
            return false;
        }
        event->accept();
        return true;
    }

  private:
    void Let_Go() {
        qApp->removeEventFilter(this);
        deleteLater();
    }

    bool ended = false;
};

} // namespace

Entry_Cell::Entry_Cell(Entry_Kind entry_kind, QWidget* parent) : QLineEdit(parent) {
    Set_Kind(entry_kind);
}

void Entry_Cell::Set_Kind(Entry_Kind entry_kind) {
    kind = entry_kind;
    // A kana mode left on must not swallow figures.
    setAttribute(Qt::WA_InputMethodEnabled, kind == Entry_Kind::Text);
    setAlignment((Has_Commas(kind) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (hasFocus()) {
        QGuiApplication::inputMethod()->update(Qt::ImQueryAll);
    }
}

void Entry_Cell::Set_Width(int characters) {
    // Beside the text stand the padding and border of the theme, the line edit's own margin and the cursor.
    constexpr int beside = 2 * (5 + 1 + 2) + 2;
    ensurePolished();
    setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters + beside);
}

void Entry_Cell::Set_Locked(bool locked) {
    const bool is_held = !Is_Uncommitted();
    setReadOnly(locked);
    if (is_held) {
        Show_Value();
    }
}

void Entry_Cell::Set_Value(const Value& value) {
    held = value;
    accepted = QString::fromStdString(value.As_Text());
    in_entry = hasFocus();
    clicked = false;
    Show_Value();
}

QString Entry_Cell::Bare() const {
    const bool is_formatted = !in_entry || isReadOnly();
    if (is_formatted && text() == formatted) {
        return accepted;
    }
    QString bare = text();
    if (Has_Commas(kind)) {
        bare.remove(QLatin1Char(','));
    }
    return bare;
}

Value Entry_Cell::Entry() const {
    const QString bare = Bare();
    return Is_Entry(kind, choices, bare) ? Entry_Value(kind, bare) : held;
}

bool Entry_Cell::Is_Uncommitted() const {
    return !composing.isEmpty() || Bare() != accepted;
}

// What of a text finds room in place of the selection. A character of two code units is not cut in half.
QString Entry_Cell::Fitting(QString kept, bool& refused) const {
    const qsizetype room = std::max<qsizetype>(max_length - text().size() + selectedText().size(), 0);
    if (kept.size() > room) {
        kept.truncate(room);
        if (!kept.isEmpty() && kept.back().isHighSurrogate()) {
            kept.chop(1);
        }
        refused = true;
    }
    return kept;
}

void Entry_Cell::Refuse() {
    QApplication::beep();
    Q_EMIT Refused();
}

void Entry_Cell::Take_Text(const QString& input) {
    if (isReadOnly()) {
        Refuse();
        return;
    }
    bool refused = false;
    QString kept = Filtered_Text(kind, choices, input, refused);
    if (kind == Entry_Kind::Choice && !kept.isEmpty()) {
        kept = kept.right(1);
        selectAll();
    }
    kept = Fitting(kept, refused);
    if (!kept.isEmpty()) {
        insert(kept);
    }
    if (refused) {
        Refuse();
    }
}

// A figure is pasted whole or not at all: what is left of "1.5" without its point is another figure.
void Entry_Cell::Take_Pasted(const QString& pasted) {
    if (kind == Entry_Kind::Text) {
        Take_Text(pasted.simplified());
        return;
    }
    bool refused = false;
    const QString bare = Is_Whole(kind) ? Bare_Figure(pasted) : pasted.trimmed();
    QString figure = Filtered_Text(kind, choices, bare, refused);
    figure = Fitting(figure, refused);
    if (refused) {
        Refuse();
    } else {
        Take_Text(figure);
    }
}

// The keys that the cell itself acts on, beside the characters.
bool Entry_Cell::Is_Command(QKeyEvent* event) {
    const bool redoes = event->matches(QKeySequence::Redo) ||
                        (event->key() == Qt::Key_Y && event->modifiers() == Qt::ControlModifier);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (Finish_Entry()) {
            Q_EMIT Next_Field();
        }
    } else if (event->key() == Qt::Key_Escape && Is_Uncommitted()) {
        Restore();
    } else if (event->matches(QKeySequence::Paste)) {
        Take_Pasted(QApplication::clipboard()->text());
    } else if (event->matches(QKeySequence::Undo)) {
        Undo_Last();
    } else if (redoes) {
        Redo_Last();
    } else {
        return false;
    }
    return true;
}

// A mnemonic never comes here. What else has a character and Ctrl, Alt or Meta is a slip, not an entry; the
// line edit, which would insert it, never sees a character.
void Entry_Cell::keyPressEvent(QKeyEvent* event) {
    if (Is_Command(event)) {
        event->accept();
        return;
    }
    const QString typed = event->text();
    const bool is_character = !typed.isEmpty() && typed.front().category() != QChar::Other_Control;
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    if (is_character && (modifiers & (Qt::AltModifier | Qt::MetaModifier)) != 0) {
        Refuse();
        event->accept();
    } else if (is_character && (modifiers & Qt::ControlModifier) == 0) {
        Take_Text(typed);
        event->accept();
    } else {
        QKeyEvent bare(event->type(), event->key(), modifiers, {}, event->isAutoRepeat());
        QLineEdit::keyPressEvent(&bare);
        event->setAccepted(bare.isAccepted());
    }
}

void Entry_Cell::Restore() {
    if (!composing.isEmpty()) {
        QGuiApplication::inputMethod()->reset();
        composing.clear();
    }
    Show_Value();
    selectAll();
    Q_EMIT textEdited(text());
}

void Entry_Cell::inputMethodEvent(QInputMethodEvent* event) {
    composing = event->preeditString();
    if (kind != Entry_Kind::Text) {
        if (!event->commitString().isEmpty()) {
            Take_Text(event->commitString());
        }
        event->accept();
        return;
    }
    bool refused = false;
    const QString commit = Fitting(Filtered_Text(kind, choices, event->commitString(), refused), refused);
    QInputMethodEvent fitting(event->preeditString(), event->attributes());
    fitting.setCommitString(commit, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&fitting);
    event->setAccepted(fitting.isAccepted());
    if (refused) {
        Refuse();
    }
}

// What the input method still composes belongs to the entry.
void Entry_Cell::Commit_Composition() {
    if (composing.isEmpty()) {
        return;
    }
    QGuiApplication::inputMethod()->commit();
    if (!composing.isEmpty()) {
        QInputMethodEvent commit;
        commit.setCommitString(composing);
        inputMethodEvent(&commit);
        QGuiApplication::inputMethod()->reset();
    }
}

bool Entry_Cell::Finish_Entry() {
    Commit_Composition();
    const QString bare = Bare();
    if (bare == accepted) {
        return true;
    }
    if (!Is_Entry(kind, choices, bare)) {
        setText(accepted);
        selectAll();
        Refuse();
        return false;
    }
    held = Entry_Value(kind, bare);
    accepted = kind == Entry_Kind::Rounded ? QString::fromStdString(held.As_Text()) : bare;
    return true;
}

void Entry_Cell::Begin_Entry() {
    const QString bare = Bare();
    in_entry = true;
    if (Has_Commas(kind) && !isReadOnly()) {
        setText(bare);
    }
}

void Entry_Cell::Leave() {
    if (!Finish_Entry() || !May_Leave()) {
        called_back = true;
        auto* hold = new Mouse_Hold(this);
        // The focus cannot be called back while it is on its way.
        QTimer::singleShot(0, this, [this, hold] {
            Call_Back();
            hold->End();
        });
        return;
    }
    in_entry = false;
    Show_Value();
    Q_EMIT Left();
}

void Entry_Cell::Call_Back() {
    setFocus(Qt::OtherFocusReason);
    called_back = false;
}

void Entry_Cell::focusInEvent(QFocusEvent* event) {
    const bool comes = !in_entry;
    if (comes) {
        Begin_Entry();
    }
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) {
        selectAll();
        clicked_in = event->reason() == Qt::MouseFocusReason;
        clicked = clicked_in;
    }
    if (comes) {
        Q_EMIT Entered();
    }
}

void Entry_Cell::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
        Leave();
    }
}

// While another window was up, the focus may have been put elsewhere in this one.
bool Entry_Cell::event(QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) {
        clicked_in = false;
    }
    const bool handled = QLineEdit::event(event);
    if (event->type() == QEvent::WindowActivate && in_entry && window()->focusWidget() != this) {
        Leave();
    }
    return handled;
}

bool Entry_Cell::focusNextPrevChild(bool next) {
    return (in_entry && !Finish_Entry()) || QLineEdit::focusNextPrevChild(next);
}

void Entry_Cell::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void Entry_Cell::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [menu](const char* name, const char* caption, bool enabled, auto work) {
        QAction* action = menu->addAction(QString::fromUtf8(caption), work);
        action->setObjectName(QString::fromUtf8(name));
        action->setEnabled(enabled);
    };
    const bool open = !isReadOnly();
    const bool plain = echoMode() == Normal;
    add("Mnu_Undo", "元に戻す(&U)", open, [this] { Undo_Last(); });
    add("Mnu_Redo", "やり直す(&R)", open, [this] { Redo_Last(); });
    menu->addSeparator();
    add("Mnu_Cut", "切り取り(&T)", open && plain && hasSelectedText(), [this] { cut(); });
    add("Mnu_Copy", "コピー(&C)", plain && hasSelectedText(), [this] { copy(); });
    add("Mnu_Paste", "貼り付け(&P)", open && !QApplication::clipboard()->text().isEmpty(),
        [this] { Take_Pasted(QApplication::clipboard()->text()); });
    add("Mnu_Delete", "削除(&D)", open && hasSelectedText(), [this] { del(); });
    menu->addSeparator();
    add("Mnu_Select_All", "すべて選択(&A)", !text().isEmpty(), [this] { selectAll(); });
    menu->popup(event->globalPos());
}

// The first press leaves the text selected, so that what is typed replaces it; dragging from there marks a
// part of it.
void Entry_Cell::mousePressEvent(QMouseEvent* event) {
    const bool is_plain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    const bool is_whole = hasSelectedText() && selectedText() == text() && Bare() == accepted;
    if (is_plain && is_whole && !clicked) {
        clicked_in = true;
    }
    clicked = true;
    if (clicked_in && event->button() == Qt::LeftButton) {
        pressed_at = event->position().toPoint();
        event->accept();
        return;
    }
    QLineEdit::mousePressEvent(event);
}

void Entry_Cell::mouseMoveEvent(QMouseEvent* event) {
    if (clicked_in && (event->buttons() & Qt::LeftButton) != 0) {
        const QPoint way = event->position().toPoint() - pressed_at;
        if (way.manhattanLength() < QApplication::startDragDistance()) {
            return;
        }
        clicked_in = false;
        setCursorPosition(cursorPositionAt(pressed_at));
    }
    QLineEdit::mouseMoveEvent(event);
}

void Entry_Cell::mouseReleaseEvent(QMouseEvent* event) {
    const bool brought_focus = std::exchange(clicked_in, false);
    if (brought_focus && event->button() == Qt::LeftButton) {
        // Not to the selection of the desktop: what stands there may be about to be pasted here.
        event->accept();
        return;
    }
    QClipboard* clipboard = QApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
        // Into another cell's figure nothing is inserted; it is replaced.
        brought_focus ? selectAll() : deselect();
        Take_Pasted(clipboard->text(QClipboard::Selection));
        event->accept();
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

void Entry_Cell::dropEvent(QDropEvent* event) {
    QDragLeaveEvent leave;
    dragLeaveEvent(&leave);
    if (hasFocus()) {
        deselect();
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
    } else {
        setFocus(Qt::OtherFocusReason);
    }
    Take_Pasted(event->mimeData()->text());
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

// Bare in entry; a locked cell keeps its commas there, because nobody types between them.
void Entry_Cell::Show_Value() {
    formatted = accepted;
    if (Has_Commas(kind) && (!held.Is_Text() || Is_Number(accepted))) {
        const Value figure = held.Is_Text() ? Entry_Value(kind, accepted) : held;
        formatted = QString::fromStdString(Comma_Str(figure));
    }
    setText(in_entry && !isReadOnly() ? accepted : formatted);
}

} // namespace morvane
