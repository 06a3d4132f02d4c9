// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/figure_label.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace morvane {

namespace {

constexpr double narrowest = 0.7; ///< of the natural width, so that it still reads well

} // namespace

void Paint_Figure(QPainter& painter, const QRect& room, const QString& text, Qt::Alignment alignment) {
    const int width = painter.fontMetrics().horizontalAdvance(text);
    if (width <= room.width()) {
        painter.drawText(room, static_cast<int>(alignment) | Qt::TextSingleLine, text);
        return;
    }
    painter.save();
    painter.translate(room.left(), 0);
    painter.scale(static_cast<double>(room.width()) / width, 1);
    painter.drawText(QRect(0, room.top(), width, room.height()), Qt::AlignLeft | Qt::AlignVCenter, text);
    painter.restore();
}

QSize Figure_Label::minimumSizeHint() const {
    const QSize natural = QLabel::minimumSizeHint();
    const int text_width = fontMetrics().horizontalAdvance(text());
    return {natural.width() - static_cast<int>(text_width * (1 - narrowest)), natural.height()};
}

void Figure_Label::paintEvent(QPaintEvent* event) {
    const QRect room = contentsRect();
    if (fontMetrics().horizontalAdvance(text()) <= room.width()) {
        QLabel::paintEvent(event);
        return;
    }
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    painter.setFont(font());
    painter.setPen(option.palette.color(foregroundRole()));
    Paint_Figure(painter, room, text(), alignment());
}

} // namespace morvane
