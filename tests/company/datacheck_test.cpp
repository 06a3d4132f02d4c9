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
    EXPECT_EQ(session.Kanri_No, 2);
    EXPECT_EQ(session.Jigyo_Name, "見本2");
    EXPECT_EQ(session.Syori_Ki, 7);
    EXPECT_EQ(session.Hojin_Kojin, Firm_Type::Individual);
    EXPECT_EQ(session.Data_Ver, Data_Form_No::National);
    EXPECT_EQ(Law_Number(session.Simyu_Kubun), 4);
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
            EXPECT_NE(std::string(error.what()).find(store_2), std::string::npos) << error.what();
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
    const std::function<void()> acts[] = {[&] {
                                              Session copy = session;
                                              ASSERT_TRUE(New_Data_Set(copy, Firm_Type::Individual, 11));
                                          },
                                          [&] { Write_Install_Info(folder.path, info); }};
    for (const auto& act : acts) {
        Expect_All_Or_Nothing(
            folder.path, act, [this] { return State(); }, true);
    }
}

TEST_F(Check_Out_Test, The_Marker_Follows_The_Working_Store_After_A_Crash) {
    const struct {
        bool multi;
        std::int32_t marked, settled;
    } cases[] = {
        {true, 2, 1}, {true, 1, 1}, {true, Kidou_Marker::clean_end, Kidou_Marker::clean_end}, {false, 2, 2}};
    for (const auto& c : cases) {
        session.Kanri_Flg = c.multi ? Office_Mode::Multi : Office_Mode::Single;
        Write_Kidou_Ini(folder.path, {c.marked, "見本"});
        Settle_Marker(session);
        EXPECT_EQ(Marked(), c.settled);
    }
    // The working store of nobody leaves the marker alone.
    session.Kanri_Flg = Office_Mode::Multi;
    Cn_Open(session).Execute("UPDATE Jigyo_mas SET 管理No = Null");
    Write_Kidou_Ini(folder.path, {2, "見本2"});
    Settle_Marker(session);
    EXPECT_EQ(Marked(), 2);
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
        try {
            act();
            ADD_FAILURE() << "no error";
        } catch (const Store_Error& error) {
            EXPECT_NE(std::string(error.what()).find(words), std::string::npos) << error.what();
            EXPECT_NE(std::string(error.what()).find(named), std::string::npos) << error.what();
        }
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

// What a crash left is adopted only where number, edition and name are the register's.
TEST_F(Check_Out_Test, The_Marker_Follows_No_Foreign_Store) {
    const struct {
        const char* sql;
        std::int32_t settled;
    } cases[] = {{"UPDATE Jigyo_mas SET 管理No=1", 1},
                 {"UPDATE Jigyo_mas SET 管理No=77", 2},
                 {"UPDATE Jigyo_mas SET 管理No=Null", 2},
                 {"UPDATE Jigyo_mas SET 事業所名='別の会社'", 2},
                 {"UPDATE Jigyo_mas SET 地域CD='01'", 2}};
    for (const auto& c : cases) {
        Restore();
        Write_Kidou_Ini(folder.path, {2, "見本2"});
        Cn_Open(session).Execute(c.sql);
        Settle_Marker(session);
        EXPECT_EQ(Marked(), c.settled) << c.sql;
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

TEST_F(Check_Out_Test, The_Register_Is_Listed_By_Number) {
    Put_Register_Row(session, {1000000, "大", "ﾀﾞｲ"});
    Put_Register_Row(session, {2, "改名", "ｶｲﾒｲ"});
    const auto rows = Read_Register(session);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[1].number, 2);
    EXPECT_EQ(rows[1].name, "改名");
    EXPECT_EQ(rows[2].kana, "ﾀﾞｲ");
}

TEST_F(Check_Out_Test, The_First_Start_Fills_The_Firm_From_The_Settings) {
    Check_In_And_Release(session);
    ASSERT_TRUE(New_Data_Set(session, Firm_Type::Corporation, 3));
    Install_Info info = Read_Install_Info(folder.path);
    info.kanri_no = 77;
    info.office_name = "青葉建設";
    info.hojin_kojin = Firm_Type::Individual;
    info.syori_ki = 3;
    info.optional_columns = {{"代表者名", "青葉 太郎"}, {"決算期終了年", "7"}, {"許可番号1", "般－5"}};
    Jigyo_Init(session, info);
    const auto firm = [this](const char* column) {
        return Field("Jigyo_mas", column, "管理No=77").As_Text();
    };
    EXPECT_EQ(firm("事業所名"), "青葉建設");
    EXPECT_EQ(firm("代表者名"), "青葉 太郎");
    EXPECT_EQ(firm("決算期終了年"), "7");
    EXPECT_EQ(firm("地域CD"), "13");
    EXPECT_EQ(firm("許可番号2"), "");
    Company_Reload(session);
    EXPECT_EQ(session.Syori_Ki, 3);
    EXPECT_EQ(session.Hojin_Kojin, Firm_Type::Individual);
    info.office_name = "再実行";
    Jigyo_Init(session, info);
    EXPECT_EQ(firm("事業所名"), "再実行");
    EXPECT_EQ(Field("Jigyo_mas", "管理No", "管理No<>77"), Value()) << "still one row";
}

} // namespace
} // namespace morvane::tests
