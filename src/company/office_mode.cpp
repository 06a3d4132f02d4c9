// SPDX-FileCopyrightText: The Morvane developers
#include "company/office_mode.h"

#include "company/company_info.h"
#include "company/datacheck.h"
#include "company/register.h"
#include "company/templates.h"
#include "data/store_file.h"
#include "law/elements.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"
#include "session/program_folder.h"

#include <array>
#include <tuple>

namespace morvane {

namespace fs = std::filesystem;

namespace {

constexpr const char* register_file = "Jgmas.dat";
constexpr std::size_t most_name = 60;
constexpr std::size_t most_user_id = 30;

/// The firm of the working store, as the register will hold it; empty where nothing was entered.
std::optional<Register_Row> Own_Firm(const Session& session) {
    const Connection cn = Cn_Open(session);
    const Recordset firm = cn.Open("SELECT * FROM Jigyo_mas");
    if (firm.Eof()) {
        return std::nullopt;
    }
    const bool has_figures =
        !cn.Open("SELECT * FROM Ks_Zaihyo WHERE 金額<>0").Eof() ||
        !cn.Open("SELECT * FROM Kandaka_Gj WHERE 完工高基準<>0 Or 完工高前期<>0").Eof() ||
        !cn.Open("SELECT * FROM W_Yoso WHERE 要素CD<>? And 現状<>0", element::law_year).Eof();
    const std::string name = firm["事業所名"].As_Text();
    if (Is_Blank(name) && !has_figures) {
        return std::nullopt;
    }
    const std::int64_t number = firm["管理No"].As_Integer();
    const bool is_usable = number >= 1 && number <= INT32_MAX && number != 999'999;
    return Register_Row{is_usable ? static_cast<std::int32_t>(number) : 1, name,
                        firm["事業所カナ名"].As_Text()};
}

bool Has_Register(const Session& session) {
    std::error_code error;
    return fs::exists(Find_File(session.App_Path, register_file), error);
}

std::vector<Register_Row> Registered(const Session& session) {
    return Has_Register(session) ? Read_Register(session) : std::vector<Register_Row>{};
}

/// Whether the data file of the firm's number is the firm's own, from a change that was broken off.
bool Is_Own_File(const Session& session, const fs::path& store, const Register_Row& firm) {
    const Connection cn(store, session.Db_Key, Connection::Mode::Read_Only);
    const Recordset held = cn.Open("SELECT * FROM Jigyo_mas");
    return !held.Eof() && held["管理No"].As_Integer() == firm.number &&
           held["事業所名"].As_Text() == firm.name;
}

std::string Refusal_Of_Office(const Session& session) {
    const std::optional<Register_Row> firm = Own_Firm(session);
    if (firm && Is_Blank(firm->name)) {
        return "［自社情報］に事業所名を入力してから変更してください。入力済みのデータは、その名前の事業所と"
               "して登録さ"
               "れます。";
    }
    if (firm) {
        const fs::path store = Company_Store(session, firm->number);
        std::error_code error;
        if (fs::exists(store, error) && !Is_Own_File(session, store, *firm)) {
            return "「" + store.string() +
                   "」に、ほかの事業所のデータがあります。別の場所に移してから変更してください。";
        }
    }
    for (const Register_Row& row : Registered(session)) {
        if (!firm || row.number != firm->number || row.name != firm->name) {
            return "このフォルダの事業所登録（Jgmas.dat）に、ほかの事業所「" + row.name +
                   "」があります。新しいフォルダに「事務所で使う」で作成してください。";
        }
    }
    return {};
}

std::string Refusal_Of_Own_Use(const Session& session) {
    const std::size_t count = Registered(session).size();
    if (count == 0 && session.Kanri_No == 0) {
        return {};
    }
    return "事業所が" + std::to_string(count) +
           "件登録されています。「自社で使う」では1社のデータしか扱えないため、変更できません。\n"
           "必要な事業所を morvane-batch export で書き出し、別のフォルダに取り込んでください。";
}

void Make_Register(const Session& session) {
    if (Has_Register(session)) {
        return;
    }
    const auto templates = Delivered_Folder("templates");
    if (!templates) {
        throw Store_Error(session.App_Path / register_file, Store_Error::Reason::Missing,
                          "データファイルのひな形が見つかりません");
    }
    Copy_Store(*templates / register_file, session.App_Path / register_file, session.Db_Key);
}

void Register_Own_Firm(const Session& session, const Register_Row& firm) {
    const fs::path store = Company_Store(session, firm.number);
    File_Replacement company = File_Replacement::With_Draft(session.Work_Store, store, session.Db_Key);
    company.Change(session.Db_Key, [&firm](const Connection& cn) {
        cn.Execute("UPDATE Jigyo_mas SET 管理No = ?", firm.number);
        return true;
    });
    company.Commit();
    Put_Register_Row(session, firm);
}

void Write_Mode(const Session& session, bool to_multi) {
    Install_Info info = Read_Install_Info(session.App_Path);
    info.kanri_flg = to_multi ? Office_Mode::Multi : Office_Mode::Single;
    Write_Install_Info(session.App_Path, info);
}

} // namespace

std::map<std::string, std::string> Office_Texts(const Install_Info& info) {
    return {{"Office_Name", info.office_name},
            {"User_ID", info.user_id},
            {"Office_Mode", info.kanri_flg == Office_Mode::Multi ? "2" : "1"}};
}

std::optional<Network_Fault> Test_Office(const std::map<std::string, std::string>& texts) {
    const std::string& mode = texts.at("Office_Mode");
    if (mode != "1" && mode != "2") {
        return Network_Fault{"Office_Mode",
                             "使い方は 1（自社で使う）か 2（事務所で使う）を入力してください。"};
    }
    for (const auto& [control, caption, most] : {std::tuple("Office_Name", "事務所名", most_name),
                                                 std::tuple("User_ID", "ユーザーID", most_user_id)}) {
        if (std::string refusal = Text_Refusal(texts.at(control), most, false); !refusal.empty()) {
            return Network_Fault{control, std::string(caption) + "：" + refusal};
        }
    }
    return std::nullopt;
}

std::string Mode_Refusal(const Session& session, bool to_multi) {
    if (session.Edit_Flg) {
        return "編集中の画面を閉じてから変更してください。";
    }
    return to_multi ? Refusal_Of_Office(session) : Refusal_Of_Own_Use(session);
}

void Change_Mode(const Session& session, bool to_multi) {
    if (!to_multi) {
        Copy_Store(Find_File(session.App_Path, Blank_Work_Store(session.Tiiki_CD)), session.Work_Store,
                   session.Db_Key);
        Write_Mode(session, false);
        return;
    }
    std::error_code error;
    fs::create_directories(session.App_Path / "data", error);
    if (error) {
        throw Store_Error(session.App_Path / "data", Reason_Of_Errno(error.value()), "フォルダの作成");
    }
    Make_Register(session);
    if (const std::optional<Register_Row> firm = Own_Firm(session)) {
        Register_Own_Firm(session, *firm);
    }
    Write_Kidou_Ini(session.App_Path, {});
    Write_Mode(session, true);
}

} // namespace morvane
