// SPDX-FileCopyrightText: The Morvane developers
#include "report/pdf_target.h"

#include "report/report_font.h"

#include <algorithm>
#include <array>
#include <cairo-pdf.h>
#include <cstdio>
#include <numbers>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace morvane {

namespace {

constexpr double points_per_mm = 1.0 / Print_Target::mm_per_point;

cairo_status_t Take(void* closure, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void Take_Color(cairo_t* pen, std::uint32_t color) {
    const auto part = [color](int shift) { return static_cast<double>((color >> shift) & 0xffU) / 255.0; };
    cairo_set_source_rgb(pen, part(0), part(8), part(16));
}

/// Names the language of the texts, for programs that read them aloud, which the library has no way to. The
/// catalogue is the last object of the file, so that of all places only that of the table of objects moves.
void Tell_Language(std::string& pdf) {
    constexpr std::string_view catalogue = "/Type /Catalog\n";
    constexpr std::string_view language = "   /Lang (ja-JP)\n";
    constexpr std::string_view start = "startxref\n";
    const std::size_t place = pdf.rfind(catalogue);
    const std::size_t table = pdf.rfind("\nxref\n");
    const std::size_t told = pdf.rfind(start);
    if (place == std::string::npos || table == std::string::npos || told == std::string::npos ||
        pdf.find(" obj\n", place) < table) {
        return;
    }
    const std::size_t digits = told + start.size();
    pdf.replace(digits, pdf.find('\n', digits) - digits, std::to_string(table + 1 + language.size()));
    pdf.insert(place + catalogue.size(), language);
}

} // namespace

Pdf_Target::Pdf_Target(const Pdf_Info& info)
    : surface(cairo_pdf_surface_create_for_stream(Take, &bytes, sheet_width * points_per_mm,
                                                  sheet_height * points_per_mm)),
      pen_of_page(nullptr) {
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, Drawable(info.title).c_str());
    if (!info.author.empty()) {
        cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_AUTHOR, Drawable(info.author).c_str());
    }
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
        ++page;
        ended = false;
    }
}

void Pdf_Target::Text(const std::string& text, double x, double y, Report_Face face, double size) {
    Begin();
    const double em = size * mm_per_point;
    const double line = y + baseline * em;
    cairo_set_source_rgb(pen_of_page, 0, 0, 0);
    for (const Font_Run& run : Runs_Of(text, face)) {
        cairo_set_font_face(pen_of_page, run.font->face);
        cairo_set_font_size(pen_of_page, em);
        Show(run, x, line, em);
        x += run.width * em;
    }
}

/// The glyphs of a run with the letters that they stand for, so that the text can be searched.
void Pdf_Target::Show(const Font_Run& run, double x, double y, double em) {
    std::vector<cairo_glyph_t> glyphs;
    std::vector<cairo_text_cluster_t> clusters;
    for (const Run_Glyph& glyph : run.glyphs) {
        glyphs.push_back({glyph.index, x, y});
        clusters.push_back({static_cast<int>(glyph.bytes), 1});
        x += glyph.advance * em;
    }
    cairo_show_text_glyphs(pen_of_page, run.text.c_str(), static_cast<int>(run.text.size()), glyphs.data(),
                           static_cast<int>(glyphs.size()), clusters.data(),
                           static_cast<int>(clusters.size()), static_cast<cairo_text_cluster_flags_t>(0));
}

void Pdf_Target::Stroke(const Report_Pen& pen) {
    const double width = std::max<int>(pen.width, 1) * mm_per_inch / dots_per_inch;
    Take_Color(pen_of_page, pen.color);
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

void Pdf_Target::Fill(std::span<const Point> corners, std::uint32_t color) {
    Begin();
    for (const Point& corner : corners) {
        cairo_line_to(pen_of_page, static_cast<double>(corner.x), static_cast<double>(corner.y));
    }
    cairo_close_path(pen_of_page);
    Take_Color(pen_of_page, color);
    cairo_fill(pen_of_page);
}

void Pdf_Target::Entry(const std::string& title, double y) {
    Begin();
    std::array<char, 48> place{};
    std::snprintf(place.data(), place.size(), "page=%d pos=[0 %d]", page,
                  static_cast<int>(y * points_per_mm));
    cairo_pdf_surface_add_outline(surface, CAIRO_PDF_OUTLINE_ROOT, Drawable(title).c_str(), place.data(),
                                  static_cast<cairo_pdf_outline_flags_t>(0));
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
    Tell_Language(bytes);
    return std::move(bytes);
}

} // namespace morvane
