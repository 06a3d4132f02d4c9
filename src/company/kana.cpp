// SPDX-FileCopyrightText: The Morvane developers
#include "company/kana.h"

#include <array>
#include <cstddef>

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

} // namespace morvane
