// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <filesystem>

namespace morvane::tests {

/// The name of the environment variable that makes the test program a session to be killed.
inline constexpr const char* crash_variable = "MORVANE_CRASH_SESSION";

/// A person's session on an installation with the companies 12 and 34: takes company 12 in hand from the
/// list, renames it to 青葉改 in its screen, takes 34 and makes a new period there. Then the process is
/// killed.
[[noreturn]] void Run_Crash_Session(const std::filesystem::path& folder);

} // namespace morvane::tests
