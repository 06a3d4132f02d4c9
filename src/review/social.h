// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/scores.h"
#include "review/social_items.h"

#include <cstdint>

namespace morvane {

/// The sub-scores that are formed of several items.
[[nodiscard]] Points W2_Of(const Social_Items& items, const Law_Year& law);
[[nodiscard]] W5_Score W5_Of(const Social_Items& items, Thousand_Yen kanko);
[[nodiscard]] W10_Counts W10_Counts_Of(const Social_Items& items);

/// The sub-scores as they enter W, the seventh given by the caller. Raises Run_Time_Error (overflow, without
/// a name) for one beyond 16 bits.
[[nodiscard]] Sub_Scores Sub_Scores_Of(const Social_Items& items, std::int32_t kikai_ten);

/// The whole calculation of the entry screens of X2 and W (Frm_Syokuta, Frm_Syokuta_2011, Frm_Syokuta_2012),
/// in the order of the screen, but for X2: the items with their scores and W. At law years 3 and 4 the scores
/// of young engineers and of knowledge enter W1 as the pass before left them, and W takes the machine score
/// of the opening, `kikai_ten_of_load`. Raises Run_Time_Error on overflow.
[[nodiscard]] Social_Items Calc_W_2012(const Social_Items& items, std::int32_t kikai_ten_of_load,
                                       const Review_Figures& figures);

} // namespace morvane
