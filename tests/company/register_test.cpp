// SPDX-FileCopyrightText: The Morvane developers
#include "company/register.h"

#include "company/datacheck.h"
#include "data/store_file.h"
#include "session/kidou_ini.h"
#include "support/installation_fixture.h"

#include <tuple>

namespace morvane::tests {

namespace fs = std::filesystem;

namespace {

class Register_Test : public Kept_Installation {};

TEST_F(Register_Test, Each_Initial_Finds_Its_Own_Names) {
    int number = 0;
    for (const char* kana : {"ｱｵﾊﾞ", "ｲｼ", "ｶﾜ", "ｶﾞﾝ", "ｷﾞﾝ", "ﾊﾙ", "ﾊﾞﾝ", "ﾊﾟﾝ", "ﾋﾟﾝ", "ﾜﾀ", "ｦ", ""}) {
        Put_Register_Row(session, {++number, kana, kana});
    }
    std::string found;
    for (const Kana_Filter& filter : Kana_Filters()) {
        for (const Register_Row& row : Read_Register(session, filter.kana)) {
            found += std::string(filter.button) + "=" + row.name + " ";
        }
    }
    EXPECT_EQ(found, "FgA=ｱｵﾊﾞ FgI=ｲｼ FgKa=ｶﾜ FgKa=ｶﾞﾝ FgKi=ｷﾞﾝ FgHa=ﾊﾙ FgHa=ﾊﾞﾝ FgHa=ﾊﾟﾝ FgHi=ﾋﾟﾝ FgWa=ﾜﾀ ");
    EXPECT_EQ(Read_Register(session).size(), 12U);
    EXPECT_EQ(Kana_Filters().size(), 44U);
}

TEST_F(Register_Test, Taking_A_Company_Refuses_What_It_Must) {
    Register_Company(2, "見本2");
    Register_Company(3, "古い");
    Connection(folder.path / "data/000003.dat", Delivered_Key())
        .Execute("UPDATE Ks_Zaihyo SET 並び順 = 2 WHERE 建設科目CD=99");
    before = State();
    EXPECT_EQ(Take_Company(session, std::nullopt), Taken::Refused);
    EXPECT_EQ(Last_Box(), "事業所未指定エラー：処理する事業所を指定してください。");
    EXPECT_EQ(Take_Company(session, Register_Row{0, "零", ""}), Taken::Refused);
    EXPECT_TRUE(State() == before);
    EXPECT_EQ(Take_Company(session, Register_Row{3, "古い", ""}), Taken::Too_Old);
    EXPECT_EQ(Last_Box(), "データ異常エラー：データが2008年より古いため、事業所指定できません。");
    EXPECT_EQ(session.Kanri_No, 3);
    EXPECT_EQ(Read_Kidou_Ini(folder.path).number, 3) << "it counts as checked out";
    EXPECT_EQ(Take_Company(session, Register_Row{2, "見本2", ""}), Taken::In_Hand);
}

TEST_F(Register_Test, Deletes_File_And_Row_After_The_Question) {
    Register_Company(7000005, "大");
    Register_Company(2, "見本2");
    for (const Register_Row& row : {Register_Row{0, "零", ""}, {5, "五", ""}, {6, "六", ""}, {8, "八", ""}}) {
        Put_Register_Row(session, row);
    }
    // A file that is another company's (the two were exchanged), and one that cannot go, a folder of its
    // name.
    Copy_Store(session.Work_Store, folder.path / "data/000008.dat", Delivered_Key());
    fs::create_directories(folder.path / "data/000006.dat/x");
    session.Kanri_No = 2;
    const auto deletes = [this](std::optional<Register_Row> row) {
        messages.answers = {Answer::Yes};
        return Delete_Company(session, row);
    };
    const std::tuple<std::optional<Register_Row>, const char*> refused[] = {
        {std::nullopt, "事業所未指定エラー：処理する事業所を指定してください。"},
        {Register_Row{2, "見本2", ""}, "事業所削除エラー：指定中の事業所は削除できません。"},
        {Register_Row{8, "八", ""}, "事業所番号 2"},
        {Register_Row{6, "六", ""}, "000006.dat"}};
    before = State();
    for (const auto& [row, words] : refused) {
        EXPECT_FALSE(deletes(row)) << words;
        EXPECT_PRED2(Has, Last_Box(), words);
        EXPECT_TRUE(State() == before);
    }
    EXPECT_FALSE(Delete_Company(session, Register_Row{5, "五", ""})) << "No is the default";
    EXPECT_EQ(Last_Box(), "事業所データ削除確認：「五」の\n全データを削除します。一旦削除すると元には戻せませ"
                          "ん。\nよろしいですか？");
    EXPECT_TRUE(State() == before);

    EXPECT_TRUE(deletes(Register_Row{5, "五", ""}));
    EXPECT_EQ(Last_Box(), "事業所削除完了：指定の事業所データを削除しました。");
    EXPECT_FALSE(Find_Register_Row(session, 5));
    EXPECT_TRUE(fs::exists(folder.path / "data/000005.dat")) << "it is that of company 7000005 too";
    EXPECT_TRUE(deletes(Register_Row{7000005, "大", ""}));
    EXPECT_FALSE(fs::exists(folder.path / "data/000005.dat"));
    session.Kanri_No = 0;
    EXPECT_TRUE(deletes(Register_Row{0, "零", ""})) << "a listed company 0, nothing in hand";
    EXPECT_EQ(Read_Register(session).size(), 3U);
}

TEST_F(Register_Test, Sweeping_Takes_Drafts_Only) {
    auto expected = State();
    expected[".hidden"] = expected["data/000001.dat.new1-1"] = "x";
    for (const char* name :
         {".Morvane.dat.new123-0", ".Morvane.dat.old123-1", "data/.000001.dat.new9-12",
          "data/.000001.dat.new9-12-journal", ".kidou.ini.new1-1", ".hidden", "data/000001.dat.new1-1"}) {
        Write_Text_File(folder.path / name, "x");
    }
    Sweep_Drafts(folder.path);
    EXPECT_TRUE(State() == expected);
}

} // namespace
} // namespace morvane::tests
