// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/value.h"
#include "session/session.h"

#include <string>
#include <vector>

namespace morvane {

/// A line of the prior-period figures: a pseudo account of the period in hand.
struct Prior_Row {
    int code = 0;
    std::string name;
    Value amount; ///< yen; Null is blank
};

/// The figures that the two-period averages need of the period before (820 on) and of the one before that
/// (800 on), as they are keyed.
struct Prior_Figures {
    std::vector<Prior_Row> prior;
    std::vector<Prior_Row> second_prior;
};

/// Reads both blocks; an individual does not see retained earnings carried forward (838). Raises Store_Error.
Prior_Figures Load_Prior_Figures(const Session& session);

/// Stores both blocks in one transaction, as amount and as balance after the journal. A blank leaves what is
/// stored. Raises Store_Error.
void Save_Prior_Figures(const Session& session, const Prior_Figures& figures);

/// Asks and fills a block from the statements of the period before (`second_prior`: of the one before that).
/// False where the user does not want it. Raises Store_Error.
bool Copy_Prior_Figures(const Session& session, bool second_prior);

/// The change of shareholders' equity over the period (901), which only the balance check reads. A period of
/// older data without the row gets it. Raises Store_Error.
Prior_Row Load_Equity_Change(const Session& session);

/// Stores it as amount and as balance after the journal, a blank as 0, and computes Y for both columns. What
/// cannot be computed of Y is told in a box and no reason to stay. Raises Store_Error.
void Save_Equity_Change(const Session& session, const Value& amount);

} // namespace morvane
