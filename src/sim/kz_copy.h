// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/scenario.h"
#include "session/session.h"

#include <cstdint>
#include <string>

namespace morvane {

/// The copies between the scenarios of the period in hand: the current figures, the working scenario after
/// improvement and three saved ones. Each of them is one transaction, which also settles the scores of the
/// figures that it changed, and raises Store_Error with nothing copied. The sixth engineer class
/// (監理技術者補佐) stays out of all of them.

/// Works and elements of the current figures over those of the working scenario. Its balances and the journal
/// stay.
void KzCopy_MaeToGo(const Session& session);

/// Balances, works and elements of the working scenario over the current figures. The journal and the law
/// year stay; so does what the working scenario has nothing of: where none of its figures of a table was ever
/// formed they are those of the current state. The totals of the statements are formed anew.
void KzCopy_GoToMae(const Session& session);

/// The working scenario with its journal into a saved one and back, blank figures as well.
void KzCopy_SlotSave(const Session& session, Scenario slot);
void KzCopy_SlotLoad(const Session& session, Scenario slot);

/// Whether a saved scenario holds an overall score; one of 0 counts. Raises Store_Error.
bool KzCopy_SlotExists(const Session& session, Scenario slot);

/// What a scenario comes to, for somebody about to overwrite it.
struct Scenario_Result {
    int works = 0;           ///< work types with an overall score; 0: nothing was saved
    std::int32_t best_p = 0; ///< the highest of their scores
    std::string best_work;   ///< and whose it is (工種略)

    [[nodiscard]] std::string In_Words() const;
};

/// Reads it of a scenario of the period in hand. Raises Store_Error.
Scenario_Result Result_Of(const Session& session, Scenario scenario);

/// Whether the current or the improved figures have engineers of the sixth class, which no copy takes along.
/// Raises Store_Error.
bool Has_Sixth_Engineers(const Session& session);

/// Whether X2 and W of the improvement were stored, without which there is nothing to compare in print.
/// Raises Store_Error.
bool Has_Improved_X2W(const Session& session);

} // namespace morvane
