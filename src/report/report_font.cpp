// SPDX-FileCopyrightText: The Morvane developers
#include "report/report_font.h"

#include <array>
#include <cairo-ft.h>
#include <deque>
#include <fontconfig/fontconfig.h>
#include <freetype/ftadvanc.h>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <unordered_map>
#include <utility>

namespace morvane {

namespace {

/// What stands for a letter that no font has, as printers have always set it.
constexpr Letter geta = {U'〓'};

/// The families of a face, the one wanted first. Names of firms and offices are set in Mincho, which so has
/// the font with the characters and variants of the family registers behind it.
constexpr std::array<std::array<const char*, 3>, 2> families = {
    {{"IPAexGothic", "sans-serif", "IPAmjMincho"}, {"IPAexMincho", "IPAmjMincho", "serif"}}};

/// The shapes of a font file. Cairo gets its own, which it locks against its own threads only.
FT_Face Open_Shapes(FT_Library& library, const std::string& file, int index) {
    FT_Face shapes = nullptr;
    if ((library == nullptr && FT_Init_FreeType(&library) != 0) ||
        FT_New_Face(library, file.c_str(), index, &shapes) != 0) {
        return nullptr;
    }
    return shapes;
}

/// A font file that the machine offers; opened when the first letter is sought in it.
class Font_File {
  public:
    Font_File(std::string font_file, int font_index, std::string family, FcCharSet* font_characters)
        : file(std::move(font_file)), index(font_index), characters(font_characters) {
        font.family = std::move(family);
    }

    /// The glyph of a letter, 0 where the font has none. `variant`: the letter's variant must be there too.
    unsigned long Glyph_Of(const Letter& letter, bool variant) {
        if (FcCharSetHasChar(characters, letter.character) == FcFalse || !Open()) {
            return 0;
        }
        return variant ? FT_Face_GetCharVariantIndex(shapes, letter.character, letter.variant)
                       : FT_Get_Char_Index(shapes, letter.character);
    }

    /// The advance of a glyph that Glyph_Of gave.
    double Advance(unsigned long glyph) {
        FT_Fixed units = 0;
        FT_Get_Advance(shapes, static_cast<FT_UInt>(glyph), FT_LOAD_NO_SCALE, &units);
        return static_cast<double>(units) / shapes->units_per_EM;
    }

    [[nodiscard]] const Report_Font& Font() const { return font; }

  private:
    // Kept until the process ends, as cairo keeps what it has cached of a font.
    bool Open() {
        static FT_Library measuring = nullptr;
        static FT_Library drawing = nullptr;
        if (!tried) {
            tried = true;
            shapes = Open_Shapes(measuring, file, index);
            FT_Face drawn = shapes == nullptr ? nullptr : Open_Shapes(drawing, file, index);
            if (drawn != nullptr) {
                font.face = cairo_ft_font_face_create_for_ft_face(drawn, FT_LOAD_NO_HINTING);
            }
        }
        return font.face != nullptr;
    }

    const std::string file;
    const int index;
    FcCharSet* const characters;
    bool tried = false;
    FT_Face shapes = nullptr;
    Report_Font font;
};

/// The fonts of the machine in the order in which they may stand for a face: its own family first, then what
/// resembles it, Japanese before others.
class Font_List {
  public:
    Font_List(FcConfig* config, const std::array<const char*, 3>& names) {
        const auto text = [](const char* name) { return reinterpret_cast<const FcChar8*>(name); };
        FcPattern* wanted = FcPatternCreate();
        for (const char* name : names) {
            FcPatternAddString(wanted, FC_FAMILY, text(name));
        }
        FcPatternAddString(wanted, FC_LANG, text("ja"));
        FcConfigSubstitute(config, wanted, FcMatchPattern);
        FcDefaultSubstitute(wanted);
        FcResult result = FcResultMatch;
        FcFontSet* found = FcFontSort(config, wanted, FcFalse, nullptr, &result);
        for (int i = 0; found != nullptr && i < found->nfont; ++i) {
            Add(found->fonts[i]);
        }
        if (found != nullptr) {
            FcFontSetDestroy(found);
        }
        FcPatternDestroy(wanted);
        if (files.empty()) {
            throw std::runtime_error(std::string("フォント「") + names[0] +
                                     "」がありません。帳票を作成できません。");
        }
    }

    std::deque<Font_File> files;

  private:
    /// Outlines only: pictures of letters have one size and no place in a PDF.
    void Add(FcPattern* pattern) {
        FcChar8* file = nullptr;
        FcChar8* family = nullptr;
        FcCharSet* characters = nullptr;
        FcBool outline = FcFalse;
        FcBool color = FcFalse;
        int index = 0;
        FcPatternGetBool(pattern, FC_OUTLINE, 0, &outline);
        FcPatternGetBool(pattern, FC_COLOR, 0, &color);
        FcPatternGetInteger(pattern, FC_INDEX, 0, &index);
        if (outline == FcTrue && color == FcFalse &&
            FcPatternGetString(pattern, FC_FILE, 0, &file) == FcResultMatch &&
            FcPatternGetString(pattern, FC_FAMILY, 0, &family) == FcResultMatch &&
            FcPatternGetCharSet(pattern, FC_CHARSET, 0, &characters) == FcResultMatch) {
            files.emplace_back(reinterpret_cast<const char*>(file), index,
                               reinterpret_cast<const char*>(family), FcCharSetCopy(characters));
        }
    }
};

/// A letter in the font that has it.
struct Found_Letter {
    const Report_Font* font = nullptr;
    unsigned long glyph = 0;
    double advance = 0;
    bool has_variant = false;
};

/// Guards what all threads share; letters once found are looked up without it.
std::mutex& Fonts_Mutex() {
    static std::mutex mutex;
    return mutex;
}

/// With a configuration of their own, so that nothing of it stays behind.
std::array<Font_List, 2> Make_Lists() {
    const std::unique_ptr<FcConfig, decltype(&FcConfigDestroy)> config(FcInitLoadConfigAndFonts(),
                                                                       FcConfigDestroy);
    return {Font_List(config.get(), families[0]), Font_List(config.get(), families[1])};
}

Font_List& Fonts_Of(Report_Face face) {
    static std::array<Font_List, 2> lists = Make_Lists();
    return lists[static_cast<std::size_t>(face)];
}

Found_Letter Search(const Letter& letter, Report_Face face, bool variant) {
    for (Font_File& file : Fonts_Of(face).files) {
        if (const unsigned long glyph = file.Glyph_Of(letter, variant); glyph != 0) {
            return {&file.Font(), glyph, file.Advance(glyph), variant};
        }
    }
    return {};
}

Found_Letter Search(const Letter& letter, Report_Face face) {
    const std::scoped_lock lock(Fonts_Mutex());
    Found_Letter found;
    if (letter.variant != 0) {
        found = Search(letter, face, true);
    }
    return found.font != nullptr ? found : Search(letter, face, false);
}

/// The letter in its font; without a font where none has it.
const Found_Letter& Look_Up(const Letter& letter, Report_Face face) {
    thread_local std::array<std::unordered_map<std::uint64_t, Found_Letter>, 2> letters;
    auto& known = letters[static_cast<std::size_t>(face)];
    const std::uint64_t key = (std::uint64_t{letter.variant} << 32) | letter.character;
    const auto found = known.find(key);
    return found != known.end() ? found->second : known.emplace(key, Search(letter, face)).first->second;
}

/// The same; figures and signs, of which a sheet mostly consists, stand in a table of their own.
const Found_Letter& Find(const Letter& letter, Report_Face face) {
    constexpr std::size_t plain_letters = 128;
    thread_local std::array<std::array<const Found_Letter*, plain_letters>, 2> plain{};
    if (letter.variant != 0 || letter.character >= plain_letters) {
        return Look_Up(letter, face);
    }
    const Found_Letter*& found = plain[static_cast<std::size_t>(face)][letter.character];
    if (found == nullptr) {
        found = &Look_Up(letter, face);
    }
    return *found;
}

/// The letter, or what stands for it.
const Found_Letter& Find_Drawn(const Letter& letter, Report_Face face) {
    const Found_Letter& found = Find(letter, face);
    if (found.font != nullptr) {
        return found;
    }
    const Found_Letter& instead = Find(geta, face);
    if (instead.font == nullptr) {
        throw std::runtime_error("日本語のフォントがありません。帳票を作成できません。");
    }
    return instead;
}

} // namespace

std::vector<Font_Run> Runs_Of(std::string_view text, Report_Face face) {
    std::vector<Font_Run> runs;
    for (const Letter& letter : Letters_Of(text)) {
        const Found_Letter& drawn = Find_Drawn(letter, face);
        if (runs.empty() || runs.back().font != drawn.font) {
            runs.push_back({drawn.font, {}, {}, {}, 0});
        }
        Font_Run& run = runs.back();
        const std::string said = Utf8_Of(letter);
        run.text += said;
        run.drawn += Is_In_A_Font(letter, face)
                         ? Utf8_Of({letter.character, drawn.has_variant ? letter.variant : 0})
                         : Utf8_Of(geta);
        run.glyphs.push_back({drawn.glyph, drawn.advance, said.size()});
        run.width += drawn.advance;
    }
    return runs;
}

double Advance_Of(const Letter& letter, Report_Face face) {
    return Find_Drawn(letter, face).advance;
}

bool Is_In_A_Font(const Letter& letter, Report_Face face) {
    return Find(letter, face).font != nullptr;
}

} // namespace morvane
