// SPDX-FileCopyrightText: The Morvane developers
#include "app/menu_table.h"

#include "app/form_table.h"
#include "app/gates.h"
#include "law/law_year.h"
#include "support/installation_fixture.h"

#include <algorithm>
#include <set>

namespace morvane::tests {
namespace {

class Menu_Test : public Installation {
  protected:
    Menu_Test() {
        Make_Company(7, 1, 3);
        for (const Menu_Group& group : Menu_Groups()) {
            entries.insert(entries.end(), group.entries.begin(), group.entries.end());
        }
        for (const Menu_Panel& panel : Menu_Panels()) {
            entries.insert(entries.end(), panel.entries.begin(), panel.entries.end());
        }
    }

    [[nodiscard]] const Menu_Entry& Entry(const std::string& name) const {
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [&](const Menu_Entry& entry) { return entry.name == name; });
        return found != entries.end() ? *found : throw std::out_of_range(name);
    }

    /// The title of the screen that an entry opens.
    std::string Title_Of(const char* entry) {
        EXPECT_TRUE(Enter_Screen(session, menu, Entry(entry)));
        return menu.screen.title;
    }

    std::vector<Menu_Entry> entries;
    Menu_State menu;
};

TEST_F(Menu_Test, Every_Entry_Leads_Somewhere_In_Both_Firm_Types_And_All_Law_Years) {
    std::set<std::string> names;
    for (const Menu_Entry& entry : entries) {
        EXPECT_TRUE(names.insert(entry.name).second) << entry.name;
        for (int kind = 0; kind < 8; ++kind) {
            session.Hojin_Kojin = kind % 2 == 0 ? Firm_Type::Corporation : Firm_Type::Individual;
            session.Simyu_Kubun = Law_Of(1 + kind / 2).code;
            if (entry.action == Menu_Action::Open_Form) {
                EXPECT_NE(Find_Form(Form_Of(entry, session)), nullptr) << entry.name;
            } else if (entry.action == Menu_Action::Open_Panel) {
                EXPECT_NO_THROW(Panel_Of(entry.target)) << entry.name;
            }
        }
    }
    EXPECT_EQ(names.size(), 13U + 38U);
}

TEST_F(Menu_Test, An_Entry_Tells_Title_By_Firm_Type) {
    EXPECT_EQ(Title_Of("Cmd_KsT(4)"), "貸借対照表－資本金、法定準備金、剰余金");
    EXPECT_EQ(menu.screen.number, 45);
    EXPECT_EQ(Caption_After_Registration(session), "利益処分");
    session.Data_Ver = Data_Form_No::Form_2;
    EXPECT_EQ(Title_Of("Cmd_KsT(4)"), "貸借対照表－資本金、利益剰余金、評価・換算差額等");
    EXPECT_EQ(Caption_After_Registration(session), "変動計算書");
    session.Hojin_Kojin = Firm_Type::Individual;
    EXPECT_EQ(Title_Of("Cmd_KsT(4)"), "貸借対照表－期首資本金、事業主勘定");
    EXPECT_EQ(Caption_Of(Entry("Cmd_KsT(2)"), session), " 無形固定資産  投資等");
    EXPECT_EQ(Form_Of(Entry("Cmd_KsT(2)"), session), "Frm_KsZaihyoKJ");
    EXPECT_FALSE(Is_Enabled(Entry("Cmd_KsS(3)"), session));
    session.Simyu_Kubun = Law_Of(4).code;
    EXPECT_EQ(Form_Of(Entry("Cmd_UpS(2)"), session), "Frm_Syokutakaiz_2012");
    ASSERT_TRUE(Enter_Panel(session, menu, Entry("Cmd_Sim2")));
    EXPECT_EQ(menu.sim_title, "改善シミュレーション");
    EXPECT_EQ(menu.mode, Sim_Mode::Improvement);
}

// Each row makes one more thing ready; the first gate that still refuses is the one that speaks.
TEST_F(Menu_Test, Gates_Refuse_In_Their_Order) {
    const auto refusal = [&](const char* entry) {
        messages.shown.clear();
        return Enter_Screen(session, menu, Entry(entry)) ? "entered" : messages.shown.at(0).text;
    };
    EXPECT_EQ(refusal("Cmd_GB(3)"), "完成工事高が未入力です。");
    EXPECT_EQ(refusal("Cmd_GB(4)"), "Ｙ点の計算が未処理です。");
    EXPECT_EQ(refusal("Cmd_UpS(2)"), "現状（改善前）のＸ２，Ｗ点の計算が未処理です。");
    Put_Elements({{202, 5000}, {203, 5000}});
    EXPECT_EQ(refusal("Cmd_GB(3)"), "Ｙ点の計算が未処理です。\n［経営状況(Y)］を先に開いてください。");
    Put_Amounts({{400, 900000000}, {399, 500000000}, {199, 500000000}});
    EXPECT_EQ(refusal("Cmd_GB(4)"), "entered");
    EXPECT_EQ(refusal("Cmd_GB(3)"), "Ｘ２，Ｗ点の計算が未処理です。");
    Put_Elements({{200, 0}});
    EXPECT_EQ(refusal("Cmd_GB(3)"), "entered");
    EXPECT_EQ(refusal("Cmd_UpS(3)"), "改善後のＸ２，Ｗ点の計算が未処理です。");
    Put_Elements({{200, 0}}, "改善後0");
    EXPECT_EQ(refusal("Cmd_UpS(3)"), "entered");
    EXPECT_EQ(refusal("Cmd_GB(0)"), "entered") << "zero amounts pass the statement gate";

    EXPECT_FALSE(Enter_Panel(session, menu, Entry("Cmd_Sim3")));
    EXPECT_EQ(messages.shown.back().text, "前期のデータがありません。");
    Run({"DELETE FROM Ks_Zaihyo WHERE 決算期=3"});
    EXPECT_EQ(refusal("Cmd_GB(0)"),
              "建設財務データが不完全です。最低でも総資本、固定資産、売上高は必要です。");
    EXPECT_FALSE(Enter_Other_Firm(session, menu));
    EXPECT_EQ(menu.mode, Sim_Mode::Other_Firm);
    Run({"DELETE FROM W_Yoso WHERE 決算期=3"});
    EXPECT_TRUE(Gate_Is_Open(session, Gate::Completed_Work)) << "a period without element rows passes";
}

} // namespace
} // namespace morvane::tests
