// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/cell_table.h"
#include "report/report_heading.h"

#include <memory>
#include <string>
#include <vector>

namespace morvane {

/// The part of the sheet that reports print on, mm.
inline constexpr Area printed_area = {12.0F, 8.0F, 198.0F, 287.5F};

/// Draws what stands at the head of each page: date, office, title, firm and period; at the right above the
/// body a note, as of the unit. Gives where the body begins.
float Draw_Page_Head(Page_Layout& page, const Report_Heading& heading, const std::string& title,
                     const std::string& note);

/// What fills the pages of a report from top to bottom. It is parted between rows of tables and between
/// paragraphs; a table goes on under its head, a title stays with what follows. Each page has the head of the
/// report, and where there are several its number at the foot.
class Page_Flow {
  public:
    Page_Flow(Page_Layout& page_layout, const Report_Heading& report_heading, std::string report_title,
              std::string report_note)
        : page(page_layout), heading(report_heading), title(std::move(report_title)),
          note(std::move(report_note)) {}

    /// The title of a section, also in the list of contents.
    void Section(std::string text);
    void Paragraph(const std::string& text, const Type& type);
    /// A table in a thick frame. It must live until Print.
    void Table(const Cell_Table& table);
    void Space(float height);
    void New_Page();

    /// Draws all pages; gives their number.
    std::size_t Print();

  private:
    /// What is not parted: a row of a table, a line of a paragraph, a title, room.
    struct Piece {
        float height;
        bool keeps = false; ///< on one page with the next one
        const Cell_Table* table = nullptr;
        std::size_t row = 0;
        std::string text = {};
        Type type = {};
        bool is_section = false;
        bool begins_page = false;
    };

    [[nodiscard]] std::size_t Page_End(std::size_t first, float height) const;
    void Draw_Pieces(std::size_t first, std::size_t behind, float top);
    void Draw_Foot(std::size_t number, std::size_t count);

    Page_Layout& page;
    const Report_Heading& heading;
    const std::string title, note;
    std::vector<Piece> pieces;
};

} // namespace morvane
