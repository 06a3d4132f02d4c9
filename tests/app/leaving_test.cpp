// SPDX-FileCopyrightText: The Morvane developers
#include "app/form_table.h"
#include "batch/case_file.h"
#include "law/law_year.h"
#include "screens/qanda.h"
#include "support/failing_writes.h"
#include "support/ui_fixture.h"

#include <QPlainTextEdit>

namespace morvane::tests {
namespace {

/// A screen with something to store, and the button that stores it and closes.
struct Leaving {
    const char* form;
    const char* button;
    std::function<void(QWidget&)> edit = [](QWidget&) {};
};

const std::vector<Leaving> leavings = {
    {"Frm_KsZaihyo", "Tojiru"},
    {"Frm_KsZenki", "Tojiru"},
    {"Frm_KsHendo", "Tojiru"},
    {"Frm_Syokuta_2012", "Tojiru"},
    {"Frm_Kanko", "Tojiru"},
    {"Frm_Kanko2", "Tojiru"},
    {"Rpt_Kekka_2012", "Tojiru",
     [](QWidget& form) {
         With_Dialog([&] { Click(form, "Pg_Set"); },
                     [](QDialog& setting) {
                         Type_Into(setting, "Ue_Mrg", "1");
                         Click(setting, "Cmd_OK");
                     });
     }},
    {"Frm_QandA", "Cmd_Cancel",
     [](QWidget& form) { Child<QPlainTextEdit>(form, "Advice")->setPlainText(QStringLiteral("答")); }},
    {"Frm_Settei", "Cmd_Excute", [](QWidget& form) { Type_Into(form, "Net_Check_Host", "localhost:80"); }},
    {"Frm_KsZaiUP", "Tojiru"},
    {"Frm_Jgmas", "Cmd_Excute", [](QWidget& form) { Type_Into(form, "SyaMei", "新青葉"); }},
    {"Frm_Syokutakaiz_2012", "Tojiru"},
};

class Leaving_Test : public Form_Installation {
  protected:
    Leaving_Test() : Form_Installation("13", false) {
        Import_Case(session, Samples_Folder() / "aoba_kensetsu.json");
        session.Syori_Ki = static_cast<std::int16_t>(Field("Jigyo_mas", "処理決算期", "1=1").As_Integer());
        session.Hojin_Kojin = Firm_Type::Corporation;
        session.Simyu_Kubun = Law_Of(4).code;
        shell.menu.screen.number = 41;
    }
};

// Whatever a screen holds when the disk is full: another attempt fails again, going back keeps the screen,
// giving up closes it, and nothing of a failed attempt is kept.
TEST_F(Leaving_Test, Every_Screen_Can_Be_Left_On_A_Full_Disk) {
    for (const Leaving& leaving : leavings) {
        SCOPED_TRACE(leaving.form);
        Open(Find_Form(leaving.form)->Make(shell));
        leaving.edit(*opened);
        const auto before = State();
        const Failing_Writes full(1, Failing_Writes::Manner::From_Then_On, ENOSPC);
        messages.answers = {Answer::Retry, Answer::Back};
        EXPECT_TRUE(Press(leaving.button).starts_with("保存エラー 保存エラー@"));
        messages.answers = {Answer::Discard};
        EXPECT_EQ(Press(leaving.button), "保存エラーclosed");
        EXPECT_EQ(shell.failure, "") << "the program would end";
        EXPECT_EQ(State(), before);
        const Message_Box& box = messages.shown.back();
        EXPECT_EQ(box.buttons, Buttons::Retry_Discard_Back);
        EXPECT_PRED2(Has, box.text, folder.path.string());
        for (const char* engine : {"UPDATE", "SELECT", "INSERT", "database"}) {
            EXPECT_FALSE(Has(box.text, engine)) << "words, no SQL: " << box.text;
        }
    }
}

TEST_F(Leaving_Test, Another_Attempt_Stores_What_The_Screen_Holds) {
    Open(Find_Form("Frm_QandA")->Make(shell));
    leavings[7].edit(*opened);
    {
        const Failing_Writes once(1);
        messages.answers = {Answer::Retry};
        EXPECT_EQ(Press("Cmd_Cancel"), "保存エラーclosed");
    }
    EXPECT_EQ(Read_Note(session, shell.menu.screen).advice, "答");
}

} // namespace
} // namespace morvane::tests
