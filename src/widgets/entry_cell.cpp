// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_cell.h"

#include "session/kyotu_mod.h"

#include <QApplication>
#include <QClipboard>
#include <QFocusEvent>
#include <QInputMethod>
#include <QKeyEvent>
#include <QTimer>

namespace morvane {

namespace {

// A full-width digit, minus or blank as its ASCII twin.
QChar Half_Width(QChar c) {
    const char16_t code = c.unicode();
    if (code >= u'０' && code <= u'９') {
        return QChar(static_cast<char16_t>(code - u'０' + u'0'));
    }
    if (code == u'－' || code == u'−' || code == u'△' || code == u'▲') {
        return QLatin1Char('-');
    }
    return c;
}

bool Is_Number(const QString& bare) {
    bool is_number = false;
    static_cast<void>(bare.toDouble(&is_number));
    return is_number;
}

} // namespace

Entry_Cell::Entry_Cell(Entry_Kind entry_kind, QWidget* parent) : QLineEdit(parent), kind(entry_kind) {
    if (kind != Entry_Kind::Text) {
        // A kana mode left on must not swallow figures.
        setAttribute(Qt::WA_InputMethodEnabled, false);
        setAlignment(kind == Entry_Kind::Amount ? Qt::AlignRight | Qt::AlignVCenter
                                                : Qt::AlignLeft | Qt::AlignVCenter);
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
    setText(accepted);
    if (!hasFocus()) {
        Show_Formatted();
    }
}

QString Entry_Cell::Bare() const {
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
    if (bare.isEmpty()) {
        return {};
    }
    if (kind == Entry_Kind::Amount) {
        const double number = bare.toDouble();
        return number;
    }
    if (kind == Entry_Kind::Digits) {
        bool fits = false;
        const qlonglong number = bare.toLongLong(&fits);
        return fits ? Value(static_cast<std::int64_t>(number)) : Value(bare.toDouble());
    }
    return bare.toStdString();
}

QString Entry_Cell::Filtered(const QString& input, bool& refused) const {
    refused = false;
    QString kept;
    for (const QChar original : input) {
        const QChar c = kind == Entry_Kind::Text ? original : Half_Width(original);
        const bool is_digit = c >= QLatin1Char('0') && c <= QLatin1Char('9');
        bool takes = false;
        switch (kind) {
        case Entry_Kind::Text:
            takes = c.isPrint();
            break;
        case Entry_Kind::Digits:
            takes = is_digit;
            break;
        case Entry_Kind::Amount:
            takes = is_digit || c == QLatin1Char('-');
            break;
        case Entry_Kind::Choice:
            takes = choices.contains(c);
            break;
        }
        if (takes) {
            kept += c;
        } else {
            refused = true;
        }
    }
    return kept;
}

void Entry_Cell::Take_Text(const QString& input) {
    bool refused = false;
    QString kept = Filtered(input, refused);
    if (isReadOnly()) {
        QApplication::beep();
        return;
    }
    if (kind == Entry_Kind::Choice && !kept.isEmpty()) {
        kept = kept.right(1);
        selectAll();
    }
    const qsizetype room = maxLength() - text().size() + selectedText().size();
    if (kept.size() > room) {
        kept.truncate(std::max<qsizetype>(room, 0));
        refused = true;
    }
    if (refused) {
        QApplication::beep();
    }
    if (!kept.isEmpty()) {
        insert(kept);
    }
}

void Entry_Cell::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT Next_Field();
        event->accept();
        return;
    }
    if (event->matches(QKeySequence::Paste)) {
        // A copied column or a formatted figure: white space around it and commas are no part of the number.
        QString pasted = QApplication::clipboard()->text().trimmed();
        if (kind == Entry_Kind::Amount) {
            pasted.remove(QLatin1Char(','));
        }
        Take_Text(pasted);
        event->accept();
        return;
    }
    const bool is_command =
        (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    const QString typed = event->text();
    if (!is_command && !typed.isEmpty() && typed.front().isPrint()) {
        Take_Text(typed);
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void Entry_Cell::inputMethodEvent(QInputMethodEvent* event) {
    if (kind == Entry_Kind::Text || event->commitString().isEmpty()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    Take_Text(event->commitString());
    event->accept();
}

void Entry_Cell::focusInEvent(QFocusEvent* event) {
    if (kind == Entry_Kind::Amount) {
        setText(Bare());
    }
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::ActiveWindowFocusReason &&
        event->reason() != Qt::PopupFocusReason) {
        selectAll();
    }
    Q_EMIT Entered();
}

void Entry_Cell::focusOutEvent(QFocusEvent* event) {
    if (kind == Entry_Kind::Text) {
        // What the input method still composes belongs to the entry.
        QGuiApplication::inputMethod()->commit();
    }
    QLineEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason) {
        return;
    }
    if (kind == Entry_Kind::Amount && !text().isEmpty() && !Is_Number(Bare())) {
        QApplication::beep();
        setText(accepted);
        QTimer::singleShot(0, this, [this] { setFocus(Qt::OtherFocusReason); });
        return;
    }
    accepted = Bare();
    Show_Formatted();
    Q_EMIT Left();
}

void Entry_Cell::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void Entry_Cell::Show_Formatted() {
    if (kind == Entry_Kind::Amount) {
        setText(QString::fromStdString(Comma_Str(Entry())));
    }
}

} // namespace morvane
