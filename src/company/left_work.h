// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <cstdint>

namespace morvane {

/// The company of multi-company mode whose newest state the working store holds, because a session is going
/// on or was broken off; 0 none. `recorded` is the number in the lock file: a company that was registered and
/// not yet taken in hand through the list is known from there alone, while the marker tells a clean end.
/// Changes nothing. Raises Store_Error.
std::int32_t Company_In_Working_Store(const Session& session, std::int32_t recorded);

/// Puts the marker right where a crash fell between the working store and the marker of a check-out: the
/// working store itself tells whose it is, if number, edition and the name in the register fit. Only in
/// multi-company mode, with an unclean marker. Raises Store_Error.
void Settle_Marker(const Session& session);

/// Puts the working store of multi-company mode right before it is taken over: one that cannot be read, or
/// that is not the company's which the marker (or the lock file) names, is kept under a dated name and said;
/// that company is taken from its own file, and where this cannot be either, or none was in hand, the blank
/// working store of the edition stands in its place. Nothing in single-company mode, whose only data it would
/// be. Raises Store_Error.
void Mend_Working_Store(Session& session, std::int32_t recorded);

} // namespace morvane
