// SPDX-FileCopyrightText: The Morvane developers
#include "app/form_table.h"
#include "batch/case_file.h"
#include "law/law_year.h"
#include "support/failing_writes.h"
#include "support/grid_screen.h"

namespace morvane::tests {
namespace {

/// A sample firm in a screen.
class Failing_Store : public Grid_Screen {
  protected:
    Failing_Store() : Grid_Screen("13", false) {
        Import_Case(session, Samples_Folder() / "aoba_kensetsu.json");
        session.Syori_Ki = static_cast<std::int16_t>(Field("Jigyo_mas", "処理決算期", "1=1").As_Integer());
        session.Hojin_Kojin = Firm_Type::Corporation;
        session.Simyu_Kubun = Law_Of(4).code;
        shell.menu.screen.number = 41;
    }

    [[nodiscard]] std::string Text_In(const char* cell) const {
        return grid != nullptr ? Cell(cell) : Shown(*form, cell);
    }
};

// What is keyed stays where it cannot be stored, whichever button stores it and however far it came; the next
// attempt stores it.
TEST_F(Failing_Store, Every_Screen_Stays_With_What_Was_Keyed) {
    const struct {
        const char* form;
        const char* cell;
        std::vector<const char*> buttons;
        const char* stored; ///< of this period
    } screens[] = {
        {"Frm_Kanko", "Kijun(9)", {"Prt", "edit_z", "Tojiru"}, "完工高基準 FROM Kandaka_Gj WHERE 工種CD=9"},
        {"Frm_KankoKaiz2",
         "Z4(3)",
         {"edit_x1", "Cmd_Kekka", "Tojiru"},
         "改0技術者4 FROM Kandaka_Gj WHERE 工種CD=3"},
        {"Frm_Syokuta_2012", "Enen", {"Cmd_W2X(1)", "Tojiru"}, "現状 FROM W_Yoso WHERE 要素CD=111"},
        {"Frm_Syokutakaiz_2012", "Enen", {"Prt", "Tojiru"}, "改善後0 FROM W_Yoso WHERE 要素CD=111"},
        {"Frm_KsZaihyo", "Gaku(0)", {"Y_Disp", "Tojiru"}, "金額 FROM Ks_Zaihyo WHERE 建設科目CD=100"},
        {"Frm_KsZaiUP",
         "Kari(0)",
         {"Cmd_Upz(3)", "BLCheck", "DtClear", "Y_Disp", "Tojiru"},
         "借方 FROM Ks_Zaihyo WHERE 建設科目CD=100"},
        {"Frm_KsZenki", "Gaku(0)", {"Tojiru"}, "金額 FROM Ks_Zaihyo WHERE 建設科目CD=820"},
        {"Frm_KsHendo", "Gaku(0)", {"Tojiru"}, "金額 FROM Ks_Zaihyo WHERE 建設科目CD=901"},
    };
    shell.on_open_form = [](const QString& name) { ADD_FAILURE() << name.toStdString(); };
    for (const auto& screen : screens) {
        Open_Screen(std::unique_ptr<Form>(Find_Form(screen.form)->Make(shell)));
        if (grid != nullptr) {
            Enter(screen.cell, "7");
        } else {
            Type_Into(*form, screen.cell, "7");
        }
        const auto before = State();
        for (const char* button : screen.buttons) {
            for (const int n : {1, 4, 9}) {
                SCOPED_TRACE(testing::Message() << screen.form << " " << button << " " << n);
                messages.answers = {Answer::Yes};
                {
                    const Failing_Writes failing(n, Failing_Writes::Manner::From_Then_On);
                    Click(*form, button);
                    EXPECT_TRUE(failing.Has_Failed());
                }
                messages.answers.clear();
                EXPECT_TRUE(form->isVisible());
                EXPECT_EQ(shell.failure, "") << "the process would end";
                EXPECT_PRED2(Has, Last_Box(), "保存エラー：");
                EXPECT_EQ(Text_In(screen.cell), "7");
                EXPECT_EQ(State(), before);
            }
        }
        Press("Tojiru");
        EXPECT_EQ(
            List(std::string("SELECT ") + screen.stored + " And 決算期=" + std::to_string(session.Syori_Ki)),
            "7");
    }
}

} // namespace
} // namespace morvane::tests
