// SPDX-FileCopyrightText: The Morvane developers
#include "session/kidou_ini.h"

#include "data/store_error.h"
#include "data/store_file.h"

#include <charconv>
#include <optional>

namespace morvane {

namespace {

std::optional<std::string> Unquoted(std::string_view text) {
    if (text.size() < 2 || text.front() != '"' || text.back() != '"') {
        return std::nullopt;
    }
    std::string name;
    for (std::size_t at = 1; at + 1 < text.size(); ++at) {
        if (text[at] == '"' && (++at + 1 >= text.size() || text[at] != '"')) {
            return std::nullopt;
        }
        name += text[at];
    }
    return name;
}

} // namespace

std::filesystem::path Kidou_File(const std::filesystem::path& app_path) {
    return Find_File(app_path, "kidou.ini");
}

Kidou_Marker Read_Kidou_Ini(const std::filesystem::path& app_path) {
    const std::filesystem::path file = Kidou_File(app_path);
    std::string text = Read_Text_File(file);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.pop_back();
    }
    Kidou_Marker marker;
    const char* end = text.data() + text.size();
    const auto number = std::from_chars(text.data(), end, marker.number);
    if (number.ec == std::errc() && number.ptr != end && *number.ptr == ',') {
        if (auto name = Unquoted({number.ptr + 1, end})) {
            marker.name = std::move(*name);
            return marker;
        }
    }
    throw Store_Error(file, Store_Error::Reason::Bad_Content, "事業所番号と事業所名の行ではありません");
}

std::string Kidou_Text(const Kidou_Marker& marker) {
    std::string text = std::to_string(marker.number) + ",\"";
    for (const char c : marker.name) {
        text += c;
        if (c == '"') {
            text += c;
        }
    }
    return text + "\"\n";
}

void Write_Kidou_Ini(const std::filesystem::path& app_path, const Kidou_Marker& marker) {
    Write_Text_File(Kidou_File(app_path), Kidou_Text(marker));
}

} // namespace morvane
