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

/// The folder that holds the stores: the program's own where it holds an installation, be it writable or not,
/// or the delivered templates and is writable; otherwise morvane in the user's data folder (XDG_DATA_HOME).
std::filesystem::path Choose_App_Path(const std::filesystem::path& program = Program_Folder());

/// Raises Store_Error, with what is to be done, where the program cannot read and write the folder.
void Test_Writable(const std::filesystem::path& app_path);

} // namespace morvane
