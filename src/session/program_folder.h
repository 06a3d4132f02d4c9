// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace morvane {

/// The folder of the running program.
std::filesystem::path Program_Folder();

/// A folder delivered with the program (templates, samples, manual): beside it, or where it is installed.
std::optional<std::filesystem::path> Delivered_Folder(std::string_view name);

/// The folder that holds the stores: the program's own where it is writable and made for that (it holds
/// settings or the delivered templates), otherwise morvane in the user's data folder (XDG_DATA_HOME).
std::filesystem::path Choose_App_Path();

} // namespace morvane
