// SPDX-FileCopyrightText: The Morvane developers
#include "company/table_edit.h"

#include "company/datacheck.h"
#include "data/store_file.h"
#include "data/table_catalogue.h"
#include "review/settle.h"
#include "session/kyotu_mod.h"
#include "support/installation_fixture.h"

#include <tuple>

namespace morvane::tests {
namespace {

// What a store of an earlier release has otherwise: statements, and what of the later ones it lacks then.
const std::string no_work_style = "DELETE FROM W_Yoso WHERE 要素CD>=235;";
const std::string two_types_less = "DELETE FROM Kandaka_Gj WHERE 工種CD>=31 And 工種CD<=32;"
                                   "UPDATE Kandaka_Gj SET 工種CD=31 WHERE 工種CD=33;";
const std::string old_accounts = "UPDATE Ks_Zaihyo SET 集計識別=-1 WHERE 建設科目CD=161;"
                                 "UPDATE Ks_Zaihyo SET 科目分類識別='Kdf' WHERE 建設科目CD=232;";
const std::string no_marker = "DELETE FROM Ks_Zaihyo WHERE 建設科目CD=99;";
const std::string short_ledger = "DELETE FROM sys_info WHERE Info_No>=14;";

std::string Of_Form(int form) {
    return "UPDATE Ks_Zaihyo SET 並び順 = " + std::to_string(form) + " WHERE 建設科目CD=99;";
}

struct Old_Store {
    const char* what;
    bool engineers_6;   ///< has the columns of the sixth class
    int form;           ///< form of the period as it is read
    std::string gets;   ///< what of the later releases it is given
    std::string ledger; ///< afterwards
    std::string changes;

    [[nodiscard]] bool Gets(std::string_view word) const { return gets.find(word) != gets.npos; }
};

class Table_Edit_Test : public Installation {
  protected:
    /// A company with figures in two periods; the later one is in hand.
    void Make_Old_Company(const std::string& changes, bool engineers_6) {
        Make_Company(1, 1, 5);
        std::map<int, double> amounts, elements;
        for (const int code : {101, 103, 179, 199, 299, 319, 399, 400, 419, 436, 469, 489, 829, 830}) {
            amounts[code] = code * 1e5;
        }
        Put_Amounts(amounts);
        for (const int code : {101, 102, 103, 104, 111, 121, 142, 201, 212, 214}) {
            elements[code] = code % 100 == 1 ? 2.0 : 1.0;
        }
        Put_Elements(elements);
        Run({"UPDATE Kandaka_Gj SET 完工高前々期=20000+工種CD, 完工高前期=30000, 完工高基準=40000, "
             "元請完工高基準=10000, 技術者1=2, 技術者2=1 WHERE 工種CD IN (0, 9, 33)",
             changes});
        if (!engineers_6) {
            Drop_Engineers_6();
        }
        for (const std::string table : {"Ks_Zaihyo", "Kandaka_Gj", "W_Yoso"}) {
            Run({"CREATE TABLE earlier AS SELECT * FROM " + table + "; UPDATE earlier SET 決算期 = 4;" +
                 "INSERT INTO " + table + " SELECT * FROM earlier; DROP TABLE earlier"});
        }
        Run({"INSERT INTO Ks_ki (決算期) VALUES (4)"});
    }

    /// Kandaka_Gj as it was before the sixth class of engineers.
    void Drop_Engineers_6() const {
        std::string names;
        for (const Column_Info& column : Table_Of(Store_Kind::Company, "Kandaka_Gj").columns) {
            if (!column.name.ends_with("技術者6")) {
                names += (names.empty() ? "" : ", ") + column.name;
            }
        }
        Run({"ALTER TABLE Kandaka_Gj RENAME TO former; CREATE TABLE Kandaka_Gj AS SELECT " + names +
             " FROM former; DROP TABLE former; CREATE UNIQUE INDEX Kandaka_Gj_key ON Kandaka_Gj (決算期, "
             "工種CD)"});
    }

    [[nodiscard]] Settled_Score Score() const {
        const Connection cn(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
        return Score_Company(cn, session.Kind().edition);
    }

    void Expect_Brought_Forward(const Old_Store& old) {
        SCOPED_TRACE(old.what);
        Make_Old_Company(old.changes, old.engineers_6);
        EXPECT_EQ(Get_Data_Ver(session, 5), Data_Form_Of(old.form));
        const Settled_Score former = Score();
        EXPECT_GT(former.figures.elements[200].value, 0.0);
        EXPECT_GT(former.figures.works[9].P.value, 0);

        Company_Reload(session);
        EXPECT_EQ(session.Data_Ver, Data_Form_Of(old.form));
        Expect_Rows({
            {"Info_No FROM sys_info ORDER BY Info_No", old.ledger},
            {"工種略 FROM Kandaka_Gj WHERE 決算期=5 And 工種CD>=31 ORDER BY 工種CD", "解体 と・解 その他"},
            {"完工高前々期 FROM Kandaka_Gj WHERE 決算期=5 And 工種CD IN (31, 33) ORDER BY 工種CD", "- 20033"},
            {"要素名 FROM W_Yoso WHERE 決算期=5 And 要素CD>=235 ORDER BY 要素CD",
             "女性活躍推進 次世代法 ユースエール 履歴蓄積 エコアクション WLB_点数 履歴蓄積_点数"},
        });
        EXPECT_EQ(Missing_In_Store(Cn_Open(session), Store_Kind::Company, true).size(),
                  old.engineers_6 || old.Gets("engineers") ? 0U : 5U);
        const std::tuple<const char*, const char*, const char*> gets[] = {
            {"161", "集計識別 FROM Ks_Zaihyo WHERE 建設科目CD=161 ORDER BY 決算期", "-1 0"},
            {"232", "科目分類識別 FROM Ks_Zaihyo WHERE 建設科目CD=232 ORDER BY 決算期", "Kdf Ktf"},
            // Another period waits.
            {"types", "工種略 FROM Kandaka_Gj WHERE 決算期=4 And 工種CD>=31", "その他"},
            {"style", "count(*) FROM W_Yoso WHERE 決算期=4 And 要素CD>=235", "0"}};
        for (const auto& [word, query, rows] : gets) {
            EXPECT_TRUE(!old.Gets(word) || List(std::string("SELECT ") + query) == rows) << query;
        }
        const Settled_Score now = Score();
        EXPECT_EQ(now.y.score, former.y.score);
        EXPECT_EQ(now.x2.score, former.x2.score);
        EXPECT_EQ(now.figures.elements, former.figures.elements);
        EXPECT_EQ(now.figures.works, former.figures.works);

        const std::string bytes = Read_Text_File(session.Work_Store);
        Company_Reload(session);
        EXPECT_TRUE(Read_Text_File(session.Work_Store) == bytes) << "the second run writes nothing";
    }
};

TEST_F(Table_Edit_Test, Old_Stores_Of_The_National_Edition) {
    const std::string before_2016 = short_ledger + no_work_style + two_types_less;
    for (const Old_Store& old :
         {Old_Store{"present", true, 5, "", "11 14 15 21", ""},
          {"before 2021", false, 5, "engineers style", "11 14 15 21",
           "DELETE FROM sys_info WHERE Info_No=21;" + no_work_style},
          {"columns, no ledger row", true, 5, "engineers", "11 14 15 21",
           "DELETE FROM sys_info WHERE Info_No=21"},
          {"before 2016", false, 5, "161 engineers types style", "11 14 21", before_2016 + old_accounts},
          {"form 3", false, 3, "types style", "11", before_2016 + Of_Form(3)},
          {"no marker row", false, 51, "style", "11", short_ledger + no_marker + no_work_style}}) {
        Expect_Brought_Forward(old);
    }
}

TEST_F(Table_Edit_Test, Old_Stores_Of_Hokkaido) {
    Install("01");
    const std::string form_4 = short_ledger + Of_Form(4) + no_work_style + two_types_less;
    for (const Old_Store& old :
         {Old_Store{"before 2010", false, 6, "161 232 engineers", "11 14 15 21", short_ledger + old_accounts},
          {"form 4", false, 4, "types style", "11", form_4},
          {"no marker row", false, 52, "", "11", short_ledger + no_marker}}) {
        Expect_Brought_Forward(old);
    }
    // The oldest form of this edition is taken in hand, so it is scored, before and after.
    Make_Old_Company(short_ledger + Of_Form(1) + two_types_less, false);
    const Points y = Score().y.score;
    Company_Reload(session);
    EXPECT_EQ(Score().y.score, y);
    EXPECT_EQ(session.Data_Ver, Data_Form_No::Old_Hokkaido);
    EXPECT_EQ(List("SELECT Info_No FROM sys_info"), "11");
    EXPECT_EQ(List("SELECT 工種略 FROM Kandaka_Gj WHERE 決算期=5 And 工種CD>=31 ORDER BY 工種CD"),
              "解体 と・解 その他");
}

TEST_F(Table_Edit_Test, A_Period_Without_Rows_Gets_None) {
    Make_Company(1, 1, 5);
    session.Syori_Ki = 8;
    session.Data_Ver = Data_Form_No::Unmarked_National;
    Table_Edit_Run(session);
    EXPECT_EQ(List("SELECT count(*) FROM Kandaka_Gj WHERE 決算期=8"), "0");
    EXPECT_EQ(List("SELECT count(*) FROM W_Yoso WHERE 決算期=8"), "0");
}

TEST_F(Table_Edit_Test, No_Failing_Write_Leaves_A_Half_Changed_Store) {
    Make_Old_Company(short_ledger + no_work_style + two_types_less, false);
    session.Data_Ver = Data_Form_No::National;
    Expect_All_Or_Nothing(
        folder.path, [this] { Table_Edit_Run(session); }, [this] { return State(); });
}

} // namespace
} // namespace morvane::tests
