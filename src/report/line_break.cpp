// SPDX-FileCopyrightText: The Morvane developers
#include "report/line_break.h"

#include "report/print_target.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr std::u32string_view begins_no_line =
    U"、。，．・：；？！゛゜ヽヾゝゞ々ー）〕］｝〉》」』】’”°′″℃％‰…‥"
    U"ぁぃぅぇぉっゃゅょゎァィゥェォッャュョヮヵヶ"
    U"､｡･ｰﾞﾟ｣ｧｨｩｪｫｬｭｮｯ"
    U")]},.:;?!%";
constexpr std::u32string_view ends_no_line = U"（〔［｛〈《「『【‘“￥＄｢([{¥$";
constexpr std::u32string_view stays_double = U"…‥―─";

bool Is_Of(std::u32string_view letters, char32_t letter) {
    return letters.find(letter) != std::u32string_view::npos;
}

bool Is_Blank(char32_t letter) {
    return letter == U' ' || letter == U'　';
}

/// Of a word or a number: Latin letters with accents, digits, and the signs inside of them.
bool Is_Of_Word(char32_t letter) {
    constexpr char32_t latin_end = 0x250;
    return letter > U' ' && letter < latin_end && !Is_Of(U"()[]{}¥°", letter);
}

bool Is_Wide_Digit(char32_t letter) {
    return letter >= U'０' && letter <= U'９';
}

/// Whether a line may end between two letters.
bool May_Part(char32_t before, char32_t behind) {
    if (Is_Blank(behind)) {
        return false; // it ends the line
    }
    if (Is_Blank(before)) {
        return true;
    }
    const bool in_word = (Is_Of_Word(before) && Is_Of_Word(behind)) ||
                         (Is_Wide_Digit(before) && (Is_Wide_Digit(behind) || Is_Of(U"，．", behind))) ||
                         (Is_Of(U"，．", before) && Is_Wide_Digit(behind));
    return !in_word && !Is_Of(begins_no_line, behind) && !Is_Of(ends_no_line, before) &&
           !(before == behind && Is_Of(stays_double, before));
}

/// Breaks one paragraph.
class Breaker {
  public:
    Breaker(std::string_view text, float line_width, const Text_Measure& measure)
        : letters(Letters_Of(text)), width(line_width) {
        for (const Letter& letter : letters) {
            widths.push_back(measure(Utf8_Of(letter)));
        }
    }

    void Append_To(std::vector<std::string>& lines) {
        std::size_t first = 0;
        do {
            const std::size_t behind = End_From(first);
            lines.push_back(Line(first, behind));
            first = behind;
            while (first < letters.size() && Is_Blank(letters[first].character)) {
                ++first;
            }
        } while (first < letters.size());
    }

  private:
    /// Where the line that begins at `first` ends: at least one letter further.
    [[nodiscard]] std::size_t End_From(std::size_t first) const {
        constexpr float rounding = 1e-4F;
        std::size_t behind = first;
        for (float used = 0; behind < letters.size(); ++behind) {
            used += widths[behind];
            if (used > width + rounding && !Is_Blank(letters[behind].character)) {
                break;
            }
        }
        if (behind == letters.size()) {
            return behind;
        }
        for (std::size_t at = behind; at > first; --at) {
            if (May_Part(letters[at - 1].character, letters[at].character)) {
                return at;
            }
        }
        return std::max(behind, first + 1);
    }

    [[nodiscard]] std::string Line(std::size_t first, std::size_t behind) const {
        while (behind > first && Is_Blank(letters[behind - 1].character)) {
            --behind;
        }
        std::string line;
        for (std::size_t i = first; i < behind; ++i) {
            line += Utf8_Of(letters[i]);
        }
        return line;
    }

    const std::vector<Letter> letters;
    const float width;
    std::vector<float> widths;
};

} // namespace

std::vector<std::string> Break_Lines(std::string_view text, float width, const Text_Measure& measure) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        Breaker(text.substr(at, end - at), width, measure).Append_To(lines);
        at = end + 1;
    }
    return lines;
}

} // namespace morvane
