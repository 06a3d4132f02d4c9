// SPDX-FileCopyrightText: The Morvane developers
#include "review/x2_calc.h"

#include "law/checked.h"
#include "law/elements.h"
#include "law/era_date.h"
#include "law/total_weights.h"
#include "review/scores.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>

namespace morvane {

namespace {

constexpr const char* what_x2 = "自己資本額及び平均利益額の評点（Ｘ２）";

std::int32_t Sum(const Statement_Figures& statement, std::initializer_list<int> codes) {
    std::int32_t sum = 0;
    for (const int code : codes) {
        sum = Add32(sum, statement.Get_Y_Kamoku(code), what_x2);
    }
    return sum;
}

std::int32_t Floor_Half(std::int32_t sum) {
    return static_cast<std::int32_t>(std::floor(sum / 2.0));
}

} // namespace

Law_Year_No Get_Simyu_Kubun(const Session& session, int period) {
    return Get_Simyu_Kubun(Cn_Open(session), period);
}

Law_Year_No Get_Simyu_Kubun(const Connection& cn, int period) {
    const Recordset rows = cn.Open("SELECT 現状 FROM W_Yoso WHERE 決算期=? And 要素CD=210", period);
    const std::int64_t oldest = Law_Number(Oldest_Law_Year().code);
    return Law_Of(rows.Eof() ? oldest : rows["現状"].As_Integer(oldest)).code;
}

void Read_Review_Date(const Connection& cn, Review_Figures& figures, int year_shift) {
    figures.review_date.reset();
    figures.date_error.clear();
    Statement firm = cn.Prepare("SELECT 決算期終了年, 決算期終了月, 決算期終了日 FROM Jigyo_mas");
    if (!firm.Step()) {
        return;
    }
    const Era_Date stored = {firm.Integer_At(0), firm.Integer_At(1), firm.Integer_At(2)};
    if (!firm.Is_Null(0)) {
        figures.review_date = Reiwa_Day(Shift_Years(stored, year_shift));
    }
    if (!figures.review_date) {
        figures.date_error = "決算期終了日「" + firm.Value_At(0).As_Text() + "/" +
                             firm.Value_At(1).As_Text() + "/" + firm.Value_At(2).As_Text() +
                             "」が日付ではないため、社会性等の評点（Ｗ）を計算できません。";
    }
}

Review_Figures Load_Review(const Connection& cn, int period, const Scenario& scenario, Firm_Kind kind,
                           int year_shift) {
    Review_Figures figures;
    figures.firm = kind;
    Read_Statement(cn, period, scenario.zaihyo_column, figures.statement);
    Read_Elements(cn, period, scenario, figures);
    Read_Works(cn, period, scenario, figures);
    Read_Review_Date(cn, figures, year_shift);
    return figures;
}

void X2_Calc::Calc_X2(const Review_Figures& figures, bool keep_basis) {
    if (!keep_basis) {
        const std::int32_t stored = figures.Yoso(element::equity_basis);
        JikoS = stored == 0 ? 1 : stored;
    }
    const Statement_Figures& s = figures.statement;
    Jiko = {s.Get_Y_Kamoku(829), s.Get_Y_Kamoku(319)};
    Eigyo = {s.Get_Y_Kamoku(832), s.Get_Y_Kamoku(469)};
    Genka = {Sum(s, {831, 835, 836, 837}), Sum(s, {436, 724, 729, figures.firm.Is_Hokkaido() ? 552 : 536})};
    for (std::size_t period = 0; period < Rieki.size(); ++period) {
        Rieki[period] = Add32(Eigyo[period], Genka[period], what_x2);
    }

    X2_Jiko = JikoS == 1 ? Jiko[1] : Floor_Half(Add32(Jiko[1], Jiko[0], what_x2));
    X2_Jiko_Used = X2_Jiko < 0 ? 0 : X2_Jiko;
    const Scored equity = Calc_X2_1_Ten(Thousand_Yen(X2_Jiko_Used));
    X2_1_Ten = equity.points.Count();
    X2_1_Row = equity.row;
    X2_Rieki = Floor_Half(Add32(Rieki[1], Rieki[0], what_x2));
    X2_Rieki_Used = X2_Rieki < 0 ? 0 : X2_Rieki;
    const Scored profit = Calc_X2_2_Ten(Thousand_Yen(X2_Rieki_Used));
    X2_2_Ten = profit.points.Count();
    X2_2_Row = profit.row;
    const auto half = static_cast<std::int16_t>(Floor_Half(Add16(X2_1_Ten, X2_2_Ten, what_x2)));
    X2_Ten = std::max(half, x2_least);
}

void X2_Calc::Calc_X2(const Session& session, int scenario, bool keep_basis, std::uint8_t y_kikan) {
    const int period = session.Syori_Ki - (y_kikan == 2 ? 1 : 0);
    const Scenario& column = Scenario_Of(scenario);
    const Connection cn = Cn_Open(session);
    Review_Figures figures;
    figures.firm = session.Kind();
    Read_Statement(cn, period, column.zaihyo_column, figures.statement);
    Read_Elements(cn, period, column, figures);
    Calc_X2(figures, keep_basis);
}

} // namespace morvane
