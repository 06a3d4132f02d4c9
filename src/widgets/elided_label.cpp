// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/elided_label.h"

#include "widgets/phrases.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QToolTip>
#include <algorithm>

namespace morvane {

QSize Elided_Label::sizeHint() const {
    return lines == 1 ? QLabel::sizeHint() : minimumSizeHint();
}

QSize Elided_Label::minimumSizeHint() const {
    const QSize natural = QLabel::sizeHint();
    const int few = fontMetrics().horizontalAdvance(QStringLiteral("事業所…"));
    return {std::min(natural.width(), few), natural.height() + (lines - 1) * fontMetrics().lineSpacing()};
}

QStringList Elided_Label::Shown_Lines() const {
    const int width = contentsRect().width();
    QStringList shown = Lines_By_Phrases(text(), fontMetrics(), width, lines);
    if (!shown.isEmpty() && fontMetrics().horizontalAdvance(shown.last().trimmed()) > width) {
        shown.last() = fontMetrics().elidedText(shown.last(), Qt::ElideRight, width);
    }
    return shown;
}

void Elided_Label::paintEvent(QPaintEvent* /*event*/) {
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    painter.setFont(font());
    painter.setPen(option.palette.color(foregroundRole()));
    painter.drawText(contentsRect(), static_cast<int>(alignment()), Shown_Lines().join(QLatin1Char('\n')));
}

bool Elided_Label::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && !Is_Whole()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }
    return QLabel::event(event);
}

} // namespace morvane
