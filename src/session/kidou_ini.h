// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace morvane {

/// The marker of multi-company mode: which company was taken into the working store. A first value other than
/// 999999 at start means that the last session ended with that company in hand.
struct Kidou_Marker {
    std::int32_t number = 999999;
    std::string name = "正常終了";

    static constexpr std::int32_t clean_end = 999999;
    [[nodiscard]] bool Is_Clean() const { return number == clean_end; }
};

/// Reads kidou.ini: one line, the number, a comma, the name in double quotes (a quote inside is doubled).
/// Raises Store_Error where the file is missing or is no such line.
Kidou_Marker Read_Kidou_Ini(const std::filesystem::path& app_path);

/// The text of the marker file.
std::string Kidou_Text(const Kidou_Marker& marker);

/// Writes kidou.ini whole or not at all. Raises Store_Error.
void Write_Kidou_Ini(const std::filesystem::path& app_path, const Kidou_Marker& marker);

/// The path of the marker file.
std::filesystem::path Kidou_File(const std::filesystem::path& app_path);

} // namespace morvane
