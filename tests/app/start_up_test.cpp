// SPDX-FileCopyrightText: The Morvane developers
#include "app/start_up.h"

#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/new_installation.h"
#include "company/register.h"
#include "data/store_file.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"
#include "support/failing_writes.h"
#include "support/installation_fixture.h"

#include <algorithm>
#include <fstream>

namespace morvane::tests {
namespace {

class Start_Test : public Installation {
  protected:
    explicit Start_Test(bool multi = true) : Installation("13", multi) {}

    /// A start of the program: a new session, the lock taken as the operating system left it.
    Start_Result Start() {
        messages.shown.clear();
        session = Make_Session(folder.path, messages);
        lock.reset();
        lock.emplace(std::move(*Instance_Lock::Take(folder.path)));
        return Load_Session(session, *lock, edit_own_company);
    }

    std::function<void()> edit_own_company = [] {};
    std::optional<Instance_Lock> lock;
};

class Single_Start_Test : public Start_Test {
  protected:
    Single_Start_Test() : Start_Test(false) {}
};

TEST_F(Single_Start_Test, First_Run_Makes_The_Firm_And_Asks_For_Its_Dates_Until_They_Are_Given) {
    Install_Info info = Read_Install_Info(folder.path);
    info.kanri_no = 77;
    info.office_name = "株式会社 山田\"組\"";
    info.hojin_kojin = Firm_Type::Individual;
    info.syori_ki = 28;
    info.optional_columns = {{"代表者名", "山田"}, {"単位", "2"}};
    Write_Install_Info(folder.path, info);
    int edited = 0;
    edit_own_company = [&] { ++edited; };
    EXPECT_EQ(Start(), Start_Result::Ready);
    EXPECT_EQ(Titles(), "ご利用のご挨拶 決算期情報未入力確認");
    EXPECT_EQ(edited, 1);
    EXPECT_EQ(In_Hand(), "77 株式会社 山田\"組\" 28 個人 5 4");
    EXPECT_EQ(List("SELECT 管理No, 代表者名, 地域CD, 許可番号2 FROM Jigyo_mas"), "77=山田=13=-");
    Jigyo_Init(session, info);
    EXPECT_EQ(List("SELECT 管理No FROM Jigyo_mas"), "77") << "still one row";
    EXPECT_EQ(session.Tani_Kbn, Display_Unit::Ones) << "the unit is yen after every start";
    EXPECT_EQ(Start(), Start_Result::Ready);
    EXPECT_EQ(Titles(), "決算期情報未入力確認");
    Run({"UPDATE Jigyo_mas SET 決算期終了年=7, 決算期終了月=3, 決算期終了日=31, 決算期開始年=6, "
         "決算期開始月=4, 決算期開始日=1"});
    Write_Text_File(folder.path / "kidou.ini", "not a marker");
    EXPECT_EQ(Start(), Start_Result::Ready) << "the marker is never read in this mode";
    EXPECT_EQ(Titles(), "");
}

TEST_F(Single_Start_Test, Data_Older_Than_The_Form_Of_2008_End_The_Program) {
    Start();
    Run({"UPDATE Ks_Zaihyo SET 並び順=2 WHERE 建設科目CD=99"});
    EXPECT_EQ(Start(), Start_Result::Ended);
    EXPECT_EQ(messages.shown.back().text, "データが2008年より古いため、起動できません。");
}

TEST_F(Start_Test, Without_A_Company_The_Marker_Decides) {
    EXPECT_EQ(Start(), Start_Result::Ready);
    EXPECT_EQ(Titles(), "ご利用のご挨拶");
    EXPECT_EQ(session.Kanri_No, 0);
    EXPECT_EQ(Start(), Start_Result::Ready);
    EXPECT_EQ(Titles(), "");
    std::filesystem::remove(folder.path / "kidou.ini");
    EXPECT_THROW(Start(), Store_Error) << "a missing marker is no clean end";
}

TEST_F(Start_Test, An_Abnormal_End_Keeps_The_Working_Store_And_Adopts_Its_Company) {
    Register_Company(12, "青葉建設");
    Register_Company(34, "港工務店");
    Check_Out(session, 12, "青葉建設");
    Put_Amounts({{100, 777}});
    EXPECT_EQ(Start(), Start_Result::Ready);
    EXPECT_EQ(Titles(), "前回の異常終了を確認");
    EXPECT_EQ(In_Hand(), "12 青葉建設 5 法人 5 4");
    EXPECT_EQ(Amount(100), 777);
    Check_Out(session, 34, "港工務店");
    Check_Out(session, 12, "青葉建設");
    EXPECT_EQ(Amount(100), 777) << "the first check-in carries the edit over";
    Normal_End(session, *lock);
    EXPECT_TRUE(Read_Kidou_Ini(folder.path).Is_Clean());
    EXPECT_EQ(Start(), Start_Result::Ready);
    EXPECT_EQ(Titles(), "");
    EXPECT_EQ(session.Kanri_No, 0);
}

// A newly registered company is in hand although the marker is that of a clean end.
TEST_F(Start_Test, The_Lock_File_Tells_Of_A_Company_That_The_Marker_Does_Not_Know) {
    Start();
    Register_Company(56, "新規建設");
    session.Kanri_No = 56;
    lock->Record(56);
    Put_Amounts({{100, 888}});
    EXPECT_EQ(Start(), Start_Result::Ready);
    EXPECT_EQ(In_Hand(), "56 新規建設 5 法人 5 4");
    EXPECT_EQ(Amount(100), 888);
    EXPECT_FALSE(May_Unload(session)) << "its data have not been saved";
    EXPECT_EQ(messages.shown.back().text,
              "指定中の事業所のデータが保存されていません。[終了]ボタンより終了してください。");
    EXPECT_EQ(session.Kanri_No, 56);
    lock->Record(99);
    Start();
    EXPECT_EQ(session.Kanri_No, 0) << "the working store is not that company's";
    EXPECT_TRUE(May_Unload(session));
}

// What stands in the working store is adopted only where it is the company's that was in hand; else it is
// kept under a dated name and that company is read from its own file.
TEST_F(Start_Test, A_Working_Store_That_Does_Not_Fit_Is_Set_Aside) {
    Register_Company(12, "青葉建設");
    Register_Company(34, "港工務店");
    Start();
    Check_Out(session, 12, "青葉建設");
    const File_Contents files = Read_Files(folder.path);
    std::string broken = files.at("Morvane.dat");
    broken[broken.size() - 2000] = static_cast<char>(broken[broken.size() - 2000] ^ 1);
    const std::filesystem::path work = folder.path / "Morvane.dat";
    const auto sql = [this](const char* text) { return [=, this] { Run({text}); }; };
    const auto put = [=](const std::string& content) { return [=] { Write_Text_File(work, content); }; };
    const auto lose_own_file = [&] {
        put("text")();
        std::filesystem::remove(Company_Store(session, 12));
    };
    const auto lose_mark = [&] {
        put("text")();
        Write_Kidou_Ini(folder.path, {});
    };
    const auto put_folder = [&] {
        lose_mark();
        std::filesystem::remove(work);
        std::filesystem::create_directory(work);
    };
    const struct {
        const char* what;
        std::function<void()> harm;
        bool kept;                 ///< a file is set aside
        std::int32_t in_hand = 12; ///< after the start
    } cases[] = {
        {"an unregistered firm", sql("UPDATE Jigyo_mas SET 管理No=77"), true},
        {"another office's 12", sql("UPDATE Jigyo_mas SET 事業所名='他事務所'"), true},
        {"another edition", sql("UPDATE Jigyo_mas SET 地域CD='01'"), true},
        {"blank", sql("DELETE FROM Jigyo_mas"), false},
        {"no store", put("text"), true},
        {"a broken page", put(broken), true},
        {"gone", [&] { std::filesystem::remove(work); }, false},
        {"not in the register", [&] { Remove_Register_Row(session, 12); }, true, 0},
        {"its own file is gone too", lose_own_file, true, 0},
        {"nobody in hand, broken", lose_mark, true, 0},
        {"nobody in hand, a folder", put_folder, true, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        for (const auto& entry : std::filesystem::directory_iterator(folder.path)) {
            if (entry.path().filename().string().starts_with("Morvane-")) {
                std::filesystem::remove_all(entry.path());
            }
        }
        Write_Files(folder.path, files);
        lock->Record(0);
        c.harm();
        const bool was_folder = std::filesystem::is_directory(folder.path / "Morvane.dat");
        const File_Contents harmed = Read_Files(folder.path);
        ASSERT_EQ(Start(), Start_Result::Ready);
        EXPECT_EQ(session.Kanri_No, c.in_hand);
        EXPECT_EQ(messages.shown.front().title, "作業用データの確認");
        EXPECT_EQ(messages.shown.size(), c.in_hand == 0 ? 1U : 2U);
        int kept = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path)) {
            if (!entry.path().filename().string().starts_with("Morvane-")) {
                continue;
            }
            ++kept;
            EXPECT_PRED2(Has, messages.shown.front().text, entry.path().filename().string());
            EXPECT_TRUE(was_folder || Read_Text_File(entry.path()) == harmed.at("Morvane.dat"));
        }
        EXPECT_EQ(kept, c.kept ? 1 : 0);
        if (c.in_hand != 0) {
            EXPECT_EQ(Field("Jigyo_mas", "管理No", "1=1"), Value(12));
        }
        for (const char* store : {"data/000012.dat", "data/000034.dat"}) {
            EXPECT_TRUE(Read_Files(folder.path)[store] == (harmed.contains(store) ? harmed.at(store) : ""));
        }
        EXPECT_EQ(Start(), Start_Result::Ready) << "the next start has nothing to mend";
        EXPECT_EQ(messages.shown.size(), c.in_hand == 0 ? 0U : 1U);
    }
}

// A folder that lost some of its files gets those back, and nothing else changes.
TEST_F(Start_Test, A_Repair_Makes_Only_What_Is_Lost) {
    Register_Company(12, "青葉建設");
    Register_Company(34, "港工務店");
    Start();
    Check_Out(session, 12, "青葉建設");
    Check_In_And_Release(session);
    const File_Contents files = Read_Files(folder.path);
    const auto rows = Read_Register(session);
    EXPECT_THROW(
        [&] {
            std::filesystem::remove(folder.path / install_info_file);
            New_Installation(Templates_Folder(), folder.path, {});
        }(),
        Store_Error);
    const std::vector<std::vector<std::string>> losses = {
        {install_info_file},
        {install_info_file, "kidou.ini", "Jgmas.dat", "Morvane.dat", "morv_org.dat"},
        {"Morvane.dat"},
        {"Jgmas.dat"},
        {"morv_13.dat", "morv_set.dat"},
        {}};
    for (const auto& lost : losses) {
        SCOPED_TRACE(lost.empty() ? "nothing" : lost.back());
        Write_Files(folder.path, files);
        for (const std::string& name : lost) {
            std::filesystem::remove(folder.path / name);
        }
        EXPECT_EQ(Repair_Installation(Templates_Folder(), folder.path, std::nullopt).size(), lost.size());
        const File_Contents now = Read_Files(folder.path);
        for (const auto& [name, content] : files) {
            const bool made = std::find(lost.begin(), lost.end(), name.string()) != lost.end();
            EXPECT_TRUE(made || now.at(name) == content) << name;
        }
        EXPECT_EQ(now.size(), files.size());
        const Session repaired = Make_Session(folder.path, messages);
        EXPECT_TRUE(repaired.Is_Multi());
        EXPECT_EQ(repaired.Tiiki_CD, Edition::National);
        EXPECT_EQ(Read_Register(repaired), rows);
        EXPECT_TRUE(Read_Kidou_Ini(folder.path).Is_Clean());
    }
    // The marker is lost while the working store holds what its company's file lacks.
    Write_Files(folder.path, files);
    std::filesystem::remove(folder.path / "kidou.ini");
    Copy_Store(Company_Store(session, 12), folder.path / "Morvane.dat", session.Db_Key);
    Run({"UPDATE Jigyo_mas SET 電話番号='1'"});
    static_cast<void>(Repair_Installation(Templates_Folder(), folder.path, std::nullopt));
    EXPECT_EQ(Read_Kidou_Ini(folder.path).number, 12);
}

TEST_F(Start_Test, An_Edition_Is_Chosen_Whole_And_Keeps_What_Stood_There) {
    Make_Company(7, 1, 3);
    Choose_Edition(folder.path, Edition::Hokkaido);
    const Install_Info info = Read_Install_Info(folder.path);
    EXPECT_EQ(info.tiiki_cd, "01");
    EXPECT_EQ(info.todofuken_mei, "北海道");
    EXPECT_TRUE(Cn_Open(session).Open("SELECT * FROM Jigyo_mas").Eof());
    EXPECT_NO_THROW(Verify_Store(folder.path / "Morvane.dat.bak", session.Db_Key));
}

TEST_F(Start_Test, The_Updater_Is_Swapped_Only_For_A_File_Of_The_Installation) {
    const auto put = [&](const char* name, const char* text) { std::ofstream(folder.path / name) << text; };
    put("PgUpdata.exe", "old");
    put("PgUpdataUP.exe", "new");
    std::filesystem::permissions(folder.path / "PgUpdataUP.exe", std::filesystem::perms(0666));
    Swap_Updater(folder.path);
    EXPECT_EQ(Read_Text_File(folder.path / "PgUpdata.exe"), "old") << "anybody may have written the new one";
    std::filesystem::permissions(folder.path / "PgUpdataUP.exe", std::filesystem::perms(0644));
    Swap_Updater(folder.path);
    EXPECT_EQ(Read_Text_File(folder.path / "PgUpdata.exe"), "new");
    EXPECT_FALSE(std::filesystem::exists(folder.path / "PgUpdataUP.exe"));
    std::filesystem::create_symlink("/bin/true", folder.path / "PgUpdataUP.exe");
    Swap_Updater(folder.path);
    EXPECT_EQ(Read_Text_File(folder.path / "PgUpdata.exe"), "new");
}

} // namespace
} // namespace morvane::tests
