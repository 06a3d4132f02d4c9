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

namespace morvane {

Entry_Cell::Entry_Cell(Entry_Kind entry_kind, QWidget* parent) : QLineEdit(parent) {
    Set_Kind(entry_kind);
}

void Entry_Cell::Set_Kind(Entry_Kind entry_kind) {
    kind = entry_kind;
    // A kana mode left on must not swallow figures.
    setAttribute(Qt::WA_InputMethodEnabled, kind == Entry_Kind::Text);
    setAlignment((kind == Entry_Kind::Amount ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
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
    setReadOnly(locked);
}

void Entry_Cell::Set_Value(const Value& value) {
    accepted = QString::fromStdString(value.As_Text());
    if (hasFocus()) {
        setText(accepted);
    } else {
        in_entry = false;
        Show_Formatted();
    }
}

QString Entry_Cell::Bare() const {
    if (!in_entry && text() == formatted) {
        return accepted;
    }
    QString bare = text();
    if (kind == Entry_Kind::Amount) {
        bare.remove(QLatin1Char(','));
    }
    return bare;
}

Value Entry_Cell::Entry() const {
    QString bare = Bare();
    if (kind == Entry_Kind::Amount && !bare.isEmpty() && !Is_Number(bare)) {
        bare = accepted;
    }
    return Entry_Value(kind, bare);
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
    const bool is_figure = kind == Entry_Kind::Amount || kind == Entry_Kind::Digits;
    const QString bare = is_figure ? Bare_Figure(pasted) : pasted.trimmed();
    QString figure = Filtered_Text(kind, choices, bare, refused);
    figure = Fitting(figure, refused);
    if (refused) {
        Refuse();
    } else {
        Take_Text(figure);
    }
}

void Entry_Cell::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (Finish_Entry()) {
            Q_EMIT Next_Field();
        }
        event->accept();
        return;
    }
    if (event->matches(QKeySequence::Paste)) {
        Take_Pasted(QApplication::clipboard()->text());
        event->accept();
        return;
    }
    if (event->matches(QKeySequence::Undo)) {
        Undo_Last();
        event->accept();
        return;
    }
    const bool is_command =
        (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    const QString typed = event->text();
    if (!is_command && !typed.isEmpty() && (typed.front().isPrint() || typed.front().isSurrogate())) {
        Take_Text(typed);
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
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
    if (kind == Entry_Kind::Amount && !bare.isEmpty() && !Is_Number(bare)) {
        setText(accepted);
        selectAll();
        Refuse();
        return false;
    }
    accepted = bare;
    return true;
}

void Entry_Cell::Begin_Entry() {
    const QString bare = Bare();
    in_entry = true;
    if (kind == Entry_Kind::Amount) {
        setText(bare);
    }
}

void Entry_Cell::Leave() {
    if (!Finish_Entry() || !May_Leave()) {
        // The focus cannot be called back while it is on its way.
        QTimer::singleShot(0, this, [this] { setFocus(Qt::OtherFocusReason); });
        return;
    }
    in_entry = false;
    Show_Formatted();
    Q_EMIT Left();
}

void Entry_Cell::focusInEvent(QFocusEvent* event) {
    const bool comes = !in_entry;
    if (comes) {
        Begin_Entry();
    }
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::ActiveWindowFocusReason &&
        event->reason() != Qt::PopupFocusReason) {
        selectAll();
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

void Entry_Cell::mouseReleaseEvent(QMouseEvent* event) {
    QClipboard* clipboard = QApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
        deselect();
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

void Entry_Cell::Show_Formatted() {
    formatted = accepted;
    if (kind == Entry_Kind::Amount && Is_Number(accepted)) {
        formatted = QString::fromStdString(Comma_Str(Value(accepted.toDouble())));
    }
    setText(formatted);
}

} // namespace morvane
