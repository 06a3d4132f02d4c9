// SPDX-FileCopyrightText: The Morvane developers
#include "company/new_installation.h"

#include "company/company_identity.h"
#include "company/datacheck.h"
#include "company/register.h"
#include "company/templates.h"
#include "data/store_file.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"
#include "session/session.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <sys/stat.h>

namespace morvane {

namespace fs = std::filesystem;

namespace {

constexpr const char* working_store = "Morvane.dat";
constexpr const char* register_store = "Jgmas.dat";
constexpr const char* marker_file = "kidou.ini";
constexpr const char* data_folder = "data";

bool Has(const fs::path& folder, std::string_view name) {
    return Is_There(Find_File(folder, name));
}

void Make_Folder(const fs::path& folder, mode_t mode) {
    if (::mkdir(folder.c_str(), mode) != 0 && errno != EEXIST) {
        Throw_Errno(folder, "フォルダの作成");
    }
}

/// The data files of companies, in the order of their names.
std::vector<fs::path> Data_Files(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder / data_folder, error)) {
        const std::string name = entry.path().filename().string();
        if (name.front() != '.' && (name.ends_with(".dat") || name.ends_with(".DAT"))) {
            files.push_back(entry.path());
        }
    }
    if (error && error != std::errc::no_such_file_or_directory) {
        throw Store_Error(folder / data_folder, Reason_Of_Errno(error.value()), "フォルダの読み込み");
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// Whether a store holds a row of `table`, or cannot be read, so that it may.
bool May_Hold_Rows(const fs::path& store, const char* table, const Store_Key& key) {
    if (!Is_There(store)) {
        return false;
    }
    try {
        const Connection cn(store, key, Connection::Mode::Read_Only);
        return !cn.Open(std::string("SELECT * FROM ") + table).Eof();
    } catch (const Store_Error&) {
        return true;
    }
}

bool May_Hold_Companies(const fs::path& folder, const Store_Key& key) {
    return !Data_Files(folder).empty() || May_Hold_Rows(Find_File(folder, register_store), "jgmas", key) ||
           May_Hold_Rows(Find_File(folder, working_store), "Jigyo_mas", key);
}

/// Copies a delivered store to where none stands. True where it was made.
bool Put_Missing(const fs::path& from, const fs::path& folder, const char* name, const Store_Key& key) {
    if (Has(folder, name)) {
        return false;
    }
    Copy_Store(from, folder / name, key);
    return true;
}

Install_Info Settings_Of(std::optional<Edition> edition, bool multi) {
    Install_Info info;
    info.kanri_flg = multi ? Office_Mode::Multi : Office_Mode::Single;
    info.tiiki_cd = Code_Of(edition);
    info.todofuken_mei = edition ? Name_Of(*edition) : "";
    return info;
}

/// One repair of an installation.
class Repair {
  public:
    Repair(const fs::path& delivered, const fs::path& installation, std::optional<Edition> given_edition)
        : templates(delivered), folder(installation), edition(given_edition) {
        session.Db_Key = Store_Key::Derive(Session::default_password);
        session.App_Path = folder;
        session.Work_Store = Find_File(folder, working_store);
    }

    std::vector<std::string> Run() {
        Read_Stores();
        Take_Settings();
        if (session.Is_Multi()) {
            if (!Has(folder, data_folder)) {
                Make_Folder(folder / data_folder, 0700);
                Made(data_folder);
            }
            Make_Register();
        }
        for (const char* name : Template_Names()) {
            if (std::string_view(name) != register_store &&
                Put_Missing(templates / name, folder, name, session.Db_Key)) {
                Made(name);
            }
        }
        if (Put_Missing(templates / Blank_Work_Store(session.Tiiki_CD), folder, working_store,
                        session.Db_Key)) {
            Made(working_store);
        }
        if (session.Is_Multi() && !Has(folder, marker_file)) {
            Make_Marker();
        }
        if (!Has(folder, install_info_file)) {
            Write_Install_Info(folder, info);
            Made(install_info_file);
        }
        return lines;
    }

  private:
    struct Found {
        fs::path store;
        Store_Identity identity;
    };

    void Made(const std::string& name) { lines.push_back(name + "：作成しました。"); }

    /// The identity of a store; nothing where it cannot be read.
    [[nodiscard]] std::optional<Store_Identity> Look_Into(const fs::path& store) const {
        try {
            return Identity_Of(Connection(store, session.Db_Key, Connection::Mode::Read_Only));
        } catch (const Store_Error&) {
            return std::nullopt;
        }
    }

    void Read_Stores() {
        work = Look_Into(session.Work_Store);
        for (const fs::path& file : Data_Files(folder)) {
            if (auto identity = Look_Into(file)) {
                companies.push_back({file, std::move(*identity)});
            } else {
                lines.push_back(std::string(data_folder) + "/" + file.filename().string() +
                                "：開けないため、事業所一覧に登録できません。");
            }
        }
    }

    void Take_Settings() {
        if (Has(folder, install_info_file)) {
            info = Read_Install_Info(folder);
        } else {
            const bool multi =
                Has(folder, register_store) || Has(folder, marker_file) || !Data_Files(folder).empty();
            info = Settings_Of(Told_Edition(), multi);
            if (!multi) {
                Take_Own_Firm();
            }
        }
        Take_Install_Info(session, info);
    }

    void Take_Own_Firm() {
        const Connection cn(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
        const Recordset firm = cn.Open("SELECT * FROM Jigyo_mas");
        if (firm.Eof()) {
            return;
        }
        info.kanri_no = static_cast<std::int32_t>(firm["管理No"].As_Integer());
        info.office_name = firm["事業所名"].As_Text();
        info.user_id = firm["UserID"].As_Text();
        info.hojin_kojin = Counted(Firm_Type_Of(firm["法人個人識別"].As_Integer()));
        info.syori_ki = static_cast<std::int16_t>(firm["処理決算期"].As_Integer());
    }

    /// The edition that the stores tell, all of them the same.
    [[nodiscard]] Edition Told_Edition() const {
        std::vector<Edition> told;
        const auto take = [&told](const Store_Identity& identity) {
            for (const std::optional<Edition>& one : {identity.region, identity.chart}) {
                if (one && std::find(told.begin(), told.end(), *one) == told.end()) {
                    told.push_back(*one);
                }
            }
        };
        for (const Found& company : companies) {
            take(company.identity);
        }
        // The working store may hold anything; it counts where no company tells.
        if (told.empty() && work) {
            take(*work);
        }
        if (told.size() == 1) {
            return told.front();
        }
        if (edition) {
            return *edition;
        }
        throw Store_Error(folder / install_info_file, Store_Error::Reason::Missing,
                          std::string(told.empty() ? "残っているデータからは、北海道版か全国版か分かりません"
                                                   : "北海道版と全国版のデータが混ざっています") +
                              "。--edition 01 または --edition 13 で指定してください");
    }

    // A company is registered where its file bears its number.
    void Make_Register() {
        if (Has(folder, register_store)) {
            return;
        }
        File_Replacement made =
            File_Replacement::With_Draft(templates / register_store, folder / register_store, session.Db_Key);
        made.Change(session.Db_Key, [this](const Connection& cn) {
            Recordset rows = cn.Open("SELECT * FROM jgmas");
            for (const Found& company : companies) {
                const Store_Identity& identity = company.identity;
                if (!identity.number || *identity.number == 0 ||
                    Company_Store(session, *identity.number) != company.store ||
                    !Identity_Fault(session, identity, identity.number).empty()) {
                    lines.push_back(
                        std::string(data_folder) + "/" + company.store.filename().string() +
                        "：ファイル名と中の事業所番号か版が違うため、事業所一覧に登録できません。");
                    continue;
                }
                rows.Add_New();
                rows.Set("事業所CD", *identity.number);
                rows.Set("事業所名", identity.name);
                rows.Set("事業所カナ名", identity.kana);
                rows.Update();
            }
            return true;
        });
        made.Commit();
        Made(register_store);
    }

    // A working store that is newer than its company's file holds what a session broken off has not saved.
    void Make_Marker() {
        Kidou_Marker marker;
        if (work && work->number && Find_Register_Row(session, *work->number) &&
            Identity_Fault(session, *work, work->number).empty()) {
            const fs::path resting = Company_Store(session, *work->number);
            if (Is_There(resting) && Read_Text_File(resting) != Read_Text_File(session.Work_Store) &&
                fs::last_write_time(session.Work_Store) > fs::last_write_time(resting)) {
                marker = {*work->number, work->name};
            }
        }
        Write_Kidou_Ini(folder, marker);
        Made(marker.Is_Clean()
                 ? marker_file
                 : std::string(marker_file) + "（「" + marker.name + "」に保存されていない入力があります）");
    }

    fs::path templates;
    fs::path folder;
    std::optional<Edition> edition;
    Session session;
    Install_Info info;
    std::optional<Store_Identity> work;
    std::vector<Found> companies;
    std::vector<std::string> lines;
};

} // namespace

std::vector<std::string> Installation_Parts(const fs::path& folder) {
    std::vector<std::string> parts;
    const auto look = [&](const char* name) {
        if (Has(folder, name)) {
            parts.emplace_back(name);
        }
    };
    look(install_info_file);
    look(working_store);
    look(marker_file);
    look(data_folder);
    std::for_each(Template_Names().begin(), Template_Names().end(), look);
    return parts;
}

void Make_Installation_Folder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        throw Store_Error(folder, Reason_Of_Errno(error.value()), "フォルダの作成");
    }
}

void New_Installation(const fs::path& templates, const fs::path& folder, const Init_Options& options) {
    const Store_Key key = Store_Key::Derive(Session::default_password);
    if (May_Hold_Companies(folder, key)) {
        throw Store_Error(folder / install_info_file, Store_Error::Reason::Missing,
                          "ほかのデータは残っています。「morvane-batch init --repair フォルダ」で、"
                          "失われたファイルだけを作り直せます");
    }
    Make_Installation_Folder(folder);
    Make_Folder(folder / data_folder, 0700);
    for (const char* name : Template_Names()) {
        if (options.multi || std::string_view(name) != register_store) {
            Put_Missing(templates / name, folder, name, key);
        }
    }
    if (options.edition) {
        Put_Missing(templates / Blank_Work_Store(options.edition), folder, working_store, key);
    }
    if (options.multi && !Has(folder, marker_file)) {
        Write_Kidou_Ini(folder, {});
    }
    Install_Info info = Settings_Of(options.edition, options.multi);
    info.office_name = options.office_name;
    Write_Install_Info(folder, info);
}

std::vector<std::string> Repair_Installation(const fs::path& templates, const fs::path& folder,
                                             std::optional<Edition> edition) {
    return Repair(templates, folder, edition).Run();
}

} // namespace morvane
