// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_kanko.h"

#include "session/kyotu_mod.h"
#include "support/failing_writes.h"
#include "support/keyboard.h"
#include "widgets/entry_cell.h"

#include <QClipboard>
#include <QPushButton>
#include <memory>

namespace morvane::tests {
namespace {

/// A work-type screen of a company with one period, driven by the keyboard.
class Kanko_Window : public Ui_Installation {
  protected:
    Kanko_Window() { Make_Company(1, 1, 10); }

    Entry_Grid& Open(const char* name) {
        form = std::make_unique<Frm_Kanko>(shell, name);
        form->resize(1180, 700);
        Show(*form);
        grid = Child<Entry_Grid>(*form, "grid");
        EXPECT_TRUE(grid->Focus_Cell(0, 0));
        return *grid;
    }

    void Close() {
        Click(*form, "Tojiru");
        EXPECT_FALSE(form->isVisible());
    }

    void Key_Into(const char* cell, const std::string& keys) {
        ASSERT_TRUE(grid->Focus_Cell(cell)) << cell;
        keys.empty() ? Key(Qt::Key_Delete) : Type(keys);
        Key(Qt::Key_Down);
    }

    /// The texts of cells of one line without an entry, joined by "|".
    std::string Texts(int row, const std::vector<const char*>& columns) const {
        EXPECT_TRUE(grid->Focus_Cell(row == 20 ? 21 : 20, 0));
        std::string texts;
        for (const char* column : columns) {
            texts += grid->Cell_Text(column + ("(" + std::to_string(row) + ")")).toStdString() + "|";
        }
        return texts;
    }

    std::unique_ptr<Frm_Kanko> form;
    Entry_Grid* grid = nullptr;
    const std::vector<const char*> shown = {"Zzki", "Zki", "Kijun", "Zheikin", "Nheikin", "X1", "Z", "P"};
};

TEST_F(Kanko_Window, Every_Field_Is_Keyed_Along_Its_Rows_Into_Its_Column) {
    struct Column {
        const char *cell, *heading, *stored;
    };
    const struct {
        const char* form;
        std::vector<Column> columns;
    } screens[] = {{"Frm_Kanko2",
                    {{"Z1", "監理", "技術者1"},
                     {"Z2", "１級", "技術者2"},
                     {"Z22", "管理\n補佐", "技術者6"},
                     {"Z3", "基幹", "技術者3"},
                     {"Z4", "２級", "技術者4"},
                     {"Z5", "その他", "技術者5"},
                     {"Zzki", "前々期", "元請完工高前々期"},
                     {"Zki", "前期", "元請完工高前期"},
                     {"Kijun", "基準決算", "元請完工高基準"}}},
                   {"Frm_Kanko",
                    {{"Zzki", "前々期", "完工高前々期"},
                     {"Zki", "前期", "完工高前期"},
                     {"Kijun", "基準決算", "完工高基準"}}}};
    for (const auto& [name, columns] : screens) {
        Open(name);
        std::map<std::string, std::string> keyed; // by column and work type
        for (int row = 0; row < kanko_rows; ++row) {
            for (const auto& [cell, heading, stored] : columns) {
                const bool persons = std::string_view(stored).starts_with("技術者");
                if (!persons || Line_Of_Row(row) < scored_lines) {
                    ASSERT_EQ(Place(), cell + ("(" + std::to_string(row) + ")"));
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
        for (const auto& [cell, heading, stored] : columns) {
            EXPECT_TRUE(std::ranges::any_of(Kanko_Screen_Of(name).columns, [&cell = cell, &heading = heading](
                                                                               const Kanko_Column& known) {
                return std::string_view(known.name) == cell && std::string_view(known.heading) == heading;
            })) << heading;
            for (std::size_t line = 0; line < work_line_count; ++line) {
                const std::string where = "工種CD=" + std::to_string(line);
                const auto number = keyed.find(stored + std::to_string(line));
                EXPECT_EQ(List(std::string("SELECT ") + stored + " FROM Kandaka_Gj WHERE " + where),
                          number == keyed.end() ? "-" : number->second)
                    << stored << line;
            }
        }
    }
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(Kanko_Window, A_Line_Shows_By_What_Is_Entered) {
    Open("Frm_Kanko");
    const struct {
        const char* cell;
        const char* keys;
        int row;
        const char* texts;
        const char* totals; ///< base period, adopted average
    } steps[] = {
        {"Zzki(3)", "1200", 3, "1,200|||0|0|397|450|288|", "0|0"},
        {"Kijun(3)", "50001", 3, "1,200||50,001|0|25,001|589|450|336|", "50,001|25,001"},
        {"Kijun(1)", "7", 1, "||7|0|4|397|450|288|", "50,001|25,001"}, // part of another line
        {"Kijun(32)", "9", 32, "||9|0|5||||", "50,010|25,006"},        // amounts only
        {"Zzki(3)", "", 3, "||50,001|0|25,001|589|450|336|", "50,010|25,006"},
        {"Kijun(3)", "", 3, "||||||||", "9|5"},
        {"Zki(5)", "1-2.3a４", 5, "|1,234||1,234|617|405|450|290|", "9|622"}, // other keys are refused
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.cell);
        Key_Into(step.cell, step.keys);
        EXPECT_EQ(Texts(step.row, shown), step.texts);
        EXPECT_EQ((grid->Cell_Text("Kijun_Kei") + "|" + grid->Cell_Text("Nheikin_Kei")).toStdString(),
                  step.totals);
    }
    Close();
    EXPECT_EQ(List("SELECT 工種CD, 完工高前々期, 完工高前期, 完工高基準, 完工高平均, 評点X1, 総合評点P FROM "
                   "Kandaka_Gj WHERE 完工高平均 Is Not Null ORDER BY 工種CD"),
              "1=0=0=7=4=397=288 5=0=1234=0=617=405=290 33=0=0=9=5=-=-");
}

TEST_F(Kanko_Window, Keys_Move_As_In_A_Form) {
    using enum Qt::Key;
    Put_Work(0, {{"完工高基準", 1000}});
    Open("Frm_Kanko");
    const struct {
        const char* from;
        Qt::Key key;
        const char* to;
    } moves[] = {
        {"Zzki(0)", Key_Return, "Zki(0)"},     {"Kijun(0)", Key_Return, "Zzki(1)"},
        {"Zki(1)", Key_Up, "Zki(0)"},          {"Zki(0)", Key_Up, "Zki(0)"},
        {"Zki(1)", Key_Down, "Zki(2)"},        {"Zki(1)", Key_Left, "Zzki(1)"},
        {"Zki(1)", Key_Right, "Kijun(1)"},     {"Kijun(0)", Key_Right, "Cmd_X(0)"},
        {"Kijun(1)", Key_Right, "Zzki(2)"},    {"Kijun(32)", Key_Down, "Kijun(32)"},
        {"Kijun(32)", Key_Right, "Kijun(32)"}, {"Kijun(32)", Key_Return, "Kijun(32)"},
    };
    for (const auto& move : moves) {
        ASSERT_TRUE(grid->Focus_Cell(move.from));
        Key(move.key);
        EXPECT_EQ(Place(), move.to) << move.from;
    }
    ASSERT_TRUE(grid->Focus_Cell("Kijun(0)"));
    auto* cell = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    EXPECT_EQ(cell->selectedText(), "1000") << "the bare number";
    ASSERT_TRUE(grid->Focus_Cell(0, 0));
    Key(Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Place(), "Kanko_Avg");
    Key(Key_Tab);
    EXPECT_EQ(Place(), "Zzki(0)");
}

TEST_F(Kanko_Window, Years_Of_The_Average) {
    Put_Work(2, {{"完工高前々期", 900}, {"完工高前期", 600}, {"完工高基準", 300}});
    Open("Frm_Kanko");
    auto* years = Child<Entry_Cell>(*form, "Kanko_Avg");
    const struct {
        const char* keys;
        const char* text;
        const char* line;
    } steps[] = {
        {"4", "2", "450|"}, {"3", "3", "600|"}, {"34", "3", "600|"}, {"2", "2", "450|"}, {"", "2", "450|"}};
    for (const auto& step : steps) {
        SCOPED_TRACE(step.keys);
        Type_Into(*form, "Kanko_Avg", step.keys);
        Key(Qt::Key_Return);
        EXPECT_EQ(Place(), "Zzki(0)");
        EXPECT_EQ(years->text().toStdString(), step.text);
        EXPECT_EQ(Texts(2, {"Nheikin"}), step.line);
    }
    Close();
    EXPECT_EQ(List("SELECT 要素CD, 現状 FROM W_Yoso WHERE 要素CD>=201 And 要素CD<=203 ORDER BY 要素CD"),
              "201=2 202=450 203=600");
}

TEST_F(Kanko_Window, An_Overflow_Puts_The_Entry_Back) {
    const struct {
        const char* form;
        const char* cell;
        const char* keys;
    } cases[] = {{"Frm_Kanko", "Kijun(0)", "99000000"},    // X1 out of reach of its table
                 {"Frm_Kanko", "Kijun(32)", "2147483648"}, // no amount
                 {"Frm_Kanko2", "Kijun(4)", "48000000"},   // Z2
                 {"Frm_Kanko2", "Z1(4)", "32768"}};        // no number of persons
    Put_Work(0, {{"完工高基準", 1000}});
    for (const auto& c : cases) {
        SCOPED_TRACE(c.cell);
        Open(c.form);
        Close();
        const auto before = State();
        Open(c.form);
        const std::string text = grid->Cell_Text(c.cell).toStdString();
        messages.shown.clear();
        Key_Into(c.cell, c.keys);
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].title, "実行時エラー");
        EXPECT_NE(messages.shown[0].text.find("桁あふれ"), std::string::npos);
        EXPECT_EQ(Place(), c.cell);
        grid->Focus_Cell(20, 0);
        EXPECT_EQ(grid->Cell_Text(c.cell).toStdString(), text);
        Close();
        EXPECT_EQ(State(), before);
    }
}

TEST_F(Kanko_Window, Stored_Figures_Beyond_The_Tables_Can_Be_Corrected) {
    Put_Work(0, {{"完工高前期", 48'000'000}, {"完工高基準", 48'000'000}});
    const auto before = State();
    for (const bool corrected : {false, true}) {
        messages.shown.clear();
        Open("Frm_Kanko");
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].title, "実行時エラー");
        Key_Into("Zki(0)", "48000001");
        EXPECT_EQ(Texts(0, shown), "|48,000,001|48,000,000||||||") << "no score in its place";
        Click(*form, "Tojiru");
        EXPECT_EQ(messages.shown.back().title, "保存エラー");
        EXPECT_TRUE(form->isVisible());
        if (!corrected) {
            messages.answers = {Answer::Discard};
            Close();
            EXPECT_EQ(State(), before);
        }
    }
    Key_Into("Zki(0)", "0");
    Key_Into("Kijun(0)", "2");
    EXPECT_EQ(Texts(0, {"Nheikin", "X1"}), "1|397|");
    Close();
    EXPECT_EQ(List("SELECT 完工高平均 FROM Kandaka_Gj WHERE 工種CD=0"), "1");
}

TEST_F(Kanko_Window, A_Block_From_A_Spreadsheet_Is_One_Step) {
    Open("Frm_Kanko");
    grid->Focus_Cell("Zki(2)");
    QApplication::clipboard()->setText(QStringLiteral("1,000\t3,000\n2,000\t△5\n"));
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Texts(2, shown), "|1,000|3,000|1,000|2,000|423|450|295|");
    EXPECT_EQ(Texts(3, shown), "|2,000||2,000|1,000|410|450|291|");
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, "貼り付けエラー");
    EXPECT_NE(messages.shown[0].text.find("「030 大工」の「完成工事高（千円） 基準決算」：△5"),
              std::string::npos)
        << messages.shown[0].text;
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Texts(2, shown) + Texts(3, shown), "||||||||||||||||");
    EXPECT_EQ(grid->Cell_Text("Zki_Kei").toStdString(), "0");
    // A block that overflows goes back as a whole.
    messages.shown.clear();
    grid->Focus_Cell("Zki(2)");
    QApplication::clipboard()->setText(QStringLiteral("5\t6\n7\t99000000"));
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(messages.shown.at(0).title, "実行時エラー");
    EXPECT_EQ(Texts(2, shown), "||||||||");
}

TEST_F(Kanko_Window, Engineers_Of_No_Work_Type_Are_Not_Taken) {
    Open("Frm_Kanko2");
    for (const char* name : {"Z1", "Z2", "Z22", "Z3", "Z4", "Z5"}) {
        Key_Into((name + std::string("(32)")).c_str(), "5");
        EXPECT_EQ(Texts(32, {name}), "|");
    }
    Key_Into("Z22(7)", "2");
    EXPECT_EQ(Texts(7, {"Zi", "Zro", "Z", "P"}), "609|241|535||") << "P needs completed work";
    Close();
    EXPECT_EQ(List("SELECT 工種CD, 技術者6, 評点Z1 FROM Kandaka_Gj WHERE 評点Z1 Is Not Null"), "7=2=609");
}

TEST_F(Kanko_Window, Checks_Open_Where_A_Line_Has_Scores) {
    const struct {
        const char* form;
        const char* cell;
        std::vector<const char*> buttons;
        const char* check;
    } cases[] = {{"Frm_Kanko", "Kijun(4)", {"Cmd_X", "Cmd_P"}, "Frm_XZP_Calc_Check"},
                 {"Frm_Kanko2", "Z4(6)", {"Cmd_Z", "Cmd_Z2"}, "Frm_XZP_Calc_Check"},
                 {"Frm_Kanko2", "Z4(6)", {"Cmd_Z1"}, "Frm_Zイ_Calc_Check"}};
    const auto check_screen = [](const char* name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->objectName() == QString::fromUtf8(name)) {
                return qobject_cast<QDialog*>(window);
            }
        }
        return static_cast<QDialog*>(nullptr);
    };
    for (const auto& c : cases) {
        Open(c.form);
        Key_Into(c.cell, "3");
        const std::string index = std::string(c.cell).substr(std::string(c.cell).find('('));
        for (const std::string button : c.buttons) {
            SCOPED_TRACE(button);
            EXPECT_TRUE(grid->Focus_Cell(button + "(32)"));
            Key(Qt::Key_Space);
            EXPECT_EQ(check_screen(c.check), nullptr) << "no score, no check";
            EXPECT_TRUE(grid->Focus_Cell(button + index));
            Key(Qt::Key_Space);
            QTest::qWait(1);
            QDialog* check = check_screen(c.check);
            ASSERT_NE(check, nullptr);
            check->reject();
            form->activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        }
        Close();
    }
}

TEST_F(Kanko_Window, Leaving_By_The_Sister_Or_For_The_Report_Stores) {
    Open("Frm_Kanko");
    grid->Focus_Cell("Kijun(9)");
    Type("80");
    Click(*form, "Prt");
    EXPECT_EQ(shell.calls.back(), "Open_Form Rpt_Kekka_2012");
    EXPECT_EQ(List("SELECT 完工高基準 FROM Kandaka_Gj WHERE 工種CD=9"), "80");
    grid->Focus_Cell("Kijun(9)");
    Type("90");
    Click(*form, "edit_z");
    EXPECT_EQ(shell.calls.back(), "Replace_Form Frm_Kanko2");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(List("SELECT 完工高基準 FROM Kandaka_Gj WHERE 工種CD=9"), "90");
}

TEST_F(Kanko_Window, A_Store_That_Fails_Keeps_The_Screen_And_What_Was_Keyed) {
    Open("Frm_Kanko");
    grid->Focus_Cell("Kijun(9)");
    Type("80");
    const auto before = State();
    {
        const Failing_Writes failing(1, Failing_Writes::Manner::From_Then_On);
        Click(*form, "Tojiru");
    }
    EXPECT_TRUE(form->isVisible());
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, "保存エラー");
    EXPECT_NE(messages.shown[0].text.find("Morvane.dat"), std::string::npos) << messages.shown[0].text;
    EXPECT_EQ(Texts(9, {"Kijun", "X1"}), "80|397|");
    EXPECT_EQ(State(), before);
    Close();
    EXPECT_EQ(List("SELECT 完工高基準 FROM Kandaka_Gj WHERE 工種CD=9"), "80");
}

} // namespace
} // namespace morvane::tests
