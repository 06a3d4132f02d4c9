// SPDX-FileCopyrightText: The Morvane developers
#include "report/report_heading.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <string_view>
#include <utility>

namespace morvane {

namespace {

std::string Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 16> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y/%m/%d", &local)};
}

std::string Period_Of(const Report_Heading& heading) {
    return "第" + std::to_string(heading.Syori_Ki) + "期";
}

/// The text without what some file system refuses in a name.
std::string File_Part(std::string_view text) {
    std::string part = Drawable(text);
    std::replace_if(
        part.begin(), part.end(),
        [](char c) { return std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos; }, '_');
    return part;
}

/// The text in at most so many bytes, cut between letters.
std::string Cut(const std::string& text, std::size_t bytes) {
    std::string cut;
    for (const Letter& letter : Letters_Of(text)) {
        const std::string next = Utf8_Of(letter);
        if (cut.size() + next.size() > bytes) {
            break;
        }
        cut += next;
    }
    return cut;
}

} // namespace

Report_Heading Heading_Of(const Session& session, std::string jigyo_name, int period, std::string word) {
    return {std::move(jigyo_name), period, std::move(word), Today(),
            session.Is_Multi() ? session.Office_Name : ""};
}

std::string Document_Title(const std::string& report_title, const Report_Heading& heading) {
    return report_title + " " + heading.Jigyo_Name + " " + Period_Of(heading) + " " + heading.word;
}

std::string Pdf_File_Name(const std::string& report_title, const Report_Heading& heading) {
    constexpr std::size_t most_bytes = 255;
    const std::string before = File_Part(report_title) + "_";
    const std::string behind = "_" + Period_Of(heading) + "_" + File_Part(heading.word) + ".pdf";
    return before + Cut(File_Part(heading.Jigyo_Name), most_bytes - before.size() - behind.size()) + behind;
}

std::string Missing_Notice(std::span<const Letter> missing) {
    constexpr std::size_t most_named = 5;
    std::string codes;
    for (const Letter& letter : missing.first(std::min(missing.size(), most_named))) {
        std::array<char, 16> code{};
        std::snprintf(code.data(), code.size(), "U+%04X", static_cast<unsigned>(letter.character));
        codes += (codes.empty() ? "" : "、") + std::string(code.data());
    }
    return missing.empty() ? ""
                           : "この装置のどのフォントにもない文字（" + codes +
                                 (missing.size() > most_named ? "ほか" : "") + "）を「〓」で印刷します。";
}

} // namespace morvane
