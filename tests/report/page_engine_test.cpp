// SPDX-FileCopyrightText: The Morvane developers
#include "report/line_break.h"
#include "report/page_flow.h"
#include "report/pdf_target.h"
#include "support/sheet_texts.h"

#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace morvane::tests {
namespace {

// ---- lines

TEST(Line_Break_Test, Where_Lines_End) {
    // Full-width characters have the width 2.
    const std::tuple<const char*, const char*, float, std::vector<std::string>> rows[] = {
        {"between any two", "経営事項審査", 8, {"経営事項", "審査"}},
        {"a comma begins no line", "経営事項、審査", 8, {"経営事", "項、審査"}},
        {"nor does a full stop behind a bracket", "（経営事）。審査", 10, {"（経営", "事）。審査"}},
        {"small kana", "経営ショッピング", 8, {"経営", "ショッピ", "ング"}},
        {"a lengthening sign", "経営事ー項審", 6, {"経営", "事ー項", "審"}},
        {"half-width marks", "ｱｲｳｶﾞｴ", 4, {"ｱｲｳ", "ｶﾞｴ"}},
        {"an opening bracket ends none", "経営事（項）審", 8, {"経営事", "（項）審"}},
        {"nor do several", "経営「『事項』」", 8, {"経営", "「『事", "項』」"}},
        {"a word stays whole", "評点は about 800点", 11, {"評点は", "about 800点"}},
        {"a number with its signs", "金額1,234,567円", 12, {"金額", "1,234,567円"}},
        {"a decimal with its percent", "比率は12.5%です", 10, {"比率は", "12.5%です"}},
        {"full-width figures", "平成３０年", 6, {"平成", "３０年"}},
        {"a figure with ％", "達成率１００％", 8, {"達成率", "１００％"}},
        {"what is wider than a line", "ABCDEFGHIJ", 4, {"ABCD", "EFGH", "IJ"}},
        {"only marks", "。。。。", 4, {"。。", "。。"}},
        {"blanks end a line and begin none", "経営 　事項", 4, {"経営", "事項"}},
        {"a dash is not halved", "経営事――項", 8, {"経営事", "――項"}},
        {"lines of the text's own", "経営\n\n事項審査", 4, {"経営", "", "事項", "審査"}},
        {"nothing", "", 4, {""}},
        {"a line narrower than a character", "経営", 1, {"経", "営"}},
    };
    const auto measure = [](std::string_view text) {
        float width = 0;
        for (const Letter& letter : Letters_Of(text)) {
            width += letter.character < 0x250 || (letter.character >= 0xff61 && letter.character < 0xffa0)
                         ? 1.0F
                         : 2.0F;
        }
        return width;
    };
    for (const auto& [rule, text, width, lines] : rows) {
        EXPECT_EQ(Break_Lines(text, width, measure), lines) << rule;
    }
}

// ---- tables

constexpr Type name_type = {font_p_mincho, 7.0F, Align::Left, 0.7F};
constexpr Type wrap_type = {font_p_mincho, 7.0F, Align::Left, 0.7F, Overflow::Wrap};
constexpr Type amount_type = {font_p_mincho, 7.0F, Align::Right, 0.6F, Overflow::Figure};

struct Engine {
    Print_State state = {.Prt_Doing = true};
    Recorded_Sheet sheet;
    Prt_ModSet operations{state, sheet};
    Page_Layout page{operations};

    std::vector<Box_Of_Text> Draw(const Cell_Table& table) {
        table.Draw(page, 12, 30);
        page.End_Page();
        return Texts_Of(sheet);
    }
};

TEST(Cell_Table_Test, A_Column_Has_One_Size) {
    using Texts = std::vector<std::string>;
    const std::tuple<const char*, Type, float, Texts, Texts, double> rows[] = {
        {"all fit", amount_type, 14, {"1,234", "1,072,337"}, {"1,234", "1,072,337"}, 7},
        {"the longest decides", amount_type, 11.5F, {"1,234", "1,072,337"}, {"1,234", "1,072,337"}, 6.09},
        {"commas go", amount_type, 10.4F, {"1,234", "1,072,337"}, {"1,234", "1072337"}, 6},
        {"no part of a figure", amount_type, 8, {"1,234", "1,072,337"}, {"1,234", "####"}, 6},
        {"a name is cut with a mark", name_type, 10, {"電気", "電気通信工事"}, {"電気", "電気通…"}, 6},
        {"a text goes on below", wrap_type, 10, {"電気", "電気通信工事"}, {"電気", "電気通", "信工事"}, 7},
        {"a short one is made smaller", wrap_type, 11, {"電気", "電気通信"}, {"電気", "電気通信"}, 6.8},
    };
    for (const auto& [what, type, width, given, printed, size] : rows) {
        SCOPED_TRACE(what);
        Engine engine;
        std::vector<Table_Row> cells;
        for (const std::string& text : given) {
            cells.push_back({{{text}}});
        }
        const Cell_Table table(engine.page, width, {{0, type}}, cells, 3.7F);
        const auto texts = engine.Draw(table);
        ASSERT_EQ(texts.size(), printed.size());
        for (std::size_t i = 0; i < texts.size(); ++i) {
            EXPECT_EQ(texts[i].text, printed[i]);
            EXPECT_NEAR(texts[i].size, size, 0.06);
            EXPECT_GE(texts[i].left, 12) << texts[i].text;
            EXPECT_LE(texts[i].right, 12 + static_cast<double>(width)) << texts[i].text;
        }
        EXPECT_EQ(Astray(texts), "");
    }
}

/// A table with nested heads, merged cells and marks.
Cell_Table Comparison(const Page_Layout& page, std::size_t rows) {
    std::vector<Table_Row> cells;
    for (std::size_t i = 0; i < rows; ++i) {
        const std::string number = std::to_string(i);
        if (i % 7 == 0) {
            cells.push_back({{{"見出し" + number, nullptr, 5}}, Rule::Thin, true});
        } else {
            cells.push_back({{{"行" + number}, {"1,234"}, {"800"}, {"2,345"}, {"810"}}});
            cells.back().cells[4].mark = i % 2 == 0 ? Mark::Better : Mark::Worse;
        }
    }
    return Cell_Table(page, 120,
                      {{0, name_type, {"工種"}},
                       {20, amount_type, {"改善前", "完工高"}},
                       {15, amount_type, {"改善前", "評点\n（Ｘ1）"}},
                       {20, amount_type, {"改善後", "完工高"}},
                       {15, amount_type, {"改善後", "評点\n（Ｘ1）"}}},
                      std::move(cells), 4);
}

TEST(Cell_Table_Test, Heads_Stand_Over_Their_Columns) {
    Engine engine;
    const Cell_Table table = Comparison(engine.page, 5);
    const auto texts = engine.Draw(table);
    EXPECT_EQ(Astray(texts), "");
    const auto middle = [&](const char* text) {
        const Box_Of_Text box = Box_Of(texts, text);
        return (box.left + box.right) / 2;
    };
    EXPECT_NEAR(middle("工種"), 12 + 25, 0.1);
    EXPECT_NEAR(middle("改善前"), 12 + 50 + 17.5, 0.1);
    EXPECT_NEAR(middle("改善後"), 12 + 85 + 17.5, 0.1);
    EXPECT_EQ(std::count_if(texts.begin(), texts.end(), [](const auto& t) { return t.text == "完工高"; }), 2);
    EXPECT_LT(Box_Of(texts, "改善前").bottom, Box_Of(texts, "完工高").top);
    EXPECT_LT(Box_Of(texts, "（Ｘ1）").bottom, 30 + static_cast<double>(table.Head_Height()));
    EXPECT_NEAR(Box_Of(texts, "○").left, Box_Of(texts, "×").left, 0.01);
    EXPECT_LT(Box_Of(texts, "○").right, Box_Of(texts, "810").left);
}

// A grey rule over a frame notches it.
TEST(Page_Layout_Test, Heavier_Rules_Lie_Over_Lighter_Ones) {
    Engine engine;
    engine.page.Box(Rule::Thick, {12, 30, 132, 90});
    engine.page.Draw(Rule::Thick, 12, 60, 132, 60);
    engine.page.Fill({12, 30, 132, 40}, 0xE0E0E0);
    engine.Draw(Comparison(engine.page, 9));
    int heaviest = -1;
    bool filled = false;
    for (const Drawn& drawn : engine.sheet.Pages().front()) {
        int weight = -1;
        if (const auto* line = std::get_if<Drawn_Line>(&drawn)) {
            weight = line->pen.width > 1 ? 2 : line->pen.color == 0 ? 1 : 0;
        } else if (std::holds_alternative<Drawn_Box>(drawn)) {
            weight = 3;
        }
        filled = filled || std::holds_alternative<Drawn_Fill>(drawn);
        EXPECT_GE(weight, weight < 0 ? -1 : heaviest);
        EXPECT_TRUE(filled || heaviest < 0) << "a shape under the rules";
        heaviest = std::max(heaviest, weight);
    }
    EXPECT_EQ(heaviest, 3);
}

// ---- pages

const Report_Heading heading = {"青葉建設", 35, "改善前", "2026/11/23", "見本事務所"};

TEST(Page_Flow_Test, Pages_Carry_Heads_And_Leave_No_Line_Alone) {
    for (const std::size_t rows : {40U, 54U, 55U, 56U, 57U, 58U, 120U}) {
        SCOPED_TRACE(rows);
        Engine engine;
        const Cell_Table table = Comparison(engine.page, rows);
        Page_Flow flow(engine.page, heading, "総合比較表", "（単位：千円）");
        flow.Section("一");
        flow.Table(table);
        flow.Space(4);
        flow.Section("二");
        std::string paragraph;
        for (int i = 0; i < 8; ++i) {
            paragraph += "文経営事項審査の結果を、工種ごとに改善の前と後とで比べたものです。";
        }
        flow.Paragraph(paragraph, wrap_type);
        const std::size_t pages = flow.Print();
        EXPECT_EQ(pages, engine.sheet.Pages().size());
        std::size_t printed_rows = 0;
        for (std::size_t i = 0; i < pages; ++i) {
            const auto texts = Texts_Of(engine.sheet, i);
            EXPECT_EQ(Astray(texts), "");
            EXPECT_EQ(Box_Of(texts, "青葉建設").size, 12) << "page " << i;
            EXPECT_EQ(Box_Of(texts, std::to_string(i + 1) + " / " + std::to_string(pages) + "頁").size,
                      pages > 1 ? 9 : 0);
            std::vector<std::string> body;
            for (const Box_Of_Text& text : texts) {
                if (text.left < 20 && text.top > 30) {
                    body.push_back(text.text);
                }
            }
            ASSERT_FALSE(body.empty());
            EXPECT_FALSE(body.back().starts_with("見出し") || body.back() == "二") << "a title alone";
            const auto of_table = std::count_if(body.begin(), body.end(), [](const std::string& text) {
                return text.starts_with("行") || text.starts_with("見出し");
            });
            EXPECT_NE(of_table, 1) << "a row alone";
            const auto titles =
                std::count(body.begin(), body.end(), "一") + std::count(body.begin(), body.end(), "二");
            EXPECT_NE(static_cast<std::ptrdiff_t>(body.size()) - of_table - titles, 1) << "a line alone";
            EXPECT_EQ(Box_Of(texts, "改善後").size > 0, of_table > 0) << "the head over its rows";
            printed_rows += static_cast<std::size_t>(of_table);
        }
        EXPECT_EQ(printed_rows, rows);
    }
}

// A page begins where it is asked for. Language and the places of the objects, written behind the library,
// are read back by pdf_report.py.
TEST(Page_Flow_Test, A_Pdf_Lists_Its_Sections) {
    const Print_State state;
    Pdf_Target pdf({"総合比較表", "見本事務所"});
    Prt_ModSet operations(state, pdf);
    Page_Layout page(operations);
    Page_Flow flow(page, heading, "総合比較表", "");
    flow.Section("一");
    flow.New_Page();
    flow.Section("二");
    flow.Paragraph("経営", wrap_type);
    EXPECT_EQ(flow.Print(), 2U);
    const std::string bytes = pdf.Finish();
    const auto entries = [&](const std::string& text) {
        std::set<std::string> found;
        for (std::size_t at = bytes.find(text); at != std::string::npos; at = bytes.find(text, at + 1)) {
            found.insert(bytes.substr(at, bytes.find(']', at) - at));
        }
        return found.size();
    };
    EXPECT_EQ(entries("/Dest ["), 2U) << "one on each page";
}

} // namespace
} // namespace morvane::tests
