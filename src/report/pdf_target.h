// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/print_target.h"

#include <string>

typedef struct _cairo cairo_t;                 // NOLINT(modernize-use-using): as the library declares it
typedef struct _cairo_surface cairo_surface_t; // NOLINT(modernize-use-using)

namespace morvane {

struct Font_Run;

/// What a PDF file tells of itself.
struct Pdf_Info {
    std::string title;
    std::string author; ///< empty: none is named
};

/// A PDF file of A4 sheets with the fonts embedded and the texts as texts.
class Pdf_Target : public Print_Target {
  public:
    explicit Pdf_Target(const Pdf_Info& info);
    ~Pdf_Target() override;

    void Text(const std::string& text, double x, double y, Report_Face face, double size) override;
    void Line(double x1, double y1, double x2, double y2, const Report_Pen& pen) override;
    void Box(double x1, double y1, double x2, double y2, const Report_Pen& pen) override;
    void Circle(double x, double y, double radius, const Report_Pen& pen) override;
    void Fill(std::span<const Point> corners, std::uint32_t color) override;
    void Page_End() override { ended = true; }
    void Entry(const std::string& title, double y) override;

    /// Ends the document and gives its bytes. Raises std::runtime_error (Japanese) where it could not be
    /// made.
    std::string Finish();

  private:
    void Begin();
    void Show(const Font_Run& run, double x, double y, double em);
    void Stroke(const Report_Pen& pen);

    std::string bytes;
    cairo_surface_t* surface;
    cairo_t* pen_of_page;
    int page = 1;
    bool ended = false; ///< the next operation begins a page
};

} // namespace morvane
