// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/review_figures.h"
#include "review/side.h"
#include "review/works.h"
#include "review/x2_calc.h"
#include "review/y_calc.h"
#include "session/session.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace morvane {

/// All scores of a side of a company, with the figures they settled on.
struct Settled_Score {
    std::int32_t kanri_no = 0;
    std::string jigyo_name;
    Side side;
    bool x2w_entered = false; ///< the items of X2 and W were stored before (element 100)
    Y_Result y;
    X2_Result x2;
    Review_Figures figures;                               ///< elements and works as the store would hold them
    std::array<std::string, work_line_count> kosyu_ryaku; ///< 工種略 of the lines
};

/// The scores that a work type takes from the statement.
struct Statement_Scores {
    Y_Result y;
    X2_Result x2;
};

/// Computes Y and X2 of a side. Raises Run_Time_Error on overflow.
[[nodiscard]] Statement_Scores Calc_Statement(const Review_Figures& figures);

/// Computes Y and X2, which it gives, and opens and closes the screens of X2 and W, of engineers and of
/// completed work on `figures`, in this order, until another round changes nothing: the orders of the screens
/// let some sub-scores reach the total a pass late. At law year 1 the W of the completed-work screen stands,
/// and in the other scenarios than the current one that of the X2/W screen, which alone stores it there. P
/// always holds the W beside it. Raises Run_Time_Error on overflow and where W needs a date that is none.
Statement_Scores Settle(Review_Figures& figures, Scenario scenario = Scenario::Genjo);

/// Settles and stores the scores of a side that figures were brought into from outside; nothing where there
/// are none. The caller holds the transaction. Raises Store_Error, Run_Time_Error.
void Settle_Filled(const Connection& cn, Side side, Firm_Kind firm);

/// Stores what a screen of the works holds, as closing it does; `gijutu` is the engineer screen. The caller
/// holds the transaction. Raises Store_Error, Run_Time_Error.
void Store_Works(const Connection& cn, Side side, const Works& works, bool gijutu);

/// Puts items of X2 and W into a side and forms P anew. Raises Run_Time_Error.
void Put_W_2012(Review_Figures& figures, const Social_Items& items);

/// What storing items of X2 and W leaves on a side, by Store_And_Settle and Store_W_2012. Raises
/// Run_Time_Error.
[[nodiscard]] Review_Figures With_Items(Review_Figures figures, const Social_Items& items, Scenario scenario);

/// Stores the items of a side and forms P anew, as closing the screen of X2 and W does; the rows of knowledge
/// and skill are added where its law year has them and they are missing. The caller holds the transaction.
/// Raises Store_Error, Run_Time_Error.
void Store_W_2012(const Connection& cn, Side side, Firm_Kind firm, const Social_Items& items);

/// Stores by `store` what a review screen holds and, in the same transaction, settles the scores of its side:
/// once X2/W and completed work were both stored (elements 100 and 202), and while the closing date is one.
/// Where a score cannot be computed nothing is stored. Only where it could not be computed before either,
/// what the screen holds is stored alone, so that figures on two screens can be mended one after the other.
/// Raises Store_Error, Run_Time_Error.
void Store_And_Settle(const Session& session, Side side, const std::function<void(const Connection&)>& store);

/// Settles the stored scores of a side once X2/W and completed work were both stored. Scores that can not be
/// computed stay as they are: whatever shows them computes them itself and says why it cannot. The caller
/// holds the transaction. Raises Store_Error.
void Settle_Computable(const Connection& cn, Side side, Firm_Kind firm);

/// The same for every scenario of the period in hand, after a statement, the closing date or the law year may
/// have changed. Raises Store_Error.
void Settle_Again(const Session& session);

/// The first visit of the working scenario of the period in hand, which each improved screen makes before it
/// reads: posts the current figures into it and settles its scores, all or nothing. A scenario that was
/// started before, be it from outside, stays, and so does any item that has a value of its own. Whether this
/// visit was the first. Raises Store_Error, Run_Time_Error.
bool Kaizen_Tenki(const Session& session);

/// Scores a side of a company from an open store, read only; the closing date of another period than the one
/// in hand is whole years from it. A working scenario that was never started is what its
/// first visit would post; an empty slot is refused. Raises Store_Error, Run_Time_Error and Score_Refusal
/// with the reason.
Settled_Score Score_Company(const Connection& cn, Edition edition, const Asked_Side& asked = {});

/// A reason in Japanese why a company has no score (an unregistered period, an empty slot, data too old).
class Score_Refusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace morvane
