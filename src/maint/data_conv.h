// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <filesystem>

namespace morvane {

/// Converts the period in hand from the law year 2012 to 2015 on the user's demand: refuses data older than
/// the form of 2010 and data that are of 2015 already, asks, adds what is missing, sets the law year of the
/// session. False where it was refused or answered with No. One transaction. Raises Store_Error.
bool Mnu_Dt2015(Session& session);

/// Converts the statement of the period in hand from the form of 2008 to that of 2010 (lease accounts):
/// shifts account codes, renames, adds the new rows, sets the data form. False where it was refused or
/// answered with No. One transaction. Raises Store_Error.
bool Conv_2008_To_2010(Session& session);

/// Takes the tables of a whole store in a backup folder into the working store, each emptied first; columns
/// that only one side has are left. False for an empty folder name. One transaction. Raises Store_Error.
bool Dt_Conv(Session& session, const std::filesystem::path& folder);

/// Asks whether the import is left without a conversion.
bool Dt_Conv_Cancelled(const Session& session);

} // namespace morvane
