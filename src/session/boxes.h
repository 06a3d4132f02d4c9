// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/messages.h"

#include <string>

namespace morvane {

struct Session;

/// Shows a box; a session without a port raises std::logic_error.
Answer Show_Message(const Session& session, const Message_Box& box);

/// A refusal or a notice: beep, information icon, one button.
void Tell(const Session& session, const std::string& title, const std::string& text);

/// A question: beep, warning icon, Yes and No with No as the default. Whether it was answered with Yes.
bool Ask(const Session& session, const std::string& title, const std::string& text);

} // namespace morvane
