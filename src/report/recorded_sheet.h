// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/print_target.h"

#include <string>
#include <variant>
#include <vector>

namespace morvane {

struct Drawn_Text {
    std::string text;
    double x, y;
    Report_Face face;
    double size;
};
struct Drawn_Line {
    double x1, y1, x2, y2;
    Report_Pen pen;
};
struct Drawn_Box {
    double x1, y1, x2, y2;
    Report_Pen pen;
};
struct Drawn_Circle {
    double x, y, radius;
    Report_Pen pen;
};
struct Drawn_Fill {
    std::vector<Point> corners;
    std::uint32_t color;
};
using Drawn = std::variant<Drawn_Text, Drawn_Line, Drawn_Box, Drawn_Circle, Drawn_Fill>;

/// The operations of a report, page by page: what the preview paints from.
class Recorded_Sheet : public Print_Target {
  public:
    void Text(const std::string& text, double x, double y, Report_Face face, double size) override;
    void Line(double x1, double y1, double x2, double y2, const Report_Pen& pen) override;
    void Box(double x1, double y1, double x2, double y2, const Report_Pen& pen) override;
    void Circle(double x, double y, double radius, const Report_Pen& pen) override;
    void Fill(std::span<const Point> corners, std::uint32_t color) override;
    void Page_End() override { ended = true; }

    void Clear();

    /// Draws a page on another target.
    void Play(std::size_t page, Print_Target& target) const;

    [[nodiscard]] const std::vector<std::vector<Drawn>>& Pages() const { return pages; }

  private:
    void Add(Drawn drawn);

    std::vector<std::vector<Drawn>> pages = {{}};
    bool ended = false; ///< the next operation begins a page
};

} // namespace morvane
