// SPDX-FileCopyrightText: The Morvane developers
#include "law/social_points.h"
#include "law/ten_tables.h"
#include "law/total_weights.h"
#include "review/explain.h"
#include "review/works.h"

namespace morvane {

namespace {

// Figures that were not entered count as 0.
Expression Of(const Figure& figure) {
    return figure.value;
}

// The average of the years that the firm has chosen, in the order of its formula.
Expression Average_Steps(Steps& steps, const char* name, std::int32_t years, const Amount_Figure& zzki,
                         const Amount_Figure& zki, const Amount_Figure& kijun) {
    const Averages averages = Averages_Of(years, zzki.Number(), zki.Number(), kijun.Number());
    if (years == 2) {
        return steps.Work(name, (Of(kijun) + Of(zki)) / 2, averages.adopted.Count(), Rounding::Half);
    }
    const Expression before =
        steps.Work("前平均", (Of(zki) + Of(zzki)) / 2, averages.previous.Count(), Rounding::Half);
    return steps.Work(name, (Of(kijun) + before * 2) / 3, averages.adopted.Count(), Rounding::Half);
}

// At the law year of the six sub-scores the screen of completed work forms W by the later rule, from the same
// ones: where it differs from that of the X2 and W screen, the steps tell how it came about.
void W_For_P(const Check_Figures& f, Steps& steps) {
    const Social_Items& s = f.items;
    if (f.Law().has_w7_w8) {
        return;
    }
    const std::int32_t sum = s.RF_Ten + s.Enen_Ten + s.Bkyotei_Ten + s.Horei_ten + s.Jms_Ten + s.Kihatu_Ten;
    const std::int32_t share = W_Share(f.figures.review_date);
    if (sum * w_times * share / w_share_whole == s.W) {
        steps.Work(
            "総合評点に使うＷ",
            (Expression(s.RF_Ten) + s.Enen_Ten + s.Bkyotei_Ten + s.Horei_ten + s.Jms_Ten + s.Kihatu_Ten) *
                w_times * share / w_share_whole,
            s.W);
    }
}

} // namespace

void Steps_Of_X2_1(const Check_Figures& f, Steps& steps) {
    const auto& [last, current] = f.x2.equities;
    const Expression capital =
        f.x2.basis == 1 ? steps.Take("自己資本額（当期）", current)
                        : steps.Work("自己資本額", (Expression(last) + current) / 2, f.x2.equity.amount);
    const Expression used = steps.At_Least(capital, 0);
    steps.By_Table("自己資本額点数", Ten_X2_1, used, f.x2.equity.counted.Count());
}

void Steps_Of_X2_2(const Check_Figures& f, Steps& steps) {
    const X2_Result& x2 = f.x2;
    const auto profit = [&](const char* name, std::size_t period) {
        return steps.Work(name, Expression(x2.operating[period]) + x2.depreciation[period],
                          x2.profits[period]);
    };
    const Expression last = profit("利払前税引前償却前利益（前期）", 0);
    const Expression current = profit("利払前税引前償却前利益（当期）", 1);
    const Expression average = steps.Work("平均利益額", (last + current) / 2, x2.profit.amount);
    const Expression used = steps.At_Least(average, 0);
    steps.By_Table("平均利益額点数", Ten_X2_2, used, x2.profit.counted.Count());
}

void Steps_Of_X2(const Check_Figures& f, Steps& steps) {
    const std::int32_t equity = f.x2.equity.scored.points.Count();
    const std::int32_t profit = f.x2.profit.scored.points.Count();
    const Expression half = steps.Work("評点", (Expression(equity) + profit) / 2, (equity + profit) / 2);
    steps.At_Least(half, std::int32_t{x2_least});
}

void Steps_Of_X1(const Check_Figures& f, Steps& steps) {
    const Work_Line& line = f.Line();
    const Expression average =
        Average_Steps(steps, "年間平均完成工事高", f.Kanko_Avg, line.Zzki, line.Zki, line.Kijun);
    steps.By_Table("完成工事高評点", Table_Of_Number(1, f.Law()), average, line.Nheikin.value);
}

void Steps_Of_Z2(const Check_Figures& f, Steps& steps) {
    const Work_Line& line = f.Line();
    const Expression average =
        Average_Steps(steps, "年間平均元請完成工事高", f.Kanko_Avg, line.Mzzki, line.Mzki, line.Mkijun);
    steps.By_Table("元請完成工事高点数", Table_Of_Number(4, f.Law()), average, line.Mnheikin.value);
}

void Steps_Of_Z1(const Check_Figures& f, Steps& steps) {
    const auto counted = [&f](std::size_t kind) {
        return Of(f.Line().gijutusya[kind]) * engineer_weights[kind];
    };
    Expression sum = counted(engineers_by_weight.front());
    for (const std::size_t kind : std::span(engineers_by_weight).subspan(1)) {
        sum = sum + counted(kind);
    }
    const std::int32_t number = Z1_Value(Engineers_Of(f.Line()));
    const Expression value = steps.Work("技術職員数値", sum, number);
    steps.By_Table("技術職員点数", Ten_Z1, value, number);
}

void Steps_Of_Z(const Check_Figures& f, Steps& steps) {
    const Expression weighted = Of(f.Line().Zi) * Expression::Decimal(z_weights.z1) +
                                Of(f.Line().Zro) * Expression::Decimal(z_weights.z2);
    const Expression score =
        steps.Work("技術力評点", weighted, static_cast<std::int32_t>(weighted.value.Floor()));
    steps.At_Least(score, std::int32_t{z_least});
}

void Steps_Of_P(const Check_Figures& f, Steps& steps) {
    const Work_Line& line = f.Line();
    W_For_P(f, steps);
    steps.Work("総合評点",
               Of(line.X1) * Expression::Decimal(p_weights.x1) +
                   Expression(f.x2.score) * Expression::Decimal(p_weights.x2) +
                   Expression(f.y.score) * Expression::Decimal(p_weights.y) +
                   Of(line.Z) * Expression::Decimal(p_weights.z) +
                   Expression(f.items.W) * Expression::Decimal(p_weights.w),
               line.P.value, Rounding::From_499);
}

} // namespace morvane
