// SPDX-FileCopyrightText: The Morvane developers
#include "data/connection.h"
#include "data/store_file.h"
#include "data/table_catalogue.h"
#include "support/failing_writes.h"
#include "support/installation_fixture.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <sqlcipher/sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>

namespace morvane::tests {

namespace fs = std::filesystem;

namespace {

using enum Store_Error::Reason;

/// One store of some forty pages.
class Store_Test : public ::testing::Test {
  protected:
    void SetUp() override {
        const Connection cn = Connection::Create(file, key);
        cn.Execute("CREATE TABLE T (番号 Integer, 名前 Text, 金額 Double, 印 Boolean)");
        Transaction transaction(cn);
        for (int i = 0; i < 800; ++i) {
            cn.Execute("INSERT INTO T (番号, 名前, 金額) VALUES (?, ?, ?)", i,
                       std::string(150, static_cast<char>('a' + i % 26)), i / 8.0);
        }
        transaction.Commit();
        good = Read_Files(folder.path);
    }

    /// All rows of a store.
    static std::vector<std::string> Rows(const fs::path& store,
                                         Connection::Mode mode = Connection::Mode::Read_Only) {
        const Connection cn(store, key, mode);
        std::vector<std::string> rows;
        for (Recordset rs = cn.Open("SELECT * FROM T ORDER BY 番号"); !rs.Eof(); rs.Move_Next()) {
            rows.push_back(rs["番号"].As_Text() + rs["名前"].As_Text() + rs["金額"].As_Text());
        }
        return rows;
    }

    /// Runs `act`, which must raise a Store_Error that names `named` and the reason, and change no file.
    void Expect_Refusal(const fs::path& named, Store_Error::Reason reason, const std::function<void()>& act,
                        int line = __builtin_LINE()) {
        SCOPED_TRACE(line);
        const File_Contents files = Read_Files(folder.path);
        try {
            act();
            ADD_FAILURE() << "no error";
        } catch (const Store_Error& error) {
            const std::string text = error.what();
            EXPECT_EQ(error.reason, reason) << text;
            EXPECT_PRED2(Has, text, "「" + named.string() + "」");
            EXPECT_PRED2(Has, text, Reason_Text(reason));
            // Behind the file's name: neither SQL nor the engine's English.
            const std::string words = text.substr(text.find("」："));
            for (const char* foreign : {"SELECT", "UPDATE", "DELETE", "no such", "error", "database"}) {
                EXPECT_FALSE(Has(words, foreign)) << text;
            }
        }
        EXPECT_TRUE(Read_Files(folder.path) == files);
    }

    /// A process that is killed in the middle of a change of every row, part of which has reached the file.
    void Kill_A_Writer() {
        const pid_t child = ::fork();
        if (child == 0) {
            const Connection cn(file, key);
            cn.Execute("PRAGMA cache_size = 2");
            cn.Execute("BEGIN");
            cn.Execute("UPDATE T SET 名前 = 'lost', 番号 = 番号 + 5000");
            ::_exit(0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(fs::exists(journal));
        ASSERT_NE(Read_Files(folder.path)["s.dat"], good["s.dat"]);
    }

    static inline const Store_Key& key = Delivered_Key();

    Temporary_Folder folder;
    fs::path file = folder.path / "s.dat";
    fs::path journal = folder.path / "s.dat-journal";
    fs::path other = folder.path / "other.dat";
    File_Contents good;
};

/// While it lives the process has a user whom permissions bind, even if it was started by the superuser.
struct Common_User {
    Common_User() = default;
    Common_User(const Common_User&) = delete;
    Common_User& operator=(const Common_User&) = delete;
    ~Common_User() {
        if (was_root && holds) {
            EXPECT_EQ(::setresuid(0, 0, 0), 0);
        }
    }

    const bool was_root = ::geteuid() == 0;
    const bool holds = !was_root || ::setresuid(65534, 65534, 0) == 0;
};

void Make_Plain_Store(const fs::path& file) {
    sqlite3* store = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &store), SQLITE_OK);
    sqlite3_exec(store, "PRAGMA page_size = 4096; CREATE TABLE T (a); INSERT INTO T VALUES (1);", nullptr,
                 nullptr, nullptr);
    sqlite3_close(store);
}

TEST_F(Store_Test, Files_That_Are_No_Store_Are_Refused_Unchanged) {
    const std::string content = good["s.dat"];
    const fs::path plain = folder.path / "plain.dat";
    Make_Plain_Store(plain);
    const std::string foreign = Read_Files(folder.path)["plain.dat"];
    ASSERT_EQ(foreign.size() % 4096, 0U);
    const auto flipped = [&](std::size_t at, int bit) {
        std::string damaged = content;
        damaged[at] = static_cast<char>(damaged[at] ^ bit);
        return damaged;
    };
    const std::tuple<const char*, std::string, Store_Error::Reason> cases[] = {
        {"empty", "", Not_A_Store},
        {"cut in the first page", content.substr(0, 1000), Not_A_Store},
        {"cut in a later page", content.substr(0, content.size() - 4000), Not_A_Store},
        {"cut at a page", content.substr(0, content.size() - 3 * 4096), Damaged},
        {"only the first page", content.substr(0, 4096), Damaged},
        {"a bit of the salt", flipped(3, 4), Not_A_Store},
        {"a bit of the first page", flipped(100, 1), Not_A_Store},
        {"a bit of a later page", flipped(5 * 4096 + 100, 1), Damaged},
        {"unencrypted", foreign, Not_A_Store},
        {"a text", "管理No,事業所名\n", Not_A_Store},
        {"a text as long as a page", std::string(4096, '\n'), Not_A_Store}};
    for (const auto& [what, bytes, reason] : cases) {
        SCOPED_TRACE(what);
        Write_Files(folder.path, {{"s.dat", bytes}});
        Expect_Refusal(file, reason, [&] { Verify_Store(file, key); });
        Expect_Refusal(file, reason, [&] { Copy_Store(file, other, key); });
    }
    Write_Files(folder.path, good);
    const Store_Key wrong = Store_Key::Derive("vrdqn53");
    for (const auto mode : {Connection::Mode::Read_Only, Connection::Mode::Read_Write}) {
        Expect_Refusal(file, Not_A_Store, [&] { Connection(file, wrong, mode).Close(); });
        Expect_Refusal(other, Missing, [&] { Connection(other, key, mode).Close(); });
        Expect_Refusal(folder.path, Not_A_Store, [&] { Connection(folder.path, key, mode).Close(); });
    }
    ASSERT_EQ(::mkfifo(other.c_str(), 0600), 0);
    Expect_Refusal(other, Not_A_Store, [&] { Copy_Store(other, file, key); });
    Expect_Refusal(other, Failed, [&] { Copy_Store(file, other, key); });
    Expect_Refusal(other, Bad_Content, [&] { static_cast<void>(Read_Text_File(other)); });
    Expect_Refusal(other, Failed, [&] { Write_Text_File(other, "text"); });
    fs::remove(other);
    fs::create_symlink("/dev/zero", other);
    Expect_Refusal(other, Not_A_Store, [&] { Copy_Store(other, file, key); });
    Expect_Refusal(other, Bad_Content, [&] { static_cast<void>(Read_Text_File(other)); });
    fs::remove(other);
    Expect_Refusal(file, Bad_Content, [&] { static_cast<void>(Read_Text_File(file, 1000)); });
    Expect_Refusal(folder.path / "none", Missing, [&] { Copy_Store(file, folder.path / "none/s.dat", key); });
    Expect_Refusal(file, Failed, [&] { Connection::Create(file, key).Close(); });
    Expect_Refusal(other, Missing, [&] { Copy_Store(other, file, key); });
    Expect_Refusal(other, Missing, [&] { Remove_Store(other); });
    Expect_Refusal(other, Missing, [&] { static_cast<void>(Read_Text_File(other)); });
}

TEST_F(Store_Test, Files_Without_Permission) {
    if (!Common_User().holds) {
        GTEST_SKIP() << "permissions do not bind this user, who cannot become another one";
    }
    Write_Text_File(folder.path / "t.txt", "text\n");
    fs::permissions(folder.path, fs::perms(0755));
    fs::permissions(file, fs::perms(0444));
    {
        const Common_User user;
        Expect_Refusal(file, Read_Only, [&] { Connection(file, key).Close(); });
        EXPECT_EQ(Rows(file).size(), 800U);
    }
    fs::permissions(file, fs::perms(0666));
    fs::permissions(folder.path, fs::perms(0555));
    const Common_User user;
    EXPECT_EQ(Rows(file, Connection::Mode::Read_Write).size(), 800U);
    Expect_Refusal(file, Read_Only, [&] { Connection(file, key).Execute("UPDATE T SET 金額 = 0"); });
    Expect_Refusal(other, Read_Only, [&] { Copy_Store(file, other, key); });
    Expect_Refusal(folder.path / "t.txt", Read_Only, [&] { Write_Text_File(folder.path / "t.txt", "new"); });
    Expect_Refusal(other, Read_Only, [&] { Rename_Store(file, other, key); });
    Expect_Refusal(file, Read_Only, [&] { Remove_Store(file); });
}

TEST_F(Store_Test, Stores_Are_Their_Owners_And_Texts_Follow_The_Umask) {
    const mode_t former = ::umask(0002);
    const auto mode_of = [](const fs::path& path) {
        return static_cast<unsigned>(fs::status(path).permissions());
    };
    const fs::path text = folder.path / "t.txt";
    EXPECT_EQ(mode_of(file), 0600U) << "a store that was made";
    fs::permissions(file, fs::perms(0644));
    Copy_Store(file, other, key);
    EXPECT_EQ(mode_of(other), 0600U) << "a copy, whatever the source";
    fs::permissions(other, fs::perms(0664));
    Copy_Store(file, other, key);
    EXPECT_EQ(mode_of(other), 0660U) << "shared with the group on purpose";
    Write_Text_File(text, "text");
    EXPECT_EQ(mode_of(text), 0664U);
    fs::permissions(text, fs::perms(0640));
    Write_Text_File(text, "text");
    EXPECT_EQ(mode_of(text), 0640U);
    Write_Text_File(text, "secret", File_Readers::Owner);
    EXPECT_EQ(mode_of(text), 0600U);
    ::umask(former);
}

TEST_F(Store_Test, What_Is_Set_Aside_Or_Kept_Overwrites_Nothing) {
    Kill_A_Writer();
    const File_Contents killed = Read_Files(folder.path);
    for (const bool hard_links : {true, false}) {
        Write_Files(folder.path, killed);
        Failing_Writes writes;
        writes.Allow_Links(hard_links);
        const fs::path first = Set_Aside(file);
        const fs::path second = Set_Aside(file);
        EXPECT_NE(first, second);
        const File_Contents now = Read_Files(folder.path);
        EXPECT_EQ(now.size(), 6U);
        for (const fs::path& aside : {first, second}) {
            EXPECT_TRUE(now.at(aside.filename()) == killed.at("s.dat"));
            EXPECT_TRUE(now.at(aside.filename().string() + "-journal") == killed.at("s.dat-journal"));
        }
        EXPECT_EQ(Rows(first).size(), 800U) << "with its journal it can be healed";
    }
    Write_Files(folder.path, good);
    fs::create_directory(other);
    EXPECT_TRUE(fs::is_directory(Set_Aside(other)));
    EXPECT_FALSE(fs::exists(other));

    Keep_Backup(other, key);
    EXPECT_FALSE(fs::exists(folder.path / "other.dat.bak")) << "there was nothing";
    Keep_Backup(file, key);
    Connection(file, key).Execute("DELETE FROM T WHERE 番号>0");
    Keep_Backup(file, key);
    EXPECT_EQ(Rows(folder.path / "s.dat.bak").size(), 800U);
    EXPECT_EQ(Rows(folder.path / "s.dat.bak2").size(), 1U);
    fs::last_write_time(folder.path / "s.dat.bak", fs::file_time_type::clock::now() - std::chrono::hours(25));
    Keep_Backup(file, key);
    EXPECT_EQ(Rows(folder.path / "s.dat.bak").size(), 1U) << "that was yesterday's";
}

// Nothing that waits at a name keeps a draft from being a new file of its own.
TEST_F(Store_Test, Drafts_Follow_No_Link) {
    const auto drafts = [&] {
        File_Replacement first = File_Replacement::With_Text("a", other);
        const File_Replacement second = File_Replacement::With_Text("b", other);
        EXPECT_NE(first.Draft(), second.Draft());
        return std::array{first.Draft(), second.Draft()};
    };
    const auto before = drafts();
    const auto after = drafts();
    EXPECT_EQ(std::find(before.begin(), before.end(), after[0]), before.end()) << "no name comes again";
    fs::create_symlink(file, other);
    EXPECT_THROW(Connection::Create(other, key), Store_Error);
    EXPECT_EQ(Rows(file).size(), 800U);
}

TEST_F(Store_Test, A_Full_Disk) {
    const auto full = [&](auto act) {
        const Failing_Writes writes(1, Failing_Writes::Manner::From_Then_On, ENOSPC);
        act();
    };
    for (int at = 2; at < 6; ++at) {
        const std::string refusal = Refusal_Of([&] {
            const Failing_Writes writes(at, Failing_Writes::Manner::From_Then_On, ENOSPC);
            Connection(file, key).Execute("UPDATE T SET 金額 = 0");
        });
        EXPECT_PRED2(Has, refusal, Reason_Text(Disk_Full));
        EXPECT_EQ(Rows(file)[9].substr(0, 3), "9jj");
    }
    Expect_Refusal(other, Disk_Full, [&] { full([&] { Copy_Store(file, other, key); }); });
    Expect_Refusal(other, Disk_Full, [&] { full([&] { Write_Text_File(other, "text"); }); });
    EXPECT_FALSE(fs::exists(other));
    for (const auto& [name, content] : Read_Files(folder.path)) {
        EXPECT_TRUE(name.string().starts_with("s.dat")) << "a draft is left: " << name;
    }
}

TEST_F(Store_Test, Missing_Tables_And_Columns) {
    const Connection cn(file, key);
    Expect_Refusal(file, Missing_Table, [&] { static_cast<void>(cn.Open("SELECT * FROM Ks_ki")); });
    Expect_Refusal(file, Missing_Table, [&] { cn.Execute("DELETE FROM Ks_ki;"); });
    Expect_Refusal(file, Missing_Column, [&] { static_cast<void>(cn.Open("SELECT 備考 FROM T")); });
    Expect_Refusal(file, Missing_Column, [&] { cn.Execute("UPDATE T SET 備考 = 1"); });
    Expect_Refusal(file, Missing_Column, [&] { cn.Execute("INSERT INTO T (備考) VALUES (1)"); });
    Recordset rows = cn.Open("SELECT * FROM T");
    Expect_Refusal(file, Missing_Column, [&] { static_cast<void>(rows["備考"]); });
    Expect_Refusal(file, Missing_Column, [&] { rows.Set("備考", 1); });
    Expect_Refusal(file, Failed, [&] { cn.Execute("UPDATE T WITH x"); });

    const Connection company = Connection::Create(other, key);
    Create_Tables(company, Store_Kind::Company);
    EXPECT_EQ(Missing_In_Store(company, Store_Kind::Company, true).size(), 0U);
    company.Execute("DROP TABLE QandA");
    company.Execute("ALTER TABLE KmkBunrui RENAME TO former");
    company.Execute("CREATE TABLE KmkBunrui (科目分類識別 Text)");
    EXPECT_EQ(
        Missing_In_Store(company, Store_Kind::Company, true),
        std::vector<std::string>({"表 QandA がありません。", "表 KmkBunrui に項目 分類名 がありません。"}));
}

TEST_F(Store_Test, What_A_Killed_Writer_Left_Is_Rolled_Back) {
    const std::vector<std::string> rows = Rows(file);
    Kill_A_Writer();
    const File_Contents killed = Read_Files(folder.path);
    const auto again = [&] { Write_Files(folder.path, killed); };
    for (const auto mode : {Connection::Mode::Read_Only, Connection::Mode::Read_Write}) {
        again();
        EXPECT_EQ(Rows(file, mode), rows);
        EXPECT_FALSE(fs::exists(journal));
    }
    for (const bool verified : {true, false}) {
        again();
        if (verified) {
            Verify_Store(file, key);
        }
        Copy_Store(file, other, key);
        EXPECT_EQ(Rows(other), rows);
        EXPECT_EQ(Rows(file), rows);
    }
    again();
    Rename_Store(file, other, key);
    EXPECT_EQ(Rows(other), rows);
    EXPECT_EQ(Read_Files(folder.path).size(), 1U);
    again();
    Remove_Store(file);
    EXPECT_EQ(Read_Files(folder.path).size(), 0U);

    // A page of which only a part reached the disk.
    File_Contents torn = killed;
    torn["s.dat"] += std::string(100, 'x');
    Write_Files(folder.path, torn);
    EXPECT_EQ(Rows(file), rows);
}

TEST_F(Store_Test, A_Journal_Never_Meets_Another_File) {
    Copy_Store(file, other, key);
    Connection(other, key).Execute("UPDATE T SET 名前 = 'new'");
    const std::vector<std::string> rows = Rows(file);
    const std::vector<std::string> new_rows = Rows(other);
    Kill_A_Writer();
    const File_Contents killed = Read_Files(folder.path);
    const auto check = [&](Outcome outcome) {
        const std::vector<std::string> now = Rows(file);
        EXPECT_TRUE(now == new_rows || (now == rows && outcome != Outcome::Finished));
    };
    Fail_Every_Write([&] { Write_Files(folder.path, killed); }, [&] { Copy_Store(other, file, key); }, check);

    // The store is gone, its journal is not.
    for (const auto put : {Copy_Store, Rename_Store}) {
        Write_Files(folder.path, killed);
        fs::remove(file);
        put(other, file, key);
        EXPECT_EQ(Rows(file), new_rows);
        EXPECT_FALSE(fs::exists(journal));
    }
}

TEST_F(Store_Test, A_Replacement_Can_Be_Taken_Back) {
    for (const bool hard_links : {true, false}) {
        Failing_Writes writes;
        writes.Allow_Links(hard_links);
        Copy_Store(file, other, key);
        const File_Contents files = Read_Files(folder.path);
        {
            File_Replacement text = File_Replacement::With_Text("first", folder.path / "t.txt");
            File_Replacement store = File_Replacement::With_Store(other, file, key);
            Connection(store.Draft(), key).Execute("DELETE FROM T");
            EXPECT_EQ(Rows(file).size(), 800U);
            text.Undo();
            text.Commit();
            store.Commit();
            EXPECT_EQ(Read_Text_File(folder.path / "t.txt"), "first");
            EXPECT_EQ(Rows(file).size(), 0U);
            text.Undo();
            store.Undo();
            EXPECT_FALSE(fs::exists(folder.path / "t.txt"));
        }
        EXPECT_TRUE(Read_Files(folder.path) == files);
    }
}

TEST_F(Store_Test, Recordsets_Read_And_Write) {
    const Connection cn(file, key);
    cn.Execute("ALTER TABLE T ADD COLUMN Code Text");
    Recordset rows = cn.Open("SELECT * FROM T WHERE 番号<3 ORDER BY 番号");
    ASSERT_EQ(rows.Count(), 3U);
    EXPECT_TRUE(rows.Find("番号", 2));
    EXPECT_EQ(rows["金額"].As_Double(), 0.25);
    EXPECT_TRUE(rows["印"].Is_Null());
    rows.Set("CODE", "x'y");
    rows.Set("印", -1);
    rows.Set("金額", Value());
    rows.Update();
    EXPECT_TRUE(rows.Find("番号", 1));
    rows.Set("code", "別");
    rows.Update();
    EXPECT_TRUE(rows.Find("Code", "x'y"));
    EXPECT_EQ(rows["番号"].As_Integer(), 2);
    EXPECT_FALSE(rows.Find("番号", 3));
    EXPECT_TRUE(rows.Eof());
    EXPECT_THROW(static_cast<void>(rows["番号"]), Store_Error);

    rows.Add_New();
    EXPECT_TRUE(rows["名前"].Is_Null());
    rows.Set("番号", 900);
    rows.Update();
    rows.Set("名前", "追加");
    rows.Update();
    // A change that is left without Update is lost, and so is a row.
    rows.Move_First();
    rows.Set("金額", 99);
    rows.Move_Next();
    rows.Update();
    rows.Add_New();
    rows.Set("番号", 901);
    rows.Move_First();
    rows.Set("名前", "零");
    rows.Update();
    rows.Close();
    EXPECT_TRUE(rows.Eof());

    EXPECT_EQ(
        cn.Open("SELECT group_concat(番号 || ',' || substr(名前, 1, 6) || ',' || ifnull(金額, '') || ',' || "
                "ifnull(印, '') || ',' || ifnull(Code, ''), ' ') "
                "FROM (SELECT * FROM T WHERE 番号<3 Or 番号>799 ORDER BY 番号)")
            .At(0),
        Value("0,零,0.0,, 1,bbbbbb,0.125,,別 2,cccccc,,-1,x'y 900,追加,,,"));
    EXPECT_EQ(cn.Open("SELECT * FROM T").Count(), 801U);
    Recordset few = cn.Open("SELECT 番号, 名前 FROM T WHERE 番号=? And 名前=?", 900, "追加");
    few.Set("名前", "'); DROP TABLE T; --");
    few.Update();
    EXPECT_EQ(cn.Open("SELECT 名前 FROM T WHERE 番号=?", 900).At(0), few["名前"]);
    for (const char* no_rows_of_a_table :
         {"SELECT Sum(番号) AS 番号 FROM T", "SELECT DISTINCT 番号 FROM T",
          "SELECT 番号 FROM T GROUP BY 番号", "SELECT 番号 FROM T WHERE 番号>5 GROUP BY 番号",
          "SELECT a.番号 FROM T a LEFT JOIN T b ON a.番号=b.番号",
          "SELECT a.番号 FROM T AS a, T AS b WHERE a.番号=b.番号"}) {
        Recordset read_only = cn.Open(no_rows_of_a_table);
        read_only.Set("番号", 1);
        EXPECT_THROW(read_only.Update(), Store_Error) << no_rows_of_a_table;
    }
}

TEST_F(Store_Test, What_Was_Prepared_Serves_Again) {
    const Connection cn(file, key);
    const auto columns = [&cn] { return cn.Open("SELECT * FROM T WHERE 番号=?", 1).Columns().size(); };
    const std::size_t before = columns();
    cn.Execute("ALTER TABLE T ADD COLUMN 後 Text");
    EXPECT_EQ(columns(), before + 1);
    const char* const rename = "UPDATE T SET 名前=? WHERE 番号=?";
    cn.Execute(rename, "一", 1);
    EXPECT_THROW(cn.Execute(rename, "二"), Store_Error) << "no value of an earlier run is taken";
    cn.Execute("CREATE UNIQUE INDEX T_key ON T (番号)");
    const char* const renumber = "UPDATE T SET 番号=? WHERE 番号=?";
    EXPECT_THROW(cn.Execute(renumber, 2, 1), Store_Error);
    cn.Execute(renumber, 1002, 1);
    EXPECT_EQ(cn.Open("SELECT 名前 FROM T WHERE 番号=?", 1002).At(0), Value("一"));
    cn.Execute("DROP TABLE T"); // nothing kept stands in the way
}

TEST_F(Store_Test, Transactions_Are_Whole) {
    const Connection cn(file, key);
    {
        const Transaction transaction(cn);
        cn.Execute("DELETE FROM T WHERE 番号<400");
        cn.Execute("DROP TABLE T");
    }
    EXPECT_EQ(Rows(file).size(), 800U);
    {
        Transaction transaction(cn);
        cn.Execute("DELETE FROM T WHERE 番号<400");
        EXPECT_EQ(Rows(file).size(), 800U) << "another reader";
        Expect_Refusal(file, Busy, [&] { Connection(file, key).Execute("DELETE FROM T"); });
        transaction.Commit();
    }
    EXPECT_EQ(Rows(file).size(), 400U);
    {
        Transaction transaction(cn);
        cn.Execute("DELETE FROM T WHERE 番号<500");
        {
            const Transaction part(cn);
            cn.Execute("DELETE FROM T");
        }
        {
            Transaction part(cn);
            cn.Execute("DELETE FROM T WHERE 番号<600");
            part.Commit();
        }
        EXPECT_EQ(Rows(file).size(), 400U) << "another reader";
        transaction.Commit();
    }
    EXPECT_EQ(Rows(file).size(), 200U);
}

} // namespace
} // namespace morvane::tests
