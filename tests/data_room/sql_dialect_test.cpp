// SPDX-FileCopyrightText: The Morvane developers
#include "data/sql_dialect.h"

#include "data/connection.h"
#include "data/table_catalogue.h"
#include "support/installation_fixture.h"

#include <stdexcept>

namespace morvane::tests {
namespace {

/// A store with the tables of a company and of the register, and a few rows.
class Sql_Dialect : public ::testing::Test {
  protected:
    void SetUp() override {
        Create_Tables(cn, Store_Kind::Company);
        Create_Tables(cn, Store_Kind::Register);
        for (const char* row :
             {"5, 101, 'Kku_u', 0, -1, 0, 100, 11", "5, 102, 'Kku_u', 1, -1, 0, 30, 12",
              "5, 103, 'Kku_u', Null, -1, 0, 7, 13", "5, 104, 'Kfu', 1, -1, 0, Null, Null",
              "5, 105, 'Kku_u', 0, 0, 0, 1000, Null", "5, 106, 'Kku_u', 0, -1, -1, 2000, Null",
              "5, 107, 'Kku', 0, Null, 0, 4000, Null", "5, 108, 'Kfu', 0, 1, 0, 50, Null",
              "4, 101, 'Kku_u', 0, -1, 0, 9, Null"}) {
            cn.Execute(std::string(
                           "INSERT INTO Ks_Zaihyo (決算期, 建設科目CD, 科目分類識別, 内部処理正負, 集計識別, "
                           "非表示識別, 金額, 改善後残高) VALUES (") +
                       row + ")");
        }
        cn.Execute("INSERT INTO jgmas VALUES (1, 'あ建設', 'ｱｹﾝｾﾂ'), (2, 'ガ工業', 'ｶﾞｺｳｷﾞｮｳ'), (3, 'か組', "
                   "'ｶｸﾞﾐ'), "
                   "(4, 'ぱ', 'ﾊﾟ'), (5, 'from', Null)");
        cn.Execute("INSERT INTO W_Yoso (決算期, 要素CD, 現状) VALUES (5, 210, 3), (5, 1, 2), (4, 210, 3)");
        cn.Execute("INSERT INTO QandA (決算期, QNo) VALUES (1, 41), (2, 41)");
        cn.Execute(
            "INSERT INTO Kandaka_Gj (決算期, 工種CD, 改0完工高前々期, 改0総合評点P) VALUES (5, 0, 8, Null), "
            "(5, 1, 9, 700), (4, 0, 1, Null)");
        cn.Execute("INSERT INTO KmkBunrui VALUES ('Kfu', '負')");
        cn.Execute("INSERT INTO sys_info VALUES (14, '2010/05/24', 'x')");
    }

    [[nodiscard]] std::string Rows(const std::string& query) const {
        std::string text;
        for (Recordset rs = cn.Open(query); !rs.Eof(); rs.Move_Next()) {
            for (std::size_t i = 0; i < rs.Columns().size(); ++i) {
                const Value& value = rs.At(static_cast<int>(i));
                text += (i == 0 ? "" : ",") + (value.Is_Null() ? "Null" : value.As_Text());
            }
            text += ";";
        }
        return text;
    }

    Temporary_Folder folder;
    Connection cn = Connection::Create(folder.path / "s.dat", Delivered_Key());
};

TEST_F(Sql_Dialect, Queries_Give_The_Rows_They_Mean) {
    const std::string codes = "SELECT 建設科目CD FROM Ks_Zaihyo WHERE 決算期=5 And ";
    const std::string sums =
        "SELECT Ks_Zaihyo.科目分類識別, Sum(IIf([内部処理正負]=1,-[金額],[金額])) AS 集計額 From "
        "Ks_Zaihyo Where 決算期=5 And Ks_Zaihyo.集計識別 = True And Ks_Zaihyo.非表示識別 = False "
        "GROUP BY Ks_Zaihyo.科目分類識別;";
    const struct {
        std::string sql, rows;
    } cases[] = {
        {sums, "Kfu,50;Kku_u,77;"},
        {codes + "集計識別=True ORDER BY 建設科目CD;", "101;102;103;104;106;108;"},
        {codes + "集計識別=False", "105;"},
        {codes + "集計識別 <> True", "105;"},
        {codes + "集計識別<>False And 非表示識別=False Order By 建設科目CD", "101;102;103;104;108;"},
        {codes + "建設科目CD>=102 And 建設科目CD <=104 And 非表示識別=False;", "102;103;104;"},
        {codes + "left(科目分類識別,3)='Kku' And 非表示識別=True;", "106;"},
        {codes + "LEFT(科目分類識別, 5) <> 'Kku_u' ORDER BY 建設科目CD", "104;107;108;"},
        {"SELECT IIf(内部処理正負=1, IIf(集計識別=True,'負','n'), '正') AS x FROM Ks_Zaihyo WHERE 決算期=5 "
         "And "
         "建設科目CD<=103 ORDER BY 建設科目CD",
         "正;負;正;"},
        {"SELECT 事業所CD FROM jgmas WHERE 事業所カナ名 like 'ｶ%' Or 事業所カナ名 like 'ｶﾞ%' Order by "
         "事業所CD;",
         "2;3;"},
        {"SELECT 事業所CD FROM jgmas WHERE 事業所カナ名 like 'ｱ%' Order by 事業所CD;", "1;"},
        {"SELECT 事業所CD FROM jgmas WHERE 事業所カナ名 like 'ﾊ%' Or 事業所カナ名 like 'ﾊﾞ%' Or 事業所カナ名 "
         "like 'ﾊﾟ%' "
         "Order by 事業所CD;",
         "4;"},
        {"SELECT * FROM jgmas WHERE 事業所CD=3;", "3,か組,ｶｸﾞﾐ;"},
        {"SELECT * FROM [KmkBunrui]", "Kfu,負;"},
        {"SELECT * FROM SYS_INFO WHERE info_no=14", "14,2010/05/24,x;"},
        {"SELECT * FROM W_yoso WHERE 決算期=5 and 要素CD>=210 and 要素CD<=219 ORDER BY 要素CD;",
         "5,210,Null,3,Null,Null,Null,Null;"},
        {"SELECT Sum(Kandaka_Gj.改0総合評点P) AS P合計 From Kandaka_Gj WHERE 決算期=5;", "700;"},
        {"SELECT Sum(Kandaka_Gj.改0総合評点P) AS P合計 From Kandaka_Gj WHERE 決算期=4;", "Null;"},
        {"SELECT Ks_Zaihyo.建設科目CD, KmkBunrui.分類名 FROM Ks_Zaihyo LEFT JOIN KmkBunrui ON "
         "Ks_Zaihyo.科目分類識別 = "
         "KmkBunrui.科目分類識別 WHERE 決算期=5 And 建設科目CD>=107 And 建設科目CD<=108 And 非印刷識別=False "
         "Or "
         "建設科目CD=104 ORDER BY 建設科目CD;",
         "104,負;"},
        {"SELECT 'it''s [True]; T![c] IIf(1,2)' AS x, \"x\" AS y FROM KmkBunrui;",
         "it's [True]; T![c] IIf(1,2),x;"},
        {"SELECT 事業所CD FROM jgmas WHERE 事業所名='from'", "5;"},
        {"SELECT Ks_Zaihyo![金額] AS x, -1.5 AS y, 決算期-4 AS z FROM Ks_Zaihyo WHERE 決算期=4;",
         "9,-1.5,0;"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Rows(c.sql), c.rows) << c.sql;
    }
}

TEST_F(Sql_Dialect, Changes_Reach_The_Rows_They_Mean) {
    const std::string count = "SELECT 決算期, count(*) FROM Ks_Zaihyo GROUP BY 決算期";
    const std::string elements = "SELECT 決算期, 要素CD, 現状 FROM W_Yoso ORDER BY 決算期, 要素CD";
    const std::string flags = "SELECT 集計識別 FROM Ks_Zaihyo WHERE 決算期=5 ORDER BY 建設科目CD";
    const struct {
        const char* sql;
        std::string query, rows;
    } cases[] = {
        {"DELETE FROM Ks_Zaihyo WHERE 決算期=5", count, "4,1;"},
        {"DELETE FROM Ks_Zaihyo", count, ""},
        {"DELETE FROM jgmas where 事業所CD=3;", "SELECT 事業所CD FROM jgmas", "1;2;4;5;"},
        {"DELETE FROM jgmas WHERE 事業所名='from';", "SELECT 事業所CD FROM jgmas", "1;2;3;4;"},
        {"UPDATE Ks_Zaihyo SET Ks_Zaihyo.決算期 = 9 WHERE (Ks_Zaihyo.決算期)=5;", count, "4,1;9,8;"},
        {"UPDATE QandA SET QandA.決算期 =7 WHERE 決算期=1;", "SELECT 決算期 FROM QandA ORDER BY 決算期",
         "2;7;"},
        {"UPDATE QandA SET QandA.QNo =42;", "SELECT QNo FROM QandA", "42;42;"},
        {"UPDATE Ks_Zaihyo SET Ks_Zaihyo![並び順] = 6 WHERE 決算期=5 AND 建設科目CD=101;",
         "SELECT 建設科目CD FROM Ks_Zaihyo WHERE 並び順=6", "101;"},
        {"UPDATE W_Yoso SET [現状] = 4 WHERE 決算期=5 and 要素CD=210;", elements, "4,210,3;5,1,2;5,210,4;"},
        {"UPDATE W_Yoso SET W_Yoso.現状 = 4 Where 要素CD=210;", elements, "4,210,4;5,1,2;5,210,4;"},
        {"UPDATE W_Yoso SET 要素CD=999 WHERE 決算期=5 and 要素CD=1;", elements, "4,210,3;5,210,3;5,999,2;"},
        {"UPDATE W_Yoso SET 現状 = Null WHERE 現状=2;", elements, "4,210,3;5,1,Null;5,210,3;"},
        {"ALTER TABLE Kandaka_GJ ADD COLUMN 改0技術者7 Integer",
         "SELECT 改0技術者7 FROM Kandaka_Gj WHERE 決算期=4", "Null;"},
        {"UPDATE Ks_Zaihyo SET Ks_Zaihyo.集計識別=False WHERE 決算期=5 And 建設科目CD=101 ;", flags,
         "0;-1;-1;-1;0;-1;Null;1;"},
        {"UPDATE Ks_Zaihyo SET 集計識別 = True WHERE 決算期=5 And 集計識別 = False;", flags,
         "-1;-1;-1;-1;-1;-1;Null;1;"},
        {"UPDATE Ks_Zaihyo SET Ks_Zaihyo.科目分類識別='Ktf' WHERE 決算期=4 And 建設科目CD=101 ;",
         "SELECT 決算期 FROM Ks_Zaihyo WHERE 科目分類識別='Ktf'", "4;"},
        {"UPDATE Ks_Zaihyo SET Ks_Zaihyo.貸方1 = [貸方] , Ks_Zaihyo.借方1 = 建設科目CD+(1*2), "
         "Ks_Zaihyo.改善後残高1 = "
         "[改善後残高]WHERE ((Ks_Zaihyo.決算期)=5);",
         "SELECT 借方1, 改善後残高1 FROM Ks_Zaihyo WHERE 建設科目CD<=102 ORDER BY 建設科目CD, 決算期",
         "Null,Null;103,11;104,12;"},
        {"UPDATE Ks_Zaihyo SET Ks_Zaihyo.借方 = Null, Ks_Zaihyo.貸方 = Null, Ks_Zaihyo.改善後残高 = Null "
         "WHERE "
         "(((Ks_Zaihyo.決算期)=5));",
         "SELECT count(改善後残高) FROM Ks_Zaihyo", "0;"},
        {"UPDATE Ks_Zaihyo SET Ks_Zaihyo.金額 = Ks_Zaihyo.改善後残高 WHERE ((Ks_Zaihyo.決算期)=5);",
         "SELECT Sum(金額) FROM Ks_Zaihyo", "45;"},
        {"UPDATE Kandaka_Gj SET Kandaka_Gj.[改1完工高前々期] = [改0完工高前々期], Kandaka_Gj.[改1総合評点P] "
         "= "
         "[改0総合評点P] WHERE ((Kandaka_Gj.決算期)=5);",
         "SELECT 改1完工高前々期, 改1総合評点P FROM Kandaka_Gj ORDER BY 決算期, 工種CD",
         "Null,Null;8,Null;9,700;"},
        {"UPDATE jgmas SET jgmas.事業所名 = 'a, SET b.c = ''[1]'' WHERE;' WHERE 事業所CD=1;;",
         "SELECT 事業所名 FROM jgmas WHERE 事業所CD<=2 ORDER BY 事業所CD",
         "a, SET b.c = '[1]' WHERE;;ガ工業;"},
    };
    for (const auto& c : cases) {
        const Transaction undone(cn);
        cn.Execute(c.sql);
        EXPECT_EQ(Rows(c.query), c.rows) << c.sql;
    }
}

TEST_F(Sql_Dialect, Only_Whole_Rows_Of_One_Table_Can_Be_Updated) {
    const struct {
        const char* sql;
        const char* table;
    } cases[] = {
        {"SELECT * FROM Jigyo_mas", "Jigyo_mas"},
        {"select * from [Ks_ki] order by 決算期", "[Ks_ki]"},
        {"SELECT * FROM sityoson ", "sityoson"},
        {"SELECT * FROM T WHERE a=1;", "T"},
        {"SELECT a FROM T", ""},
        {"SELECT Ks_Zaihyo.* FROM Ks_Zaihyo LEFT JOIN KmkBunrui ON a = b", ""},
        {"SELECT * FROM T, U", ""},
        {"SELECT * FROM T GROUP BY a", ""},
        {"DELETE FROM T", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(To_Engine_Sql(c.sql).table, c.table) << c.sql;
    }
    for (const char* broken : {"SELECT 'x", "SELECT * FROM T WHERE a='it''s", "SELECT [x FROM T",
                               "SELECT \"x", "SELECT left(a, 3 FROM T", "SELECT IIf(a, 1) FROM T"}) {
        EXPECT_THROW(To_Engine_Sql(broken), std::logic_error) << broken;
    }
}

} // namespace
} // namespace morvane::tests
