// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <cstdint>

namespace morvane {

/// Brings the period in hand up to the present table forms: changes made once a store are entered in the
/// ledger sys_info, missing rows of work types and elements are added. Reads Data_Ver and Syori_Ki. A
/// complete store is not written at all; otherwise all changes are one transaction. Raises Store_Error.
void Table_Edit_Run(const Session& session);

/// The same on the open working store `cn`, within the caller's transaction.
void Table_Edit(const Connection& cn, const Session& session);

/// Whether the change `info_no` is entered in the ledger of the store.
bool Sys_Info_Has(const Connection& cn, int info_no);

/// Whether a period has the row of an element.
bool Has_Element(const Connection& cn, int period, int code);

/// Adds the element rows of the young engineers (221 to 227, revision of 2015) that the period lacks.
void Add_Young_Engineer_Rows(const Connection& cn, int period);

} // namespace morvane
