// SPDX-FileCopyrightText: The Morvane developers
#include "batch/installation.h"

#include "batch/case_file.h"
#include "company/company_identity.h"
#include "company/datacheck.h"
#include "company/left_work.h"
#include "company/pending_work.h"
#include "data/shown_text.h"
#include "data/store_file.h"
#include "review/settle.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"
#include "session/program_folder.h"

#include <algorithm>
#include <array>
#include <iostream>

namespace morvane {

namespace fs = std::filesystem;

namespace {

fs::path Delivered(const char* name) {
    if (auto folder = Delivered_Folder(name)) {
        return std::move(*folder);
    }
    throw Usage_Error("プログラムに付属する " + std::string(name) + " フォルダが見つかりません（" +
                      Program_Folder().string() + "）。");
}

Company Company_Of_Working_Store(const Session& session) {
    const Connection cn(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
    Statement firm = cn.Prepare("SELECT 管理No, 事業所名 FROM Jigyo_mas");
    if (!firm.Step()) {
        return {0, "", Company::Place::Nowhere};
    }
    return {static_cast<std::int32_t>(firm.Integer_At(0)), std::string(firm.Text_At(1)),
            Company::Place::Working_Store};
}

std::string Listed(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) {
        list += (list.empty() ? "" : "、") + name;
    }
    return list;
}

void Test_Folder(const fs::path& folder) {
    std::error_code error;
    if (!fs::is_directory(folder, error)) {
        throw Usage_Error("「" + folder.string() + "」" +
                          (Is_There(folder) ? "はフォルダではありません。" : "というフォルダがありません。"));
    }
}

void Test_Vacant(const fs::path& folder) {
    if (const auto parts = Installation_Parts(folder); !parts.empty()) {
        throw Usage_Error("フォルダ「" + folder.string() + "」には既にMorvaneのデータがあります（" +
                          Listed(parts) +
                          "）。失われたファイルだけを作り直すときは init --repair を使います。");
    }
}

Instance_Lock Take_Lock(const fs::path& folder) {
    auto lock = Instance_Lock::Take(folder);
    if (!lock) {
        throw Usage_Error("「Morvane」がフォルダ「" + folder.string() +
                          "」を使用中です。終了してから実行してください。");
    }
    return std::move(*lock);
}

} // namespace

Answer Stderr_Messages::Show(const Message_Box& box) {
    std::cerr << Shown_Lines(box.title + (box.title.empty() ? "" : "：") + box.text) << '\n';
    return box.default_answer;
}

std::string One_Line(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return Shown_Lines(text);
}

fs::path File_Of(const Session& session, const Company& company) {
    if (company.place == Company::Place::Nowhere) {
        throw Score_Refusal("登録されていない事業所番号です。");
    }
    return company.place == Company::Place::Working_Store ? session.Work_Store
                                                          : Company_Store(session, company.number);
}

fs::path Store_Of(const Session& session, const Company& company) {
    return Open_Company(session, company).File();
}

Connection Open_Company(const Session& session, const Company& company) {
    return Open_Company_Store(session, File_Of(session, company), company.number);
}

Session Open_Installation(const fs::path& folder, Messages& messages) {
    Test_Folder(folder);
    if (!Is_There(Find_File(folder, install_info_file))) {
        const std::string parts = Listed(Installation_Parts(folder));
        throw Usage_Error("フォルダ「" + folder.string() + "」" +
                          (parts.empty() ? "はMorvaneのデータフォルダではありません（init で作成できます）。"
                                         : "には設定ファイル install_info.json がありません（" + parts +
                                               " は残っています）。失われたファイルは init --repair "
                                               "で作り直せます。"));
    }
    return Make_Session(fs::absolute(folder), messages);
}

Instance_Lock Lock_Installation(const Session& session) {
    Instance_Lock lock = Take_Lock(session.App_Path);
    // What a killed process left would else meet what is written now.
    Sweep_Drafts(session.App_Path);
    Finish_Pending_Work(session);
    return lock;
}

std::int32_t Company_Left_In_Hand(const Session& session) {
    return Company_In_Working_Store(session, Instance_Lock::Recorded(session.App_Path));
}

std::vector<Company> Companies_Of(const Session& session) {
    std::vector<Company> companies;
    if (!session.Is_Multi()) {
        Company company = Company_Of_Working_Store(session);
        if (company.place != Company::Place::Nowhere) {
            companies.push_back(std::move(company));
        }
        return companies;
    }
    const std::int32_t in_hand = Company_Left_In_Hand(session);
    for (const Register_Row& row : Read_Register(session)) {
        companies.push_back(
            {row.number, row.name,
             row.number == in_hand ? Company::Place::Working_Store : Company::Place::Resting_Store});
    }
    return companies;
}

Instance_Lock Init_Installation(const fs::path& folder, const Init_Options& options) {
    if (folder.empty()) {
        throw Usage_Error("フォルダの名前が空です。");
    }
    const fs::path templates = Templates_Folder();
    if (Is_There(folder)) {
        Test_Folder(folder);
        Test_Vacant(folder);
    }
    Make_Installation_Folder(folder);
    Instance_Lock lock = Take_Lock(folder);
    Test_Vacant(folder); // of what another process made before it freed the lock
    try {
        New_Installation(templates, folder, options);
    } catch (...) {
        Sweep_Drafts(folder);
        for (const std::string& part : Installation_Parts(folder)) {
            std::error_code stays;
            fs::remove(folder / part, stays);
        }
        throw;
    }
    return lock;
}

std::vector<std::string> Repair_Folder(const fs::path& folder, std::optional<Edition> edition) {
    Test_Folder(folder);
    if (Installation_Parts(folder).empty()) {
        throw Usage_Error("フォルダ「" + folder.string() +
                          "」にはMorvaneのデータがありません（init で作成できます）。");
    }
    const fs::path place = fs::absolute(folder);
    const Instance_Lock lock = Take_Lock(place);
    Sweep_Drafts(place);
    return Repair_Installation(Templates_Folder(), place, edition);
}

fs::path Templates_Folder() {
    return Delivered("templates");
}

std::vector<fs::path> Sample_Cases(Edition edition) {
    std::vector<fs::path> cases;
    for (const auto& entry : fs::directory_iterator(Delivered("samples"))) {
        if (entry.path().extension() == ".json" && Edition_Of_Case(entry.path()) == edition) {
            cases.push_back(entry.path());
        }
    }
    std::sort(cases.begin(), cases.end());
    return cases;
}

} // namespace morvane
