// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_figures.h"

namespace morvane {

namespace {

// A sum in words; one of several terms in brackets.
std::string In_Words(const Twelve_Sum& sum) {
    std::string text = twelve_terms[sum.terms[0]];
    for (std::size_t i = 1; i < sum.size; ++i) {
        text += std::string(i < sum.added ? " ＋ " : " － ") + twelve_terms[sum.terms[i]];
    }
    return sum.size == 1 ? text : "（" + text + "）";
}

void Add_Inputs(Sheet_Text& sheet, const Twelve_Sum& sum) {
    for (std::size_t i = 0; i < sum.size; ++i) {
        const twelve_term::Place place = sum.terms[i];
        const auto named = [place](const Sheet_Line& line) { return line.caption == twelve_terms[place]; };
        if (std::none_of(sheet.inputs.begin(), sheet.inputs.end(), named)) {
            sheet.inputs.push_back({twelve_terms[place],
                                    [place](const Check_Figures& f) { return f.twelve.terms[place].text; }});
        }
    }
}

Sheet_Text Twelve_Sheet(std::size_t i) {
    const Twelve_Indicator& indicator = twelve_indicators[i];
    const bool months = indicator.unit == Twelve_Indicator::Unit::Months;
    const std::string below = In_Words(indicator.below);
    Sheet_Text sheet = {
        .mode = "T" + std::to_string(i + 1),
        .form = "Frm_Y1_Calc_Check",
        .title = "（Ｘ" + std::to_string(i + 1) + "）" + indicator.name + " 計算詳細チェック",
        .amounts = true,
        .formula = {In_Words(indicator.above) + " ／ " +
                    (months ? "（" + below + " ／ 12）" : below + " × 100")},
        .results = {{std::string(indicator.name) + "：",
                     [i](const Check_Figures& f) { return Expression(f.twelve.values[i], 3).text; }}},
        .closing = {"（小数点以下3位未満の端数は四捨五入）", "分母が0のときは0となります。"},
        .steps = [i](const Check_Figures& f, Steps& steps) { Steps_Of_Twelve(i, f, steps); }};
    Add_Inputs(sheet, indicator.above);
    Add_Inputs(sheet, indicator.below);
    return sheet;
}

} // namespace

const std::vector<Sheet_Text>& Twelve_Sheets() {
    static const std::vector<Sheet_Text> sheets = [] {
        std::vector<Sheet_Text> all;
        for (std::size_t i = 0; i < twelve_indicators.size(); ++i) {
            all.push_back(Twelve_Sheet(i));
        }
        return all;
    }();
    return sheets;
}

} // namespace morvane
