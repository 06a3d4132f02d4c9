// SPDX-FileCopyrightText: The Morvane developers
#include "law/ten_tables.h"
#include "screens/check_figures.h"

namespace morvane {

namespace {

// The factors of Z and P.
Term Quarter() {
    return {0.25, 2};
}
Term Fifteen_Hundredths() {
    return {0.15, 2};
}
Term Fifth() {
    return {0.2, 1};
}

// Figures that were not entered count as 0.
Term Of(const Figure& figure) {
    return figure.value;
}

// The average of the years that the firm has chosen, in the order of its formula.
Term Average_Steps(Steps& steps, const char* name, std::int32_t years, const Figure& zzki, const Figure& zki,
                   const Figure& kijun) {
    const std::int32_t average = Calc_Avg_Nen(years, zzki.value, zki.value, kijun.value);
    if (years == 2) {
        return steps.Work(name, (Of(kijun) + Of(zki)) / 2, average, Rounding::Half);
    }
    const Term before =
        steps.Work("前平均", (Of(zki) + Of(zzki)) / 2, Two_Year_Avg(zzki.value, zki.value), Rounding::Half);
    return steps.Work(name, (Of(kijun) + before * 2) / 3, average, Rounding::Half);
}

// At the law year of the six sub-scores the screen of completed work forms W by the later rule, from the same
// ones: where it differs from that of the X2 and W screen, the sheet tells how it came about.
void W_For_P(const Check_Figures& f, Steps& steps) {
    const Social_Items& s = f.items;
    if (f.Law().has_w7_w8) {
        return;
    }
    const std::int32_t sum = s.RF_Ten + s.Enen_Ten + s.Bkyotei_Ten + s.Horei_ten + s.Jms_Ten + s.Kihatu_Ten;
    const std::int32_t share = W_Share(f.figures.review_date);
    if (sum * 10 * share / 200 == s.W) {
        steps.Work("総合評点に使うＷ",
                   (Term(s.RF_Ten) + s.Enen_Ten + s.Bkyotei_Ten + s.Horei_ten + s.Jms_Ten + s.Kihatu_Ten) *
                       10 * share / 200,
                   s.W);
    }
}

} // namespace

void Steps_Of_X2_1(const Check_Figures& f, Steps& steps) {
    const X2_Calc& x2 = f.x2;
    const Term capital = x2.JikoS == 1
                             ? steps.Take("自己資本額（当期）", x2.Jiko[1])
                             : steps.Work("自己資本額", (Term(x2.Jiko[0]) + x2.Jiko[1]) / 2, x2.X2_Jiko);
    const Term used = steps.At_Least(capital, 0);
    steps.By_Table("自己資本額点数", Ten_X2_1, used, x2.X2_Jiko_Used);
}

void Steps_Of_X2_2(const Check_Figures& f, Steps& steps) {
    const X2_Calc& x2 = f.x2;
    const Term last =
        steps.Work("利払前税引前償却前利益（前期）", Term(x2.Eigyo[0]) + x2.Genka[0], x2.Rieki[0]);
    const Term current =
        steps.Work("利払前税引前償却前利益（当期）", Term(x2.Eigyo[1]) + x2.Genka[1], x2.Rieki[1]);
    const Term average = steps.Work("平均利益額", (last + current) / 2, x2.X2_Rieki);
    const Term used = steps.At_Least(average, 0);
    steps.By_Table("平均利益額点数", Ten_X2_2, used, x2.X2_Rieki_Used);
}

void Steps_Of_X2(const Check_Figures& f, Steps& steps) {
    const std::int32_t equity = f.x2.X2_1_Ten;
    const std::int32_t profit = f.x2.X2_2_Ten;
    const Term half = steps.Work("評点", (Term(equity) + profit) / 2, (equity + profit) / 2);
    steps.At_Least(half, 454);
}

void Steps_Of_X1(const Check_Figures& f, Steps& steps) {
    const Work_Line& line = f.Line();
    const Term average =
        Average_Steps(steps, "年間平均完成工事高", f.Kanko_Avg, line.Zzki, line.Zki, line.Kijun);
    steps.By_Table("完成工事高評点", Table_Of_Number(1, f.Law()), average, line.Nheikin.value);
}

void Steps_Of_Z2(const Check_Figures& f, Steps& steps) {
    const Work_Line& line = f.Line();
    const Term average =
        Average_Steps(steps, "年間平均元請完成工事高", f.Kanko_Avg, line.Mzzki, line.Mzki, line.Mkijun);
    steps.By_Table("元請完成工事高点数", Table_Of_Number(4, f.Law()), average, line.Mnheikin.value);
}

void Steps_Of_Z1(const Check_Figures& f, Steps& steps) {
    const auto& count = f.Line().gijutusya;
    std::array<std::int32_t, 6> counts{};
    for (std::size_t i = 0; i < counts.size(); ++i) {
        counts[i] = count[i].value;
    }
    const std::int32_t number = Z1_Value(counts);
    const Term value = steps.Work("技術職員数値",
                                  Of(count[0]) * 6 + Of(count[1]) * 5 + Of(count[5]) * 4 + Of(count[2]) * 3 +
                                      Of(count[3]) * 2 + Of(count[4]) * 1,
                                  number);
    steps.By_Table("技術職員点数", Ten_Z1, value, number);
}

void Steps_Of_Z(const Check_Figures& f, Steps& steps) {
    const std::int32_t zi = f.Line().Zi.value;
    const std::int32_t zro = f.Line().Zro.value;
    const std::int32_t floored = (zi * 8 + zro * 2) / 10; // no table gives points below 0
    const Term score = steps.Work("技術力評点", Term(zi) * Term(0.8, 1) + Term(zro) * Fifth(), floored);
    steps.At_Least(score, 450);
}

void Steps_Of_P(const Check_Figures& f, Steps& steps) {
    const Work_Line& line = f.Line();
    W_For_P(f, steps);
    steps.Work("総合評点",
               Of(line.X1) * Quarter() + Term(std::int32_t{f.x2.X2_Ten}) * Fifteen_Hundredths() +
                   Term(std::int32_t{f.y.Y_Ten}) * Fifth() + Of(line.Z) * Quarter() +
                   Term(f.items.W) * Fifteen_Hundredths(),
               line.P.value, Rounding::From_499);
}

} // namespace morvane
