// SPDX-FileCopyrightText: The Morvane developers
#include "review/twelve.h"

#include "law/accounts.h"

#include <algorithm>

namespace morvane {

namespace {

Twelve_Terms Terms_Of(const Statement_Figures& s, Firm_Kind firm, const Y_Result& y) {
    using enum Account;
    const auto element = [&y](y_element::Place place) { return Expression(y.elements[place]); };
    const auto account = [&s](Account of) { return Expression(s.Get_Y_Kamoku(of)); };
    const auto& allowance = y.flow.balances[y_flow_allowance];
    return {account(Completed_Work_Sales),
            element(y_element::sales),
            account(Operating_Profit),
            element(y_element::ordinary_profit),
            account(firm.Is_Corporation() ? Profit_Of_Corporation : Profit_Of_Individual),
            y.flow.amounts[y_flow_depreciation][1],
            allowance[1],
            allowance[2],
            element(y_element::interest_received),
            element(y_element::interest_paid),
            account(Notes_Receivable),
            account(Completed_Work_Receivables),
            account(Uncompleted_Work),
            account(Notes_Payable),
            account(Work_Payables),
            account(Advances_Received(Data_Form_Of(s.form))),
            element(y_element::equity),
            element(y_element::total_capital),
            Expression::Mean(
                Mean_Of(y.elements[y_element::prior_total_capital], y.elements[y_element::total_capital])),
            account(Short_Term_Loans),
            account(Bonds),
            account(Long_Term_Loans),
            element(y_element::fixed_assets),
            element(y_element::fixed_liabilities),
            account(Material_Cost),
            account(Labour_Subcontracts),
            account(Subcontracts),
            account(Accounts_Of_Edition(firm.edition).side_business_cost)};
}

double Value_Of(const Twelve_Indicator& indicator, const Twelve_Terms& terms) {
    const Fraction above = Twelve_Sum_Of(terms, indicator.above).value;
    const Fraction below = Twelve_Sum_Of(terms, indicator.below).value;
    if (below == Fraction(0)) {
        return 0.0;
    }
    const Fraction thousandths = above / below * Fraction(1'000 * indicator.Factor()) + Fraction(1, 2);
    return static_cast<double>(thousandths.Floor()) / 1'000;
}

} // namespace

Expression Twelve_Sum_Of(const Twelve_Terms& terms, const Twelve_Sum& sum) {
    Expression total = terms[sum.terms[0]];
    for (std::size_t i = 1; i < sum.size; ++i) {
        const Expression& term = terms[sum.terms[i]];
        total = i < sum.added ? total + term : total - term;
    }
    return total;
}

Twelve_Result Calc_Twelve(const Statement_Figures& statement, Firm_Kind firm, const Y_Result& y) {
    Twelve_Result result = {Terms_Of(statement, firm, y)};
    std::transform(twelve_indicators.begin(), twelve_indicators.end(), result.values.begin(),
                   [&result](const Twelve_Indicator& of) { return Value_Of(of, result.terms); });
    return result;
}

void Store_Twelve(const Session& session) {
    const Connection cn = Cn_Open(session);
    const Statement_Figures statement = Read_Statement(cn, Side_In_Hand(session));
    const Twelve_Result twelve = Calc_Twelve(statement, session.Kind(), Calc_Y(statement, session.Kind()));
    Transaction transaction(cn);
    Statement stored = cn.Prepare("SELECT 現状 FROM XW_Yoso WHERE 決算期=? AND 要素CD=?");
    for (std::size_t i = 0; i < twelve.values.size(); ++i) {
        const int code = first_twelve_element + static_cast<int>(i);
        stored.With(session.Syori_Ki, code);
        if (!stored.Step()) {
            cn.Execute("INSERT INTO XW_Yoso (決算期, 要素CD, 要素名, 現状) VALUES (?, ?, ?, ?)",
                       session.Syori_Ki, code, twelve_indicators[i].name, twelve.values[i]);
        } else if (stored.Is_Null(0) || stored.Double_At(0) != twelve.values[i]) {
            cn.Execute("UPDATE XW_Yoso SET 現状=? WHERE 決算期=? AND 要素CD=?", twelve.values[i],
                       session.Syori_Ki, code);
        }
    }
    transaction.Commit();
}

std::array<double, twelve_indicators.size()> Read_Twelve(const Session& session) {
    const Connection cn = Cn_Open(session);
    std::array<double, twelve_indicators.size()> values{};
    Statement rows =
        cn.Prepare("SELECT 要素CD, 現状 FROM XW_Yoso WHERE 決算期=? ORDER BY 要素CD", session.Syori_Ki);
    while (rows.Step()) {
        const std::int64_t place = rows.Integer_At(0) - first_twelve_element;
        if (place >= 0 && place < static_cast<std::int64_t>(values.size())) {
            values[static_cast<std::size_t>(place)] = rows.Double_At(1);
        }
    }
    return values;
}

} // namespace morvane
