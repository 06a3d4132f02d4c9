// SPDX-FileCopyrightText: The Morvane developers
#include "company/new_installation.h"

#include "company/templates.h"
#include "data/store_file.h"
#include "session/kidou_ini.h"
#include "session/session.h"

#include <string_view>

namespace morvane {

void New_Installation(const std::filesystem::path& templates, const std::filesystem::path& folder,
                      const Init_Options& options) {
    std::error_code error;
    std::filesystem::create_directories(folder / "data", error);
    if (error) {
        throw Store_Error(folder, Reason_Of_Errno(error.value()), "フォルダの作成");
    }
    const Store_Key key = Store_Key::Derive(Session::default_password);
    for (const char* name : Template_Names()) {
        const bool is_register = std::string_view(name) == "Jgmas.dat";
        if (options.multi || !is_register) {
            Copy_Store(templates / name, folder / name, key);
        }
    }
    if (!options.edition.empty()) {
        Copy_Store(templates / ("morv_" + options.edition + ".dat"), folder / "Morvane.dat", key);
    }
    if (options.multi) {
        Write_Kidou_Ini(folder, {});
    }
    Install_Info info;
    info.kanri_flg = options.multi ? multi_company_mode : 0;
    info.tiiki_cd = options.edition;
    info.todofuken_mei = options.edition.empty() ? "" : Edition_Name(options.edition);
    info.office_name = options.office_name;
    Write_Install_Info(folder, info);
}

std::string Edition_Name(const std::string& edition) {
    return edition == "01" ? "北海道" : "全国";
}

} // namespace morvane
