// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <string>

namespace morvane {

/// The address of the explanatory page of a score: `host` is the host of the help pages (with or without
/// https://), `key` the score's ("X2-1", "11W7").
std::string Kaisetu_Address(const std::string& host, const std::string& key);

/// Cmd_Kaisetu: asks, tests the connection and opens the explanatory page in the browser. A box tells what
/// is missing: the host in the settings, the connection, the browser. Raises Store_Error where the settings
/// cannot be read.
void Open_Kaisetu(const Session& session, const std::string& key);

} // namespace morvane
