// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_qanda.h"

#include "support/ui_fixture.h"
#include "widgets/note_button.h"

#include <QPlainTextEdit>

namespace morvane::tests {
namespace {

class Note_Screen : public Ui_Installation {
  protected:
    Note_Screen() {
        Make_Company(1, 1, 35);
        shell.menu.screen.number = 53;
        shell.menu.screen.title = "現状分析－経営状況（Ｙ）";
    }

    /// Opens the note, writes into one of its parts and closes it.
    void Write(const char* part, const char* text) {
        Frm_QandA form(shell);
        form.show();
        Child<QPlainTextEdit>(form, part)->setPlainText(QString::fromUtf8(text));
        Click(form, "Cmd_Cancel");
        EXPECT_FALSE(form.isVisible());
    }

    [[nodiscard]] std::string Stored() const {
        return List("SELECT タイトル, 質問, アドバイス FROM QandA WHERE 決算期=35 And QNo=53");
    }
};

TEST_F(Note_Screen, A_Note_Is_Stored_On_Closing_And_Lights_The_Button) {
    const std::string title = "現状分析－経営状況（Ｙ）=";
    Note_Button button(shell);
    button.show();
    EXPECT_FALSE(button.Is_Lit());
    shell.on_open_form = [this](const QString&) { Write("Shitumon", "問い'一\n二"); };
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(shell.calls, (std::vector<std::string>{"Open_Form Frm_QandA"}));
    EXPECT_TRUE(button.Is_Lit());
    EXPECT_EQ(Stored(), title + "問い'一\n二=-");
    shell.on_open_form = [this](const QString&) {
        Write("Advice", "答");
        Write("Shitumon", " \n");
    };
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(Stored(), title + "-=答");
    // Another screen's number has another note.
    shell.menu.screen.number = 54;
    button.Refresh();
    EXPECT_FALSE(button.Is_Lit());
}

TEST_F(Note_Screen, A_Missing_Row_Is_Made_For_A_Text_Only) {
    Cn_Open(session).Execute("DELETE FROM QandA");
    Write("Advice", "");
    EXPECT_EQ(List("SELECT count(*) FROM QandA"), "0");
    Write("Advice", "答");
    EXPECT_EQ(Stored(), "現状分析－経営状況（Ｙ）=-=答");
}

} // namespace
} // namespace morvane::tests
