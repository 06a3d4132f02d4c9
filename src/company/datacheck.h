// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace morvane {

/// Brings the session into line with the working store: period, firm type, data form, pending table changes,
/// law year. Raises Store_Error.
void Company_Reload(Session& session);

/// The resting store of company `number`: data/NNNNNN.dat with the rightmost six digits of the number.
std::filesystem::path Company_Store(const Session& session, std::int32_t number);

/// Saves the company in hand to its resting store. Without one nothing happens. Raises Store_Error, also
/// where the working store is not that company's.
void Check_In(const Session& session);

/// Check-in that is not followed by a check-out: no company is in hand afterwards, the marker tells a clean
/// end.
void Check_In_And_Release(Session& session);

/// Takes company `number` in hand: saves the one in hand, copies the resting store over the working store,
/// writes the marker, reloads the session. Everything is prepared and verified before the first file is
/// replaced; a failure leaves the former company in hand. Raises Store_Error, also for a resting store of
/// another company or edition.
void Check_Out(Session& session, std::int32_t number, const std::string& name);

/// Fills the one row of Jigyo_mas from the settings of the installation (first start). Raises Store_Error.
void Jigyo_Init(const Session& session, const Install_Info& info);

} // namespace morvane
