// SPDX-FileCopyrightText: The Morvane developers
#include "review/explain.h"

namespace morvane {

namespace {

// A sum of several terms is a step of its own.
Expression Summed(const char* name, const Twelve_Terms& terms, const Twelve_Sum& sum, Steps& steps) {
    const Expression total = Twelve_Sum_Of(terms, sum);
    return sum.size == 1 ? total : steps.Work(name, total, Expression(total.value.To_Double(), 0));
}

} // namespace

void Steps_Of_Twelve(std::size_t i, const Check_Figures& f, Steps& steps) {
    const Twelve_Indicator& indicator = twelve_indicators[i];
    const Expression shown(f.twelve.values[i], 3);
    const Expression divisor = Twelve_Sum_Of(f.twelve.terms, indicator.below);
    if (divisor.value == Fraction(0)) {
        const bool one = indicator.below.size == 1;
        steps.Because(one ? twelve_terms[indicator.below.terms[0]] : "分母",
                      one ? "0" : divisor.text + " ＝ 0", shown);
        return;
    }
    const Expression above = Summed("分子", f.twelve.terms, indicator.above, steps);
    const Expression below = Summed("分母", f.twelve.terms, indicator.below, steps);
    const bool months = indicator.unit == Twelve_Indicator::Unit::Months;
    steps.Work(indicator.name, months ? above / (below / 12) : above / below * 100, shown, Rounding::Half, 3);
}

} // namespace morvane
