// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_kanko.h"

#include "support/every_firm.h"

namespace morvane::tests {
namespace {

/// An improved screen of the work types.
std::unique_ptr<Form> Screen(Shell_Port& shell, const std::string& name) {
    return std::make_unique<Frm_Kanko>(shell, Kanko_Screen_Of(name).name);
}

class Kaiz_Firms : public Every_Firm {
  protected:
    /// Keys random figures into the fields of a screen and leaves it by one of its sisters.
    const char* Key_Some(const std::string& name) {
        Open_Screen(Screen(shell, name));
        const Kanko_Screen& screen = Kanko_Screen_Of(name);
        for (int edits = 0; edits < 8; ++edits) {
            const Kanko_Column& column = screen.columns[random() % screen.columns.size()];
            const int row = Up_To(kanko_rows - 2);
            if (Is_Keyed(column.use)) {
                const bool emptied = random() % 5 == 0;
                const int number = Up_To(column.use == Kanko_Use::Count ? 12 : 900'000);
                Enter(column.name + ("(" + std::to_string(row) + ")"), emptied ? "" : std::to_string(number));
            }
        }
        if (screen.Has_Years()) {
            Type_Into(*form, "Kanko_Avg", random() % 2 == 0 ? "2" : "3");
            Key(Qt::Key_Return);
        }
        const Kanko_Button& sister = screen.sisters[random() % screen.sisters.size()];
        Press(sister.name);
        EXPECT_EQ(shell.calls.back(), std::string("Replace_Form ") + sister.form);
        return sister.form;
    }
};

TEST_P(Kaiz_Firms, What_Is_Keyed_Is_Stored_As_It_Is_Scored) {
    Make_Firm();
    const char* screen = "Frm_KankoKaiz";
    Open_Screen(Screen(shell, screen));
    EXPECT_TRUE(Cells("Mae_P", 0, kanko_rows - 2) == Cells("P", 0, kanko_rows - 2) || !Law().has_w7_w8);
    Press("Tojiru");
    Move_Statement();
    for (int visit = 0; visit < 5; ++visit) {
        screen = Key_Some(screen);
        Expect_Scored();
    }
    // What is shown is what is scored, on every screen.
    const Review_Figures scored = Expect_Scored();
    std::string before;
    std::string after;
    std::int32_t sum = 0;
    for (int row = 0; row < kanko_rows - 1; ++row) {
        const auto [from, to] =
            std::pair{current.works[Line_Of_Row(row)].P, scored.works[Line_Of_Row(row)].P};
        before += (from.up ? Comma_Str(from.value) : "") + "|";
        after += (to.up ? Comma_Str(to.value) : "") + "|";
        sum += from.up && to.up ? to.value - from.value : 0;
    }
    for (const char* name : {"Frm_KankoKaiz", "Frm_KankoKaiz2", "Frm_KankoKaiz3"}) {
        Open_Screen(Screen(shell, name));
        EXPECT_EQ(Cells("Mae_P", 0, kanko_rows - 2), before) << name;
        EXPECT_EQ(Cells("P", 0, kanko_rows - 2), after) << name;
        EXPECT_EQ(Shown(*form, "Strip_Sa_Kei"), Gain_Str(sum));
        Press("Tojiru");
    }
    Expect_Scored();
    EXPECT_EQ(Titles(), "");
}

INSTANTIATE_TEST_SUITE_P(All, Kaiz_Firms, Every_Kind);

/// A firm of three work types.
class Kaiz_Lines : public Grid_Screen {
  protected:
    Kaiz_Lines() {
        Make_Company(1, 1, 10);
        Put_Elements({{101, 1}, {111, 20}, {200, 0}});
        Put_Work(2, {{"完工高基準", 40'000}, {"元請完工高基準", 9'000}, {"技術者1", 2}, {"技術者6", 1}});
        Put_Work(3, {{"完工高基準", 80'000}, {"技術者5", 4}});
        Put_Work(9, {{"技術者2", 3}});
        const Connection cn = Cn_Open(session);
        Transaction transaction(cn);
        Settle_Filled(cn, Side_In_Hand(session), session.Kind());
        transaction.Commit();
    }

    /// What the line shows of the gain: the work type, P before and after, their difference, all together.
    [[nodiscard]] std::string Gain() const {
        std::string texts;
        for (const char* name :
             {"Strip_Subject", "Strip_Mae_P", "Strip_P", "Strip_Sa", "Strip_Sa_Kei", "Strip_Kensu"}) {
            texts += (texts.empty() ? "" : "|") + Shown(*form, name);
        }
        return texts;
    }
};

TEST_F(Kaiz_Lines, The_Gain_Follows_What_Is_Keyed) {
    // A first visit does not post the sixth engineers: without them before equals after.
    Put_Work(2, {{"技術者1", 2}, {"技術者6", 0}});
    Settle_Again(session);
    Open_Screen(Screen(shell, "Frm_KankoKaiz"));
    // difference: of the line
    // gain: of the line below, which the key goes on to
    const std::tuple<const char*, const char*, const char*, const char*> steps[] = {
        {"Kijun(2)", "40000", "±0", "大工|291|291|±0|±0|上昇 0　下降 0\n新規 0　なし 0"},
        {"Kijun(2)", "400000", "↑ +54", "大工|291|291|±0|↑ +54|上昇 1　下降 0\n新規 0　なし 0"},
        {"Kijun(3)", "0", "↓ -57", "左官||||↓ -3|上昇 1　下降 1\n新規 0　なし 0"},
        {"Zki(9)", "5000", "", "管||||↓ -3|上昇 1　下降 1\n新規 1　なし 0"},
        {"Zzki(2)", "", "↑ +54", "大工|291|234|↓ -57|↓ -3|上昇 1　下降 1\n新規 1　なし 0"},
        {"Zki(2)", "", "↑ +54", "大工|291|234|↓ -57|↓ -3|上昇 1　下降 1\n新規 1　なし 0"},
        {"Kijun(2)", "", "", "大工|291|234|↓ -57|↓ -57|上昇 0　下降 1\n新規 1　なし 1"},
    };
    EXPECT_EQ(Place(), "Zzki(2)") << "the first work type that has P";
    for (const char* years : {"3", "2"}) {
        const std::string former = Gain();
        Type_Into(*form, "Kanko_Avg", years);
        const std::string typed = Gain();
        EXPECT_NE(typed, former) << "the line follows the years as they are keyed";
        Key(Qt::Key_Return);
        EXPECT_EQ(Gain(), typed);
    }
    for (const auto& [cell, keys, difference, gain] : steps) {
        SCOPED_TRACE(keys);
        Enter(cell, keys);
        EXPECT_EQ(Cell("Sa" + std::string(cell).substr(std::string(cell).find('('))), difference);
        EXPECT_EQ(Gain(), gain);
    }
    // It follows each key before the entry is left, and Esc.
    ASSERT_TRUE(grid->Focus_Cell("Kijun(3)"));
    const std::string taken = Gain();
    Type("40000");
    const std::string typed = Shown(*form, "Strip_Sa");
    EXPECT_NE(Gain(), taken);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Gain(), taken);
    Enter("Kijun(3)", "40000");
    EXPECT_EQ(Cell("Sa(3)"), typed);
    Press("Tojiru");
    EXPECT_EQ(
        List("SELECT 工種CD, 改0完工高基準, 改0総合評点P Is Null, 総合評点P Is Null FROM Kandaka_Gj WHERE "
             "完工高基準 Is Not Null Or 改0完工高前期 Is Not Null"),
        "2=-=1=0 3=40000=0=0 9=0=0=1")
        << "an emptied line drops out of the improvement alone";
}

// Each screen stores what is its own, before a report, a check or a sister opens.
TEST_F(Kaiz_Lines, Reports_Checks_And_Sisters_Come_After_Storing) {
    // checks: and the score that they tell of
    // stored: of the line, and the years, in the end
    const std::tuple<const char*, const char*, std::vector<std::string>, const char*> cases[] = {
        {"Frm_KankoKaiz", "Kijun(2)", {"X1", "P"}, "15=9000=2=-=3"},
        {"Frm_KankoKaiz2", "Z1(2)", {"Z"}, "15=9000=14=-=3"},
        {"Frm_KankoKaiz2", "Z22(2)", {"Z"}, "15=9000=14=14=3"},
        {"Frm_KankoKaiz3", "Kijun(2)", {"Z"}, "15=14=14=14=3"}};
    const std::string line_stored =
        "SELECT 改0完工高基準, 改0元請完工高基準, 改0技術者1, 改0技術者6, 改善後0 FROM "
        "Kandaka_Gj, W_Yoso WHERE 工種CD=2 And 要素CD=201";
    for (const auto& [name, cell, checks, stored] : cases) {
        SCOPED_TRACE(cell);
        Open_Screen(Screen(shell, name));
        if (Kanko_Screen_Of(name).Has_Years()) {
            Type_Into(*form, "Kanko_Avg", "3");
        }
        int number = 10;
        const auto expect_stored = [&](const std::function<void()>& act) {
            Enter(cell, std::to_string(++number));
            grid->Focus_Cell(cell);
            act();
            EXPECT_PRED2(Has, List(line_stored), std::to_string(number));
        };
        for (const auto& [button, report] :
             {std::pair{"Cmd_Hikaku", "Rpt_KankoHK"}, {"Cmd_Kekka", "Rpt_Kekka_2012"}}) {
            expect_stored([&, of = button] { Click(*form, of); });
            EXPECT_EQ(shell.calls.back(), std::string("Open_Form ") + report);
        }
        for (const std::string& score : checks) {
            expect_stored([&] {
                EXPECT_TRUE(grid->Focus_Cell((score == "X1" ? "Cmd_X" : "Cmd_" + score) + "(2)"));
                Key(Qt::Key_Space);
                QTest::qWait(1);
            });
            auto* window = qobject_cast<QDialog*>(QApplication::activeWindow());
            ASSERT_NE(window, form.get()) << score;
            EXPECT_TRUE(std::ranges::any_of(
                window->findChildren<QLabel*>(),
                [&](QLabel* label) { return label->text().toStdString() == Cell(score + "(2)"); }))
                << score << " is not told of the improved side";
            EXPECT_EQ(Shown(*window, "Lbl_SubTitle"), "改善シミュレーション後の数値による計算です。");
            window->reject();
            form->activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        }
        expect_stored([&] { Press(Kanko_Screen_Of(name).sisters[1].name); });
        EXPECT_EQ(List(line_stored), stored);
    }
    EXPECT_EQ(List("SELECT 完工高基準, 元請完工高基準, 技術者1, 技術者6 FROM Kandaka_Gj WHERE 工種CD=2"),
              "40000=9000=2=1");
}

} // namespace
} // namespace morvane::tests
