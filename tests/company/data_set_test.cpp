// SPDX-FileCopyrightText: The Morvane developers
#include "company/data_set.h"
#include "company/hoko_change.h"
#include "company/law_change.h"
#include "support/installation_fixture.h"

#include <tuple>

namespace morvane::tests {

namespace fs = std::filesystem;

namespace {

class Period_Test : public Kept_Installation {
  protected:
    /// Company 1 with period 5 in hand, every element 1000 + its code, works and notes filled.
    void Make_Filled_Company() {
        Make_Company(1, 1, 5);
        Run({"UPDATE W_Yoso SET 現状 = 1000 + 要素CD, 改善後0 = 9, 改善後3 = 9 WHERE 要素CD<>210",
             "UPDATE Kandaka_Gj SET 完工高前々期 = 1, 完工高前期 = 2, 完工高基準 = 3, 元請完工高前々期 = 4, "
             "元請完工高前期 = 5, 元請完工高基準 = 6, 完工高平均 = 7, 評点X1 = 8, 評点Z1 = 8, 評点Z = 8, "
             "総合評点P = 8, 技術者1 = 11, 技術者5 = 15, 技術者6 = 16, 改0総合評点P = 9, 技術者1前期 = 9",
             "UPDATE QandA SET 質問 = '問', アドバイス = '答' WHERE QNo=41",
             "UPDATE Ks_Zaihyo SET 金額 = 建設科目CD, 借方 = 1, 改善後残高 = 2, 改善後残高1 = 3"});
    }

    [[nodiscard]] std::string Elements(int period) const {
        return List("SELECT 要素CD, 現状 FROM W_Yoso WHERE 決算期=" + std::to_string(period) +
                    " And (要素CD<=106 And 要素CD>=101 Or 要素CD=210 Or 要素CD=999) ORDER BY 要素CD");
    }
};

constexpr const char* bad_template =
    "データ異常：データファイルが異常です。\n\nユーザーサポートまでご連絡下さい。";

TEST_F(Period_Test, A_New_Company_Has_One_Blank_Period) {
    for (const auto& [type, name] :
         {std::pair(Firm_Type::Corporation, std::string("法人")), {Firm_Type::Individual, "個人"}}) {
        ASSERT_TRUE(New_Data_Set(session, type, 12));
        EXPECT_EQ(session.Data_Ver, Data_Form_No::National);
        Expect_Rows({{"決算期, count(*) FROM Ks_Zaihyo GROUP BY 決算期", "12=255"},
                     {"決算期, count(*) FROM Kandaka_Gj GROUP BY 決算期", "12=34"},
                     {"決算期 FROM Ks_ki", "12"},
                     {"DISTINCT 決算期 FROM W_Yoso", "12"},
                     {"DISTINCT 決算期 FROM QandA", "12"},
                     {"要素CD, 現状 FROM W_Yoso WHERE 現状 Is Not Null", "210=4"},
                     {"並び順 FROM Ks_Zaihyo WHERE 建設科目CD=99", "5"},
                     {"count(金額) + count(改善後残高), sum(法人科目名<>個人科目名)>0 FROM Ks_Zaihyo", "0=1"},
                     {"count(*) FROM Ks_Zaihyo WHERE 建設科目名 Is Not " + name + "科目名 Or 非表示識別<>" +
                          name + "非表示識別 Or 非印刷識別<>" + name + "非印刷識別",
                      "0"},
                     {"科目編集識別 FROM Ks_Zaihyo WHERE 建設科目CD=234",
                      type == Firm_Type::Corporation ? "0" : "-1"},
                     {"Info_No FROM sys_info ORDER BY Info_No", "11 14 15 21"}});
    }
}

TEST_F(Period_Test, Hokkaido_Keeps_Its_Chart) {
    Install("01");
    Make_Company(1, 1, 2);
    ASSERT_TRUE(Period_Copy(session, 3, 2, Copy_Mode::After));
    const auto chart = [this](const char* period) {
        return List(std::string("SELECT 建設科目CD, 科目分類識別, 法人科目名, 集計識別, 貸借正負 FROM "
                                "Ks_Zaihyo WHERE 決算期=") +
                    period + " ORDER BY 建設科目CD");
    };
    EXPECT_EQ(chart("3"), chart("2"));
    EXPECT_EQ(session.Data_Ver, Data_Form_No::Hokkaido);
}

TEST_F(Period_Test, A_Template_That_Does_Not_Fit_Changes_Nothing) {
    Make_Company(1, 1, 5);
    session.Data_Ver = Data_Form_No::National_2008;
    Keep();
    // The file, its change, and whether a further period can still be made.
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"morv_set.dat", "DELETE FROM Ks_Zaihyo WHERE 建設科目CD=101", true},
        {"morv_org.dat", "DELETE FROM Ks_Zaihyo_Zk_new WHERE 建設科目CD=101", true},
        {"morv_org.dat", "DELETE FROM Ks_Zaihyo_Zk_new", false}};
    for (const auto& [file, change, copies] : cases) {
        Restore();
        Connection(folder.path / file, session.Db_Key).Execute(change);
        before = State();
        EXPECT_FALSE(New_Data_Set(session, Firm_Type::Corporation, 6));
        EXPECT_EQ(Last_Box(), bad_template);
        if (!copies) {
            EXPECT_FALSE(Period_Copy(session, 6, 5, Copy_Mode::After));
            EXPECT_EQ(Titles(), "データ異常 データ異常");
        }
        EXPECT_EQ(In_Hand(), "1 見本1 5 法人 3 4");
        EXPECT_TRUE(State() == before);
    }
    Restore();
    fs::remove(folder.path / "morv_org.dat");
    EXPECT_THROW(New_Data_Set(session, Firm_Type::Corporation, 6), Store_Error);
    EXPECT_THROW(Period_Copy(session, 6, 5, Copy_Mode::After), Store_Error);
    Connection(folder.path / "morv_set.dat", session.Db_Key).Execute("DROP TABLE QandA");
    before = State();
    EXPECT_THROW(New_Data_Set(session, Firm_Type::Corporation, 6), Store_Error);
    EXPECT_TRUE(State() == before);
}

TEST_F(Period_Test, A_Period_Is_Added_On_Either_Side) {
    Make_Filled_Company();
    const auto of_5 = [this] {
        return List("SELECT 金額, 改善後残高 FROM Ks_Zaihyo WHERE 決算期=5") +
               List("SELECT 現状, 改善後0 FROM W_Yoso WHERE 決算期=5") +
               List("SELECT 質問 FROM QandA WHERE 決算期=5");
    };
    const std::string former = of_5();
    ASSERT_TRUE(Period_Copy(session, 6, 5, Copy_Mode::After));
    EXPECT_EQ(session.Syori_Ki, 6);
    ASSERT_TRUE(Period_Copy(session, 4, 6, Copy_Mode::Before));
    EXPECT_EQ(session.Syori_Ki, 4);
    EXPECT_EQ(of_5(), former);
    EXPECT_EQ(List("SELECT 決算期 FROM Ks_ki ORDER BY 決算期"), "4 5 6");
    // Of the years 6 and 7: first one on, then two back.
    EXPECT_EQ(List("SELECT 処理決算期, 決算期開始年, 決算期終了年 FROM Jigyo_mas"), "4=5=6");
    for (const auto& [period, works] :
         {std::pair(6, "-=2=3=-=-=-=5=6=-=-=11=15=-=-=-"), {4, "-=-=-=-=-=-=-=-=-=-=-=-=-=-=-"}}) {
        SCOPED_TRACE(period);
        const std::string of = " WHERE 決算期=" + std::to_string(period);
        Expect_Rows(
            {{"count(*), count(金額) + count(借方) + count(改善後残高) + count(改善後残高1) FROM Ks_Zaihyo" +
                  of,
              "255=0"},
             {"count(*) FROM Kandaka_Gj" + of, "34"},
             {"完工高平均, 完工高前々期, 完工高前期, 完工高前平均, 完工高基準, 評点X1, 元請完工高前々期, "
              "元請完工高前期, 元請完工高基準, 評点Z1, 技術者1, 技術者5, 技術者6, 総合評点P, 改0総合評点P "
              "FROM Kandaka_Gj" +
                  of + " And 工種CD=9",
              works},
             {"要素CD FROM W_Yoso" + of + " And 現状 Is Not Null ORDER BY 要素CD",
              "101 102 103 104 105 111 121 131 141 142 143 151 152"},
             {"count(改善後0) + count(改善後3), max(現状-要素CD), min(現状-要素CD) FROM W_Yoso" + of,
              "0=1000=1000"},
             {"count(質問) + count(アドバイス) FROM QandA" + of, "0"}});
        for (const std::string rows : {"要素CD, 要素名 FROM W_Yoso", "QNo, タイトル FROM QandA"}) {
            EXPECT_EQ(List("SELECT " + rows + of + " ORDER BY 1"),
                      List("SELECT " + rows + " WHERE 決算期=5 ORDER BY 1"));
        }
    }
}

TEST_F(Period_Test, An_Older_Source_Is_Brought_To_The_Present_Elements) {
    const std::string standing = "101=1101 102=1102 103=1103 104=1104 105=1105 106=-";
    const std::string pension_parked = // by the law year 2011
        "DELETE FROM W_Yoso WHERE 要素CD=999; UPDATE W_Yoso SET 要素CD=999 WHERE 要素CD=103;"
        "UPDATE W_Yoso SET 要素CD=103 WHERE 要素CD=104; UPDATE W_Yoso SET 要素CD=104 WHERE 要素CD=105;"
        "UPDATE W_Yoso SET 要素CD=105 WHERE 要素CD=106";
    const std::pair<std::string, std::string> cases[] = {
        {"", standing + " 210=-"},
        {"DELETE FROM W_Yoso WHERE 要素CD>=221", standing + " 210=4"},
        {"DELETE FROM W_Yoso WHERE 要素CD>=210 And 要素CD<=219", standing + " 210=2"},
        {pension_parked, "101=1101 102=1102 103=1103 104=1104 105=1105 106=1106 210=-"},
        {"DELETE FROM W_Yoso WHERE 要素CD=106 Or 要素CD>=210",
         "101=1101 102=1102 103=- 104=1103 105=1104 106=1105 210=4"}};
    Make_Filled_Company();
    Keep();
    for (const auto& [changes, elements] : cases) {
        SCOPED_TRACE(changes);
        Restore();
        Run({changes});
        ASSERT_TRUE(Period_Copy(session, 6, 5, Copy_Mode::After));
        EXPECT_EQ(Elements(6), elements);
        EXPECT_EQ(Field("W_Yoso", "要素名", "決算期=6 And 要素CD=103"), Value("厚生年金加入"));
        EXPECT_EQ(
            List("SELECT 要素CD FROM W_Yoso WHERE 決算期=6 And 要素CD>=210 And 要素CD<=227 ORDER BY 要素CD"),
            "210 211 212 213 214 215 216 221 222 223 224 225 226 227");
    }
    // Without notes of its own the source leaves the template's.
    Restore();
    Run({"DELETE FROM QandA WHERE QNo<>41", "UPDATE QandA SET 決算期 = 1"});
    ASSERT_TRUE(Period_Copy(session, 4, 5, Copy_Mode::Before));
    EXPECT_EQ(List("SELECT 決算期, 質問 FROM QandA"), "4=問");
}

TEST_F(Period_Test, A_Registered_Period_Or_A_Missing_Neighbour_Is_Refused) {
    Make_Filled_Company();
    ASSERT_TRUE(Period_Copy(session, 6, 5, Copy_Mode::After));
    before = State();
    constexpr auto after = Copy_Mode::After, earlier = Copy_Mode::Before;
    const std::pair<std::int16_t, Copy_Mode> cases[] = {
        {5, earlier}, {6, after}, {8, after}, {3, earlier}, {4, after}};
    for (const auto& [period, mode] : cases) {
        EXPECT_PRED2(Has,
                     Refusal_Of([&, number = period, how = mode] { Period_Copy(session, number, 6, how); }),
                     "登録されて");
        EXPECT_EQ(session.Syori_Ki, 6);
        EXPECT_TRUE(State() == before);
    }
}

TEST_F(Period_Test, Law_Years_There_And_Back) {
    const std::string now = "101=1101 102=1102 103=1103 104=1104 105=1105 106=1106 210=";
    const std::string parked = "101=1101 102=1102 103=1104 104=1105 105=1106 210=2 999=1103";
    const std::string no_106 = "DELETE FROM W_Yoso WHERE 要素CD=106";
    const std::string oldest = "101=1101 102=1102 103=- 104=1103 105=1104 106=1105 210=3";
    const std::tuple<std::string, std::vector<int>, std::string> cases[] = {
        {"", {2}, parked},
        {"", {2, 2}, parked},
        {"", {1, 2}, parked},
        {"", {2, 3}, now + "3"},
        {"", {2, 1, 4, 2, 3}, now + "3"},
        {"", {3}, now + "3"},
        {"", {3, 3, 4}, now + "4"},
        {no_106, {2}, "101=1101 102=1102 103=1103 104=1104 105=1105 210=2"},
        {no_106, {3}, oldest},
        {no_106, {3, 2, 3}, oldest},
        {"INSERT INTO W_Yoso (決算期, 要素CD, 現状) VALUES (5, 999, 77)", {2}, parked},
        // Without a row for it the law year would read 1.
        {"DELETE FROM W_Yoso WHERE 要素CD=210", {2, 3}, now + "3"}};
    Make_Filled_Company();
    ASSERT_TRUE(Period_Copy(session, 4, 5, Copy_Mode::Before));
    Keep();
    for (const auto& [changes, laws, elements] : cases) {
        SCOPED_TRACE(changes + testing::PrintToString(laws));
        Restore();
        Run({changes});
        const std::string others = Elements(4);
        for (const int law : laws) {
            Set_Law_Year(session, 5, Law_Of(law).code);
        }
        EXPECT_EQ(Elements(5), elements);
        const std::string pension = Has(elements, "999") ? "999" : "103";
        if (Has(elements, "106=") || pension == "999") {
            EXPECT_EQ(Field("W_Yoso", "要素名", "決算期=5 And 要素CD=" + pension), Value("厚生年金加入"));
        }
        EXPECT_EQ(Elements(4), others);
    }
}

TEST_F(Period_Test, The_Firm_Type_Changes_Captions_And_Wipes) {
    Make_Filled_Company();
    ASSERT_TRUE(Period_Copy(session, 6, 5, Copy_Mode::After));
    ASSERT_TRUE(Period_Copy(session, 7, 6, Copy_Mode::After));
    session.Syori_Ki = 6;
    Run({"UPDATE Ks_Zaihyo SET 金額 = 1, 借方 = 1, 貸方 = 1, 改善後残高 = 1, 仮金額 = 1, 改善後残高1 = 3",
         "UPDATE Kandaka_Gj SET 完工高基準 = 3, 元請完工高基準 = 6, 技術者1 = 11, 技術者1前期 = 9, 評点Z = "
         "8, 総合評点P = 8, 改0総合評点P = 9",
         "INSERT INTO XW_Yoso (決算期, 要素CD, 現状, 入力値) VALUES (6, 1, 5, 6), (7, 1, 5, 6)",
         "INSERT INTO Kandaka_KzT (決算期, 工種CD, 評点Z) VALUES (6, 1, 5), (7, 1, 5)",
         "UPDATE QandA SET 質問 = '問' WHERE 決算期=6 And QNo=41"});
    const auto captions = [this](const std::string& type) {
        return List("SELECT count(*) FROM Ks_Zaihyo WHERE 決算期=6 And 建設科目名 Is " + type +
                    "科目名 And 非表示識別=" + type + "非表示識別 And 非印刷識別=" + type + "非印刷識別") +
               " " + List("SELECT 科目編集識別 FROM Ks_Zaihyo WHERE 決算期=6 And 建設科目CD=234");
    };
    To_Kojin(session, 1);
    EXPECT_EQ(captions("個人"), "255 -1");
    EXPECT_EQ(List("SELECT 決算期 FROM Ks_ki ORDER BY 決算期"), "5 6 7")
        << "nothing is wiped where it is to be kept";
    EXPECT_EQ(Amount(101), 1.0);
    To_Houjin(session, 1);
    EXPECT_EQ(captions("法人"), "255 0");
    Keep();
    for (const bool conversion : {false, true}) {
        Restore();
        conversion ? To_Kojin(session, 0) : Data_Wipe(Cn_Open(session), 6);
        EXPECT_EQ(captions(conversion ? "個人" : "法人"), conversion ? "255 -1" : "255 0");
        for (const std::string table : {"Ks_ki", "Ks_Zaihyo", "Kandaka_Gj", "QandA"}) {
            EXPECT_EQ(List("SELECT DISTINCT 決算期 FROM " + table), "6") << table;
        }
        Expect_Rows({
            {"DISTINCT 決算期 FROM W_Yoso ORDER BY 決算期", "5 6 7"},
            {"count(金額) + count(借方) + count(貸方) + count(改善後残高) + count(仮金額) FROM Ks_Zaihyo",
             "0"},
            {"改善後残高1 FROM Ks_Zaihyo WHERE 建設科目CD=101", "3"},
            {"count(完工高基準) + count(技術者1前期) + count(評点Z) + count(総合評点P) FROM Kandaka_Gj", "0"},
            {"元請完工高基準, 技術者1, 改0総合評点P FROM Kandaka_Gj WHERE 工種CD=9", "6=11=9"},
            {"現状, 入力値 FROM XW_Yoso WHERE 決算期<>1 And 要素CD=1", "-=-"},
            {"決算期, 評点Z FROM Kandaka_KzT", "6=-"},
            {"質問 FROM QandA WHERE QNo=41", "問"},
            {"現状 FROM W_Yoso WHERE 決算期=6 And 要素CD=111", "1111"},
        });
    }
    Run({"DELETE FROM Ks_Zaihyo WHERE 建設科目CD=234"});
    EXPECT_NO_THROW(To_Houjin(session, 0));
    // The wipe left the elements of period 7.
    EXPECT_TRUE(Period_Copy(session, 7, 6, Copy_Mode::After));
    EXPECT_EQ(List("SELECT count(*) FROM W_Yoso WHERE 決算期=7 And 要素CD=111"), "1");
}

} // namespace
} // namespace morvane::tests
