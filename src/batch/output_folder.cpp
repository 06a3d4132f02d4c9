// SPDX-FileCopyrightText: The Morvane developers
#include "batch/output_folder.h"

#include "batch/installation.h"
#include "data/output_file.h"
#include "data/shown_text.h"
#include "data/store_error.h"

namespace morvane {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Refuse(const fs::path& folder, const std::string& reason) {
    throw Usage_Error("フォルダ「" + Shown_Text(folder.string(), most_path) + "」" + reason);
}

bool Is_Of_The_System(const fs::path& folder) {
    const std::string name = folder.string() + "/";
    return name.starts_with("/dev/") || name.starts_with("/proc/") || name.starts_with("/sys/");
}

void Make_Last_Level(const fs::path& folder) {
    std::error_code error;
    const fs::path above = fs::canonical(fs::absolute(folder).parent_path(), error);
    if (error) {
        Refuse(folder, "を作成できません。その上のフォルダがありません。");
    }
    if (Is_Of_The_System(above) || (fs::create_directory(folder, error), error)) {
        Refuse(folder, "を作成できません。");
    }
}

} // namespace

void Make_Output_Folder(const fs::path& folder) {
    if (folder.empty()) {
        throw Usage_Error("出力先の名前が空です。");
    }
    std::error_code error;
    const bool is_there = fs::is_directory(folder, error);
    // A name that ends in a slash has an empty last part.
    const fs::path whole = folder.has_filename() ? folder : folder.parent_path();
    try {
        Test_Output_Place(is_there ? whole / "file" : whole);
    } catch (const Store_Error& fault) {
        throw Usage_Error(fault.what());
    }
    if (!is_there) {
        Make_Last_Level(whole);
    }
}

} // namespace morvane
