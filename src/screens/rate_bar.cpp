// SPDX-FileCopyrightText: The Morvane developers
#include "screens/rate_bar.h"

#include "widgets/theme.h"

#include <QPainter>
#include <algorithm>

namespace morvane {

namespace {

constexpr int bar_height = 12;
constexpr int text_height = 13;
constexpr double text_points = 8.5;

} // namespace

Rate_Bar::Rate_Bar(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Rate_Bar::Set_Ends(const QString& from, const QString& to) {
    lower = from;
    upper = to;
    updateGeometry();
}

void Rate_Bar::Set_Hatched(bool is_hatched) {
    hatched = is_hatched;
    update();
}

void Rate_Bar::Set_Rate(double percent) {
    rate = percent;
    update();
}

QSize Rate_Bar::sizeHint() const {
    return {220, bar_height + (Has_Texts() ? text_height + 2 : 0)};
}

QSize Rate_Bar::minimumSizeHint() const {
    return {90, sizeHint().height()};
}

void Rate_Bar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track(0.5, 0.5, width() - 1.0, bar_height - 1.0);
    painter.setPen(QColor(theme::line));
    painter.setBrush(QColor(theme::window));
    painter.drawRoundedRect(track, 3, 3);
    const double filled = track.width() * std::clamp(rate, 0.0, 100.0) / 100.0;
    if (filled > 0.0) {
        const QRectF reached(track.left(), track.top(), std::max(filled, 2.0), track.height());
        painter.setPen(hatched ? QPen(QColor(theme::muted)) : QPen(Qt::NoPen));
        painter.setBrush(hatched ? QBrush(QColor(theme::muted), Qt::BDiagPattern)
                                 : QBrush(QColor(theme::accent)));
        painter.drawRoundedRect(reached, 3, 3);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const int quarter : {1, 2, 3}) {
        const int x = width() * quarter / 4;
        const bool on_colour = x < filled && !hatched;
        QColor tick(on_colour ? QColor(Qt::white) : QColor(theme::line));
        tick.setAlphaF(on_colour ? 0.45F : 1.0F);
        painter.setPen(tick);
        painter.drawLine(x, 3, x, bar_height - 4);
    }
    if (Has_Texts()) {
        painter.setFont(theme::Gothic(text_points));
        painter.setPen(QColor(theme::muted));
        const QRect room(0, bar_height + 1, width(), text_height);
        painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, lower);
        painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, upper);
    }
}

} // namespace morvane
