// SPDX-FileCopyrightText: The Morvane developers
#include "report/report_font.h"

#include <array>
#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <utility>

namespace morvane {

namespace {

constexpr double measured_size = 2048.0; // units of the families, so that widths are whole

struct Font {
    cairo_font_face_t* face = nullptr;
    cairo_scaled_font_t* scaled = nullptr;
};

/// The file of a family, and the face in it. Where the family is not there, any Japanese font is better than
/// none.
std::pair<std::string, int> File_Of(const char* family) {
    const auto text = [](const char* name) { return reinterpret_cast<const FcChar8*>(name); };
    FcPattern* wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_FAMILY, text(family));
    FcPatternAddString(wanted, FC_LANG, text("ja"));
    // Its own configuration, so that nothing of it stays behind.
    FcConfig* config = FcInitLoadConfigAndFonts();
    FcConfigSubstitute(config, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultMatch;
    FcPattern* found = FcFontMatch(config, wanted, &result);
    FcChar8* file = nullptr;
    int index = 0;
    std::pair<std::string, int> place;
    if (found != nullptr && FcPatternGetString(found, FC_FILE, 0, &file) == FcResultMatch) {
        FcPatternGetInteger(found, FC_INDEX, 0, &index);
        place = {reinterpret_cast<const char*>(file), index};
    }
    if (found != nullptr) {
        FcPatternDestroy(found);
    }
    FcPatternDestroy(wanted);
    FcConfigDestroy(config);
    return place;
}

// Kept until the process ends, as cairo keeps what it has cached of a font.
Font Open_Font(const char* family) {
    static FT_Library library = nullptr;
    const auto [file, index] = File_Of(family);
    FT_Face shapes = nullptr;
    if ((library == nullptr && FT_Init_FreeType(&library) != 0) ||
        FT_New_Face(library, file.c_str(), index, &shapes) != 0) {
        throw std::runtime_error(std::string("フォント「") + family +
                                 "」がありません。帳票を作成できません。");
    }
    Font font;
    font.face = cairo_ft_font_face_create_for_ft_face(shapes, FT_LOAD_NO_HINTING);
    cairo_matrix_t size;
    cairo_matrix_t identity;
    cairo_matrix_init_scale(&size, measured_size, measured_size);
    cairo_matrix_init_identity(&identity);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    font.scaled = cairo_scaled_font_create(font.face, &size, &identity, options);
    cairo_font_options_destroy(options);
    return font;
}

const Font& Font_Of(Report_Face face) {
    static const std::array<Font, 2> fonts = {Open_Font(Family_Name(Report_Face::Gothic)),
                                              Open_Font(Family_Name(Report_Face::Mincho))};
    return fonts[static_cast<std::size_t>(face)];
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
