// SPDX-FileCopyrightText: The Morvane developers
#include "app/form_table.h"
#include "support/failing_writes.h"
#include "support/grid_screen.h"

namespace morvane::tests {
namespace {

/// A sample firm in a screen.
class Failing_Store : public Grid_Screen {
  protected:
    Failing_Store() : Grid_Screen("13", false) {
        Take_Aoba();
        shell.menu.screen.number = 41;
    }

    /// Opens a screen and keys a 7.
    void Key_Into(const char* name, const char* field) {
        Open_Screen(std::unique_ptr<Form>(Find_Form(name)->Make(shell)));
        if (grid != nullptr) {
            Enter(field, "7");
        } else if (*field == '\0') {
            With_Dialog([&] { Click(*form, "Pg_Set"); },
                        [](QDialog& setting) {
                            Type_Into(setting, "Ue_Mrg", "7");
                            Click(setting, "Cmd_OK");
                        });
        } else if (!Child<QWidget>(*form, field)->setProperty("plainText", "7")) {
            Type_Into(*form, field, "7");
        }
    }

    [[nodiscard]] std::string Text_In(const char* field) const {
        if (grid != nullptr || *field == '\0') {
            return grid != nullptr ? Cell(field) : "7";
        }
        const QVariant note = Child<QWidget>(*form, field)->property("plainText");
        return note.isValid() ? note.toString().toStdString() : Shown(*form, field);
    }
};

// What is keyed stays where it cannot be stored, whichever button stores it and however far it came. Closing,
// another attempt is made, the screen comes back, or what was keyed is given up; nothing of a failed attempt
// is kept.
TEST_F(Failing_Store, Every_Screen_Stays_With_What_Was_Keyed) {
    const std::vector<int> several = {1, 4, 9};
    // buttons: the last one closes
    // stored: of the period
    // failing: write operations
    const std::tuple<const char*, const char*, const char*, const char*, std::vector<int>> screens[] = {
        {"Frm_QandA", "Advice", "Cmd_Cancel", "アドバイス FROM QandA WHERE QNo=41", {1}},
        {"Frm_Kanko", "Kijun(9)", "Prt edit_z Tojiru", "完工高基準 FROM Kandaka_Gj WHERE 工種CD=9", several},
        {"Frm_Kanko2", "Z4(3)", "Tojiru", "技術者4 FROM Kandaka_Gj WHERE 工種CD=3", several},
        {"Frm_KankoKaiz2", "Z4(3)", "edit_x1 Cmd_Kekka Tojiru", "改0技術者4 FROM Kandaka_Gj WHERE 工種CD=3",
         several},
        {"Frm_Syokuta_2012", "Enen", "Cmd_W2X(1) Tojiru", "現状 FROM W_Yoso WHERE 要素CD=111", several},
        {"Frm_Syokutakaiz_2012", "Enen", "Prt Tojiru", "改善後0 FROM W_Yoso WHERE 要素CD=111", several},
        {"Frm_KsZaihyo", "Gaku(0)", "Y_Disp Tojiru", "金額 FROM Ks_Zaihyo WHERE 建設科目CD=100", several},
        {"Frm_KsZaiUP", "Kari(0)", "Cmd_Upz(3) BLCheck DtClear Y_Disp Tojiru",
         "借方 FROM Ks_Zaihyo WHERE 建設科目CD=100", several},
        {"Frm_KsZenki", "Gaku(0)", "Tojiru", "金額 FROM Ks_Zaihyo WHERE 建設科目CD=820", several},
        {"Frm_KsHendo", "Gaku(0)", "Tojiru", "金額 FROM Ks_Zaihyo WHERE 建設科目CD=901", several},
        {"Rpt_Kekka_2012", "", "Tojiru", nullptr, {1}},
        {"Frm_Settei", "Net_Check_Host", "Cmd_Excute", nullptr, {1}},
        {"Frm_Jgmas", "SyaMei", "Cmd_Excute", "事業所名 FROM Jigyo_mas, Ks_ki WHERE 1=1", {1}},
    };
    shell.on_open_form = [](const QString& name) { ADD_FAILURE() << name.toStdString(); };
    for (const auto& [name, field, buttons, stored, failing_writes] : screens) {
        SCOPED_TRACE(name);
        const QByteArrayList pressed = QByteArray(buttons).split(' ');
        const QByteArray& closing = pressed.back();
        Key_Into(name, field);
        const auto before = State();
        for (const QByteArray& button : pressed) {
            for (const int n : failing_writes) {
                SCOPED_TRACE(testing::Message() << button.data() << " " << n);
                messages.shown.clear();
                messages.answers = {button == closing ? Answer::Retry : Answer::Yes};
                {
                    const Failing_Writes failing(n, Failing_Writes::Manner::From_Then_On, ENOSPC);
                    Click(*form, button);
                    EXPECT_TRUE(failing.Has_Failed());
                }
                EXPECT_TRUE(form->isVisible());
                EXPECT_EQ(shell.failure, "") << "the process would end";
                EXPECT_TRUE(Titles() == "保存エラー 保存エラー" || button != closing);
                EXPECT_PRED2(Has, Last_Box(), "保存エラー：");
                EXPECT_PRED2(Has, Last_Box(), folder.path.string());
                for (const char* engine : {"UPDATE", "SELECT", "INSERT", "database"}) {
                    EXPECT_FALSE(Has(Last_Box(), engine)) << "words, no SQL: " << Last_Box();
                }
                EXPECT_EQ(Text_In(field), "7");
                EXPECT_EQ(State(), before);
            }
        }
        {
            const Failing_Writes full(1, Failing_Writes::Manner::From_Then_On, ENOSPC);
            messages.answers = {Answer::Discard};
            Press(closing);
        }
        EXPECT_EQ(State(), before);
        Key_Into(name, field);
        {
            const Failing_Writes once(1);
            messages.answers = {Answer::Retry};
            Press(closing);
        }
        if (stored != nullptr) {
            EXPECT_EQ(List(std::string("SELECT ") + stored + " And 決算期=35"), "7");
        }
    }
}

} // namespace
} // namespace morvane::tests
