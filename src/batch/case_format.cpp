// SPDX-FileCopyrightText: The Morvane developers
#include "batch/case_format.h"

#include "batch/case_file.h"
#include "company/company_info.h"
#include "data/decimal.h"
#include "data/json_text.h"
#include "data/same_name.h"
#include "data/shown_text.h"
#include "data/store_file.h"
#include "data/table_catalogue.h"
#include "law/accounts.h"
#include "law/elements.h"
#include "review/work_columns.h"
#include "statements/statement_section.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <set>

namespace morvane {

namespace {

namespace fs = std::filesystem;

constexpr double most_amount = 1e15;     // amounts have up to fifteen digits
constexpr std::size_t most_note = 32767; // characters of a note
constexpr const char* twice = "2回指定されています。";
constexpr std::size_t most_periods = 200; // as many as a firm can have years in business

/// A place in a case file, for messages.
struct Spot {
    const fs::path& file;
    std::string path;

    [[nodiscard]] Spot operator/(const std::string& key) const {
        return {file, path.empty() ? key : path + "." + key};
    }
    [[noreturn]] void Refuse(const std::string& reason) const { throw Case_Error(file, path, reason); }
};

const Json& Object_At(const Spot& spot, const Json& value) {
    if (!value.Is_Object()) {
        spot.Refuse("オブジェクトではありません。");
    }
    return value;
}

std::int64_t Whole_Number(const Spot& spot, const Json& value, double lowest, double highest) {
    if (!value.Is_Number()) {
        spot.Refuse("数値ではありません（" + Shown_Json(value) + "）。");
    }
    const auto number = value.As_Double();
    if (!(number >= lowest && number <= highest)) {
        spot.Refuse("数値が範囲外です（" + Shown_Json(value) + "）。");
    }
    if (number != std::floor(number)) {
        spot.Refuse("整数ではありません（" + Shown_Json(value) + "）。");
    }
    return static_cast<std::int64_t>(number);
}

template <class Int>
Int Whole(const Spot& spot, const Json& value) {
    return static_cast<Int>(
        Whole_Number(spot, value, std::numeric_limits<Int>::min(), std::numeric_limits<Int>::max()));
}

Value Field_Value(const Spot& spot, const Json& value, Column_Type type) {
    if (value.Is_Null()) {
        return {};
    }
    switch (type) {
    case Column_Type::Text:
        if (!value.Is_Text()) {
            spot.Refuse("文字列ではありません（" + Shown_Json(value) + "）。");
        }
        return value.As_Text();
    case Column_Type::Integer:
        return std::int64_t{Whole<std::int16_t>(spot, value)};
    case Column_Type::Long:
        return std::int64_t{Whole<std::int32_t>(spot, value)};
    case Column_Type::Double:
        return Whole_Number(spot, value, -most_amount, most_amount);
    case Column_Type::Boolean:
        break;
    }
    spot.Refuse("指定できない項目です。");
}

const Column_Info& Column_Of(const Spot& spot, const Table_Info& table, const std::string& name) {
    const auto found = std::find_if(table.columns.begin(), table.columns.end(),
                                    [&](const Column_Info& info) { return Same_Name(info.name, name); });
    if (found == table.columns.end()) {
        spot.Refuse("表 " + table.name + " にない項目です。");
    }
    return *found;
}

int Code_Of(const Spot& spot, const std::string& key) {
    const auto code = Decimal(key);
    if (!code || *code < 0 || *code > std::numeric_limits<std::int16_t>::max()) {
        spot.Refuse("コードではありません。");
    }
    return static_cast<int>(*code);
}

/// How the rows of a table are written in a case.
struct Table_Form {
    const char* name;
    const char* key;
    const char* plain; ///< column that a bare number stands for; null where each value is an object
    std::vector<std::string> columns; ///< columns that may be given; empty: all but those of `barred`
    std::vector<std::string> barred;
};

const Table_Form& Form_Of(Case_Table table) {
    static const std::array<Table_Form, 4> forms = {{
        {"Ks_Zaihyo",
         "建設科目CD",
         "金額",
         {"金額", "仮金額", "借方", "貸方", "改善後残高", "借方1", "貸方1", "改善後残高1", "借方2", "貸方2",
          "改善後残高2", "借方3", "貸方3", "改善後残高3", "建設科目名"},
         {}},
        {"Kandaka_Gj", "工種CD", nullptr, {}, {"決算期", "工種CD", "工種略"}},
        {"W_Yoso", "要素CD", "現状", {"現状", "改善後0", "改善後1", "改善後2", "改善後3"}, {}},
        {"QandA", "QNo", nullptr, {"質問", "アドバイス"}, {}},
    }};
    return forms[static_cast<std::size_t>(table)];
}

bool Is_Listed(const std::vector<std::string>& list, const std::string& name) {
    return std::any_of(list.begin(), list.end(),
                       [&](const std::string& own) { return Same_Name(own, name); });
}

/// The fields that a value of a case gives: one under the plain column, or those of the object.
std::vector<std::pair<std::string, Json>> Fields_Of(const Spot& spot, const Table_Form& form,
                                                    const Json& value) {
    if (form.plain != nullptr && !value.Is_Object()) {
        return {{form.plain, value}};
    }
    std::vector<std::pair<std::string, Json>> fields;
    for (const auto& [name, field] : Object_At(spot, value).Items()) {
        const bool barred =
            Is_Listed(form.barred, name) || (!form.columns.empty() && !Is_Listed(form.columns, name));
        if (barred) {
            (spot / name).Refuse("指定できない項目です。");
        }
        if (std::any_of(fields.begin(), fields.end(),
                        [&name = name](const auto& other) { return Same_Name(other.first, name); })) {
            (spot / name).Refuse(twice);
        }
        fields.emplace_back(name, field);
    }
    return fields;
}

void Test_Text(const Spot& spot, const Value& text, std::size_t most, bool has_lines) {
    if (std::string refusal = Text_Refusal(text.As_Text(), most, has_lines); !refusal.empty()) {
        spot.Refuse(refusal);
    }
}

void Test_Limit(const Spot& spot, const Value& number, const Entry_Limit& limit) {
    if (!limit.Takes(number.As_Integer())) {
        spot.Refuse(limit.In_Words() + "の数を指定してください（" + number.As_Text() + "）。");
    }
}

/// The limits that the screen of a table has for its fields.
void Test_Value(const Spot& spot, Case_Table table, int code, const std::string& column, const Value& value,
                Law_Year_No law_year) {
    if (value.Is_Null()) {
        return;
    }
    switch (table) {
    case Case_Table::Ks_Zaihyo:
        if (value.Is_Text()) {
            Test_Text(spot, value, account_name_length, false);
        }
        break;
    case Case_Table::Kandaka_Gj:
        Test_Limit(spot, value, Limit_Of_Work_Column(column));
        break;
    case Case_Table::W_Yoso:
        Test_Limit(spot, value, Limit_Of_Element(code, Law_Of(law_year)));
        break;
    case Case_Table::QandA:
        Test_Text(spot, value, most_note, true);
        break;
    }
}

// Rules that a single table has beyond its types.
void Test_Row(const Spot& spot, Case_Table table, int code, const std::string& column, const Recordset& row) {
    const bool saved_slot = column.back() >= '1' && column.back() <= '3'; // kept as it was saved, totals too
    if (table == Case_Table::Ks_Zaihyo && !row["金額編集識別"].As_Boolean() && !saved_slot) {
        spot.Refuse("自動計算される科目（" + row["建設科目名"].As_Text() + "）には金額を指定できません。");
    }
    if (table == Case_Table::Kandaka_Gj && code == 32) {
        spot.Refuse("集計表示用の工種には数値を指定できません。");
    }
    if (table == Case_Table::W_Yoso && code == element::law_year && column == "現状") {
        spot.Refuse("経審改正年は Simyu_Kubun で指定します。");
    }
}

Spot Period_Spot(const Case_Record& record, const Case_Period& period) {
    return {record.file, "periods[" + std::to_string(period.index) + "]"};
}

Case_Period Read_Period(const Spot& spot, const Json& value, std::size_t index) {
    Case_Period period;
    period.index = index;
    for (const auto& [key, field] : Object_At(spot, value).Items()) {
        const Spot at = spot / key;
        if (key == "決算期") {
            period.number = static_cast<std::int16_t>(Whole_Number(at, field, 0, 32767));
        } else if (key == "Simyu_Kubun") {
            period.law_year = Law_Of(Whole_Number(at, field, Law_Number(Oldest_Law_Year().code),
                                                  Law_Number(Newest_Law_Year().code)))
                                  .code;
        } else if (key == "Ks_Zaihyo" || key == "Kandaka_Gj" || key == "W_Yoso" || key == "QandA") {
            period.tables[key] = Object_At(at, field);
        } else {
            at.Refuse("知らない項目です。");
        }
    }
    if (!value.Has("決算期")) {
        (spot / "決算期").Refuse("指定されていません。");
    }
    return period;
}

/// A date that is given is whole and one of the calendar, as on the screens.
void Test_Date(const Spot& spot, const Case_Record& record, const std::string& date) {
    std::array<std::string, 3> parts;
    std::size_t given = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        constexpr std::array<const char*, 3> units = {"年", "月", "日"};
        const auto found = record.firm.find(date + units.at(i));
        if (found != record.firm.end() && !found->second.Is_Null()) {
            parts.at(i) = found->second.As_Text();
            ++given;
        }
    }
    if (given > 0 && (given < parts.size() || !Is_Era_Date(parts[0], parts[1], parts[2]))) {
        (spot / (date + "年"))
            .Refuse("日付が不正です（" + parts[0] + "年" + parts[1] + "月" + parts[2] + "日）。");
    }
}

void Read_Firm(const Spot& spot, const Json& value, Case_Record& record) {
    const Table_Info& table = Table_Of(Store_Kind::Company, "Jigyo_mas");
    for (const auto& [key, field] : Object_At(spot, value).Items()) {
        const Spot at = spot / key;
        const Column_Info& column = Column_Of(at, table, key);
        Value given = Field_Value(at, field, column.type);
        if (std::string refusal = Column_Refusal(column.name, given); !refusal.empty()) {
            at.Refuse(refusal);
        }
        if (!record.firm.emplace(column.name, std::move(given)).second) {
            at.Refuse(twice);
        }
    }
    for (const char* required : {"管理No", "事業所名", "法人個人識別", "処理決算期"}) {
        if (!record.firm.contains(required) || Is_Blank(record.firm[required].As_Text())) {
            (spot / required).Refuse("指定されていません。");
        }
    }
    for (const char* end : {"開始", "終了"}) {
        Test_Date(spot, record, std::string("決算期") + end);
    }
}

void Read_Periods(const Spot& spot, const Json& value, Case_Record& record) {
    if (!value.Is_Array() || value.Is_Empty()) {
        spot.Refuse("決算期の配列ではありません。");
    }
    if (value.Size() > most_periods) {
        spot.Refuse("決算期は" + std::to_string(most_periods) + "期までです（" +
                    std::to_string(value.Size()) + "期）。");
    }
    for (std::size_t i = 0; i < value.Size(); ++i) {
        const Spot at{spot.file, "periods[" + std::to_string(i) + "]"};
        Case_Period period = Read_Period(at, value.Array_Elements()[i], i);
        if (i > 0 && period.number != record.periods.back().number + 1) {
            (at / "決算期").Refuse("決算期は古いものから連続して並べてください。");
        }
        record.periods.push_back(std::move(period));
    }
    const std::int64_t in_hand = record.firm["処理決算期"].As_Integer();
    if (std::none_of(record.periods.begin(), record.periods.end(),
                     [&](const Case_Period& period) { return period.number == in_hand; })) {
        throw Case_Error(spot.file, "Jigyo_mas.処理決算期", "periods にない決算期です。");
    }
}

Json At_Or_Null(const Json& object, const char* key) {
    const Json* found = object.Find(key);
    return found != nullptr ? *found : Json();
}

Json Parse(const fs::path& file) {
    const std::string text = Read_Text_File(file);
    try {
        return Json_Of(text);
    } catch (const Json_Fault& fault) {
        throw Case_Error(file, fault.path, fault.what());
    }
}

} // namespace

Case_Record Read_Case(const fs::path& file) {
    const Json root = Parse(file);
    const Spot top{file, ""};
    Object_At(top, root);
    if (At_Or_Null(root, "format") != "morvane-case") {
        (top / "format").Refuse("「morvane-case」ではありません。");
    }
    if (At_Or_Null(root, "version") != 1) {
        (top / "version").Refuse("対応していない版です。");
    }
    for (const auto& [key, field] : root.Items()) {
        static const std::vector<std::string> known = {"format", "version", "Tiiki_CD", "Jigyo_mas",
                                                       "periods"};
        if (std::find(known.begin(), known.end(), key) == known.end()) {
            (top / key).Refuse("知らない項目です。");
        }
    }
    Case_Record record;
    record.file = file;
    const Json edition = At_Or_Null(root, "Tiiki_CD");
    if (edition != "01" && edition != "13") {
        (top / "Tiiki_CD").Refuse("\"01\"（北海道）か \"13\"（全国）を指定してください。");
    }
    record.edition = *Edition_Of(edition.As_Text());
    Read_Firm(top / "Jigyo_mas", At_Or_Null(root, "Jigyo_mas"), record);
    Read_Periods(top / "periods", At_Or_Null(root, "periods"), record);
    return record;
}

void Case_Record::Put_Table(const Connection& cn, const Case_Period& period, Case_Table table) const {
    const Table_Form& form = Form_Of(table);
    if (period.tables.Has(form.name)) {
        Recordset rows =
            cn.Open(std::string("SELECT * FROM ") + form.name + " WHERE 決算期=? ORDER BY " + form.key,
                    period.number);
        Put_Table(rows, period, table);
    }
}

void Case_Record::Put_Table(Recordset& rows, const Case_Period& period, Case_Table table) const {
    const Table_Form& form = Form_Of(table);
    if (!period.tables.Has(form.name)) {
        return;
    }
    const Table_Info& info = Table_Of(Store_Kind::Company, form.name);
    const Spot spot = Period_Spot(*this, period) / form.name;
    std::set<int> codes;
    for (const auto& [key, value] : period.tables[form.name].Items()) {
        const Spot at = spot / key;
        const int code = Code_Of(at, key);
        if (!codes.insert(code).second) {
            at.Refuse(twice);
        }
        if (!rows.Find(form.key, code)) {
            at.Refuse("この決算期にないコードです。");
        }
        for (const auto& [name, field] : Fields_Of(at, form, value)) {
            const Spot field_spot = value.Is_Object() ? at / name : at;
            const Column_Info& column = Column_Of(field_spot, info, name);
            const Value number = Field_Value(field_spot, field, column.type);
            Test_Value(field_spot, table, code, column.name, number, period.law_year);
            if (column.name != "建設科目名" && !number.Is_Null()) {
                Test_Row(field_spot, table, code, column.name, rows);
            }
            rows.Set(column.name, number);
        }
        rows.Update();
    }
}

void Case_Record::Put_Prior_Figures(Recordset& rows, const Case_Period& period) const {
    if (!period.tables.Has("Ks_Zaihyo")) {
        return;
    }
    const Table_Form& form = Form_Of(Case_Table::Ks_Zaihyo);
    const Spot spot = Period_Spot(*this, period) / form.name;
    for (const auto& [key, value] : period.tables["Ks_Zaihyo"].Items()) {
        const int code = Code_Of(spot / key, key);
        if (!Is_Prior_Figure(code)) {
            continue;
        }
        for (const auto& [name, field] : Fields_Of(spot / key, form, value)) {
            if (Same_Name(name, "金額") && rows.Find(form.key, code)) {
                rows.Set("金額", Field_Value(spot / key, field, Column_Type::Double));
            }
        }
    }
}

bool Case_Record::Gives_Amounts(const Case_Period& period, std::string_view column) const {
    if (!period.tables.Has("Ks_Zaihyo")) {
        return false;
    }
    const Json::Members& rows = period.tables["Ks_Zaihyo"].Items();
    return std::any_of(rows.begin(), rows.end(),
                       [column](const Json::Member& row) { return row.second.Has(column); });
}

void Case_Record::Put_Balances(Recordset& rows, const Case_Period& period) const {
    const Spot spot = Period_Spot(*this, period) / "Ks_Zaihyo";
    for (const auto& [key, value] : period.tables["Ks_Zaihyo"].Items()) {
        if (value.Has("改善後残高") && rows.Find("建設科目CD", Code_Of(spot / key, key))) {
            rows.Set("改善後残高",
                     Field_Value(spot / key / "改善後残高", value["改善後残高"], Column_Type::Double));
        }
    }
}

bool Case_Record::Gives_Figures(const Case_Period& period, Scenario scenario) const {
    const auto names = [&](const char* table, std::string_view start) {
        const Json* rows = period.tables.Find(table);
        return rows != nullptr &&
               std::any_of(rows->Items().begin(), rows->Items().end(), [start](const Json::Member& row) {
                   return row.second.Is_Object() &&
                          std::any_of(
                              row.second.Items().begin(), row.second.Items().end(),
                              [start](const Json::Member& field) { return field.first.starts_with(start); });
               });
    };
    return names("W_Yoso", Columns_Of(scenario).yoso) || names("Kandaka_Gj", Columns_Of(scenario).prefix);
}

} // namespace morvane
