// SPDX-FileCopyrightText: The Morvane developers
#include "app/shell.h"

#include "app/crash_session.h"
#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/register.h"
#include "data/store_file.h"
#include "report/report_window.h"
#include "review/settle.h"
#include "screens/kanko_entry.h"
#include "screens/syokuta_entry.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"
#include "support/failing_writes.h"
#include "support/sheet_texts.h"
#include "support/ui_fixture.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTextBrowser>
#include <QTimer>
#include <array>

namespace morvane::tests {
namespace {

/// An installation with two companies, and the whole program on it.
class Shell_Test : public Installation {
  protected:
    Shell_Test() {
        Register_Company(12, "青葉建設", 1);
        Register_Company(34, "港工務店", 2);
    }

    Shell::Start Start() {
        shell = std::make_unique<Shell>(folder.path, messages);
        shell->end_process = [this](int status) { ended_with = status; };
        const Shell::Start start = shell->Sub_Main();
        if (start.running) {
            EXPECT_TRUE(QTest::qWaitForWindowExposed(shell->Frame()));
        }
        return start;
    }

    /// A start with company 12.
    void Begin() {
        ASSERT_TRUE(Start().running);
        Take(12);
    }

    void Take(std::int32_t number) {
        Check_Out(shell->session, number, Find_Register_Row(session, number)->name);
        shell->Show_Company();
    }

    [[nodiscard]] QWidget* Part(const char* name) const { return Child<QWidget>(*shell->Frame(), name); }
    [[nodiscard]] bool Enabled(const char* button) const { return Part(button)->isEnabled(); }
    [[nodiscard]] bool Visible(const char* panel) const { return Part(panel)->isVisible(); }
    [[nodiscard]] bool Is_Marked(const char* button) const { return Part(button)->property("open").toBool(); }
    [[nodiscard]] std::string Label(const char* name) const {
        return Part(name)->property("text").toString().toStdString();
    }

    /// Clicks a button of the frame; what the last box said that came, or nothing.
    std::string Press(const char* button) {
        messages.shown.clear();
        Click(*shell->Frame(), button);
        return messages.shown.empty() ? "" : messages.shown.back().text;
    }
    void Trigger(const char* entry) {
        shell->Frame()->findChild<QAction*>(QString::fromUtf8(entry))->trigger();
    }

    const std::string to_come = "この画面は準備中です。\n今後のバージョンで使えるようになります。";
    std::unique_ptr<Shell> shell;
    std::optional<int> ended_with;
};

class Single_Shell_Test : public Shell_Test {
  protected:
    Single_Shell_Test() {
        Install("13", false);
        Make_Company(1, 2, 3);
    }
};

// A statement that changes Y reaches the stored scores when its panel is closed, without a visit of their
// screens.
TEST_F(Single_Shell_Test, Stored_Scores_Follow_The_Statement) {
    session.Hojin_Kojin = Firm_Type::Individual;
    Kanko_Entry works(session, Kanko_Screen_Of("Frm_Kanko"));
    const Kanko_Entered amount = {2, 2, 50'000};
    works.Take({&amount, 1});
    Syokuta_Entry(session).Store(session);
    works.Save(session);
    const std::string stored = "SELECT 総合評点P FROM Kandaka_Gj WHERE 工種CD=2";
    const std::string before = List(stored);
    ASSERT_TRUE(Start().running);
    Press("Cmd_KsZ1");
    Put_Amounts({{319, 800'000'000}, {399, 900'000'000}, {250, 800'000'000}, {100, 900'000'000}});
    EXPECT_EQ(List(stored), before);
    Press("Cmd_KsT(6)");
    EXPECT_NE(List(stored), before);
    const Settled_Score score = Score_Company(Cn_Open(session), Edition::National);
    EXPECT_EQ(List(stored), std::to_string(score.figures.works[2].P.value));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(Shell_Test, The_Menu_Waits_For_A_Company_And_Follows_It) {
    ASSERT_TRUE(Start().running);
    const auto expect_company_bound = [this](bool enabled) {
        for (const char* button : {"Cmd_KsZ1", "Cmd_KsZ2", "Cmd_KsZ3", "Cmd_KsZ4", "Cmd_Sim1", "Cmd_Sim2",
                                   "Cmd_Sim3", "Cmd_Sim4", "Cmd_Hojyo1", "Cmd_Hojyo2", "Cmd_Hojyo4"}) {
            EXPECT_EQ(Enabled(button), enabled) << button;
        }
    };
    EXPECT_EQ(shell->Frame()->windowTitle().toStdString(), "MorvanePlus");
    EXPECT_EQ(Label("SyaMei") + Label("KsKi_Dsp"), "事業所が指定されていません！");
    expect_company_bound(false);
    EXPECT_TRUE(Enabled("Cmd_Hojyo3"));
    Take(12);
    EXPECT_EQ(Label("SyaMei") + Label("KsKi_Dsp"), "青葉建設第5期");
    expect_company_bound(true);
    // An individual has no statement of changes and other captions.
    Take(34);
    EXPECT_FALSE(Enabled("Cmd_KsZ3"));
    Press("Cmd_KsZ1");
    EXPECT_TRUE(Visible("Mnu_KsZTais"));
    EXPECT_FALSE(Enabled("Cmd_Sim1")) << "a panel disables the main buttons";
    EXPECT_EQ(Label("Cmd_KsT(4)"), "  期首資本金  事業主勘定");
    Press("Cmd_KsT(6)");
    EXPECT_FALSE(Visible("Mnu_KsZTais") || Enabled("Cmd_KsZ3"));
    EXPECT_TRUE(Enabled("Cmd_Sim1"));
    Press("Cmd_KsZ2");
    EXPECT_FALSE(Enabled("Cmd_KsS(3)"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(Visible("Mnu_KsZSon"));
}

TEST_F(Shell_Test, A_Panel_Goes_With_The_Company_It_Was_Opened_For) {
    Begin();
    Press("Cmd_Hojyo2");
    EXPECT_EQ(Press("Cmd_Sojyu(0)"), to_come);
    EXPECT_FALSE(shell->session.Edit_Flg);
    Take(34);
    Press("Cmd_KsZ1");
    Start_New_Company(shell->session);
    shell->Show_No_Company();
    EXPECT_FALSE(Visible("Mnu_KsZTais"));
    EXPECT_FALSE(Enabled("Cmd_KsT(0)")) << "nothing can be keyed into the store of nobody";
}

TEST_F(Shell_Test, The_Frame_Goes_Only_By_The_End_Button_While_A_Company_Is_In_Hand) {
    Begin();
    session = shell->session;
    Put_Amounts({{100, 4321}});
    EXPECT_FALSE(shell->Frame()->close());
    EXPECT_EQ(messages.shown.back().text,
              "指定中の事業所のデータが保存されていません。[終了]ボタンより終了してください。");
    shell->session.Edit_Flg = true;
    const std::string screen_open = "編集中の画面を閉じてから終了して下さい。";
    EXPECT_FALSE(shell->Frame()->close());
    EXPECT_EQ(messages.shown.back().text, screen_open);
    const auto before = State();
    EXPECT_EQ(Press("Cmd_End"), screen_open);
    EXPECT_EQ(State(), before) << "nothing is saved under an open screen";
    Trigger("Mnu_JgSitei");
    EXPECT_EQ(messages.shown.back().text, "編集中の画面を閉じてから実行して下さい。");
    shell->session.Edit_Flg = false;
    Press("Cmd_End");
    EXPECT_FALSE(shell->Frame()->isVisible());
    EXPECT_TRUE(Read_Kidou_Ini(folder.path).Is_Clean());
    EXPECT_EQ(Rows_Of(Connection(Company_Store(session, 12), session.Db_Key),
                      "SELECT 金額 FROM Ks_Zaihyo WHERE 建設科目CD=100"),
              "4321");
    shell.reset();
    EXPECT_EQ(Instance_Lock::Take(folder.path)->Left_Behind(), 0);
}

// The sums of the statements are stored when their panel closes.
TEST_F(Single_Shell_Test, A_Single_Firm_Has_No_Register_And_Closes_Though_Sums_Cannot_Be_Stored) {
    ASSERT_TRUE(Start().running);
    EXPECT_EQ(shell->Frame()->windowTitle().toStdString(), "Morvane");
    EXPECT_FALSE(shell->Frame()->findChild<QAction*>("Mnu_JgSitei")->isVisible());
    EXPECT_EQ(Label("Cmd_Hojyo4") + Label("KsKi_Dsp"), "自社情報第3期");
    Press("Cmd_KsZ1");
    {
        const Failing_Writes full(1, Failing_Writes::Manner::From_Then_On, ENOSPC);
        Press("Cmd_KsT(6)");
        EXPECT_TRUE(Visible("Mnu_KsZTais"));
        EXPECT_EQ(Titles(), "保存エラー");
        messages.answers = {Answer::Discard};
        Press("Cmd_KsT(6)");
    }
    EXPECT_FALSE(Visible("Mnu_KsZTais"));
    EXPECT_TRUE(shell->Frame()->close());
    EXPECT_FALSE(ended_with);
}

// As from the menu bar, in the running program: the change ends it, and it starts again in the new use.
TEST_F(Single_Shell_Test, The_Use_Is_Changed_And_The_Next_Start_Has_It) {
    const auto change = [this](QDialog& settings, const char* mode) {
        Type_Into(settings, "Office_Mode", mode);
        messages.answers = {Answer::Yes, Answer::Yes};
        Click(settings, "Cmd_Excute");
        if (settings.isVisible()) { // refused
            Click(settings, "Cmd_Cancel");
            QApplication::exit(0);
        }
    };
    const auto change_to = [&](const char* mode) {
        ASSERT_TRUE(Start().running);
        QTimer::singleShot(0, shell->Frame(), [this] { Trigger("Disp_Version"); });
        With_Dialog([] { EXPECT_EQ(QApplication::exec(), 0); },
                    [&](QDialog& version) {
                        With_Dialog([&] { Click(version, "Cmd_Settei"); },
                                    [&](QDialog& settings) { change(settings, mode); });
                    });
        shell.reset();
    };
    change_to("2");
    EXPECT_EQ(messages.shown.back().title, "使い方変更完了");
    ASSERT_EQ(Read_Register(session).size(), 1U);
    messages.shown.clear();
    change_to("1");
    EXPECT_PRED2(Has, messages.shown.at(0).text, "1件登録されています");
    Remove_Register_Row(session, 1);
    change_to("1");
    EXPECT_EQ(messages.shown.back().title, "使い方変更完了");
    messages.shown.clear();
    messages.answers = {Answer::Yes};
    With_Dialog([this] { EXPECT_TRUE(Start().running); }, // the blank firm asks for its dates
                [](QDialog& firm) { Click(firm, "Cmd_Cancel"); });
    EXPECT_FALSE(shell->session.Is_Multi());
}

TEST_F(Single_Shell_Test, Without_An_Edition_The_Start_Asks_For_One_Until_It_Is_Chosen) {
    Install_Info info = Read_Install_Info(folder.path);
    info.tiiki_cd.clear();
    Write_Install_Info(folder.path, info);
    messages.answers = {Answer::No, Answer::Yes};
    With_Dialog([&] { EXPECT_FALSE(Start().running); },
                [&](QDialog& dialog) {
                    EXPECT_EQ(dialog.objectName(), "Frm_DtSelect");
                    const QRect one = Child<QWidget>(dialog, "Cmd_Do")->geometry();
                    const QRect other = Child<QWidget>(dialog, "Cmd_Kanto")->geometry();
                    EXPECT_LT(one.right(), other.left()) << "beside each other";
                    EXPECT_NEAR(one.width(), other.width(), 1);
                    Click(dialog, "Cmd_Do");
                    Click(dialog, "Cmd_Cancel");
                });
    EXPECT_TRUE(Read_Install_Info(folder.path).tiiki_cd.empty());
    shell.reset();
    messages.answers = {Answer::Yes};
    // The first run then asks for the period's dates in the company screen.
    With_Dialogs([&] { Start(); }, {[&](QDialog& dialog) { Click(dialog, "Cmd_Kanto"); },
                                    [&](QDialog& dialog) {
                                        EXPECT_EQ(dialog.objectName(), "Frm_Jgmas");
                                        Click(dialog, "Cmd_Cancel");
                                    }});
    EXPECT_EQ(shell->session.Tiiki_CD, Edition::National);
    EXPECT_EQ(Label("TiikiMei"), "全国 版");
}

TEST_F(Shell_Test, A_Company_That_Cannot_Be_Put_Back_Is_Left_To_The_Next_Start) {
    Begin();
    std::filesystem::rename(folder.path / "data", folder.path / "gone");
    messages.answers = {Answer::Retry, Answer::Back};
    EXPECT_PRED2(Has, Press("Cmd_End"), (folder.path / "data").string());
    EXPECT_FALSE(ended_with);
    EXPECT_TRUE(shell->Frame()->isVisible());
    messages.answers = {Answer::Discard};
    Press("Cmd_End");
    EXPECT_FALSE(shell->Frame()->isVisible());
    EXPECT_EQ(ended_with, 1);
    EXPECT_EQ(Read_Kidou_Ini(folder.path).number, 12) << "the marker tells the next start";
}

TEST_F(Shell_Test, A_Failing_Store_Names_Its_File_And_Ends_With_A_Failure_Status) {
    Begin();
    std::filesystem::rename(folder.path / "Morvane.dat", folder.path / "gone.dat");
    const std::string text = Press("Cmd_Hojyo1");
    EXPECT_EQ(ended_with, 1);
    EXPECT_PRED2(Has, text, "Morvane.dat");
    EXPECT_FALSE(Has(text, "open")) << "words, no engine text";
}

TEST_F(Shell_Test, Sister_Screens_Are_One_Screen_For_The_Menu) {
    Begin();
    Press("Cmd_Sim1");
    Press("Cmd_GB(2)");
    Frm_Main& frame = *shell->Frame();
    const auto expect_open = [&](const char* form, bool menu) {
        QApplication::processEvents();
        ASSERT_EQ(frame.area->Forms().size(), 1);
        EXPECT_EQ(frame.area->Top()->objectName().toStdString(), form);
        EXPECT_EQ(Form::Of(QApplication::focusWidget()), frame.area->Top());
        EXPECT_TRUE(shell->session.Edit_Flg && Is_Marked("Cmd_GB(2)"));
        EXPECT_EQ(frame.command->isVisible(), menu);
    };
    expect_open("Frm_Kanko", true);
    for (const bool menu : {false, true, false}) {
        Press("Cmd_Mnu");
        expect_open("Frm_Kanko", menu);
    }
    {
        const Failing_Writes failing(1, Failing_Writes::Manner::From_Then_On);
        Press("edit_z");
    }
    EXPECT_EQ(Titles(), "保存エラー");
    expect_open("Frm_Kanko", false);
    Press("edit_z");
    expect_open("Frm_Kanko2", false);
    Press("edit_x1");
    expect_open("Frm_Kanko", false);
    Press("Tojiru");
    EXPECT_FALSE(shell->session.Edit_Flg || Is_Marked("Cmd_GB(2)"));
    EXPECT_TRUE(frame.command->isVisible()) << "the menu comes back with the last screen";
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), "Cmd_GB(2)") << "where it was opened";
}

TEST_F(Shell_Test, Improved_Sisters_Keep_Their_Button_And_Print_The_Improvement) {
    Begin();
    Run({"UPDATE W_Yoso SET 現状=0, 改善後0=0 WHERE 要素CD=200"});
    Press("Cmd_Sim2");
    Press("Cmd_UpS(3)");
    Frm_Main& frame = *shell->Frame();
    for (const char* to : {"edit_z1", "edit_z2", "edit_x1", "edit_z2", "edit_z1"}) {
        Press(to);
        EXPECT_EQ(frame.area->Forms().size(), 1);
        EXPECT_TRUE(shell->session.Edit_Flg && Is_Marked("Cmd_UpS(3)")) << to;
    }
    EXPECT_EQ(frame.area->Top()->objectName().toStdString(), "Frm_KankoKaiz2");
    With_Dialog([&] { Press("Cmd_Kekka"); },
                [](QDialog& report) {
                    const auto sheet = Texts_Of(dynamic_cast<Report_Window&>(report).Preview());
                    EXPECT_NE(Box_Of(sheet, "経営事項審査 シミュレーション結果（改善後）").size, 0);
                    report.reject();
                });
    EXPECT_EQ(Press("Cmd_Hikaku"), to_come);
    Press("Tojiru");
    EXPECT_FALSE(shell->session.Edit_Flg);
}

TEST_F(Shell_Test, The_Prior_Period_Is_Compared_By_Its_Menu) {
    Begin();
    EXPECT_EQ(Press("Cmd_Sim3"), "前期のデータがありません。");
    EXPECT_EQ(Titles(), "前期データ無しエラー");
    ASSERT_TRUE(Period_Copy(shell->session, static_cast<std::int16_t>(shell->session.Syori_Ki + 1),
                            shell->session.Syori_Ki, Copy_Mode::After, Newest_Law_Year().code));
    Press("Cmd_Sim3");
    Frm_Main& frame = *shell->Frame();
    const std::array<const char*, 4> cases[] = {
        {"Cmd_ZkH(0)", "Frm_KeieiKz", "前期比較－経営状況（Ｙ）", "Prt"},
        {"Cmd_ZkH(1)", "Frm_SyokutaHKzen_2012", "前期比較－従事職員数・その他（Ｘ２、Ｗ）", "Prt"},
        {"Cmd_ZkH(2)", "Frm_KankoKaizzen", "前期比較－完工高・技術職員数（Ｐ，Ｘ１，Ｚ）", "Cmd_Hikaku"}};
    for (const auto& [entry, form, title, report] : cases) {
        SCOPED_TRACE(entry);
        Press(entry);
        ASSERT_EQ(frame.area->Forms().size(), 1);
        EXPECT_EQ(frame.area->Top()->objectName().toStdString(), form);
        EXPECT_EQ(Child<QLabel>(*frame.area->Top(), "Lbl_SubTitle")->text().toStdString(), title);
        EXPECT_PRED2(Has, Press(report), "この画面は準備中です。");
    }
    for (const char* to : {"edit_z1", "edit_z2", "edit_x1"}) {
        Press(to);
        EXPECT_TRUE(Is_Marked("Cmd_ZkH(2)"));
    }
    EXPECT_EQ(frame.area->Top()->objectName().toStdString(), "Frm_KankoKaizzen");
}

TEST_F(Shell_Test, The_Menu_Closes_A_Check_Screen_With_Its_Family) {
    Begin();
    Frm_Main& frame = *shell->Frame();
    for (const char* button : {"Cmd_Sim1", "Cmd_GB(1)", "Cmd_W2X(7)"}) {
        Press(button);
    }
    Click(*Child<Form>(frame, "Frm_X2_Calc_Check"), "Cmd_Tbl");
    EXPECT_EQ(Press("Cmd_GB(2)"), "");
    ASSERT_EQ(frame.area->Forms().size(), 1);
    EXPECT_EQ(frame.area->Top()->objectName().toStdString(), "Frm_Kanko");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(frame.findChild<Form*>("Frm_Calc_Tbl"), nullptr);
}

TEST_F(Shell_Test, F1_Opens_The_Page_Of_What_Has_The_Focus) {
    ASSERT_TRUE(Start().running);
    QTest::keyClick(shell->Frame(), Qt::Key_F1);
    auto* help = Child<QTextBrowser>(*shell->Frame(), "Help_Browser");
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(help->source().fileName().toStdString(), "Frm_Command.html");

    // Keys typed in the page search it; Enter goes on, Esc ends the search and then the window.
    auto* search = Child<QLineEdit>(*help->window(), "Help_Search");
    help->window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == help->window(); }));
    help->setFocus();
    QTest::keyClick(help, 'F');
    EXPECT_TRUE(search->hasFocus());
    const auto marked = help->extraSelections().size();
    ASSERT_GT(marked, 1);
    EXPECT_EQ(help->textCursor().selectedText().toStdString(), "F");
    EXPECT_EQ(Label("Lbl_Hits"), "1／" + std::to_string(marked) + "件");
    const int first = help->textCursor().position();
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_GT(help->textCursor().position(), first);
    QTest::keyClick(search, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(help->textCursor().position(), first);
    QTest::keyClicks(search, "!?");
    EXPECT_EQ(Label("Lbl_Hits"), "見つかりません");
    for (const bool stays : {true, false}) {
        QTest::keyClick(search, Qt::Key_Escape);
        EXPECT_EQ(help->isVisible(), stays);
        EXPECT_EQ(help->extraSelections().size(), 0);
    }
}

// A whole session in a process of its own that is killed with a company in hand.
TEST_F(Shell_Test, After_A_Kill_The_Next_Start_Has_Every_Edit_And_All_Files_Agree) {
    QProcess killed;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(crash_variable), QString::fromStdString(folder.path.string()));
    killed.setProcessEnvironment(environment);
    killed.setProcessChannelMode(QProcess::ForwardedChannels);
    killed.start(QApplication::applicationFilePath(), QStringList());
    ASSERT_TRUE(killed.waitForFinished(60000));
    ASSERT_EQ(killed.exitStatus(), QProcess::CrashExit) << killed.exitCode();

    ASSERT_TRUE(Start().running);
    EXPECT_EQ(messages.shown.back().title, "前回の異常終了を確認");
    EXPECT_EQ(Label("SyaMei") + Label("KsKi_Dsp"), "港工務店第6期") << "the period made before the kill";
    EXPECT_EQ(Read_Register(session).at(0).name, "青葉改");
    const auto stored = [this](int number, const char* query) {
        return Rows_Of(Connection(Company_Store(session, number), session.Db_Key), query);
    };
    EXPECT_EQ(stored(12, "SELECT 事業所名 FROM Jigyo_mas"), "青葉改");
    Press("Cmd_End");
    EXPECT_TRUE(Read_Kidou_Ini(folder.path).Is_Clean());
    EXPECT_EQ(stored(34, "SELECT 決算期 FROM Ks_ki ORDER BY 決算期"), "5 6");
}

// The box says what the raiser of the failure advises, whatever letters that holds.
TEST_F(Shell_Test, The_Box_Of_Lost_Settings_Tells_How_To_Make_Them_Again) {
    std::filesystem::remove(folder.path / "install_info.json");
    EXPECT_FALSE(Start().running);
    EXPECT_EQ(ended_with, 1);
    EXPECT_PRED2(Has, messages.shown.back().text, "morvane-batch init --repair");
}

// The program itself, as it is delivered.
TEST_F(Shell_Test, A_Second_Instance_Is_Refused_And_A_Killed_One_Leaves_The_Lock_Free) {
    std::filesystem::copy_file(Program_File(), folder.path / "morvane");
    QProcess first;
    first.start(QString::fromStdString((folder.path / "morvane").string()), QStringList());
    ASSERT_TRUE(first.waitForStarted());
    // The record in the lock file is the last thing that a start writes.
    const std::filesystem::path lock = folder.path / "morvane.lock";
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return std::filesystem::exists(lock) && std::filesystem::file_size(lock) > 0; }, 60000));
    const auto before = State();
    EXPECT_EQ(Start().status, 1);
    EXPECT_EQ(messages.shown.back().title, "複数起動エラー");
    EXPECT_TRUE(State() == before) << "a refused start changes no file";
    // Nor does it fill a folder that the first one has only begun to fill.
    const auto settings = folder.path / "install_info.json";
    std::filesystem::rename(settings, folder.path / "aside");
    EXPECT_EQ(Start().status, 1);
    EXPECT_FALSE(std::filesystem::exists(settings));
    std::filesystem::rename(folder.path / "aside", settings);
    first.kill();
    ASSERT_TRUE(first.waitForFinished());
    EXPECT_TRUE(Start().running);
}

} // namespace
} // namespace morvane::tests
