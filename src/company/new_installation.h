// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/firm_kind.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace morvane {

/// Settings of a new installation.
struct Init_Options {
    std::optional<Edition> edition = Edition::National; ///< none: chosen at the first start
    bool multi = true;
    std::string office_name{}; ///< of the adviser's office or of the firm
};

/// What of an installation stands in a folder, by name: settings, stores, register, marker, data folder.
std::vector<std::string> Installation_Parts(const std::filesystem::path& folder);

/// Makes the folder, with those above it, where it is not there. Raises Store_Error.
void Make_Installation_Folder(const std::filesystem::path& folder);

/// Fills an installation folder from the templates: stores, register, marker, settings. Nothing that stands
/// there is replaced; the instance lock is held by the caller. The settings are written last, so that a
/// folder that was left half made is finished by the next call. Raises Store_Error, also for a folder that
/// holds companies and has lost its settings.
void New_Installation(const std::filesystem::path& templates, const std::filesystem::path& folder,
                      const Init_Options& options);

/// Makes what an installation has lost, and only that, from what is there: mode and edition of the settings
/// from the stores, the register from the data files, the marker from the working store; templates and a
/// blank working store as delivered. `edition` counts where the stores do not tell it. Gives a line for each
/// thing made and for each data file that could not be registered. The instance lock is held by the caller.
/// Raises Store_Error.
std::vector<std::string> Repair_Installation(const std::filesystem::path& templates,
                                             const std::filesystem::path& folder,
                                             std::optional<Edition> edition);

} // namespace morvane
