// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/print_state.h"
#include "report/print_target.h"

#include <cstdint>
#include <string>

namespace morvane {

// The four fonts of the reports.
inline constexpr const char* font_p_mincho = "ＭＳ Ｐ明朝";
inline constexpr const char* font_mincho = "ＭＳ 明朝";
inline constexpr const char* font_p_gothic = "ＭＳ Ｐゴシック";
inline constexpr const char* font_gothic = "ＭＳ ゴシック";

/// The drawing operations of a report on one target. Points are millimetres on the sheet before scale and
/// margins: a point goes to Prt_Scale × x + Prt_Left, Prt_Scale × y + Prt_Top; the margins are not scaled.
/// Font sizes are points and scaled. Line widths are dots of the target; in the preview a width other than 1
/// is halved (and cut), on the caller's side too. Line styles are those of the platform, 0 solid.
class Prt_ModSet {
  public:
    Prt_ModSet(const Print_State& print_state, Print_Target& print_target)
        : state(print_state), target(print_target) {}

    /// Left end at x, top at y.
    void Prt_Text(const std::string& text, float x, float y, const char* font, float size);

    /// Middle at x; x becomes the left end. The width is the sum of the characters, each measured alone.
    void Prt_Text_Center(const std::string& text, float& x, float y, const char* font, float size);

    /// Right end at x; x becomes the left end.
    void Prt_Text_Right(const std::string& text, float& x, float y, const char* font, float size);

    /// Spreads the characters evenly, the first one at x1, the last one at x2 (their left ends); a single one
    /// goes to the middle. At most 254 characters.
    void Prt_Text_Wide(const std::string& text, float x1, float x2, float y, const char* font, float size);

    void Prt_Line(float x1, float y1, float x2, float y2, std::int16_t& width, int style);
    void Prt_Line_Color(float x1, float y1, float x2, float y2, std::int16_t& width, int style,
                        const std::uint32_t& color);
    void Prt_Line_Color2(float x1, float y1, float x2, float y2, std::int16_t& width, int style,
                         std::uint32_t color);
    void Prt_Box(float x1, float y1, float x2, float y2, std::int16_t& width, int style);
    void Prt_Circle(float x, float y, float radius);

    /// A filled shape; its colour as that of lines.
    void Prt_Fill(std::span<const Point> corners, std::uint32_t color);

    /// Names a place of the page in the list of contents of the document.
    void Prt_Entry(const std::string& title, float y) { target.Entry(title, static_cast<double>(Y(y))); }

    /// Ends a page; what follows is drawn on the next one.
    void Prt_Page_End() { target.Page_End(); }

    /// The letters drawn so far that no font of this machine has, each once; 〓 stands for them.
    [[nodiscard]] const std::vector<Letter>& Missing() const { return missing; }

    /// The width of a text as Prt_Text_Center measures it, in millimetres before the scale.
    [[nodiscard]] float Width_Of(std::string_view text, const char* font, float size) const;

  private:
    [[nodiscard]] float X(float x) const { return state.Prt_Scale * x + state.Prt_Left; }
    [[nodiscard]] float Y(float y) const { return state.Prt_Scale * y + state.Prt_Top; }
    void Take_Width(std::int16_t& width) const;
    void Note_Missing(const Letter& letter, Report_Face face);

    const Print_State& state;
    Print_Target& target;
    std::vector<Letter> missing;
};

} // namespace morvane
