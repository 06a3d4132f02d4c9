// SPDX-FileCopyrightText: The Morvane developers
#include "sim/frm_kzcopy.h"

#include "law/law_year.h"
#include "sim/kz_copy.h"
#include "support/ui_fixture.h"

#include <QLabel>
#include <QPushButton>

namespace morvane::tests {
namespace {

class Kz_Copy_Screen : public Ui_Installation {
  protected:
    Kz_Copy_Screen() {
        Make_Company(1, 1, 10);
        Put_Work(0, {{"総合評点P", 700}, {"改0総合評点P", 712}, {"改1総合評点P", 0}});
        Put_Work(2, {{"改0総合評点P", 1805}});
    }

    std::string Beside(Form& form, const std::string& button) {
        const std::string text = Child<QLabel>(form, ("Naiyo_" + button).c_str())->text().toStdString();
        EXPECT_TRUE(
            Child<QPushButton>(form, button.c_str())->accessibleName().toStdString().ends_with("、" + text));
        return text;
    }
};

TEST_F(Kz_Copy_Screen, Each_Button_Asks_Copies_And_Says_So) {
    // question: its first line
    // beside: afterwards
    const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
        {"Cmd_Save(2)", "改善後数値保存確認", "現在の「改善後」数値を「保存値2」に保存します。\n",
         "保存終了：改善後数値の保存が終了しました。", "最高 P 1,805（建築一式）、2工種"},
        {"Cmd_Load(1)", "改善後数値呼出確認", "「保存値1」の「改善後」数値を現在の「改善後」呼び出します。\n",
         "呼出終了：改善後数値の呼出が終了しました。", "最高 P 0（土木一式）、1工種"},
        {"Cmd_MaeGCopy", "改善後数値書き換え確認",
         "「改善前」の完工高、Ｘ２、Ｗ関連数値を、「改善後」数値にコピーします。\n",
         "コピー終了：改善前数値を改善後にコピーしました。", "改善後：最高 P 700（土木一式）、1工種"},
        {"Cmd_GoMCopy", "改善前数値書き換え確認",
         "「改善後」の財務データ、完工高、Ｘ２，Ｗ関連数値を、「改善前」数値にコピーします。\n",
         "コピー終了：改善後数値を改善前にコピーしました。", "改善前：最高 P 700（土木一式）、1工種"},
    };
    Frm_KzCopy form(shell);
    form.show();
    EXPECT_EQ(Beside(form, "Cmd_Save(3)"), "データなし");
    EXPECT_EQ(Beside(form, "Cmd_MaeGCopy"), "改善後：最高 P 1,805（建築一式）、2工種");
    for (const auto& [button, title, question, done, beside] : cases) {
        SCOPED_TRACE(button);
        const std::string before = Dump(session.Work_Store);
        messages.shown.clear();
        Click(form, button); // answered by the default
        const Message_Box asked = messages.shown.at(0);
        EXPECT_EQ(asked.title, title);
        EXPECT_TRUE(asked.text.starts_with(question) && asked.text.ends_with("\n\nよろしいですか？"));
        EXPECT_TRUE(asked.beep && asked.icon == Icon::Warning && asked.buttons == Buttons::Yes_No);
        EXPECT_EQ(Titles(), title);
        EXPECT_EQ(Dump(session.Work_Store), before);

        messages.answers = {Answer::Yes};
        Click(form, button);
        EXPECT_EQ(messages.shown.size(), 3U);
        EXPECT_EQ(Last_Box(), done);
        EXPECT_TRUE(messages.shown.back().beep && messages.shown.back().icon == Icon::Information);
        EXPECT_EQ(Beside(form, button), beside);
    }
}

TEST_F(Kz_Copy_Screen, Refuses_What_Is_Not_There) {
    Frm_KzCopy form(shell);
    form.show();
    for (const auto& [button, box] :
         {std::pair{"Cmd_Load(3)",
                    "保存データ無しエラー：「保存値3」に保存された改善後数値データはありません。"},
          {"Cmd_Prt", "改善未処理エラー：改善後のＸ２、Ｗ、Ｘ１、Ｚの処理が行われていません。"
                      "改善シミュレーションより行ってください。"}}) {
        messages.shown.clear();
        Click(form, button);
        EXPECT_EQ(messages.shown.size(), 1U) << button;
        EXPECT_EQ(Last_Box(), box);
    }
    EXPECT_TRUE(shell.calls.empty());
    Put_Elements({{100, 15}}, "改善後0");
    const char* reports[] = {"Rpt_KaizenHK", "Rpt_KaizenHK_2011", "Rpt_KaizenHK_2012", "Rpt_KaizenHK_2012"};
    for (int law = 1; law <= 4; ++law) {
        session.Simyu_Kubun = Law_Of(law).code;
        Click(form, "Cmd_Prt");
        EXPECT_EQ(shell.calls.back(), std::string("Open_Form ") + reports[law - 1]);
    }
}

TEST_F(Kz_Copy_Screen, A_Copy_That_Fails_Says_So_And_Leaves_The_Screen) {
    Frm_KzCopy form(shell);
    form.show();
    std::filesystem::rename(session.Work_Store, session.Work_Store.string() + "-");
    messages.answers = {Answer::Yes, Answer::Back};
    Click(form, "Cmd_Save(1)");
    EXPECT_PRED2(Has, Last_Box(), "保存エラー：");
    EXPECT_PRED2(Has, Last_Box(), "数値は元のまま変わっていません。");
    EXPECT_TRUE(shell.failure.empty() && form.isVisible());
}

} // namespace
} // namespace morvane::tests
