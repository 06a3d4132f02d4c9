// SPDX-FileCopyrightText: The Morvane developers
// The chart and the advice, and that the screens of the analysis show what the batch tool scores.
#include "app/shell.h"
#include "batch/installation.h"
#include "batch/score_run.h"
#include "law/elements.h"
#include "report/chart_view.h"
#include "report/y_chart.h"
#include "review/twelve.h"
#include "screens/frm_advice.h"
#include "screens/frm_keiei.h"
#include "screens/frm_ychart.h"
#include "session/kyotu_mod.h"
#include "support/generated_firm.h"
#include "support/keyboard.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <nlohmann/json.hpp>
#include <sstream>

namespace morvane::tests {
namespace {

/// The installation of a firm with two periods.
class Consultation : public Ui_Installation {
  protected:
    Consultation() : Ui_Installation("13", false) { Take_Aoba(); }

    /// What the batch tool scores of a side.
    [[nodiscard]] nlohmann::json Scored(Asked_Side side) const {
        Score_Options options;
        options.companies = Companies_Of(session);
        options.side = side;
        options.format = Score_Format::Json;
        options.with_twelve = true;
        std::ostringstream out, errors;
        EXPECT_EQ(Score_Run(session, options, out, errors), 0U) << errors.str();
        return nlohmann::json::parse(out.str())["companies"][0];
    }

    void Put_Firm(std::int16_t period, Scenario scenario, const Law_Year& law, std::mt19937& random) {
        session.Syori_Ki = period;
        Put_Elements({{element::law_year, static_cast<double>(Law_Number(law.code))}});
        Put_Statement(Generated_Firm(law, random).statement, std::string(Columns_Of(scenario).zaihyo));
    }
};

TEST_F(Consultation, Leads_From_The_Menu_To_The_Advice_And_Back) {
    Shell program(folder.path, messages);
    ASSERT_TRUE(program.Sub_Main().running);
    Frm_Main& frame = *program.Frame();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
    Click(frame, "Cmd_Sim1");
    Click(frame, "Cmd_GB(4)");
    Form* chart = frame.area->Top();
    ASSERT_NE(chart, nullptr);
    EXPECT_EQ(Shown(*chart, "Lbl_SubTitle"), "現状分析－点数アップコンサル");
    With_Dialog([&] { Click(*chart, "Cmd_Advice"); }, [](QDialog& advice) { Click(advice, "Tojiru"); });
    EXPECT_EQ(frame.area->Top(), chart);
    Click(*chart, "Tojiru");
    EXPECT_EQ(frame.area->Top(), nullptr);
}

TEST_F(Consultation, The_Chart_Has_The_Series_Of_The_Mode_And_Room_For_Its_Texts_At_Any_Size) {
    for (const auto& [mode, expected] : {std::pair{Sim_Mode::Current, "：8 Open_Form Rpt_Ychart"},
                                         {Sim_Mode::Improvement, "：改善前8：改善後8 Open_Form Rpt_YchartHK"},
                                         {Sim_Mode::Other_Firm, "：自社8：他社0 Open_Form Rpt_YchartHK"},
                                         {Sim_Mode::Prior_Period, "：前期8：当期8 Open_Form Rpt_YchartHK"}}) {
        shell.menu.mode = mode;
        Frm_Ychart form(shell);
        form.show();
        const auto* chart = Child<Chart_View>(form, "Chart");
        std::string series;
        for (const Chart_Series& of : chart->Chart().series) {
            series += of.name + std::to_string(of.shares.size());
        }
        Click(form, "Prt");
        EXPECT_EQ(series + " " + shell.calls.back(), expected);
        EXPECT_EQ(form.findChild<QPushButton*>("Cmd_Advice") != nullptr, mode == Sim_Mode::Current);
        const Room least = Least_Room(chart->Chart()); // what is smaller scrolls
        for (const auto& [width, height] :
             {std::pair{300, 200}, {700, 420}, {859, 600}, {860, 600}, {1740, 1000}}) {
            form.resize(width, height);
            QCoreApplication::processEvents();
            EXPECT_GE(chart->width() / chart->Dots_Per_Mm(), static_cast<double>(least.width)) << width;
            EXPECT_GE(chart->height() / chart->Dots_Per_Mm(), static_cast<double>(least.height)) << height;
        }
    }
}

TEST_F(Consultation, The_Advice_Has_Two_Sides) {
    Run({"DELETE FROM XW_Yoso"});
    Frm_Advice form(shell);
    form.show();
    const auto comments = Twelve_Comments(Read_Twelve(session));
    EXPECT_NE(comments[0].figure, "0.000") << "computed before it is read";
    auto* advice = Child<QWidget>(form, "Advice");
    auto* twelve = Child<QWidget>(form, "Com12");
    EXPECT_TRUE(advice->isVisible() && !twelve->isVisible());
    std::string shown;
    for (const QLabel* label : advice->findChildren<QLabel*>()) {
        shown += label->text().toStdString() + "\n";
    }
    for (const auto& section : Advice_Of(Calc_Y(session, Side_In_Hand(session)), Read_Twelve(session))) {
        EXPECT_TRUE(Has(shown, section.heading) && Has(shown, section.nothing));
        for (const Advice& told : section.advice) {
            EXPECT_TRUE(Has(shown, told.text + "\n" + told.figure + "\n")) << shown;
        }
    }
    form.resize(500, 400);
    QCoreApplication::processEvents();
    QTest::keyClick(&form, Qt::Key_PageDown);
    EXPECT_GT(Child<QScrollArea>(form, "Body_Scroll")->verticalScrollBar()->value(), 0) << "by keys";
    Click(form, "Cmd_12com");
    EXPECT_TRUE(!advice->isVisible() && twelve->isVisible());
    for (std::size_t i = 0; i < comments.size(); ++i) {
        const std::string name = "Com(" + std::to_string(i + 1) + ")";
        QString text = Child<QLabel>(form, name.c_str())->text();
        EXPECT_EQ(text.remove(QChar(0x2060)).toStdString(), comments[i].text);
    }
    Child<QPushButton>(form, "Cmd_Com(5)")->click();
    EXPECT_TRUE(Has(form.findChild<Form*>()->windowTitle().toStdString(), "立替工事高比率"));
    form.findChild<Form*>()->reject();
    Click(form, "Prt");
    EXPECT_EQ(shell.calls.back(), "Open_Form Rpt_Advice");
}

TEST_F(Consultation, Screens_Show_What_The_Batch_Tool_Scores) {
    std::mt19937 random(2026);
    const Asked_Side sides[] = {{34, Scenario::Genjo}, {35, Scenario::Kaizen}, {35, Scenario::Genjo}};
    for (const Law_Year& law : Law_Years()) {
        SCOPED_TRACE(Law_Number(law.code));
        for (const Asked_Side& side : sides) {
            Put_Firm(static_cast<std::int16_t>(side.period.value()), side.scenario, law, random);
        }
        session.Simyu_Kubun = law.code;
        const auto now = Scored(sides[2]);
        const std::pair<Sim_Mode, std::array<nlohmann::json, 2>> modes[] = {
            {Sim_Mode::Improvement, std::array{now, Scored(sides[1])}},
            {Sim_Mode::Prior_Period, std::array{Scored(sides[0]), now}}};
        for (const auto& [mode, scored] : modes) {
            shell.menu.mode = mode;
            Frm_Keiei compared(shell, "Frm_KeieiKz");
            Frm_Ychart chart(shell);
            for (std::size_t i = 0; i < scored.size(); ++i) {
                const nlohmann::json& y = scored[i]["Y"];
                const Chart_Series& series = Child<Chart_View>(chart, "Chart")->Chart().series[i];
                for (std::size_t x = 0; x < y_indicators.size(); ++x) {
                    const std::string name = (i == 0 ? "Kzkekka" : "Gekekka") + std::to_string(x + 1);
                    EXPECT_EQ(Shown(compared, name.c_str()), Fixed_Str(y["X"][x].get<float>(), 3));
                    EXPECT_EQ(series.shares[x], Plotted_Share(y["ritu"][x].get<float>()));
                }
                EXPECT_EQ(Shown(compared, i == 0 ? "YTen" : "GeYTen"), Fixed_Str(y["A"].get<float>(), 2));
                const int score = y["Y"].get<int>();
                EXPECT_EQ(Shown(compared, i == 0 ? "Y" : "GeY"), score == 0 ? "" : Comma_Str(Value(score)));
            }
        }
        Frm_Advice advice(shell);
        for (std::size_t i = 0; i < twelve_indicators.size(); ++i) {
            const auto value = now["XW_Yoso"][std::to_string(first_twelve_element + static_cast<int>(i))];
            EXPECT_EQ(Shown(advice, ("Shihyo(" + std::to_string(i + 1) + ")").c_str()),
                      Expression(value.get<double>(), 3).text);
        }
    }
}

} // namespace
} // namespace morvane::tests
