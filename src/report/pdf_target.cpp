// SPDX-FileCopyrightText: The Morvane developers
#include "report/pdf_target.h"

#include "report/report_font.h"

#include <algorithm>
#include <cairo-pdf.h>
#include <numbers>
#include <stdexcept>
#include <utility>

namespace morvane {

namespace {

constexpr double points_per_mm = 1.0 / Print_Target::mm_per_point;

cairo_status_t Take(void* closure, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

Pdf_Target::Pdf_Target(const std::string& title)
    : surface(cairo_pdf_surface_create_for_stream(Take, &bytes, sheet_width * points_per_mm,
                                                  sheet_height * points_per_mm)),
      pen_of_page(nullptr) {
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, Drawable(title).c_str());
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_CREATOR, "Morvane");
    pen_of_page = cairo_create(surface);
    cairo_scale(pen_of_page, points_per_mm, points_per_mm);
}

Pdf_Target::~Pdf_Target() {
    cairo_destroy(pen_of_page);
    cairo_surface_destroy(surface);
}

void Pdf_Target::Begin() {
    if (ended) {
        cairo_show_page(pen_of_page);
        ended = false;
    }
}

void Pdf_Target::Text(const std::string& text, double x, double y, Report_Face face, double size) {
    Begin();
    cairo_set_source_rgb(pen_of_page, 0, 0, 0);
    cairo_set_font_face(pen_of_page, Font_Face_Of(face));
    cairo_set_font_size(pen_of_page, size * mm_per_point);
    cairo_move_to(pen_of_page, x, y + baseline * size * mm_per_point);
    cairo_show_text(pen_of_page, text.c_str());
}

void Pdf_Target::Stroke(const Report_Pen& pen) {
    const auto part = [&](int shift) { return static_cast<double>((pen.color >> shift) & 0xffU) / 255.0; };
    const double width = std::max<int>(pen.width, 1) * mm_per_inch / dots_per_inch;
    cairo_set_source_rgb(pen_of_page, part(0), part(8), part(16));
    cairo_set_line_width(pen_of_page, width);
    const double dashes[] = {(pen.style == 1 ? 6 : 1) * width, 3 * width};
    cairo_set_dash(pen_of_page, dashes, pen.style == 0 ? 0 : 2, 0);
    cairo_set_line_cap(pen_of_page, pen.style == 0 ? CAIRO_LINE_CAP_SQUARE : CAIRO_LINE_CAP_BUTT);
    cairo_stroke(pen_of_page);
}

void Pdf_Target::Line(double x1, double y1, double x2, double y2, const Report_Pen& pen) {
    Begin();
    cairo_move_to(pen_of_page, x1, y1);
    cairo_line_to(pen_of_page, x2, y2);
    Stroke(pen);
}

void Pdf_Target::Box(double x1, double y1, double x2, double y2, const Report_Pen& pen) {
    Begin();
    cairo_rectangle(pen_of_page, x1, y1, x2 - x1, y2 - y1);
    Stroke(pen);
}

void Pdf_Target::Circle(double x, double y, double radius, const Report_Pen& pen) {
    Begin();
    cairo_new_sub_path(pen_of_page);
    cairo_arc(pen_of_page, x, y, radius, 0, 2 * std::numbers::pi);
    Stroke(pen);
}

std::string Pdf_Target::Finish() {
    cairo_show_page(pen_of_page);
    cairo_surface_finish(surface);
    for (const cairo_status_t status : {cairo_status(pen_of_page), cairo_surface_status(surface)}) {
        if (status != CAIRO_STATUS_SUCCESS) {
            throw std::runtime_error(std::string("PDFを作成できませんでした（") +
                                     cairo_status_to_string(status) + "）。");
        }
    }
    return std::move(bytes);
}

} // namespace morvane
