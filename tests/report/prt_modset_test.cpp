// SPDX-FileCopyrightText: The Morvane developers
#include "report/prt_modset.h"

#include "report/pdf_target.h"
#include "report/recorded_sheet.h"
#include "report/report_font.h"
#include "report/report_heading.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <tuple>

namespace morvane::tests {
namespace {

/// The operations on a sheet that keeps what was drawn.
struct Sheet {
    explicit Sheet(const Print_State& of = {}) : state(of) {}

    Print_State state;
    Recorded_Sheet recorded;
    Prt_ModSet prt{state, recorded};

    template <class What>
    [[nodiscard]] const What& At(std::size_t index) const {
        return std::get<What>(recorded.Pages().front().at(index));
    }
};

TEST(Prt_ModSet_Test, Points_Are_Scaled_And_Margins_Are_Not) {
    Sheet sheet({.Prt_Scale = 0.5F, .Prt_Left = 3, .Prt_Top = 5});
    sheet.prt.Prt_Text("評点", 20, 40, font_p_mincho, 8);
    std::int16_t width = 1;
    sheet.prt.Prt_Box(10, 20, 30, 40, width, 0);
    sheet.prt.Prt_Circle(10, 20, 4);
    const auto& text = sheet.At<Drawn_Text>(0);
    EXPECT_EQ(text.face, Report_Face::Mincho);
    EXPECT_EQ(std::tuple(text.x, text.y, text.size), std::tuple(13, 25, 4));
    EXPECT_EQ(std::pair(sheet.At<Drawn_Box>(1).x1, sheet.At<Drawn_Box>(1).y2), std::pair(8.0, 25.0));
    EXPECT_EQ(sheet.At<Drawn_Circle>(2).radius, 2);
}

TEST(Prt_ModSet_Test, Widths_On_The_Preview) {
    const std::int16_t shown[] = {1, 1, 1, 2, 2}; // of the widths 1 to 5
    for (std::int16_t width = 1; width <= 5; ++width) {
        for (const bool doing : {false, true}) {
            const std::int16_t expected = doing ? width : shown[width - 1];
            Sheet sheet({.Prt_Doing = doing});
            std::array<std::int16_t, 4> widths{};
            widths.fill(width);
            sheet.prt.Prt_Line(0, 0, 1, 1, widths[0], 0);
            sheet.prt.Prt_Line_Color(0, 0, 1, 1, widths[1], 1, 0x0000FF);
            sheet.prt.Prt_Line_Color2(0, 0, 1, 1, widths[2], 0, 0x0000FF);
            sheet.prt.Prt_Box(0, 0, 1, 1, widths[3], 0);
            const Report_Pen pens[] = {{expected, 0, 0}, {expected, 1, 0x0000FF}, {expected, 0, 0x0000FF}};
            for (std::size_t i = 0; i < std::size(pens); ++i) {
                EXPECT_EQ(sheet.At<Drawn_Line>(i).pen, pens[i]) << width;
            }
            EXPECT_EQ(widths, (std::array{expected, expected, expected, expected})) << "the caller's width";
        }
    }
}

TEST(Prt_ModSet_Test, Texts_Change_The_Callers_X) {
    Sheet sheet({.Prt_Scale = 0.75F});
    // Four full-width characters of 10 points.
    const double width = 4 * 10 * Print_Target::mm_per_point;
    float center = 100;
    float right = 100;
    sheet.prt.Prt_Text_Center("総合評点", center, 0, font_gothic, 10);
    sheet.prt.Prt_Text_Right("総合評点", right, 0, font_gothic, 10);
    EXPECT_NEAR(static_cast<double>(center), 100 - width / 2, 1e-4);
    EXPECT_NEAR(static_cast<double>(right), 100 - width, 1e-4);
    for (const char* text : {"改善前", "前", ""}) {
        sheet.prt.Prt_Text_Wide(text, 10, 40, 0, font_gothic, 10);
    }
    const double places[] = {100 - width / 2, 100 - width, 10, 25, 40, 25 - width / 8};
    for (std::size_t i = 0; i < std::size(places); ++i) {
        EXPECT_NEAR(sheet.At<Drawn_Text>(i).x, 0.75 * places[i], 1e-4) << i;
    }
    EXPECT_EQ(sheet.At<Drawn_Text>(2).text, "改");
    EXPECT_EQ(sheet.recorded.Pages().front().size(), std::size(places));
}

// What a store may hold must not cost the page.
TEST(Prt_ModSet_Test, Texts_That_Are_None) {
    const std::pair<std::string, const char*> rows[] = {{"青葉\xE5\x8F", "青葉 "},
                                                        {"\xFF青", " 青"},
                                                        {"a\nb\tc\x7F", "a b c "},
                                                        {"\xC0\x80", " "},
                                                        {"\xED\xA0\x80", " "},
                                                        {"𠮷野", "𠮷野"},
                                                        {"葛\U000E0100\U000E0101城", "葛\U000E0100城"},
                                                        {"\U000E0100青\u200B\u202E葉\uFEFF", "青葉"},
                                                        {"か\u3099ハ\u309Aア\u3099", "がパア\u3099"}};
    for (const auto& [text, drawn] : rows) {
        EXPECT_EQ(Drawable(text), drawn);
        Pdf_Target pdf({text, text});
        pdf.Text(Drawable(text), 10, 10, Report_Face::Gothic, 10);
        EXPECT_TRUE(pdf.Finish().starts_with("%PDF-"));
    }
}

// A letter that the fonts of the reports lack is drawn from another one, and as 〓 where there is none.
TEST(Prt_ModSet_Test, Letters_Find_Their_Font) {
    const std::string nowhere = "\U000F1234";
    const std::tuple<std::string, const char*, std::size_t> rows[] = {
        {"青葉", "青葉", 1},       {"𠮷野", "𠮷野", 2},
        {"a𠮷𠮷b", "a𠮷𠮷b", 3},   {"辻\U000E0101", "辻\U000E0101", 1},
        {"あ\U000E01EF", "あ", 1}, {"青" + nowhere + "葉", "青〓葉", 1}};
    for (const auto& [text, letters, count] : rows) {
        SCOPED_TRACE(text);
        const std::vector<Font_Run> runs = Runs_Of(text, Report_Face::Mincho);
        std::string said;
        std::string drawn;
        double width = 0;
        for (const Font_Run& run : runs) {
            said += run.text;
            drawn += run.drawn;
            width += run.width;
            EXPECT_TRUE(std::none_of(run.glyphs.begin(), run.glyphs.end(), [](const Run_Glyph& glyph) {
                return glyph.index == 0;
            })) << "an empty box";
        }
        EXPECT_EQ(std::tuple(said, drawn, runs.size()), std::tuple(text, letters, count));
        double measured = 0;
        for (const Letter& letter : Letters_Of(text)) {
            measured += Advance_Of(letter, Report_Face::Mincho);
        }
        EXPECT_DOUBLE_EQ(width, measured);
    }
    Sheet sheet;
    sheet.prt.Prt_Text("𠮷" + nowhere + nowhere, 0, 0, font_mincho, 10);
    EXPECT_EQ(Missing_Notice(sheet.prt.Missing()),
              "この装置のどのフォントにもない文字（U+F1234）を「〓」で印刷します。");
}

TEST(Prt_ModSet_Test, Names_Of_Pdf_Files) {
    Report_Heading heading = {"㈱青葉/葉\\:*?\"<>|\n建設", 35, "改善後", "", ""};
    EXPECT_EQ(Pdf_File_Name("結果通知書", heading), "結果通知書_㈱青葉_葉________ 建設_第35期_改善後.pdf");
    heading.Jigyo_Name.clear();
    for (int i = 0; i < 40; ++i) {
        heading.Jigyo_Name += "𠮷葛\U000E0100";
    }
    const std::string name = Pdf_File_Name("結果通知書", heading);
    EXPECT_LE(name.size(), 255U);
    EXPECT_GT(name.size(), 255U - 8U);
    EXPECT_EQ(Drawable(name), name) << "cut inside a letter";
    EXPECT_TRUE(name.ends_with("_第35期_改善後.pdf"));
}

} // namespace
} // namespace morvane::tests
