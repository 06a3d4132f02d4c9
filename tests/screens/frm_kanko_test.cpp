// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_kanko.h"

#include "session/kyotu_mod.h"
#include "support/grid_screen.h"
#include "widgets/entry_cell.h"

namespace morvane::tests {
namespace {

/// A work-type screen of a company with one period, driven by the keyboard.
class Kanko_Window : public Grid_Screen {
  protected:
    Kanko_Window() { Make_Company(1, 1, 10); }

    void Open(const char* name) {
        Open_Screen(std::make_unique<Frm_Kanko>(shell, name));
        EXPECT_TRUE(grid->Focus_Cell(0, 0));
    }

    /// The texts of cells of one line without an entry, joined by "|".
    std::string Texts(int row, const std::vector<const char*>& columns) const {
        EXPECT_TRUE(grid->Focus_Cell(row == 20 ? 21 : 20, 0));
        std::string texts;
        for (const char* column : columns) {
            texts += Cells(column, row, row);
        }
        return texts;
    }

    const std::vector<const char*> shown = {"Zzki", "Zki", "Kijun", "Zheikin", "Nheikin", "X1", "Z", "P"};
};

TEST_F(Kanko_Window, Every_Field_Is_Keyed_Along_Its_Rows_Into_Its_Column) {
    struct Column {
        std::string cell, heading, stored;
    };
    const std::vector<Column> contracted = {{"Z1", "監理", "技術者1"},
                                            {"Z2", "１級", "技術者2"},
                                            {"Z22", "管理\n補佐", "技術者6"},
                                            {"Z3", "基幹", "技術者3"},
                                            {"Z4", "２級", "技術者4"},
                                            {"Z5", "その他", "技術者5"},
                                            {"Zzki", "前々期", "元請完工高前々期"},
                                            {"Zki", "前期", "元請完工高前期"},
                                            {"Kijun", "基準決算", "元請完工高基準"}};
    const std::vector<Column> completed = {{"Zzki", "前々期", "完工高前々期"},
                                           {"Zki", "前期", "完工高前期"},
                                           {"Kijun", "基準決算", "完工高基準"}};
    for (const auto& [name, columns] : {std::pair{"Frm_Kanko2", contracted}, {"Frm_Kanko", completed}}) {
        Open(name);
        std::map<std::string, std::string> keyed; // by column and work type
        for (int row = 0; row < kanko_rows; ++row) {
            for (const auto& [cell, heading, stored] : columns) {
                if (!stored.starts_with("技術者") || Line_Of_Row(row) < scored_lines) {
                    ASSERT_EQ(Place(), cell + "(" + std::to_string(row) + ")");
                    std::string& number = keyed[stored + std::to_string(Line_Of_Row(row))];
                    number = std::to_string(1000 + keyed.size());
                    Type(number);
                    Key(Qt::Key_Return);
                }
            }
        }
        EXPECT_EQ(Place(), "Kijun(32)") << "the last field stops";
        Key(Qt::Key_Escape);
        EXPECT_FALSE(form->isVisible());
        for (const Column& column : columns) {
            EXPECT_TRUE(std::ranges::any_of(Kanko_Screen_Of(name).columns, [&](const Kanko_Column& known) {
                return known.name == column.cell && known.heading == column.heading;
            })) << column.heading;
            for (std::size_t line = 0; line < work_line_count; ++line) {
                const auto number = keyed.find(column.stored + std::to_string(line));
                EXPECT_EQ(
                    List("SELECT " + column.stored + " FROM Kandaka_Gj WHERE 工種CD=" + std::to_string(line)),
                    number == keyed.end() ? "-" : number->second)
                    << column.stored << line;
            }
        }
    }
    EXPECT_EQ(Titles(), "");
}

TEST_F(Kanko_Window, A_Line_Shows_By_What_Is_Entered) {
    Open("Frm_Kanko");
    // totals: base period, adopted average
    const std::tuple<const char*, const char*, int, const char*, const char*> steps[] = {
        {"Zzki(3)", "1200", 3, "1,200|||0|0|397|450|288|", "0|0"},
        {"Kijun(3)", "50001", 3, "1,200||50,001|0|25,001|589|450|336|", "50,001|25,001"},
        {"Kijun(1)", "7", 1, "||7|0|4|397|450|288|", "50,001|25,001"}, // part of another line
        {"Kijun(32)", "9", 32, "||9|0|5||||", "50,010|25,006"},        // amounts only
        {"Zzki(3)", "", 3, "||50,001|0|25,001|589|450|336|", "50,010|25,006"},
        {"Kijun(3)", "", 3, "||||||||", "9|5"},
        {"Zki(5)", "1-2.3a４", 5, "|1,234||1,234|617|405|450|290|", "9|622"}, // other keys are refused
    };
    for (const auto& [cell, keys, row, texts, totals] : steps) {
        SCOPED_TRACE(cell);
        Enter(cell, keys);
        EXPECT_EQ(Texts(row, shown), texts);
        EXPECT_EQ(Cell("Kijun_Kei") + "|" + Cell("Nheikin_Kei"), totals);
    }
    grid->Focus_Cell("Kijun(6)");
    Type("2");
    form->close(); // takes the entry in hand
    EXPECT_EQ(List("SELECT 工種CD, 完工高前々期, 完工高前期, 完工高基準, 完工高平均, 評点X1, 総合評点P FROM "
                   "Kandaka_Gj WHERE 完工高平均 Is Not Null ORDER BY 工種CD"),
              "1=0=0=7=4=397=288 5=0=1234=0=617=405=290 6=0=0=2=1=397=288 33=0=0=9=5=-=-");
}

TEST_F(Kanko_Window, Keys_Move_As_In_A_Form) {
    using enum Qt::Key;
    Put_Work(0, {{"完工高基準", 1000}});
    Open("Frm_Kanko");
    Expect_Moves({{"Kijun(0)", Key_Return, "Zzki(1)"},
                  {"Zki(0)", Key_Up, "Zki(0)"},
                  {"Kijun(0)", Key_Right, "Cmd_X(0)"},
                  {"Kijun(1)", Key_Right, "Zzki(2)"},
                  {"Kijun(32)", Key_Right, "Kijun(32)"}});
    ASSERT_TRUE(grid->Focus_Cell("Kijun(0)"));
    EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget())->selectedText(), "1000") << "bare";
    Expect_Moves({{"Zzki(0)", Key_Backtab, "Kanko_Avg", Qt::ShiftModifier}});
    Key(Key_Tab);
    EXPECT_EQ(Place(), "Zzki(0)");
}

TEST_F(Kanko_Window, Years_Of_The_Average) {
    Put_Work(2, {{"完工高前々期", 900}, {"完工高前期", 600}, {"完工高基準", 300}});
    Open("Frm_Kanko");
    const std::tuple<const char*, const char*, const char*> steps[] = {
        {"4", "2", "450|"}, {"3", "3", "600|"}, {"34", "3", "600|"}, {"2", "2", "450|"}, {"", "2", "450|"}};
    for (const auto& [keys, text, line] : steps) {
        SCOPED_TRACE(keys);
        Type_Into(*form, "Kanko_Avg", keys);
        Key(Qt::Key_Return);
        EXPECT_EQ(Place(), "Zzki(0)");
        EXPECT_EQ(Shown(*form, "Kanko_Avg"), text);
        EXPECT_EQ(Texts(2, {"Nheikin"}), line);
    }
    Type_Into(*form, "Kanko_Avg", "3");
    form->close(); // takes the entry in hand
    EXPECT_EQ(List("SELECT 要素CD, 現状 FROM W_Yoso WHERE 要素CD>=201 And 要素CD<=203 ORDER BY 要素CD"),
              "201=3 202=450 203=600");
}

TEST_F(Kanko_Window, An_Overflow_Puts_The_Entry_Back) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"Frm_Kanko", "Kijun(0)", "99000000"},    // X1 out of reach of its table
        {"Frm_Kanko", "Kijun(32)", "2147483648"}, // no amount
        {"Frm_Kanko2", "Kijun(4)", "48000000"},   // Z2
        {"Frm_Kanko2", "Z1(4)", "32768"}};        // no number of persons
    Put_Work(0, {{"完工高基準", 1000}});
    for (const auto& [screen, cell, keys] : cases) {
        SCOPED_TRACE(cell);
        Open(screen);
        Press("Tojiru");
        const auto before = State();
        Open(screen);
        const std::string text = Cell(cell);
        messages.shown.clear();
        Enter(cell, keys);
        EXPECT_EQ(Titles(), "実行時エラー");
        EXPECT_PRED2(Has, Last_Box(), "桁あふれ");
        EXPECT_EQ(Place(), cell);
        grid->Focus_Cell(20, 0);
        EXPECT_EQ(Cell(cell), text);
        Press("Tojiru");
        EXPECT_EQ(State(), before);
    }
}

TEST_F(Kanko_Window, Stored_Figures_Beyond_The_Tables_Can_Be_Corrected) {
    Put_Work(0, {{"完工高前期", 48'000'000}, {"完工高基準", 48'000'000}});
    const auto before = State();
    for (const bool corrected : {false, true}) {
        Open("Frm_Kanko");
        EXPECT_EQ(Told(), "実行時エラー");
        Enter("Zki(0)", "48000001");
        EXPECT_EQ(Texts(0, shown), "|48,000,001|48,000,000||||||") << "no score in its place";
        Click(*form, "Tojiru");
        EXPECT_EQ(Told(), "保存エラー");
        EXPECT_TRUE(form->isVisible());
        if (!corrected) {
            messages.answers = {Answer::Discard};
            Press("Tojiru");
            EXPECT_EQ(Told(), "保存エラー");
            EXPECT_EQ(State(), before);
        }
    }
    Enter("Zki(0)", "0");
    Enter("Kijun(0)", "2");
    EXPECT_EQ(Texts(0, {"Nheikin", "X1"}), "1|397|");
    Press("Tojiru");
    EXPECT_EQ(List("SELECT 完工高平均 FROM Kandaka_Gj WHERE 工種CD=0"), "1");
}

TEST_F(Kanko_Window, A_Block_From_A_Spreadsheet_Is_One_Step) {
    Open("Frm_Kanko");
    grid->Focus_Cell("Zki(2)");
    Paste("1,000\t3,000\n2,000\t△5\n");
    EXPECT_EQ(Texts(2, shown), "|1,000|3,000|1,000|2,000|423|450|295|");
    EXPECT_EQ(Texts(3, shown), "|2,000||2,000|1,000|410|450|291|");
    EXPECT_PRED2(Has, Last_Box(), "貼り付けエラー：");
    EXPECT_PRED2(Has, Last_Box(), "「030 大工」の「完成工事高（千円） 基準決算」：△5");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Texts(2, shown) + Texts(3, shown) + Cell("Zki_Kei"), "||||||||||||||||0");
    // A block that overflows goes back as a whole.
    grid->Focus_Cell("Zki(2)");
    Paste("5\t6\n7\t99000000");
    EXPECT_EQ(Titles(), "貼り付けエラー 実行時エラー");
    EXPECT_EQ(Texts(2, shown), "||||||||");
}

TEST_F(Kanko_Window, Checks_Open_Where_A_Line_Has_Scores) {
    for (const char* button : {"Cmd_X", "Cmd_P", "Cmd_Z", "Cmd_Z2", "Cmd_Z1"}) {
        const bool completed = button[4] != 'Z';
        Open(completed ? "Frm_Kanko" : "Frm_Kanko2");
        Enter(completed ? "Kijun(4)" : "Z4(4)", "3");
        for (const bool has_score : {false, true}) {
            EXPECT_TRUE(grid->Focus_Cell(button + std::string(has_score ? "(4)" : "(32)")));
            Key(Qt::Key_Space);
            QTest::qWait(1);
            EXPECT_EQ(form->findChild<QDialog*>() != nullptr, has_score) << button;
        }
        auto* check = form->findChild<QDialog*>();
        EXPECT_EQ(check->objectName() == QStringLiteral("Frm_Zイ_Calc_Check"), button[5] == '1') << button;
        check->reject();
        Press("Tojiru");
    }
}

} // namespace
} // namespace morvane::tests
