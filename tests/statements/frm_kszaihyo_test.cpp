// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_kszaihyo.h"

#include "session/kyotu_mod.h"
#include "support/account_screen.h"
#include "support/failing_writes.h"

namespace morvane::tests {
namespace {

/// A statement screen of a corporation.
class Statement_Screen : public Account_Screen {
  protected:
    Statement_Screen() { Make_Company(1, 1, 10); }

    void Open(std::uint8_t screen_no) {
        shell.menu.screen.number = screen_no;
        Open_Screen<Frm_KsZaihyo>();
    }
};

TEST_F(Statement_Screen, Keys_Go_Round_In_The_Column_And_Across_The_Rows) {
    using enum Qt::Key;
    constexpr auto plain = Qt::NoModifier;
    constexpr auto control = Qt::ControlModifier;
    Open(41);
    EXPECT_EQ(Place(), "Gaku(0)");
    Expect_Moves({{"Gaku(0)", Key_Return, plain, "Gaku(1)"},
                  {"Gaku(12)", Key_Down, plain, "Gaku(13)"},
                  {"Gaku(13)", Key_Return, plain, "Gaku(0)"},
                  {"Gaku(0)", Key_Up, plain, "Gaku(13)"},
                  {"Kamk(13)", Key_Down, plain, "Kamk(0)"},
                  {"Kamk(0)", Key_Up, plain, "Kamk(13)"},
                  {"Kamk(4)", Key_Right, control, "Gaku(4)"},
                  {"Kamk(4)", Key_Left, control, "Gaku(3)"},
                  {"Kamk(0)", Key_Left, control, "Gaku(13)"},
                  {"Gaku(4)", Key_Left, control, "Kamk(4)"},
                  {"Gaku(4)", Key_Right, control, "Kamk(3)"},
                  {"Gaku(0)", Key_Right, control, "Kamk(13)"}});
}

TEST_F(Statement_Screen, What_Is_No_Figure_Changes_Nothing) {
    Put_Amounts({{100, 1000}, {101, 123456789012.0}, {129, 1}});
    Open(41);
    Type("7a.");
    Key(Qt::Key_Down);
    EXPECT_EQ(Cells("Gaku", 0, 1), "7|123456789012|") << "a stored figure is never cut";
    Type("123456789012");
    Key(Qt::Key_Up);
    EXPECT_EQ(Cell("Gaku(1)"), "12,345,678,901");
    Type("--5");
    Key(Qt::Key_Return);
    EXPECT_EQ(Place(), "Gaku(0)");
    EXPECT_EQ(Cell("Gaku(0)"), "7");
    EXPECT_EQ(Shown(*form, "BsIp_Rds"), "12,345,678,908");
    ASSERT_TRUE(grid->Focus_Cell("Gaku(13)"));
    Type("5");
    Key(Qt::Key_Delete);
    ASSERT_TRUE(grid->Focus_Cell("Kamk(0)"));
    Type("x");
    Click(*form, "Tojiru");
    EXPECT_EQ(Amount(129), 12345678908.0);
    EXPECT_EQ(Field("Ks_Zaihyo", "建設科目名", "建設科目CD=100").As_Text(), "現金預金");
}

// The panel of each form is held against the store by the test of the sections; here are the labels of the
// window.
TEST_F(Statement_Screen, The_Panel_Shows_At_Each_Key_What_Is_Stored_At_The_End) {
    const struct {
        std::uint8_t screen_no;
        std::vector<std::pair<const char*, int>> moved; ///< control, account behind it
        std::vector<int> book_values;                   ///< accounts two lines below their cost
    } screens[] = {{42,
                    {{"BsIp_Yks", 149}, {"BsIp_SSKei", 199}, {"BsIp_Krj", 281}, {"Chk_TRki", 281}},
                    {132, 135, 138, 142, 146}},
                   {45, {{"BsIp_KKbkei", 298}, {"BsIp_Krj", 281}}, {}},
                   {50, {{"PLIp_Ksr", 417}, {"PLIp_TkrKei", 519}}, {}}};
    for (const auto& screen : screens) {
        Open(screen.screen_no);
        for (int row = 0; row < grid->Row_Count(); ++row) {
            if (!grid->Is_Locked(row, 2)) { // Enter passes the others by
                ASSERT_EQ(Place(), "Gaku(" + std::to_string(row) + ")");
                Type(row % 7 == 3 ? "-" + std::to_string(1000 + row) : std::to_string(1'000'000 * (row + 1)));
                Key(Qt::Key_Return);
            }
        }
        std::vector<std::pair<int, std::string>> shown;
        for (const auto& [control, code] : screen.moved) {
            shown.emplace_back(code, Shown(*form, control));
        }
        std::vector<std::string> books;
        for (const int code : screen.book_values) {
            books.push_back(Cell("Gaku(" + std::to_string(code - 130) + ")"));
        }
        Click(*form, "Tojiru");
        EXPECT_FALSE(form->isVisible());
        for (const auto& [code, text] : shown) {
            EXPECT_EQ(text, Comma_Str(Value(Amount(code)))) << code;
            EXPECT_NE(Amount(code), 0.0) << code;
            EXPECT_EQ(Amount(code), Amount(code, "改善後残高")) << code;
        }
        for (std::size_t i = 0; i < books.size(); ++i) {
            const int code = screen.book_values[i];
            EXPECT_EQ(books[i], Comma_Str(Value(Amount(code - 2) - Amount(code - 1)))) << code;
        }
    }
}

TEST_F(Statement_Screen, The_Check_Turns_With_A_Yen) {
    Put_Amounts({{100, 500}, {838, 300}, {901, -200}});
    Open(41);
    EXPECT_EQ(Shown(*form, "Check"), "チェック ⇒ ＯＫ！");
    Type("501");
    Key(Qt::Key_Down);
    EXPECT_EQ(Shown(*form, "Check"), "チェック ⇒ Ｎｏ！");
    EXPECT_EQ(Shown(*form, "Chk_Sa"), "-1");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Shown(*form, "Check"), "チェック ⇒ ＯＫ！");
}

TEST_F(Statement_Screen, A_Column_Is_Pasted_Whole_And_Taken_Back_Whole) {
    Put_Amounts({{130, 10}, {131, 4}, {133, 20}});
    Open(42);
    const std::string before = Cells("Gaku", 0, 9);
    Paste("¥1,000\r\n300\r\n9\r\n２０\r\nabc\r\n\r\n(50)\r\n");
    EXPECT_EQ(Cells("Gaku", 0, 9), "1000|300|700|20||20|-50||-50||") << "book values are not pasted over";
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, "貼り付けエラー");
    EXPECT_NE(messages.shown[0].text.find("」の「金額」：abc"), std::string::npos) << messages.shown[0].text;
    EXPECT_EQ(messages.shown[0].text.find("行目"), std::string::npos) << "the account is named";
    EXPECT_EQ(Shown(*form, "BsIp_Yks"), "670");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Cells("Gaku", 0, 9), before);
    EXPECT_EQ(Shown(*form, "BsIp_Yks"), "26");
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Shown(*form, "BsIp_SSKei"), "670");
    Click(*form, "Tojiru");
    EXPECT_EQ(List("SELECT 金額 FROM Ks_Zaihyo WHERE 建設科目CD Between 130 And 136 ORDER BY 建設科目CD"),
              "1000 300 700 20 - 20 -50");
}

TEST_F(Statement_Screen, Captions_Are_Keyed_And_Pasted_Where_They_Are_Open) {
    Open(41);
    ASSERT_TRUE(grid->Focus_Cell("Kamk(4)"));
    Paste("電子記録債権\t700\r\n");
    Key(Qt::Key_Down);
    ASSERT_TRUE(grid->Focus_Cell("Kamk(11)"));
    Type("x");
    EXPECT_EQ(Cell("Gaku(4)"), "700") << "the mark of deduction between them is no column of a paste";
    Click(*form, "Tojiru");
    EXPECT_EQ(List("SELECT 建設科目名 FROM Ks_Zaihyo WHERE 建設科目CD In (105, 112) ORDER BY 建設科目CD"),
              "電子記録債権 x");
}

TEST_F(Statement_Screen, Cancelling_Asks_And_Stores_Nothing_That_Was_Keyed) {
    Put_Amounts({{100, 500}});
    Open(41);
    Type("9999");
    Click(*form, "Canseru");
    EXPECT_TRUE(form->isVisible()) << "No is the default";
    EXPECT_EQ(messages.shown.back().title, "編集破棄確認");
    EXPECT_EQ(messages.shown.back().text, "編集中の建設財務諸表を保存せずに終了します。\n"
                                          "編集内容は保存されません。よろしいですか？");
    // Esc takes a typed text back first, and then asks the same.
    grid->Focus_Cell("Gaku(0)");
    Type("777");
    messages.shown.clear();
    Key(Qt::Key_Escape);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(Cell("Gaku(0)"), "9999");
    messages.answers = {Answer::Yes};
    Key(Qt::Key_Escape);
    EXPECT_EQ(messages.shown.back().title, "編集破棄確認");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Amount(100), 500.0);
    EXPECT_EQ(Amount(129, "改善後残高"), 500.0);
}

TEST_F(Statement_Screen, A_Failing_Store_Leaves_The_Screen_And_A_Second_Close_Works) {
    Put_Amounts({{139, 4000}, {400, 2000}, {530, 1200}});
    Open(41);
    Type("9999");
    for (const char* button : {"Tojiru", "Y_Disp"}) {
        for (const int n : {1, 4, 9}) {
            messages.answers = {Answer::Yes};
            const Failing_Writes failing(n, Failing_Writes::Manner::From_Then_On);
            Click(*form, button);
            EXPECT_TRUE(failing.Has_Failed());
            EXPECT_TRUE(shell.failure.empty()) << "the process would end";
            EXPECT_EQ(grid->Get_Value("Gaku(0)"), Value(9999.0));
        }
    }
    ASSERT_TRUE(form->isVisible());
    EXPECT_NE(messages.shown.back().text.find("Morvane.dat"), std::string::npos);
    Click(*form, "Tojiru");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Amount(129), 9999.0);
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
