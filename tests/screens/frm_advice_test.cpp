// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_advice.h"

#include "app/shell.h"
#include "batch/case_file.h"
#include "batch/installation.h"
#include "batch/score_run.h"
#include "company/datacheck.h"
#include "law/elements.h"
#include "report/chart_view.h"
#include "report/y_chart.h"
#include "review/twelve.h"
#include "screens/frm_keiei.h"
#include "screens/frm_ychart.h"
#include "session/kyotu_mod.h"
#include "support/generated_firm.h"
#include "support/paths.h"
#include "support/ui_fixture.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <nlohmann/json.hpp>
#include <sstream>

namespace morvane::tests {
namespace {

/// The installation of a firm with two periods.
class Own_Firm : public Ui_Installation {
  protected:
    Own_Firm() : Ui_Installation("13", false) {
        Import_Case(session, Samples_Folder() / "aoba_kensetsu.json");
        Company_Reload(session);
    }

    static std::string Text(QWidget& form, const std::string& name) {
        return Child<QLabel>(form, name.c_str())->text().toStdString();
    }
};

TEST_F(Own_Firm, Both_Sides_Of_The_Advice) {
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
    for (const Advice_Section& section :
         Advice_Of(Calc_Y(session, Side_In_Hand(session)), Read_Twelve(session))) {
        EXPECT_TRUE(Has(shown, section.heading) && Has(shown, section.nothing));
        for (const Advice& told : section.advice) {
            EXPECT_TRUE(Has(shown, told.text + "\n" + told.figure + "\n")) << shown;
        }
    }
    Click(form, "Cmd_12com");
    EXPECT_TRUE(!advice->isVisible() && twelve->isVisible());
    for (std::size_t i = 0; i < comments.size(); ++i) {
        EXPECT_EQ(Text(form, "Com(" + std::to_string(i + 1) + ")"), comments[i].text);
    }
    Click(form, "Cmd_Com(5)");
    auto* check = form.findChild<Form*>();
    ASSERT_NE(check, nullptr);
    EXPECT_TRUE(Has(check->windowTitle().toStdString(), "立替工事高比率"));
    check->reject();
    Click(form, "Cmd_Advice");
    EXPECT_TRUE(advice->isVisible() && !twelve->isVisible());
    form.resize(500, 400);
    QCoreApplication::processEvents();
    const QScrollBar& bar = *Child<QScrollArea>(form, "Body_Scroll")->verticalScrollBar();
    QTest::keyClick(&form, Qt::Key_PageDown);
    EXPECT_GT(bar.value(), 0) << "read without a mouse";
    QTest::keyClick(&form, Qt::Key_End);
    EXPECT_EQ(bar.value(), bar.maximum());
    Click(form, "Prt");
    EXPECT_EQ(shell.calls.back(), "Open_Form Rpt_Advice");
    Click(form, "Tojiru");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Own_Firm, The_Consultation_Leads_From_The_Menu_To_The_Advice_And_Back) {
    Shell program(folder.path, messages);
    ASSERT_TRUE(program.Sub_Main().running);
    Frm_Main& frame = *program.Frame();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
    Click(frame, "Cmd_Sim1");
    Click(frame, "Cmd_GB(4)");
    Form* chart = frame.area->Top();
    ASSERT_NE(chart, nullptr);
    EXPECT_EQ(chart->objectName(), QStringLiteral("Frm_Ychart"));
    EXPECT_EQ(Text(*chart, "Lbl_SubTitle"), "現状分析－点数アップコンサル");
    With_Dialog([&] { Click(*chart, "Cmd_Advice"); },
                [](QDialog& advice) {
                    EXPECT_EQ(advice.objectName(), QStringLiteral("Frm_Advice"));
                    Click(advice, "Tojiru");
                });
    EXPECT_EQ(frame.area->Top(), chart);
    Click(*chart, "Tojiru");
    EXPECT_EQ(frame.area->Top(), nullptr);
    Run({"UPDATE Ks_Zaihyo SET 金額=Null"});
    messages.shown.clear();
    Click(frame, "Cmd_GB(4)");
    EXPECT_EQ(Last_Box(), "データ処理不完全エラー：Ｙ点の計算が未処理です。");
    EXPECT_EQ(frame.area->Top(), nullptr);
}

/// What the batch tool scores of a side.
class As_Scored : public Own_Firm {
  protected:
    [[nodiscard]] nlohmann::json Scored(Asked_Side side) const {
        Score_Options options;
        options.companies = Companies_Of(session);
        options.side = side;
        options.format = Score_Format::Json;
        options.with_twelve = true;
        options.jobs = 1;
        std::ostringstream out, errors;
        EXPECT_EQ(Score_Run(session, options, out, errors), 0U) << errors.str();
        return nlohmann::json::parse(out.str())["companies"][0];
    }

    void Put_Firm(std::int16_t period, Scenario scenario, const Law_Year& law, std::mt19937& random) {
        session.Syori_Ki = period;
        Put_Elements({{element::law_year, static_cast<double>(Law_Number(law.code))}});
        std::map<int, double> amounts;
        const Review_Figures firm = Generated_Firm(law, random);
        for (std::size_t code = 0; code < firm.statement.amount.size(); ++code) {
            if (firm.statement.amount[code] != Yen()) {
                amounts[static_cast<int>(code)] = firm.statement.amount[code].Count();
            }
        }
        Put_Amounts(amounts, std::string(Columns_Of(scenario).zaihyo));
    }
};

TEST_F(As_Scored, Screens_Show_What_The_Batch_Tool_Scores) {
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
            const auto& series = Child<Chart_View>(chart, "Chart")->Chart().series;
            for (std::size_t i = 0; i < scored.size(); ++i) {
                const nlohmann::json& y = scored[i]["Y"];
                for (std::size_t x = 0; x < y_indicators.size(); ++x) {
                    EXPECT_EQ(Text(compared, (i == 0 ? "Kzkekka" : "Gekekka") + std::to_string(x + 1)),
                              Fixed_Str(y["X"][x].get<float>(), 3));
                    EXPECT_EQ(series[i].shares[x], Plotted_Share(y["ritu"][x].get<float>()));
                }
                EXPECT_EQ(Text(compared, i == 0 ? "YTen" : "GeYTen"), Fixed_Str(y["A"].get<float>(), 2));
                const int score = y["Y"].get<int>();
                EXPECT_EQ(Text(compared, i == 0 ? "Y" : "GeY"), score == 0 ? "" : Comma_Str(Value(score)));
            }
        }
        Frm_Advice advice(shell);
        for (std::size_t i = 0; i < twelve_indicators.size(); ++i) {
            const auto value = now["XW_Yoso"][std::to_string(first_twelve_element + static_cast<int>(i))];
            EXPECT_EQ(Text(advice, "Shihyo(" + std::to_string(i + 1) + ")"),
                      Fixed_Str(value.get<float>(), 3));
        }
    }
}

} // namespace
} // namespace morvane::tests
