// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_kszenki.h"

#include "company/data_set.h"
#include "review/y_calc.h"
#include "screens/frm_ysisan.h"
#include "session/kyotu_mod.h"
#include "statements/frm_kshendo.h"
#include "statements/zaimu_calc.h"
#include "support/grid_screen.h"

namespace morvane::tests {
namespace {

/// Period 12 in hand behind two periods with figures.
class Prior_Screen : public Grid_Screen {
  protected:
    Prior_Screen() {
        Make_Company(1, 1, 10);
        Period_Copy(session, 11, 10, Copy_Mode::After);
        Period_Copy(session, 12, 11, Copy_Mode::After);
        session.Syori_Ki = 12;
        Run({"UPDATE Ks_Zaihyo SET 金額=決算期*1000+建設科目CD WHERE 決算期<12",
             "UPDATE Ks_Zaihyo SET 金額=5, 改善後残高=6 WHERE 決算期=12"});
    }

    template <class Screen>
    void Open() {
        Open_Screen(std::make_unique<Screen>(shell));
        for (Entry_Grid* block : form->findChildren<Entry_Grid*>()) {
            second = block;
        }
    }
    [[nodiscard]] std::string Stored(const char* codes) const {
        return List("SELECT 金額, 改善後残高 FROM Ks_Zaihyo WHERE 決算期=12 And 建設科目CD In (" +
                    std::string(codes) + ") ORDER BY 建設科目CD");
    }

    Entry_Grid* second = nullptr;
};

TEST_F(Prior_Screen, Both_Blocks_Are_Keyed_And_Stored_Twice) {
    Open<Frm_KsZenki>();
    EXPECT_EQ(Cell("Kamk(18)"), "繰越利益剰余金");
    EXPECT_EQ(second->Row_Count(), 9);
    Enter("Gaku(0)", "700");
    Enter("Gaku(1)", "");
    ASSERT_TRUE(second->Focus_Cell("ZGaku(8)"));
    Type("-3");
    Press("Tojiru");
    EXPECT_EQ(Stored("808, 820, 821"), "-3=-3 700=700 5=6") << "a blank leaves what was stored";
}

TEST_F(Prior_Screen, A_Copied_Block_Is_Shown_And_The_Other_Keeps_Its_Keys) {
    Open<Frm_KsZenki>();
    Type("700");
    Click(*form, "ZZen_copy");
    EXPECT_EQ(second->Cell_Text("ZGaku(0)"), "5") << "No is the default";
    messages.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
    Click(*form, "ZZen_copy");
    EXPECT_EQ(second->Cell_Text("ZGaku(0)"), "10,101");
    EXPECT_EQ(Cell("Gaku(0)"), "700");
    Click(*form, "Zen_Copy");
    EXPECT_EQ(Cell("Gaku(18)"), "11,281");
    Press("Canseru");
    EXPECT_EQ(Last_Box(), "編集破棄確認：編集中の前期建設財務諸表を保存せずに終了します。\n"
                          "編集内容は保存されません。よろしいですか？");
    EXPECT_EQ(Stored("800, 838"), "10101=10101 11281=11281");
}

TEST_F(Prior_Screen, An_Individual_Does_Not_See_The_Retained_Earnings) {
    session.Hojin_Kojin = Firm_Type::Individual;
    Open<Frm_KsZenki>();
    EXPECT_EQ(form->objectName().toStdString(), "Frm_KsZenkiKJ");
    EXPECT_EQ(Shown(*form, "Lbl_SubTitle"), "前期関連データ");
    EXPECT_EQ(grid->Row_Count(), 18);
}

TEST_F(Prior_Screen, The_Change_Of_Equity_Is_Stored_And_A_Blank_Is_Zero) {
    for (const auto& [keys, stored] : {std::pair("-45", "-45=-45"), {"", "0=0"}}) {
        Open<Frm_KsHendo>();
        Key(Qt::Key_Delete);
        Type(keys);
        Press("Tojiru");
        EXPECT_EQ(Stored("901"), stored);
    }
}

TEST_F(Prior_Screen, The_Look_At_Y_Shows_Elements_Indicators_And_Score) {
    Put_Amounts({{100, 3e8}, {139, 4e8}, {200, 1e8}, {250, 5e8}, {400, 2e9}, {530, 1.2e9}});
    Zaimu_Shukei(session, Amount_Column::Current);
    const Y_Result y = Calc_Y(session, Side_In_Hand(session));
    Open<Frm_YSisan>();
    EXPECT_EQ(form->windowTitle().toStdString(), "建設財務諸表入力時 Ｙ点試算");
    const std::pair<const char*, std::string> shown[] = {
        {"Yoso(0)", "2,000,000"},
        {"Yoso(6)", Comma_Str(y.elements[y_element::prior_cash_flow])},
        {"Yoso(7)", "400,000"},
        {"kekka5", Fixed_Str(y.indicators[4], 3)},
        {"Y", Comma_Str(y.score)}};
    for (const auto& [control, text] : shown) {
        EXPECT_EQ(Shown(*form, control), text) << control;
    }
    Press("Tojiru");
}

} // namespace
} // namespace morvane::tests
