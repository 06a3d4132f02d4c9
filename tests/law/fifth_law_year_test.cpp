// SPDX-FileCopyrightText: The Morvane developers
#include "batch/case_file.h"
#include "batch/score_format.h"
#include "company/datacheck.h"
#include "company/frm_kssitei.h"
#include "company/law_change.h"
#include "data/store_file.h"
#include "law/elements.h"
#include "maint/data_conv.h"
#include "report/report_table.h"
#include "review/settle.h"
#include "screens/check_sheet.h"
#include "screens/frm_syokuta.h"
#include "session/kyotu_mod.h"
#include "support/generated_firm.h"
#include "support/sheet_texts.h"
#include "support/ui_fixture.h"
#include "widgets/theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <algorithm>
#include <nlohmann/json.hpp>
#include <random>

// These tests are linked with a fifth row behind the four of the law (fifth_row.cpp): what is in force stays
// in force until a row says otherwise.

namespace morvane::tests {
namespace {

using nlohmann::json;

/// A text of the fifth law year with number and name of the fourth.
std::string As_Fourth(std::string text) {
    const std::pair<std::string, std::string> names[] = {{Law_Of(5).name, Law_Of(4).name},
                                                         {R"("Simyu_Kubun":5)", R"("Simyu_Kubun":4)"}};
    for (const auto& [from, to] : names) {
        for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
            text.replace(at, from.size(), to);
        }
    }
    return text;
}

/// Two texts of many lines; the first line that differs is told.
void Expect_Same(const std::string& fourth, const std::string& fifth) {
    const auto [a, b] = std::mismatch(fourth.begin(), fourth.end(), fifth.begin(), fifth.end());
    const auto line = [](const std::string& text, std::string::const_iterator at) {
        const auto from = text.rfind('\n', static_cast<std::size_t>(at - text.begin()));
        return text.substr(from + 1, text.find('\n', from + 1) - from);
    };
    EXPECT_TRUE(a == fourth.end() && b == fifth.end()) << line(fourth, a) << line(fifth, b);
}

std::string Texts_Of(const Check_Sheet& sheet) {
    std::string text = sheet.title + "\n" + sheet.sub_title + "\n" + sheet.help_key + sheet.table_form + "\n";
    const auto add = [&text](const std::string& line) { text += line + "\n"; };
    for (const auto* lines : {&sheet.inputs, &sheet.results}) {
        std::for_each(lines->begin(), lines->end(),
                      [&](const Check_Line& line) { add(line.caption + line.value.text); });
    }
    for (const auto* lines : {&sheet.formula, &sheet.closing}) {
        std::for_each(lines->begin(), lines->end(), add);
    }
    for (const Check_Step& step : sheet.steps) {
        add(step.name + step.text);
    }
    for (const Check_Table& table : sheet.tables) {
        add(table.heading + std::to_string(table.mark));
        for (const auto& row : table.rows) {
            std::for_each(row.begin(), row.end(), [&](const Named_Text& cell) { add(cell.text); });
        }
    }
    return text;
}

/// Every calculation check that the screens of a firm open, with the tables behind them.
std::string Checks_Of(const Review_Figures& figures) {
    std::string text;
    const auto add = [&](const Check_Request& request) {
        const Check_Sheet sheet = Make_Check_Sheet(figures, request);
        text += "# " + request.form + " " + Texts_Of(sheet) +
                (sheet.table_form.empty() ? "" : Texts_Of(Make_Table_Sheet(sheet)));
    };
    for (int i = 0; i < static_cast<int>(std::size(w2x_buttons)); ++i) {
        add(W2X_Request(Law_Of(figures.law_year), i));
    }
    for (int i = 0; i < 10; ++i) {
        add(Y1_Request(i));
    }
    for (const char* mode : {"X", "P", "Z", "Z1", "Z2"}) {
        add(XZP_Request(mode, 0));
    }
    return text;
}

TEST(Fifth_Law_Year, Scores_Generated_Firms_And_Explains_Them_As_The_Fourth) {
    std::mt19937 random(5);
    for (int firm = 0; firm < 100 && !::testing::Test::HasFailure(); ++firm) {
        SCOPED_TRACE(firm);
        Review_Figures fourth = Generated_Firm(Law_Of(4), random);
        Review_Figures fifth = fourth;
        fifth.law_year = Law_Of(5).code;
        for (Review_Figures* figures : {&fourth, &fifth}) {
            Settle(*figures);
        }
        EXPECT_NE(fourth.Yoso(element::w), 0);
        EXPECT_EQ(fourth.elements, fifth.elements);
        EXPECT_EQ(fourth.works, fifth.works);
        Expect_Same(Checks_Of(fourth), Checks_Of(fifth));
    }
}

TEST(Fifth_Law_Year, Bounds_Entries_As_The_Fourth) {
    for (int code = 0; code < 256; ++code) {
        EXPECT_EQ(Limit_Of_Element(code, Law_Of(5)).In_Words(), Limit_Of_Element(code, Law_Of(4)).In_Words())
            << code;
    }
    EXPECT_EQ(Limit_Of_Element(element::law_year, Law_Of(4)).In_Words(), "1、2、3、4、5 のどれか");
}

class Fifth_Law_Year_Test : public Ui_Installation {
  protected:
    Fifth_Law_Year_Test() : Ui_Installation("13", false) {}

    /// Imports a sample, all of whose periods have that law year, and takes it in hand.
    void Take_Sample(const std::string& name, int law) {
        json firm = json::parse(Read_Text_File(Samples_Folder() / name));
        for (json& period : firm["periods"]) {
            period["Simyu_Kubun"] = law;
        }
        const Temporary_Folder beside;
        Write_Text_File(beside.path / "case.json", firm.dump());
        Import_Case(session, beside.path / "case.json");
        Company_Reload(session);
    }

    [[nodiscard]] std::string Elements() const {
        return List("SELECT 要素CD, 要素名, 現状 FROM W_Yoso WHERE 要素CD<>210 And 決算期=" +
                    std::to_string(session.Syori_Ki) + " ORDER BY 要素CD");
    }

    [[nodiscard]] int Law_Of_Period(int period) const { return Law_Number(Get_Simyu_Kubun(session, period)); }
};

/// What a window shows and takes: every widget with its name, place in the order and texts.
std::string Picture_Of(const QWidget& form) {
    QString text = form.objectName();
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        text += QStringLiteral("%1 %2 %3 %4 %5 %6 %7\n")
                    .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
                         widget->property("text").toString(), widget->accessibleName(), widget->toolTip(),
                         widget->property("maxLength").toString(),
                         QString::number(static_cast<int>(widget->isVisibleTo(&form))));
    }
    return text.toStdString();
}

std::string Report_Of(const Session& session) {
    const Report_Row& report = *Find_Report(Law_Of(session.Simyu_Kubun).result_report);
    const Rpt_Draw drawn =
        report.read(Cn_Open(session), session, Request_In_Hand(session, Scenario::Genjo, report));
    return Joined(Texts_Drawn_By(drawn.draw), "\n");
}

TEST_F(Fifth_Law_Year_Test, Shows_And_Prints_The_Samples_As_The_Fourth) {
    for (const char* sample : {"aoba_kensetsu.json", "midori_denki.json", "tanaka_komuten.json"}) {
        SCOPED_TRACE(sample);
        std::string shown[2];
        for (const int law : {4, 5}) {
            Take_Sample(sample, law);
            ASSERT_EQ(Law_Number(session.Simyu_Kubun), law);
            const Settled_Score score = Score_Company(Cn_Open(session), session.Kind().edition);
            std::string& text = shown[law - 4];
            text = Picture_Of(Frm_Syokuta(shell)) + Report_Of(session) +
                   Score_Text(Score_Format::Json, score) + Score_Text(Score_Format::Table, score) +
                   Elements();
        }
        EXPECT_GT(shown[0].size(), 20'000U);
        Expect_Same(shown[0], As_Fourth(shown[1]));
    }
}

TEST_F(Fifth_Law_Year_Test, A_New_Period_And_A_New_Company_Take_The_Newest_Row) {
    Make_Company(1, 1, 10);
    EXPECT_EQ(Law_Of_Period(10), 5);
    EXPECT_EQ(Law_Number(Proposed_Law_Year(Read_Periods(session), Copy_Mode::After)), 5);
    Frm_KsSitei form(shell);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    Click(form, "Opt(1)");
    EXPECT_TRUE(Child<QAbstractButton>(form, "Simyu20xx_flg")->isChecked());
    messages.answers = {Answer::Yes};
    Click(form, "Cmd_Excute");
    EXPECT_NE(messages.shown.front().text.find("20xx年改正のデータです。"), std::string::npos);
    EXPECT_EQ(session.Syori_Ki, 11);
    EXPECT_EQ(Law_Number(session.Simyu_Kubun), 5);
}

TEST_F(Fifth_Law_Year_Test, A_Period_Is_Turned_To_It_And_Back) {
    Take_Sample("aoba_kensetsu.json", 4);
    const std::int16_t period = session.Syori_Ki;
    const std::string elements = Elements();
    for (const int law : {5, 4, 5}) {
        messages.answers = {Answer::Yes};
        EXPECT_EQ(Change_Law_Year(session, period, Law_Of(law).code, session.Simyu_Kubun), Law_Of(law).code);
        EXPECT_EQ(messages.shown.back().text,
                  std::string(Law_Of(law).name) + "のデータに変更します。\nよろしいですか？");
        EXPECT_EQ(Law_Of_Period(period), law);
        EXPECT_EQ(Elements(), elements);
    }
    EXPECT_FALSE(Mnu_Dt2015(session)) << "it has the items of 2015 already";
    for (const int law : {2, 5}) {
        Set_Law_Year(session, period, Law_Of(law).code);
    }
    EXPECT_EQ(Elements(), elements);
}

} // namespace
} // namespace morvane::tests

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    morvane::theme::Apply(application);
    return RUN_ALL_TESTS();
}
