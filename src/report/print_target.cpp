// SPDX-FileCopyrightText: The Morvane developers
#include "report/print_target.h"

#include "report/report_font.h"

#include <algorithm>
#include <array>
#include <iterator>

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

struct Range {
    char32_t first, last;
};

/// Characters without a shape of their own (Default_Ignorable_Code_Point of Unicode), selectors apart.
constexpr Range shapeless[] = {{0xad, 0xad},      {0x34f, 0x34f},     {0x61c, 0x61c},     {0x115f, 0x1160},
                               {0x17b4, 0x17b5},  {0x180b, 0x180f},   {0x200b, 0x200f},   {0x202a, 0x202e},
                               {0x2060, 0x206f},  {0x3164, 0x3164},   {0xfeff, 0xfeff},   {0xffa0, 0xffa0},
                               {0xfff0, 0xfff8},  {0x1bca0, 0x1bca3}, {0x1d173, 0x1d17a}, {0xe0000, 0xe00ff},
                               {0xe01f0, 0xe0fff}};
constexpr Range selectors[] = {{0xfe00, 0xfe0f}, {0xe0100, 0xe01ef}};

template <std::size_t Size>
bool Is_In(const Range (&ranges)[Size], char32_t character) {
    return std::any_of(std::begin(ranges), std::end(ranges), [&](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

/// The kana with its mark (U+3099 voiced, U+309A half voiced) in one character; 0 where there is none.
char32_t Voiced(char32_t kana, char32_t mark) {
    constexpr char32_t katakana = 0x60; // so far behind hiragana
    const char32_t shift = kana >= 0x30a1 && kana <= 0x30fe ? katakana : 0;
    const std::u32string_view voiced = U"かきくけこさしすせそたちつてとはひふへほゝ";
    const std::u32string_view half_voiced = U"はひふへほ";
    if (mark == 0x3099 && kana - shift == U'う') {
        return U'ゔ' + shift;
    }
    if (mark == 0x3099 && voiced.find(kana - shift) != std::u32string_view::npos) {
        return kana + 1;
    }
    return mark == 0x309a && half_voiced.find(kana - shift) != std::u32string_view::npos ? kana + 2 : 0;
}

void Append_Utf8(std::string& text, char32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
        return;
    }
    const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    text +=
        static_cast<char>(leads[static_cast<std::size_t>(following)].mark | (character >> (6 * following)));
    for (int i = following - 1; i >= 0; --i) {
        text += static_cast<char>(0x80U | ((character >> (6 * i)) & 0x3fU));
    }
}

} // namespace

double Print_Target::Char_Width(const Letter& letter, Report_Face face, double size) {
    return Advance_Of(letter, face) * size * mm_per_point;
}

double Print_Target::Text_Width(std::string_view text, Report_Face face, double size) {
    double width = 0;
    if (Is_Plain(text)) {
        for (const char letter : text) {
            width += Advance_Of({static_cast<char32_t>(letter)}, face);
        }
    } else {
        for (const Letter& letter : Letters_Of(text)) {
            width += Advance_Of(letter, face);
        }
    }
    return width * size * mm_per_point;
}

bool Is_Plain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char byte) { return byte >= ' ' && byte <= '~'; });
}

std::vector<Letter> Letters_Of(std::string_view text) {
    std::vector<Letter> letters;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = Next_Character(text, at);
        if (Is_In(selectors, character)) {
            if (!letters.empty() && letters.back().variant == 0) {
                letters.back().variant = character;
            }
        } else if (const char32_t kana = letters.empty() ? 0 : Voiced(letters.back().character, character)) {
            letters.back().character = kana;
        } else if (!Is_In(shapeless, character)) {
            letters.push_back({character, 0});
        }
    }
    return letters;
}

std::string Utf8_Of(const Letter& letter) {
    std::string text;
    Append_Utf8(text, letter.character);
    if (letter.variant != 0) {
        Append_Utf8(text, letter.variant);
    }
    return text;
}

std::string Drawable(std::string_view text) {
    std::string drawable;
    for (const Letter& letter : Letters_Of(text)) {
        drawable += Utf8_Of(letter);
    }
    return drawable;
}

} // namespace morvane
