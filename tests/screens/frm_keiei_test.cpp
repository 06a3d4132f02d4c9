// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_keiei.h"

#include "screens/rate_bar.h"
#include "session/kyotu_mod.h"
#include "support/keyboard.h"
#include "widgets/entry_cell.h"
#include "widgets/theme.h"

#include <QPushButton>

namespace morvane::tests {
namespace {

class Keiei_Window : public Ui_Installation {
  protected:
    Keiei_Window() {
        Make_Company(1, 1, 10);
        Put_Amounts({{402, 1.8e9},
                     {419, 2.6e8},
                     {480, 3.6e6},
                     {489, -6.8e7},
                     {319, 3.2e8},
                     {179, 4.2e8},
                     {229, 5.5e8},
                     {399, 1.0e9},
                     {830, 9.0e8},
                     {289, 2.8e8}});
    }

    /// What the screen shows of a side, by its control names, beside what it should.
    static void Expect_Side(Frm_Keiei& form, const Keiei_Names& names, const Keiei_Texts& texts) {
        for (std::size_t i = 0; i < texts.Yoso.size(); ++i) {
            EXPECT_EQ(Shown(form, (names.Yoso + ("(" + std::to_string(i) + ")")).c_str()), texts.Yoso[i]);
        }
        for (std::size_t i = 0; i < texts.kekka.size(); ++i) {
            const std::string number = std::to_string(i + 1);
            EXPECT_EQ(Shown(form, (names.kekka + number).c_str()), texts.kekka[i]);
            EXPECT_EQ(Shown(form, (names.TRitu + number).c_str()), texts.TRitu[i] + " %");
            const double rate = Child<Rate_Bar>(form, (names.Bou + number).c_str())->Rate();
            EXPECT_EQ(Fixed_Str(static_cast<float>(rate), 1), texts.TRitu[i]);
        }
        EXPECT_EQ(Shown(form, names.YTen), texts.YTen);
        EXPECT_EQ(Shown(form, names.Y), texts.Y);
    }

    static Form* Check_Of(Frm_Keiei& form) {
        return form.findChild<Form*>(QStringLiteral("Frm_Y1_Calc_Check"), Qt::FindDirectChildrenOnly);
    }
};

TEST_F(Keiei_Window, Shows_The_Analysis_Of_The_Period_In_Hand) {
    const Y_Result y = Calc_Y(session, Side_In_Hand(session));
    ASSERT_TRUE(y.has_figures);
    Frm_Keiei form(shell);
    Expect_Side(form, {"Yoso", "kekka", "TRitu", "Bou", "YTen", "Y"}, Show_Keiei(y));
    EXPECT_EQ(Shown(form, "Yoso(4)"), "-68,000");
}

TEST_F(Keiei_Window, A_Bar_Is_As_Long_As_Its_Rate) {
    for (const auto& [rate, expected] : {std::pair{-5.0, 0}, {25.0, 50}, {100.0, 200}, {250.0, 200}}) {
        Rate_Bar bar;
        bar.resize(200, bar.sizeHint().height());
        bar.Set_Rate(rate);
        const QImage image = bar.grab().toImage();
        int length = 0;
        for (int x = 0; x < image.width(); ++x) {
            length += image.pixelColor(x, 1).blue() > image.pixelColor(x, 1).red() + 60 ? 1 : 0;
        }
        EXPECT_NEAR(length, expected, 4) << rate;
    }
}

TEST_F(Keiei_Window, Every_Check_Opens_And_Keeps_The_Screen_Open) {
    Frm_Keiei form(shell);
    Show(form);
    const QStringList of = QStringLiteral("Ｘ１ Ｘ２ Ｘ３ Ｘ４ Ｘ５ Ｘ６ Ｘ７ Ｘ８ Ａ Ｙ").split(u' ');
    for (int index = 0; index < 10; ++index) {
        Click(form, ("Cmd_X(" + std::to_string(index) + ")").c_str());
        Form* check = Check_Of(form);
        ASSERT_NE(check, nullptr) << index;
        EXPECT_TRUE(check->windowTitle().startsWith(u'（' + of[index])) << check->windowTitle().toStdString();
        Click(form, "Tojiru");
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(Told(), "クローズエラー");
        check->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Click(form, "Prt");
    EXPECT_EQ(shell.calls.back(), "Open_Form Rpt_Keiei");
    Click(form, "Tojiru");
    EXPECT_FALSE(form.isVisible());
}

// ---- two sides

class Keiei_Compared : public Keiei_Window {
  protected:
    Keiei_Compared() {
        Run({"UPDATE Ks_Zaihyo SET 改善後残高=金額"});
        Put_Amounts({{319, 6.4e8}, {229, 3.1e8}}, "改善後残高");
        shell.menu.mode = Sim_Mode::Improvement;
    }
};

TEST_F(Keiei_Compared, Shows_Two_Sides_And_What_The_Second_Brings) {
    using enum Scenario;
    const std::tuple<Sim_Mode, Side, Side, const char*> modes[] = {
        {Sim_Mode::Improvement, {10, Genjo}, {10, Kaizen}, "：改善前(上段)：改善後(下段)"},
        {Sim_Mode::Prior_Period, {9, Genjo}, {10, Genjo}, "：前期(上段)：当期(下段)"}};
    for (const auto& [mode, side_before, side_after, marks] : modes) {
        SCOPED_TRACE(marks);
        shell.menu.mode = mode;
        Frm_Keiei form(shell, "Frm_KeieiKz");
        const Y_Result before = Calc_Y(session, side_before);
        const Y_Result after = Calc_Y(session, side_after);
        Expect_Side(form, {"Yoso", "Kzkekka", "TRitu", "BouKz", "YTen", "Y"}, Show_Keiei(before));
        Expect_Side(form, {"YosoGo", "Gekekka", "GeTRitu", "Bou", "GeYTen", "GeY"}, Show_Keiei(after));
        EXPECT_NE(before.score, after.score);
        EXPECT_EQ(Shown(form, "GeY_Sa"), Gain_Str(std::int32_t{after.score.Count()} - before.score.Count()));
        EXPECT_EQ(Shown(form, "GeYTen_Sa"), Gain_Str(after.points - before.points, 2));
        form.show();
        const bool rises = before.score < after.score;
        EXPECT_EQ(Child<QLabel>(form, "GeY_Sa")->palette().color(QPalette::WindowText),
                  QColor(rises ? theme::rise : theme::fall));
        EXPECT_EQ(Shown(form, "Ex_Mes") + Shown(form, "GEx_Mes"), marks);
    }
}

TEST_F(Keiei_Compared, A_Side_That_Cannot_Be_Computed_Leaves_The_Other_One) {
    // told: a reason, empty beside it
    const std::tuple<const char*, std::vector<const char*>, const char*, const char*> cases[] = {
        {"金額", {"Y", "Yoso(0)", "Kzkekka1", "TRitu1", "GeY_Sa"}, "Lbl_Fault(0)", "GeY"},
        {"改善後残高", {"GeY", "YosoGo(0)", "Gekekka1", "GeTRitu1", "GeY_Sa"}, "Lbl_Fault(1)", "Y"}};
    for (const auto& [column, told, fault, other] : cases) {
        SCOPED_TRACE(column);
        Put_Amounts({{229, 2e15}, {248, 2e15}}, column);
        Frm_Keiei form(shell, "Frm_KeieiKz");
        std::string shown;
        for (const char* name : told) {
            shown += Shown(form, name);
        }
        EXPECT_EQ(shown, "計算できません");
        EXPECT_GT(std::stoi(Shown(form, other)), 0);
        EXPECT_PRED2(Has, Shown(form, fault), "桁あふれ");
        Put_Amounts({{229, 5.5e8}, {248, 0.0}}, column);
    }
}

// ---- another firm

TEST_F(Keiei_Compared, Figures_Of_Another_Firm_Follow_The_Keys) {
    shell.menu.mode = Sim_Mode::Other_Firm;
    Frm_Keiei form(shell, "Frm_KeieiKz");
    Show(form);
    EXPECT_EQ(Shown(form, "Ex_Mes") + Shown(form, "GEx_Mes"), "：自社(上段)：他社(下段)");
    const Keiei_Texts own = Show_Keiei(Calc_Y(session, {10, Scenario::Genjo}));
    Expect_Side(form, {"Yoso", "Kzkekka", "TRitu", "BouKz", "YTen", "Y"}, own);
    EXPECT_EQ(Shown(form, "GeY") + Shown(form, "Gekekka1") + Shown(form, "GeY_Sa"), "") << "nothing keyed";

    const auto other = Calc_Y(session, {10, Scenario::Kaizen});
    Y_Elements elements{};
    for (std::size_t i = 0; i < elements.size(); ++i) {
        elements[i] = other.elements[i];
        const std::string name = "YosoGo(" + std::to_string(i) + ")";
        Type_Into(form, name.c_str(), std::to_string(elements[i].Count()).c_str());
        EXPECT_EQ(Shown(form, "GeY"), Show_Keiei(Calc_Y(elements)).Y) << "before the cell is left";
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(Child<Entry_Cell>(form, name.c_str())->text().toStdString(), Comma_Str(elements[i]));
    }
    const Keiei_Texts texts = Show_Keiei(other);
    EXPECT_EQ(Shown(form, "GeY"), texts.Y);
    EXPECT_EQ(Shown(form, "Gekekka7") + Shown(form, "GeTRitu5"), texts.kekka[6] + texts.TRitu[4] + " %");
    EXPECT_EQ(Shown(form, "YTen"), own.YTen) << "the own firm stays";
}

TEST_F(Keiei_Compared, What_Is_Keyed_Of_Another_Firm_Is_Rounded_Half_To_Even) {
    shell.menu.mode = Sim_Mode::Other_Firm;
    Frm_Keiei form(shell, "Frm_KeieiKz");
    Show(form);
    auto* sales = Child<Entry_Cell>(form, "YosoGo(0)");
    for (const auto& [keys, shown, box] : {std::tuple{"1234.5", "1,234", ""},
                                           {"1235.5", "1,236", ""},
                                           {"-1234.5", "-1,234", ""},
                                           {"0.5", "0", ""},
                                           {"2147483647.4", "2,147,483,647", ""},
                                           {"2147483648", "2,147,483,647", "売上高の計算で桁あふれ"},
                                           {"12-3", "2147483647", ""}}) {
        Type_Into(form, "YosoGo(0)", keys);
        messages.shown.clear();
        Child<Entry_Cell>(form, "Syamei")->setFocus();
        QCoreApplication::processEvents();
        EXPECT_EQ(sales->text().toStdString(), shown) << keys;
        EXPECT_EQ(messages.shown.empty(), *box == 0) << keys;
        EXPECT_PRED2(Has, Last_Box(), box);
    }
    Click(form, "Cmd_X(0)");
    EXPECT_EQ(Shown(*Check_Of(form), "Lbl_SubTitle"), "自社の数値による計算です。");
    Check_Of(form)->reject();
}

TEST_F(Keiei_Compared, Opens_What_Belongs_To_The_Second_Side_And_Stands_Over_Another_Screen) {
    Frm_Keiei form(shell, "Frm_KeieiKz");
    const auto look = [&](QDialog&) {
        EXPECT_FALSE(Child<QPushButton>(form, "Cmd_Mnu")->isVisible());
        for (const auto& [button, opened] :
             {std::pair{"Prt", "Open_Form Rpt_KeieiHK"}, std::pair{"Ychart_Dsp", "Open_Form Frm_Ychart"}}) {
            Click(form, button);
            EXPECT_EQ(shell.calls.back(), opened);
        }
        Click(form, "Cmd_X(7)");
        EXPECT_EQ(Shown(*Check_Of(form), "Lbl_SubTitle"), "改善後の数値による計算です。");
        Check_Of(form)->reject();
        Click(form, "Tojiru");
    };
    With_Dialog([&] { form.exec(); }, look);
}

} // namespace
} // namespace morvane::tests
