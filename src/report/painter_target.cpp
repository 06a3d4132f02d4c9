// SPDX-FileCopyrightText: The Morvane developers
#include "report/painter_target.h"

#include "report/report_font.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace morvane {

namespace {

constexpr int font_dots = 64; // any size: fonts come in whole dots only, so that the painter is scaled

/// The font of a run, as large as the painter's scale expects.
QFont Painter_Font(const std::string& family, Report_Face face) {
    QFont font(QString::fromStdString(family));
    font.setStyleHint(face == Report_Face::Gothic ? QFont::SansSerif : QFont::Serif);
    // Unhinted, so that texts are as wide as they were laid out; the runs tell the font, not the toolkit.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoFontMerging);
    font.setPixelSize(font_dots);
    return font;
}

QColor Color_Of(std::uint32_t color) {
    const auto part = [color](int shift) { return static_cast<int>((color >> shift) & 0xffU); };
    return {part(0), part(8), part(16)};
}

} // namespace

const QFont& Painter_Target::Font_Of(const Report_Font& font, Report_Face face) {
    const auto found = fonts.find(&font);
    return found != fonts.end() ? found->second
                                : fonts.emplace(&font, Painter_Font(font.family, face)).first->second;
}

void Painter_Target::Text(const std::string& text, double x, double y, Report_Face face, double size) {
    const double dots = size * mm_per_point * scale;
    const double factor = dots / font_dots;
    painter.save();
    painter.setPen(Qt::black);
    painter.translate(x * scale, y * scale + baseline * dots);
    painter.scale(factor, factor);
    QPointF place(0, 0);
    for (const Font_Run& run : Runs_Of(text, face)) {
        painter.setFont(Font_Of(*run.font, face));
        painter.drawText(place, QString::fromStdString(run.drawn));
        place.rx() += run.width * font_dots;
    }
    painter.restore();
}

void Painter_Target::Take_Pen(const Report_Pen& pen) {
    const Qt::PenStyle style = pen.style == 0 ? Qt::SolidLine : pen.style == 1 ? Qt::DashLine : Qt::DotLine;
    // Square ends would fill the gaps between dashes.
    const Qt::PenCapStyle ends = pen.style == 0 ? Qt::SquareCap : Qt::FlatCap;
    // Whole dots of the display at any scale of it, so that rules of a width look alike.
    const double ratio = painter.device()->devicePixelRatio();
    const double width = std::max(std::floor(pen.width * ratio), 1.0) / ratio;
    painter.setPen(QPen(Color_Of(pen.color), width, style, ends, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
}

// Straight rules stand on whole dots, so that they are sharp and equally wide.
void Painter_Target::Line(double x1, double y1, double x2, double y2, const Report_Pen& pen) {
    Take_Pen(pen);
    const bool straight = x1 == x2 || y1 == y2;
    const auto place = [&](double at) { return straight ? std::round(at * scale) : at * scale; };
    painter.setRenderHint(QPainter::Antialiasing, !straight);
    painter.drawLine(QPointF(place(x1), place(y1)), QPointF(place(x2), place(y2)));
}

void Painter_Target::Box(double x1, double y1, double x2, double y2, const Report_Pen& pen) {
    Take_Pen(pen);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.drawRect(QRectF(QPointF(std::round(x1 * scale), std::round(y1 * scale)),
                            QPointF(std::round(x2 * scale), std::round(y2 * scale))));
}

void Painter_Target::Circle(double x, double y, double radius, const Report_Pen& pen) {
    Take_Pen(pen);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.drawEllipse(QPointF(x * scale, y * scale), radius * scale, radius * scale);
}

void Painter_Target::Fill(std::span<const Point> corners, std::uint32_t color) {
    QPolygonF shape;
    for (const Point& corner : corners) {
        shape << QPointF(static_cast<double>(corner.x) * scale, static_cast<double>(corner.y) * scale);
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Color_Of(color));
    painter.drawPolygon(shape);
}

} // namespace morvane
