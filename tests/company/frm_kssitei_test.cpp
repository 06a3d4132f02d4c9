// SPDX-FileCopyrightText: The Morvane developers
#include "company/frm_kssitei.h"

#include "company/law_change.h"
#include "session/kyotu_mod.h"
#include "support/ui_fixture.h"
#include "widgets/record_list.h"

#include <QAbstractButton>

namespace morvane::tests {
namespace {

/// Periods 33 (law year 2011), 34 (2012) and 35 (2015), the last one in hand.
class Period_Screen : public Form_Installation {
  protected:
    Period_Screen() {
        Make_Company(1, 1, 33);
        Period_Copy(session, 34, 33, Copy_Mode::After, Law_Of(3).code);
        Period_Copy(session, 35, 34, Copy_Mode::After, Law_Of(4).code);
        Set_Law_Year(session, 33, Law_Of(2).code);
        Open_Screen();
    }

    void Open_Screen() {
        Open(new Frm_KsSitei(shell));
        list = Child<Record_List>(*opened, "Lst_Box");
    }

    /// The marked law-year option, with the period of the chosen line.
    [[nodiscard]] std::string Marked() const {
        std::string marked = std::to_string(list->Selected_Row()) + ":";
        for (const char* year : {"2008", "2011", "2012", "2015"}) {
            auto* option = Child<QAbstractButton>(*opened, (std::string("Simyu") + year + "_flg").c_str());
            marked += option->isChecked() ? year : "";
            marked += option->isEnabled() ? "" : "x";
        }
        return marked;
    }

    void Click_Row(int row) const {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(row, 0)).center());
    }

    Record_List* list = nullptr;
};

TEST_F(Period_Screen, A_Line_Is_Chosen_And_Taken_In_Hand) {
    const QString told = list->Text_At(0, 0) + list->Text_At(0, 1) + list->Text_At(2, 2);
    EXPECT_EQ(told.toStdString(), "  33期2011年改正処理中");
    EXPECT_EQ(Marked(), "2:2015");
    Click_Row(1);
    EXPECT_EQ(Marked(), "1:2012");
    EXPECT_EQ(In_Hand(), "1 見本1 35 法人 5 4") << "the menu opens forms by it";
    Cn_Open(session).Execute("DELETE FROM Ks_Zaihyo WHERE 決算期=33 And 建設科目CD=99");
    Open_Screen();
    Click_Row(0);
    EXPECT_EQ(Marked(), "0:xxxx");
    EXPECT_TRUE(Press("Cmd_Excute").starts_with("決算期指定エラー@"));
    Click_Row(1);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(opened->isVisible());
    EXPECT_EQ(In_Hand(), "1 見本1 34 法人 5 3");
    EXPECT_EQ(shell.calls, (std::vector<std::string>{"Show_Company"}));
}

TEST_F(Period_Screen, A_Store_That_Cannot_Be_Read_Does_Not_Hold_The_Window) {
    std::filesystem::rename(session.Work_Store, session.App_Path / "gone.dat");
    messages.answers = {Answer::Back, Answer::Discard};
    EXPECT_TRUE(Press("Cmd_Cancel").starts_with("読み込みエラー@"));
    EXPECT_EQ(messages.shown.back().buttons, Buttons::Retry_Discard_Back);
    EXPECT_EQ(Press("Cmd_Cancel"), "読み込みエラーclosed");
    EXPECT_EQ(shell.failure, "") << "the program would end";
    EXPECT_EQ(Law_Number(session.Simyu_Kubun), 4);
}

TEST_F(Period_Screen, A_New_Period_Is_Made_From_The_Proposal) {
    Click(*opened, "Opt(1)");
    EXPECT_FALSE(list->isVisible());
    EXPECT_FALSE(Child<QAbstractButton>(*opened, "Cmd_Del")->isEnabled());
    EXPECT_TRUE(Text("Cmd_Excute").starts_with("新規登録"));
    EXPECT_EQ(Text("Ks_ki"), "36");
    EXPECT_EQ(Marked(), "2:2015");
    Click(*opened, "Opt(2)");
    EXPECT_EQ(Text("Ks_ki"), "32");
    EXPECT_EQ(Marked(), "2:2011") << "as the neighbour";
    // An option now speaks of the period to be made: no question, and no registered period changes.
    const auto before = State();
    Click(*opened, "Simyu2012_flg");
    EXPECT_EQ(Marked(), "2:2012");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(Press("Simyu2008_flg").starts_with("経審年指定エラー@"));
    EXPECT_EQ(Marked(), "2:2012");
    for (const char* number : {"", "33", "99999"}) {
        Type_Into(*opened, "Ks_ki", number);
        EXPECT_EQ(Press("Cmd_Excute"), "@Ks_ki") << number;
        EXPECT_NE(Text("Lbl_Fault"), "") << number;
    }
    EXPECT_TRUE(State() == before);
    Type_Into(*opened, "Ks_ki", "32");
    EXPECT_EQ(Text("Lbl_Fault"), "");
    messages.answers = {Answer::Yes};
    EXPECT_EQ(Press("Cmd_Excute"), "新決算期指定エラー 新決算期処理終了closed");
    EXPECT_EQ(In_Hand(), "1 見本1 32 法人 5 3");
    EXPECT_EQ(shell.calls, (std::vector<std::string>{"Show_Company"}));
}

TEST_F(Period_Screen, Law_Years_Are_Changed_And_Leaving_Keeps_That_Of_The_Period_In_Hand) {
    Click_Row(0);
    messages.answers = {Answer::Yes, Answer::No};
    Click(*opened, "Simyu2012_flg");
    EXPECT_EQ(Marked(), "0:2012");
    EXPECT_EQ(list->Text_At(0, 1).toStdString(), "2012年改正");
    Click_Row(2);
    Click(*opened, "Simyu2011_flg");
    EXPECT_EQ(Marked(), "2:2012") << "No to 2011 marks 2012";
    session.Simyu_Kubun = Law_Of(2).code;
    QTest::keyClick(opened.get(), Qt::Key_Escape);
    EXPECT_FALSE(opened->isVisible());
    EXPECT_EQ(In_Hand(), "1 見本1 35 法人 5 4");
    EXPECT_TRUE(shell.calls.empty());
}

TEST_F(Period_Screen, The_List_Shows_What_Is_Left_After_A_Deletion) {
    Click_Row(0);
    messages.answers = {Answer::Yes};
    Click(*opened, "Cmd_Del");
    EXPECT_EQ(list->Row_Count(), 2);
    EXPECT_EQ(Marked(), "1:2015");
    Click(*opened, "Cmd_Del");
    EXPECT_EQ(messages.shown.back().text, "現在処理中の決算期は削除できません。");
    EXPECT_EQ(list->Row_Count(), 2);
}

} // namespace
} // namespace morvane::tests
