// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <optional>
#include <string>

namespace morvane {

class Progress;
struct Session;

/// The address of the explanatory page of a score: `host` is the host of the help pages (with or without
/// https://), `key` the score's ("X2-1", "11W7").
std::string Kaisetu_Address(const std::string& host, const std::string& key);

/// An explanatory page to be opened: its address, and the host that tells whether there is a connection.
struct Kaisetu_Page {
    std::string address;
    std::string probed_host;
};

/// The first half of Cmd_Kaisetu: the page of a score, once the user has agreed; empty otherwise. A box tells
/// of a missing host in the settings. Raises Store_Error where the settings cannot be read.
std::optional<Kaisetu_Page> Ask_Kaisetu(const Session& session, const std::string& key);

enum class Kaisetu_Result { Opened, No_Connection, No_Browser };

/// The second half: tests the connection and, unless it was asked to stop, opens the page in the browser. It
/// waits for the network, seconds at worst, and touches nothing else, so that it may run beside the windows.
Kaisetu_Result Open_Kaisetu(const Kaisetu_Page& page, Progress& progress);

/// The box for what came of it, none where the page was opened.
void Tell_Kaisetu(const Session& session, Kaisetu_Result result);

} // namespace morvane
