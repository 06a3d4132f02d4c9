// SPDX-FileCopyrightText: The Morvane developers
#include "report/prt_modset.h"

#include "report/report_font.h"

#include <algorithm>
#include <string_view>

namespace morvane {

namespace {

constexpr std::size_t most_spread = 254;

Report_Face Face_Of(std::string_view font) {
    return font.find("明朝") != std::string_view::npos ? Report_Face::Mincho : Report_Face::Gothic;
}

} // namespace

float Prt_ModSet::Width_Of(std::string_view text, const char* font, float size) const {
    return static_cast<float>(Print_Target::Text_Width(text, Face_Of(font), static_cast<double>(size)));
}

void Prt_ModSet::Prt_Text(const std::string& text, float x, float y, const char* font, float size) {
    const Report_Face face = Face_Of(font);
    const bool plain = Is_Plain(text);
    std::string drawable = plain ? text : std::string();
    if (!plain) {
        for (const Letter& letter : Letters_Of(text)) {
            drawable += Utf8_Of(letter);
            Note_Missing(letter, face);
        }
    }
    if (!drawable.empty()) {
        target.Text(drawable, X(x), Y(y), face, size * state.Prt_Scale);
    }
}

void Prt_ModSet::Note_Missing(const Letter& letter, Report_Face face) {
    if (!Is_In_A_Font(letter, face) && std::find(missing.begin(), missing.end(), letter) == missing.end()) {
        missing.push_back(letter);
    }
}

void Prt_ModSet::Prt_Text_Center(const std::string& text, float& x, float y, const char* font, float size) {
    x -= Width_Of(text, font, size) / 2;
    Prt_Text(text, x, y, font, size);
}

void Prt_ModSet::Prt_Text_Right(const std::string& text, float& x, float y, const char* font, float size) {
    x -= Width_Of(text, font, size);
    Prt_Text(text, x, y, font, size);
}

void Prt_ModSet::Prt_Text_Wide(const std::string& text, float x1, float x2, float y, const char* font,
                               float size) {
    const std::vector<Letter> letters = Letters_Of(text);
    const std::size_t count = std::min(letters.size(), most_spread);
    if (count == 1) {
        float middle = (x1 + x2) / 2;
        Prt_Text_Center(text, middle, y, font, size);
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        const float pitch = (x2 - x1) / static_cast<float>(count - 1);
        Prt_Text(Utf8_Of(letters[i]), x1 + static_cast<float>(i) * pitch, y, font, size);
    }
}

void Prt_ModSet::Take_Width(std::int16_t& width) const {
    if (!state.Prt_Doing && width != 1) {
        width = static_cast<std::int16_t>(width / 2);
    }
}

void Prt_ModSet::Prt_Line(float x1, float y1, float x2, float y2, std::int16_t& width, int style) {
    Prt_Line_Color2(x1, y1, x2, y2, width, style, 0);
}

void Prt_ModSet::Prt_Line_Color(float x1, float y1, float x2, float y2, std::int16_t& width, int style,
                                const std::uint32_t& color) {
    Prt_Line_Color2(x1, y1, x2, y2, width, style, color);
}

void Prt_ModSet::Prt_Line_Color2(float x1, float y1, float x2, float y2, std::int16_t& width, int style,
                                 std::uint32_t color) {
    Take_Width(width);
    target.Line(X(x1), Y(y1), X(x2), Y(y2), {width, static_cast<std::int16_t>(style), color});
}

void Prt_ModSet::Prt_Box(float x1, float y1, float x2, float y2, std::int16_t& width, int style) {
    Take_Width(width);
    target.Box(X(x1), Y(y1), X(x2), Y(y2), {width, static_cast<std::int16_t>(style), 0});
}

void Prt_ModSet::Prt_Circle(float x, float y, float radius) {
    target.Circle(X(x), Y(y), state.Prt_Scale * radius, {});
}

void Prt_ModSet::Prt_Fill(std::span<const Point> corners, std::uint32_t color) {
    std::vector<Point> placed;
    for (const Point& corner : corners) {
        placed.push_back({X(corner.x), Y(corner.y)});
    }
    target.Fill(placed, color);
}

} // namespace morvane
