// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_kanko.h"

#include "review/settle.h"
#include "session/kyotu_mod.h"
#include "support/failing_writes.h"
#include "support/generated_firm.h"
#include "support/keyboard.h"
#include "widgets/entry_cell.h"

#include <memory>

namespace morvane::tests {
namespace {

/// The improved screens of the work types, driven by the keyboard.
class Kaiz_Window : public Ui_Installation {
  protected:
    explicit Kaiz_Window(const std::string& edition = "13") : Ui_Installation(edition) {}

    void Open(const std::string& name) {
        form = std::make_unique<Frm_Kanko>(shell, Kanko_Screen_Of(name).name);
        form->resize(1180, 700);
        Show(*form);
        grid = Child<Entry_Grid>(*form, "grid");
    }

    void Press(const char* button) {
        Click(*form, button);
        EXPECT_FALSE(form->isVisible());
    }

    void Key_Into(const std::string& cell, const std::string& keys) const {
        ASSERT_TRUE(grid->Focus_Cell(cell)) << cell;
        keys.empty() ? Key(Qt::Key_Delete) : Type(keys);
        Key(Qt::Key_Down);
    }

    [[nodiscard]] std::string Text(const std::string& cell) const {
        return grid->Cell_Text(cell).toStdString();
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

    [[nodiscard]] Review_Figures Stored(Scenario scenario) const {
        return Load_Review(session, Side_In_Hand(session, scenario));
    }

    [[nodiscard]] Settled_Score Scored(Scenario scenario) const {
        return Score_Company(Cn_Open(session), session.Kind().edition, {{}, scenario});
    }

    std::unique_ptr<Frm_Kanko> form;
    Entry_Grid* grid = nullptr;
};

// ---- firms of every law year

class Kaiz_Firms : public Kaiz_Window,
                   public ::testing::WithParamInterface<std::tuple<const char*, std::int16_t, int>> {
  protected:
    Kaiz_Firms() : Kaiz_Window(std::get<0>(GetParam())) {
        Make_Company(1, std::get<1>(GetParam()), 10);
        Put_Elements({{210, std::get<2>(GetParam())}});
        session.Simyu_Kubun = Law().code;
    }

    [[nodiscard]] static const Law_Year& Law() { return Law_Of(std::get<2>(GetParam())); }

    std::int32_t Up_To(std::uint32_t most) { return static_cast<std::int32_t>(random() % (most + 1)); }

    /// Stores a generated firm without engineers of the class that came last, which no first visit posts.
    void Make_Firm() {
        Review_Figures firm = Generated_Firm(Law(), random);
        for (Work_Line& line : firm.works) {
            line.gijutusya[5] = {};
        }
        std::map<int, double> amounts;
        for (std::size_t code = 0; code < firm.statement.amount.size(); ++code) {
            if (const double yen = firm.statement.amount[code].Count(); yen != 0) {
                amounts[static_cast<int>(code)] = yen;
            }
        }
        Put_Amounts(amounts);
        Put_Amounts(amounts, "改善後残高");
        Store_Firm(session, Side_In_Hand(session), firm);
    }

    /// Keys random figures into the fields of a screen and leaves it by one of its sisters.
    const char* Key_Some(const std::string& name) {
        Open(name);
        const Kanko_Screen& screen = Kanko_Screen_Of(name);
        for (int edits = 0; edits < 8; ++edits) {
            const Kanko_Column& column = screen.columns[random() % screen.columns.size()];
            const int row = Up_To(kanko_rows - 2);
            if (Is_Keyed(column.use)) {
                const bool emptied = random() % 5 == 0;
                const int number = Up_To(column.use == Kanko_Use::Count ? 12 : 900'000);
                Key_Into(column.name + ("(" + std::to_string(row) + ")"),
                         emptied ? "" : std::to_string(number));
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

    std::mt19937 random{20260401};
};

TEST_P(Kaiz_Firms, What_Is_Keyed_Is_Stored_As_It_Is_Scored) {
    Make_Firm();
    const Review_Figures current = Stored(Scenario::Genjo);
    const char* screen = "Frm_KankoKaiz";
    Open(screen);
    for (int row = 0; row < kanko_rows - 1 && Law().has_w7_w8; ++row) {
        EXPECT_EQ(Text("Mae_P(" + std::to_string(row) + ")"), Text("P(" + std::to_string(row) + ")"));
    }
    Press("Tojiru");
    Put_Amounts({{319, Up_To(900'000) * 1000.0}, {399, Up_To(900'000) * 1000.0}}, "改善後残高");
    for (int visit = 0; visit < 5; ++visit) {
        screen = Key_Some(screen);
        const Settled_Score scored = Scored(Scenario::Kaizen);
        const Review_Figures stored = Stored(Scenario::Kaizen);
        EXPECT_EQ(stored.works, scored.figures.works) << visit;
        EXPECT_EQ(stored.elements, scored.figures.elements) << visit;
    }
    // What is shown is what is scored, on every screen, and what was there before is as it was.
    const Settled_Score scored = Scored(Scenario::Kaizen);
    for (const char* name : {"Frm_KankoKaiz", "Frm_KankoKaiz2", "Frm_KankoKaiz3"}) {
        Open(name);
        std::int32_t sum = 0;
        for (int row = 0; row < kanko_rows - 1; ++row) {
            const std::string at = "(" + std::to_string(row) + ")";
            const auto [before, after] =
                std::pair{current.works[Line_Of_Row(row)].P, scored.figures.works[Line_Of_Row(row)].P};
            EXPECT_EQ(Text("Mae_P" + at), before.up ? Comma_Str(before.value) : "") << name << row;
            EXPECT_EQ(Text("P" + at), after.up ? Comma_Str(after.value) : "") << name << row;
            sum += before.up && after.up ? after.value - before.value : 0;
        }
        EXPECT_EQ(Shown(*form, "Strip_Sa_Kei"), Gain_Str(sum));
        Press("Tojiru");
    }
    EXPECT_EQ(Stored(Scenario::Genjo).works, current.works);
    EXPECT_EQ(Stored(Scenario::Genjo).elements, current.elements);
    EXPECT_EQ(Titles(), "");
}

INSTANTIATE_TEST_SUITE_P(All, Kaiz_Firms,
                         ::testing::Combine(::testing::Values("13", "01"),
                                            ::testing::Values(std::int16_t{1}, std::int16_t{2}),
                                            ::testing::Range(1, 5)));

// ---- a firm of three work types

class Kaiz_Lines : public Kaiz_Window {
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
};

TEST_F(Kaiz_Lines, The_Gain_Follows_What_Is_Keyed) {
    Open("Frm_KankoKaiz");
    const struct {
        const char* cell;
        const char* keys;
        const char* difference; ///< of the line
        const char* gain;       ///< of the line below, which the key goes on to
    } steps[] = {
        {"Kijun(2)", "40000", "±0", "大工|291|291|±0|±0|上昇 0　下降 0"},
        {"Kijun(2)", "400000", "↑ +54", "大工|291|291|±0|↑ +54|上昇 1　下降 0"},
        {"Kijun(3)", "0", "↓ -57", "左官||||↓ -3|上昇 1　下降 1"},
        {"Zki(9)", "5000", "", "管||||↓ -3|上昇 1　下降 1　新規 1"},
        {"Zzki(2)", "", "↑ +54", "大工|291|234|↓ -57|↓ -3|上昇 1　下降 1　新規 1"},
        {"Zki(2)", "", "↑ +54", "大工|291|234|↓ -57|↓ -3|上昇 1　下降 1　新規 1"},
        {"Kijun(2)", "", "", "大工|291|234|↓ -57|↓ -57|上昇 0　下降 1　新規 1　なし 1"},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.keys);
        Key_Into(step.cell, step.keys);
        const std::string row = std::string(step.cell).substr(std::string(step.cell).find('('));
        EXPECT_EQ(Text("Sa" + row), step.difference);
        EXPECT_EQ(Gain(), step.gain);
    }
    // It follows each key before the entry is left, and Esc.
    ASSERT_TRUE(grid->Focus_Cell("Kijun(3)"));
    const std::string taken = Gain();
    Type("40000");
    const std::string typed = Shown(*form, "Strip_Sa");
    EXPECT_NE(Gain(), taken);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Gain(), taken);
    Key_Into("Kijun(3)", "40000");
    EXPECT_EQ(Text("Sa(3)"), typed);
    Press("Tojiru");
    EXPECT_EQ(
        List("SELECT 工種CD, 改0完工高基準, 改0総合評点P Is Null, 総合評点P Is Null FROM Kandaka_Gj WHERE "
             "完工高基準 Is Not Null Or 改0完工高前期 Is Not Null"),
        "2=-=1=0 3=40000=0=0 9=0=0=1")
        << "an emptied line drops out of the improvement alone";
}

TEST_F(Kaiz_Lines, Each_Screen_Stores_What_Is_Its_Own) {
    const char* works =
        "SELECT 改0完工高基準, 改0元請完工高基準, 改0技術者1, 改0技術者6 FROM Kandaka_Gj WHERE 工種CD=2";
    const char* years = "SELECT 改善後0 FROM W_Yoso WHERE 要素CD=201";
    const struct {
        const char* form;
        const char* cell;
        const char* works;
        const char* years;
    } steps[] = {
        {"Frm_KankoKaiz", "Kijun(2)", "77=9000=2=-", "3"},
        {"Frm_KankoKaiz2", "Z1(2)", "77=9000=77=-", "3"},
        {"Frm_KankoKaiz2", "Z22(2)", "77=9000=77=77", "3"},
        {"Frm_KankoKaiz3", "Kijun(2)", "77=77=77=77", "3"},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.cell);
        Open(step.form);
        Key_Into(step.cell, "77");
        if (Kanko_Screen_Of(step.form).Has_Years()) {
            Type_Into(*form, "Kanko_Avg", "3");
        }
        Press("Tojiru");
        EXPECT_EQ(List(works), step.works);
        EXPECT_EQ(List(years), step.years);
    }
    EXPECT_EQ(List("SELECT 完工高基準, 元請完工高基準, 技術者1, 技術者6 FROM Kandaka_Gj WHERE 工種CD=2"),
              "40000=9000=2=1");
}

TEST_F(Kaiz_Lines, Reports_Checks_And_Sisters_Come_After_Storing) {
    const struct {
        const char* form;
        const char* cell;
        const char* stored;
        std::vector<std::pair<std::string, std::string>> checks; ///< and the score that they tell of
    } cases[] = {
        {"Frm_KankoKaiz", "Kijun(3)", "改0完工高基準", {{"Cmd_X(3)", "X1(3)"}, {"Cmd_P(3)", "P(3)"}}},
        {"Frm_KankoKaiz2", "Z4(3)", "改0技術者4", {{"Cmd_Z(3)", "Z(3)"}}},
        {"Frm_KankoKaiz3", "Kijun(3)", "改0元請完工高基準", {{"Cmd_Z(3)", "Z(3)"}}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.form);
        Open(c.form);
        int number = 10;
        const auto expect_stored = [&](const std::function<void()>& act) {
            Key_Into(c.cell, std::to_string(++number));
            grid->Focus_Cell(c.cell);
            act();
            EXPECT_EQ(List(std::string("SELECT ") + c.stored + " FROM Kandaka_Gj WHERE 工種CD=3"),
                      std::to_string(number));
        };
        for (const auto& [button, report] :
             {std::pair{"Cmd_Hikaku", "Rpt_KankoHK"}, {"Cmd_Kekka", "Rpt_Kekka_2012"}}) {
            expect_stored([&, name = button] { Click(*form, name); });
            EXPECT_EQ(shell.calls.back(), std::string("Open_Form ") + report);
        }
        for (const auto& [check, score] : c.checks) {
            expect_stored([&, button = check] {
                EXPECT_TRUE(grid->Focus_Cell(button));
                Key(Qt::Key_Space);
                QTest::qWait(1);
            });
            auto* window = qobject_cast<QDialog*>(QApplication::activeWindow());
            ASSERT_NE(window, form.get()) << check;
            EXPECT_TRUE(std::ranges::any_of(
                window->findChildren<QLabel*>(),
                [&, cell = score](QLabel* label) { return label->text().toStdString() == Text(cell); }))
                << check << " does not tell of the improved side";
            window->reject();
            form->activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        }
        expect_stored([&] { Press(Kanko_Screen_Of(c.form).sisters[1].name); });
    }
}

TEST_F(Kaiz_Lines, A_Store_That_Fails_Keeps_The_Screen_And_What_Was_Keyed) {
    for (const char* button : {"edit_x1", "Cmd_Kekka", "Tojiru"}) {
        SCOPED_TRACE(button);
        Open("Frm_KankoKaiz2");
        grid->Focus_Cell("Z4(3)");
        Type("7");
        const auto before = State();
        {
            const Failing_Writes failing(1, Failing_Writes::Manner::From_Then_On);
            Click(*form, button);
        }
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(messages.shown.at(0).title, "保存エラー");
        EXPECT_EQ(grid->Get_Value("Z4(3)"), Value(7));
        EXPECT_EQ(State(), before);
        messages.shown.clear();
        messages.answers = {Answer::Discard};
        const Failing_Writes failing(1, Failing_Writes::Manner::From_Then_On);
        Press("Tojiru");
        messages.shown.clear();
    }
}

} // namespace
} // namespace morvane::tests
