// SPDX-FileCopyrightText: The Morvane developers
#include "report/recorded_sheet.h"

#include <utility>

namespace morvane {

namespace {

struct Player {
    Print_Target& target;

    void operator()(const Drawn_Text& t) const { target.Text(t.text, t.x, t.y, t.face, t.size); }
    void operator()(const Drawn_Line& l) const { target.Line(l.x1, l.y1, l.x2, l.y2, l.pen); }
    void operator()(const Drawn_Box& b) const { target.Box(b.x1, b.y1, b.x2, b.y2, b.pen); }
    void operator()(const Drawn_Circle& c) const { target.Circle(c.x, c.y, c.radius, c.pen); }
    void operator()(const Drawn_Fill& f) const { target.Fill(f.corners, f.color); }
};

} // namespace

void Recorded_Sheet::Add(Drawn drawn) {
    if (ended) {
        pages.emplace_back();
        ended = false;
    }
    pages.back().push_back(std::move(drawn));
}

void Recorded_Sheet::Text(const std::string& text, double x, double y, Report_Face face, double size) {
    Add(Drawn_Text{text, x, y, face, size});
}

void Recorded_Sheet::Line(double x1, double y1, double x2, double y2, const Report_Pen& pen) {
    Add(Drawn_Line{x1, y1, x2, y2, pen});
}

void Recorded_Sheet::Box(double x1, double y1, double x2, double y2, const Report_Pen& pen) {
    Add(Drawn_Box{x1, y1, x2, y2, pen});
}

void Recorded_Sheet::Circle(double x, double y, double radius, const Report_Pen& pen) {
    Add(Drawn_Circle{x, y, radius, pen});
}

void Recorded_Sheet::Fill(std::span<const Point> corners, std::uint32_t color) {
    Add(Drawn_Fill{{corners.begin(), corners.end()}, color});
}

void Recorded_Sheet::Clear() {
    pages.assign(1, {});
    ended = false;
}

void Recorded_Sheet::Play(std::size_t page, Print_Target& target) const {
    for (const Drawn& drawn : pages.at(page)) {
        std::visit(Player{target}, drawn);
    }
}

} // namespace morvane
