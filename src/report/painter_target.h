// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/report_font.h"

#include <QFont>
#include <map>

class QPainter;

namespace morvane {

/// Draws a page of a report with a painter, on the preview.
class Painter_Target : public Print_Target {
  public:
    /// `dots_per_mm` tells how many of the painter's units make a millimetre.
    Painter_Target(QPainter& the_painter, double dots_per_mm) : painter(the_painter), scale(dots_per_mm) {}

    void Text(const std::string& text, double x, double y, Report_Face face, double size) override;
    void Line(double x1, double y1, double x2, double y2, const Report_Pen& pen) override;
    void Box(double x1, double y1, double x2, double y2, const Report_Pen& pen) override;
    void Circle(double x, double y, double radius, const Report_Pen& pen) override;
    void Fill(std::span<const Point> corners, std::uint32_t color) override;
    void Page_End() override {}

  private:
    const QFont& Font_Of(const Report_Font& font, Report_Face face);
    void Take_Pen(const Report_Pen& pen);

    QPainter& painter;
    double scale;
    std::map<const Report_Font*, QFont> fonts; ///< as the painter has them
};

} // namespace morvane
