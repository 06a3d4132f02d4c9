// SPDX-FileCopyrightText: The Morvane developers
#include "batch/installation.h"

#include "batch/case_file.h"
#include "company/datacheck.h"
#include "company/pending_work.h"
#include "data/shown_text.h"
#include "data/store_file.h"
#include "screens/settled_score.h"
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

} // namespace

Answer Stderr_Messages::Show(const Message_Box& box) {
    std::cerr << Shown_Lines(box.title + (box.title.empty() ? "" : "：") + box.text) << '\n';
    return box.default_answer;
}

std::string One_Line(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return Shown_Lines(text);
}

fs::path Store_Of(const Session& session, const Company& company) {
    if (company.place == Company::Place::Nowhere) {
        throw Score_Refusal("登録されていない事業所番号です。");
    }
    return company.place == Company::Place::Working_Store ? session.Work_Store
                                                          : Company_Store(session, company.number);
}

Session Open_Installation(const fs::path& folder, Messages& messages) {
    if (!fs::is_directory(folder)) {
        throw Usage_Error("フォルダ「" + folder.string() + "」がありません。");
    }
    if (!fs::exists(Find_File(folder, install_info_file))) {
        throw Usage_Error("フォルダ「" + folder.string() +
                          "」はMorvaneのデータフォルダではありません（init で作成できます）。");
    }
    return Make_Session(fs::absolute(folder), messages);
}

Instance_Lock Lock_Installation(const Session& session) {
    auto lock = Instance_Lock::Take(session.App_Path);
    if (!lock) {
        throw Usage_Error("「Morvane」がフォルダ「" + session.App_Path.string() +
                          "」を使用中です。終了してから実行してください。");
    }
    // What a killed process left would else meet what is written now.
    Sweep_Drafts(session.App_Path);
    Finish_Pending_Work(session);
    return std::move(*lock);
}

std::int32_t Company_Left_In_Hand(const Session& session) {
    if (!session.Is_Multi() || !fs::exists(Kidou_File(session.App_Path)) ||
        Read_Kidou_Ini(session.App_Path).Is_Clean()) {
        return 0;
    }
    return Company_Of_Working_Store(session).number;
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

void Init_Installation(const fs::path& folder, const Init_Options& options) {
    if (fs::exists(folder) && !fs::is_directory(folder)) {
        throw Usage_Error("「" + folder.string() + "」はフォルダではありません。");
    }
    if (fs::exists(Find_File(folder, install_info_file))) {
        throw Usage_Error("フォルダ「" + folder.string() + "」には既にMorvaneのデータがあります。");
    }
    New_Installation(Templates_Folder(), folder, options);
}

fs::path Templates_Folder() {
    return Delivered("templates");
}

std::vector<fs::path> Sample_Cases(const std::string& edition) {
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
