// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// The two families that stand for the fonts of the reports.
enum class Report_Face : std::uint8_t { Gothic, Mincho };

/// A character of a text, with the selector that asks for a variant of its shape (0 none).
struct Letter {
    char32_t character = 0;
    char32_t variant = 0;

    friend bool operator==(const Letter&, const Letter&) = default;
};

/// A point of the sheet.
struct Point {
    float x = 0, y = 0;
};

/// A line of a report: width in dots, style (0 solid, 1 dashes, 2 dots), colour 0xBBGGRR.
struct Report_Pen {
    std::int16_t width = 1;
    std::int16_t style = 0;
    std::uint32_t color = 0;

    friend bool operator==(const Report_Pen&, const Report_Pen&) = default;
};

/// What a report is drawn on: the preview, the printer, a PDF file, a record of the operations. Lengths are
/// millimetres from the upper left corner of the sheet, sizes of texts points.
class Print_Target {
  public:
    Print_Target() = default;
    Print_Target(const Print_Target&) = delete;
    Print_Target& operator=(const Print_Target&) = delete;
    virtual ~Print_Target() = default;

    /// The width that a letter takes, the same on every target.
    [[nodiscard]] static double Char_Width(const Letter& letter, Report_Face face, double size);

    /// The sum of the widths of a text's letters.
    [[nodiscard]] static double Text_Width(std::string_view text, Report_Face face, double size);

    /// A text with its left end at x and its top at y: the baseline is `baseline` of its size below.
    virtual void Text(const std::string& text, double x, double y, Report_Face face, double size) = 0;
    virtual void Line(double x1, double y1, double x2, double y2, const Report_Pen& pen) = 0;
    virtual void Box(double x1, double y1, double x2, double y2, const Report_Pen& pen) = 0;
    virtual void Circle(double x, double y, double radius, const Report_Pen& pen) = 0;
    /// A filled shape without an outline; colour 0xBBGGRR.
    virtual void Fill(std::span<const Point> corners, std::uint32_t color) = 0;
    virtual void Page_End() = 0;

    /// Names a place of the page in the list of contents, where the target has one.
    virtual void Entry(const std::string& /*title*/, double /*y*/) {}

    /// The dots of a line's width on paper: 300 to the inch, whatever the device resolves.
    static constexpr double dots_per_inch = 300.0;
    static constexpr double mm_per_inch = 25.4;
    static constexpr double mm_per_point = mm_per_inch / 72.0;
    /// Both families stand 1802 of 2048 units above the baseline and fill the rest below it.
    static constexpr double baseline = 1802.0 / 2048.0;
    static constexpr double sheet_width = 210.0;
    static constexpr double sheet_height = 297.0;
};

/// Whether a text is of figures, Latin letters and their signs alone, each byte a letter.
bool Is_Plain(std::string_view text);

/// The letters of a UTF-8 text; what is none, and control characters, become blanks. Characters that draw
/// nothing (joiners, marks of direction and order) go; a voicing mark behind its kana becomes one letter with
/// it.
std::vector<Letter> Letters_Of(std::string_view text);

/// One letter as UTF-8, its selector behind it.
std::string Utf8_Of(const Letter& letter);

/// The text as it can be drawn: valid UTF-8 of letters.
std::string Drawable(std::string_view text);

} // namespace morvane
