// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/print_target.h"

typedef struct _cairo_font_face cairo_font_face_t; // NOLINT(modernize-use-using): as the library declares it

namespace morvane {

/// The name of the family on this machine.
const char* Family_Name(Report_Face face);

/// The family for drawing; found once in a process and kept.
cairo_font_face_t* Font_Face_Of(Report_Face face);

/// The width of a character in parts of the font size, without hinting: the same on every target.
double Advance_Of(char32_t character, Report_Face face);

} // namespace morvane
