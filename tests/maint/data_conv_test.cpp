// SPDX-FileCopyrightText: The Morvane developers
#include "maint/data_conv.h"

#include "company/law_change.h"
#include "data/store_file.h"
#include "maint/csv_out.h"
#include "session/kyotu_mod.h"
#include "statements/zaimu_calc.h"
#include "support/installation_fixture.h"

#include <tuple>

namespace morvane::tests {
namespace {

class Data_Conversion : public Kept_Installation {
  protected:
    /// Company 1 with amounts in the form of 2008 gets the accounts of a new period.
    void Convert_2008(std::int16_t firm_type, const std::map<int, double>& amounts) {
        Make_Company(1, firm_type, 30);
        const std::string codes = "SELECT 建設科目CD FROM Ks_Zaihyo ORDER BY 建設科目CD";
        const std::string new_codes = List(codes);
        Make_Form_2008();
        Put_Amounts(amounts);
        messages.answers = {Answer::Yes};
        ASSERT_TRUE(Conv_2008_To_2010(session));
        EXPECT_EQ(Last_Box(), "財務データ変換終了：データ変換が終了しました。");
        EXPECT_TRUE(messages.shown.back().beep);
        EXPECT_EQ(Get_Data_Ver(session, 30), session.Data_Ver);
        EXPECT_EQ(List(codes), new_codes);
    }
};

TEST_F(Data_Conversion, The_2010_Form_Has_The_Accounts_Of_A_New_Period) {
    Convert_2008(1, {{140, 1000}, {145, 5}, {153, 40}, {204, 700}, {207, 30}, {232, 900}, {237, 9}});
    EXPECT_EQ(session.Data_Ver, Data_Form_No::National);
    const std::map<int, double> moved = {{143, 1000}, {148, 5}, {154, 40}, {205, 700}, {208, 30}, {233, 900},
                                         {238, 9},    {140, 0}, {153, 0},  {204, 0},   {232, 0}};
    for (const auto& [code, amount] : moved) {
        EXPECT_EQ(Amount(code), amount) << code;
    }
    EXPECT_EQ(Field("Ks_Zaihyo", "建設科目名", "建設科目CD=470"), Value("受取利息及び配当金"));
    EXPECT_EQ(Field("Ks_Zaihyo", "科目分類識別", "建設科目CD=232"), Value("Kdf"));
    EXPECT_TRUE(Field("Ks_Zaihyo", "非表示識別", "建設科目CD=161").As_Boolean());
    // The fixed lease debt of converted data stays outside the fixed liabilities, the other new lines are
    // summed.
    Put_Amounts({{140, 600}, {141, 100}, {204, 50}, {232, 8000}});
    Zaimu_Shukei(session, Amount_Column::Current);
    EXPECT_EQ(Amount(149), 1000 + 600 - 100 + 0);
    EXPECT_EQ(Amount(248), 900 + 9);
}

TEST_F(Data_Conversion, More_Current_Liabilities_Of_Hokkaido_Move) {
    Install("01");
    Convert_2008(1, {{216, 77}});
    EXPECT_EQ(Amount(217), 77);
    EXPECT_EQ(session.Data_Ver, Data_Form_No::Hokkaido);
}

TEST_F(Data_Conversion, An_Individuals_Loans_Take_The_Line_Of_The_Payables) {
    Convert_2008(2, {{203, 11}, {207, 500}});
    ASSERT_EQ(messages.shown.size(), 3U);
    EXPECT_PRED2(Has, messages.shown[1].title + messages.shown[1].text,
                 "データ変換メッセージ「流動負債」の「買掛金」に金額があります。");
    EXPECT_EQ(Amount(203), 500);
    EXPECT_TRUE(Field("Ks_Zaihyo", "金額", "建設科目CD=208").Is_Null());
    EXPECT_EQ(Field("Ks_Zaihyo", "個人科目名", "建設科目CD=203"), Value("短期借入金"));
    EXPECT_TRUE(Field("Ks_Zaihyo", "非表示識別", "建設科目CD=140").As_Boolean());
}

TEST_F(Data_Conversion, Refusals_And_No_Change_Nothing) {
    Make_Company(1, 1, 30);
    for (const auto& [form, law, to_2015, text] :
         {std::tuple(2, 3, false, "2008年改正時点より前のデータです。"),
          {5, 3, false, "既に、2010年以降の財務データです。"},
          {6, 3, false, "既に、2010年以降の財務データです。"},
          {3, 3, false, "2010年以降の財務データに変換します。"},
          {4, 3, true, "2008年改正以前のデータです。"},
          {5, 4, true, "既に、2015年改正後データです。"},
          {5, 3, true, "2015年改正対応のデータに変換します。"}}) {
        Set_Law_Year(session, 30, Law_Of(law).code);
        session.Data_Ver = Data_Form_Of(form);
        before = State();
        messages.shown.clear();
        EXPECT_FALSE(to_2015 ? Mnu_Dt2015(session) : Conv_2008_To_2010(session)) << text;
        ASSERT_EQ(messages.shown.size(), 1U) << text;
        EXPECT_PRED2(Has, messages.shown[0].text, text);
        EXPECT_EQ(messages.shown[0].default_answer,
                  messages.shown[0].buttons == Buttons::Yes_No ? Answer::No : Answer::Ok);
        EXPECT_TRUE(State() == before) << text;
    }
}

TEST_F(Data_Conversion, To_2015_Adds_Only_What_Is_Missing_And_Renumbers_Older_Law_Years) {
    for (const int law : {1, 2, 3}) {
        Make_Company(1, 1, 30);
        Put_Elements({{103, 1}, {104, 0}, {106, 1}, {221, 12}});
        Set_Law_Year(session, 30, Law_Of(law).code);
        Run({"DELETE FROM W_Yoso WHERE 要素CD>=222 And 要素CD<=227"});
        session.Simyu_Kubun = Law_Of(law).code;
        messages.answers = {Answer::Yes};
        ASSERT_TRUE(Mnu_Dt2015(session)) << law;
        EXPECT_EQ(Law_Number(session.Simyu_Kubun), 4);
        // The pension row and the schemes mean again what they meant, and no figure of the young engineers is
        // lost.
        EXPECT_EQ(List("SELECT 要素CD, 現状 FROM W_Yoso WHERE 要素CD IN (103, 104, 106, 210, 221, 222) "
                       "ORDER BY 要素CD"),
                  "103=1 104=0 106=1 210=4 221=12 222=-")
            << law;
        EXPECT_EQ(List("SELECT 要素名 FROM W_Yoso WHERE 要素CD=227"), "若年数_新規_点数");
        EXPECT_EQ(messages.shown.size(), static_cast<std::size_t>(law));
    }
}

TEST_F(Data_Conversion, A_Whole_Store_Comes_In_And_A_Broken_One_Changes_Nothing) {
    Make_Company(7, 1, 30);
    Put_Amounts({{100, 4321}});
    const std::filesystem::path backup = folder.path / "backup";
    std::filesystem::create_directory(backup);
    Copy_Store(session.Work_Store, backup / "MORVANE.DAT", session.Db_Key);
    Make_Company(8, 2, 12);
    ASSERT_TRUE(Dt_Conv(session, backup));
    EXPECT_EQ(Field("Jigyo_mas", "管理No", "法人個人識別=1"), Value(7));
    session.Syori_Ki = 30;
    EXPECT_EQ(Amount(100), 4321);
    EXPECT_EQ(Last_Box(), "データ変換完了：データの変換が終了しました。");

    Connection(backup / "MORVANE.DAT", session.Db_Key).Execute("DROP TABLE XW_Yoso");
    before = State();
    EXPECT_THROW(Dt_Conv(session, backup), Store_Error);
    EXPECT_TRUE(State() == before);
    EXPECT_FALSE(Dt_Conv(session, ""));
    EXPECT_EQ(Last_Box(), "フォルダ未指定エラー：バックアップファイルのフォルダが指定されていません。");
    messages.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(Dt_Conv_Cancelled(session));
    EXPECT_TRUE(Dt_Conv_Cancelled(session));
}

TEST_F(Data_Conversion, Csv_Is_Written_As_The_Fields_Stand) {
    Make_Company(1, 1, 30);
    Put_Amounts({{100, 123456789012345.0}, {101, -5}});
    Run({"UPDATE Jigyo_mas SET 事業所名 = 'あ,い\"う'"});
    const std::filesystem::path out = folder.path / "csv";
    std::filesystem::create_directory(out);
    Csv_Out(Connection(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only), out);
    const std::string firm = Read_Text_File(out / "Jigyo_mas.csv");
    EXPECT_TRUE(firm.starts_with("管理No,地域CD,地域名,事業所名,")) << firm;
    // A comma in a text makes one more field, by design of this export.
    EXPECT_PRED2(Has, firm, "\n1,,,あ,い\"う,,");
    const std::string statement = Read_Text_File(out / "Ks_Zaihyo.csv");
    EXPECT_PRED2(Has, statement, "123456789012345");
    EXPECT_PRED2(Has, statement, ",-5,");
    EXPECT_EQ(Read_Text_File(out / "Ks_Ki.csv"), "決算期\n30\n");
    for (const char* table : {"Kandaka_Gj", "W_Yoso"}) {
        EXPECT_TRUE(std::filesystem::exists(out / (std::string(table) + ".csv"))) << table;
    }
}

} // namespace
} // namespace morvane::tests
