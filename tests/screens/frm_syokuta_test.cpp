// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_syokuta.h"

#include "app/gates.h"
#include "law/elements.h"
#include "law/run_time_error.h"
#include "review/p_gain.h"
#include "screens/frm_kanko.h"
#include "screens/syokuta_edit.h"
#include "support/every_firm.h"
#include "widgets/entry_cell.h"

#include <QSignalSpy>

namespace morvane::tests {
namespace {

void Enter(QWidget& form, const char* cell, const char* keys) {
    Type_Into(form, cell, keys);
    Key(Qt::Key_Return);
}

/// A sample firm in hand, its period 35 in a law year.
class Syokuta_Screen : public Grid_Screen {
  protected:
    Syokuta_Screen() : Grid_Screen("13", false) { Take_Sample(4); }

    void Take_Sample(int law) {
        Take_Aoba();
        session.Simyu_Kubun = Law_Of(law).code;
        Put_Elements({{210, law}});
    }

    void Open(const char* name = "Frm_Syokuta") { Open_Screen(std::make_unique<Frm_Syokuta>(shell, name)); }
    void Enter(const char* cell, const char* keys) const { morvane::tests::Enter(*form, cell, keys); }
    /// Texts of controls, joined by blanks.
    [[nodiscard]] std::string Texts(const std::vector<const char*>& controls) const {
        std::string texts;
        for (const char* name : controls) {
            texts += (texts.empty() ? "" : " ") + Shown(*form, name);
        }
        return texts;
    }

    [[nodiscard]] Review_Figures Now() const { return Load_Review(session, Side_In_Hand(session)); }
    [[nodiscard]] std::string Stored() const {
        return List("SELECT 要素CD, 現状 FROM W_Yoso ORDER BY 決算期, 要素CD");
    }
    /// The average of the equities lies where the product of its row leaves 32 bits.
    void Make_Equity_Overflow() { Put_Amounts({{319, 1'000'000.0}, {829, 70'000'000'000.0}}); }
};

/// Keys every field of the screen at random and notes it in the figures; closes the screen from the last
/// field.
void Key_Everything(QWidget& form, Review_Figures& figures, std::mt19937& random) {
    const Law_Year& law = Law_Of(figures.law_year);
    for (const Syokuta_Group& group : Syokuta_Groups()) {
        for (const Syokuta_Row& row : group.rows) {
            for (const Syokuta_Cell& cell : row.cells) {
                if (cell.element == 0 || !row.law.Has(law) || !group.law.Has(law)) {
                    continue;
                }
                const Element_Info& item = *Find_Element(cell.element);
                const Choice* choice = Choice_Of(item, law);
                const std::string keys(choice != nullptr ? choice->keys : "12345");
                const bool many = item.most > 999 && random() % 2 == 0;
                const std::string typed = std::string(1, keys[random() % keys.size()]) + (many ? "7" : "");
                Enter(form, cell.name, typed.c_str());
                figures.Put_Yoso(cell.element, std::stoi(typed));
            }
        }
    }
    Key(Qt::Key_Escape);
}

/// The check window that is open; closes it.
std::string Checked() {
    std::string title;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->objectName().contains(QStringLiteral("_Calc_Check"))) {
            title = Shown(*window, "Lbl_SubTitle");
            qobject_cast<QDialog*>(window)->reject();
        }
    }
    return title;
}

// The points of the machines stand at once, in the total only once the screen is opened again; the point of
// the young engineers reaches W1 with the next field that is left.
TEST_F(Syokuta_Screen, Late_Sub_Scores) {
    Put_Elements({{212, 0}, {213, 0}, {222, 0}});
    const auto keyed = [this](const char* cell, const char* keys, const std::vector<const char*>& shown) {
        Open();
        std::string texts;
        for (const auto& [next_cell, next_keys] : {std::pair{"Saisei", "0"}, {cell, keys}, {"Saisei", "0"}}) {
            Enter(next_cell, next_keys);
            texts += Texts(shown) + "|";
        }
        Press("Tojiru");
        return texts;
    };
    EXPECT_EQ(keyed("Kikai", "14", {"Kikai_Ten", "W"}), "0 1,391|15 1,391|15 1,391|");
    // Opened again with 15 × 10 × 175/200 more; the point of W1 counts 8.75.
    EXPECT_EQ(keyed("JyakunenK(0)", "28", {"jyakunenK_ten", "RF_Ten", "W"}),
              "0 59 1,522|1 59 1,522|1 60 1,531|");
}

TEST_F(Syokuta_Screen, Keys) {
    Open();
    // What a field takes: the last text is what stands after the keys; a key too many is refused with a beep.
    const std::tuple<const char*, const char*, const char*, int> cases[] = {
        {"Horei", "13", "1", 1},       {"Horei", "12", "2", 0},   {"JikoS(0)", "20", "2", 1},
        {"Rf1(2)", "2", "2", 0},       {"Rf1(3)", "02", "0", 1},  {"keiri_kansa", "34", "3", 1},
        {"wlb(0)", "9", "9", 0},       {"rireki", "a5", "5", 1},  {"Enen", "1-20", "120", 1},
        {"Kihatu(0)", "-5", "5", 1},   {"Saisei", "２1", "1", 1}, {"Iso(0)", "１", "1", 0},
        {"Kjm(0)", "12345", "1234", 1}};
    for (const auto& [cell, keys, stands, refusals] : cases) {
        const QSignalSpy refused(Child<Entry_Cell>(*form, cell), &Entry_Cell::Refused);
        Type_Into(*form, cell, keys);
        EXPECT_EQ(Shown(*form, cell), stands) << cell << " " << keys;
        EXPECT_EQ(refused.count(), refusals) << cell << " " << keys;
    }
    // Where the keys lead.
    using enum Qt::Key;
    const std::tuple<const char*, Qt::Key, const char*> ways[] = {{"Rf1(5)", Key_Enter, "JyakunenK(0)"},
                                                                  {"Iso(2)", Key_Return, "JikoS(0)"},
                                                                  {"Rf1(0)", Key_Up, "JikoS(0)"},
                                                                  {"JikoS(0)", Key_Up, "JikoS(0)"},
                                                                  {"JyakunenK(1)", Key_Down, "JyakunenS(0)"},
                                                                  {"tishikiGN(1)", Key_Up, "tishikiGJ(1)"}};
    for (const auto& [from, key, to] : ways) {
        Child<QLineEdit>(*form, from)->setFocus(Qt::TabFocusReason);
        Key(key);
        EXPECT_EQ(Place(), to) << from;
    }
    // One number of engineers for both lines; an emptied field is 0.
    Enter("JyakunenK(1)", "56");
    Enter("Kikai", "");
    EXPECT_EQ(Texts({"JyakunenS(1)", "Kikai"}) + Titles(), "56 0");
}

TEST_F(Syokuta_Screen, Entries_Are_Undone_One_By_One) {
    Open();
    const auto state = [&] { return Texts({"Enen", "Saisei", "W", "Strip_W"}); };
    std::vector<std::string> states; // the first field that is left calculates
    for (const auto& [cell, keys] : {std::pair{"Saisei", "0"}, {"Enen", "7"}, {"Saisei", "1"}}) {
        Enter(cell, keys);
        states.push_back(state());
    }
    ASSERT_NE(states[1], states[2]);
    EXPECT_EQ(Shown(*form, "Strip_W"), Shown(*form, "W"));
    // What is being typed is undone in its field and leaves the entries alone.
    Type_Into(*form, "Enen", "5");
    Key(Qt::Key_Escape);
    EXPECT_EQ(state(), states[2]);
    const std::tuple<Qt::Key, std::size_t, const char*> steps[] = {
        {Qt::Key_Z, 1, "Saisei"}, {Qt::Key_Z, 0, "Enen"},   {Qt::Key_Z, 0, "Enen"},
        {Qt::Key_Y, 1, "Enen"},   {Qt::Key_Y, 2, "Saisei"}, {Qt::Key_Z, 1, "Saisei"}};
    for (const auto& [key, reached, place] : steps) {
        Key(key, Qt::ControlModifier);
        EXPECT_EQ(state(), states[reached]);
        EXPECT_EQ(Place(), place);
    }
    Enter("Enen", "9");
    const std::string keyed = state();
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(state(), keyed) << "nothing is left to be done again";
}

TEST_F(Syokuta_Screen, What_Cannot_Be_Computed_Or_Stored_Goes_Back) {
    Make_Equity_Overflow();
    Open();
    Enter("Saisei", "0");
    const std::string stored = Stored();
    for (const auto& [cell, keys, box] :
         {std::tuple{"JikoS(0)", "2", "実行時エラー"}, {"Enen", "201", "入力エラー"}}) {
        const std::string before = Texts({cell, "W"});
        Enter(cell, keys);
        EXPECT_EQ(Told(), box);
        QApplication::processEvents();
        EXPECT_EQ(Place(), cell);
        EXPECT_EQ(Texts({cell, "W"}), before);
    }
    EXPECT_EQ(Stored(), stored);
    Enter("Enen", "200");
    EXPECT_EQ(Titles(), "");
    // The same from the last field before closing: the screen stays, and can be closed afterwards.
    Type_Into(*form, "JikoS(0)", "2");
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Shown(*form, "JikoS(0)"), "1");
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

// Statements that changed under a stored choice: the screen opens without scores, stores nothing and lets the
// choice be corrected.
TEST_F(Syokuta_Screen, What_Is_Stored_And_Cannot_Be_Computed_Can_Be_Corrected) {
    Make_Equity_Overflow();
    Put_Elements({{1, 2}});
    const std::string stored = Stored();
    Open();
    EXPECT_EQ(Told(), "実行時エラー");
    Enter("Saisei", "1");
    EXPECT_EQ(Texts({"X2", "W"}), "");
    Click(*form, "Tojiru");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Titles(), "保存エラー");
    EXPECT_EQ(Stored(), stored);
    Enter("JikoS(0)", "1");
    EXPECT_NE(Shown(*form, "W"), "");
    Press("Tojiru");
    EXPECT_EQ(List("SELECT 現状 FROM W_Yoso WHERE 決算期=35 And 要素CD In (1, 211)"), "1 1");
    // Without Y there is nothing to correct here.
    Put_Amounts({{319, 0.0}, {229, 2'000'000'000'000.0}, {248, 2'000'000'000'000.0}});
    EXPECT_THROW(Frm_Syokuta{shell}, Run_Time_Error);
}

// A report or a check computes from settled scores; the screen that stays open shows them too, and they are
// what is stored.
TEST_F(Syokuta_Screen, What_Stays_Open_Shows_The_Settled_Scores) {
    const auto settled = [this] { return Score_Company(Cn_Open(session), session.Kind().edition).figures; };
    for (const char* way : {"Prt", "Cmd_P(13)"}) {
        SCOPED_TRACE(way);
        Take_Sample(4);
        Frm_Kanko works(shell, "Frm_Kanko");
        Show(works);
        grid = Child<Entry_Grid>(works, "grid");
        for (const auto& [column, amount] : {std::pair{0, 2500}, {1, 3500}, {2, 4500}}) {
            ASSERT_TRUE(grid->Get_Value(13, column).Is_Null());
            grid->Set_Value(13, column, std::int64_t{amount});
            EXPECT_TRUE(grid->on_left(13, column));
        }
        if (std::string_view(way) == "Prt") {
            Click(works, way);
            EXPECT_EQ(shell.calls.back(), "Open_Form Rpt_Kekka_2012");
        } else {
            EXPECT_TRUE(grid->Focus_Cell(way));
            Key(Qt::Key_Space);
        }
        const Review_Figures expected = settled();
        EXPECT_EQ(Now().works, expected.works);
        EXPECT_EQ(Now().elements, expected.elements);
        std::string scores;
        for (int row = 0; row < kanko_rows; ++row) {
            const Figure& p = expected.works[Line_Of_Row(row)].P;
            scores += (p.up ? Comma_Str(p.value) : "") + "|";
        }
        EXPECT_EQ(Cells("P", 0, kanko_rows - 1), scores);
        EXPECT_EQ(Shown(works, "Strip_P"), Cell(grid->Current().row == 13 ? "P(13)" : "P(0)"));
        Checked();
    }
    Take_Sample(4);
    Open();
    for (const char* keyed : {"Enen", "Kihatu(0)", "tishikiGJ(0)", "Kikai"}) {
        SCOPED_TRACE(keyed);
        Enter(keyed, "7");
        Click(*form, "Cmd_W2X(1)");
        EXPECT_EQ(Now().elements, settled().elements);
        EXPECT_EQ(Shown(*form, "W"), Comma_Str(Now().Yoso(200)));
        Checked();
    }
}

// ---- the improvement beside the current items

class Improved_Firms : public Every_Firm {
  protected:
    QWidget& Open() {
        Open_Screen(std::make_unique<Frm_Syokuta>(shell, Law().improved_form));
        return *form;
    }

    /// Every field of the side before against that of the screen, or against stored items.
    void Expect_Before(const Review_Figures* stored = nullptr) {
        for (QLineEdit* edit : form->findChildren<QLineEdit*>()) {
            const Syokuta_Cell& cell = dynamic_cast<Syokuta_Edit*>(edit)->cell;
            const auto expected =
                stored == nullptr ? edit->text() : QString::number(stored->Yoso(cell.element));
            const std::string before = Shown(*form, Name_Before(cell.name).c_str());
            EXPECT_EQ(QString::fromStdString(before).remove(u','), QString(expected).remove(u',')) << before;
        }
    }
};

TEST_P(Improved_Firms, What_Is_Keyed_Is_Stored_As_It_Is_Scored) {
    Make_Firm();
    Move_Statement();
    ASSERT_FALSE(Gate_Is_Open(session, Gate::Improved_X2W));
    EXPECT_EQ(Frm_Syokuta(shell).objectName().toStdString(), Law().entry_form);
    EXPECT_EQ(Open().objectName().toStdString(), Law().improved_form);
    Expect_Before();
    EXPECT_EQ(Shown(*form, "Strip_Mae_X2"), Shown(*form, "Mae_X2"));
    form.reset();
    EXPECT_TRUE(Stored(Scenario::Kaizen).Is_Started(Scenario::Kaizen));
    Review_Figures keyed = Stored(Scenario::Kaizen);
    Key_Everything(Open(), keyed, random);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(Gate_Is_Open(session, Gate::Improved_X2W));
    const Review_Figures stored = Expect_Scored();
    for (QLineEdit* edit : form->findChildren<QLineEdit*>()) {
        const int code = dynamic_cast<Syokuta_Edit*>(edit)->cell.element;
        EXPECT_EQ(stored.Yoso(code), keyed.Yoso(code)) << "element " << code;
    }
    // The line told before what the store has now.
    EXPECT_EQ(Shown(*form, "Strip_Sa_Kei"), Gain_Str(P_Gain_Of(current, stored).sum));
    Expect_Before(&current);
    EXPECT_EQ(Titles(), "");
}

INSTANTIATE_TEST_SUITE_P(All, Improved_Firms, Every_Kind);

TEST_F(Syokuta_Screen, Beside_The_Improvement_Checks_Are_Of_The_Current_Figures) {
    Open("Frm_Syokutakaiz_2012");
    EXPECT_NE(Shown(*form, "Strip_P"), "") << "P is told of where nothing has changed";
    const std::string current = Stored();
    Enter("Enen", "7");
    EXPECT_NE(Shown(*form, "Enen_Ten"), Shown(*form, "Mae_Enen_Ten"));
    Click(*form, "Cmd_W2X(1)");
    EXPECT_EQ(Checked(), "改善前（現状）の数値による計算です。");
    const char* years = "SELECT 改善後0 FROM W_Yoso WHERE 要素CD=111 And 決算期=35";
    EXPECT_EQ(List(years), "7");
    const std::string gain = Shown(*form, "Strip_Sa_Kei");
    Type_Into(*form, "Enen", "35");
    EXPECT_NE(Shown(*form, "Strip_Sa_Kei"), gain) << "it follows each key";
    Click(*form, "Prt");
    EXPECT_EQ(shell.calls.back(), "Open_Form Rpt_KaizenHK_2012");
    EXPECT_EQ(List(years), "35");
    EXPECT_EQ(Stored(), current);
}

// At law year 1 the current W is that of the completed work.
TEST_F(Syokuta_Screen, An_Improvement_Opens_With_Its_Own_Scores) {
    Take_Sample(1);
    Settle_Again(session);
    Open("Frm_Syokutakaiz");
    const std::string opened = Texts({"W", "Strip_Sa_Kei"});
    EXPECT_NE(Shown(*form, "W"), Shown(*form, "Mae_W"));
    Enter("Enen", Shown(*form, "Enen").c_str());
    EXPECT_EQ(Texts({"W", "Strip_Sa_Kei"}), opened);
}

// Current items that cannot be computed keep nobody from the improvement.
TEST_F(Syokuta_Screen, A_Side_Before_Without_Scores_Is_Told) {
    Make_Equity_Overflow();
    Put_Elements({{1, 2}});
    Put_Elements({{1, 1}}, "改善後0");
    Put_Work(2, {{"改0完工高基準", 40'000}});
    Open("Frm_Syokutakaiz_2012");
    EXPECT_NE(Shown(*form, "W"), "");
    EXPECT_EQ(Texts({"Mae_W", "Strip_Mae_W", "Strip_Sa_Kei"}), "");
    EXPECT_PRED2(Has, Shown(*form, "Lbl_Fault"), "比較する数値：");
    EXPECT_EQ(Titles(), "");
}

TEST_F(Syokuta_Screen, An_Improved_Statement_That_Cannot_Be_Computed_Is_Told_With_Its_Side) {
    Put_Amounts({{229, 2e15}, {248, 2e15}}, "改善後残高");
    for (const auto& open : std::vector<std::function<void()>>{
             [this] { Syokuta_Entry(session, improved_figures); },
             [this] { const Kanko_Entry entry(session, Kanko_Screen_Of("Frm_KankoKaiz")); }}) {
        const std::string text = Refusal_Of<Run_Time_Error>(open);
        EXPECT_PRED2(Has, text, "改善シミュレーション後の数値：");
        EXPECT_PRED2(Has, text, "財務改善の仕訳");
    }
}

} // namespace
} // namespace morvane::tests
