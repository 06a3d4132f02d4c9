// SPDX-FileCopyrightText: The Morvane developers
#include "data/table_catalogue.h"

#include "data/same_name.h"
#include "data/work_columns.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <initializer_list>
#include <stdexcept>

namespace morvane {

namespace {

using enum Column_Type;

constexpr std::array<std::string_view, 20> scenario_columns = {work_column::before_last,
                                                               work_column::last,
                                                               work_column::former_average,
                                                               work_column::base,
                                                               work_column::average,
                                                               work_column::x1,
                                                               work_column::engineers_1,
                                                               work_column::engineers_2,
                                                               work_column::engineers_3,
                                                               work_column::engineers_4,
                                                               work_column::engineers_5,
                                                               work_column::z1,
                                                               work_column::prime_before_last,
                                                               work_column::prime_last,
                                                               work_column::prime_former_average,
                                                               work_column::prime_base,
                                                               work_column::prime_average,
                                                               work_column::z2,
                                                               work_column::z,
                                                               work_column::p};

constexpr std::array<std::string_view, 9> older_engineer_columns = {
    "技術者1前期",  "技術者2前期", "技術者他前期", "技術者1基準", "技術者2基準",
    "技術者他基準", "技術者1平均", "技術者2平均",  "技術者他平均"};

bool Is_Engineer(std::string_view name) {
    return name.starts_with("技術者");
}

std::vector<Column_Info>
Columns(std::initializer_list<std::pair<Column_Type, std::vector<std::string>>> groups) {
    std::vector<Column_Info> columns;
    for (const auto& [type, names] : groups) {
        for (const std::string& name : names) {
            columns.push_back({name, type});
        }
    }
    return columns;
}

std::vector<Column_Info> Statement_Columns() {
    std::vector<Column_Info> columns =
        Columns({{Integer, {"決算期", "建設科目CD", "並び順", "科目分類No"}},
                 {Text, {"科目分類識別", "建設科目名", "法人科目名", "個人科目名", "正負識別"}},
                 {Integer, {"内部処理正負", "貸借正負"}},
                 {Boolean,
                  {"集計識別", "科目編集識別", "金額編集識別", "非表示識別", "非印刷識別", "法人非表示識別",
                   "法人非印刷識別", "個人非表示識別", "個人非印刷識別"}},
                 {Double, {"金額", "仮金額", "借方", "貸方", "改善後残高"}}});
    for (const char* slot : {"1", "2", "3"}) {
        for (const char* name : {"借方", "貸方", "改善後残高"}) {
            columns.push_back({std::string(name) + slot, Double});
        }
    }
    return columns;
}

std::vector<Column_Info> Work_Columns() {
    std::vector<Column_Info> columns = Columns({{Integer, {"決算期", "工種CD"}}, {Text, {"工種略"}}});
    const auto add = [&columns](const std::string& prefix) {
        for (const std::string_view name : scenario_columns) {
            columns.push_back({prefix + std::string(name), Is_Engineer(name) ? Integer : Double});
        }
    };
    add("");
    for (const std::string_view name : older_engineer_columns) {
        columns.push_back({std::string(name), Integer});
    }
    for (const char* prefix : {"改0", "改1", "改2", "改3"}) {
        add(prefix);
    }
    // Added in place by the revision of 2021, hence behind the others.
    for (const char* prefix : {"", "改0", "改1", "改2", "改3"}) {
        columns.push_back({std::string(prefix) + work_column::engineers_6, Integer});
    }
    return columns;
}

std::vector<Column_Info> Older_Work_Columns() {
    return Columns(
        {{Integer, {"決算期", "工種CD"}},
         {Text, {"工種略"}},
         {Double, {"完工高前々期", "完工高前期", "完工高前平均", "完工高基準", "完工高平均", "評点X1"}},
         {Integer, {older_engineer_columns.begin(), older_engineer_columns.end()}},
         {Double, {"評点Z", "総合評点P"}}});
}

std::vector<Table_Info> Company_Tables() {
    const std::vector<std::string> work_key = {"決算期", "工種CD"};
    return {
        {"Jigyo_mas",
         Columns({{Long, {"管理No"}},
                  {Text, {"地域CD", "地域名", "事業所名", "事業所カナ名", "代表者名", "代表者役職"}},
                  {Integer, {"法人個人識別"}},
                  {Text,
                   {"郵便番号1", "郵便番号2", "事業所所在地", "所在地", "ビル名", "担当者名", "電話番号",
                    "Fax番号", "EMail", "記入者肩書", "記入者名"}},
                  {Integer,
                   {"処理決算期", "決算期開始年", "決算期開始月", "決算期開始日", "決算期終了年",
                    "決算期終了月", "決算期終了日"}},
                  {Text, {"許可番号1", "許可番号2", "許可番号3", "許可番号4"}},
                  {Integer, {"単位"}},
                  {Text, {"UserID"}}}),
         {}},
        {"Ks_ki", Columns({{Integer, {"決算期"}}}), {"決算期"}},
        {"Ks_Zaihyo", Statement_Columns(), {"決算期", "建設科目CD"}},
        {"Kandaka_Gj", Work_Columns(), work_key},
        {"Kandaka_Kz", Older_Work_Columns(), work_key},
        {"Kandaka_KzF", Older_Work_Columns(), work_key},
        {"Kandaka_KzS", Older_Work_Columns(), work_key},
        {"Kandaka_KzT", Older_Work_Columns(), work_key},
        {"W_Yoso",
         Columns({{Integer, {"決算期", "要素CD"}},
                  {Text, {"要素名"}},
                  {Double, {"現状", "改善後0", "改善後1", "改善後2", "改善後3"}}}),
         {"決算期", "要素CD"}},
        {"XW_Yoso",
         Columns({{Integer, {"決算期", "要素CD"}},
                  {Text, {"要素名"}},
                  {Double, {"現状", "改善後", "入力値", "改善後1", "改善後2", "改善後3"}}}),
         {"決算期", "要素CD"}},
        {"QandA",
         Columns({{Integer, {"決算期", "QNo"}}, {Text, {"タイトル", "質問", "アドバイス"}}}),
         {"決算期", "QNo"}},
        {"Hatu_dt",
         Columns({{Long, {"市町村CD"}},
                  {Integer, {"市内外識別"}},
                  {Double, {"付与点数", "最高点数", "下水道額", "とび土木分"}}}),
         {"市町村CD"}},
        {"KmkBunrui", Columns({{Text, {"科目分類識別", "分類名"}}}), {"科目分類識別"}},
        {"Report_Info",
         Columns({{Integer, {"レポートNo"}},
                  {Text, {"オブジェクト名", "書式名称"}},
                  {Integer, {"用紙サイズ", "用紙向き"}},
                  {Double, {"用紙幅", "用紙高", "上余白", "左余白"}}}),
         {"レポートNo"}},
        {"sys_info", Columns({{Integer, {"Info_No"}}, {Text, {"Info_Date", "Info"}}}), {"Info_No"}},
    };
}

std::vector<Table_Info> Master_Tables() {
    const std::vector<Column_Info> columns =
        Columns({{Integer, {"建設科目CD", "並び順", "科目分類No"}},
                 {Text, {"科目分類識別", "建設科目名", "法人科目名", "個人科目名", "正負識別"}},
                 {Integer, {"内部処理正負", "貸借正負"}},
                 {Boolean,
                  {"集計識別", "科目編集識別", "金額編集識別", "非表示識別", "非印刷識別", "法人非表示識別",
                   "法人非印刷識別", "個人非表示識別", "個人非印刷識別"}}});
    std::vector<Table_Info> tables = {{"Ks_Zaihyo_Zk_new", columns, {"建設科目CD"}},
                                      {"Ks_Zaihyo_Hk_new", columns, {"建設科目CD"}}};
    tables.push_back(Table_Of(Store_Kind::Company, "W_Yoso"));
    return tables;
}

constexpr std::string_view Type_Name(Column_Type type) {
    constexpr std::array<std::string_view, 5> names = {"Integer", "Long", "Text", "Boolean", "Double"};
    return names.at(static_cast<std::size_t>(type));
}

} // namespace

std::span<const Table_Info> Tables_Of(Store_Kind kind) {
    static const std::vector<Table_Info> company = Company_Tables();
    static const std::vector<Table_Info> company_register = {
        {"jgmas", Columns({{Long, {"事業所CD"}}, {Text, {"事業所名", "事業所カナ名"}}}), {"事業所CD"}}};
    static const std::vector<Table_Info> auxiliary = {Table_Of(Store_Kind::Company, "Ks_Zaihyo")};
    static const std::vector<Table_Info> master = Master_Tables();
    switch (kind) {
    case Store_Kind::Register:
        return company_register;
    case Store_Kind::Master:
        return master;
    case Store_Kind::Auxiliary:
        return auxiliary;
    case Store_Kind::Company:
        break;
    }
    return company;
}

const Table_Info& Table_Of(Store_Kind kind, std::string_view name) {
    if (kind == Store_Kind::Company) {
        static const std::vector<Table_Info> company = Company_Tables();
        for (const Table_Info& table : company) {
            if (Same_Name(table.name, name)) {
                return table;
            }
        }
        throw std::out_of_range("no such table in the catalogue: " + std::string(name));
    }
    for (const Table_Info& table : Tables_Of(kind)) {
        if (Same_Name(table.name, name)) {
            return table;
        }
    }
    throw std::out_of_range("no such table in the catalogue: " + std::string(name));
}

void Create_Tables(const Connection& store, Store_Kind kind) {
    Transaction transaction(store);
    for (const Table_Info& table : Tables_Of(kind)) {
        std::string columns;
        for (const Column_Info& column : table.columns) {
            columns += (columns.empty() ? "" : ", ") + ("[" + column.name + "] ") +
                       std::string(Type_Name(column.type));
        }
        store.Execute("CREATE TABLE " + table.name + " (" + columns + ")");
        if (!table.key.empty()) {
            std::string key;
            for (const std::string& name : table.key) {
                key += (key.empty() ? "" : ", ") + name;
            }
            store.Execute("CREATE UNIQUE INDEX " + table.name + "_key ON " + table.name + " (" + key + ")");
        }
    }
    transaction.Commit();
}

std::vector<std::string> Missing_In_Store(const Connection& store, Store_Kind kind, bool in_full) {
    std::vector<std::string> missing;
    for (const Table_Info& table : Tables_Of(kind)) {
        Statement info = store.Prepare("PRAGMA table_info(" + table.name + ")");
        std::vector<std::string> present;
        while (info.Step()) {
            present.emplace_back(info.Text_At(1));
        }
        if (present.empty()) {
            missing.push_back("表 " + table.name + " がありません。");
            continue;
        }
        for (const Column_Info& column : table.columns) {
            const bool later = table.name == "Kandaka_Gj" && column.name.ends_with(work_column::engineers_6);
            const bool found = std::any_of(present.begin(), present.end(), [&](const std::string& own) {
                return Same_Name(own, column.name);
            });
            if (!found && (in_full || !later)) {
                missing.push_back("表 " + table.name + " に項目 " + column.name + " がありません。");
            }
        }
    }
    return missing;
}

} // namespace morvane
