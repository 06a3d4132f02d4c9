// SPDX-FileCopyrightText: The Morvane developers
#include "review/explain.h"

#include <cmath>

namespace morvane {

namespace {

namespace e = y_element;

const Y_Indicator& Indicator(std::size_t x) {
    return y_indicators[x - 1];
}

Expression Printed(Tenths limit) {
    return {limit.Double(), 3};
}

// The score takes the limit for a value at or beyond it.
void Within_Limits(Steps& steps, std::size_t x, const Expression& shown, double value) {
    const Expression least = Printed(Indicator(x).lower);
    const Expression most = Printed(Indicator(x).upper);
    const auto held = static_cast<float>(value);
    if (held >= Indicator(x).upper.Single()) {
        steps.Because("上限", shown.text + " ≧ " + most.text, most);
    } else if (held <= Indicator(x).lower.Single()) {
        steps.Because("下限", shown.text + " ≦ " + least.text, least);
    } else {
        steps.Because("上限・下限", least.text + " ＜ " + shown.text + " ＜ " + most.text, shown);
    }
}

/// An indicator that is no percentage: `value` is what the expression comes to.
void Value_Steps(Steps& steps, std::size_t x, const Expression& expression, double value) {
    const double rounded = Round_501(value, Indicator(x).Scale());
    const int decimals = Indicator(x).decimals;
    const Expression shown = steps.Work(Indicator(x).name.name, expression, Expression(rounded, decimals),
                                        Rounding::From_499, decimals);
    Within_Limits(steps, x, shown, rounded);
}

void Percent_Steps(Steps& steps, std::size_t x, const Expression& numerator, double num,
                   const Expression& denominator, double den) {
    const double ratio = Round_501(num / den, Indicator(x).Scale());
    const int decimals = Indicator(x).decimals;
    const Expression rounded = steps.Work(Indicator(x).name.name, numerator / denominator,
                                          Expression(ratio, decimals), Rounding::From_499, decimals);
    const Expression percent = steps.Work("百分率", rounded * 100, Expression(ratio * 100, 3));
    Within_Limits(steps, x, percent, ratio * 100);
}

// Tells what an indicator is where the element that it is divided by is nothing.
bool Lacks(Steps& steps, std::size_t x, const Check_Figures& f, e::Place denominator) {
    if (f.y.elements[denominator] != Thousand_Yen()) {
        return false;
    }
    steps.Because(y_elements[denominator].name, "0", Printed(Indicator(x).without_denominator.value()));
    return true;
}

Expression Mean(Steps& steps, const char* name, Thousand_Yen a, Thousand_Yen b) {
    return steps.Work(name, (Expression(a) + b) / 2, Expression::Mean(Mean_Of(a, b)));
}

void Interest_Steps(const Check_Figures& f, Steps& steps) {
    if (Lacks(steps, 1, f, e::sales)) {
        return;
    }
    const auto& elements = f.y.elements;
    const Thousand_Yen interest = elements[e::interest_paid] - elements[e::interest_received];
    const Expression shown =
        steps.Work("支払利息 － 受取利息配当金",
                   Expression(elements[e::interest_paid]) - elements[e::interest_received], interest);
    Percent_Steps(steps, 1, shown, interest.Count(), elements[e::sales], elements[e::sales].Count());
}

void Debt_Steps(const Check_Figures& f, Steps& steps) {
    if (Lacks(steps, 2, f, e::sales)) {
        return;
    }
    const auto& elements = f.y.elements;
    const Thousand_Yen debt = elements[e::current_liabilities] + elements[e::fixed_liabilities];
    const Expression shown =
        steps.Work("流動負債 ＋ 固定負債",
                   Expression(elements[e::current_liabilities]) + elements[e::fixed_liabilities], debt);
    Value_Steps(steps, 2, shown / (Expression(elements[e::sales]) / 12),
                debt.Count() / (elements[e::sales].Count() / 12.0));
}

void Capital_Steps(const Check_Figures& f, Steps& steps) {
    const auto& elements = f.y.elements;
    const Thousand_Yen last = elements[e::prior_total_capital];
    const Thousand_Yen current = elements[e::total_capital];
    float mean = Mean_Of(last, current);
    Expression capital = Mean(steps, "総資本の平均", last, current);
    const auto least = static_cast<float>(y_least_capital.Count());
    if (mean < least) {
        mean = least;
        const Expression shown = y_least_capital;
        capital = steps.Because("総資本の平均の下限", capital.text + " ＜ " + shown.text, shown);
    }
    Percent_Steps(steps, 3, elements[e::gross_profit], elements[e::gross_profit].Count(), capital,
                  static_cast<double>(mean));
}

/// The operating cash flow of a year: 0 the prior, 1 the current one.
Expression Flow_Of(const Y_Flow& flow, std::size_t year) {
    Expression sum = flow.amounts[0][year];
    const auto count = [&sum](const Y_Flow_Part& part, const Expression& amount) {
        sum = part.adds ? sum + amount : sum - amount;
    };
    for (std::size_t i = 1; i < y_flow_amounts.size(); ++i) {
        count(y_flow_amounts[i], flow.amounts[i][year]);
    }
    for (std::size_t i = 0; i < y_flow_balances.size(); ++i) {
        const auto& balance = flow.balances[i];
        count(y_flow_balances[i], Expression(balance[year]) - balance[year + 1]);
    }
    return sum;
}

void Cash_Flow_Steps(const Check_Figures& f, Steps& steps) {
    const Thousand_Yen last = f.y.elements[e::prior_cash_flow];
    const Thousand_Yen current = f.y.elements[e::cash_flow];
    steps.Work("算出額（前期）", Flow_Of(f.y.flow, 0), last);
    steps.Work("算出額（当期）", Flow_Of(f.y.flow, 1), current);
    const float mean = Mean_Of(last, current);
    const Expression shown = Mean(steps, "二期平均額", last, current);
    Value_Steps(steps, 7, shown / thousand_yen_of_oku, static_cast<double>(mean) / thousand_yen_of_oku);
}

void Ratio_Steps(std::size_t x, const Check_Figures& f, Steps& steps, e::Place numerator,
                 e::Place denominator) {
    if (!Lacks(steps, x, f, denominator)) {
        const Thousand_Yen above = f.y.elements[numerator];
        const Thousand_Yen below = f.y.elements[denominator];
        Percent_Steps(steps, x, above, above.Count(), below, below.Count());
    }
}

void Surplus_Steps(const Check_Figures& f, Steps& steps) {
    const Thousand_Yen surplus = f.y.elements[e::retained_earnings];
    Value_Steps(steps, 8, Expression(surplus) / thousand_yen_of_oku,
                static_cast<double>(surplus.Count()) / thousand_yen_of_oku);
}

} // namespace

void Steps_Of_Indicator(std::size_t x, const Check_Figures& f, Steps& steps) {
    switch (x) {
    case 1:
        Interest_Steps(f, steps);
        return;
    case 2:
        Debt_Steps(f, steps);
        return;
    case 3:
        Capital_Steps(f, steps);
        return;
    case 4:
        Ratio_Steps(x, f, steps, e::ordinary_profit, e::sales);
        return;
    case 5:
        Ratio_Steps(x, f, steps, e::equity, e::fixed_assets);
        return;
    case 6:
        Ratio_Steps(x, f, steps, e::equity, e::total_capital);
        return;
    case 7:
        Cash_Flow_Steps(f, steps);
        return;
    default:
        Surplus_Steps(f, steps);
    }
}

void Steps_Of_A(const Check_Figures& f, Steps& steps) {
    const auto weighted = [&f](std::size_t i, double weight) {
        return Expression(weight, y_weight_decimals) * Expression(static_cast<double>(f.y.indicators[i]), 3);
    };
    Expression sum = weighted(0, y_indicators[0].weight);
    for (std::size_t i = 1; i < y_indicators.size(); ++i) {
        const double weight = y_indicators[i].weight;
        sum = weight < 0 ? sum - weighted(i, -weight) : sum + weighted(i, weight);
    }
    steps.Work("経営状況点数", sum + Expression(y_points_base, y_weight_decimals),
               Expression(static_cast<double>(f.y.points), 2), Rounding::From_499, 2);
}

void Steps_Of_Y(const Check_Figures& f, Steps& steps) {
    const Expression points(static_cast<double>(f.y.points), 2);
    const Expression score =
        steps.Work("経営状況評点", Expression::Decimal(y_score_factor) * points + y_score_base,
                   Score_Of_Points(f.y.points), Rounding::From_499);
    steps.At_Least(score, 0);
}

} // namespace morvane
