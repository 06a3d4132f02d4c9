// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/message_windows.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <QPushButton>
#include <array>

namespace morvane {

namespace {

struct Button_Row {
    Answer answer;
    QMessageBox::StandardButton button;
    const char* caption;
};

constexpr std::array<Button_Row, 4> button_rows = {{
    {Answer::Ok, QMessageBox::Ok, "OK"},
    {Answer::Cancel, QMessageBox::Cancel, "キャンセル"},
    {Answer::Yes, QMessageBox::Yes, "はい(&Y)"},
    {Answer::No, QMessageBox::No, "いいえ(&N)"},
}};

bool Has(Buttons buttons, Answer answer) {
    switch (buttons) {
    case Buttons::Ok:
        return answer == Answer::Ok;
    case Buttons::Ok_Cancel:
        return answer == Answer::Ok || answer == Answer::Cancel;
    case Buttons::Yes_No:
        return answer == Answer::Yes || answer == Answer::No;
    }
    return false;
}

} // namespace

Answer Message_Windows::Show(const Message_Box& box) {
    QMessageBox window(QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget()
                                                                    : QApplication::activeWindow());
    window.setObjectName(QStringLiteral("Message_Box"));
    window.setWindowTitle(box.title.empty() ? QStringLiteral("Morvane") : QString::fromStdString(box.title));
    window.setTextFormat(Qt::PlainText);
    window.setText(QString::fromStdString(box.text));
    const QIcon icon(box.icon == Icon::Information ? QStringLiteral(":/notice.svg")
                                                   : QStringLiteral(":/warning.svg"));
    window.setIconPixmap(icon.pixmap(40, 40));
    for (const Button_Row& row : button_rows) {
        if (!Has(box.buttons, row.answer)) {
            continue;
        }
        QPushButton* button = window.addButton(row.button);
        button->setText(QString::fromUtf8(row.caption));
        button->setIcon({});
        if (row.answer == box.default_answer) {
            window.setDefaultButton(button);
        }
    }
    // Esc and the close button of the window never mean yes.
    if (box.buttons == Buttons::Yes_No) {
        window.setEscapeButton(QMessageBox::No);
    }
    if (box.beep) {
        QApplication::beep();
    }
    const int pressed = window.exec();
    for (const Button_Row& row : button_rows) {
        if (pressed == row.button) {
            return row.answer;
        }
    }
    return box.buttons == Buttons::Yes_No ? Answer::No : Answer::Cancel;
}

} // namespace morvane
