// SPDX-FileCopyrightText: The Morvane developers
#include "batch/check_run.h"

#include "batch/installation.h"
#include "company/company_identity.h"
#include "company/datacheck.h"
#include "company/pending_work.h"
#include "company/templates.h"
#include "data/store_file.h"
#include "data/table_catalogue.h"
#include "law/elements.h"
#include "review/review_figures.h"
#include "session/kidou_ini.h"
#include "session/kyotu_mod.h"

#include <algorithm>
#include <ostream>
#include <set>

namespace morvane {

namespace fs = std::filesystem;

namespace {

std::vector<std::string> Findings(const fs::path& store, const Store_Key& key, Store_Kind kind) {
    try {
        Verify_Store(store, key);
        const Connection cn(store, key, Connection::Mode::Read_Only);
        return Missing_In_Store(cn, kind);
    } catch (const std::exception& error) {
        return {error.what()};
    }
}

Store_Kind Kind_Of_Template(std::string_view name) {
    if (name == "morv_org.dat") {
        return Store_Kind::Master;
    }
    if (name == "morv_tmp.dat") {
        return Store_Kind::Auxiliary;
    }
    return name == "Jgmas.dat" ? Store_Kind::Register : Store_Kind::Company;
}

std::string Balance_Text(int period, const Balance_Check& check) {
    const auto yen = [](double amount) { return Comma_Str(Value(amount)); };
    std::string text = "第" + std::to_string(period) + "期 バランス不合：";
    if (check.left != check.right) {
        text += "差額 " + yen(check.left - check.right) + " 円（" + yen(check.left) + " と " +
                yen(check.right) + "）";
    }
    if (check.assets != check.capital) {
        text += " 資産合計 " + yen(check.assets) + " 円と負債純資産合計 " + yen(check.capital) + " 円";
    }
    return text;
}

std::vector<std::string> Balance_Findings(const Connection& cn) {
    std::vector<std::string> findings;
    const Recordset firm = cn.Open("SELECT * FROM Jigyo_mas");
    if (firm.Eof()) {
        return findings;
    }
    const Firm_Type type = Counted(Firm_Type_Of(firm["法人個人識別"].As_Integer()));
    for (Recordset periods = cn.Open("SELECT * FROM Ks_ki ORDER BY 決算期"); !periods.Eof();
         periods.Move_Next()) {
        const auto period = static_cast<int>(periods["決算期"].As_Integer());
        const Balance_Check check = Check_Balance(cn, period, type);
        if (!check.Is_Ok()) {
            findings.push_back(Balance_Text(period, check));
        }
    }
    return findings;
}

/// Whether W is formed by the end date in some period.
bool Is_Dated(const Connection& cn) {
    Statement rows = cn.Prepare("SELECT 現状 FROM W_Yoso WHERE 要素CD=?");
    rows.Bind(1, element::law_year);
    bool dated = false;
    while (rows.Step()) {
        dated = dated || Law_Of(rows.Integer_At(0)).has_w7_w8;
    }
    return dated;
}

std::vector<std::string> Date_Findings(const Connection& cn) {
    if (!Is_Dated(cn)) {
        return {};
    }
    Review_Figures figures;
    Read_Review_Date(cn, figures);
    return figures.date_error.empty() ? std::vector<std::string>() : std::vector{figures.date_error};
}

/// Whether a store is that of its company: number, edition, name in the register.
std::vector<std::string> Identity_Findings(const Session& session, const fs::path& store,
                                           const Company& company) {
    try {
        const Store_Identity identity =
            Identity_Of(Connection(store, session.Db_Key, Connection::Mode::Read_Only));
        if (const std::string fault = Identity_Fault(session, identity, company.number); !fault.empty()) {
            return {fault + "。"};
        }
        if (identity.name != company.name) {
            return {"事業所名「" + identity.name + "」が事業所一覧の「" + company.name + "」と違います。"};
        }
    } catch (const Store_Error&) {
        // Said by the check of the store itself.
    }
    return {};
}

// Files of the data folder that no company of the register has.
std::vector<fs::path> Strays(const Session& session, const std::vector<Company>& companies) {
    std::vector<fs::path> strays;
    const fs::path folder = session.App_Path / "data";
    std::set<std::string> known;
    for (const Company& company : companies) {
        known.insert(Company_Store(session, company.number).filename().string());
    }
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename().string();
        if (entry.path().extension() == ".dat" && name.front() != '.' && !known.contains(name)) {
            strays.push_back(entry.path());
        }
    }
    if (error) {
        throw Store_Error(folder, Reason_Of_Errno(error.value()), "フォルダの読み込み");
    }
    std::sort(strays.begin(), strays.end());
    return strays;
}

} // namespace

Balance_Check Check_Balance(const Connection& cn, int period, Firm_Type type) {
    using enum Account;
    Recordset rows = cn.Open("SELECT * FROM Ks_Zaihyo WHERE 決算期=?", period);
    Balance_Check check;
    if (type == Firm_Type::Corporation) {
        check.left = Kamoku_Get(Prior_Retained_Earnings, rows) + Kamoku_Get(Profit_Of_Corporation, rows);
        check.right = Kamoku_Get(Retained_Earnings_Carried, rows) + Kamoku_Get(Equity_Change, rows);
    } else {
        check.left = Kamoku_Get(Retained_Earnings_Carried, rows);
        check.right = Kamoku_Get(Profit_Of_Individual, rows);
    }
    check.assets = Kamoku_Get(Total_Assets, rows);
    check.capital = Kamoku_Get(Liabilities_And_Net_Assets, rows);
    return check;
}

std::vector<std::string> Check_Company_Store(const fs::path& store, const Store_Key& key) {
    std::vector<std::string> findings = Findings(store, key, Store_Kind::Company);
    if (!findings.empty()) {
        return findings;
    }
    try {
        const Connection cn(store, key, Connection::Mode::Read_Only);
        findings = Balance_Findings(cn);
        for (std::string& finding : Date_Findings(cn)) {
            findings.push_back(std::move(finding));
        }
        return findings;
    } catch (const std::exception& error) {
        return {error.what()};
    }
}

std::size_t Check_Run(const Session& session, std::ostream& out) {
    std::size_t faulty = 0;
    const auto report = [&](const fs::path& store, const std::vector<std::string>& findings) {
        for (const std::string& finding : findings) {
            out << store.lexically_relative(session.App_Path).string() << "：" << One_Line(finding) << "\n";
        }
        faulty += findings.empty() ? 0 : 1;
    };
    for (const char* name : Template_Names()) {
        if (session.Is_Multi() || std::string_view(name) != "Jgmas.dat") {
            const fs::path store = Find_File(session.App_Path, name);
            report(store, Findings(store, session.Db_Key, Kind_Of_Template(name)));
        }
    }
    const auto check = [&](const fs::path& store, const Company& company) {
        std::vector<std::string> findings = Check_Company_Store(store, session.Db_Key);
        for (std::string& finding : Identity_Findings(session, store, company)) {
            findings.push_back(std::move(finding));
        }
        report(store, findings);
    };
    std::vector<Company> companies;
    try {
        companies = Companies_Of(session);
        if (session.Is_Multi()) {
            static_cast<void>(Read_Kidou_Ini(session.App_Path));
        }
    } catch (const Store_Error& error) {
        report(error.file, {error.what()});
    }
    bool work_is_checked = false;
    for (const Company& company : companies) {
        check(File_Of(session, company), company);
        work_is_checked = work_is_checked || company.place == Company::Place::Working_Store;
    }
    if (!work_is_checked) {
        report(session.Work_Store, Check_Company_Store(session.Work_Store, session.Db_Key));
    }
    if (session.Is_Multi()) {
        try {
            const bool is_half_way = Has_Pending_Work(session);
            for (const fs::path& stray : Strays(session, companies)) {
                report(
                    stray,
                    {is_half_way
                         ? "途中で止まった処理のファイルです。次の起動か取り込みで登録されるか、消されます。"
                         : "事業所一覧にないファイルです。"});
            }
        } catch (const Store_Error& error) {
            report(error.file, {error.what()});
        }
    }
    return faulty;
}

} // namespace morvane
