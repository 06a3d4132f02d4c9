// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <filesystem>
#include <string>

namespace morvane {

/// Settings of a new installation.
struct Init_Options {
    std::string edition = "13"; ///< 01 Hokkaido, 13 national; empty: chosen at the first start
    bool multi = true;
    std::string office_name{}; ///< of the adviser's office or of the firm
};

/// Fills an installation folder from the templates: stores, register, marker, settings. The settings are
/// written last, so that a folder that was left half made is made again. Raises Store_Error.
void New_Installation(const std::filesystem::path& templates, const std::filesystem::path& folder,
                      const Init_Options& options);

/// The name of an edition: 北海道 for "01", else 全国.
std::string Edition_Name(const std::string& edition);

} // namespace morvane
