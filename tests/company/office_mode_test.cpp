// SPDX-FileCopyrightText: The Morvane developers
#include "company/office_mode.h"

#include "company/datacheck.h"
#include "company/register.h"
#include "data/store_file.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"
#include "support/installation_fixture.h"

namespace morvane::tests {
namespace {

namespace fs = std::filesystem;

class Own_Use_Test : public Installation {
  protected:
    Own_Use_Test() : Installation("13", false) { fs::remove(folder.path / "Jgmas.dat"); }

    [[nodiscard]] bool Is_Office() const {
        return Read_Install_Info(folder.path).kanri_flg == Office_Mode::Multi;
    }
};

// Whatever write fails, nothing has changed and the change can be done again.
TEST_F(Own_Use_Test, The_Firm_Becomes_A_Company_Of_The_Office) {
    Make_Company(7, 1, 3);
    Put_Amounts({{100, 5000}});
    Write_Kidou_Ini(folder.path, {7, "見本7"});
    const std::string work = Dump(session.Work_Store);
    int failures = 0;
    for (; !Is_Office(); ++failures) {
        const Failing_Writes full_disk(failures + 1);
        const bool done = Refusal_Of([this] { Change_Mode(session, true); }).empty();
        EXPECT_EQ(Is_Office(), done) << failures;
        EXPECT_EQ(Dump(session.Work_Store), work) << failures;
        EXPECT_EQ(Mode_Refusal(session, true), "") << failures;
        ASSERT_LT(failures, 200);
    }
    EXPECT_GT(failures, 3);
    EXPECT_EQ(Dump(Company_Store(session, 7)), work);
    ASSERT_EQ(Read_Register(session).size(), 1U);
    EXPECT_EQ(Read_Register(session)[0].number, 7);
    EXPECT_TRUE(Read_Kidou_Ini(folder.path).Is_Clean());
}

TEST_F(Own_Use_Test, A_Firm_Without_Number_Gets_One_And_An_Unused_Folder_No_Company) {
    Change_Mode(session, true);
    EXPECT_TRUE(Is_Office());
    EXPECT_TRUE(Read_Register(session).empty());
    Make_Company(0, 1, 3);
    Change_Mode(session, true);
    ASSERT_EQ(Read_Register(session).size(), 1U);
    EXPECT_EQ(Read_Register(session)[0].number, 1);
    EXPECT_EQ(Rows_Of(Connection(Company_Store(session, 1), session.Db_Key), "SELECT 管理No FROM Jigyo_mas"),
              "1");
}

TEST_F(Own_Use_Test, What_Would_Lose_Data_Is_Refused) {
    Make_Company(7, 1, 3);
    session.Edit_Flg = true;
    EXPECT_NE(Mode_Refusal(session, true), "");
    session.Edit_Flg = false;
    EXPECT_EQ(Mode_Refusal(session, true), "");
    fs::create_directories(folder.path / "data");
    Copy_Store(session.Work_Store, Company_Store(session, 7), session.Db_Key);
    EXPECT_EQ(Mode_Refusal(session, true), "") << "its own file";
    Connection(Company_Store(session, 7), session.Db_Key).Execute("UPDATE Jigyo_mas SET 事業所名='別の組'");
    EXPECT_PRED2(Has, Mode_Refusal(session, true), "000007.dat");
    fs::remove(Company_Store(session, 7));
    Put_Amounts({{100, 5000}});
    Connection(session.Work_Store, session.Db_Key).Execute("UPDATE Jigyo_mas SET 事業所名=Null");
    EXPECT_PRED2(Has, Mode_Refusal(session, true), "自社情報");
}

TEST_F(Own_Use_Test, It_Needs_An_Empty_Register) {
    Install("13");
    Put_Register_Row(session, {5, "見本組", "ﾐ"});
    EXPECT_PRED2(Has, Mode_Refusal(session, false), "1件");
    Remove_Register_Row(session, 5);
    Make_Company(5, 1, 3);
    EXPECT_NE(Mode_Refusal(session, false), "") << "in hand";
    session.Kanri_No = 0;
    EXPECT_EQ(Mode_Refusal(session, false), "");
    Change_Mode(session, false);
    EXPECT_NE(Read_Install_Info(folder.path).kanri_flg, Office_Mode::Multi);
    EXPECT_TRUE(Cn_Open(session).Open("SELECT * FROM Jigyo_mas").Eof()) << "no deleted company comes back";
}

TEST(Office_Texts_Test, Entries_Are_Tested) {
    const std::map<std::string, std::string> whole = {
        {"Office_Name", "見本事務所"}, {"User_ID", "U1"}, {"Office_Mode", "2"}};
    EXPECT_FALSE(Test_Office(whole).has_value());
    for (const auto& [control, text] : {std::pair("Office_Name", std::string(61, 'a')),
                                        {"Office_Name", "a\nb"},
                                        {"User_ID", std::string(31, 'a')},
                                        {"Office_Mode", ""},
                                        {"Office_Mode", "3"}}) {
        auto texts = whole;
        texts[control] = text;
        const auto fault = Test_Office(texts);
        ASSERT_TRUE(fault.has_value()) << control;
        EXPECT_EQ(fault->control, control);
    }
}

} // namespace
} // namespace morvane::tests
