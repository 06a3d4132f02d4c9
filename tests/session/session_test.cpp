// SPDX-FileCopyrightText: The Morvane developers
#include "session/session.h"

#include "data/connection.h"
#include "data/store_file.h"
#include "session/boxes.h"
#include "session/install_info.h"
#include "session/instance_lock.h"
#include "session/kidou_ini.h"
#include "session/kyotu_mod.h"
#include "session/program_folder.h"
#include "support/installation_fixture.h"
#include "support/listener.h"

#include <csignal>
#include <cstdlib>
#include <optional>
#include <stop_token>
#include <sys/wait.h>
#include <unistd.h>

namespace morvane::tests {

namespace fs = std::filesystem;

namespace {

class Session_Test : public Installation {
  protected:
    /// Runs `act`, which must raise a Store_Error with this reason that names `file`.
    template <class Act>
    void Expect_Refusal(const std::string& file, Store_Error::Reason reason, Act act) {
        try {
            act();
            ADD_FAILURE() << "no error";
        } catch (const Store_Error& error) {
            EXPECT_EQ(error.reason, reason) << error.what();
            EXPECT_EQ(error.file, folder.path / file);
        }
    }
};

TEST(Comma_Str, Groups_Of_Three) {
    const std::pair<Value, const char*> cases[] = {{Value(), ""},
                                                   {"", ""},
                                                   {0, "0"},
                                                   {999, "999"},
                                                   {1234567, "1,234,567"},
                                                   {-1234, "-1,234"},
                                                   {-100000, "-100,000"},
                                                   {999.5, "999"},
                                                   {-999.5, "-999"},
                                                   {-1234567.25, "-1,234,567.25"},
                                                   {999999999999.0, "999,999,999,999"},
                                                   {"-12345.60", "-12,345.60"}};
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(Comma_Str(value), text);
    }
}

TEST_F(Session_Test, A_Note_Has_A_Question_Or_An_Advice) {
    Make_Company(1, 1, 5);
    Run({"UPDATE QandA SET 質問 = '問' WHERE QNo=41", "UPDATE QandA SET アドバイス = '答' WHERE QNo=42",
         "INSERT INTO QandA (決算期, QNo, 質問) VALUES (4, 43, '前期')"});
    for (const auto& [screen, noted] :
         {std::pair(41, true), std::pair(42, true), std::pair(43, false), std::pair(99, false)}) {
        EXPECT_EQ(QandA_Flag(session, screen), noted) << screen;
    }
}

TEST_F(Session_Test, Lookups_Read_Missing_Rows_And_Null_As_Zero) {
    Make_Company(1, 1, 5);
    Put_Amounts({{101, 1234.0}});
    Put_Elements({{111, 30.0}});
    const Connection cn = Cn_Open(session);
    Recordset accounts = cn.Open("SELECT * FROM Ks_Zaihyo WHERE 決算期=5 ORDER BY 建設科目CD;");
    Recordset elements = cn.Open("SELECT * FROM W_Yoso WHERE 決算期=5 ORDER BY 要素CD;");
    EXPECT_EQ(Kamoku_Get(Account::Total_Assets, accounts), 0.0);
    EXPECT_EQ(Kamoku_Get(Account::Notes_Receivable, accounts), 1234.0);
    EXPECT_EQ(Yoso_Get(111, elements), 30.0);
    EXPECT_EQ(Yoso_Get(121, elements), 0.0);
    EXPECT_EQ(Yoso_Get(9999, elements), 0.0);
}

// The form of a period by the marker in its row 99, which may be missing, and by whether it has an account
// 552.
TEST_F(Session_Test, Data_Forms_By_Edition) {
    const Value no_row = -1;
    const struct {
        Edition edition;
        Value marker;
        bool has_552;
        int form;
    } cases[] = {{Edition::National, 5, false, 5},       {Edition::National, 3, false, 3},
                 {Edition::National, 6, true, 6},        {Edition::National, 1, false, 1},
                 {Edition::National, {}, false, 2},      {Edition::National, 2, false, 2},
                 {Edition::National, no_row, false, 51}, {Edition::National, no_row, true, 51},
                 {Edition::Hokkaido, 6, false, 6},       {Edition::Hokkaido, 4, false, 4},
                 {Edition::Hokkaido, 1, true, 53},       {Edition::Hokkaido, 2, false, 53},
                 {Edition::Hokkaido, 2, true, 2},        {Edition::Hokkaido, {}, true, 2},
                 {Edition::Hokkaido, {}, false, 53},     {Edition::Hokkaido, no_row, true, 52},
                 {Edition::Hokkaido, no_row, false, 52}};
    const Connection cn = Cn_Open(session);
    const char* const insert = "INSERT INTO Ks_Zaihyo (決算期, 建設科目CD, 並び順) VALUES (?, ?, ?)";
    for (const auto& c : cases) {
        session.Tiiki_CD = c.edition;
        cn.Execute("DELETE FROM Ks_Zaihyo");
        if (c.marker != no_row) {
            cn.Execute(insert, 3, 99, c.marker);
        }
        if (c.has_552) {
            cn.Execute(insert, 3, 552, 0);
        }
        cn.Execute(insert, 2, 99, 4);
        cn.Execute(insert, 2, 552, 0);
        EXPECT_EQ(Number_Of(Get_Data_Ver(session, 3)), c.form) << c.marker.As_Text() << " " << c.has_552;
    }
}

TEST_F(Session_Test, The_Marker_Keeps_Any_Name) {
    for (const char* name :
         {"", "見本", "a,b", "\"", "\"株\"式,会社\"", "二\n行", "終\n", ",", "999999,\"x\""}) {
        Write_Kidou_Ini(folder.path, {-7, name});
        const Kidou_Marker marker = Read_Kidou_Ini(folder.path);
        EXPECT_EQ(marker.number, -7);
        EXPECT_EQ(marker.name, name);
        EXPECT_FALSE(marker.Is_Clean());
    }
    Write_Kidou_Ini(folder.path, {});
    EXPECT_TRUE(Read_Kidou_Ini(folder.path).Is_Clean());
    EXPECT_EQ(Read_Kidou_Ini(folder.path).name, "正常終了");
    fs::rename(folder.path / "kidou.ini", folder.path / "KIDOU.INI");
    Write_Text_File(folder.path / "KIDOU.INI", "12,\"a\"\r\n");
    EXPECT_EQ(Read_Kidou_Ini(folder.path).number, 12);
}

TEST_F(Session_Test, A_Marker_That_Is_None_Is_Refused) {
    for (const char* text :
         {"", "\n", "見本", "1", "1,", "1,a", "1,\"a", "1,\"", "1,a\"", "1,\"a\"\"", "1,\"a\"b\"", "1,\"a\"x",
          "1;\"a\"", " 1,\"a\"", "99999999999,\"a\"", "1.5,\"a\"", "1,\"a\"\n2,\"b"}) {
        Write_Text_File(folder.path / "kidou.ini", text);
        SCOPED_TRACE(text);
        Expect_Refusal("kidou.ini", Store_Error::Reason::Bad_Content,
                       [&] { static_cast<void>(Read_Kidou_Ini(folder.path)); });
    }
    fs::remove(folder.path / "kidou.ini");
    Expect_Refusal("kidou.ini", Store_Error::Reason::Missing,
                   [&] { static_cast<void>(Read_Kidou_Ini(folder.path)); });
}

TEST_F(Session_Test, Settings_Are_Kept) {
    Install_Info info;
    info.user_id = "U-1";
    info.tiiki_cd = "0102";
    info.todofuken_mei = "北海道";
    info.hojin_kojin = Firm_Type::Individual;
    info.syori_ki = -3;
    info.kanri_no = 2147483647;
    info.office_name = "「\"引用\"」\\";
    info.net_check_host = "example.jp:80";
    info.optional_columns = {{"代表者名", "見本"}, {"決算期開始年", "6"}};
    Write_Install_Info(folder.path, info);
    const Install_Info read = Read_Install_Info(folder.path);
    EXPECT_EQ(read.office_name, info.office_name);
    EXPECT_EQ(read.net_check_host, info.net_check_host);
    EXPECT_EQ(read.optional_columns, info.optional_columns);
    session = Make_Session(folder.path, messages);
    EXPECT_EQ(In_Hand().substr(0, 11) + session.User_ID + session.Todofuken_Mei, "2147483647 U-1北海道");
    EXPECT_TRUE(session.Is_Hokkaido() && !session.Is_Multi());
    EXPECT_EQ(session.Hojin_Kojin, Firm_Type::Individual);
    EXPECT_EQ(session.Syori_Ki, -3);
    EXPECT_EQ(session.Tani_Kbn, Display_Unit::Ones);
    Verify_Store(session.Work_Store, session.Db_Key);

    Write_Text_File(folder.path / install_info_file,
                    R"({"管理者識別": 11, "許可番号1": 123, "ビル名": null, "処理決算期": null})");
    const Install_Info sparse = Read_Install_Info(folder.path);
    EXPECT_EQ(sparse.kanri_flg, Office_Mode::Multi);
    EXPECT_EQ(sparse.hojin_kojin, Firm_Type::Corporation);
    EXPECT_EQ(sparse.syori_ki, 0);
    EXPECT_EQ(sparse.tiiki_cd, "");
    EXPECT_EQ(sparse.optional_columns, (std::map<std::string, std::string>{{"許可番号1", "123"}}));
}

// What a store or the settings hold of a firm's kind, what it reads as and what the arithmetic makes of it.
TEST(Firm_Kind, Stored_Codes_Read_As_One_Of_Two_Or_None) {
    const struct {
        const char* code;
        std::optional<Edition> edition;
    } editions[] = {{"01", Edition::Hokkaido},
                    {"0102", Edition::Hokkaido},
                    {"13", Edition::National},
                    {"13x", Edition::National},
                    {"", {}},
                    {"1", {}},
                    {"14", {}},
                    {"001", {}}};
    for (const auto& c : editions) {
        EXPECT_EQ(Edition_Of(c.code), c.edition) << c.code;
        EXPECT_EQ(Code_Of(c.edition), c.edition ? std::string(c.code, 2) : "") << c.code;
    }
    const struct {
        std::int64_t number;
        std::optional<Firm_Type> type;
        Firm_Type counted;
    } types[] = {{1, Firm_Type::Corporation, Firm_Type::Corporation},
                 {2, Firm_Type::Individual, Firm_Type::Individual},
                 {0, {}, Firm_Type::Individual},
                 {3, {}, Firm_Type::Individual},
                 {4294967297, {}, Firm_Type::Individual}};
    for (const auto& c : types) {
        EXPECT_EQ(Firm_Type_Of(c.number), c.type) << c.number;
        EXPECT_EQ(Counted(Firm_Type_Of(c.number)), c.counted) << c.number;
    }
}

TEST(Data_Form, Stored_Numbers_Keep_Their_Order) {
    const struct {
        int number;
        bool too_old, before_2008, present;
        std::optional<Edition> edition;
    } forms[] = {{0, true, false, false, {}},
                 {1, true, true, false, {}},
                 {2, true, true, false, {}},
                 {3, false, false, false, Edition::National},
                 {4, false, false, false, Edition::Hokkaido},
                 {5, false, false, true, Edition::National},
                 {6, false, false, true, Edition::Hokkaido},
                 {7, false, false, false, {}},
                 {51, false, false, false, {}},
                 {53, false, false, false, {}}};
    for (const auto& c : forms) {
        const Data_Form_No form = Data_Form_Of(c.number);
        EXPECT_EQ(Number_Of(form), c.number);
        EXPECT_EQ(form < Data_Form_No::National_2008, c.too_old) << c.number;
        EXPECT_EQ(Is_Before_2008(form), c.before_2008) << c.number;
        EXPECT_EQ(Is_Present(form), c.present) << c.number;
        EXPECT_EQ(Edition_Of(form), c.edition) << c.number;
    }
}

TEST(Office, Other_Numbers_Are_A_Single_Firm_And_Million_Yen) {
    for (const auto& [number, mode] : {std::pair(0, Office_Mode::Single),
                                       {1, Office_Mode::Single},
                                       {11, Office_Mode::Multi},
                                       {255, Office_Mode::Single}}) {
        EXPECT_EQ(Office_Mode_Of(static_cast<std::uint8_t>(number)), mode) << number;
    }
    for (const auto& [number, unit] : {std::pair(1, Display_Unit::Ones),
                                       {2, Display_Unit::Thousands},
                                       {3, Display_Unit::Millions},
                                       {0, Display_Unit::Millions}}) {
        EXPECT_EQ(Display_Unit_Of(number), unit) << number;
    }
}

TEST_F(Session_Test, Data_Beside_The_Program_Are_Never_Passed_Over) {
    const fs::path program = folder.path / "program";
    const fs::path of_user = folder.path / "user";
    ::setenv("XDG_DATA_HOME", of_user.c_str(), 1);
    const struct {
        const char* beside;
        bool is_own;
    } cases[] = {{"manual/index.html", false}, {"data/notes.txt", false},   {"templates/morv_13.dat", true},
                 {"install_info.json", true},  {"INSTALL_INFO.JSON", true}, {"Morvane.dat", true},
                 {"Jgmas.dat", true},          {"data/000001.dat", true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.beside);
        fs::remove_all(program);
        fs::create_directories((program / c.beside).parent_path());
        Write_Text_File(program / c.beside, "");
        EXPECT_EQ(Choose_App_Path(program), c.is_own ? program : of_user / "morvane");
    }
    EXPECT_EQ(Choose_App_Path(folder.path / "unreadable"), folder.path / "unreadable");
    ::unsetenv("XDG_DATA_HOME");
    Expect_Refusal("unreadable", Store_Error::Reason::Missing,
                   [&] { Test_Writable(folder.path / "unreadable"); });
}

TEST_F(Session_Test, Each_Store_Has_Its_Opener) {
    const struct {
        const char* file;
        Connection (*open)(const Session&);
        const char* table;
        bool writable;
    } cases[] = {{"Morvane.dat", Cn_Open, "Ks_Zaihyo", true},
                 {"morv_tmp.dat", Cn_Open_Tmp, "Ks_Zaihyo", false},
                 {"Jgmas.dat", Cn_Open_Jgmas, "jgmas", true},
                 {"morv_org.dat", Cn_Open_Org, "Ks_Zaihyo_Hk_new", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const std::string clear = std::string("DELETE FROM ") + c.table;
        if (c.writable) {
            EXPECT_NO_THROW(c.open(session).Execute(clear));
        } else {
            Expect_Refusal(c.file, Store_Error::Reason::Read_Only, [&] { c.open(session).Execute(clear); });
        }
        fs::remove(folder.path / c.file);
        Expect_Refusal(c.file, Store_Error::Reason::Missing, [&] { c.open(session).Close(); });
    }
    session.messages = nullptr;
    EXPECT_THROW(Show_Message(session, {}), std::logic_error);
}

TEST_F(Session_Test, One_Program_Holds_An_Installation) {
    std::array<int, 2> ready{};
    ASSERT_EQ(::pipe(ready.data()), 0);
    const pid_t holder = ::fork();
    if (holder == 0) {
        const auto lock = Instance_Lock::Take(folder.path);
        lock->Record(123456789);
        lock->Record(42);
        if (::write(ready[1], "x", 1) == 1) {
            ::pause();
        }
        ::_exit(0);
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    EXPECT_FALSE(Instance_Lock::Take(folder.path).has_value());
    ::kill(holder, SIGKILL);
    ASSERT_EQ(::waitpid(holder, nullptr, 0), holder);
    ::close(ready[0]);
    ::close(ready[1]);
    {
        const auto lock = Instance_Lock::Take(folder.path);
        ASSERT_TRUE(lock.has_value());
        EXPECT_EQ(lock->Left_Behind(), 42);
        lock->Record(0);
        EXPECT_FALSE(Instance_Lock::Take(folder.path).has_value()) << "a second start in the same process";
    }
    EXPECT_EQ(Instance_Lock::Take(folder.path)->Left_Behind(), 0);
    EXPECT_THROW(Instance_Lock::Take(folder.path / "none"), Store_Error);
}

TEST(Net_Check, Tells_Whether_A_Host_Answers) {
    std::optional<Listener> listener(4);
    const std::string host = listener->Host();
    const std::string port = host.substr(host.find(':'));
    EXPECT_EQ(Net_Check(host), "1");
    listener.reset();
    for (const std::string& silent :
         {host, std::string(), port, std::string("127.0.0.1:"), std::string("127.0.0.1:no"),
          std::string("host.invalid:80"), std::string("a b:80")}) {
        EXPECT_EQ(Net_Check(silent, 500), "0") << silent;
    }
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(Net_Check(host, 500, stop.get_token()), "0") << "nobody waits any more";
}

TEST(Url_Open, Hands_Only_Web_And_Help_Addresses_To_The_Desktop) {
    const Temporary_Folder desktop;
    const fs::path opened = desktop.path / "opened";
    const auto install = [&](const std::string& last_line) {
        Write_Text_File(desktop.path / "xdg-open",
                        "#!/bin/sh\nprintf '%s' \"$*\" > '" + opened.string() + "'\n" + last_line);
        fs::permissions(desktop.path / "xdg-open", fs::perms::owner_all);
    };
    const std::string path = ::getenv("PATH");
    ::setenv("PATH", (desktop.path.string() + ":" + path).c_str(), 1);
    install("exit 0\n");
    for (const char* address :
         {"http://example.jp", "https://example.jp/?a=1&b=$(date);`date` '\"", "file:///usr/share/x.html"}) {
        EXPECT_TRUE(Url_Open(address)) << address;
        EXPECT_EQ(Read_Text_File(opened), address);
    }
    fs::remove(opened);
    for (const char* address :
         {"", "example.jp", "ftp://example.jp", "javascript:alert(1)", "/bin/sh", "file://host/x", "--help",
          " https://example.jp", "mailto:a@example.jp", "https:"}) {
        EXPECT_FALSE(Url_Open(address)) << address;
        EXPECT_FALSE(fs::exists(opened)) << address;
    }
    install("exit 3\n");
    EXPECT_FALSE(Url_Open("https://example.jp"));
    ::setenv("PATH", (desktop.path / "none").c_str(), 1);
    EXPECT_FALSE(Url_Open("https://example.jp"));
    ::setenv("PATH", path.c_str(), 1);
}

} // namespace
} // namespace morvane::tests
