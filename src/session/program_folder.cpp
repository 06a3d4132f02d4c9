// SPDX-FileCopyrightText: The Morvane developers
#include "session/program_folder.h"

#include "data/store_error.h"
#include "data/store_file.h"
#include "session/install_info.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <unistd.h>

namespace morvane {

namespace fs = std::filesystem;

namespace {

bool Is_Folder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

bool Holds_Stores(const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path().extension() == ".dat" || entry->path().extension() == ".DAT") {
            return true;
        }
    }
    return false;
}

/// Whether somebody's data lie in the folder. One that cannot be looked into may hold them.
bool May_Hold_Installation(const fs::path& folder) {
    static constexpr std::array<std::string_view, 4> parts = {install_info_file, "Morvane.dat", "Jgmas.dat",
                                                              "kidou.ini"};
    return ::access(folder.c_str(), R_OK | X_OK) != 0 || Holds_Stores(folder / "data") ||
           std::any_of(parts.begin(), parts.end(), [&folder](std::string_view part) {
               std::error_code error;
               return fs::exists(fs::symlink_status(Find_File(folder, part), error));
           });
}

} // namespace

fs::path Program_Folder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path(error) : program.parent_path();
}

std::optional<fs::path> Delivered_Folder(std::string_view name) {
    const fs::path program = Program_Folder();
    for (const fs::path& candidate : {program / name, program / ".." / "share" / "morvane" / name}) {
        if (Is_Folder(candidate)) {
            std::error_code error;
            const fs::path folder = fs::canonical(candidate, error);
            return error ? candidate : folder;
        }
    }
    return std::nullopt;
}

fs::path Choose_App_Path(const fs::path& program) {
    // Data that lie beside the program are never passed over for an empty installation elsewhere.
    if (May_Hold_Installation(program) ||
        (Is_Folder(program / "templates") && ::access(program.c_str(), W_OK) == 0)) {
        return program;
    }
    const char* data_home = std::getenv("XDG_DATA_HOME");
    if (data_home != nullptr && fs::path(data_home).is_absolute()) {
        return fs::path(data_home) / "morvane";
    }
    const char* home = std::getenv("HOME");
    return fs::path(home != nullptr ? home : "/") / ".local" / "share" / "morvane";
}

void Test_Writable(const fs::path& app_path) {
    if (::access(app_path.c_str(), R_OK | W_OK | X_OK) != 0) {
        throw Store_Error(app_path, Reason_Of_Errno(errno),
                          "このフォルダのデータを使うには、フォルダを読み書きできることが必要です。"
                          "アクセス権を付けるか、書き込める場所にフォルダごと移してから起動してください");
    }
}

} // namespace morvane
