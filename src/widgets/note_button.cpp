// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/note_button.h"

#include "session/kyotu_mod.h"
#include "widgets/theme.h"

#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

namespace morvane {

namespace {

constexpr int side = 18;

// A sheet with a turned corner and lines; yellow where something is written on it.
QPixmap Note_Picture(bool lit, qreal scale) {
    QPixmap picture(QSize(side, side) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = QColor(lit ? theme::accent : theme::muted);
    painter.setPen(QPen(ink, 1.2));
    painter.setBrush(lit ? QColor(0xFF, 0xD8, 0x4D) : QColor(theme::surface));
    painter.drawPolygon(QPolygonF({{3, 1.5}, {11, 1.5}, {15, 5.5}, {15, 16.5}, {3, 16.5}}));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({{11, 1.5}, {11, 5.5}, {15, 5.5}}));
    if (lit) {
        for (const qreal y : {8.5, 11.0, 13.5}) {
            painter.drawLine(QPointF(5.5, y), QPointF(12.5, y));
        }
    }
    return picture;
}

QIcon Note_Icon(bool lit) {
    QIcon icon;
    for (const qreal scale : {1.0, 1.25, 1.5, 2.0}) {
        icon.addPixmap(Note_Picture(lit, scale));
    }
    return icon;
}

} // namespace

Note_Button::Note_Button(Shell_Port& shell_port, QWidget* parent)
    : QPushButton(QStringLiteral("メモ"), parent), shell(shell_port) {
    setObjectName(QStringLiteral("Cmd_QandA"));
    setAccessibleName(QStringLiteral("メモ"));
    setAutoDefault(false);
    setIconSize({side, side});
    connect(this, &QPushButton::clicked, this, [this] {
        shell.Guard([this] {
            shell.Open_Form(QStringLiteral("Frm_QandA"));
            Refresh();
        });
    });
    Refresh();
}

void Note_Button::Refresh() {
    lit = QandA_Flag(shell.session, shell.menu.screen.number);
    setIcon(Note_Icon(lit));
    const QString state =
        lit ? QStringLiteral("この画面のメモがあります。") : QStringLiteral("この画面のメモはありません。");
    setToolTip(state);
    setAccessibleDescription(state);
}

} // namespace morvane
