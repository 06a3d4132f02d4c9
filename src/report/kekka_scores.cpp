// SPDX-FileCopyrightText: The Morvane developers
#include "report/cell_table.h"
#include "report/kekka_rows.h"
#include "report/kekka_sheet.h"
#include "session/kyotu_mod.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace morvane::kekka_sheet {

namespace {

// Sizes: 9 headings, 7.5 scores, 7 everything else.
constexpr Type head_type = {font_p_mincho, 7.0F, Align::Center, 0.0F};
constexpr Type label_type = {font_p_mincho, 7.0F, Align::Left};
constexpr Type figure_type = {font_p_mincho, 7.0F, Align::Right, 1.2F, Overflow::Figure};
constexpr Type score_type = {font_p_gothic, 7.5F, Align::Right, 1.2F, Overflow::Figure};
// In the narrow column of W four digits find room.
constexpr Type points_type = {font_p_mincho, 7.0F, Align::Right, 0.8F, Overflow::Figure};
constexpr Type part_score_type = {font_p_gothic, 7.5F, Align::Right, 0.8F, Overflow::Figure};

/// A part of the sheet: its heading, a table, its score at the foot, all in a frame.
void Draw_Part(Page_Layout& page, const Area& area, const char* heading, Cell_Table& table,
               const char* letter, const std::string& score) {
    constexpr float heading_height = 5.0F;
    constexpr float foot_height = 6.5F;
    constexpr Type score_label_type = {font_p_gothic, 9.0F, Align::Left};
    constexpr Type total_type = {font_p_gothic, 10.5F, Align::Right, 1.2F};
    const float top = area.top + heading_height;
    const float foot = area.bottom - foot_height;
    page.Text({area.left, area.top, area.right, top}, heading, {font_p_gothic, 9.0F, Align::Center});
    page.Draw(Rule::Thin, area.left, top, area.right, top);
    table.Stretch(foot - top);
    table.Draw(page, area.left, top);
    page.Draw(Rule::Thick, area.left, foot, area.right, foot);
    page.Text({area.left, foot, area.right, area.bottom}, std::string("評　点　") + letter, score_label_type);
    page.Text({area.right - 30, foot, area.right, area.bottom}, score, total_type);
    page.Box(Rule::Thick, area);
}

/// An amount of a period: 0 is one, "－" stands where there is no statement.
std::string Amount_Text(const std::optional<Thousand_Yen>& amount) {
    return amount ? Figure_Text(amount->Count()) : "－";
}

// ---- Y

namespace e = y_element;

/// The elements that the sheet prints of two periods, in its order; the two of the period before that are
/// elements of their own stand beside those of the current one.
constexpr std::array balance_items = {e::fixed_assets,
                                      e::current_liabilities,
                                      e::fixed_liabilities,
                                      e::retained_earnings,
                                      e::equity,
                                      e::total_capital,
                                      e::sales,
                                      e::gross_profit,
                                      e::interest_received,
                                      e::interest_paid,
                                      e::ordinary_profit,
                                      e::cash_flow};

/// The indicators with their units, below them the elements that they are formed from, in both periods.
std::vector<Table_Row> Rows_Of_Y(const Kekka_Figures& kekka) {
    std::vector<Table_Row> rows;
    rows.push_back({{{"経営状況分析の指標", &head_type, 4}}, Rule::Thin});
    for (std::size_t i = 0; i < y_indicators.size(); ++i) {
        std::string figure = kekka.y.has_figures ? Fixed_Str(kekka.y.indicators[i], 3) : "－";
        rows.push_back({{{y_indicators[i].name.On_Notice()},
                         {std::move(figure), &score_type, 2},
                         {y_indicators[i].unit.On_Notice(), &label_type}}});
    }
    rows.back().below = Rule::Thin;
    rows.push_back({{{}, {"(当期)", &head_type}, {"(前期)", &head_type, 2}}, Rule::Thin});
    for (const e::Place place : balance_items) {
        const std::optional<Thousand_Yen> now =
            kekka.y.has_figures ? std::optional(kekka.y.elements[place]) : std::nullopt;
        rows.push_back({{{y_elements[place].On_Notice()},
                         {Amount_Text(now)},
                         {Amount_Text(kekka.y_zenki[place]), nullptr, 2}}});
    }
    return rows;
}

// ---- W

/// The rows of the social items: a black rule under each sub-score.
std::vector<Table_Row> Rows_Of_W(const Kekka_Figures& kekka, Kekka_Form form) {
    static constexpr Type score_label = {font_p_gothic, 7.0F, Align::Left, 0.6F};
    std::vector<Table_Row> rows;
    std::size_t covered = 0; // rows whose points stand in a cell above
    for (Social_Row& item : Social_Rows(kekka, form)) {
        Table_Row row = {
            {{std::move(item.label), item.is_score ? &score_label : nullptr}, {std::move(item.value)}},
            item.is_score ? Rule::Thin : Rule::Pale};
        if (covered == 0) {
            const std::size_t of_rows = item.rows_of_points;
            row.cells.push_back(
                {std::move(item.points), item.is_score ? &part_score_type : nullptr, 1, of_rows});
            covered = of_rows;
        }
        --covered;
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace

void Draw_X2(Page_Layout& page, const Kekka_Figures& kekka, const Area& area) {
    const X2_Result& x2 = kekka.x2;
    const auto row = [&](const char* label, const X2_Result::Two_Periods& ki, const char* basis,
                         const X2_Result::Part& part) {
        return Table_Row{{{label},
                          {Figure_Text(ki[1].Count())},
                          {kekka.has_zenki ? Figure_Text(ki[0].Count()) : "－"},
                          {basis},
                          {Figure_Text(part.counted.Count())},
                          {Figure_Text(part.scored.points.Count())}}};
    };
    Cell_Table table(page, area.Width(),
                     {{20.0F, label_type, {""}},
                      {18.0F, figure_type, {"(当期)"}},
                      {18.0F, figure_type, {"(前期)"}},
                      {8.5F, head_type, {"数　　　　　　値"}},
                      {18.0F, figure_type, {"数　　　　　　値"}, Rule::None},
                      {0.0F, score_type, {"評　点"}}},
                     {row("自己資本額", x2.equities, x2.basis == 1 ? "(基準)" : "(平均)", x2.equity),
                      row("利益額", x2.profits, "(平均)", x2.profit)},
                     0);
    Draw_Part(page, area, "自己資本額及び利益額", table, "（Ｘ2）", Figure_Text(x2.score.Count()));
}

void Draw_Y(Page_Layout& page, const Kekka_Figures& kekka, const Area& area) {
    constexpr float unit_width = 8.5F;
    constexpr float period_width = 32.0F;
    Cell_Table table(page, area.Width(),
                     {{0.0F, label_type},
                      {period_width, figure_type},
                      {period_width - unit_width, figure_type},
                      {unit_width, figure_type, {}, Rule::None}},
                     Rows_Of_Y(kekka), 0);
    Draw_Part(page, area, "経営状況", table, "（Ｙ）", Figure_Text(kekka.y.score.Count()));
}

void Draw_W(Page_Layout& page, const Kekka_Figures& kekka, Kekka_Form form, const Area& area) {
    Cell_Table table(page, area.Width(),
                     {{55.6F, {font_p_mincho, 7.0F, Align::Left, 0.6F}, {"審査項目"}},
                      {24.6F, {font_p_mincho, 7.0F, Align::Center, 0.3F}, {"内容"}},
                      {0.0F, points_type, {"評点"}}},
                     Rows_Of_W(kekka, form), 0);
    Draw_Part(page, area, "その他の審査項目（社会性等）", table, "（Ｗ）", Score_Text(kekka, 200));
}

} // namespace morvane::kekka_sheet
