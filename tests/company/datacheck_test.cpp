// SPDX-FileCopyrightText: The Morvane developers
#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/left_work.h"
#include "company/register.h"
#include "data/store_file.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"
#include "support/failing_writes.h"
#include "support/installation_fixture.h"

#include <algorithm>

namespace morvane::tests {

namespace fs = std::filesystem;

namespace {

constexpr const char* working_store = "Morvane.dat";
constexpr const char* store_1 = "data/000001.dat";
constexpr const char* store_2 = "data/000002.dat";

/// Company 1 in hand with edits that its resting store lacks; company 2 at rest in a form that lacks
/// elements.
class Check_Out_Test : public Installation {
  protected:
    void SetUp() override {
        Make_Company(2, 2, 7);
        Cn_Open(session).Execute("DELETE FROM W_Yoso WHERE 要素CD>=235;");
        Check_In(session);
        Make_Company(1, 1, 5);
        Check_In(session);
        Put_Amounts({{101, 4711.0}});
        Write_Kidou_Ini(folder.path, {1, "見本1"});
        Put_Register_Row(session, {1, "見本1", "ﾐﾎﾝ1"});
        Put_Register_Row(session, {2, "見本2", "ﾐﾎﾝ2"});
        Keep();
    }

    /// Takes the present files and session as the state before every attempt.
    void Keep() {
        files = Read_Files(folder.path);
        start = session;
        before = State();
    }

    void Restore() {
        Write_Files(folder.path, files);
        session = start;
    }

    /// The state after an attempt and a new start. Only a process that was killed leaves drafts behind.
    std::map<std::string, std::string> State_After(Outcome outcome) {
        if (outcome == Outcome::Killed) {
            Sweep_Drafts(folder.path);
        }
        Settle_Marker(session);
        return State();
    }

    [[nodiscard]] std::int32_t Marked() const { return Read_Kidou_Ini(folder.path).number; }

    File_Contents files;
    Session start;
    std::map<std::string, std::string> before;
};

TEST_F(Check_Out_Test, Takes_A_Company_And_Saves_The_One_In_Hand) {
    Check_Out(session, 2, "見本2");
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
    const struct {
        const char* what;
        std::string content;
        Store_Error::Reason reason;
    } cases[] = {
        {"cut at a page", good.substr(0, good.size() / 2 / 4096 * 4096), Store_Error::Reason::Damaged},
        {"cut within a page", good.substr(0, good.size() - 100), Store_Error::Reason::Not_A_Store},
        {"empty", "", Store_Error::Reason::Not_A_Store},
        {"text", std::string(8192, 'x'), Store_Error::Reason::Not_A_Store},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        File_Contents broken = files;
        broken[store_2] = c.content;
        Write_Files(folder.path, broken);
        try {
            Check_Out(session, 2, "見本2");
            FAIL() << "no error";
        } catch (const Store_Error& error) {
            EXPECT_EQ(error.reason, c.reason) << error.what();
            EXPECT_PRED2(Has, error.what(), store_2);
        }
        EXPECT_EQ(session.Kanri_No, 1);
        EXPECT_EQ(session.Syori_Ki, 5);
        EXPECT_TRUE(Read_Files(folder.path) == broken);
    }
    // A store that opens and lacks a table.
    Restore();
    Connection(folder.path / store_2, Delivered_Key()).Execute("DROP TABLE W_Yoso");
    Keep();
    EXPECT_THROW(Check_Out(session, 2, "見本2"), Store_Error);
    EXPECT_EQ(session.Kanri_No, 1);
    EXPECT_TRUE(Read_Files(folder.path) == files);
    EXPECT_THROW(Check_Out(session, 3, "見本3"), Store_Error);
    EXPECT_TRUE(Read_Files(folder.path) == files);
}

TEST_F(Check_Out_Test, No_Failing_Write_Loses_Anything) {
    const struct {
        std::int32_t in_hand, wanted;
        bool hard_links;
    } cases[] = {{1, 2, true}, {1, 2, false}, {1, 1, true}, {0, 2, true}, {0, 1, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.in_hand) + " to " + std::to_string(c.wanted));
        Restore();
        if (c.in_hand == 0 && session.Kanri_No != 0) {
            Check_In_And_Release(session);
            Keep();
        }
        std::map<std::string, std::string> after;
        const auto check = [&](Outcome outcome) {
            auto now = State_After(outcome);
            if (outcome == Outcome::Finished && after.empty()) {
                after = now;
            }
            EXPECT_TRUE(now[store_2] == before[store_2]);
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
            now[store_1] = now[working_store] = now["kidou.ini"] = "";
            auto rest = before;
            rest[store_1] = rest[working_store] = rest["kidou.ini"] = "";
            EXPECT_TRUE(now == rest) << "other files";
        };
        Fail_Every_Write([this] { Restore(); },
                         [&] { Check_Out(session, c.wanted, "見本" + std::to_string(c.wanted)); }, check,
                         c.hard_links);
    }
}

TEST_F(Check_Out_Test, No_Failing_Write_Harms_A_Check_In) {
    const auto check = [&](Outcome outcome) {
        auto now = State_After(outcome);
        EXPECT_TRUE(now[working_store] == before[working_store]);
        const bool saved = now[store_1] == before[working_store];
        EXPECT_TRUE(saved || (now[store_1] == before[store_1] && outcome != Outcome::Finished));
        EXPECT_TRUE(Marked() == 1 || (saved && Marked() == Kidou_Marker::clean_end));
        if (outcome != Outcome::Finished) {
            EXPECT_EQ(session.Kanri_No, 1);
        }
        now[store_1] = now["kidou.ini"] = "";
        auto rest = before;
        rest[store_1] = rest["kidou.ini"] = "";
        EXPECT_TRUE(now == rest);
    };
    for (const bool hard_links : {true, false}) {
        Fail_Every_Write([this] { Restore(); }, [&] { Check_In(session); }, check, hard_links);
        Fail_Every_Write([this] { Restore(); }, [&] { Check_In_And_Release(session); }, check, hard_links);
    }
}

TEST_F(Check_Out_Test, No_Failing_Write_Harms_A_New_Company_Or_The_Settings) {
    Install_Info info = Read_Install_Info(folder.path);
    info.office_name = "新しい名前";
    const auto state = [this] { return State(); };
    Expect_All_Or_Nothing(
        folder.path, [&] { Write_Install_Info(folder.path, info); }, state, true);
    const auto new_company = [copy = session]() mutable { New_Data_Set(copy, Firm_Type::Individual, 11); };
    Expect_All_Or_Nothing(folder.path, new_company, state, true);
}

// The name of a file is no proof of whose it is: exchanged, copied and foreign files are refused, and nothing
// is written.
TEST_F(Check_Out_Test, Only_The_Company_Asked_For_Is_Taken_Or_Saved) {
    const struct {
        const char* sql;
        const char* words;
    } cases[] = {
        {"UPDATE Jigyo_mas SET 管理No=1, 事業所名='見本1'",
         "事業所番号 1「見本1」のデータで、事業所番号 2 のデータではありません"},
        {"UPDATE Jigyo_mas SET 管理No=1000002", "事業所番号 1000002"},
        {"UPDATE Jigyo_mas SET 管理No=Null", "事業所番号のないデータ"},
        {"DELETE FROM Jigyo_mas", "事業所番号のないデータ"},
        {"UPDATE Jigyo_mas SET 地域CD='0102'", "北海道版のデータで、このデータフォルダの全国版の"},
        {"UPDATE Ks_Zaihyo SET 並び順=6 WHERE 建設科目CD=99", "北海道版のデータ"},
    };
    const auto refused = [&](const char* words, const char* named, const std::function<void()>& act) {
        const File_Contents now = Read_Files(folder.path);
        const std::string refusal = Refusal_Of(act);
        EXPECT_PRED2(Has, refusal, words);
        EXPECT_PRED2(Has, refusal, named);
        EXPECT_EQ(session.Kanri_No, start.Kanri_No);
        EXPECT_TRUE(Read_Files(folder.path) == now);
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sql);
        Restore();
        Connection(folder.path / store_2, Delivered_Key()).Execute(c.sql);
        refused(c.words, store_2, [&] { Check_Out(session, 2, "見本2"); });
        // The same in the working store while company 2 counts as in hand.
        Restore();
        Check_Out(session, 2, "見本2");
        Cn_Open(session).Execute(c.sql);
        start.Kanri_No = 2;
        refused(c.words, working_store, [&] { Check_In(session); });
        refused(c.words, working_store, [&] { Check_Out(session, 1, "見本1"); });
        start.Kanri_No = 1;
    }
}

// What a crash left is adopted only where number, edition and name are the register's; the working store of
// nobody leaves the marker alone, and so does a firm of its own.
TEST_F(Check_Out_Test, The_Marker_Follows_The_Working_Store_After_A_Crash) {
    const struct {
        std::int32_t marked;
        const char* sql;
        std::int32_t settled;
        Office_Mode mode = Office_Mode::Multi;
    } cases[] = {{2, "UPDATE Jigyo_mas SET 管理No=1", 1},
                 {1, "UPDATE Jigyo_mas SET 管理No=1", 1},
                 {Kidou_Marker::clean_end, "UPDATE Jigyo_mas SET 管理No=1", Kidou_Marker::clean_end},
                 {2, "UPDATE Jigyo_mas SET 管理No=1", 2, Office_Mode::Single},
                 {2, "UPDATE Jigyo_mas SET 管理No=77", 2},
                 {2, "UPDATE Jigyo_mas SET 管理No=Null", 2},
                 {2, "UPDATE Jigyo_mas SET 事業所名='別の会社'", 2},
                 {2, "UPDATE Jigyo_mas SET 地域CD='01'", 2}};
    for (const auto& c : cases) {
        Restore();
        session.Kanri_Flg = c.mode;
        Write_Kidou_Ini(folder.path, {c.marked, "見本2"});
        Run({c.sql});
        Settle_Marker(session);
        EXPECT_EQ(Marked(), c.settled) << c.marked << " " << c.sql;
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
