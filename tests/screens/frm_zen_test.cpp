// SPDX-FileCopyrightText: The Morvane developers
// Two periods beside each other: the screens of the comparison with the prior period.
#include "app/form_table.h"
#include "company/data_set.h"
#include "data/store_file.h"
#include "review/p_gain.h"
#include "review/settle.h"
#include "screens/frm_kanko.h"
#include "screens/syokuta_table.h"
#include "session/kyotu_mod.h"
#include "support/generated_firm.h"
#include "support/keyboard.h"
#include "widgets/entry_cell.h"

namespace morvane::tests {
namespace {

constexpr std::int16_t prior = 9;
constexpr std::int16_t in_hand = 10;
constexpr const char* kanko_zen[] = {"Frm_KankoKaizzen", "Frm_KankoKaiz2zen", "Frm_KankoKaiz3zen"};

class Zen_Window : public Ui_Installation {
  protected:
    explicit Zen_Window(const std::string& edition = "13", std::int16_t firm_type = 1, int law = 4)
        : Ui_Installation(edition) {
        Make_Company(1, firm_type, prior);
        EXPECT_TRUE(Period_Copy(session, in_hand, prior, Copy_Mode::After, Law_Of(law).code));
        Run({"UPDATE Jigyo_mas SET 処理決算期=10"});
        shell.menu.mode = Sim_Mode::Prior_Period;
    }

    [[nodiscard]] const Law_Year& Law() const { return Law_Of(session.Simyu_Kubun); }

    /// Stores a generated firm of a law year as the figures of a period.
    void Make_Period(std::int16_t period, const Law_Year& law) {
        session.Syori_Ki = period;
        Put_Elements({{210, Law_Number(law.code)}});
        const Review_Figures firm = Generated_Firm(law, random);
        Put_Statement(firm.statement);
        Store_Firm(session, Side_In_Hand(session), firm);
        session.Syori_Ki = in_hand;
    }

    [[nodiscard]] Settled_Score Scored(int period) const {
        return Score_Company(Cn_Open(session), session.Kind().edition, {period});
    }

    std::unique_ptr<Form> Open(const std::string& name) {
        std::unique_ptr<Form> form(Find_Form(name)->Make(shell));
        form->resize(1180, 700);
        Show(*form);
        return form;
    }

    /// What a screen has to say; mostly nothing.
    static std::string Notice(const Form& form) {
        const auto* label = form.findChild<QLabel*>(QStringLiteral("Lbl_Notice"));
        return label == nullptr ? "" : label->text().toStdString();
    }

    [[nodiscard]] std::string Bytes() const { return Read_Text_File(session.Work_Store); }

    std::mt19937 random{20261123};
};

// ---- what is shown, for firms of every law year

class Zen_Firms : public Zen_Window,
                  public ::testing::WithParamInterface<std::tuple<const char*, std::int16_t, int, int>> {
  protected:
    Zen_Firms() : Zen_Window(std::get<0>(GetParam()), std::get<1>(GetParam()), std::get<2>(GetParam())) {
        Make_Period(prior, Prior_Law());
        Make_Period(in_hand, Law());
    }

    static const Law_Year& Prior_Law() { return Law_Of(std::get<3>(GetParam())); }

    /// The prior period, scored by the law year of the period in hand.
    Settled_Score Scored_Before() {
        const auto put = [this](const Law_Year& law) {
            Run({"UPDATE W_Yoso SET 現状=" + std::to_string(Law_Number(law.code)) +
                 " WHERE 要素CD=210 And 決算期=9"});
        };
        put(Law());
        Settled_Score score = Scored(prior);
        put(Prior_Law());
        return score;
    }

    static void Expect_Lines(Form& form, const Review_Figures& before, const Review_Figures& after) {
        const auto* grid = Child<Entry_Grid>(form, "grid");
        const Kanko_Screen& screen = Kanko_Screen_Of(form.objectName().toStdString());
        for (const Kanko_Column& column : screen.columns) {
            for (int row = 0; row < kanko_rows && column.figure != nullptr; ++row) {
                Work_Line line = (column.before ? before : after).works[Line_Of_Row(row)];
                if (line.Has_Kanko() || Is_Keyed(column.use)) {
                    const Figure& figure = column.figure(line);
                    const std::string cell = column.name + ("(" + std::to_string(row) + ")");
                    EXPECT_EQ(grid->Cell_Text(cell).toStdString(), figure.up ? Comma_Str(figure.value) : "");
                }
            }
        }
    }
};

TEST_P(Zen_Firms, Both_Sides_Are_What_Is_Scored_And_Nothing_Is_Stored) {
    const Settled_Score before = Scored_Before();
    const Settled_Score after = Scored(in_hand);
    const std::string sum = Gain_Str(P_Gain_Of(before.figures, after.figures).sum);
    const std::string current = List("SELECT 要素CD, 現状 FROM W_Yoso ORDER BY 決算期, 要素CD");
    // Its first visit starts the improvement at some law years.
    Open(Law().comparison_form)->reject();
    EXPECT_EQ(Load_Review(session, Side_In_Hand(session, Scenario::Kaizen)).Is_Started(Scenario::Kaizen),
              Law().comparison_starts_improvement);
    EXPECT_EQ(List("SELECT 要素CD, 現状 FROM W_Yoso ORDER BY 決算期, 要素CD"), current);
    const std::string stored = Bytes();
    for (const char* name : kanko_zen) {
        const auto form = Open(name);
        Expect_Lines(*form, before.figures, after.figures);
        EXPECT_EQ(Shown(*form, "Strip_Sa_Kei"), sum);
        Type("7");
        Key(Qt::Key_Down);
        Expect_Lines(*form, before.figures, after.figures);
        Click(*form, "Cmd_Hikaku");
        EXPECT_EQ(shell.calls.back(), "Open_Form Rpt_KankoHK");
        Click(*form, "Tojiru");
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(Bytes(), stored);
    }
    const auto form = Open(Law().comparison_form);
    for (const auto& [name, score] : {std::pair{"", &after}, {"Mae_", &before}}) {
        const std::string side = name;
        EXPECT_EQ(Shown(*form, ("Strip_" + side + "X2").c_str()), Comma_Str(score->x2.score));
        EXPECT_EQ(Shown(*form, ("Strip_" + side + "W").c_str()), Comma_Str(score->figures.Yoso(200)));
    }
    for (Entry_Cell* cell : form->findChildren<Entry_Cell*>()) {
        const std::string text = cell->text().toStdString();
        cell->setFocus();
        Type("7");
        EXPECT_EQ(cell->text().toStdString(), text) << Place();
    }
    EXPECT_EQ(Shown(*form, "Strip_Sa_Kei"), sum);
    EXPECT_EQ(Has(Notice(*form), Prior_Law().name), &Prior_Law() != &Law());
    Click(*form, "Tojiru");
    EXPECT_EQ(Bytes(), stored);
    EXPECT_EQ(Titles(), "");
}

using testing::Combine, testing::Range, testing::Values;
constexpr std::int16_t corporation = 1;
constexpr std::int16_t individual = 2;
INSTANTIATE_TEST_SUITE_P(Law_Years, Zen_Firms,
                         Combine(Values("13"), Values(corporation), Range(1, 5), Range(1, 5)));
INSTANTIATE_TEST_SUITE_P(Firm_Types, Zen_Firms,
                         Combine(Values("13", "01"), Values(corporation, individual), Values(4), Values(4)));

// ---- periods that lack something

class Zen_Periods : public Zen_Window {
  protected:
    Zen_Periods() {
        Make_Period(prior, Law());
        Make_Period(in_hand, Law());
        const auto before = Scored(prior).figures.works;
        const auto after = Scored(in_hand).figures.works;
        while (!before[line].Has_Kanko() || !after[line].Has_Kanko()) {
            ++line;
        }
        at = "(" + std::to_string(line) + ")";
    }

    std::size_t line = 0; ///< with completed work in both periods
    std::string at;
};

TEST_F(Zen_Periods, What_A_Side_Lacks_Is_Told_And_Leaves_The_Other_One) {
    // told: by the notice or, of a score that cannot be computed, as the fault
    const std::pair<const char*, std::string_view> cases[] = {
        {"UPDATE Jigyo_mas SET 決算期終了年=決算期終了年", ""},
        {"DELETE FROM Ks_Zaihyo WHERE 決算期=9", "前期：財務諸表が未入力です。"},
        {"DELETE FROM Kandaka_Gj WHERE 決算期=9", "前期：完成工事高が未入力です。"},
        {"DELETE FROM Kandaka_Gj WHERE 決算期=9 And 工種CD>28", ""},
        {"DELETE FROM W_Yoso WHERE 決算期=9 And 要素CD<>210", "前期：Ｘ２・Ｗの項目が未入力です。"},
        {"DELETE FROM W_Yoso WHERE 決算期=9 And 要素CD>=210",
         "前期の経審計算年は2008年改正ですが、2015年改正以降で計算しています。"},
        {"UPDATE Ks_Zaihyo SET 並び順=2 WHERE 決算期=9 And 建設科目CD=99",
         "前期のデータ形式が古いため、財務諸表を正しく読み取れないことがあります。"},
        {"UPDATE Ks_Zaihyo SET 金額=9e15 WHERE 決算期=9 And 建設科目CD=402", "前期：財務諸表の「"},
        {"UPDATE Ks_Zaihyo SET 金額=9e15 WHERE 決算期=10 And 建設科目CD=402", "当期：財務諸表の「"},
        {"DELETE FROM Ks_Zaihyo WHERE 決算期=9; DELETE FROM Kandaka_Gj WHERE 決算期=9; DELETE FROM W_Yoso "
         "WHERE 決算期=9 And 要素CD<>210",
         "前期：財務諸表、完成工事高、Ｘ２・Ｗの項目が未入力です。"},
    };
    const std::string whole = Bytes();
    for (const auto& [change, expected] : cases) {
        SCOPED_TRACE(change);
        Run({change});
        const bool of_current = expected.starts_with("当期");
        const std::string p = of_current ? "" : Comma_Str(Scored(in_hand).figures.works[line].P.value);
        for (const char* name : {kanko_zen[0], kanko_zen[1], kanko_zen[2], Law().comparison_form}) {
            const auto form = Open(name);
            const std::string told = Shown(*form, "Lbl_Fault") + Notice(*form);
            EXPECT_EQ(told.substr(0, expected.size()), expected) << name;
            EXPECT_EQ(told.empty(), expected.empty()) << told;
            if (auto* grid = form->findChild<Entry_Grid*>(QStringLiteral("grid"))) {
                EXPECT_EQ(grid->Cell_Text("P" + at).toStdString(), p);
            }
        }
        const auto analysis = Open("Frm_KeieiKz");
        EXPECT_EQ(Has(Notice(*analysis), "前期：財務諸表が未入力です。"),
                  expected.starts_with("前期：財務諸表") && expected.find("「") == std::string_view::npos);
        EXPECT_EQ(Titles(), "");
        Write_Text_File(session.Work_Store, whole);
    }
}

// The count of the class that came last is that of the improvement, once it has one; the scores stay.
TEST_F(Zen_Periods, Assistants_Are_Those_Of_The_Improvement) {
    Put_Work(2, {{"技術者6", 3}});
    const auto shown = [this] {
        const auto form = Open("Frm_KankoKaiz2zen");
        const auto* grid = Child<Entry_Grid>(*form, "grid");
        return (grid->Cell_Text("Z22(2)") + u' ' + grid->Cell_Text("Z(2)")).toStdString() +
               Notice(*form).substr(0, 6);
    };
    const std::string z = Comma_Str(Scored(in_hand).figures.works[2].Z.value);
    EXPECT_EQ(shown(), "3 " + z);
    Put_Work(2, {{"改0技術者6", 8}});
    EXPECT_EQ(shown(), "8 " + z + "当期");
}

// ---- what the screens lead to

TEST_F(Zen_Periods, A_Check_Explains_Either_Side) {
    const std::array<std::string, 5> cases[] = {
        {"Frm_KankoKaizzen", "Cmd_P" + at, "Frm_XZP_Calc_Check", "Mae_P" + at, "P" + at},
        {"Frm_KankoKaiz3zen", "Cmd_Z" + at, "Frm_XZP_Calc_Check", "Mae_Z" + at, "Z" + at},
        {"Frm_SyokutaHKzen_2012", "Cmd_W2X(9)", "Frm_X2_Calc_Check", "Mae_X2", "X2"},
        {"Frm_KeieiKz", "Cmd_X(9)", "Frm_Y1_Calc_Check", "Y", "GeY"}};
    for (const auto& [name, button, check_name, before, after] : cases) {
        SCOPED_TRACE(name);
        const auto form = Open(name);
        auto* grid = form->findChild<Entry_Grid*>(QStringLiteral("grid"));
        const auto text = [&](const std::string& of) {
            return grid != nullptr ? grid->Cell_Text(of).toStdString() : Shown(*form, of.c_str());
        };
        if (grid == nullptr) {
            Click(*form, button.c_str());
        } else {
            ASSERT_TRUE(grid->Focus_Cell(button));
            Key(Qt::Key_Space);
        }
        for (const auto& [whose, shown] : {std::pair{"当期", after}, {"前期", before}, {"当期", after}}) {
            QPointer<Form> check;
            for (Form* window : form->findChildren<Form*>(QString::fromStdString(check_name))) {
                check = window->isVisible() ? window : check.data();
            }
            ASSERT_NE(check, nullptr);
            EXPECT_EQ(Shown(*check, "Lbl_SubTitle"), whose + std::string("の数値による計算です。"));
            EXPECT_EQ(Shown(*check, "lbl_Kekka"), text(shown));
            Click(*check, "Cmd_Other");
        }
        form->reject();
        EXPECT_EQ(Last_Box(),
                  "クローズエラー：開いている計算チェックの画面を閉じてから画面を閉じてください。");
    }
}

} // namespace
} // namespace morvane::tests
