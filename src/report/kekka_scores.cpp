// SPDX-FileCopyrightText: The Morvane developers
#include "report/kekka_rows.h"
#include "report/kekka_sheet.h"
#include "screens/keiei.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace morvane::kekka_sheet {

namespace {

constexpr float band_height = 5.0F;
constexpr float total_height = 6.5F;

/// The heading of a section; gives the room between it and that of the score below.
Area Draw_Heading(Page_Layout& page, const Area& area, const char* heading) {
    page.Text({area.left, area.top, area.right, area.top + band_height}, heading, heading_type);
    return {area.left, area.top + band_height, area.right, area.bottom - total_height};
}

/// The frame of a section, over all other rules, which would notch it.
void Draw_Frame(Page_Layout& page, const Area& area) {
    page.Thin(area.left, area.top + band_height, area.right, area.top + band_height);
    page.Thick(area.left, area.bottom - total_height, area.right, area.bottom - total_height);
    page.Thick_Box(area);
}

/// One score with its label, at the foot of its section.
void Kekka_Prev(Page_Layout& page, const Area& area, const char* letter, const std::string& score) {
    const Area foot = {area.left, area.bottom - total_height, area.right, area.bottom};
    page.Text({foot.left, foot.top, foot.left + 15, foot.bottom}, "評点",
              {font_p_gothic, 9.0F, Align::Spread});
    page.Text({foot.left + 15, foot.top, foot.left + 35, foot.bottom}, letter, total_label_type);
    page.Text({foot.right - 30, foot.top, foot.right, foot.bottom}, score, total_type);
}

/// An amount of a period: 0 is one, "－" stands where there is no statement.
std::string Amount_Text(const std::optional<std::int32_t>& amount) {
    return amount ? Figure_Text(*amount) : "－";
}

/// Pale rules between the rows of a table.
void Draw_Grid(Page_Layout& page, const Table_Cells& cells, std::size_t rows) {
    for (std::size_t row = 1; row < rows; ++row) {
        page.Pale(cells.area.left, cells.Y(row), cells.area.right, cells.Y(row));
    }
}

// ---- Y

struct Indicator {
    const char* label;
    const char* unit;
};

constexpr std::array<Indicator, 8> indicators = {{{"純支払利息比率", "%"},
                                                  {"負債回転期間", "月"},
                                                  {"純資本売上総利益率", "%"},
                                                  {"売上高経常利益率", "%"},
                                                  {"自己資本固定資産比率", "%"},
                                                  {"自己資本比率", "%"},
                                                  {"営業CF", "億円"},
                                                  {"利益剰余金", "億円"}}};

/// The elements of Y with two periods: their places in Y_Calc::Y_Yoso, whose seventh and last are former
/// figures.
struct Balance_Item {
    const char* label;
    std::size_t place;
};

constexpr std::array<Balance_Item, 12> balance_items = {{{"固定資産", 0},
                                                         {"流動負債", 1},
                                                         {"固定負債", 2},
                                                         {"利益剰余金", 3},
                                                         {"自己資本", 4},
                                                         {"総資本", 5},
                                                         {"売上高", 7},
                                                         {"売上総利益", 8},
                                                         {"受取利息配当金", 9},
                                                         {"支払利息", 10},
                                                         {"経常利益", 11},
                                                         {"営業CF", 12}}};

/// The indicators, in two columns of four.
void Draw_Indicators(Page_Layout& page, const Area& area, const Kekka_Figures& kekka) {
    constexpr std::size_t rows = indicators.size() / 2;
    const float half = area.Width() / 2;
    const std::array<Table_Column, 6> columns = {{{half - 21.0F, label_type},
                                                  {14.0F, score_type},
                                                  {7.0F, label_type},
                                                  {half - 21.0F, label_type},
                                                  {14.0F, score_type},
                                                  {0.0F, label_type}}};
    const Table_Cells cells(area, columns, rows);
    Draw_Grid(page, cells, rows);
    for (const std::size_t column : {1U, 4U}) {
        page.Pale(cells.X(column), area.top, cells.X(column), area.bottom);
    }
    page.Thin(cells.X(3), area.top, cells.X(3), area.bottom);
    for (std::size_t i = 0; i < indicators.size(); ++i) {
        const std::size_t row = i % rows;
        const std::size_t column = i / rows * 3;
        const std::string figure = kekka.y.has_figures ? Fixed_Str(kekka.y.Y_Kekka[i], 3) : "－";
        page.Text(cells.Cell(row, column), indicators[i].label, label_type);
        page.Text(cells.Cell(row, column + 1), figure, score_type);
        page.Text(cells.Cell(row, column + 2), indicators[i].unit, label_type);
    }
}

/// The elements of the indicators in both periods, a heading above them.
void Draw_Balance(Page_Layout& page, const Area& area, const Kekka_Figures& kekka) {
    constexpr std::array<Table_Column, 3> columns = {
        {{32.0F, label_type}, {32.0F, figure_type}, {0.0F, figure_type}}};
    const Table_Cells cells(area, columns, balance_items.size() + 1);
    Draw_Grid(page, cells, balance_items.size() + 1);
    for (const std::size_t column : {1U, 2U}) {
        page.Pale(cells.X(column), area.top, cells.X(column), area.bottom);
    }
    page.Text(cells.Cell(0, 1), "(当期)", head_type);
    page.Text(cells.Cell(0, 2), "(前期)", head_type);
    page.Thin(area.left, cells.Y(1), area.right, cells.Y(1));
    for (std::size_t i = 0; i < balance_items.size(); ++i) {
        const std::size_t place = balance_items[i].place;
        const std::optional<std::int32_t> now =
            kekka.y.has_figures ? std::optional(kekka.y.Y_Yoso[place]) : std::nullopt;
        page.Text(cells.Cell(i + 1, 0), balance_items[i].label, label_type);
        page.Text(cells.Cell(i + 1, 1), Amount_Text(now), figure_type);
        page.Text(cells.Cell(i + 1, 2), Amount_Text(kekka.y_zenki[place]), figure_type);
    }
}

// ---- W

/// A rule under each row: black under a sub-score, and past the points only where these end.
void Draw_Social_Rules(Page_Layout& page, const Table_Cells& cells, const std::vector<Social_Row>& rows) {
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const float y = cells.Y(i);
        if (rows[i - 1].is_score) {
            page.Thin(cells.area.left, y, cells.area.right, y);
            continue;
        }
        bool inside = false;
        for (std::size_t k = i; k < rows.size(); ++k) {
            inside = inside || static_cast<std::size_t>(rows[k].rows_of_points) > k - i + 1;
        }
        page.Pale(cells.area.left, y, inside ? cells.X(2) : cells.area.right, y);
    }
}

/// The texts of one kind in all rows.
std::vector<std::string> Texts_Of(const std::vector<Social_Row>& rows, std::string Social_Row::*member) {
    std::vector<std::string> texts;
    for (const Social_Row& row : rows) {
        texts.push_back(row.*member);
    }
    return texts;
}

void Draw_Social_Rows(Page_Layout& page, const Table_Cells& cells, const std::vector<Social_Row>& rows) {
    const auto fitted = [&](std::size_t column, std::string Social_Row::*member) {
        return page.Fitted(cells.Cell(0, column).Width(), cells.columns[column].type, Texts_Of(rows, member));
    };
    const Type label = fitted(0, &Social_Row::label);
    const Type value = fitted(1, &Social_Row::value);
    const Type score_label = {font_p_gothic, label.size, label.align, label.padding};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Social_Row& row = rows[i];
        const auto first = i + 1 - static_cast<std::size_t>(row.rows_of_points);
        page.Text(cells.Cell(i, 0), row.label, row.is_score ? score_label : label);
        page.Text(cells.Cell(i, 1), row.value, value);
        page.Text(cells.Cells(first, 2, i, 2), row.points, row.is_score ? score_type : figure_type);
    }
    Draw_Social_Rules(page, cells, rows);
}

} // namespace

void Draw_X2(Page_Layout& page, const Kekka_Figures& kekka) {
    constexpr std::array<Table_Column, 6> columns = {{{20.0F, label_type},
                                                      {18.0F, figure_type},
                                                      {18.0F, figure_type},
                                                      {8.5F, head_type},
                                                      {18.0F, figure_type},
                                                      {0.0F, score_type}}};
    const Area inner = Draw_Heading(page, x2_area, "自己資本額及び利益額");
    const Table_Cells cells(inner, columns, 3);
    page.Pale(inner.left, cells.Y(2), inner.right, cells.Y(2));
    for (const std::size_t column : {1U, 2U, 3U, 5U}) {
        page.Pale(cells.X(column), inner.top, cells.X(column), inner.bottom);
    }
    page.Thin(inner.left, cells.Y(1), inner.right, cells.Y(1));
    page.Text(cells.Cell(0, 1), "(当期)", head_type);
    page.Text(cells.Cell(0, 2), "(前期)", head_type);
    page.Text(cells.Cells(0, 3, 0, 4), "数値", {font_p_mincho, 7.0F, Align::Spread});
    page.Text(cells.Cell(0, 5), "評点", {font_p_mincho, 7.0F, Align::Spread});

    const X2_Calc& x2 = kekka.x2;
    const bool has_zenki = kekka.has_zenki;
    const auto row = [&](std::size_t at, const char* label, const std::array<std::int32_t, 2>& ki,
                         const char* basis, std::int32_t used, std::int16_t score) {
        page.Text(cells.Cell(at, 0), label, label_type);
        page.Text(cells.Cell(at, 1), Figure_Text(ki[1]), figure_type);
        page.Text(cells.Cell(at, 2), has_zenki ? Figure_Text(ki[0]) : "－", figure_type);
        page.Text(cells.Cell(at, 3), basis, columns[3].type);
        page.Text(cells.Cell(at, 4), Figure_Text(used), figure_type);
        page.Text(cells.Cell(at, 5), Figure_Text(score), score_type);
    };
    row(1, "自己資本額", x2.Jiko, x2.JikoS == 1 ? "(基準)" : "(平均)", x2.X2_Jiko_Used, x2.X2_1_Ten);
    row(2, "利益額", x2.Rieki, "(平均)", x2.X2_Rieki_Used, x2.X2_2_Ten);
    Kekka_Prev(page, x2_area, "（Ｘ2）", Figure_Text(x2.X2_Ten));
    Draw_Frame(page, x2_area);
}

void Draw_Y(Page_Layout& page, const Kekka_Figures& kekka) {
    // Heading, indicators, heading, elements: rows of one height.
    constexpr std::size_t indicator_rows = 1 + indicators.size() / 2;
    constexpr std::size_t rows = indicator_rows + 1 + balance_items.size();
    const Area inner = Draw_Heading(page, y_area, "経営状況");
    const float row = inner.Height() / static_cast<float>(rows);
    const float head = inner.top + row;
    const float middle = inner.top + row * static_cast<float>(indicator_rows);
    page.Text({inner.left, inner.top, inner.right, head}, "経営状況分析の指標", head_type);
    Draw_Indicators(page, {inner.left, head, inner.right, middle}, kekka);
    Draw_Balance(page, {inner.left, middle, inner.right, inner.bottom}, kekka);
    page.Thin(inner.left, head, inner.right, head);
    page.Thin(inner.left, middle, inner.right, middle);
    Kekka_Prev(page, y_area, "（Ｙ）", Figure_Text(kekka.y.Y_Ten));
    Draw_Frame(page, y_area);
}

void Draw_W(Page_Layout& page, const Kekka_Figures& kekka, Kekka_Form form) {
    constexpr std::array<Table_Column, 3> columns = {{{55.6F, {font_p_mincho, 7.0F, Align::Left, 0.6F}},
                                                      {23.0F, {font_p_mincho, 7.0F, Align::Center, 0.3F}},
                                                      {0.0F, figure_type}}};
    const Area inner = Draw_Heading(page, w_area, "その他の審査項目（社会性等）");
    const std::vector<Social_Row> rows = Social_Rows(kekka, form);
    const float head_height = inner.Height() / static_cast<float>(rows.size() + 1);
    const Area list = {inner.left, inner.top + head_height, inner.right, inner.bottom};
    const Table_Cells head({inner.left, inner.top, inner.right, list.top}, columns, 1);
    page.Text(head.Cell(0, 0), "審査項目", head_type);
    page.Text(head.Cell(0, 1), "内容", head_type);
    page.Text(head.Cell(0, 2), "評点", head_type);
    for (const std::size_t column : {1U, 2U}) {
        page.Pale(head.X(column), inner.top, head.X(column), inner.bottom);
    }
    page.Thin(list.left, list.top, list.right, list.top);
    Draw_Social_Rows(page, Table_Cells(list, columns, rows.size()), rows);
    Kekka_Prev(page, w_area, "（Ｗ）", Score_Text(kekka, 200));
    Draw_Frame(page, w_area);
}

} // namespace morvane::kekka_sheet
