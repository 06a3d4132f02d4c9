// SPDX-FileCopyrightText: The Morvane developers
#include "app/frm_settei.h"

#include "session/install_info.h"
#include "session/kyotu_mod.h"
#include "support/failing_writes.h"
#include "support/listener.h"
#include "support/ui_fixture.h"

#include <QLabel>
#include <QPushButton>
#include <optional>

namespace morvane::tests {
namespace {

class Frm_Settei_Test : public Form_Installation {
  protected:
    Frm_Settei_Test() { Open(form); }

    Frm_Settei* const form = new Frm_Settei(shell);
};

TEST_F(Frm_Settei_Test, What_Is_Entered_Is_Saved) {
    for (const auto& [cell, keys] : {std::pair("Smtp_Host", "smtp.example.jp"),
                                     {"Smtp_Port", "70000"},
                                     {"Smtp_Security", "2"},
                                     {"Smtp_Password", "ひみつ"},
                                     {"Sender_Address", "a@example.jp"},
                                     {"Net_Check_Host", "www.example.jp:80"},
                                     {"Office_Name", "見本事務所"},
                                     {"User_ID", "U-1"}}) {
        Type_Into(*form, cell, keys);
    }
    EXPECT_EQ(Press("Cmd_Excute"), "通信設定エラー@Smtp_Port");
    Type_Into(*form, "Smtp_Port", "465");
    {
        const Failing_Writes full_disk(1);
        EXPECT_TRUE(Press("Cmd_Excute").starts_with("保存エラー@")) << "nothing typed is lost";
    }
    EXPECT_EQ(Press("Cmd_Excute"), "closed");
    const Install_Info info = Read_Install_Info(folder.path);
    const auto& smtp = info.network.smtp;
    EXPECT_EQ(smtp.host + std::to_string(smtp.port) + smtp.password, "smtp.example.jp465ひみつ");
    EXPECT_EQ(smtp.security, Mail_Security::Tls);
    EXPECT_EQ(Edition_Of(info.tiiki_cd), session.Tiiki_CD);
    EXPECT_EQ(info.net_check_host + info.office_name + info.user_id, "www.example.jp:80見本事務所U-1");
    EXPECT_EQ(session.Office_Name, "見本事務所") << "the next report bears it";
}

TEST_F(Frm_Settei_Test, A_Change_Of_Use_Asks_And_Ends_The_Program) {
    bool ended = false;
    form->end_program = [&ended] { ended = true; };
    Type_Into(*form, "Office_Mode", "1");
    session.Edit_Flg = true;
    EXPECT_TRUE(Press("Cmd_Excute").starts_with("使い方変更エラー@"));
    session.Edit_Flg = false;
    EXPECT_TRUE(Press("Cmd_Excute").starts_with("使い方変更確認@")) << "No by default";
    EXPECT_FALSE(ended);
    messages.answers = {Answer::Yes};
    EXPECT_EQ(Press("Cmd_Excute"), "使い方変更確認 使い方変更完了closed");
    EXPECT_TRUE(ended);
    EXPECT_EQ(Read_Install_Info(folder.path).kanri_flg, Office_Mode::Single);
}

TEST_F(Frm_Settei_Test, Edits_Are_Not_Dropped_Unasked) {
    Type_Into(*form, "User_Page", "https://example.jp");
    EXPECT_TRUE(Press("Cmd_Cancel").starts_with("編集破棄確認@")) << "No by default";
    Type_Into(*form, "User_Page", "");
    EXPECT_EQ(Press("Cmd_Cancel"), "closed") << "back to what it was";
}

TEST_F(Frm_Settei_Test, The_Connection_Test_Tells_Of_Each_Host) {
    EXPECT_EQ(Press("Cmd_Test"), "接続テスト@Net_Check_Host") << "no host";
    std::optional<Listener> listener(1);
    const std::string host = listener->Host();
    const auto test = [this] {
        Press("Cmd_Test");
        EXPECT_TRUE(messages.shown.empty()) << "the answer of the network comes beside the window";
        EXPECT_TRUE(QTest::qWaitFor([&] { return !messages.shown.empty(); }));
        return Last_Box();
    };
    Type_Into(*form, "Net_Check_Host", host.c_str());
    EXPECT_EQ(test(), "接続テスト：接続確認先（" + host + "）：接続できました。");
    listener.reset();
    EXPECT_PRED2(Has, test(), "：接続できません。");
}

TEST_F(Frm_Settei_Test, A_Host_That_Drops_Packets_Need_Not_Be_Waited_For) {
    Listener listener(0);
    listener.Fill();
    const std::string host = listener.Host();
    Type_Into(*form, "Net_Check_Host", host.c_str());
    Click(*form, "Cmd_Test");
    const std::string asked = "接続確認先（" + host + "）に接続しています…";
    ASSERT_TRUE(QTest::qWaitFor([&] {
        const auto* told = form->findChild<QLabel*>(QStringLiteral("Lbl_Work"));
        return told != nullptr && told->text().toStdString() == asked;
    }));
    Child<QPushButton>(*Child<QDialog>(*form, "Work_Window"), "Cmd_Cancel")->click();
    EXPECT_EQ(form->findChild<QDialog*>(QStringLiteral("Work_Window")), nullptr);
    QTest::qWait(100);
    EXPECT_TRUE(messages.shown.empty()) << "nothing comes of a test that was given up";
}

} // namespace
} // namespace morvane::tests
