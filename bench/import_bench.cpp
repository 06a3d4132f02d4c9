// SPDX-FileCopyrightText: The Morvane developers
// The import of a firm with three periods beside inserting the rows that it leaves with the bare store engine
// into a copy of the template, flushed once; both by turns in one run. Arguments: rounds (default 40), a
// folder on the disk to be measured.
#include "batch/case_file.h"
#include "batch/installation.h"
#include "data/store_file.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <nlohmann/json.hpp>
#include <sqlcipher/sqlite3.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using namespace morvane;

constexpr int block = 16; // firms imported by one call
namespace fs = std::filesystem;

struct Table {
    std::string name;
    std::size_t columns = 0;
    std::vector<std::vector<Value>> rows;
};

std::vector<Table> Read_Tables(const fs::path& store, const Store_Key& key) {
    const Connection cn(store, key, Connection::Mode::Read_Only);
    std::vector<Table> tables;
    for (Recordset names = cn.Open("SELECT name FROM sqlite_master WHERE type='table'"); !names.Eof();
         names.Move_Next()) {
        Table table{names.At(0).As_Text(), 0, {}};
        Recordset rows = cn.Open("SELECT * FROM " + table.name);
        table.columns = rows.Columns().size();
        for (; !rows.Eof(); rows.Move_Next()) {
            std::vector<Value>& row = table.rows.emplace_back();
            for (std::size_t i = 0; i < table.columns; ++i) {
                row.push_back(rows.At(static_cast<int>(i)));
            }
        }
        tables.push_back(std::move(table));
    }
    return tables;
}

void Check(int code) {
    if (code != SQLITE_OK && code != SQLITE_DONE) {
        std::fprintf(stderr, "engine: %s\n", sqlite3_errstr(code));
        std::exit(1);
    }
}

void Bind(sqlite3_stmt* statement, int index, const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value.held)) {
        Check(sqlite3_bind_int64(statement, index, *whole));
    } else if (const auto* real = std::get_if<double>(&value.held)) {
        Check(sqlite3_bind_double(statement, index, *real));
    } else if (const auto* text = std::get_if<std::string>(&value.held)) {
        Check(
            sqlite3_bind_text(statement, index, text->data(), static_cast<int>(text->size()), SQLITE_STATIC));
    } else {
        Check(sqlite3_bind_null(statement, index));
    }
}

void Insert_Bare(const fs::path& source, const fs::path& target, const std::string& key,
                 const std::vector<Table>& tables) {
    fs::copy_file(source, target);
    sqlite3* store = nullptr;
    Check(sqlite3_open_v2(target.c_str(), &store, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr));
    const auto run = [store](const std::string& sql) {
        Check(sqlite3_exec(store, sql.c_str(), nullptr, nullptr, nullptr));
    };
    run("PRAGMA key = \"" + key +
        "\"; PRAGMA cipher_page_size = 4096; PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN");
    for (const Table& table : tables) {
        run("DELETE FROM " + table.name);
        std::string marks = "?";
        for (std::size_t i = 1; i < table.columns; ++i) {
            marks += ",?";
        }
        sqlite3_stmt* insert = nullptr;
        Check(sqlite3_prepare_v2(store, ("INSERT INTO " + table.name + " VALUES (" + marks + ")").c_str(), -1,
                                 &insert, nullptr));
        for (const std::vector<Value>& row : table.rows) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                Bind(insert, static_cast<int>(i) + 1, row[i]);
            }
            Check(sqlite3_step(insert));
            Check(sqlite3_reset(insert));
        }
        sqlite3_finalize(insert);
    }
    run("COMMIT");
    sqlite3_close(store);
    const int file = ::open(target.c_str(), O_RDONLY);
    if (::fsync(file) != 0) {
        std::perror("fsync");
        std::exit(1);
    }
    ::close(file);
}

template <class Work>
double Milliseconds(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void Print(const char* name, std::vector<double>& times) {
    std::sort(times.begin(), times.end());
    std::printf("%-24s best %6.2f ms  median %6.2f ms  p95 %6.2f ms\n", name, times.front(),
                times[times.size() / 2], times[times.size() * 95 / 100]);
}

} // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 40;
    const fs::path folder =
        (argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path()) / "morvane-import-bench";
    fs::remove_all(folder);
    Init_Installation(folder, {.edition = Edition::National, .multi = true});
    Stderr_Messages messages;
    const Session session = Make_Session(folder, messages);
    auto record =
        nlohmann::ordered_json::parse(Read_Text_File(fs::path(MORVANE_SAMPLES) / "aoba_kensetsu.json"));
    const fs::path case_file = folder / "case.json";
    const fs::path bare = folder / "data" / "bare";
    std::vector<double> alone;
    std::vector<double> imports;
    std::vector<double> inserts;
    std::size_t rows = 0;
    for (int round = 1; round <= rounds; ++round) {
        record["Jigyo_mas"]["管理No"] = round;
        Write_Text_File(case_file, record.dump());
        alone.push_back(Milliseconds([&] { Import_Case(session, case_file); }));
        std::vector<fs::path> files;
        for (int i = 0; i < block; ++i) {
            record["Jigyo_mas"]["管理No"] = rounds + round * block + i;
            files.push_back(folder / ("case" + std::to_string(i) + ".json"));
            Write_Text_File(files.back(), record.dump());
        }
        imports.push_back(Milliseconds([&] { Import_Cases(session, files, [](const Import_End&) {}); }) /
                          block);
        const std::string digits = std::to_string(1'000'000 + round).substr(1);
        const std::vector<Table> tables = Read_Tables(folder / "data" / (digits + ".dat"), session.Db_Key);
        rows = 0;
        for (const Table& table : tables) {
            rows += table.rows.size();
        }
        inserts.push_back(Milliseconds(
            [&] { Insert_Bare(folder / "morv_set.dat", bare, session.Db_Key.Literal(), tables); }));
        fs::remove(bare);
    }
    Print("import of one firm", alone);
    Print("import, a firm of many", imports);
    Print("bare rows, one flush", inserts);
    std::printf("%zu rows; ratio of best %.2f, of medians %.2f (aim 3)\n", rows,
                imports.front() / inserts.front(), imports[imports.size() / 2] / inserts[inserts.size() / 2]);
    fs::remove_all(folder);
    return 0;
}
