// SPDX-FileCopyrightText: The Morvane developers
#include "report/report_font.h"

#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>
#include <unordered_map>

namespace morvane {

namespace {

constexpr double measured_size = 2048.0; // units of the families, so that widths are whole

struct Font {
    cairo_font_face_t* face = nullptr;
    cairo_scaled_font_t* scaled = nullptr;
};

Font Open_Font(const char* family) {
    FcPattern* wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    // Where the family is not there, any Japanese font is better than none.
    FcPatternAddString(wanted, FC_LANG, reinterpret_cast<const FcChar8*>("ja"));
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultMatch;
    FcPattern* found = FcFontMatch(nullptr, wanted, &result);
    Font font;
    font.face = cairo_ft_font_face_create_for_pattern(found != nullptr ? found : wanted);
    cairo_matrix_t size;
    cairo_matrix_t identity;
    cairo_matrix_init_scale(&size, measured_size, measured_size);
    cairo_matrix_init_identity(&identity);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    font.scaled = cairo_scaled_font_create(font.face, &size, &identity, options);
    cairo_font_options_destroy(options);
    if (found != nullptr) {
        FcPatternDestroy(found);
    }
    FcPatternDestroy(wanted);
    return font;
}

const Font& Font_Of(Report_Face face) {
    static const Font gothic = Open_Font(Family_Name(Report_Face::Gothic));
    static const Font mincho = Open_Font(Family_Name(Report_Face::Mincho));
    return face == Report_Face::Gothic ? gothic : mincho;
}

} // namespace

const char* Family_Name(Report_Face face) {
    return face == Report_Face::Gothic ? "IPAexGothic" : "IPAexMincho";
}

cairo_font_face_t* Font_Face_Of(Report_Face face) {
    return Font_Of(face).face;
}

double Advance_Of(char32_t character, Report_Face face) {
    thread_local std::unordered_map<char32_t, double> advances[2];
    auto& known = advances[static_cast<std::size_t>(face)];
    const auto found = known.find(character);
    if (found != known.end()) {
        return found->second;
    }
    cairo_text_extents_t extents;
    cairo_scaled_font_text_extents(Font_Of(face).scaled, Utf8_Of(character).c_str(), &extents);
    return known[character] = extents.x_advance / measured_size;
}

} // namespace morvane
