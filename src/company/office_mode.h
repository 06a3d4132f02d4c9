// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/network_settings.h"
#include "session/session.h"

#include <map>
#include <optional>
#include <string>

namespace morvane {

/// The entries of the office on the settings screen, by control: Office_Name (事業所名), User_ID (UserID) and
/// Office_Mode: "1" a firm's own use, "2" an office with many companies.
std::map<std::string, std::string> Office_Texts(const Install_Info& info);

/// Tests them. The first fault, none where all can be used.
std::optional<Network_Fault> Test_Office(const std::map<std::string, std::string>& texts);

/// Why the installation cannot change its mode now, in Japanese; empty where it can. From own use to an
/// office it can unless the register holds companies of which this firm is none; back only while no company
/// is registered, for own use has room for one. Raises Store_Error.
std::string Mode_Refusal(const Session& session, bool to_multi);

/// Changes the mode. To an office: register, data folder and marker are made where they are missing, and the
/// firm of the working store becomes a company of the register, with all its data. To own use: the working
/// store is made blank. The settings are written last, so that one that is broken off has changed nothing and
/// can be done again. The session must end then: it is one of the former mode. Raises Store_Error.
void Change_Mode(const Session& session, bool to_multi);

} // namespace morvane
