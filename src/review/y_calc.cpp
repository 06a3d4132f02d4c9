// SPDX-FileCopyrightText: The Morvane developers
#include "review/y_calc.h"

#include "law/accounts.h"

#include <algorithm>
#include <cmath>

namespace morvane {

namespace {

using enum Account;

constexpr const char* name_of_y = "経営状況評点（Ｙ）";

Y_Elements Elements_Of(const Statement_Figures& s, Firm_Kind firm) {
    namespace e = y_element;
    constexpr std::array hokkaido_sales = {Completed_Work_Sales, Side_Business_Sales_Hokkaido};
    Y_Elements elements{};
    elements[e::fixed_assets] = s.Get_Y_Kamoku(Fixed_Assets);
    elements[e::current_liabilities] = s.Get_Y_Kamoku(Current_Liabilities);
    elements[e::fixed_liabilities] = s.Get_Y_Kamoku(Fixed_Liabilities);
    elements[e::retained_earnings] = s.Get_Y_Kamoku(firm.Is_Corporation() ? Retained_Earnings : Net_Assets);
    elements[e::equity] = s.Get_Y_Kamoku(Net_Assets);
    elements[e::total_capital] = s.Get_Y_Kamoku(Liabilities_And_Net_Assets);
    elements[e::prior_total_capital] = s.Get_Y_Kamoku(Prior_Total_Capital);
    elements[e::sales] = firm.Is_Hokkaido() ? s.Get_Y_Sum(hokkaido_sales) : s.Get_Y_Kamoku(Sales_National);
    elements[e::gross_profit] = s.Get_Y_Kamoku(Gross_Profit);
    elements[e::interest_received] = s.Get_Y_Kamoku(Interest_And_Dividends);
    elements[e::interest_paid] = s.Get_Y_Kamoku(Interest_Paid);
    elements[e::ordinary_profit] = s.Get_Y_Kamoku(Ordinary_Profit);
    return elements;
}

// The edition decides where depreciation and the loss allowance stand, the data form of the period where the
// advances received do.
Y_Flow Flow_Of(const Statement_Figures& s, Edition edition, Thousand_Yen ordinary_profit) {
    const auto both = [&s](Account first, Account second) { return s.Get_Y_Sum(std::array{first, second}); };
    return {{{{s.Get_Y_Kamoku(Prior_Ordinary_Profit), ordinary_profit},
              {s.Get_Y_Sum(prior_depreciation_accounts), s.Get_Y_Sum(Depreciation_Accounts(edition))},
              {s.Get_Y_Kamoku(Prior_Income_Taxes), s.Get_Y_Kamoku(Income_Taxes)}}},
            {{{both(Second_Prior_Current_Allowance, Second_Prior_Investment_Allowance),
               both(Prior_Current_Allowance, Prior_Investment_Allowance),
               both(Accounts_Of_Edition(edition).current_allowance, Investment_Allowance)},
              {both(Second_Prior_Notes_Receivable, Second_Prior_Completed_Work_Receivables),
               both(Prior_Notes_Receivable, Prior_Completed_Work_Receivables),
               both(Notes_Receivable, Completed_Work_Receivables)},
              {both(Second_Prior_Notes_Payable, Second_Prior_Work_Payables),
               both(Prior_Notes_Payable, Prior_Work_Payables), both(Notes_Payable, Work_Payables)},
              {both(Second_Prior_Uncompleted_Work, Second_Prior_Materials_In_Store),
               both(Prior_Uncompleted_Work, Prior_Materials_In_Store),
               both(Uncompleted_Work, Materials_In_Store)},
              {s.Get_Y_Kamoku(Second_Prior_Advances_Received), s.Get_Y_Kamoku(Prior_Advances_Received),
               s.Get_Y_Kamoku(Advances_Received(Data_Form_Of(s.form)))}}}};
}

/// The operating cash flow of a year: 0 the prior, 1 the current one.
Thousand_Yen Cash_Flow(const Y_Flow& flow, std::size_t year) {
    Thousand_Yen sum;
    const auto count = [&sum](const Y_Flow_Part& part, Thousand_Yen amount) {
        sum = part.adds ? sum + amount : sum - amount;
    };
    for (std::size_t i = 0; i < y_flow_amounts.size(); ++i) {
        count(y_flow_amounts[i], flow.amounts[i][year]);
    }
    for (std::size_t i = 0; i < y_flow_balances.size(); ++i) {
        count(y_flow_balances[i], flow.balances[i][year] - flow.balances[i][year + 1]);
    }
    return sum;
}

// A value of indicator `x` (1 to 8) held within its limits.
float Within(std::size_t x, double value) {
    const Y_Indicator& indicator = y_indicators[x - 1];
    return std::clamp(static_cast<float>(value), indicator.lower.Single(), indicator.upper.Single());
}

float Rounded(std::size_t x, double value) {
    return Within(x, Round_501(value, y_indicators[x - 1].Scale()));
}

/// An indicator in percent: its ratio, rounded, times a hundred.
float Percent(std::size_t x, double numerator, double denominator) {
    const Y_Indicator& indicator = y_indicators[x - 1];
    return denominator == 0.0 ? indicator.without_denominator.value().Single()
                              : Within(x, Round_501(numerator / denominator, indicator.Scale()) * 100);
}

/// X2: the months of sales that the debt is.
float Debt_Turnover(std::int32_t debt, std::int32_t sales) {
    return sales == 0 ? y_indicators[1].without_denominator.value().Single()
                      : Rounded(2, debt / (sales / 12.0));
}

std::array<float, y_indicators.size()> Indicators_Of(const Y_Elements& elements) {
    namespace e = y_element;
    const auto number = [&elements](e::Place place) { return elements[place].Count(); };
    const Thousand_Yen interest = elements[e::interest_paid] - elements[e::interest_received];
    const Thousand_Yen debt = elements[e::current_liabilities] + elements[e::fixed_liabilities];
    const float capital = std::max(Mean_Of(elements[e::prior_total_capital], elements[e::total_capital]),
                                   static_cast<float>(y_least_capital.Count()));
    const float flow = Mean_Of(elements[e::prior_cash_flow], elements[e::cash_flow]);
    constexpr double oku = thousand_yen_of_oku;
    return {Percent(1, interest.Count(), number(e::sales)),
            Debt_Turnover(debt.Count(), number(e::sales)),
            Percent(3, number(e::gross_profit), static_cast<double>(capital)),
            Percent(4, number(e::ordinary_profit), number(e::sales)),
            Percent(5, number(e::equity), number(e::fixed_assets)),
            Percent(6, number(e::equity), number(e::total_capital)),
            Rounded(7, static_cast<double>(flow) / oku),
            Rounded(8, number(e::retained_earnings) / oku)};
}

/// Where a value lies between the worst and the best, percent.
float Rate(const Y_Indicator& indicator, float value) {
    const double way = static_cast<double>(value) - indicator.Worst().Double();
    return static_cast<float>(std::abs(way / (indicator.upper - indicator.lower).Double()) * 100);
}

void Score(Y_Result& y) {
    double points = 0.0;
    for (std::size_t i = 0; i < y_indicators.size(); ++i) {
        y.rates[i] = Rate(y_indicators[i], y.indicators[i]);
        points += y_indicators[i].weight * static_cast<double>(y.indicators[i]);
    }
    y.points = static_cast<float>(Round_501(points + y_points_base, 100));
    y.score = std::max(Score_Of_Points(y.points), Points());
}

} // namespace

float Mean_Of(Thousand_Yen a, Thousand_Yen b) {
    return static_cast<float>((a + b).Count() / 2.0);
}

double Round_501(double v, double scale) {
    return std::floor(v * scale + y_rounding) / scale;
}

Points Score_Of_Points(float points) {
    return Points(Narrow_Double<std::int16_t>(
        std::floor(y_score_factor * static_cast<double>(points) + y_score_base + y_rounding), ""));
}

Y_Result Calc_Y(const Statement_Figures& statement, Firm_Kind firm, const Y_Result& former) {
    return In_Calculation(name_of_y, [&] {
        Y_Result y = former;
        if (statement.has_rows) {
            y.elements = Elements_Of(statement, firm);
            y.flow = Flow_Of(statement, firm.edition, y.elements[y_element::ordinary_profit]);
            y.elements[y_element::prior_cash_flow] = Cash_Flow(y.flow, 0);
            y.elements[y_element::cash_flow] = Cash_Flow(y.flow, 1);
            y.indicators = Indicators_Of(y.elements);
        }
        Score(y);
        y.has_figures = statement.has_rows && y.elements != Y_Elements{};
        return y;
    });
}

Y_Result Calc_Y(const Y_Elements& elements) {
    return In_Calculation(name_of_y, [&] {
        Y_Result y;
        y.elements = elements;
        y.indicators = Indicators_Of(elements);
        Score(y);
        y.has_figures = elements != Y_Elements{};
        return y;
    });
}

Y_Result Calc_Y(const Session& session, Side side, const Y_Result& former) {
    return Calc_Y(Read_Statement(Cn_Open(session), side), session.Kind(), former);
}

} // namespace morvane
