// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/y_indicators.h"
#include "review/review_figures.h"
#include "session/session.h"

#include <array>

namespace morvane {

/// What the operating cash flows of the prior and of the current period are formed of.
struct Y_Flow {
    /// By y_flow_amounts: of the prior and of the current period.
    std::array<std::array<Thousand_Yen, 2>, y_flow_amounts.size()> amounts{};
    /// By y_flow_balances: at the ends of the second prior, of the prior and of the current period.
    std::array<std::array<Thousand_Yen, 3>, y_flow_balances.size()> balances{};
};

using Y_Elements = std::array<Thousand_Yen, y_element::count>; ///< by y_element::Place

/// The management-status score (経営状況 評点Y) and what led to it. The indicators, their rates and the
/// points A are single precision and stay so.
struct Y_Result {
    Y_Elements elements{};
    Y_Flow flow;
    std::array<float, y_indicators.size()> indicators{}; ///< X1 to X8
    std::array<float, y_indicators.size()> rates{};      ///< achievement rates, percent
    float points = 0.0F;                                 ///< points A, two decimals
    Points score;                                        ///< Y
    bool has_figures = false; ///< the period has rows and at least one element is not 0
};

/// Computes Y of a statement. One without rows leaves elements and indicators as in `former`, and rates,
/// points and score are formed of these. Raises Run_Time_Error on overflow.
[[nodiscard]] Y_Result Calc_Y(const Statement_Figures& statement, Firm_Kind firm,
                              const Y_Result& former = {});

/// The same of a side in the working store. Raises Store_Error besides.
[[nodiscard]] Y_Result Calc_Y(const Session& session, Side side, const Y_Result& former = {});

/// The mean of two periods; the analysis holds it in single precision.
[[nodiscard]] float Mean_Of(Thousand_Yen a, Thousand_Yen b);

/// The same of a firm of which the elements alone are known. Raises Run_Time_Error on overflow.
[[nodiscard]] Y_Result Calc_Y(const Y_Elements& elements);

/// floor(v × scale + 0.501) ÷ scale: the rounding of the analysis.
[[nodiscard]] double Round_501(double v, double scale);

/// The score Y of the points A before it is held at 0. Raises Run_Time_Error beyond 16 bits.
[[nodiscard]] Points Score_Of_Points(float points);

} // namespace morvane
