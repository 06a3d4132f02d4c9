// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_syokuta.h"

#include "app/gates.h"
#include "batch/case_file.h"
#include "law/elements.h"
#include "law/run_time_error.h"
#include "review/p_gain.h"
#include "review/settle.h"
#include "screens/frm_kanko.h"
#include "screens/syokuta_edit.h"
#include "session/kyotu_mod.h"
#include "support/failing_writes.h"
#include "support/generated_firm.h"
#include "support/keyboard.h"
#include "widgets/entry_cell.h"

#include <QSignalSpy>
#include <random>

namespace morvane::tests {
namespace {

void Enter(QWidget& form, const char* cell, const char* keys) {
    Type_Into(form, cell, keys);
    QTest::keyClick(Child<QLineEdit>(form, cell), Qt::Key_Return);
}

std::string Focused(const QWidget& form) {
    return form.focusWidget() == nullptr ? "" : form.focusWidget()->objectName().toStdString();
}

/// A sample firm in hand, its period 35 in a law year.
class Syokuta_Screen : public Ui_Installation {
  protected:
    Syokuta_Screen() : Ui_Installation("13", false) {}

    void Take_Sample(const char* sample, int law) {
        Import_Case(session, Samples_Folder() / sample);
        session.Syori_Ki = static_cast<std::int16_t>(Field("Jigyo_mas", "処理決算期", "1=1").As_Integer());
        session.Hojin_Kojin = Firm_Type_Of(Field("Jigyo_mas", "法人個人識別", "1=1").As_Integer());
        session.Simyu_Kubun = Law_Of(law).code;
        Put_Elements({{210, law}});
    }

    [[nodiscard]] Review_Figures Now() const { return Load_Review(session, Side_In_Hand(session)); }

    const std::string stored_scores = "SELECT 要素CD, 現状 FROM W_Yoso ORDER BY 決算期, 要素CD";
};

/// Keys every field of the screen at random and notes it in the figures; closes the screen from the last
/// field.
void Key_Everything(Frm_Syokuta& form, Review_Figures& figures, std::mt19937& random) {
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
    QTest::keyClick(form.focusWidget(), Qt::Key_Escape);
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

// What is keyed and stored by closing the screen is what the engine settles on.
TEST_F(Syokuta_Screen, Settles_As_The_Engine) {
    std::mt19937 random(52);
    for (int law = 1; law <= 4; ++law) {
        SCOPED_TRACE(law);
        Take_Sample("aoba_kensetsu.json", law);
        Review_Figures expected = Now();
        Frm_Syokuta form(shell);
        Show(form);
        EXPECT_EQ(form.objectName().toStdString(), Law_Of(law).entry_form);
        Key_Everything(form, expected, random);
        EXPECT_FALSE(form.isVisible());
        Settle(expected);
        EXPECT_EQ(Now().works, expected.works);
        for (int code = 0; code < 256; ++code) {
            EXPECT_EQ(Now().Yoso(code), expected.Yoso(code)) << "element " << code;
        }
    }
    EXPECT_TRUE(messages.shown.empty());
}

// The points of the machines stand at once, in the total only once the screen is opened again; the point of
// the young engineers reaches W1 with the next field that is left.
TEST_F(Syokuta_Screen, Late_Sub_Scores) {
    Take_Sample("aoba_kensetsu.json", 4);
    Put_Elements({{212, 0}, {213, 0}, {222, 0}});
    const auto keyed = [this](const char* cell, const char* keys, const std::vector<const char*>& shown) {
        Frm_Syokuta form(shell);
        Show(form);
        std::string texts;
        for (const auto& [next_cell, next_keys] : {std::pair{"Saisei", "0"}, {cell, keys}, {"Saisei", "0"}}) {
            Enter(form, next_cell, next_keys);
            for (const char* name : shown) {
                texts += Shown(form, name) + " ";
            }
        }
        Click(form, "Tojiru");
        return texts;
    };
    EXPECT_EQ(keyed("Kikai", "14", {"Kikai_Ten", "W"}), "0 1,391 15 1,391 15 1,391 ");
    // Opened again with 15 × 10 × 175/200 more; the point of W1 counts 8.75.
    EXPECT_EQ(keyed("JyakunenK(0)", "28", {"jyakunenK_ten", "RF_Ten", "W"}),
              "0 59 1,522 1 59 1,522 1 60 1,531 ");
}

TEST_F(Syokuta_Screen, Keys) {
    Take_Sample("aoba_kensetsu.json", 4);
    Frm_Syokuta form(shell);
    form.resize(1200, 700);
    Show(form);
    // What a field takes: the last text is what stands after the keys; a key too many is refused with a beep.
    const struct {
        const char* cell;
        const char* keys;
        const char* stands;
        int refused;
    } cases[] = {{"Horei", "13", "1", 1},       {"Horei", "12", "2", 0},   {"JikoS(0)", "20", "2", 1},
                 {"Rf1(2)", "2", "2", 0},       {"Rf1(3)", "02", "0", 1},  {"keiri_kansa", "34", "3", 1},
                 {"wlb(0)", "9", "9", 0},       {"rireki", "a5", "5", 1},  {"Enen", "1-20", "120", 1},
                 {"Kihatu(0)", "-5", "5", 1},   {"Saisei", "２1", "1", 1}, {"Iso(0)", "１", "1", 0},
                 {"Kjm(0)", "12345", "1234", 1}};
    for (const auto& c : cases) {
        const QSignalSpy refused(Child<Entry_Cell>(form, c.cell), &Entry_Cell::Refused);
        Type_Into(form, c.cell, c.keys);
        EXPECT_EQ(Shown(form, c.cell), c.stands) << c.cell << " " << c.keys;
        EXPECT_EQ(refused.count(), c.refused) << c.cell << " " << c.keys;
    }
    // Where the keys lead.
    const struct {
        const char* from;
        Qt::Key key;
        const char* to;
    } ways[] = {{"JikoS(0)", Qt::Key_Return, "Rf1(0)"},
                {"Rf1(5)", Qt::Key_Enter, "JyakunenK(0)"},
                {"Iso(2)", Qt::Key_Return, "JikoS(0)"},
                {"Rf1(0)", Qt::Key_Down, "Rf1(1)"},
                {"Rf1(0)", Qt::Key_Up, "JikoS(0)"},
                {"JikoS(0)", Qt::Key_Up, "JikoS(0)"},
                {"JyakunenK(1)", Qt::Key_Down, "JyakunenS(0)"},
                {"tishikiGN(1)", Qt::Key_Up, "tishikiGJ(1)"}};
    for (const auto& way : ways) {
        auto* cell = Child<QLineEdit>(form, way.from);
        cell->setFocus(Qt::TabFocusReason);
        QTest::keyClick(cell, way.key);
        EXPECT_EQ(Focused(form), way.to) << way.from;
    }
    // One number of engineers for both lines; an emptied field is 0.
    Enter(form, "JyakunenK(1)", "56");
    EXPECT_EQ(Shown(form, "JyakunenS(1)"), "56");
    Enter(form, "Kikai", "");
    EXPECT_EQ(Shown(form, "Kikai"), "0");
    EXPECT_EQ(messages.shown.size(), 0U);
}

TEST_F(Syokuta_Screen, Entries_Are_Undone_One_By_One) {
    Take_Sample("aoba_kensetsu.json", 4);
    Frm_Syokuta form(shell);
    Show(form);
    const auto state = [&] {
        return Shown(form, "Enen") + " " + Shown(form, "Saisei") + " " + Shown(form, "W");
    };
    const auto control = [&](Qt::Key key) { QTest::keyClick(form.focusWidget(), key, Qt::ControlModifier); };
    Enter(form, "Saisei", "0"); // the first field that is left calculates
    std::vector<std::string> states = {state()};
    Enter(form, "Enen", "7");
    states.push_back(state());
    Enter(form, "Saisei", "1");
    states.push_back(state());
    EXPECT_EQ(Shown(form, "Strip_W"), Shown(form, "W"));
    ASSERT_NE(states[1], states[2]);
    // What is being typed is undone in its field and leaves the entries alone.
    Type_Into(form, "Enen", "5");
    QTest::keyClick(form.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(state(), states[2]);
    control(Qt::Key_Z);
    EXPECT_EQ(state(), states[1]);
    EXPECT_EQ(Focused(form), "Saisei");
    control(Qt::Key_Z);
    EXPECT_EQ(state(), states[0]);
    EXPECT_EQ(Focused(form), "Enen");
    control(Qt::Key_Z);
    EXPECT_EQ(state(), states[0]) << "nothing more";
    control(Qt::Key_Y);
    control(Qt::Key_Y);
    EXPECT_EQ(state(), states[2]);
    EXPECT_EQ(Shown(form, "Strip_W"), Shown(form, "W"));
}

TEST_F(Syokuta_Screen, What_Cannot_Be_Computed_Or_Stored_Goes_Back) {
    Take_Sample("aoba_kensetsu.json", 4);
    // The average of the equities lies where the product of its row leaves 32 bits.
    Put_Amounts({{319, 1'000'000.0}, {829, 70'000'000'000.0}});
    Frm_Syokuta form(shell);
    Show(form);
    Enter(form, "Saisei", "0");
    const std::string stored = List(stored_scores);
    const struct {
        const char* cell;
        const char* keys;
        const char* title;
    } cases[] = {{"JikoS(0)", "2", "実行時エラー"}, {"Enen", "201", "入力エラー"}};
    for (const auto& c : cases) {
        const std::string before = Shown(form, c.cell);
        const std::string w = Shown(form, "W");
        messages.shown.clear();
        Enter(form, c.cell, c.keys);
        ASSERT_EQ(messages.shown.size(), 1U) << c.cell;
        EXPECT_EQ(messages.shown[0].title, c.title);
        QApplication::processEvents();
        EXPECT_EQ(Focused(form), c.cell);
        EXPECT_EQ(Shown(form, c.cell), before);
        EXPECT_EQ(Shown(form, "W"), w);
        EXPECT_EQ(List(stored_scores), stored);
    }
    // The same from the last field before closing: the screen stays, and can be closed afterwards.
    Type_Into(form, "JikoS(0)", "2");
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Shown(form, "JikoS(0)"), "1");
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

// Statements that changed under a stored choice: the screen opens without scores, stores nothing and lets the
// choice be corrected.
TEST_F(Syokuta_Screen, What_Is_Stored_And_Cannot_Be_Computed_Can_Be_Corrected) {
    Take_Sample("aoba_kensetsu.json", 4);
    Put_Amounts({{319, 1'000'000.0}, {829, 70'000'000'000.0}});
    Put_Elements({{1, 2}});
    const std::string stored = List(stored_scores);
    Frm_Syokuta form(shell);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, "実行時エラー");
    Show(form);
    Enter(form, "Saisei", "1");
    EXPECT_EQ(Shown(form, "X2") + Shown(form, "W"), "");
    Click(form, "Tojiru");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(messages.shown.back().title, "保存エラー");
    EXPECT_EQ(List(stored_scores), stored);
    Enter(form, "JikoS(0)", "1");
    EXPECT_NE(Shown(form, "W"), "");
    Click(form, "Tojiru");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Now().Yoso(1), 1);
    EXPECT_EQ(Now().Yoso(211), 1);
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
        Take_Sample("aoba_kensetsu.json", 4);
        Frm_Kanko form(shell, "Frm_Kanko");
        Show(form);
        auto* grid = Child<Entry_Grid>(form, "grid");
        for (const auto& [column, amount] : {std::pair{0, 2500}, {1, 3500}, {2, 4500}}) {
            ASSERT_TRUE(grid->Get_Value(13, column).Is_Null());
            grid->Set_Value(13, column, std::int64_t{amount});
            EXPECT_TRUE(grid->on_left(13, column));
        }
        if (std::string_view(way) == "Prt") {
            Click(form, way);
        } else {
            EXPECT_TRUE(grid->Focus_Cell(way));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        }
        const Review_Figures expected = settled();
        EXPECT_EQ(Now().works, expected.works);
        EXPECT_EQ(Now().elements, expected.elements);
        for (int row = 0; row < kanko_rows; ++row) {
            const Figure& p = expected.works[Line_Of_Row(row)].P;
            EXPECT_EQ(grid->Cell_Text("P(" + std::to_string(row) + ")").toStdString(),
                      p.up ? Comma_Str(p.value) : "")
                << row;
        }
        EXPECT_EQ(Shown(form, "Strip_P"),
                  grid->Cell_Text(grid->Current().row == 13 ? "P(13)" : "P(0)").toStdString());
        Checked();
    }
    Take_Sample("aoba_kensetsu.json", 4);
    Frm_Syokuta form(shell);
    Show(form);
    for (const char* keyed : {"Enen", "Kihatu(0)", "tishikiGJ(0)"}) {
        SCOPED_TRACE(keyed);
        Enter(form, keyed, "7");
        Click(form, "Cmd_W2X(1)");
        EXPECT_EQ(Now().elements, settled().elements);
        EXPECT_EQ(Shown(form, "W"), Comma_Str(Now().Yoso(200)));
        Checked();
    }
}

TEST_F(Syokuta_Screen, A_Failing_Store_Keeps_The_Screen) {
    Take_Sample("aoba_kensetsu.json", 4);
    Frm_Syokuta form(shell);
    Show(form);
    Enter(form, "Enen", "12");
    const std::string stored = List(stored_scores);
    for (const char* button : {"Tojiru", "Cmd_W2X(1)"}) {
        messages.shown.clear();
        {
            const Failing_Writes full(1, Failing_Writes::Manner::From_Then_On, ENOSPC);
            Click(form, button);
        }
        ASSERT_EQ(messages.shown.size(), 1U) << button;
        EXPECT_NE(messages.shown[0].text.find("Morvane.dat"), std::string::npos);
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(shell.failure, "");
        EXPECT_EQ(Shown(form, "Enen"), "12");
        EXPECT_EQ(List(stored_scores), stored);
    }
    Click(form, "Tojiru");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Now().Yoso(111), 12);
}

// ---- the improvement beside the current items

class Improved_Firms : public Ui_Installation,
                       public ::testing::WithParamInterface<std::tuple<const char*, std::int16_t, int>> {
  protected:
    Improved_Firms() : Ui_Installation(std::get<0>(GetParam()), false) {
        Make_Company(1, std::get<1>(GetParam()), 10);
        Put_Elements({{element::law_year, Law_Number(Law().code)}});
        session.Simyu_Kubun = Law().code;
    }

    [[nodiscard]] static const Law_Year& Law() { return Law_Of(std::get<2>(GetParam())); }

    [[nodiscard]] Review_Figures Stored(Scenario scenario) const {
        return Load_Review(session, Side_In_Hand(session, scenario));
    }

    /// Stores a generated firm, and another one's statement as what the journal made of its own.
    void Make_Firm() {
        Review_Figures firm = Generated_Firm(Law(), random);
        for (const char* column : {"金額", "改善後残高"}) {
            std::map<int, double> amounts;
            for (std::size_t code = 0; code < firm.statement.amount.size(); ++code) {
                amounts[static_cast<int>(code)] = firm.statement.amount[code].Count();
            }
            Put_Amounts(amounts, column);
            firm.statement = Generated_Firm(Law(), random).statement;
        }
        Store_Firm(session, Side_In_Hand(session), std::move(firm));
    }

    /// Every field of the side before against that of the screen, or against stored items.
    static void Expect_Before(Frm_Syokuta& form, const Review_Figures* current) {
        for (QLineEdit* edit : form.findChildren<QLineEdit*>()) {
            const auto* cell = dynamic_cast<Syokuta_Edit*>(edit);
            const std::string before = Shown(form, Name_Before(cell->cell.name).c_str());
            const std::string expected = current == nullptr
                                             ? edit->text().toStdString()
                                             : std::to_string(current->Yoso(cell->cell.element));
            EXPECT_EQ(QString::fromStdString(before).remove(QLatin1Char(',')).toStdString(),
                      QString::fromStdString(expected).remove(QLatin1Char(',')).toStdString())
                << cell->cell.name;
        }
    }

    std::mt19937 random{20260701};
};

TEST_P(Improved_Firms, What_Is_Keyed_Is_Stored_As_It_Is_Scored) {
    Make_Firm();
    const Review_Figures current = Stored(Scenario::Genjo);
    ASSERT_FALSE(Gate_Is_Open(session, Gate::Improved_X2W));
    {
        Frm_Syokuta form(shell, Law().improved_form);
        EXPECT_EQ(form.objectName().toStdString(), Law().improved_form);
        Expect_Before(form, nullptr);
        EXPECT_EQ(Shown(form, "Strip_Mae_X2"), Shown(form, "Mae_X2"));
    }
    EXPECT_TRUE(Stored(Scenario::Kaizen).Is_Started(Scenario::Kaizen));
    Frm_Syokuta form(shell, Law().improved_form);
    Show(form);
    Review_Figures keyed = Stored(Scenario::Kaizen);
    Key_Everything(form, keyed, random);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(Gate_Is_Open(session, Gate::Improved_X2W));
    const Review_Figures stored = Stored(Scenario::Kaizen);
    for (QLineEdit* edit : form.findChildren<QLineEdit*>()) {
        const int code = dynamic_cast<Syokuta_Edit*>(edit)->cell.element;
        EXPECT_EQ(stored.Yoso(code), keyed.Yoso(code)) << "element " << code;
    }
    const Asked_Side improved = {{}, Scenario::Kaizen};
    const Review_Figures scored = Score_Company(Cn_Open(session), session.Kind().edition, improved).figures;
    EXPECT_EQ(stored.works, scored.works);
    EXPECT_EQ(stored.elements, scored.elements);
    // The line told before what the store has now, and what was there before is as it was.
    EXPECT_EQ(Shown(form, "Strip_Sa_Kei"), Gain_Str(P_Gain_Of(current, stored).sum));
    EXPECT_EQ(Stored(Scenario::Genjo).works, current.works);
    EXPECT_EQ(Stored(Scenario::Genjo).elements, current.elements);
    Expect_Before(form, &current);
    EXPECT_EQ(Titles(), "");
}

INSTANTIATE_TEST_SUITE_P(All, Improved_Firms,
                         ::testing::Combine(::testing::Values("13", "01"),
                                            ::testing::Values(std::int16_t{1}, std::int16_t{2}),
                                            ::testing::Range(1, 5)));

TEST_F(Syokuta_Screen, Beside_The_Improvement_Checks_Are_Of_The_Current_Figures) {
    Take_Sample("aoba_kensetsu.json", 4);
    Frm_Syokuta form(shell, "Frm_Syokutakaiz_2012");
    Show(form);
    const std::string current = List("SELECT 要素CD, 現状 FROM W_Yoso ORDER BY 決算期, 要素CD");
    Enter(form, "Enen", "7");
    EXPECT_NE(Shown(form, "Enen_Ten"), Shown(form, "Mae_Enen_Ten"));
    Click(form, "Cmd_W2X(1)");
    EXPECT_EQ(Checked(), "改善前（現状）の数値による計算です。");
    const char* years = "SELECT 改善後0 FROM W_Yoso WHERE 要素CD=111 And 決算期=35";
    EXPECT_EQ(List(years), "7");
    Enter(form, "Enen", "8");
    Click(form, "Prt");
    EXPECT_EQ(shell.calls.back(), "Open_Form Rpt_KaizenHK_2012");
    EXPECT_EQ(List(years), "8");
    EXPECT_EQ(List("SELECT 要素CD, 現状 FROM W_Yoso ORDER BY 決算期, 要素CD"), current);
}

// At law year 1 the current W is that of the completed work.
TEST_F(Syokuta_Screen, An_Improvement_Opens_With_Its_Own_Scores) {
    Take_Sample("aoba_kensetsu.json", 1);
    Settle_Again(session);
    Frm_Syokuta form(shell, "Frm_Syokutakaiz");
    Show(form);
    const std::string opened = Shown(form, "W") + Shown(form, "Strip_Sa_Kei");
    EXPECT_NE(Shown(form, "W"), Shown(form, "Mae_W"));
    Enter(form, "Enen", Shown(form, "Enen").c_str());
    EXPECT_EQ(Shown(form, "W") + Shown(form, "Strip_Sa_Kei"), opened);
}

// Current items that cannot be computed keep nobody from the improvement.
TEST_F(Syokuta_Screen, A_Side_Before_Without_Scores_Is_Told) {
    Take_Sample("aoba_kensetsu.json", 4);
    Put_Amounts({{319, 1'000'000.0}, {829, 70'000'000'000.0}});
    Put_Elements({{1, 2}});
    Put_Elements({{1, 1}}, "改善後0");
    Put_Work(2, {{"改0完工高基準", 40'000}});
    Frm_Syokuta form(shell, "Frm_Syokutakaiz_2012");
    Show(form);
    EXPECT_NE(Shown(form, "W"), "");
    EXPECT_EQ(Shown(form, "Mae_W") + Shown(form, "Strip_Mae_W") + Shown(form, "Strip_Sa_Kei"), "");
    EXPECT_TRUE(Has(Shown(form, "Lbl_Fault"), "比較する数値："));
    EXPECT_EQ(Titles(), "");
}

} // namespace
} // namespace morvane::tests
