// SPDX-FileCopyrightText: The Morvane developers
#include "session/program_folder.h"

#include "data/store_file.h"
#include "session/install_info.h"

#include <cstdlib>
#include <unistd.h>

namespace morvane {

namespace fs = std::filesystem;

fs::path Program_Folder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path() : program.parent_path();
}

std::optional<fs::path> Delivered_Folder(std::string_view name) {
    const fs::path program = Program_Folder();
    for (const fs::path& candidate : {program / name, program / ".." / "share" / "morvane" / name}) {
        if (fs::is_directory(candidate)) {
            return fs::weakly_canonical(candidate);
        }
    }
    return std::nullopt;
}

fs::path Choose_App_Path() {
    const fs::path program = Program_Folder();
    const bool portable =
        fs::exists(Find_File(program, install_info_file)) || fs::is_directory(program / "templates");
    if (portable && ::access(program.c_str(), W_OK) == 0) {
        return program;
    }
    const char* data_home = std::getenv("XDG_DATA_HOME");
    if (data_home != nullptr && fs::path(data_home).is_absolute()) {
        return fs::path(data_home) / "morvane";
    }
    const char* home = std::getenv("HOME");
    return fs::path(home != nullptr ? home : "/") / ".local" / "share" / "morvane";
}

} // namespace morvane
