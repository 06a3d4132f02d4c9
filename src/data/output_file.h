// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <filesystem>
#include <string_view>

namespace morvane {

/// Writes a file that the user asked for (PDF, CSV, case file) to where he pointed. A regular file of his own
/// is replaced whole or not at all and keeps its mode; a link is followed; into a device, a pipe, another
/// user's file, or a file with several names the bytes are written as they are. Raises Store_Error, also for
/// a file that nobody may write and for a place that Test_Output_Place refuses.
void Write_Output(const std::filesystem::path& target, std::string_view bytes);

/// Raises Store_Error for a target that is the program's own: in an installation folder or its folders of
/// stores (links are followed), or a store wherever it stands.
void Test_Output_Place(const std::filesystem::path& target);

} // namespace morvane
