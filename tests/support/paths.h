// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <filesystem>

namespace morvane::tests {

/// The delivered stores as the build made them.
std::filesystem::path Templates_Folder();

/// The case files of the sample firms.
std::filesystem::path Samples_Folder();

/// The program with its windows.
std::filesystem::path Program_File();

} // namespace morvane::tests
