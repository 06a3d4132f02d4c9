// SPDX-FileCopyrightText: The Morvane developers
#include "review/relief.h"

#include "law/elements.h"
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

// The column of the years and the basis that the firm has chosen. Nothing chosen counts as two years and the
// base period, what is no choice as three years and two periods.
std::size_t Chosen(const Review_Figures& figures) {
    const std::int32_t years = figures.Yoso(element::years_of_average);
    const std::int32_t basis = figures.Yoso(element::equity_basis);
    return (years == 0 || years == 2 ? 0U : 2U) + (basis == 0 || basis == 1 ? 0U : 1U);
}

void Mark_Best(Gekihen_Line& line) {
    const Points best = *std::max_element(line.P.begin(), line.P.end());
    std::transform(line.P.begin(), line.P.end(), line.best.begin(), [best](Points p) { return p == best; });
}

} // namespace

Gekihen_Table::Sum Gekihen_Table::Of_All(std::size_t column) const {
    Sum sum;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].entered && !Is_Sub_Line(i)) {
            sum.P += lines[i].P[column].Count();
            sum.best += lines[i].best[column] ? 1 : 0;
        }
    }
    return sum;
}

Gekihen_Table Calc_Gekihen(const Review_Figures& figures) {
    Gekihen_Table table;
    table.Y = Calc_Y(figures.statement, figures.firm).score;
    table.chosen = Chosen(figures);
    for (std::size_t column = 0; column < gekihen_columns.size(); ++column) {
        const Gekihen_Column& of = gekihen_columns[column];
        const std::size_t years = of.years == 3 ? 1 : 0;
        const std::size_t basis = of.basis == 2 ? 1 : 0;
        table.X2[basis] = Calc_X2(figures, of.basis).score;
        const Works works = Averaged(figures, of.years, table.X2[basis], table.Y);
        table.W[years] = works.scores.W;
        for (std::size_t i = 0; i < table.lines.size(); ++i) {
            const Work_Line& from = works.lines[i];
            Gekihen_Line& line = table.lines[i];
            line.X1[years] = from.X1.Number();
            line.Z2[years] = from.Zro.Number();
            line.Z[years] = from.Z.Number();
            line.P[column] = from.P.Number();
            line.entered = figures.works[i].P.up;
        }
    }
    std::for_each(table.lines.begin(), table.lines.end(), Mark_Best);
    return table;
}

Gekihen_Table Calc_Gekihen(const Session& session) {
    return Calc_Gekihen(Load_Review(session, Side_In_Hand(session)));
}

} // namespace morvane
