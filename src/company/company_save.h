// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "company/company_info.h"

namespace morvane {

/// How saving a company went.
struct Save_Result {
    enum class Outcome : std::uint8_t {
        Saved,
        Registered, ///< a new company, which is now in hand
        Refused,    ///< an entry was refused or a question answered No; nothing changed
        Failed,     ///< a file could not be written, which was said; nothing changed
        Discarded   ///< the same, and the user gives the entries up
    };
    Outcome outcome = Outcome::Refused;
    std::string focus; ///< the field the refusal is about
};

/// Saves the company screen (Cmd_Excute): all tests and questions first, then the actions, all of them or
/// none. A new company gets its data file and its row in the register and is taken in hand; of the company in
/// hand number, names, period and firm type may change, with everything that hangs on them. After No the
/// field in `entry` holds its stored value again; the reading of the name is brought to half-width kana. Sets
/// the session. Raises Unfinished_Work where neither the way on nor the way back could be written.
Save_Result Save_Company(Session& session, Company_Screen screen, Company_Entry& entry);

/// The period field of Frm_Jgmas is left. Where it is blank or changed, the refusals and the question; after
/// Yes the edits so far are saved, as far as they are whole, and the periods renumbered at once. The firm
/// type is not saved: its change has a question of its own. Saved where the periods moved or nothing was to
/// be done.
Save_Result Leave_Period(Session& session, Company_Entry& entry);

} // namespace morvane
