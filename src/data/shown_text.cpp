// SPDX-FileCopyrightText: The Morvane developers
#include "data/shown_text.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace morvane {

namespace {

/// One character of a text: its bytes, and its number where they are well-formed UTF-8.
struct Character {
    std::size_t size = 1;
    std::uint32_t number = 0;
    bool is_valid = false;
};

unsigned Byte(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

Character First_Of(std::string_view text) {
    const unsigned lead = Byte(text, 0);
    if (lead < 0x80U) {
        return {1, lead, true};
    }
    const std::size_t size = lead >= 0xF0U ? 4 : lead >= 0xE0U ? 3 : 2;
    if (lead < 0xC2U || lead > 0xF4U || text.size() < size) {
        return {};
    }
    std::uint32_t number = lead & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if ((Byte(text, i) & 0xC0U) != 0x80U) {
            return {};
        }
        number = (number << 6U) | (Byte(text, i) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 5> lowest = {0, 0, 0x80, 0x800, 0x10000};
    const bool is_surrogate = number >= 0xD800U && number <= 0xDFFFU;
    if (number < lowest.at(size) || number > 0x10FFFFU || is_surrogate) {
        return {};
    }
    return {size, number, true};
}

// Controls of both ranges, line and paragraph separators, marks and overrides of direction.
bool Is_Control(std::uint32_t number) {
    return number < 0x20U || (number >= 0x7FU && number < 0xA0U) || number == 0x200EU || number == 0x200FU ||
           (number >= 0x2028U && number <= 0x202EU) || (number >= 0x2066U && number <= 0x2069U);
}

std::string Escaped(const char* form, unsigned number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), form, number);
    return text.data();
}

std::string Visible(std::string_view bytes, const Character& character) {
    if (!character.is_valid) {
        return Escaped("\\x%02X", Byte(bytes, 0));
    }
    if (!Is_Control(character.number)) {
        return std::string(bytes);
    }
    switch (character.number) {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return Escaped(character.number < 0x80U ? "\\x%02X" : "\\u%04X", character.number);
    }
}

} // namespace

std::string Shown_Text(std::string_view text, std::size_t most) {
    std::string shown;
    std::size_t count = 0;
    while (!text.empty()) {
        const Character character = First_Of(text);
        if (count < most) {
            shown += Visible(text.substr(0, character.size), character);
        }
        ++count;
        text.remove_prefix(character.size);
    }
    if (count > most) {
        shown += "…（全" + std::to_string(count) + "文字）";
    }
    return shown;
}

std::string Shown_Lines(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const Character character = First_Of(text);
        const std::string_view bytes = text.substr(0, character.size);
        shown += bytes == "\n" ? std::string("\n") : Visible(bytes, character);
        text.remove_prefix(character.size);
    }
    return shown;
}

bool Has_Control(std::string_view text, bool has_lines) {
    while (!text.empty()) {
        const Character character = First_Of(text);
        const bool of_lines = text[0] == '\n' || text[0] == '\r' || text[0] == '\t';
        if (character.is_valid && Is_Control(character.number) && !(has_lines && of_lines)) {
            return true;
        }
        text.remove_prefix(character.size);
    }
    return false;
}

} // namespace morvane
