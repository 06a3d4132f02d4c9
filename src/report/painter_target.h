// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/print_target.h"

#include <QFont>
#include <functional>

class QPainter;

namespace morvane {

/// Draws a report with a painter: on the preview, or page by page on a printer.
class Painter_Target : public Print_Target {
  public:
    /// `dots_per_mm` tells how many of the painter's units make a millimetre; `new_page` ends a page of the
    /// device (none: there is one page only).
    Painter_Target(QPainter& the_painter, double dots_per_mm, std::function<void()> new_page = {});

    void Text(const std::string& text, double x, double y, Report_Face face, double size) override;
    void Line(double x1, double y1, double x2, double y2, const Report_Pen& pen) override;
    void Box(double x1, double y1, double x2, double y2, const Report_Pen& pen) override;
    void Circle(double x, double y, double radius, const Report_Pen& pen) override;
    void Page_End() override { ended = true; }

  private:
    void Begin();
    void Take_Pen(const Report_Pen& pen);

    QPainter& painter;
    double scale;
    QFont gothic;
    QFont mincho;
    std::function<void()> end_page;
    bool ended = false; ///< the next operation begins a page
};

} // namespace morvane
