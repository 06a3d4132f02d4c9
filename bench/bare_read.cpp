// SPDX-FileCopyrightText: The Morvane developers
#include "session/session.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sqlcipher/sqlite3.h>
#include <string>
#include <thread>
#include <vector>

namespace {

/// Reads the rows that a score needs with nothing but the engine's own calls; gives the number of fields
/// read.
long Read_Company(const std::string& file, const std::string& key) {
    sqlite3* store = nullptr;
    if (sqlite3_open_v2(file.c_str(), &store, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr) !=
        SQLITE_OK) {
        std::exit(1);
    }
    sqlite3_exec(store, ("PRAGMA key = \"" + key + "\"; PRAGMA cipher_page_size = 4096;").c_str(), nullptr,
                 nullptr, nullptr);
    long fields = 0;
    long period = 0;
    const auto read = [&](const std::string& sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(store, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
            std::fprintf(stderr, "%s: %s\n", file.c_str(), sqlite3_errmsg(store));
            std::exit(1);
        }
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(statement); ++i) {
                fields += sqlite3_column_type(statement, i) == SQLITE_NULL ? 0 : 1;
            }
            if (period == 0) {
                period = sqlite3_column_int(statement, 0);
            }
        }
        sqlite3_finalize(statement);
    };
    read("SELECT 処理決算期, * FROM Jigyo_mas");
    for (const char* table : {"Ks_ki", "Ks_Zaihyo", "Kandaka_Gj", "W_Yoso"}) {
        read("SELECT * FROM " + std::string(table) + " WHERE 決算期=" + std::to_string(period));
    }
    sqlite3_close(store);
    return fields;
}

} // namespace

/// Arguments: an installation folder, the number of threads.
int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: bare_read FOLDER THREADS\n");
        return 2;
    }
    sqlite3_config(SQLITE_CONFIG_MULTITHREAD);
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    const std::string key = morvane::Store_Key::Derive(morvane::Session::default_password).Literal();
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(argv[1]) + "/data")) {
        files.push_back(entry.path().string());
    }
    std::sort(files.begin(), files.end());
    std::atomic<std::size_t> next{0};
    std::atomic<long> fields{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < std::atoi(argv[2]); ++i) {
        threads.emplace_back([&] {
            for (std::size_t at = next++; at < files.size(); at = next++) {
                fields += Read_Company(files[at], key);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::printf("%zu companies, %ld fields\n", files.size(), fields.load());
    return 0;
}
