// SPDX-FileCopyrightText: The Morvane developers
#include "review/x2_calc.h"

#include "law/accounts.h"
#include "law/checked.h"
#include "law/elements.h"
#include "law/total_weights.h"
#include "review/scores.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace morvane {

namespace {

constexpr const char* what_x2 = "自己資本額及び平均利益額の評点（Ｘ２）";

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

void X2_Calc::Calc_X2(const Review_Figures& figures, bool keep_basis) {
    if (!keep_basis) {
        const std::int32_t stored = figures.Yoso(element::equity_basis);
        JikoS = stored == 0 ? 1 : stored;
    }
    const Statement_Figures& s = figures.statement;
    Jiko = {s.Get_Y_Kamoku(Account::Prior_Equity), s.Get_Y_Kamoku(Account::Net_Assets)};
    Eigyo = {s.Get_Y_Kamoku(Account::Prior_Operating_Profit), s.Get_Y_Kamoku(Account::Operating_Profit)};
    Genka = {s.Get_Y_Sum(prior_depreciation_accounts, what_x2),
             s.Get_Y_Sum(Depreciation_Accounts(figures.firm.edition), what_x2)};
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

} // namespace morvane
