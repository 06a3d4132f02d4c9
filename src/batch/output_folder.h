// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <filesystem>

namespace morvane {

/// The folder that a command writes its files into; its last level is made where it is missing. Raises
/// Usage_Error where it cannot be, where the folder above is missing or one of the system's (/dev), and where
/// it is the program's own.
void Make_Output_Folder(const std::filesystem::path& folder);

} // namespace morvane
