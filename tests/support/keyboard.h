// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "support/ui_fixture.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>

namespace morvane::tests {

/// Shows a window and waits until the keys are its.
inline void Show(QWidget& form) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
}

/// A key into the widget that has the focus.
inline void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

/// Characters of any width into it.
inline void Type(const std::string& keys) {
    for (const char32_t c : QString::fromStdString(keys).toUcs4()) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&c, 1));
        QApplication::sendEvent(QApplication::focusWidget(), &press);
    }
}

/// A text of the clipboard into it.
inline void Paste(const char* text) {
    QApplication::clipboard()->setText(QString::fromUtf8(text));
    Key(Qt::Key_V, Qt::ControlModifier);
}

/// Its name.
inline std::string Place() {
    return QApplication::focusWidget()->objectName().toStdString();
}

/// The text of a label or an entry cell.
inline std::string Shown(QWidget& form, const char* name) {
    return Child<QWidget>(form, name)->property("text").toString().toStdString();
}

} // namespace morvane::tests
