// SPDX-FileCopyrightText: The Morvane developers
#include "report/print_target.h"

#include "report/report_font.h"

#include <array>

namespace morvane {

namespace {

struct Lead {
    unsigned char mask, mark;
    int following;
    char32_t least; ///< a smaller character is written with fewer bytes
};
constexpr std::array<Lead, 4> leads = {
    {{0x80, 0x00, 0, 0}, {0xe0, 0xc0, 1, 0x80}, {0xf0, 0xe0, 2, 0x800}, {0xf8, 0xf0, 3, 0x10000}}};

bool Is_Drawn(char32_t character) {
    const bool control = character < 0x20 || (character >= 0x7f && character < 0xa0);
    const bool surrogate = character >= 0xd800 && character < 0xe000;
    return !control && !surrogate && character <= 0x10ffff;
}

/// The character at `at`, which moves behind it; a blank where there is none.
char32_t Next_Character(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(at++);
    for (const Lead& lead : leads) {
        if ((first & lead.mask) != lead.mark) {
            continue;
        }
        char32_t character = first & static_cast<unsigned char>(~lead.mask);
        for (int i = 0; i < lead.following; ++i) {
            if (at >= text.size() || (byte(at) & 0xc0) != 0x80) {
                return U' ';
            }
            character = (character << 6) | (byte(at++) & 0x3fU);
        }
        return character >= lead.least && Is_Drawn(character) ? character : U' ';
    }
    return U' ';
}

} // namespace

double Print_Target::Char_Width(char32_t character, Report_Face face, double size) const {
    return Advance_Of(character, face) * size * mm_per_point;
}

std::u32string Characters_Of(std::string_view text) {
    std::u32string characters;
    for (std::size_t at = 0; at < text.size();) {
        characters += Next_Character(text, at);
    }
    return characters;
}

std::string Utf8_Of(char32_t character) {
    std::string text;
    if (character < 0x80) {
        text += static_cast<char>(character);
        return text;
    }
    const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    text +=
        static_cast<char>(leads[static_cast<std::size_t>(following)].mark | (character >> (6 * following)));
    for (int i = following - 1; i >= 0; --i) {
        text += static_cast<char>(0x80U | ((character >> (6 * i)) & 0x3fU));
    }
    return text;
}

std::string Drawable(std::string_view text) {
    std::string drawable;
    for (const char32_t character : Characters_Of(text)) {
        drawable += Utf8_Of(character);
    }
    return drawable;
}

} // namespace morvane
