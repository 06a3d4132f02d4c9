// SPDX-FileCopyrightText: The Morvane developers
#include "report/chart_view.h"

#include "report/painter_target.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace morvane {

namespace {

// What the texts are larger than on paper: there they are read from nearer.
constexpr double least_zoom = 1.1;
constexpr double usual_zoom = 1.3;
constexpr double largest_zoom = 1.6;
/// Of a large window the chart itself takes most, the texts less.
constexpr double part_of_texts = 0.7;

} // namespace

Chart_View::Chart_View(const Radar_Chart& shown, QWidget* parent)
    : QWidget(parent), chart(shown), least(Least_Room(shown)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    QStringList told;
    for (std::size_t axis = 0; axis < chart.axes.size(); ++axis) {
        QString line = QString::fromStdString(chart.axes[axis]);
        for (const Chart_Series& series : chart.series) {
            if (axis < series.values.size()) {
                line += QString::fromStdString(series.name + " " + series.values[axis]);
            }
        }
        told.push_back(line);
    }
    setAccessibleDescription(told.join(QStringLiteral("、")));
}

QSize Chart_View::Room_At(double zoom) const {
    const double dots = logicalDpiX() / Print_Target::mm_per_inch * zoom;
    return {static_cast<int>(std::ceil(static_cast<double>(least.width) * dots)),
            static_cast<int>(std::ceil(static_cast<double>(least.height) * dots))};
}

QSize Chart_View::sizeHint() const {
    return Room_At(usual_zoom / part_of_texts);
}

QSize Chart_View::minimumSizeHint() const {
    return Room_At(least_zoom);
}

double Chart_View::Dots_Per_Mm() const {
    const double dots = logicalDpiX() / Print_Target::mm_per_inch;
    const double room =
        std::min(width() / static_cast<double>(least.width), height() / static_cast<double>(least.height));
    return dots * std::clamp(part_of_texts * room / dots, least_zoom, largest_zoom);
}

void Chart_View::Draw(Print_Target& target) const {
    const Print_State state;
    Prt_ModSet operations(state, target);
    Page_Layout page(operations);
    const double dots = Dots_Per_Mm();
    Draw_Radar(page, {0, 0, static_cast<float>(width() / dots), static_cast<float>(height() / dots)}, chart);
    page.End_Page();
}

void Chart_View::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    Painter_Target target(painter, Dots_Per_Mm());
    Draw(target);
}

} // namespace morvane
