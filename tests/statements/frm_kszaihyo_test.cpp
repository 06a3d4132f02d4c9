// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_kszaihyo.h"

#include "session/kyotu_mod.h"
#include "support/grid_screen.h"

namespace morvane::tests {
namespace {

/// A statement screen of a corporation.
class Statement_Screen : public Grid_Screen {
  protected:
    Statement_Screen() { Make_Company(1, 1, 10); }

    void Open(std::uint8_t screen_no) {
        shell.menu.screen.number = screen_no;
        Open_Screen(std::make_unique<Frm_KsZaihyo>(shell));
    }
};

TEST_F(Statement_Screen, What_Is_No_Figure_Changes_Nothing) {
    Put_Amounts({{100, 1000}, {101, 123456789012.0}, {129, 1}});
    Open(41);
    Expect_Moves({{"Gaku(13)", Qt::Key_Return, "Gaku(0)"},
                  {"Gaku(0)", Qt::Key_Up, "Gaku(13)"},
                  {"Kamk(0)", Qt::Key_Left, "Gaku(13)", Qt::ControlModifier},
                  {"Gaku(4)", Qt::Key_Right, "Kamk(3)", Qt::ControlModifier}});
    Enter("Gaku(0)", "7a.");
    EXPECT_EQ(Cells("Gaku", 0, 1), "7|123456789012|") << "a stored figure is never cut";
    Enter("Gaku(1)", "123456789012");
    EXPECT_EQ(Cell("Gaku(1)"), "12,345,678,901");
    Enter("Gaku(0)", "--5");
    EXPECT_EQ(Place(), "Gaku(0)");
    EXPECT_EQ(Cell("Gaku(0)"), "7");
    EXPECT_EQ(Shown(*form, "BsIp_Rds"), "12,345,678,908");
    Enter("Gaku(13)", "5");
    Enter("Kamk(0)", "x");
    Press("Tojiru");
    EXPECT_EQ(Amount(129), 12345678908.0);
    EXPECT_EQ(Field("Ks_Zaihyo", "建設科目名", "建設科目CD=100").As_Text(), "現金預金");
}

TEST_F(Statement_Screen, The_Check_Turns_With_A_Yen) {
    Put_Amounts({{100, 500}, {838, 300}, {901, -200}});
    Open(41);
    for (const auto& [check, difference] : {std::pair{"ＯＫ！", "0"}, {"Ｎｏ！", "-1"}}) {
        EXPECT_EQ(Shown(*form, "Check"), std::string("チェック ⇒ ") + check);
        EXPECT_EQ(Shown(*form, "Chk_Sa"), difference);
        Enter("Gaku(0)", "501");
    }
}

TEST_F(Statement_Screen, A_Column_Is_Pasted_Whole) {
    Put_Amounts({{130, 10}, {131, 4}, {133, 20}});
    Open(42);
    Paste("¥1,000\r\n300\r\n9\r\n２０\r\nabc\r\n\r\n(50)\r\n");
    EXPECT_EQ(Cells("Gaku", 0, 9), "1000|300|700|20||20|-50||-50||") << "book values are not pasted over";
    EXPECT_PRED2(Has, Last_Box(), "貼り付けエラー：");
    EXPECT_PRED2(Has, Last_Box(), "」の「金額」：abc");
    EXPECT_FALSE(Has(Last_Box(), "行目")) << "the account is named";
    Press("Tojiru");
    EXPECT_EQ(List("SELECT 金額 FROM Ks_Zaihyo WHERE 建設科目CD Between 130 And 136 ORDER BY 建設科目CD"),
              "1000 300 700 20 - 20 -50");
}

TEST_F(Statement_Screen, Captions_Are_Keyed_And_Pasted_Where_They_Are_Open) {
    Open(41);
    ASSERT_TRUE(grid->Focus_Cell("Kamk(4)"));
    Paste("電子記録債権\t700\r\n");
    for (int columns = 0; columns < 2; ++columns) {
        Key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    }
    EXPECT_EQ(grid->Copied_Text().toStdString(), "電子記録債権\t700\n");
    for (const char* keys : {"x", ""}) {
        Enter("Kamk(11)", keys);
    }
    Enter("Gaku(11)", "0");
    EXPECT_EQ(Cell("Gaku(4)"), "700") << "the mark of deduction between them is no column of a paste";
    Press("Tojiru");
    EXPECT_EQ(
        List("SELECT 建設科目名, 金額 FROM Ks_Zaihyo WHERE 建設科目CD In (105, 112) ORDER BY 建設科目CD"),
        "電子記録債権=700 -=0");
}

TEST_F(Statement_Screen, Cancelling_Asks_And_Stores_Nothing_That_Was_Keyed) {
    Put_Amounts({{100, 500}});
    Open(41);
    Type("9999");
    Click(*form, "Canseru");
    EXPECT_TRUE(form->isVisible()) << "No is the default";
    EXPECT_EQ(Last_Box(), "編集破棄確認：編集中の建設財務諸表を保存せずに終了します。\n"
                          "編集内容は保存されません。よろしいですか？");
    // Esc takes a typed text back first, and then asks the same.
    grid->Focus_Cell("Gaku(0)");
    Type("777");
    messages.shown.clear();
    Key(Qt::Key_Escape);
    EXPECT_EQ(Titles() + Cell("Gaku(0)"), "9999");
    messages.answers = {Answer::Yes};
    Key(Qt::Key_Escape);
    EXPECT_EQ(Titles(), "編集破棄確認");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Amount(100), 500.0);
    EXPECT_EQ(Amount(129, "改善後残高"), 500.0);
}

TEST_F(Statement_Screen, Y_Opens_From_A_Balanced_Statement_With_What_Was_Just_Keyed) {
    Put_Amounts({{100, 3000}, {139, 4000}, {200, 1000}, {250, 5000}, {400, 2000}, {530, 1200}, {838, 150}});
    Open(41);
    Type("2950");
    messages.answers = {Answer::Yes};
    Click(*form, "Y_Disp");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(shell.calls, (std::vector<std::string>{"Open_Form Frm_YSisan"}));
    EXPECT_EQ(Amount(399), 6950.0);
}

} // namespace
} // namespace morvane::tests
