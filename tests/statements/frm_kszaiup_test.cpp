// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_kszaiup.h"

#include "batch/case_file.h"
#include "statements/frm_upcheck.h"
#include "statements/zaimu_calc.h"
#include "support/every_firm.h"
#include "support/sums.h"

#include <fstream>

namespace morvane::tests {
namespace {

/// The journal with its keyboard.
class Journal_Screen : public Grid_Screen {
  protected:
    Journal_Screen() : Grid_Screen("13", false) {}

    void Open() { Open_Screen(std::make_unique<Frm_KsZaiUP>(shell)); }
    void Section(std::size_t place) { Click(*form, ("Cmd_Upz(" + std::to_string(place) + ")").c_str()); }
    [[nodiscard]] std::string Panel(const std::string& name) const { return Shown(*form, name.c_str()); }
    /// A line of the panel: debit, credit, improved.
    [[nodiscard]] std::string Line(const std::string& name) const {
        return Panel(name + "(0)") + " " + Panel(name + "(1)") + " " + Panel(name + "(2)");
    }
    /// Accounts, their fields joined by =.
    [[nodiscard]] std::string Entries(const std::string& codes) const {
        return List("SELECT 借方, 貸方, 改善後残高 FROM Ks_Zaihyo WHERE 建設科目CD In (" + codes +
                    ") ORDER BY 建設科目CD");
    }
    /// How many rows of a range of accounts are shown.
    [[nodiscard]] std::string Rows_Between(int first, int last) const {
        return List("SELECT count(*) FROM Ks_Zaihyo WHERE 非表示識別=0 And 建設科目CD Between " +
                    std::to_string(first) + " And " + std::to_string(last));
    }
};

class Corporation_Journal : public Journal_Screen {
  protected:
    Corporation_Journal() { Make_Company(1, 1, 10); }
};

TEST_F(Corporation_Journal, Keys_Go_From_Debit_To_Credit_And_On) {
    using enum Qt::Key;
    constexpr auto control = Qt::ControlModifier;
    Open();
    EXPECT_EQ(Place(), "Kari(0)");
    Expect_Moves({{"Kari(0)", Key_Return, "Kasi(0)"},
                  {"Kasi(12)", Key_Return, "Kari(0)"},
                  {"Kari(13)", Key_Down, "Kari(0)"},
                  {"Kasi(0)", Key_Up, "Kasi(13)"},
                  {"Kasi(4)", Key_Left, "Kari(4)", control},
                  {"Kari(4)", Key_Down, "Kari(5)", control}});
    Enter("Kari(13)", "5");
    Enter("Kari(0)", "7a.");
    EXPECT_EQ(Cell("Kari(13)") + Cell("Kari(0)"), "77") << "a total is locked";
    // From section to section, over the one without accounts.
    for (const auto& [key, section, place] : {std::tuple(Key_PageDown, 61, "Kari(0)"),
                                              {Key_PageUp, 60, "Kari(0)"},
                                              {Key_PageUp, 71, "Cmd_Upz(11)"},
                                              {Key_PageDown, 60, "Kari(0)"}}) {
        Key(key, control);
        EXPECT_EQ(shell.menu.screen.number, section);
        EXPECT_EQ(Place(), place);
    }
}

TEST_F(Corporation_Journal, Sections_Have_Their_Titles_And_Ranges) {
    // Place, first and last account, title of a corporation and of an individual
    const std::tuple<std::size_t, int, int, std::array<const char*, 2>> sections[] = {
        {2, 150, 199, {"貸借対照表－無形固定資産、投資等、繰延資産", "貸借対照表－無形固定資産、投資等"}},
        {4, 250, 299, {"貸借対照表－資本金、剰余金", "貸借対照表－期首資本金、事業主勘定"}},
        {8, 490, 529, {"損益計算書－特別損益、損益処分", "損益計算書－特別損益、損益処分"}},
        {11, 600, 639, {"利益処分", "利益処分"}}};
    for (const std::size_t type : {0U, 1U}) {
        Make_Company(1, static_cast<std::int16_t>(type + 1), 10);
        Put_Amounts({{300, 30}, {310, 4}});
        Open();
        EXPECT_EQ(form->objectName(), type == 0 ? "Frm_KsZaiUP" : "Frm_KsZaiUPKJ");
        for (const auto& [place, first, last, titles] : sections) {
            Section(place);
            EXPECT_EQ(Panel("Lbl_SubTitle"), titles[type]);
            EXPECT_EQ(std::to_string(grid->Row_Count()), Rows_Between(first, last));
        }
        if (type == 0) {
            EXPECT_EQ(Panel("BsIp_Hyok(2)") + " " + Panel("BsIp_Skb(2)"), "30 4") << "beyond the section";
        }
        Press("Cmd_Upz(13)");
    }
}

TEST_F(Journal_Screen, Balances_Follow_The_Side_Of_The_Account) {
    /// An entry of 100 to the debit and 30 to the credit, what the screen shows beside it and what is stored.
    // first: account of the section
    // shown: 改善後残高 on the screen
    const std::tuple<const char*, std::int16_t, std::size_t, int, int, const char*, const char*> entries[] = {
        {"debit-normal", 1, 0, 100, 100, "1,070", "100=30=1070"},
        {"credit-normal", 1, 3, 200, 200, "930", "100=30=930"},
        {"drawings", 2, 4, 250, 273, "-930", "100=30=-930"},
        {"treasury shares", 1, 4, 250, 290, "1,070", "100=30=1070"},
        {"depreciation", 1, 1, 130, 131, "930", "100=30=930"},
        {"goods made", 1, 10, 700, 702, "0", "0=0=0"},
        {"cost of goods made", 1, 10, 700, 720, "1,070", "100=30=1070"},
        {"oldest appropriation", 1, 8, 490, 523, "-930", "100=30=1070"},
    };
    for (const auto& [name, type, place, first, code, shown, stored] : entries) {
        SCOPED_TRACE(name);
        Make_Company(1, type, 10);
        Run({"INSERT INTO Ks_Zaihyo (決算期, 建設科目CD, 金額編集識別, 非表示識別, 貸借正負) "
             "VALUES (10, 523, -1, 0, 1)"});
        if (code != 702) {
            Put_Amounts({{code, 1000}});
        }
        Open();
        Section(place);
        const std::string row = "(" + Rows_Between(first, code - 1) + ")";
        Enter("Kari" + row, "100");
        Enter("Kasi" + row, "30");
        EXPECT_EQ(Cell("Zan" + row), shown);
        Press("Tojiru");
        EXPECT_EQ(Entries(std::to_string(code)), stored);
    }
}

TEST_F(Corporation_Journal, A_Block_Is_Pasted_And_Taken_Back_With_The_Book_Values_That_Followed) {
    Put_Amounts({{130, 1000}, {131, 400}, {132, 600}});
    Open();
    Section(1);
    const auto cells = [this] { return Cells("Kari", 0, 3) + Cells("Kasi", 0, 3) + Cells("Zan", 0, 3); };
    const std::string before = cells();
    Paste("¥1,000\t\r\n\t10\r\n9\t9\r\nabc\t５\r\n");
    EXPECT_EQ(cells(), "1000||1,000||"
                       "|10|-10|5|"
                       "2,000|410|1,610|-5|");
    EXPECT_EQ(Titles(), "貼り付けエラー");
    EXPECT_EQ(Line("BsIp_Yks"), "1,000 -5 1,585");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(cells(), before);
    EXPECT_EQ(Panel("BsIp_SSKei(2)"), "600");
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Panel("BsIp_SSKei(2)"), "1,585");
    Section(0);
    Key(Qt::Key_Z, Qt::ControlModifier); // what was stored is not taken back
    EXPECT_EQ(Entries("130, 131, 132, 149"), "1000=-=2000 -=10=410 1000=-10=1610 1000=-5=1585")
        << "leaving the section stores it";
}

TEST_F(Corporation_Journal, Opening_Fills_Balances_And_Leaves_The_Scenario_Unstarted) {
    Put_Amounts({{100, 500}, {400, 900}});
    Put_Amounts({{400, 40}}, "貸方");
    Open();
    Press("Tojiru");
    EXPECT_EQ(Entries("100, 400"), "-=-=500 -=40=940");
    EXPECT_EQ(List("SELECT count(改善後0) FROM W_Yoso"), "0");
    EXPECT_FALSE(Load_Review(Cn_Open(session), Side_In_Hand(session, Scenario::Kaizen), session.Kind())
                     .Is_Started(Scenario::Kaizen));
}

TEST_F(Corporation_Journal, Every_Button_Asks_And_Stores_As_It_Says) {
    // question: none asks nothing
    const std::tuple<const char*, const char*, const char*, const char*> buttons[] = {
        {"BLCheck", "70=-=570", "Frm_UPCheck",
         "編集保存確認：編集中の改善財務諸表を一旦保存します。\nよろしいですか？"},
        {"Y_Disp", "70=-=570", "Frm_KeieiKz",
         "編集保存確認：編集中の財務諸表を一旦保存します。\nよろしいですか？"},
        {"Cmd_Upz(12)", "70=-=570", "Frm_PrKSZaiSti", nullptr},
        {"DtClear", "-=-=500", "",
         "全改善データ消去確認：全改善データ（貸方・借方）を消去します。\nよろしいですか？"},
        {"Canseru", "70=-=570", "",
         "編集破棄確認：編集中の建設財務諸表を保存せずに終了します。\n編集内容は保存されません。よろしいです"
         "か？"}};
    for (const auto& [name, in_store, opens, question] : buttons) {
        SCOPED_TRACE(name);
        Make_Company(1, 1, 10);
        Put_Amounts({{100, 500}, {200, 30}});
        Put_Amounts({{200, 9}}, "借方");
        Open();
        Enter("Kari(0)", "70");
        std::string opened;
        shell.on_open_form = [&](const QString& screen) {
            opened += screen.toStdString();
            EXPECT_TRUE(screen != QLatin1String("Frm_KeieiKz") ||
                        (shell.menu.mode == Sim_Mode::Improvement &&
                         shell.menu.screen.title == "改善シミュレーション－Ｙ点試算"));
        };
        messages.shown.clear();
        if (question != nullptr) {
            Click(*form, name);
            EXPECT_EQ(Last_Box(), question);
            EXPECT_TRUE(opened.empty() && form->isVisible()) << "No is the default";
            EXPECT_EQ(Entries("100"), "-=-=500");
            messages.answers = {Answer::Yes};
        }
        Click(*form, name);
        EXPECT_EQ(Entries("100"), in_store);
        EXPECT_EQ(opened, opens);
        EXPECT_EQ(form->isVisible(), std::string_view(name) != "Canseru");
        EXPECT_EQ(shell.menu.screen.title, "貸借対照表－流動資産");
        if (std::string_view(name) == "DtClear") {
            EXPECT_EQ(Cell("Kari(0)") + Entries("200"), "-=-=30");
        }
    }
}

TEST_F(Journal_Screen, The_Check_Lays_Improved_And_Current_Statements_Beside_Each_Other) {
    // The controls of the improved column and the accounts behind them; "Ks" stands in those of the current
    // one.
    const char* const of_both =
        "BsIp_Rds=129 BsIp_KtsKei=179 BsIp_SSKei=199 BsIp_Rdf=229 BsIp_Ktf=248 "
        "BsIp_FSiKei=249 bsIp_SHKei=319 BsIp_FSSKei=399 PLIp_Kkg=419-418 PLIp_Kng=418 "
        "PLIp_Kug=419 PLIp_Ipk=468 PLIp_EgrKei=469 PLIp_Egs=479 PLIp_Egh=488 "
        "PLIp_KjrKei=489 ";
    const char* const of_one[] = {
        "BsIp_KnsKei=189 BsIp_Shk=250+251 BsIp_Hjk=281 BsIp_Rjkei=289 BsIp_JKabu=291+290 BsIp_KKbkei=298 "
        "BsIp_Hyok=303 BsIp_Skb=310 PLIp_Tbr=499 PLIp_Tbs=509 PLIp_ZtrKei=510 PLIp_Hjz=511+512 "
        "PLIp_TkrKei=519 "
        "Chk_ZRki=838 Chk_TJrki=519 Chk_TRki=281 chk_Tkhendo=901 Chk_Sa=838+519-281-901",
        "BsIp_Shk=250+251-273 BsIp_Msr=281 Chk_Tai=281 Chk_Son=529 Chk_Sa=281-529"};
    for (const int type : {1, 2}) {
        Make_Company(1, static_cast<std::int16_t>(type), 10);
        Run({"UPDATE Ks_Zaihyo SET 改善後残高=123456789000000+建設科目CD*建設科目CD, 金額=-建設科目CD"});
        const Frm_UPCheck check(shell);
        const auto text = [&check](const std::string& name) {
            const auto* label = check.findChild<QLabel*>(QString::fromStdString(name));
            return label == nullptr ? "no " + name : label->text().toStdString();
        };
        const auto lines = Read_Sums(std::string(of_both) + of_one[type - 1]);
        for (const auto& [name, terms] : lines) {
            const std::size_t prefix = name.find('_');
            const std::string place = name.substr(0, name[0] == 'C' || name[0] == 'c' ? prefix : 2);
            double improved = 0.0;
            double current = 0.0;
            for (const Term& term : terms) {
                improved += term.sign * (123456789000000.0 + term.first * term.first);
                current -= term.sign * term.first;
            }
            EXPECT_EQ(text(name), Comma_Str(improved)) << name;
            EXPECT_EQ(text(place + "Ks" + name.substr(prefix)), Comma_Str(current)) << name;
        }
        EXPECT_EQ(lines.size(), type == 1 ? 34U : 21U);
        EXPECT_EQ(text("Check"), type == 1 ? "チェック ⇒ Ｎｏ！" : "チェック ⇒ Ｎｏ？");
        for (const auto& [column, ok] : {std::pair("改善後残高", false), {"金額", true}}) {
            Run({std::string("UPDATE Ks_Zaihyo SET ") + column + "=5"});
            EXPECT_EQ(Shown(*std::make_unique<Frm_UPCheck>(shell), "Check") == "チェック ⇒ ＯＫ！", ok)
                << "both";
        }
    }
}

/// Firms at random, keyed through the screen.
class Keyed_Journal : public Every_Firm {
  protected:
    void Key_Sections() {
        for (int visits = 0; visits < 8; ++visits) {
            Click(*form, ("Cmd_Upz(" + std::to_string(Up_To(10)) + ")").c_str());
            for (int entries = 0; entries < 5; ++entries) {
                const std::string row = "(" + std::to_string(random() % grid->Row_Count()) + ")";
                Enter((Up_To(1) == 0 ? "Kari" : "Kasi") + row,
                      (Up_To(5) == 0 ? "-" : "") + std::to_string(Up_To(900'000)) + "000");
            }
        }
    }

    /// What the panel showed of the three columns is what is stored, where it has a row: 資本金・剰余金等 has
    /// none, and the profit row of the Hokkaido form is not the journal's.
    void Expect_Stored() const {
        const Account_Book book = Read_Journal(Cn_Open(session), session);
        for (const Statement_Line& line : Statement_Lines(Statement_Form_Of(session.Kind()))) {
            const std::string_view name = line.control;
            const bool left = name == "BsIp_Shk" || (session.Is_Hokkaido() && name == "PLIp_Ksr");
            for (std::size_t column = 0; column < 3 && !left; ++column) {
                const std::string control = line.control + ("(" + std::to_string(column) + ")");
                EXPECT_EQ(Shown(*form, control.c_str()),
                          Comma_Str(Value(book.Sum(line.figures)[column].Count())))
                    << control;
            }
        }
    }

    [[nodiscard]] float Y_Points() const {
        return Score_Company(Cn_Open(session), session.Kind().edition, {10, Scenario::Kaizen}).y.points;
    }
};

INSTANTIATE_TEST_SUITE_P(All, Keyed_Journal, Every_Kind);

TEST_P(Keyed_Journal, What_Is_Stored_Is_What_The_Batch_Tool_Scores) {
    Make_Firm();
    Run({"UPDATE Ks_Zaihyo SET 金額=(建設科目CD * 7919 + 104729 * " + std::to_string(Up_To(999)) +
         ") % 900000 * 1000 WHERE 金額編集識別<>0 And 非表示識別=0 And 建設科目CD % 4<>0 And "
         "建設科目CD<900"});
    Zaimu_Shukei(session, Amount_Column::Current);
    Store_Firm(session, Side_In_Hand(session, Scenario::Kaizen), Generated_Firm(Law(), random));
    Settle_Again(session);
    current = Stored(Scenario::Genjo);
    const float points = Y_Points();
    Open_Screen(std::make_unique<Frm_KsZaiUP>(shell));
    Key_Sections();
    Press("Tojiru");
    EXPECT_NE(Y_Points(), points) << "the entries reach the scores";
    Expect_Stored();
    Expect_Scored();
    // A case file that is written and read back gives the same.
    const std::filesystem::path file = folder.path / "case.json";
    std::ofstream(file) << Case_Text(Export_Case(session, session.Work_Store));
    Import_Case(session, file);
    Expect_Scored();
}

} // namespace
} // namespace morvane::tests
