// SPDX-FileCopyrightText: The Morvane developers
#include "company/table_edit.h"

#include "company/datacheck.h"
#include "data/store_file.h"
#include "data/table_catalogue.h"
#include "review/settle.h"
#include "session/kyotu_mod.h"
#include "support/failing_writes.h"
#include "support/installation_fixture.h"

namespace morvane::tests {
namespace {

/// Kandaka_Gj as it was before the sixth class of engineers.
void Drop_Engineers_6(const Connection& cn) {
    std::string definitions;
    std::string names;
    for (const Column_Info& column : Table_Of(Store_Kind::Company, "Kandaka_Gj").columns) {
        if (!column.name.ends_with("技術者6")) {
            definitions += (names.empty() ? "" : ", ") + column.name +
                           (column.type == Column_Type::Text     ? " Text"
                            : column.type == Column_Type::Double ? " Double"
                                                                 : " Integer");
            names += (names.empty() ? "" : ", ") + column.name;
        }
    }
    cn.Execute("ALTER TABLE Kandaka_Gj RENAME TO former");
    cn.Execute("CREATE TABLE Kandaka_Gj (" + definitions + ")");
    cn.Execute("INSERT INTO Kandaka_Gj SELECT " + names + " FROM former");
    cn.Execute("DROP TABLE former");
    cn.Execute("CREATE UNIQUE INDEX Kandaka_Gj_key ON Kandaka_Gj (決算期, 工種CD)");
}

constexpr const char* no_31_32 = "DELETE FROM Kandaka_Gj WHERE 工種CD>=31 And 工種CD<=32";
constexpr const char* other_at_31 = "UPDATE Kandaka_Gj SET 工種CD=31 WHERE 工種CD=33";
constexpr const char* no_work_style = "DELETE FROM W_Yoso WHERE 要素CD>=235";
constexpr const char* old_flag_161 = "UPDATE Ks_Zaihyo SET 集計識別=-1 WHERE 建設科目CD=161";
constexpr const char* old_class_232 = "UPDATE Ks_Zaihyo SET 科目分類識別='Kdf' WHERE 建設科目CD=232";

struct Old_Store {
    const char* what;
    bool engineers_6;      ///< has the columns
    int form;              ///< form of the period as it is read
    std::string_view gets; ///< what of the later releases it is given
    const char* ledger;    ///< afterwards
    std::vector<const char*> changes;

    [[nodiscard]] bool Gets(std::string_view word) const { return gets.find(word) != gets.npos; }
};

class Table_Edit_Test : public Installation {
  protected:
    explicit Table_Edit_Test(const std::string& edition = "13") : Installation(edition) {}

    /// A company with figures in two periods; the later one is in hand.
    void Make_Old_Company(const std::vector<const char*>& changes, bool engineers_6) {
        Make_Company(1, 1, 5);
        std::map<int, double> amounts;
        for (const int code : {101, 103, 179, 199, 299, 319, 399, 400, 419, 436, 469, 489, 829, 830}) {
            amounts[code] = code * 1e5;
        }
        Put_Amounts(amounts);
        for (const int code : {101, 102, 103, 104, 111, 121, 142, 201, 212, 214}) {
            Put_Elements({{code, code % 100 == 1 ? 2.0 : 1.0}});
        }
        for (const int code : {0, 9, 33}) {
            Put_Work(code, {{"完工高前々期", 20000.0 + code},
                            {"完工高前期", 30000},
                            {"完工高基準", 40000},
                            {"元請完工高基準", 10000},
                            {"技術者1", 2},
                            {"技術者2", 1}});
        }
        const Connection cn = Cn_Open(session);
        Transaction transaction(cn);
        for (const char* sql : changes) {
            cn.Execute(sql);
        }
        if (!engineers_6) {
            Drop_Engineers_6(cn);
        }
        for (const char* table : {"Ks_Zaihyo", "Kandaka_Gj", "W_Yoso"}) {
            cn.Execute(std::string("CREATE TEMP TABLE earlier AS SELECT * FROM ") + table);
            cn.Execute("UPDATE earlier SET 決算期 = 4");
            cn.Execute(std::string("INSERT INTO ") + table + " SELECT * FROM earlier");
            cn.Execute("DROP TABLE earlier");
        }
        cn.Execute("INSERT INTO Ks_ki (決算期) VALUES (4)");
        transaction.Commit();
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
        EXPECT_EQ(List("SELECT Info_No FROM sys_info ORDER BY Info_No"), old.ledger);
        EXPECT_EQ(List("SELECT 工種略 FROM Kandaka_Gj WHERE 決算期=5 And 工種CD>=31 ORDER BY 工種CD"),
                  "解体 と・解 その他");
        EXPECT_EQ(Field("Kandaka_Gj", "完工高前々期", "決算期=5 And 工種CD=33"), Value(20033.0));
        EXPECT_TRUE(Field("Kandaka_Gj", "完工高前々期", "決算期=5 And 工種CD=31").Is_Null());
        EXPECT_EQ(List("SELECT 要素名 FROM W_Yoso WHERE 決算期=5 And 要素CD>=235 ORDER BY 要素CD"),
                  "女性活躍推進 次世代法 ユースエール 履歴蓄積 エコアクション WLB_点数 履歴蓄積_点数");
        EXPECT_EQ(Missing_In_Store(Cn_Open(session), Store_Kind::Company, true).size(),
                  old.engineers_6 || old.Gets("engineers") ? 0U : 5U);
        if (old.Gets("161")) {
            EXPECT_EQ(List("SELECT 集計識別 FROM Ks_Zaihyo WHERE 建設科目CD=161 ORDER BY 決算期"), "-1 0");
        }
        if (old.Gets("232")) {
            EXPECT_EQ(List("SELECT 科目分類識別 FROM Ks_Zaihyo WHERE 建設科目CD=232 ORDER BY 決算期"),
                      "Kdf Ktf");
        }
        if (old.Gets("types")) {
            EXPECT_EQ(List("SELECT 工種略 FROM Kandaka_Gj WHERE 決算期=4 And 工種CD>=31"), "その他")
                << "another period waits";
        }
        if (old.Gets("style")) {
            EXPECT_EQ(List("SELECT count(*) FROM W_Yoso WHERE 決算期=4 And 要素CD>=235"), "0");
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

class Hokkaido_Table_Edit_Test : public Table_Edit_Test {
  protected:
    Hokkaido_Table_Edit_Test() : Table_Edit_Test("01") {}
};

TEST_F(Table_Edit_Test, Old_Stores_Of_The_National_Edition) {
    const Old_Store cases[] = {
        {"present", true, 5, "", "11 14 15 21", {}},
        {"before 2021",
         false,
         5,
         "engineers style",
         "11 14 15 21",
         {"DELETE FROM sys_info WHERE Info_No=21", no_work_style}},
        {"columns there, ledger row not",
         true,
         5,
         "engineers",
         "11 14 15 21",
         {"DELETE FROM sys_info WHERE Info_No=21"}},
        {"before 2016",
         false,
         5,
         "161 engineers types style",
         "11 14 21",
         {"DELETE FROM sys_info WHERE Info_No>=14", old_flag_161, old_class_232, no_work_style, no_31_32,
          other_at_31}},
        {"form 3",
         false,
         3,
         "types style",
         "11",
         {"DELETE FROM sys_info WHERE Info_No>=14", "UPDATE Ks_Zaihyo SET 並び順 = 3 WHERE 建設科目CD=99",
          no_work_style, no_31_32, other_at_31}},
        {"no marker row",
         false,
         51,
         "style",
         "11",
         {"DELETE FROM sys_info WHERE Info_No>=14", "DELETE FROM Ks_Zaihyo WHERE 建設科目CD=99",
          no_work_style}},
    };
    for (const Old_Store& old : cases) {
        Expect_Brought_Forward(old);
    }
}

TEST_F(Hokkaido_Table_Edit_Test, Old_Stores_Of_Hokkaido) {
    const char* const no_ledger = "DELETE FROM sys_info WHERE Info_No>=14";
    const Old_Store cases[] = {
        {"before 2010",
         false,
         6,
         "161 232 engineers",
         "11 14 15 21",
         {no_ledger, old_flag_161, old_class_232}},
        {"form 4",
         false,
         4,
         "types style",
         "11",
         {no_ledger, "UPDATE Ks_Zaihyo SET 並び順 = 4 WHERE 建設科目CD=99", no_work_style, no_31_32,
          other_at_31}},
        {"no marker row", false, 52, "", "11", {no_ledger, "DELETE FROM Ks_Zaihyo WHERE 建設科目CD=99"}},
    };
    for (const Old_Store& old : cases) {
        Expect_Brought_Forward(old);
    }
    // The oldest form of this edition is taken in hand, so it is scored, before and after.
    Make_Old_Company(
        {no_ledger, "UPDATE Ks_Zaihyo SET 並び順 = 1 WHERE 建設科目CD=99", no_31_32, other_at_31}, false);
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
    Make_Old_Company({"DELETE FROM sys_info WHERE Info_No>=14", no_work_style, no_31_32, other_at_31}, false);
    session.Data_Ver = Data_Form_No::National;
    Expect_All_Or_Nothing(
        folder.path, [this] { Table_Edit_Run(session); }, [this] { return State(); });
}

} // namespace
} // namespace morvane::tests
