// SPDX-FileCopyrightText: The Morvane developers
#include "report/page_flow.h"

#include "report/line_break.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr float body_top = 30.5F;
constexpr float title_size = 15.0F;
constexpr float foot_height = 5.0F;
constexpr Type section_type = {font_p_gothic, 10.0F, Align::Left, 0.0F};
constexpr Type foot_type = {font_p_mincho, 9.0F, Align::Center};

} // namespace

float Draw_Page_Head(Page_Layout& page, const Report_Heading& heading, const std::string& title,
                     const std::string& note) {
    constexpr float name_left = 30.0F;
    constexpr float name_room = 128.0F;
    constexpr Type plain_right = {font_p_mincho, 9.0F, Align::Right};
    constexpr Type plain = {font_p_mincho, 9.0F};
    constexpr Type name_type = {font_p_mincho, 12.0F};
    const auto& [left, top, right, bottom] = printed_area;
    page.Text({left, top, 60, 12}, "印刷日：" + heading.print_date, plain);
    page.Text({60, top, right, 12}, heading.office_name, plain_right);
    page.Text({left, 12, right, 19}, title, {font_p_mincho, title_size, Align::Center});
    page.Text({left, 21, name_left, 28}, "事業所名：", plain);
    const float width = std::min(name_room, page.Width_Of(heading.Jigyo_Name, name_type) + 2.0F);
    page.Text({name_left, 21, name_left + width, 28}, heading.Jigyo_Name, name_type);
    page.Text({name_left + width + 1, 21, right, 28}, "（第" + std::to_string(heading.Syori_Ki) + "期決算）",
              plain);
    page.Text({120, body_top - 4, right, body_top}, note, {font_p_mincho, 7.0F, Align::Right});
    return body_top;
}

void Page_Flow::Section(std::string text) {
    constexpr float height = 7.0F;
    pieces.push_back(
        {.height = height, .keeps = true, .text = std::move(text), .type = section_type, .is_section = true});
}

void Page_Flow::Paragraph(const std::string& text, const Type& type) {
    const auto lines = Break_Lines(text, printed_area.Width() - 2 * type.padding,
                                   [&](std::string_view part) { return page.Width_Of(part, type); });
    for (std::size_t i = 0; i < lines.size(); ++i) {
        // Neither its first line nor its last one stands alone on a page.
        const bool keeps = i + 1 < lines.size() && (i == 0 || i + 2 == lines.size());
        pieces.push_back(
            {.height = Page_Layout::Line_Height(type.size), .keeps = keeps, .text = lines[i], .type = type});
    }
}

void Page_Flow::Table(const Cell_Table& table) {
    for (std::size_t row = 0; row < table.Rows(); ++row) {
        pieces.push_back(
            {.height = table.Row_Height(row), .keeps = table.Keeps(row), .table = &table, .row = row});
    }
}

void Page_Flow::Space(float height) {
    pieces.push_back({.height = height});
}

void Page_Flow::New_Page() {
    pieces.push_back({.height = 0, .begins_page = true});
}

/// The pieces of a page from `first` on: as many as its height takes, fewer where the last of them keep with
/// what follows.
std::size_t Page_Flow::Page_End(std::size_t first, float height) const {
    float used = 0;
    std::size_t behind = first;
    while (behind < pieces.size()) {
        const Piece& piece = pieces[behind];
        const bool begins_table =
            piece.table != nullptr && (behind == first || pieces[behind - 1].table != piece.table);
        used += piece.height + (begins_table ? piece.table->Head_Height() : 0.0F);
        if (behind > first && (used > height || piece.begins_page)) {
            break;
        }
        ++behind;
    }
    if (behind == pieces.size() || pieces[behind].begins_page) {
        return behind;
    }
    std::size_t end = behind;
    while (end > first && pieces[end - 1].keeps) {
        --end;
    }
    return end > first ? end : behind;
}

void Page_Flow::Draw_Pieces(std::size_t first, std::size_t behind, float top) {
    const auto& [left, page_top, right, bottom] = printed_area;
    for (std::size_t i = first; i < behind;) {
        const Piece& piece = pieces[i];
        if (piece.table != nullptr) {
            std::size_t end = i;
            while (end < behind && pieces[end].table == piece.table) {
                ++end;
            }
            const float under = piece.table->Draw(page, left, top, piece.row, pieces[end - 1].row + 1);
            page.Box(Rule::Thick, {left, top, left + piece.table->Width(), under});
            top = under;
            i = end;
            continue;
        }
        if (piece.is_section) {
            page.Entry(piece.text, top);
        }
        page.Text({left, top, right, top + piece.height}, piece.text, piece.type);
        top += piece.height;
        ++i;
    }
}

void Page_Flow::Draw_Foot(std::size_t number, std::size_t count) {
    const float bottom = printed_area.bottom;
    page.Text({printed_area.left, bottom - foot_height, printed_area.right, bottom},
              std::to_string(number) + " / " + std::to_string(count) + "頁", foot_type);
}

std::size_t Page_Flow::Print() {
    const float room = printed_area.bottom - foot_height - 1.0F - body_top;
    std::vector<std::size_t> ends;
    for (std::size_t first = 0; first < pieces.size() || ends.empty(); first = ends.back()) {
        ends.push_back(Page_End(first, room));
    }
    std::size_t first = 0;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        const float top = Draw_Page_Head(page, heading, title, note);
        Draw_Pieces(first, ends[i], top);
        if (ends.size() > 1) {
            Draw_Foot(i + 1, ends.size());
        }
        page.End_Page();
        first = ends[i];
    }
    return ends.size();
}

} // namespace morvane
