// SPDX-FileCopyrightText: The Morvane developers
#include "review/relief.h"

#include "review/works.h"
#include "review/x2_calc.h"
#include "review/y_calc.h"

#include <algorithm>

namespace morvane {

namespace {

/// X1, Z and W of every line when completed work is averaged over `years`.
Works Averaged(const Review_Figures& figures, std::int32_t years, Points x2, Points y) {
    Works works = Load_Kanko(figures, x2, y);
    works.Kanko_Avg = years;
    return Calc_Kanko_All(Calc_Gijutu_All(works, figures), figures, W_Form::By_Law_Year);
}

} // namespace

Gekihen_Table Calc_Gekihen(const Review_Figures& figures) {
    const Y_Result y = Calc_Y(figures.statement, figures.firm);
    Gekihen_Table table{};
    for (std::size_t column = 0; column < gekihen_columns.size(); ++column) {
        const X2_Result x2 = Calc_X2(figures, gekihen_columns[column].basis);
        const Works works = Averaged(figures, gekihen_columns[column].years, x2.score, y.score);
        for (std::size_t i = 0; i < table.size(); ++i) {
            table[i].P[column] = static_cast<std::int16_t>(works.lines[i].P.value);
        }
    }
    for (Gekihen_Line& line : table) {
        const std::int16_t best = *std::max_element(line.P.begin(), line.P.end());
        std::transform(line.P.begin(), line.P.end(), line.best.begin(),
                       [best](std::int16_t p) { return p == best; });
    }
    return table;
}

Gekihen_Table Calc_Gekihen(const Session& session) {
    return Calc_Gekihen(Load_Review(session, Side_In_Hand(session)));
}

} // namespace morvane
