// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/prt_modset.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// A rectangle on the sheet, millimetres.
struct Area {
    float left, top, right, bottom;

    [[nodiscard]] float Width() const { return right - left; }
    [[nodiscard]] float Height() const { return bottom - top; }
};

enum class Align : std::uint8_t { Left, Center, Right };

/// What becomes of a text that does not fit into its cell in 6 points.
enum class Overflow : std::uint8_t {
    Cut,   ///< it ends with "…"
    Wrap,  ///< it goes on in the next line, all of it in its full size
    Figure ///< it loses its commas, and where that does not do it "#" stand for all digits: part of a figure
           ///< would be another one
};

/// How a text is set.
struct Type {
    const char* font;
    float size;
    Align align = Align::Left;
    float padding = 0.9F; ///< between the text and the edges of its cell, mm
    Overflow overflow = Overflow::Cut;
};

/// The rules of a sheet. A heavier one lies over the lighter ones, in whatever order they are asked for, so
/// that none is notched.
enum class Rule : std::uint8_t { None, Pale, Thin, Thick };

/// What a page is laid out with: texts that stay inside their cells, rules, shapes.
class Page_Layout {
  public:
    explicit Page_Layout(Prt_ModSet& operations) : prt(operations) {}

    /// No text is set smaller, points.
    static constexpr float least_size = 6.0F;

    /// The height of a line of text of a size, mm.
    static float Line_Height(float size);

    /// The width of a text in a type's own size, mm.
    [[nodiscard]] float Width_Of(std::string_view text, const Type& type) const;

    /// The size in which a text that is `width` wide in its own size fits into `room`; not below the least.
    static float Size_For(const Type& type, float width, float room);

    /// A text in the middle of a cell's height: made smaller where it would not fit, down to the least size.
    void Text(const Area& cell, std::string_view text, const Type& type);

    /// The same in a given size, for texts that are set alike.
    void Text(const Area& cell, std::string_view text, const Type& type, float size);

    /// A text of several lines, in the middle of a cell's height. Lines end where the text says.
    void Lines(const Area& cell, std::span<const std::string> lines, const Type& type, float size);

    /// A text in as many lines as it takes in the width of an area, from its top on; gives its height.
    float Paragraph(const Area& area, std::string_view text, const Type& type);

    void Draw(Rule rule, float x1, float y1, float x2, float y2);
    void Box(Rule rule, const Area& area);

    void Fill(const Area& area, std::uint32_t color);
    void Fill(std::span<const Point> corners, std::uint32_t color) { prt.Prt_Fill(corners, color); }

    /// A line through points, in a style of the platform (0 solid, 1 dashes, 2 dots); colour 0xBBGGRR.
    void Polyline(std::span<const Point> points, std::int16_t width, int style, std::uint32_t color);
    void Circle(Point middle, float radius) { prt.Prt_Circle(middle.x, middle.y, radius); }

    /// Names a place of the page in the list of contents of the document.
    void Entry(const std::string& title, float y) { prt.Prt_Entry(title, y); }

    /// Ends the page: its rules are drawn.
    void End_Page();

  private:
    struct Drawn_Rule {
        float x1, y1, x2, y2;
    };

    void Set(const Area& cell, const std::string& text, const Type& type, float size, float width);
    [[nodiscard]] std::string Shortened(std::string_view text, const Type& type, float size,
                                        float room) const;

    Prt_ModSet& prt;
    std::vector<Drawn_Rule> pale, thin, thick;
    std::vector<Area> boxes;
};

} // namespace morvane
