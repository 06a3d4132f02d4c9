// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/print_target.h"

#include <string>
#include <string_view>
#include <vector>

typedef struct _cairo_font_face cairo_font_face_t; // NOLINT(modernize-use-using): as the library declares it

namespace morvane {

/// A font of this machine; found once in a process and kept.
struct Report_Font {
    std::string family; ///< as other libraries ask for it
    cairo_font_face_t* face = nullptr;
};

/// A letter as its font draws it.
struct Run_Glyph {
    unsigned long index = 0; ///< in the font; never 0, which is its empty box
    double advance = 0;      ///< parts of the font size, without hinting: the same on every target
    std::size_t bytes = 0;   ///< of the letter in the text of its run
};

/// A stretch of a text in one font.
struct Font_Run {
    const Report_Font* font = nullptr;
    std::string text;  ///< what it says
    std::string drawn; ///< what is drawn: 〓 stands for what no font has
    std::vector<Run_Glyph> glyphs;
    double width = 0; ///< parts of the font size
};

/// Splits a text by fonts: the family of the face, and where that lacks a letter or its variant any font of
/// this machine that has it. A variant that none has is drawn as its letter, a letter that none has as 〓.
/// Raises std::runtime_error (Japanese) where there is no font at all.
std::vector<Font_Run> Runs_Of(std::string_view text, Report_Face face);

/// The width of a letter in parts of the font size.
double Advance_Of(const Letter& letter, Report_Face face);

/// Whether some font of this machine has the letter.
bool Is_In_A_Font(const Letter& letter, Report_Face face);

} // namespace morvane
