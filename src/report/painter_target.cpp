// SPDX-FileCopyrightText: The Morvane developers
#include "report/painter_target.h"

#include "report/report_font.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace morvane {

namespace {

constexpr int font_dots = 64; // any size: fonts come in whole dots only, so that the painter is scaled

QFont Font_Of(Report_Face face) {
    QFont font(QString::fromLatin1(Family_Name(face)));
    font.setStyleHint(face == Report_Face::Gothic ? QFont::SansSerif : QFont::Serif);
    // Unhinted, so that texts are as wide as they were laid out.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(font_dots);
    return font;
}

} // namespace

Painter_Target::Painter_Target(QPainter& the_painter, double dots_per_mm, std::function<void()> new_page)
    : painter(the_painter), scale(dots_per_mm), gothic(Font_Of(Report_Face::Gothic)),
      mincho(Font_Of(Report_Face::Mincho)), end_page(std::move(new_page)) {}

void Painter_Target::Begin() {
    if (ended && end_page) {
        end_page();
    }
    ended = false;
}

void Painter_Target::Text(const std::string& text, double x, double y, Report_Face face, double size) {
    Begin();
    const double dots = size * mm_per_point * scale;
    const double factor = dots / font_dots;
    painter.save();
    painter.setPen(Qt::black);
    painter.setFont(face == Report_Face::Gothic ? gothic : mincho);
    painter.translate(x * scale, y * scale + baseline * dots);
    painter.scale(factor, factor);
    painter.drawText(QPointF(0, 0), QString::fromStdString(text));
    painter.restore();
}

void Painter_Target::Take_Pen(const Report_Pen& pen) {
    const auto part = [&](int shift) { return static_cast<int>((pen.color >> shift) & 0xffU); };
    const Qt::PenStyle style = pen.style == 0 ? Qt::SolidLine : pen.style == 1 ? Qt::DashLine : Qt::DotLine;
    painter.setPen(QPen(QColor(part(0), part(8), part(16)), std::max<int>(pen.width, 1), style, Qt::SquareCap,
                        Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
}

// Straight rules stand on whole dots, so that they are sharp and equally wide.
void Painter_Target::Line(double x1, double y1, double x2, double y2, const Report_Pen& pen) {
    Begin();
    Take_Pen(pen);
    painter.setRenderHint(QPainter::Antialiasing, x1 != x2 && y1 != y2);
    painter.drawLine(QPointF(std::round(x1 * scale), std::round(y1 * scale)),
                     QPointF(std::round(x2 * scale), std::round(y2 * scale)));
}

void Painter_Target::Box(double x1, double y1, double x2, double y2, const Report_Pen& pen) {
    Begin();
    Take_Pen(pen);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.drawRect(QRectF(QPointF(std::round(x1 * scale), std::round(y1 * scale)),
                            QPointF(std::round(x2 * scale), std::round(y2 * scale))));
}

void Painter_Target::Circle(double x, double y, double radius, const Report_Pen& pen) {
    Begin();
    Take_Pen(pen);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.drawEllipse(QPointF(x * scale, y * scale), radius * scale, radius * scale);
}

} // namespace morvane
