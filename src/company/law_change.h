// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

namespace morvane {

/// Renumbers the elements of period `period` to the law year 2011, which has no row of its own for 厚生年金:
/// that row waits under code 999, the rows behind it move up by one; 210 becomes 2. One transaction. Raises
/// Store_Error.
void To_Law2011(const Session& session, int period);

/// The way back to the law year 2012: the rows move down again, the waiting row (or a new one) becomes 103;
/// 210 becomes 3. One transaction. Raises Store_Error.
void To_Law2012(const Session& session, int period);

/// Brings the elements of a period to the revision of 2015 and later: the numbering with 厚生年金, the rows
/// of the young engineers, 210 becomes 4. One transaction. Raises Store_Error.
void To_Law2015(const Session& session, int period);

/// Sets the law year of a period (1 to 4) and renumbers its elements so that they mean what the screens of
/// that law year read. One transaction. Raises Store_Error.
void Set_Law_Year(const Session& session, int period, int law_year);

/// The same on the open working store `cn`, within the caller's transaction.
void Set_Law_Year(const Connection& cn, const Session& session, int period, int law_year);

/// 105, 104, 103 each move down by one and leave 103 to 厚生年金: the row that waited under 999, else a new
/// one. For a period without a row 106. Within the caller's transaction.
void Make_Room_For_Pension(const Connection& cn, int period);

/// Adds the rows 210 to 219 (law year, rehabilitation, machines, ISO) that a period lacks; 210 becomes 2.
/// Within the caller's transaction.
void Add_Law_Rows(const Connection& cn, const Session& session, int period);

} // namespace morvane
