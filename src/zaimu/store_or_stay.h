// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <functional>

namespace morvane {

/// Stores what a screen holds. A failing store is told in a box that names the file, and false keeps the
/// screen open with everything that was typed: it can be stored again once the fault is gone.
bool Store_Or_Stay(const Session& session, const std::function<void()>& store);

} // namespace morvane
