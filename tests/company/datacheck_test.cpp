// SPDX-FileCopyrightText: The Morvane developers
#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/left_work.h"
#include "company/register.h"
#include "data/store_file.h"
#include "session/kidou_ini.h"
#include "support/installation_fixture.h"

#include <tuple>

namespace morvane::tests {

namespace fs = std::filesystem;

namespace {

constexpr const char* working_store = "Morvane.dat";
constexpr const char* store_1 = "data/000001.dat";
constexpr const char* store_2 = "data/000002.dat";

/// Company 1 in hand with edits that its resting store lacks; company 2 at rest in a form that lacks
/// elements.
class Check_Out_Test : public Kept_Installation {
  protected:
    Check_Out_Test() {
        Register_Company(2, "見本2", 2, 7);
        Change(store_2, "DELETE FROM W_Yoso WHERE 要素CD>=235");
        Register_Company(1, "見本1");
        Check_Out(session, 1, "見本1");
        Put_Amounts({{101, 4711.0}});
        Keep();
    }

    void Change(const char* store, const char* sql) const {
        Connection(folder.path / store, Delivered_Key()).Execute(sql);
    }

    /// The state after an attempt and a new start. Only a process that was killed leaves drafts behind.
    std::map<std::string, std::string> State_After(Outcome outcome) {
        if (outcome == Outcome::Killed) {
            Sweep_Drafts(folder.path);
        }
        Settle_Marker(session);
        return State();
    }

    /// Beside the store of company 1, the marker and, where it may change, the working store all is as
    /// before.
    void Expect_Others_As_Before(std::map<std::string, std::string> now, bool with_work = false) const {
        for (const auto& [file, content] : before) {
            if (file != store_1 && file != "kidou.ini" && (file != working_store || with_work)) {
                EXPECT_TRUE(now[file] == content) << file;
            }
        }
        EXPECT_EQ(now.size(), before.size());
    }

    /// Refused with words that name the file, and nothing is written.
    void Expect_Refused(const std::function<void()>& act, const char* file, const std::string& words = "") {
        const File_Contents now = Read_Files(folder.path);
        const std::string in_hand = In_Hand();
        const std::string refusal = Refusal_Of(act);
        EXPECT_PRED2(Has, refusal, words);
        EXPECT_PRED2(Has, refusal, file);
        EXPECT_EQ(In_Hand(), in_hand);
        EXPECT_TRUE(Read_Files(folder.path) == now);
    }

    [[nodiscard]] std::int32_t Marked() const { return Read_Kidou_Ini(folder.path).number; }

    const std::function<void()> take_2 = [this] { Check_Out(session, 2, "見本2"); };
};

TEST_F(Check_Out_Test, Takes_A_Company_And_Saves_The_One_In_Hand) {
    take_2();
    auto now = State();
    EXPECT_TRUE(now[store_1] == before[working_store]);
    EXPECT_TRUE(now[store_2] == before[store_2]);
    EXPECT_EQ(now["kidou.ini"], "2,\"見本2\"\n");
    EXPECT_EQ(In_Hand(), "2 見本2 7 個人 5 4");
    EXPECT_EQ(session.Work_Store, folder.path / working_store);
    EXPECT_FALSE(Field("W_Yoso", "要素名", "要素CD=239").Is_Null()) << "the rows that were missing";

    Check_Out(session, 1, "見本1");
    EXPECT_EQ(Amount(101), 4711.0);
    EXPECT_EQ(session.Syori_Ki, 5);
    Put_Amounts({{101, 4712.0}});
    Check_Out(session, 1, "見本1");
    EXPECT_EQ(Amount(101), 4712.0) << "the company in hand, taken again, loses nothing";
    EXPECT_TRUE(State()[store_1] == State()[working_store]);

    Check_In_And_Release(session);
    EXPECT_EQ(session.Kanri_No, 0);
    EXPECT_EQ(session.Jigyo_Name, "");
    EXPECT_EQ(State()["kidou.ini"], "999999,\"正常終了\"\n");
    now = State();
    Check_In(session);
    EXPECT_TRUE(State() == now) << "without a company in hand nothing is saved";
}

TEST_F(Check_Out_Test, A_Resting_Store_That_Cannot_Be_Taken_Changes_Nothing) {
    const std::string good = files[store_2];
    for (const auto& [content, words] : {std::pair(good.substr(0, good.size() / 2 / 4096 * 4096), "壊れて"),
                                         {good.substr(0, good.size() - 100), "開けません"},
                                         {std::string(), "開けません"},
                                         {std::string(8192, 'x'), "開けません"}}) {
        SCOPED_TRACE(content.size());
        Write_Text_File(folder.path / store_2, content);
        Expect_Refused(take_2, store_2, words);
    }
    // A store that opens and lacks a table, and one that is not there.
    Restore();
    Change(store_2, "DROP TABLE W_Yoso");
    Expect_Refused(take_2, store_2);
    Expect_Refused([this] { Check_Out(session, 3, "見本3"); }, "000003.dat");
}

TEST_F(Check_Out_Test, No_Failing_Write_Loses_Anything) {
    struct Row {
        std::int32_t in_hand, wanted;
        bool hard_links;
    };
    for (const Row& c :
         {Row{1, 2, true}, Row{1, 2, false}, Row{1, 1, true}, Row{0, 2, true}, Row{0, 1, false}}) {
        SCOPED_TRACE(std::to_string(c.in_hand) + " to " + std::to_string(c.wanted));
        Restore();
        if (c.in_hand == 0 && session.Kanri_No != 0) {
            Check_In_And_Release(session);
            Keep();
        }
        std::map<std::string, std::string> after;
        const auto check = [&](Outcome outcome) {
            auto now = State_After(outcome);
            after = after.empty() ? now : after;
            Expect_Others_As_Before(now);
            const bool saved = now[store_1] == before[working_store];
            EXPECT_TRUE(saved || now[store_1] == before[store_1]);
            const bool taken = now[working_store] == after[working_store];
            if (taken && c.wanted != c.in_hand) {
                EXPECT_TRUE(saved) << "the edits of the company that was in hand";
                EXPECT_TRUE(Marked() == c.wanted || (c.in_hand == 0 && Marked() == Kidou_Marker::clean_end));
            } else {
                EXPECT_TRUE(now[working_store] == before[working_store]);
                EXPECT_EQ(Marked(), c.in_hand == 0 ? Kidou_Marker::clean_end : c.in_hand);
            }
            if (outcome == Outcome::Finished) {
                EXPECT_TRUE(now == after);
                EXPECT_EQ(session.Kanri_No, c.wanted);
            }
            if (outcome == Outcome::Threw) {
                // The session names the company of the working store, or none.
                EXPECT_TRUE(session.Kanri_No == 0 ||
                            (session.Kanri_No == c.in_hand && (!taken || c.wanted == c.in_hand)));
                EXPECT_EQ(session.Syori_Ki, start.Syori_Ki);
            }
        };
        const auto take = [&] { Check_Out(session, c.wanted, "見本" + std::to_string(c.wanted)); };
        Fail_Every_Write([this] { Restore(); }, take, check, c.hard_links);
    }
}

TEST_F(Check_Out_Test, No_Failing_Write_Harms_A_Check_In) {
    const auto check = [&](Outcome outcome) {
        auto now = State_After(outcome);
        Expect_Others_As_Before(now, true);
        const bool saved = now[store_1] == before[working_store];
        EXPECT_TRUE(saved || (now[store_1] == before[store_1] && outcome != Outcome::Finished));
        EXPECT_TRUE(Marked() == 1 || (saved && Marked() == Kidou_Marker::clean_end));
        if (outcome != Outcome::Finished) {
            EXPECT_EQ(session.Kanri_No, 1);
        }
    };
    for (const bool hard_links : {true, false}) {
        Fail_Every_Write([this] { Restore(); }, [&] { Check_In(session); }, check, hard_links);
        Fail_Every_Write([this] { Restore(); }, [&] { Check_In_And_Release(session); }, check, hard_links);
    }
}

TEST_F(Check_Out_Test, No_Failing_Write_Harms_A_Blank_Company) {
    const auto blank = [copy = session]() mutable { New_Data_Set(copy, Firm_Type::Individual, 11); };
    Expect_All_Or_Nothing(
        folder.path, blank, [this] { return State(); }, true);
}

// The name of a file is no proof of whose it is: exchanged, copied and foreign files are refused, and nothing
// is written.
TEST_F(Check_Out_Test, Only_The_Company_Asked_For_Is_Taken_Or_Saved) {
    const std::pair<const char*, const char*> cases[] = {
        {"UPDATE Jigyo_mas SET 管理No=1, 事業所名='見本1'",
         "事業所番号 1「見本1」のデータで、事業所番号 2 のデータではありません"},
        {"UPDATE Jigyo_mas SET 管理No=1000002", "事業所番号 1000002"},
        {"UPDATE Jigyo_mas SET 管理No=Null", "事業所番号のないデータ"},
        {"DELETE FROM Jigyo_mas", "事業所番号のないデータ"},
        {"UPDATE Jigyo_mas SET 地域CD='0102'", "北海道版のデータで、このデータフォルダの全国版の"},
        {"UPDATE Ks_Zaihyo SET 並び順=6 WHERE 建設科目CD=99", "北海道版のデータ"},
        {"UPDATE Ks_Zaihyo SET 並び順=4 WHERE 建設科目CD=99", "北海道版のデータ"}};
    for (const auto& [sql, words] : cases) {
        SCOPED_TRACE(sql);
        Restore();
        Change(store_2, sql);
        Expect_Refused(take_2, store_2, words);
        // The same in the working store while company 2 counts as in hand.
        Restore();
        take_2();
        Change(working_store, sql);
        Expect_Refused([this] { Check_In(session); }, working_store, words);
        Expect_Refused([this] { Check_Out(session, 1, "見本1"); }, working_store, words);
    }
}

// What a crash left is adopted only where number, edition and name are the register's; the working store of
// nobody leaves the marker alone, and so does a firm of its own.
TEST_F(Check_Out_Test, The_Marker_Follows_The_Working_Store_After_A_Crash) {
    constexpr auto nobody = Kidou_Marker::clean_end;
    constexpr auto multi = Office_Mode::Multi;
    const std::tuple<std::int32_t, const char*, std::int32_t, Office_Mode> cases[] = {
        {2, "管理No=1", 1, multi},
        {1, "管理No=1", 1, multi},
        {nobody, "管理No=1", nobody, multi},
        {2, "管理No=1", 2, Office_Mode::Single},
        {2, "管理No=77", 2, multi},
        {2, "管理No=Null", 2, multi},
        {2, "事業所名='別の会社'", 2, multi},
        {2, "地域CD='01'", 2, multi}};
    for (const auto& [marked, change, settled, mode] : cases) {
        Restore();
        session.Kanri_Flg = mode;
        Write_Kidou_Ini(folder.path, {marked, "見本2"});
        Run({std::string("UPDATE Jigyo_mas SET ") + change});
        Settle_Marker(session);
        EXPECT_EQ(Marked(), settled) << marked << " " << change;
    }
}

TEST_F(Check_Out_Test, File_Names_Hold_The_Rightmost_Six_Digits) {
    for (const auto& [number, name] : {std::pair(1, "000001.dat"), std::pair(654321, "654321.dat"),
                                       std::pair(1234567, "234567.dat"), std::pair(1000002, "000002.dat")}) {
        EXPECT_EQ(Company_Store(session, number).filename(), name);
    }
    Rename_Store(folder.path / store_2, folder.path / "data/000003.DAT", Delivered_Key());
    EXPECT_EQ(Company_Store(session, 3).filename(), "000003.DAT") << "letters without regard to case";
}

} // namespace
} // namespace morvane::tests
