// SPDX-FileCopyrightText: The Morvane developers
#include "app/start_up.h"

#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/new_installation.h"
#include "company/register.h"
#include "data/store_file.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"
#include "support/installation_fixture.h"

#include <algorithm>
#include <fstream>
#include <tuple>

namespace morvane::tests {
namespace {

namespace fs = std::filesystem;

class Start_Test : public Kept_Installation {
  protected:
    /// A start of the program, which succeeds unless told otherwise: a new session, the lock taken as the
    /// operating system left it. The titles of the boxes that came.
    std::string Start(Start_Result expected = Start_Result::Ready) {
        messages.shown.clear();
        session = Make_Session(folder.path, messages);
        lock.reset();
        lock.emplace(std::move(*Instance_Lock::Take(folder.path)));
        EXPECT_EQ(Load_Session(session, *lock, [this] { ++edited; }), expected);
        return Titles();
    }

    /// The companies 12 and 34, 12 in hand.
    void Take_One_Of_Two() {
        Register_Company(12, "青葉建設");
        Register_Company(34, "港工務店");
        Start();
        Check_Out(session, 12, "青葉建設");
    }

    /// The files that were set aside.
    [[nodiscard]] std::vector<fs::path> Kept_Files() const {
        std::vector<fs::path> kept;
        for (const auto& entry : fs::directory_iterator(folder.path)) {
            if (entry.path().filename().string().starts_with("Morvane-")) {
                kept.push_back(entry.path());
            }
        }
        return kept;
    }

    const fs::path work = folder.path / "Morvane.dat";
    int edited = 0; ///< how often the own company's screen was opened
    std::optional<Instance_Lock> lock;
};

TEST_F(Start_Test, First_Run_Makes_The_Firm_And_Asks_For_Its_Dates_Until_They_Are_Given) {
    Install("13", false);
    Install_Info info = Read_Install_Info(folder.path);
    info.kanri_no = 77;
    info.office_name = "株式会社 山田\"組\"";
    info.hojin_kojin = Firm_Type::Individual;
    info.syori_ki = 28;
    info.optional_columns = {{"代表者名", "山田"}, {"単位", "2"}};
    Write_Install_Info(folder.path, info);
    EXPECT_EQ(Start(), "ご利用のご挨拶 決算期情報未入力確認");
    EXPECT_EQ(edited, 1);
    EXPECT_EQ(In_Hand(), "77 株式会社 山田\"組\" 28 個人 5 4");
    EXPECT_EQ(List("SELECT 管理No, 代表者名, 地域CD, 許可番号2 FROM Jigyo_mas"), "77=山田=13=-");
    Jigyo_Init(session, info);
    EXPECT_EQ(List("SELECT 管理No FROM Jigyo_mas"), "77") << "still one row";
    EXPECT_EQ(session.Tani_Kbn, Display_Unit::Ones) << "the unit is yen after every start";
    EXPECT_EQ(Start(), "決算期情報未入力確認");
    Run({"UPDATE Jigyo_mas SET 決算期終了年=7, 決算期終了月=3, 決算期終了日=31, 決算期開始年=6, "
         "決算期開始月=4, 決算期開始日=1"});
    Write_Text_File(folder.path / "kidou.ini", "not a marker");
    EXPECT_EQ(Start(), "") << "the marker is never read in this mode";
    Run({"UPDATE Ks_Zaihyo SET 並び順=2 WHERE 建設科目CD=99"});
    Start(Start_Result::Ended);
    EXPECT_EQ(messages.shown.back().text, "データが2008年より古いため、起動できません。");
}

TEST_F(Start_Test, Without_A_Company_The_Marker_Decides) {
    EXPECT_EQ(Start(), "ご利用のご挨拶");
    EXPECT_EQ(session.Kanri_No, 0);
    EXPECT_EQ(Start(), "");
    fs::remove(folder.path / "kidou.ini");
    EXPECT_THROW(Start(), Store_Error) << "a missing marker is no clean end";
}

TEST_F(Start_Test, An_Abnormal_End_Keeps_The_Working_Store_And_Adopts_Its_Company) {
    Take_One_Of_Two();
    Put_Amounts({{100, 777}});
    EXPECT_EQ(Start(), "前回の異常終了を確認");
    EXPECT_EQ(In_Hand(), "12 青葉建設 5 法人 5 4");
    EXPECT_EQ(Amount(100), 777);
    Check_Out(session, 34, "港工務店");
    Check_Out(session, 12, "青葉建設");
    EXPECT_EQ(Amount(100), 777) << "the first check-in carries the edit over";
    session.Kanri_No = 0;
    EXPECT_FALSE(May_Unload(session));
    EXPECT_EQ(session.Kanri_No, 12) << "the marker's";
    Normal_End(session, *lock);
    EXPECT_TRUE(Read_Kidou_Ini(folder.path).Is_Clean());
    EXPECT_EQ(Start(), "");
    EXPECT_EQ(session.Kanri_No, 0);
}

// A newly registered company is in hand although the marker is that of a clean end.
TEST_F(Start_Test, The_Lock_File_Tells_Of_A_Company_That_The_Marker_Does_Not_Know) {
    Start();
    Register_Company(56, "新規建設");
    session.Kanri_No = 56;
    lock->Record(56);
    Put_Amounts({{100, 888}});
    EXPECT_EQ(Start(), "前回の異常終了を確認");
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
    Take_One_Of_Two();
    Keep();
    std::string broken = files.at("Morvane.dat");
    broken[broken.size() - 2000] = static_cast<char>(broken[broken.size() - 2000] ^ 1);
    const auto sql = [this](const char* text) { return [=, this] { Run({text}); }; };
    const auto put = [this](const std::string& content) {
        return [=, this] { Write_Text_File(work, content); };
    };
    const auto lose_own_file = [&] {
        put("text")();
        fs::remove(Company_Store(session, 12));
    };
    const auto lose_mark = [&] {
        put("text")();
        Write_Kidou_Ini(folder.path, {});
    };
    const auto put_folder = [&] {
        lose_mark();
        fs::remove(work);
        fs::create_directory(work);
    };
    // What happened, whether a file is set aside, and who is in hand after the start.
    const std::tuple<const char*, std::function<void()>, bool, std::int32_t> cases[] = {
        {"an unregistered firm", sql("UPDATE Jigyo_mas SET 管理No=77"), true, 12},
        {"another office's 12", sql("UPDATE Jigyo_mas SET 事業所名='他事務所'"), true, 12},
        {"another edition", sql("UPDATE Jigyo_mas SET 地域CD='01'"), true, 12},
        {"blank", sql("DELETE FROM Jigyo_mas"), false, 12},
        {"no store", put("text"), true, 12},
        {"a broken page", put(broken), true, 12},
        {"gone", [&] { fs::remove(work); }, false, 12},
        {"not in the register", [&] { Remove_Register_Row(session, 12); }, true, 0},
        {"its own file is gone too", lose_own_file, true, 0},
        {"nobody in hand, broken", lose_mark, true, 0},
        {"nobody in hand, a folder", put_folder, true, 0}};
    for (const auto& [what, harm, is_kept, in_hand] : cases) {
        SCOPED_TRACE(what);
        for (const fs::path& kept : Kept_Files()) {
            fs::remove_all(kept);
        }
        Restore();
        lock->Record(0);
        harm();
        const bool was_folder = fs::is_directory(work);
        File_Contents harmed = Read_Files(folder.path);
        const std::string told = in_hand == 0 ? "" : "前回の異常終了を確認";
        EXPECT_EQ(Start(), "作業用データの確認" + (told.empty() ? "" : " " + told));
        EXPECT_EQ(session.Kanri_No, in_hand);
        const std::vector<fs::path> kept = Kept_Files();
        EXPECT_EQ(kept.size(), is_kept ? 1U : 0U);
        if (is_kept) {
            EXPECT_PRED2(Has, messages.shown.front().text, kept.front().filename().string());
            EXPECT_TRUE(was_folder || Read_Text_File(kept.front()) == harmed["Morvane.dat"]);
        }
        EXPECT_TRUE(in_hand == 0 || List("SELECT 管理No FROM Jigyo_mas") == "12");
        for (const char* store : {"data/000012.dat", "data/000034.dat"}) {
            EXPECT_TRUE(Read_Files(folder.path)[store] == harmed[store]);
        }
        EXPECT_EQ(Start(), told) << "the next start has nothing to mend";
    }
}

// A folder that lost some of its files gets those back, and nothing else changes.
TEST_F(Start_Test, A_Repair_Makes_Only_What_Is_Lost) {
    Take_One_Of_Two();
    Check_In_And_Release(session);
    Keep();
    const auto rows = Read_Register(session);
    fs::remove(folder.path / install_info_file);
    EXPECT_THROW(New_Installation(Templates_Folder(), folder.path, {}), Store_Error);
    const std::vector<std::vector<std::string>> losses = {
        {install_info_file},
        {install_info_file, "kidou.ini", "Jgmas.dat", "Morvane.dat", "morv_org.dat"},
        {"Morvane.dat"},
        {"Jgmas.dat"},
        {"morv_13.dat", "morv_set.dat"},
        {}};
    for (const auto& lost : losses) {
        SCOPED_TRACE(lost.empty() ? "nothing" : lost.back());
        Restore();
        for (const std::string& name : lost) {
            fs::remove(folder.path / name);
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
    Restore();
    fs::remove(folder.path / "kidou.ini");
    Copy_Store(Company_Store(session, 12), folder.path / "Morvane.dat", session.Db_Key);
    Run({"UPDATE Jigyo_mas SET 電話番号='1'"});
    static_cast<void>(Repair_Installation(Templates_Folder(), folder.path, std::nullopt));
    EXPECT_EQ(Read_Kidou_Ini(folder.path).number, 12);
}

TEST_F(Start_Test, An_Edition_Is_Chosen_Whole_And_Keeps_What_Stood_There) {
    Make_Company(7, 1, 3);
    Choose_Edition(folder.path, Edition::Hokkaido);
    const Install_Info info = Read_Install_Info(folder.path);
    EXPECT_EQ(info.tiiki_cd + info.todofuken_mei, "01北海道");
    EXPECT_TRUE(Cn_Open(session).Open("SELECT * FROM Jigyo_mas").Eof());
    EXPECT_NO_THROW(Verify_Store(folder.path / "Morvane.dat.bak", session.Db_Key));
}

TEST_F(Start_Test, The_Updater_Is_Swapped_Only_For_A_File_Of_The_Installation) {
    const auto put = [&](const char* name, const char* text) { std::ofstream(folder.path / name) << text; };
    put("PgUpdata.exe", "old");
    put("PgUpdataUP.exe", "new");
    fs::permissions(folder.path / "PgUpdataUP.exe", fs::perms(0666));
    Swap_Updater(folder.path);
    EXPECT_EQ(Read_Text_File(folder.path / "PgUpdata.exe"), "old") << "anybody may have written the new one";
    fs::permissions(folder.path / "PgUpdataUP.exe", fs::perms(0644));
    Swap_Updater(folder.path);
    EXPECT_EQ(Read_Text_File(folder.path / "PgUpdata.exe"), "new");
    EXPECT_FALSE(fs::exists(folder.path / "PgUpdataUP.exe"));
    fs::create_symlink("/bin/true", folder.path / "PgUpdataUP.exe");
    Swap_Updater(folder.path);
    EXPECT_EQ(Read_Text_File(folder.path / "PgUpdata.exe"), "new");
}

} // namespace
} // namespace morvane::tests
