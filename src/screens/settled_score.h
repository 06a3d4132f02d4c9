// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "calc/review_figures.h"
#include "calc/x2w_dataget.h"
#include "calc/y_calc.h"

#include <cstdint>
#include <optional>
#include <string>

namespace morvane {

/// All scores of a company in one period and scenario, with the figures they settled on.
struct Settled_Score {
    std::int32_t kanri_no = 0;
    std::string jigyo_name;
    int period = 0;
    const Scenario* scenario = &scenario_genjo;
    Y_Calc y;
    X2_Calc x2;
    Review_Figures figures;                               ///< elements and works as the store would hold them
    std::array<std::string, work_line_count> kosyu_ryaku; ///< 工種略 of the lines
};

/// Computes Y and X2 and opens and closes the screens of X2 and W, of engineers and of completed work on
/// `figures`, in this order, until another round changes nothing: the orders of the screens let some
/// sub-scores reach the total a pass late. At law year 1 the W of the completed-work screen stands. Raises
/// Run_Time_Error on overflow.
void Settle(Review_Figures& figures, Y_Calc& y, X2_Calc& x2);

/// Scores a company from an open store, read only. Without `period` the period in hand of Jigyo_mas; for
/// another one the closing date moves by whole years. A working scenario that was never started is what its
/// first visit would post; an empty slot is refused. Raises Store_Error and Run_Time_Error with the reason.
Settled_Score Score_Company(const Connection& cn, bool hokkaido, std::optional<int> period,
                            const Scenario& scenario);

/// A reason in Japanese why a company has no score (an unregistered period, an empty slot, data too old).
class Score_Refusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace morvane
