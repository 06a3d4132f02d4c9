// SPDX-FileCopyrightText: The Morvane developers
#include "company/datacheck.h"
#include "company/frm_jgnew.h"
#include "company/frm_jgsitei.h"
#include "company/register.h"
#include "support/ui_fixture.h"
#include "widgets/record_list.h"

#include <QLineEdit>
#include <QRadioButton>
#include <filesystem>

namespace morvane::tests {
namespace {

/// Company 1 in hand, 2 and 30 at rest.
class Frm_Company_Test : public Form_Installation {
  protected:
    Frm_Company_Test() {
        for (const Register_Row& row :
             {Register_Row{30, "見本30", "ｱｵﾊﾞ"}, {2, "見本2", "ﾊﾟｲﾌﾟ"}, {1, "見本1", "ﾐﾎﾝ"}}) {
            Register_Company(row.number, row.name);
            Put_Register_Row(session, row);
        }
        Check_Out(session, 1, "見本1");
        Run({"UPDATE Jigyo_mas SET 事業所カナ名='ﾐﾎﾝ', 単位=1"});
        Check_In(session);
    }

    [[nodiscard]] std::string Listed() const {
        const auto* list = List_Shown();
        std::string text;
        for (int row = 0; row < list->Row_Count(); ++row) {
            text += list->Text_At(row, 0).toStdString() + "=" + list->Text_At(row, 1).toStdString() + " ";
        }
        return text;
    }

    Record_List* List_Shown() const { return Child<Record_List>(*opened, "ListView"); }
};

TEST_F(Frm_Company_Test, The_List_Narrows_By_Initial_And_Takes_A_Company) {
    Open(new Frm_JGSitei(shell));
    EXPECT_EQ(Listed(), "1=見本1 2=見本2 30=見本30 ");
    EXPECT_TRUE(Press("Cmd_Sitei").starts_with("事業所未指定エラー@"));
    Click(*opened, "FgHa");
    EXPECT_EQ(Listed(), "2=見本2 ");
    Click(*opened, "FgNu");
    EXPECT_EQ(Listed(), "");
    EXPECT_EQ(Text("Lbl_Kensu"), "0 件");
    Click(*opened, "FgZen");
    // Any part of number, name or reading, in any width and either kana; several words must all be there.
    const std::pair<const char*, const char*> searches[] = {{"本3", "30=見本30 "},  {"３", "30=見本30 "},
                                                            {"みほん", "1=見本1 "}, {"パイ", "2=見本2 "},
                                                            {"見　2", "2=見本2 "},  {"x", ""}};
    for (const auto& [typed, expected] : searches) {
        Type_Into(*opened, "Txt_Kensaku", typed);
        EXPECT_EQ(Listed(), expected) << typed;
    }
    QTest::keyClick(opened->focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(Listed(), "1=見本1 2=見本2 30=見本30 ") << "Esc clears the search";
    EXPECT_TRUE(opened->isVisible());
    auto* list = List_Shown();
    list->Select_Row(1);
    Click(*opened, "FgA");
    EXPECT_EQ(list->Selected_Row(), -1) << "a filter clears the selection";
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(opened->isVisible());
    EXPECT_EQ(session.Kanri_No, 30);
    EXPECT_EQ(shell.calls, std::vector<std::string>{"Show_Company"});
}

TEST_F(Frm_Company_Test, The_List_Deletes_And_Registers) {
    Open(new Frm_JGSitei(shell));
    auto* list = List_Shown();
    list->Select_Row(0);
    EXPECT_TRUE(Press("Cmd_Del").starts_with("事業所削除エラー@"));
    list->Select_Row(1);
    messages.answers = {Answer::Yes};
    Click(*opened, "Cmd_Del");
    EXPECT_EQ(Listed(), "1=見本1 30=見本30 ");
    EXPECT_EQ(list->Selected_Row(), -1);
    EXPECT_EQ(list->Marked_Row(), 0) << "the company in hand";

    bool register_it = false;
    shell.on_open_form = [&](const QString&) {
        EXPECT_TRUE(session.Jg_New_Flg);
        session.Kanri_No = register_it ? 7 : 0;
    };
    EXPECT_TRUE(Press("Cmd_New").starts_with("処理中の事業所保存@"));
    EXPECT_EQ(shell.calls, (std::vector<std::string>{"Show_No_Company", "Open_Form Frm_JgNew"}));
    EXPECT_EQ(session.Kanri_No, 0);
    EXPECT_FALSE(session.Jg_New_Flg);
    register_it = true;
    EXPECT_EQ(Press("Cmd_New"), "closed") << "the new company is in hand";
}

TEST_F(Frm_Company_Test, A_Company_Of_Old_Data_Keeps_The_List_Open) {
    Run({"UPDATE Ks_Zaihyo SET 並び順 = 2 WHERE 建設科目CD=99"});
    Open(new Frm_JGSitei(shell));
    List_Shown()->Select_Row(0);
    EXPECT_TRUE(Press("Cmd_Sitei").starts_with("データ異常エラー@"));
    EXPECT_EQ(shell.calls, std::vector<std::string>{"Show_Company"});
}

TEST_F(Frm_Company_Test, A_New_Company_Is_Keyed_In_And_Registered) {
    Check_In_And_Release(session);
    session.Jg_New_Flg = true;
    Open(Make_Frm_JgNew(shell));
    EXPECT_EQ(opened->windowTitle().toStdString(), "事業所新規登録");
    EXPECT_EQ(Focused(), "JigyoCD");
    Type_Into(*opened, "JigyoCD", "9x9");
    QTest::keyClick(opened->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Focused(), "SyaMei");
    EXPECT_EQ(Press("Cmd_Excute"), "事業所名入力確認@SyaMei");
    const std::pair<const char*, const char*> keyed[] = {
        {"SyaMei", "新規建設"}, {"SyaKana", "しんき"}, {"Ks_ki", "3"},    {"Ksnen_St", "6"},
        {"KsTuki_St", "4"},     {"KsHi_St", "31"},     {"Ksnen_Ed", "7"}, {"KsTuki_Ed", "3"},
        {"KsHi_Ed", "31"},      {"HoKo", "321"}};
    for (const auto& [cell, keys] : keyed) {
        Type_Into(*opened, cell, keys);
    }
    EXPECT_EQ(Text("SyaKana") + Text("HoKo"), "ｼﾝｷ1");
    EXPECT_EQ(Press("Cmd_Excute"), "決算期日付エラー@Ksnen_St");
    Type_Into(*opened, "KsHi_St", "1");

    // A file that cannot be written: said, nothing lost, the second attempt works.
    namespace fs = std::filesystem;
    fs::rename(folder.path / "morv_set.dat", folder.path / "away.dat");
    EXPECT_TRUE(Press("Cmd_Excute").starts_with("保存エラー@"));
    EXPECT_PRED2(Has, messages.shown.back().text, "morv_set.dat");
    EXPECT_EQ(Text("SyaMei"), "新規建設");
    EXPECT_EQ(shell.failure, "");
    fs::rename(folder.path / "away.dat", folder.path / "morv_set.dat");
    EXPECT_EQ(Press("Cmd_Excute"), "closed");
    EXPECT_EQ(shell.calls, std::vector<std::string>{"Show_Registered"});
    EXPECT_EQ(session.Kanri_No, 99);
    EXPECT_TRUE(Find_Register_Row(session, 99));
}

TEST_F(Frm_Company_Test, Edits_Are_Given_Up_Only_After_The_Question) {
    Open(Make_Frm_JgNew(shell));
    EXPECT_EQ(opened->windowTitle().toStdString(), "事業所情報編集");
    EXPECT_EQ(Text("JigyoCD"), "1");
    Type_Into(*opened, "Ks_ki", "8");
    EXPECT_EQ(Press("Cmd_Excute"), "決算期変更確認@Ks_ki");
    EXPECT_EQ(Text("Ks_ki"), "5") << "No puts the stored period back";
    Type_Into(*opened, "Syozai", "札幌市");
    QTest::keyClick(opened.get(), Qt::Key_Escape);
    EXPECT_EQ(Last_Box(), "編集破棄確認：編集中の事業所情報を保存せずに終了します。\nよろしいですか？");
    EXPECT_TRUE(opened->isVisible());
    messages.answers = {Answer::Yes};
    EXPECT_EQ(Press("Cmd_Cancel"), "編集破棄確認closed");
    EXPECT_TRUE(Field("Jigyo_mas", "所在地", "管理No=1").Is_Null());
    Open(Make_Frm_JgNew(shell));
    EXPECT_EQ(Press("Cmd_Cancel"), "closed") << "nothing edited, nothing asked";
}

TEST_F(Frm_Company_Test, The_Period_Of_A_Firm_Of_Its_Own_Moves_As_Soon_As_Its_Field_Is_Left) {
    session.Kanri_Flg = Office_Mode::Single;
    Open(Make_Frm_Jgmas(shell));
    EXPECT_EQ(opened->windowTitle().toStdString(), "自社情報");
    EXPECT_EQ(opened->findChild<QLineEdit*>("JigyoCD"), nullptr);
    EXPECT_TRUE(Child<QRadioButton>(*opened, "En")->isChecked());
    Type_Into(*opened, "Ks_ki", "");
    Type_Into(*opened, "Tel", "011");
    QCoreApplication::processEvents();
    EXPECT_EQ(messages.shown.back().text,
              "決算期は省略できません。必須項目です。\n個人事業の場合も事業年度等として入力してください。");
    EXPECT_EQ(Focused(), "Ks_ki");
    Type_Into(*opened, "Ks_ki", "9");
    messages.answers = {Answer::Yes};
    messages.shown.clear();
    Child<QLineEdit>(*opened, "SyaMei")->setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(Titles(), "決算期変更確認 保存確認");
    EXPECT_EQ(List("SELECT 処理決算期, 電話番号 FROM Jigyo_mas"), "9=011");
    EXPECT_EQ(session.Syori_Ki, 9);
    Child<QRadioButton>(*opened, "Hyaku")->click();
    EXPECT_EQ(Press("Cmd_Excute"), "closed");
    EXPECT_EQ(shell.calls, (std::vector<std::string>{"Show_Company", "Show_Company"}));
    EXPECT_EQ(session.Tani_Kbn, Display_Unit::Millions);
    Run({"UPDATE Jigyo_mas SET 単位=Null"});
    Open(Make_Frm_Jgmas(shell));
    EXPECT_EQ(Press("Cmd_Excute"), "処理単位指定確認@En");
}

} // namespace
} // namespace morvane::tests
