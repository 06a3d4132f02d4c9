// SPDX-FileCopyrightText: The Morvane developers
#include "law/elements.h"
#include "law/work_types.h"
#include "report/cell_table.h"
#include "report/kekka_rows.h"
#include "report/kekka_sheet.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane::kekka_sheet {

namespace {

using Of_Line = const Figure& (*)(const Work_Line&);

template <auto Member>
const Figure& Of(const Work_Line& line) {
    return line.*Member;
}

template <std::size_t Kind>
const Figure& Engineers(const Work_Line& line) {
    return line.gijutusya[Kind - 1];
}

// In columns as narrow as their figures: amounts have seven digits in full size, ten in the least one.
constexpr Type amount_type = {font_p_mincho, 7.0F, Align::Right, 0.5F, Overflow::Figure};
constexpr Type count_type = {font_p_mincho, 7.0F, Align::Right, 0.35F, Overflow::Figure};
constexpr Type points_type = {font_p_gothic, 7.5F, Align::Right, 0.5F, Overflow::Figure};
constexpr Type code_type = {font_p_mincho, 7.0F, Align::Center, 0.2F};
constexpr Type name_type = {font_p_mincho, 7.0F, Align::Left, 0.6F};
constexpr Type total_type = {font_p_gothic, 7.0F, Align::Center};
constexpr float code_width = 5.5F;
constexpr float name_width = 19.2F;
constexpr float amount_width = 13.7F;
constexpr float zi_width = 9.0F;
constexpr float engineers_width = 34.2F; // all of them together
constexpr float row_height = 3.7F;

constexpr const char* kind_head = "建設業工事の種類";
constexpr const char* kanko_head = "完 成 工 事 高";
constexpr const char* motouke_head = "元 請 完 成 工 事 高 及 び 技 術 職 員 数";

/// A column of figures; the amounts have totals.
struct Works_Column {
    Table_Column column;
    Of_Line figure;
    bool has_total = false;
};

/// The width in which all counts of a column can be read in the least size, mm.
float Width_For_Counts(const Page_Layout& page, const Kekka_Figures& kekka, Of_Line figure) {
    constexpr float gap = 0.15F;
    float widest = 0.0F;
    for (const Work_Line& line : kekka.figures.works) {
        widest = std::max(widest, page.Width_Of(Figure_Text(figure(line).value, true), count_type));
    }
    return widest * Page_Layout::least_size / count_type.size + count_type.padding + gap;
}

/// 補佐, the assistants of supervising engineers, came in 2021 and stand by their weight. Counts of five
/// digits and more take from the amounts what their columns lack.
std::vector<Works_Column> Columns_Of(const Page_Layout& page, const Kekka_Figures& kekka, Kekka_Form form) {
    const bool with_hosa = form == Kekka_Form::Rpt_Kekka_2012;
    const float engineer_width = engineers_width / (with_hosa ? 6.0F : 5.0F);
    const char* average = kekka.figures.Yoso(element::years_of_average) == 3 ? "3年平均" : "2年平均";
    std::vector<Works_Column> columns;
    float lacking = 0.0F;
    const auto amount = [&](const char* group, const char* head, Of_Line figure) {
        columns.push_back({{amount_width, amount_type, {group, head}}, figure, true});
    };
    const auto engineers = [&](const char* head, Of_Line figure) {
        const float width = std::max(engineer_width, Width_For_Counts(page, kekka, figure));
        lacking += width - engineer_width;
        columns.push_back({{width, count_type, {motouke_head, head}}, figure});
    };
    columns.push_back({{0, points_type, {"総合\n評点\n（Ｐ）"}}, Of<&Work_Line::P>});
    amount(kanko_head, "基準決算", Of<&Work_Line::Kijun>);
    amount(kanko_head, "以前の決算", Of<&Work_Line::Zheikin>);
    amount(kanko_head, average, Of<&Work_Line::Nheikin>);
    columns.push_back({{0, points_type, {kanko_head, "評点\n（Ｘ1）"}}, Of<&Work_Line::X1>});
    amount(motouke_head, "基準決算", Of<&Work_Line::Mkijun>);
    amount(motouke_head, "以前の決算", Of<&Work_Line::Mzheikin>);
    amount(motouke_head, average, Of<&Work_Line::Mnheikin>);
    engineers("監理", Engineers<1>);
    engineers("1級", Engineers<2>);
    if (with_hosa) {
        engineers("補佐", Engineers<6>);
    }
    engineers("基幹", Engineers<3>);
    engineers("2級", Engineers<4>);
    engineers("他", Engineers<5>);
    columns.push_back({{zi_width, amount_type, {motouke_head, "（Ｚ1）"}}, Of<&Work_Line::Zi>});
    columns.push_back({{zi_width, amount_type, {motouke_head, "（Ｚ2）"}}, Of<&Work_Line::Zro>});
    columns.push_back({{0, points_type, {motouke_head, "評点\n（Ｚ）"}}, Of<&Work_Line::Z>});
    const auto amounts = std::count_if(columns.begin(), columns.end(), std::mem_fn(&Works_Column::has_total));
    for (Works_Column& column : columns) {
        column.column.width -= column.has_total ? lacking / static_cast<float>(amounts) : 0.0F;
    }
    return columns;
}

/// The name of a line on the sheet, shorter than on the screens where that one would not fit.
std::string_view Name_Of(std::size_t line) {
    switch (line) {
    case 5:
        return "とび・土工";
    case 11:
        return "タイル";
    default:
        return work_types[line].name;
    }
}

Table_Row Row_Of(const Kekka_Figures& kekka, const std::vector<Works_Column>& columns, std::size_t line) {
    Table_Row row;
    row.cells.reserve(columns.size() + 2);
    row.cells.push_back({std::string(work_types[line].label)});
    constexpr float indent = 0.6F; // of the lines that are parts of others
    row.cells.push_back({.text = std::string(Name_Of(line)), .indent = Is_Sub_Line(line) ? indent : 0.0F});
    for (const Works_Column& column : columns) {
        row.cells.push_back({Figure_Text(column.figure(kekka.figures.works[line]).value, true)});
    }
    return row;
}

/// The total counts all lines but those that are parts of others.
Table_Row Total_Row(const Kekka_Figures& kekka, const std::vector<Works_Column>& columns) {
    Table_Row row;
    row.cells.push_back({"合　　計", &total_type, 2});
    for (const Works_Column& column : columns) {
        std::int64_t total = 0;
        for (std::size_t line = 0; line < work_line_count && column.has_total; ++line) {
            total += Is_Sub_Line(line) ? 0 : column.figure(kekka.figures.works[line]).value;
        }
        row.cells.push_back({Figure_Text(total, true)});
    }
    return row;
}

} // namespace

float Draw_Works(Page_Layout& page, const Kekka_Figures& kekka, Kekka_Form form, float top) {
    const std::vector<Works_Column> figures = Columns_Of(page, kekka, form);
    std::vector<Table_Column> columns = {{code_width, code_type, {kind_head}},
                                         {name_width, name_type, {kind_head}, Rule::None}};
    for (const Works_Column& column : figures) {
        columns.push_back(column.column);
    }
    std::vector<Table_Row> rows;
    for (std::size_t line = 0; line < scored_lines; ++line) {
        rows.push_back(Row_Of(kekka, figures, line));
    }
    rows.back().below = Rule::Thin;
    rows.push_back(Row_Of(kekka, figures, other_line)); // stands behind the others
    rows.back().below = Rule::Thick;
    rows.push_back(Total_Row(kekka, figures));
    const Cell_Table table(page, printed_area.Width(), std::move(columns), std::move(rows), row_height);
    const float bottom = table.Draw(page, printed_area.left, top);
    page.Box(Rule::Thick, {printed_area.left, top, printed_area.right, bottom});
    return bottom;
}

} // namespace morvane::kekka_sheet
