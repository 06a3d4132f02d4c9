// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <cstdint>

namespace morvane {

/// Turns the statement of period `period` to an individual's captions and visible lines. `keep` 0 wipes
/// the company first (Data_Wipe). The caller holds the transaction. Raises Store_Error.
void To_Kojin(const Connection& cn, int period, std::int16_t keep);

/// The same to a corporation's.
void To_Houjin(const Connection& cn, int period, std::int16_t keep);

/// The same for the period in hand, one transaction with the wipe.
void To_Kojin(const Session& session, std::int16_t keep);
void To_Houjin(const Session& session, std::int16_t keep);

/// Deletes every period but `period` and clears the figures of that one. Element rows, saved
/// scenarios, prime-contract work and engineers are outside the wipe. The caller holds the transaction.
/// Raises Store_Error.
void Data_Wipe(const Connection& cn, int period);

} // namespace morvane
