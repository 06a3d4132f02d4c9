// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/law_year.h"
#include "session/session.h"

namespace morvane {

/// Sets the law year of a period and renumbers its elements so that they mean what the screens of that law
/// year read. Where 厚生年金 has no row of its own, its row waits under another code and the rows behind it
/// move up by one; where it has, they move down again and the waiting row (or a new one) takes its place.
/// Rows that the law year brought are added. One transaction. Raises Store_Error.
void Set_Law_Year(const Session& session, int period, Law_Year_No law_year);

/// The same on the open working store `cn`, within the caller's transaction.
void Set_Law_Year(const Connection& cn, int period, Law_Year_No law_year);

/// Writes the law year of a period into its row, where it has one. Within the caller's transaction.
void Put_Law_Year(const Connection& cn, int period, Law_Year_No law_year);

/// The schemes behind the insurances each move down by one and leave their first place to 厚生年金: the row
/// that waited, else a new one. For a period that does not tell it apart. Within the caller's transaction.
void Make_Room_For_Pension(const Connection& cn, int period);

/// Adds the rows of law year, rehabilitation, machines and ISO that a period lacks; a new one holds the law
/// year that brought them. Within the caller's transaction.
void Add_Law_Rows(const Connection& cn, int period);

} // namespace morvane
