// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/message_windows.h"

#include "widgets/theme.h"

#include <QApplication>
#include <QMessageBox>
#include <QPainter>
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

// A round sign for a notice, a triangle for a question or warning, in the program's colours.
QPixmap Sign(Icon icon) {
    constexpr int side = 44;
    const qreal scale = qApp->devicePixelRatio();
    QPixmap picture(QSize(side, side) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const bool notice = icon == Icon::Information;
    if (notice) {
        painter.setBrush(QColor(theme::accent));
        painter.drawEllipse(2, 2, side - 4, side - 4);
    } else {
        painter.setBrush(QColor(0xF2, 0xB1, 0x34));
        painter.setPen(QPen(QColor(0xF2, 0xB1, 0x34), 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolygon(QPolygon({QPoint(side / 2, 5), QPoint(side - 5, side - 6), QPoint(5, side - 6)}));
    }
    painter.setPen(notice ? QColor(Qt::white) : QColor(theme::text));
    painter.setFont(theme::Gothic(theme::title_points + 4, true));
    painter.drawText(QRect(0, notice ? 0 : 6, side, side - (notice ? 0 : 6)), Qt::AlignCenter,
                     notice ? QStringLiteral("i") : QStringLiteral("!"));
    return picture;
}

} // namespace

Answer Message_Windows::Show(const Message_Box& box) {
    QMessageBox window(QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget()
                                                                    : QApplication::activeWindow());
    window.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint);
    window.setObjectName(QStringLiteral("Message_Box"));
    window.setWindowTitle(box.title.empty() ? QStringLiteral("Morvane") : QString::fromStdString(box.title));
    window.setTextFormat(Qt::PlainText);
    window.setText(QString::fromStdString(box.text));
    window.setIconPixmap(Sign(box.icon));
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
