// SPDX-FileCopyrightText: The Morvane developers
#include "app/frm_settei.h"

#include "session/install_info.h"
#include "session/kyotu_mod.h"
#include "support/failing_writes.h"
#include "support/listener.h"
#include "support/ui_fixture.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <optional>

namespace morvane::tests {
namespace {

class Frm_Settei_Test : public Ui_Installation {
  protected:
    Frm_Settei_Test() {
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    Frm_Settei form{shell};
};

TEST_F(Frm_Settei_Test, What_Is_Entered_Is_Saved) {
    Type_Into(form, "Smtp_Host", "smtp.example.jp");
    Type_Into(form, "Smtp_Port", "70000");
    Type_Into(form, "Smtp_Security", "2");
    Type_Into(form, "Smtp_Password", "ひみつ");
    Type_Into(form, "Sender_Address", "a@example.jp");
    Type_Into(form, "Net_Check_Host", "www.example.jp:80");
    Click(form, "Cmd_Excute");
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, "通信設定エラー");
    EXPECT_EQ(form.focusWidget()->objectName().toStdString(), "Smtp_Port");
    Type_Into(form, "Smtp_Port", "465");
    {
        const Failing_Writes full_disk(1);
        Click(form, "Cmd_Excute");
    }
    EXPECT_EQ(messages.shown.back().title, "保存エラー");
    EXPECT_TRUE(form.isVisible()) << "nothing typed is lost";
    Click(form, "Cmd_Excute");
    EXPECT_FALSE(form.isVisible());
    const Install_Info info = Read_Install_Info(folder.path);
    EXPECT_EQ(info.network.smtp.host, "smtp.example.jp");
    EXPECT_EQ(info.network.smtp.port, 465);
    EXPECT_EQ(info.network.smtp.security, Mail_Security::Tls);
    EXPECT_EQ(info.network.smtp.password, "ひみつ");
    EXPECT_EQ(info.net_check_host, "www.example.jp:80");
    EXPECT_EQ(Edition_Of(info.tiiki_cd), session.Tiiki_CD);
}

TEST_F(Frm_Settei_Test, The_Office_Is_Entered_Here) {
    session.Kanri_Flg = Office_Mode::Multi;
    Type_Into(form, "Office_Name", "見本事務所");
    Type_Into(form, "User_ID", "U-1");
    Click(form, "Cmd_Excute");
    EXPECT_FALSE(form.isVisible());
    const Install_Info info = Read_Install_Info(folder.path);
    EXPECT_EQ(info.office_name, "見本事務所");
    EXPECT_EQ(info.user_id, "U-1");
    EXPECT_EQ(session.Office_Name, "見本事務所") << "the next report bears it";
}

TEST_F(Frm_Settei_Test, A_Change_Of_Use_Asks_And_Ends_The_Program) {
    bool ended = false;
    form.end_program = [&ended] { ended = true; };
    const bool to_multi = !session.Is_Multi();
    Type_Into(form, "Office_Mode", to_multi ? "2" : "1");
    session.Edit_Flg = true;
    Click(form, "Cmd_Excute");
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, "使い方変更エラー");
    session.Edit_Flg = false;
    Click(form, "Cmd_Excute");
    EXPECT_EQ(messages.shown.back().title, "使い方変更確認");
    EXPECT_TRUE(form.isVisible() && !ended) << "No by default";
    messages.answers = {Answer::Yes};
    Click(form, "Cmd_Excute");
    EXPECT_EQ(messages.shown.back().title, "使い方変更完了");
    EXPECT_TRUE(!form.isVisible() && ended);
    EXPECT_EQ(Read_Install_Info(folder.path).kanri_flg == Office_Mode::Multi, to_multi);
}

TEST_F(Frm_Settei_Test, Edits_Are_Not_Dropped_Unasked) {
    Type_Into(form, "User_Page", "https://example.jp");
    Click(form, "Cmd_Cancel");
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, "編集破棄確認");
    EXPECT_TRUE(form.isVisible()) << "No by default";
    Type_Into(form, "User_Page", "");
    Click(form, "Cmd_Cancel");
    EXPECT_EQ(messages.shown.size(), 1U) << "back to what it was";
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Frm_Settei_Test, The_Connection_Test_Tells_Of_Each_Host) {
    Click(form, "Cmd_Test");
    ASSERT_EQ(messages.shown.size(), 1U) << "no host";
    std::optional<Listener> listener(1);
    const std::string host = listener->Host();
    const auto test = [&] {
        const std::size_t before = messages.shown.size();
        Click(form, "Cmd_Test");
        EXPECT_TRUE(QTest::qWaitFor([&] { return messages.shown.size() > before; }));
        return messages.shown.back().text;
    };
    Type_Into(form, "Net_Check_Host", host.c_str());
    EXPECT_EQ(test(), "接続確認先（" + host + "）：接続できました。");
    listener.reset();
    EXPECT_PRED2(Has, test(), "：接続できません。");
}

TEST_F(Frm_Settei_Test, A_Host_That_Drops_Packets_Leaves_The_Window_Alive) {
    Listener listener(0);
    listener.Fill();
    const std::string host = listener.Host();
    ASSERT_EQ(Net_Check(host, 200), "0") << "the queue is not full";
    Type_Into(form, "Net_Check_Host", host.c_str());
    int ticks = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, &clock, [&] { ++ticks; });
    clock.start(20);
    Click(form, "Cmd_Test");
    QDialog* window = nullptr;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        window = form.findChild<QDialog*>(QStringLiteral("Work_Window"));
        return window != nullptr && !window->testAttribute(Qt::WA_DontShowOnScreen);
    }));
    EXPECT_GT(ticks, 10) << "the windows go on";
    EXPECT_EQ(Child<QLabel>(*window, "Lbl_Work")->text().toStdString(),
              "接続確認先（" + host + "）に接続しています…");
    Click(*window, "Cmd_Cancel");
    EXPECT_EQ(form.findChild<QDialog*>(QStringLiteral("Work_Window")), nullptr);
    QTest::qWait(100);
    EXPECT_TRUE(messages.shown.empty()) << "nothing comes of a test that was given up";
}

} // namespace
} // namespace morvane::tests
