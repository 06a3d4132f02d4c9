// SPDX-FileCopyrightText: The Morvane developers
#include "review/x2_calc.h"

#include "law/accounts.h"
#include "law/elements.h"
#include "law/total_weights.h"

#include <algorithm>
#include <cmath>

namespace morvane {

namespace {

using Two_Periods = X2_Result::Two_Periods;

template <class Unit>
Unit Half(Unit sum) {
    return Unit::Of(static_cast<std::int64_t>(std::floor(sum.Count() / 2.0)));
}

Thousand_Yen Mean(const Two_Periods& periods) {
    return Half(periods[1] + periods[0]);
}

X2_Result::Part Part_Of(Thousand_Yen amount, Scored (*score)(Thousand_Yen)) {
    const Thousand_Yen counted = std::max(amount, Thousand_Yen());
    return {amount, counted, score(counted)};
}

std::int32_t Basis_Of(const Review_Figures& figures) {
    const std::int32_t stored = figures.Yoso(element::equity_basis);
    return stored == 0 ? 1 : stored;
}

} // namespace

X2_Result Calc_X2(const Review_Figures& figures, std::optional<std::int32_t> basis) {
    return In_Calculation("自己資本額及び平均利益額の評点（Ｘ２）", [&] {
        const Statement_Figures& s = figures.statement;
        X2_Result x2;
        x2.basis = basis ? *basis : Basis_Of(figures);
        x2.equities = {s.Get_Y_Kamoku(Account::Prior_Equity), s.Get_Y_Kamoku(Account::Net_Assets)};
        x2.operating = {s.Get_Y_Kamoku(Account::Prior_Operating_Profit),
                        s.Get_Y_Kamoku(Account::Operating_Profit)};
        x2.depreciation = {s.Get_Y_Sum(prior_depreciation_accounts),
                           s.Get_Y_Sum(Depreciation_Accounts(figures.firm.edition))};
        for (std::size_t period = 0; period < x2.profits.size(); ++period) {
            x2.profits[period] = x2.operating[period] + x2.depreciation[period];
        }
        x2.equity = Part_Of(x2.basis == 1 ? x2.equities[1] : Mean(x2.equities), Calc_X2_1_Ten);
        x2.profit = Part_Of(Mean(x2.profits), Calc_X2_2_Ten);
        x2.score = std::max(Half(x2.equity.scored.points + x2.profit.scored.points), Points(x2_least));
        return x2;
    });
}

} // namespace morvane
