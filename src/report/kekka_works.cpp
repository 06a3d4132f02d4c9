// SPDX-FileCopyrightText: The Morvane developers
#include "law/elements.h"
#include "law/work_types.h"
#include "report/kekka_rows.h"
#include "report/kekka_sheet.h"

#include <string_view>
#include <vector>

namespace morvane::kekka_sheet {

namespace {

using Of_Line = const Figure& (*)(const Work_Line&);

template <Figure Work_Line::*Member>
const Figure& Of(const Work_Line& line) {
    return line.*Member;
}

template <std::size_t Kind>
const Figure& Engineers(const Work_Line& line) {
    return line.gijutusya[Kind - 1];
}

// In columns as narrow as their figures.
constexpr Type amount_type = {font_p_mincho, 7.0F, Align::Right, 0.6F};
constexpr Type points_type = {font_p_gothic, 8.0F, Align::Right, 0.6F};

/// A column: its width, the heading over it and over those behind it that have none, its own heading of one
/// to three lines, its figure. The amounts have totals.
struct Works_Column {
    float width;
    const char* group;
    std::vector<const char*> head;
    Of_Line figure;
    Type type = amount_type;
    bool is_amount = false;
};

constexpr Type name_type = {font_p_mincho, 7.0F, Align::Left, 0.7F};
constexpr Type count_type = {font_p_mincho, 7.0F, Align::Right, 0.5F};
constexpr float amount_width = 13.2F;    // seven digits in full size
constexpr float engineers_width = 34.2F; // all of them together
constexpr std::size_t first_figure = 2;  ///< behind code and name
constexpr const char* engineers_group = "元 請 完 成 工 事 高 及 び 技 術 職 員 数";

/// 補佐, the assistants of supervising engineers, came in 2021 and stand by their weight.
std::vector<Works_Column> Columns_Of(const Kekka_Figures& kekka, Kekka_Form form) {
    const bool with_hosa = form == Kekka_Form::Rpt_Kekka_2012;
    const float engineer_width = engineers_width / (with_hosa ? 6.0F : 5.0F);
    const char* average = kekka.figures.Yoso(element::years_of_average) == 3 ? "3年平均" : "2年平均";
    std::vector<Works_Column> columns = {
        {6.0F, "建設業工事の種類", {}, nullptr, {font_p_mincho, 7.0F, Align::Center, 0.4F}},
        {20.0F, nullptr, {}, nullptr, name_type},
        {9.4F, "", {"総合", "評点", "（Ｐ）"}, Of<&Work_Line::P>, points_type},
        {amount_width, "完 成 工 事 高", {"基準決算"}, Of<&Work_Line::Kijun>, amount_type, true},
        {amount_width, nullptr, {"以前の決算"}, Of<&Work_Line::Zheikin>, amount_type, true},
        {amount_width, nullptr, {average}, Of<&Work_Line::Nheikin>, amount_type, true},
        {9.2F, nullptr, {"評点", "（Ｘ1）"}, Of<&Work_Line::X1>, points_type},
        {amount_width, engineers_group, {"基準決算"}, Of<&Work_Line::Mkijun>, amount_type, true},
        {amount_width, nullptr, {"以前の決算"}, Of<&Work_Line::Mzheikin>, amount_type, true},
        {amount_width, nullptr, {average}, Of<&Work_Line::Mnheikin>, amount_type, true},
        {engineer_width, nullptr, {"監理"}, Engineers<1>, count_type},
        {engineer_width, nullptr, {"1級"}, Engineers<2>, count_type},
    };
    if (with_hosa) {
        columns.push_back({engineer_width, nullptr, {"補佐"}, Engineers<6>, count_type});
    }
    for (const auto& [head, figure] : {std::pair<const char*, Of_Line>{"基幹", Engineers<3>},
                                       {"2級", Engineers<4>},
                                       {"他", Engineers<5>}}) {
        columns.push_back({engineer_width, nullptr, {head}, figure, count_type});
    }
    columns.push_back({9.0F, nullptr, {"（Ｚ1）"}, Of<&Work_Line::Zi>});
    columns.push_back({9.0F, nullptr, {"（Ｚ2）"}, Of<&Work_Line::Zro>});
    columns.push_back({0.0F, nullptr, {"評点", "（Ｚ）"}, Of<&Work_Line::Z>, points_type});
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

class Works_Table {
  public:
    Works_Table(Page_Layout& layout, const Kekka_Figures& figures, Kekka_Form form)
        : page(layout), kekka(figures), columns(Columns_Of(figures, form)), plain(Plain(columns)),
          cells({left_edge, works_top + works_head, right_edge, works_bottom}, plain, works_rows),
          texts(columns.size()) {
        for (std::size_t i = first_figure; i < columns.size(); ++i) {
            texts[i] = Texts_Of(columns[i]);
        }
    }

    void Draw() {
        Draw_Rules();
        Draw_Heads();
        for (std::size_t row = 0; row <= scored_lines; ++row) {
            Draw_Code_And_Name(row);
        }
        page.Text(cells.Cells(scored_lines + 1, 0, scored_lines + 1, 1), "合　　計",
                  {font_p_gothic, 7.0F, Align::Center});
        for (std::size_t i = first_figure; i < columns.size(); ++i) {
            const Type type = page.Fitted(cells.Cell(0, i).Width(), columns[i].type, texts[i]);
            for (std::size_t row = 0; row < texts[i].size(); ++row) {
                page.Text(cells.Cell(row, i), texts[i][row], type);
            }
        }
        Draw_Frame();
    }

  private:
    static std::vector<Table_Column> Plain(const std::vector<Works_Column>& columns) {
        std::vector<Table_Column> plain;
        for (const Works_Column& column : columns) {
            plain.push_back({column.width, column.type});
        }
        return plain;
    }

    /// The line that a row shows: その他 stands behind the others.
    static std::size_t Line_Of(std::size_t row) { return row < scored_lines ? row : other_line; }

    /// The entries of a column, from the first line to the total, which counts all lines but those that are
    /// parts of others.
    [[nodiscard]] std::vector<std::string> Texts_Of(const Works_Column& column) const {
        std::vector<std::string> entries;
        std::int64_t total = 0;
        for (std::size_t row = 0; row <= scored_lines; ++row) {
            const std::int32_t figure = column.figure(kekka.figures.works[Line_Of(row)]).value;
            total += Is_Sub_Line(Line_Of(row)) ? 0 : figure;
            entries.push_back(Figure_Text(figure, true));
        }
        entries.push_back(column.is_amount ? Figure_Text(total, true) : "");
        return entries;
    }

    [[nodiscard]] bool Begins_Group(std::size_t column) const {
        return column == columns.size() || columns[column].group != nullptr;
    }

    void Draw_Rules() {
        const float body = cells.Y(0);
        for (std::size_t row = 1; row < works_rows; ++row) {
            page.Pale(left_edge, cells.Y(row), right_edge, cells.Y(row));
        }
        for (std::size_t column = first_figure; column < columns.size(); ++column) {
            const float x = cells.X(column);
            if (Begins_Group(column)) {
                page.Thin(x, works_top, x, works_bottom);
            } else {
                page.Thin(x, works_top + group_height, x, body);
                page.Pale(x, body, x, works_bottom);
            }
        }
        page.Thin(left_edge, body, right_edge, body);
        page.Thin(left_edge, cells.Y(scored_lines), right_edge, cells.Y(scored_lines));
    }

    /// Over all other rules, which would notch it.
    void Draw_Frame() {
        page.Thick(left_edge, cells.Y(scored_lines + 1), right_edge, cells.Y(scored_lines + 1));
        page.Thick_Box({left_edge, works_top, right_edge, works_bottom});
    }

    void Draw_Heads() {
        const float body = cells.Y(0);
        for (std::size_t first = 0; first < columns.size();) {
            std::size_t behind = first + 1;
            while (!Begins_Group(behind)) {
                ++behind;
            }
            const Area group = {cells.X(first), works_top, cells.X(behind), works_top + group_height};
            if (first == 0) {
                page.Text({group.left, works_top, group.right, body}, columns[first].group,
                          {font_p_mincho, 7.0F, Align::Spread});
            } else if (columns[first].group[0] != '\0') {
                page.Text(group, columns[first].group, {font_p_gothic, 7.0F, Align::Center});
                page.Thin(group.left, group.bottom, group.right, group.bottom);
            }
            first = behind;
        }
        for (std::size_t i = first_figure; i < columns.size(); ++i) {
            const bool alone = columns[i].group != nullptr && columns[i].group[0] == '\0';
            Draw_Head({cells.X(i), alone ? works_top : works_top + group_height, cells.X(i + 1), body},
                      columns[i].head);
        }
    }

    void Draw_Head(const Area& area, const std::vector<const char*>& lines) {
        constexpr float line_height = 3.1F;
        float top = (area.top + area.bottom - line_height * static_cast<float>(lines.size())) / 2;
        for (const char* line : lines) {
            page.Text({area.left, top, area.right, top + line_height}, line, head_type);
            top += line_height;
        }
    }

    void Draw_Code_And_Name(std::size_t row) {
        const std::size_t line = Line_Of(row);
        page.Text(cells.Cell(row, 0), std::string(work_types[line].label), columns[0].type);
        Area name = cells.Cell(row, 1);
        name.left += Is_Sub_Line(line) ? 1.2F : 0.0F;
        page.Text(name, std::string(Name_Of(line)), name_type);
    }

    static constexpr float group_height = 4.5F;

    Page_Layout& page;
    const Kekka_Figures& kekka;
    const std::vector<Works_Column> columns;
    const std::vector<Table_Column> plain;
    const Table_Cells cells;
    std::vector<std::vector<std::string>> texts; ///< of the figures, by column
};

} // namespace

void Draw_Works(Page_Layout& page, const Kekka_Figures& kekka, Kekka_Form form) {
    Works_Table(page, kekka, form).Draw();
}

} // namespace morvane::kekka_sheet
