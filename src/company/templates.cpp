// SPDX-FileCopyrightText: The Morvane developers
#include "company/templates.h"

#include "data/connection.h"
#include "data/store_file.h"
#include "data/table_catalogue.h"
#include "data/text_table.h"
#include "law/elements.h"

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace morvane {

namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 6> names = {"morv_set.dat", "morv_org.dat", "morv_tmp.dat",
                                              "morv_01.dat",  "morv_13.dat",  "Jgmas.dat"};

// The period number of rows that no company has yet.
const std::pair<std::string, Value> neutral_period = {"決算期", 1};

/// Makes one store beside its place and puts it there when it is complete.
void Make_Store(const fs::path& file, Store_Kind kind, const Store_Key& key,
                const std::function<void(const Connection&)>& fill) {
    const fs::path draft = file.string() + ".draft";
    std::error_code ignored;
    fs::remove(draft, ignored);
    {
        const Connection store = Connection::Create(draft, key);
        Create_Tables(store, kind);
        Transaction transaction(store);
        fill(store);
        transaction.Commit();
    }
    Copy_Store(draft, file, key);
    fs::remove(draft);
    // Unlike a company's store a delivered one holds nobody's figures, and every user's start copies it.
    fs::permissions(file, fs::perms(0644));
}

/// A master row's captions and flags are, until a firm type is known, the corporation's; rows are shown in
/// the order of their codes.
void Finish_Chart(const Connection& store, const std::string& table) {
    store.Execute("UPDATE " + table +
                  " SET 並び順 = 建設科目CD, 建設科目名 = 法人科目名, 非表示識別 = 法人非表示識別, "
                  "非印刷識別 = 法人非印刷識別");
}

Text_Table Elements_Table() {
    Text_Table table{.file = "W_Yoso", .columns = {"要素CD", "要素名"}, .rows = {}};
    for (const Element_Info& element : Element_Infos()) {
        table.rows.push_back({std::to_string(element.code), element.name});
    }
    return table;
}

void Fill_Company(const Connection& store, const fs::path& source, const std::string& chart) {
    const auto add = [&](const char* table, const std::string& file, bool of_period) {
        Add_Rows(store, Table_Of(Store_Kind::Company, table), Read_Text_Table(source / file),
                 of_period ? std::vector{neutral_period} : std::vector<std::pair<std::string, Value>>{});
    };
    add("Ks_Zaihyo", chart, true);
    Finish_Chart(store, "Ks_Zaihyo");
    add("Kandaka_Gj", "worktypes.tsv", true);
    Add_Rows(store, Table_Of(Store_Kind::Company, "W_Yoso"), Elements_Table(), {neutral_period});
    add("XW_Yoso", "y_elements.tsv", true);
    add("QandA", "notes.tsv", true);
    add("KmkBunrui", "account_classes.tsv", false);
    add("Report_Info", "reports.tsv", false);
    add("sys_info", "ledger.tsv", false);
}

void Fill_Master(const Connection& store, const fs::path& source) {
    for (const auto& [table, chart] :
         {std::pair("Ks_Zaihyo_Zk_new", "chart_13.tsv"), std::pair("Ks_Zaihyo_Hk_new", "chart_01.tsv")}) {
        Add_Rows(store, Table_Of(Store_Kind::Master, table), Read_Text_Table(source / chart));
        Finish_Chart(store, table);
    }
    Add_Rows(store, Table_Of(Store_Kind::Master, "W_Yoso"), Elements_Table(), {neutral_period});
    store.Execute("DELETE FROM W_Yoso WHERE 要素CD < ? Or 要素CD > ?", element::law_year, element::w8);
}

} // namespace

std::span<const char* const> Template_Names() {
    return names;
}

std::string Blank_Work_Store(std::optional<Edition> edition) {
    return "morv_" + Code_Of(edition) + ".dat";
}

void Make_Templates(const fs::path& source, const fs::path& target, const Store_Key& key) {
    fs::create_directories(target);
    for (const auto& [file, chart] :
         {std::pair("morv_set.dat", "chart_13.tsv"), std::pair("morv_13.dat", "chart_13.tsv"),
          std::pair("morv_01.dat", "chart_01.tsv")}) {
        Make_Store(target / file, Store_Kind::Company, key,
                   [&, chart = chart](const Connection& store) { Fill_Company(store, source, chart); });
    }
    Make_Store(target / "morv_org.dat", Store_Kind::Master, key,
               [&](const Connection& store) { Fill_Master(store, source); });
    Make_Store(target / "morv_tmp.dat", Store_Kind::Auxiliary, key, [](const Connection&) {});
    Make_Store(target / "Jgmas.dat", Store_Kind::Register, key, [](const Connection&) {});
}

} // namespace morvane
