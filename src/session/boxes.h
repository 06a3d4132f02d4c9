// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <string>

namespace morvane {

/// A refusal or a notice: beep, information icon, one button.
void Tell(const Session& session, const std::string& title, const std::string& text);

/// A question: beep, warning icon, Yes and No with No as the default. Whether it was answered with Yes.
bool Ask(const Session& session, const std::string& title, const std::string& text);

} // namespace morvane
