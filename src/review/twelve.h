// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/twelve_indicators.h"
#include "review/expression.h"
#include "review/y_calc.h"

#include <array>

namespace morvane {

/// Thousand yen, whole but for the mean of two periods, which the analysis holds in single precision.
using Twelve_Terms = std::array<Expression, twelve_term::count>;

/// A sum of terms, as it is printed and as it is.
[[nodiscard]] Expression Twelve_Sum_Of(const Twelve_Terms& terms, const Twelve_Sum& sum);

/// The twelve indicators in their order, percent or months, rounded half up to three decimals; 0 where what
/// they are divided by is 0.
struct Twelve_Result {
    Twelve_Terms terms;
    std::array<double, twelve_indicators.size()> values{};
};

/// Computes them of a statement whose analysis is in hand. Raises Run_Time_Error (overflow) that names an
/// account.
[[nodiscard]] Twelve_Result Calc_Twelve(const Statement_Figures& statement, Firm_Kind firm,
                                        const Y_Result& y);

/// Computes them of the current figures of the period in hand and stores what differs as XW_Yoso 21 to 32.
/// Raises Store_Error, Run_Time_Error.
void Store_Twelve(const Session& session);

/// What the store holds of them for the period in hand; what is missing is 0. Raises Store_Error.
[[nodiscard]] std::array<double, twelve_indicators.size()> Read_Twelve(const Session& session);

} // namespace morvane
