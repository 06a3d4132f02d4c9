// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_figures.h"

#include <array>
#include <cmath>
#include <initializer_list>

namespace morvane {

namespace {

namespace e = y_element;

using Places = std::initializer_list<e::Place>;

Sheet_Line Element_Line(e::Place place) {
    return {y_elements[place].name, [place](const Check_Figures& f) { return Number(f.y.elements[place]); }};
}

/// "純支払利息比率（Ｘ１）".
std::string Name_Of(const Y_Indicator& indicator) {
    return std::string(indicator.name.name) + "（" + indicator.sign + "）";
}

Sheet_Line Indicator_Line(std::size_t x, const char* behind = "") {
    return {Name_Of(y_indicators[x - 1]) + behind,
            [x](const Check_Figures& f) { return Fixed_Str(f.y.indicators[x - 1], 3); }};
}

Sheet_Line Points_Line(const char* caption) {
    return {caption, [](const Check_Figures& f) { return Fixed_Str(f.y.points, 2); }};
}

std::string Rounding_Text(int decimals) {
    return "（小数点以下" + std::to_string(decimals) + "位未満の端数は四捨五入）";
}

std::string Limits_Text(const Y_Indicator& indicator) {
    return "上限は" + Fixed_Str(indicator.upper.Single(), 1) + "、下限は" +
           Fixed_Str(indicator.lower.Single(), 1) + "です。";
}

/// The sheet of indicator `x`, 1 to 8.
Sheet_Text Indicator_Sheet(std::size_t x, Places inputs, const std::string& formula) {
    const Y_Indicator& indicator = y_indicators[x - 1];
    Sheet_Text sheet = {
        .mode = "Y-X" + std::to_string(x),
        .title = "（" + std::string(indicator.sign) + "）" + indicator.name.name + " 計算詳細チェック",
        .amounts = true,
        .formula = {formula},
        .results = {Indicator_Line(x, "：")},
        .closing = {Rounding_Text(indicator.decimals)},
        .more = [&indicator](const Check_Figures& /*f*/,
                             Check_Sheet& shown) { shown.closing.push_back(Limits_Text(indicator)); },
        .steps = [x](const Check_Figures& f, Steps& steps) { Steps_Of_Indicator(x, f, steps); }};
    for (const e::Place place : inputs) {
        sheet.inputs.push_back(Element_Line(place));
    }
    return sheet;
}

constexpr std::array year_ends = {"（前々期）", "（前期）", "（当期）"};

// The operating cash flow of a year, 0 the prior, 1 the current one: the figures of the year and what
// balances fell by.
std::string Flow_Formula(std::size_t year) {
    const std::string before = year_ends[year];
    const std::string now = year_ends[year + 1];
    std::string text = "算出額" + now + " ＝";
    for (const Y_Flow_Part& part : y_flow_amounts) {
        const char* const sign = &part == y_flow_amounts.data() ? " " : part.adds ? " ＋ " : " － ";
        text += sign + (part.name + now);
    }
    for (const Y_Flow_Part& part : y_flow_balances) {
        text += (part.adds ? " ＋ （" : " － （") + (part.name + before) + " － " + part.name + now + "）";
    }
    return text;
}

Sheet_Text Cash_Flow() {
    Sheet_Text sheet = Indicator_Sheet(7, {}, "");
    for (std::size_t i = 0; i < y_flow_amounts.size(); ++i) {
        for (std::size_t year = 0; year < 2; ++year) {
            sheet.inputs.push_back(
                {std::string(y_flow_amounts[i].name) + year_ends[year + 1],
                 [i, year](const Check_Figures& f) { return Number(f.y.flow.amounts[i][year]); }});
        }
    }
    for (std::size_t i = 0; i < y_flow_balances.size(); ++i) {
        for (std::size_t end = 0; end < year_ends.size(); ++end) {
            sheet.inputs.push_back(
                {std::string(y_flow_balances[i].name) + year_ends[end],
                 [i, end](const Check_Figures& f) { return Number(f.y.flow.balances[i][end]); }});
        }
    }
    sheet.formula = {Flow_Formula(0), Flow_Formula(1), "二期平均額 = （算出額（前期） + 算出額（当期））／ 2",
                     "二期平均額 ／ " + Number(thousand_yen_of_oku)};
    sheet.results = {{"算出額（前期）：", Element_Line(e::prior_cash_flow).value},
                     {"算出額（当期）：", Element_Line(e::cash_flow).value},
                     Indicator_Line(7, "：")};
    return sheet;
}

Sheet_Text Capital() {
    Sheet_Text sheet = Indicator_Sheet(3, {e::prior_total_capital, e::total_capital, e::gross_profit},
                                       "売上総利益 ／（（総資本（前期） ＋ 総資本（当期））／2）× 100");
    const std::string least = Number(y_least_capital) + "千円";
    sheet.closing.push_back("総資本の平均が" + least + "（" + Number(y_least_capital.Count() / 10) +
                            "万円）に満たないときは" + least + "とします。");
    return sheet;
}

/// The points A of the weighted indicators.
Sheet_Text Points_Sheet() {
    Sheet_Text sheet = {.mode = "Y-A",
                        .title = "（Ａ）経営状況点数 計算詳細チェック",
                        .results = {Points_Line("経営状況点数（Ａ）：")},
                        .closing = {Rounding_Text(2)},
                        .steps = Steps_Of_A};
    std::string formula;
    for (std::size_t i = 0; i < y_indicators.size(); ++i) {
        const double weight = y_indicators[i].weight;
        const char* const sign = weight < 0 ? "－" : "＋";
        formula += i == 0 ? std::string(sign) : " " + std::string(sign) + " ";
        formula += Expression(std::abs(weight), y_weight_decimals).text + " × " + y_indicators[i].sign;
        sheet.inputs.push_back(Indicator_Line(i + 1));
    }
    sheet.formula = {formula + " ＋ " + Expression(y_points_base, y_weight_decimals).text};
    return sheet;
}

Sheet_Text Score_Sheet() {
    const auto score = [](const Check_Figures& f) {
        return f.y.score == Points() ? std::string() : Number(f.y.score);
    };
    return {.mode = "Y",
            .title = "（Ｙ）経営状況評点 計算詳細チェック",
            .inputs = {Points_Line("経営状況点数")},
            .formula = {Decimal(y_score_factor) + " × 経営状況点数 + " + Number(y_score_base)},
            .results = {{"経営状況評点（Ｙ）：", score}},
            .closing = {"（小数点以下の端数は四捨五入）", "0に満たないときは0となります。"},
            .steps = Steps_Of_Y};
}

} // namespace

const std::vector<Sheet_Text>& Y1_Sheets() {
    static const std::vector<Sheet_Text> sheets = [] {
        std::vector<Sheet_Text> all = {
            Indicator_Sheet(1, {e::sales, e::interest_received, e::interest_paid},
                            "（支払利息 － 受取利息配当金）／ 売上高 × 100"),
            Indicator_Sheet(2, {e::sales, e::current_liabilities, e::fixed_liabilities},
                            "（流動負債 ＋ 固定負債） ／ （売上高 ／ 12）"),
            Capital(),
            Indicator_Sheet(4, {e::ordinary_profit, e::sales}, "経常（事業主）利益 ／ 売上高 × 100"),
            Indicator_Sheet(5, {e::equity, e::fixed_assets}, "自己資本 ／ 固定資産 × 100"),
            Indicator_Sheet(6, {e::equity, e::total_capital}, "自己資本 ／ 総資本（当期）× 100"),
            Cash_Flow(),
            Indicator_Sheet(8, {e::retained_earnings}, "利益剰余金 ／ " + Number(thousand_yen_of_oku)),
            Points_Sheet(),
            Score_Sheet()};
        for (Sheet_Text& sheet : all) {
            sheet.form = "Frm_Y1_Calc_Check";
            sheet.help_key = sheet.mode;
        }
        return all;
    }();
    return sheets;
}

} // namespace morvane
