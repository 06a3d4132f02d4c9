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
#include <tuple>
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

TEST(Comma_Str_Test, Groups_Of_Three) {
    const Value values[] = {{}, "", 0, 999, -1234, -100000, -999.5, -1234567.25, 999999999999.0, "-12345.60"};
    std::string texts;
    for (const Value& value : values) {
        texts += Comma_Str(value) + "|";
    }
    EXPECT_EQ(texts, "||0|999|-1,234|-100,000|-999|-1,234,567.25|999,999,999,999|-12,345.60|");
}

TEST_F(Session_Test, A_Note_Has_A_Question_Or_An_Advice) {
    Make_Company(1, 1, 5);
    Run({"UPDATE QandA SET 質問 = '問' WHERE QNo=41", "UPDATE QandA SET アドバイス = '答' WHERE QNo=42",
         "INSERT INTO QandA (決算期, QNo, 質問) VALUES (4, 43, '前期')"});
    for (const auto& [screen, noted] : {std::pair(41, true), {42, true}, {43, false}, {99, false}}) {
        EXPECT_EQ(QandA_Flag(session, screen), noted) << screen;
    }
}

// The form of a period by the marker in its row 99, which may be missing, and by whether it has an account
// 552.
TEST_F(Session_Test, Data_Forms_By_Edition) {
    const Value no_row = -1;
    const std::tuple<Value, bool, int, int> cases[] = {
        {5, false, 5, 5},   {6, true, 6, 6},   {3, false, 3, 3},        {4, false, 4, 4},
        {1, true, 1, 53},   {1, false, 1, 53}, {2, false, 2, 53},       {2, true, 2, 2},
        {{}, false, 2, 53}, {{}, true, 2, 2},  {no_row, false, 51, 52}, {no_row, true, 51, 52}};
    const Connection cn = Cn_Open(session);
    const char* const insert = "INSERT INTO Ks_Zaihyo (決算期, 建設科目CD, 並び順) VALUES (?, ?, ?)";
    for (const auto& [marker, has_552, national, hokkaido] : cases) {
        cn.Execute("DELETE FROM Ks_Zaihyo");
        if (marker != no_row) {
            cn.Execute(insert, 3, 99, marker);
        }
        if (has_552) {
            cn.Execute(insert, 3, 552, 0);
        }
        cn.Execute(insert, 2, 99, 4);
        cn.Execute(insert, 2, 552, 0);
        EXPECT_EQ(Number_Of(Get_Data_Ver(cn, Edition::National, 3)), national) << marker.As_Text();
        EXPECT_EQ(Number_Of(Get_Data_Ver(cn, Edition::Hokkaido, 3)), hokkaido) << marker.As_Text();
    }
}

TEST_F(Session_Test, The_Marker_Keeps_Any_Name) {
    for (const char* name :
         {"", "見本", "a,b", "\"", "\"株\"式,会社\"", "二\n行", "終\n", ",", "999999,\"x\""}) {
        Write_Kidou_Ini(folder.path, {-7, name});
        const Kidou_Marker marker = Read_Kidou_Ini(folder.path);
        EXPECT_EQ(std::to_string(marker.number) + marker.name, std::string("-7") + name);
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
        Expect_Refusal("kidou.ini", Store_Error::Reason::Bad_Content, [&] { Read_Kidou_Ini(folder.path); });
    }
    fs::remove(folder.path / "kidou.ini");
    Expect_Refusal("kidou.ini", Store_Error::Reason::Missing, [&] { Read_Kidou_Ini(folder.path); });
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
    EXPECT_EQ(Read_Install_Info(folder.path).net_check_host, info.net_check_host);
    EXPECT_EQ(Read_Install_Info(folder.path).optional_columns, info.optional_columns);
    session = Make_Session(folder.path, messages);
    EXPECT_EQ(In_Hand() + session.User_ID + session.Todofuken_Mei + session.Office_Name,
              "2147483647  -3 個人 0 0U-1北海道" + info.office_name);
    EXPECT_TRUE(session.Is_Hokkaido() && !session.Is_Multi());
    EXPECT_EQ(session.Tani_Kbn, Display_Unit::Ones);
    Verify_Store(session.Work_Store, session.Db_Key);

    Write_Text_File(folder.path / install_info_file,
                    R"({"管理者識別": 11, "許可番号1": 123, "ビル名": null, "処理決算期": null})");
    const Install_Info sparse = Read_Install_Info(folder.path);
    EXPECT_EQ(sparse.kanri_flg, Office_Mode::Multi);
    EXPECT_EQ(sparse.hojin_kojin, Firm_Type::Corporation);
    EXPECT_EQ(std::to_string(sparse.syori_ki) + sparse.tiiki_cd, "0");
    EXPECT_EQ(sparse.optional_columns, (std::map<std::string, std::string>{{"許可番号1", "123"}}));
}

// What a store or the settings hold of a firm's kind, what it reads as and what the arithmetic
// makes of it.
TEST(Stored_Codes_Test, They_Read_As_One_Of_A_Few_Or_None) {
    using Known = std::optional<Edition>;
    constexpr Edition national = Edition::National, hokkaido = Edition::Hokkaido;
    for (const auto& [code, edition] : {std::pair<const char*, Known>("01", hokkaido),
                                        {"0102", hokkaido},
                                        {"13", national},
                                        {"13x", national},
                                        {"", {}},
                                        {"1", {}},
                                        {"14", {}},
                                        {"001", {}}}) {
        EXPECT_EQ(Edition_Of(code), edition) << code;
        EXPECT_EQ(Code_Of(edition), edition ? std::string(code, 2) : "") << code;
    }
    for (const std::int64_t number : {1L, 2L, 0L, 3L, 4294967297L}) {
        const auto type = Firm_Type_Of(number);
        EXPECT_EQ(type.has_value(), number == 1 || number == 2) << number;
        EXPECT_EQ(Counted(type), number == 1 ? Firm_Type::Corporation : Firm_Type::Individual) << number;
    }
    for (const auto& [number, unit] : {std::pair(0, 2), {1, 0}, {2, 1}, {3, 2}}) {
        EXPECT_EQ(static_cast<int>(Display_Unit_Of(number)), unit) << number;
    }
}

TEST_F(Session_Test, Data_Beside_The_Program_Are_Never_Passed_Over) {
    const fs::path program = folder.path / "program";
    const fs::path of_user = folder.path / "user";
    ::setenv("XDG_DATA_HOME", of_user.c_str(), 1);
    const std::pair<const char*, bool> cases[] = {
        {"manual/index.html", false}, {"data/notes.txt", false},   {"templates/morv_13.dat", true},
        {"install_info.json", true},  {"INSTALL_INFO.JSON", true}, {"Morvane.dat", true},
        {"Jgmas.dat", true},          {"data/000001.dat", true}};
    for (const auto& [beside, is_own] : cases) {
        SCOPED_TRACE(beside);
        fs::remove_all(program);
        fs::create_directories((program / beside).parent_path());
        Write_Text_File(program / beside, "");
        EXPECT_EQ(Choose_App_Path(program), is_own ? program : of_user / "morvane");
    }
    EXPECT_EQ(Choose_App_Path(folder.path / "unreadable"), folder.path / "unreadable");
    ::unsetenv("XDG_DATA_HOME");
    Expect_Refusal("unreadable", Store_Error::Reason::Missing,
                   [&] { Test_Writable(folder.path / "unreadable"); });
}

TEST_F(Session_Test, Each_Store_Has_Its_Opener) {
    const std::tuple<const char*, Connection (*)(const Session&), std::string, bool> cases[] = {
        {"Morvane.dat", Cn_Open, "Ks_Zaihyo", true},
        {"morv_tmp.dat", Cn_Open_Tmp, "Ks_Zaihyo", false},
        {"Jgmas.dat", Cn_Open_Jgmas, "jgmas", true},
        {"morv_org.dat", Cn_Open_Org, "Ks_Zaihyo_Hk_new", false}};
    for (const auto& [file, opener, table, writable] : cases) {
        SCOPED_TRACE(file);
        const auto clear = [&session = session, open = opener, sql = "DELETE FROM " + table] {
            open(session).Execute(sql);
        };
        if (writable) {
            EXPECT_NO_THROW(clear());
        } else {
            Expect_Refusal(file, Store_Error::Reason::Read_Only, clear);
        }
        fs::remove(folder.path / file);
        Expect_Refusal(file, Store_Error::Reason::Missing, clear);
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

TEST(Net_Check_Test, Tells_Whether_A_Host_Answers) {
    std::optional<Listener> listener(4);
    const std::string host = listener->Host();
    const std::string port = host.substr(host.find(':'));
    EXPECT_EQ(Net_Check(host), "1");
    listener.reset();
    for (const std::string& silent : std::vector<std::string>{host, "", port, "127.0.0.1:", "127.0.0.1:no",
                                                              "host.invalid:80", "a b:80"}) {
        EXPECT_EQ(Net_Check(silent, 500), "0") << silent;
    }
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(Net_Check(host, 500, stop.get_token()), "0") << "nobody waits any more";
}

TEST(Url_Open_Test, Hands_Only_Web_And_Help_Addresses_To_The_Desktop) {
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
