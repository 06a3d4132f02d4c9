// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <cstdint>

namespace morvane {

/// Turns the statement of the period in hand to an individual's captions and visible lines. `keep` 0 wipes
/// the company first (Data_Wipe). One transaction with the wipe. Raises Store_Error.
void To_Kojin(const Session& session, std::int16_t keep);

/// The same to a corporation's.
void To_Houjin(const Session& session, std::int16_t keep);

/// Deletes every period but the one in hand and clears the figures of that one. Element rows, saved
/// scenarios, prime-contract work and engineers are outside the wipe. One transaction. Raises Store_Error.
void Data_Wipe(const Session& session);

} // namespace morvane
