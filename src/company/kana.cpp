// SPDX-FileCopyrightText: The Morvane developers
#include "company/kana.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <utility>

namespace morvane {

namespace {

// From U+30A1 on. Letters without a half-width form take the nearest one (ヰ is ｲ).
constexpr std::array<const char*, 92> from_katakana = {
    "ｧ",  "ｱ",  "ｨ",  "ｲ",  "ｩ",  "ｳ",  "ｪ",  "ｴ",  "ｫ",  "ｵ",  "ｶ", "ｶﾞ", "ｷ",  "ｷﾞ", "ｸ", "ｸﾞ",
    "ｹ",  "ｹﾞ", "ｺ",  "ｺﾞ", "ｻ",  "ｻﾞ", "ｼ",  "ｼﾞ", "ｽ",  "ｽﾞ", "ｾ", "ｾﾞ", "ｿ",  "ｿﾞ", "ﾀ", "ﾀﾞ",
    "ﾁ",  "ﾁﾞ", "ｯ",  "ﾂ",  "ﾂﾞ", "ﾃ",  "ﾃﾞ", "ﾄ",  "ﾄﾞ", "ﾅ",  "ﾆ", "ﾇ",  "ﾈ",  "ﾉ",  "ﾊ", "ﾊﾞ",
    "ﾊﾟ", "ﾋ",  "ﾋﾞ", "ﾋﾟ", "ﾌ",  "ﾌﾞ", "ﾌﾟ", "ﾍ",  "ﾍﾞ", "ﾍﾟ", "ﾎ", "ﾎﾞ", "ﾎﾟ", "ﾏ",  "ﾐ", "ﾑ",
    "ﾒ",  "ﾓ",  "ｬ",  "ﾔ",  "ｭ",  "ﾕ",  "ｮ",  "ﾖ",  "ﾗ",  "ﾘ",  "ﾙ", "ﾚ",  "ﾛ",  "ﾜ",  "ﾜ", "ｲ",
    "ｴ",  "ｦ",  "ﾝ",  "ｳﾞ", "ｶ",  "ｹ",  "ﾜﾞ", "ｲﾞ", "ｴﾞ", "ｦﾞ", "･", "ｰ"};

/// Forms of characters in the names of firms and places, each with the common one.
constexpr std::pair<std::string_view, std::string_view> kanji_forms[] = {
    {"髙", "高"},     {"﨑", "崎"}, {"碕", "崎"}, {"嵜", "崎"}, {"𠮷", "吉"}, {"邊", "辺"}, {"邉", "辺"},
    {"齋", "斎"},     {"齊", "斎"}, {"斉", "斎"}, {"濵", "浜"}, {"濱", "浜"}, {"嶋", "島"}, {"嶌", "島"},
    {"澤", "沢"},     {"廣", "広"}, {"國", "国"}, {"櫻", "桜"}, {"瀨", "瀬"}, {"德", "徳"}, {"眞", "真"},
    {"龍", "竜"},     {"榮", "栄"}, {"會", "会"}, {"萬", "万"}, {"鐵", "鉄"}, {"關", "関"}, {"惠", "恵"},
    {"條", "条"},     {"圓", "円"}, {"藏", "蔵"}, {"豐", "豊"}, {"實", "実"}, {"栁", "柳"}, {"桒", "桑"},
    {"\uFA10", "塚"}, {"淵", "渕"}, {"渊", "渕"}, {"壽", "寿"}, {"靜", "静"}, {"縣", "県"},
};

/// The character of three bytes at `at`; 0 where none begins there.
unsigned Three_Byte_Character(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
    if (at + 2 >= text.size() || (byte(0) & 0xF0U) != 0xE0U) {
        return 0;
    }
    return (byte(0) & 0x0FU) << 12U | (byte(1) & 0x3FU) << 6U | (byte(2) & 0x3FU);
}

} // namespace

std::string Half_Width_Kana(std::string_view text) {
    std::string narrow;
    for (std::size_t at = 0; at < text.size();) {
        unsigned code = Three_Byte_Character(text, at);
        if (code >= 0x3041 && code <= 0x3096) {
            code += 0x60; // hiragana stand in the order of katakana
        }
        if (code >= 0x30A1 && code < 0x30A1 + from_katakana.size()) {
            narrow += from_katakana.at(code - 0x30A1);
        } else if (code == 0x3000) {
            narrow += ' ';
        } else {
            narrow += text.substr(at, code == 0 ? 1 : 3);
        }
        at += code == 0 ? 1 : 3;
    }
    return narrow;
}

std::string Common_Kanji(std::string_view text) {
    std::string common;
    while (!text.empty()) {
        const auto* const form =
            std::find_if(std::begin(kanji_forms), std::end(kanji_forms),
                         [text](const auto& pair) { return text.starts_with(pair.first); });
        const bool is_known = form != std::end(kanji_forms);
        common += is_known ? form->second : text.substr(0, 1);
        text.remove_prefix(is_known ? form->first.size() : 1);
    }
    return common;
}

} // namespace morvane
