// SPDX-FileCopyrightText: The Morvane developers
#include "batch/case_file.h"

#include "law/accounts.h"
#include "law/elements.h"
#include "statements/account_book.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace morvane {

namespace {

Json To_Json(const Value& value) {
    if (value.Is_Null()) {
        return nullptr;
    }
    return value.Is_Text() ? Json(value.As_Text()) : Json(value.As_Integer());
}

/// The non-Null fields of the current row among `columns`.
Json Fields(const Recordset& row, const std::vector<std::string>& columns) {
    Json fields = Json::Object();
    for (const std::string& column : columns) {
        if (!row[column].Is_Null()) {
            fields[column] = To_Json(row[column]);
        }
    }
    return fields;
}

// A row whose only field is the plain one is written as the bare number.
Json Plain(Json fields, const char* plain) {
    return fields.Size() == 1 && fields.Has(plain) ? fields[plain] : fields;
}

Recordset Rows_Of(const Connection& cn, const char* table, const char* key, std::int64_t period) {
    return cn.Open(std::string("SELECT * FROM ") + table + " WHERE 決算期=? ORDER BY " + key, period);
}

/// What the balance after the journal of a row comes to.
Yen Balance_Of(const Recordset& row) {
    const auto amount = [&row](const char* column) { return Yen(row[column].As_Double()); };
    return Improved_Balance(static_cast<Account>(row["建設科目CD"].As_Integer()),
                            row["貸借正負"].As_Integer() == 1, amount("金額"), amount("借方"),
                            amount("貸方"));
}

Json Statement_Json(const Connection& cn, std::int64_t period, bool corporation) {
    // Import computes the totals of the working columns itself; those of a saved slot stay as they were
    // saved.
    static const std::vector<std::string> saved = {
        "借方1", "貸方1", "改善後残高1", "借方2", "貸方2", "改善後残高2", "借方3", "貸方3", "改善後残高3"};
    Json table = Json::Object();
    for (Recordset row = Rows_Of(cn, "Ks_Zaihyo", "建設科目CD", period); !row.Eof(); row.Move_Next()) {
        const std::string code = row["建設科目CD"].As_Text();
        const std::int64_t number = row["建設科目CD"].As_Integer();
        const bool prior = Is_Prior_Figure(static_cast<int>(number));
        Json fields = Json::Object();
        if (row["金額編集識別"].As_Boolean()) {
            fields = Fields(row, {"金額", "仮金額", "借方", "貸方"});
            if (!row["改善後残高"].Is_Null() && Yen(row["改善後残高"].As_Double()) != Balance_Of(row)) {
                fields["改善後残高"] = To_Json(row["改善後残高"]);
            }
        }
        const Json of_slots = Fields(row, saved);
        for (const auto& [column, value] : of_slots.Items()) {
            fields[column] = value;
        }
        if (row["建設科目名"] != row[corporation ? "法人科目名" : "個人科目名"]) {
            fields["建設科目名"] = To_Json(row["建設科目名"]);
        }
        if (prior && row["金額"].Is_Null()) {
            fields["金額"] = nullptr; // blank, not to be filled from an earlier period
        }
        if (!fields.Is_Empty()) {
            table[code] = Plain(std::move(fields), "金額");
        }
    }
    return table;
}

Json Table_Json(const Connection& cn, const char* table, const char* key, std::int64_t period,
                const std::vector<std::string>& columns, const char* plain) {
    Json rows = Json::Object();
    for (Recordset row = Rows_Of(cn, table, key, period); !row.Eof(); row.Move_Next()) {
        Json fields = Fields(row, columns);
        if (std::string_view(table) == "W_Yoso" && row[key].As_Integer() == 210) {
            fields.Erase("現状"); // given as Simyu_Kubun
        }
        if (!fields.Is_Empty()) {
            rows[row[key].As_Text()] = plain == nullptr ? std::move(fields) : Plain(std::move(fields), plain);
        }
    }
    return rows;
}

std::vector<std::string> Work_Columns(const Connection& cn) {
    std::vector<std::string> columns = cn.Open("SELECT * FROM Kandaka_Gj WHERE 決算期=-32768").Columns();
    std::erase_if(columns, [](const std::string& name) {
        return name == "決算期" || name == "工種CD" || name == "工種略";
    });
    return columns;
}

Json Period_Json(const Connection& cn, std::int64_t period, bool corporation) {
    Json record;
    record["決算期"] = period;
    const Recordset law =
        cn.Open("SELECT * FROM W_Yoso WHERE 決算期=? And 要素CD=?", period, element::law_year);
    const std::int64_t oldest = Law_Number(Oldest_Law_Year().code);
    record["Simyu_Kubun"] = law.Eof() ? oldest : law["現状"].As_Integer(oldest);
    record["Ks_Zaihyo"] = Statement_Json(cn, period, corporation);
    record["Kandaka_Gj"] = Table_Json(cn, "Kandaka_Gj", "工種CD", period, Work_Columns(cn), nullptr);
    record["W_Yoso"] = Table_Json(cn, "W_Yoso", "要素CD", period,
                                  {"現状", "改善後0", "改善後1", "改善後2", "改善後3"}, "現状");
    Json notes = Table_Json(cn, "QandA", "QNo", period, {"質問", "アドバイス"}, nullptr);
    if (!notes.Is_Empty()) {
        record["QandA"] = std::move(notes);
    }
    return record;
}

/// Writes an object one member a line; `width` members share a line.
void Write_Object(std::string& text, const Json& object, const std::string& indent, std::size_t width) {
    text += "{";
    std::size_t count = 0;
    for (const auto& [key, value] : object.Items()) {
        text += count == 0 ? "" : ",";
        text += count % width == 0 ? "\n" + indent : " ";
        text += Json(key).Text() + ": " + value.Text();
        ++count;
    }
    text += "}";
}

} // namespace

Json Export_Case(const Session& session, const std::filesystem::path& store) {
    const Connection cn(store, session.Db_Key, Connection::Mode::Read_Only);
    Json record;
    record["format"] = "morvane-case";
    record["version"] = 1;
    record["Tiiki_CD"] = Code_Of(session.Tiiki_CD);
    const Recordset firm = cn.Open("SELECT * FROM Jigyo_mas");
    if (firm.Eof()) {
        throw Store_Error(store, Store_Error::Reason::Bad_Content, "事業所の情報（Jigyo_mas）がありません");
    }
    record["Jigyo_mas"] = Fields(firm, firm.Columns());
    record["periods"] = Json::Array();
    const bool corporation = Firm_Type_Of(firm["法人個人識別"].As_Integer()) == Firm_Type::Corporation;
    for (Recordset periods = cn.Open("SELECT * FROM Ks_ki ORDER BY 決算期"); !periods.Eof();
         periods.Move_Next()) {
        record["periods"].Add(Period_Json(cn, periods["決算期"].As_Integer(), corporation));
    }
    return record;
}

std::string Case_Text(const Json& record) {
    std::string text =
        "{\"format\": \"morvane-case\", \"version\": 1, \"Tiiki_CD\": " + record["Tiiki_CD"].Text() +
        ",\n \"Jigyo_mas\": ";
    Write_Object(text, record["Jigyo_mas"], "  ", 6);
    text += ",\n \"periods\": [";
    const char* comma = "\n";
    for (const Json& period : record["periods"].Array_Elements()) {
        text += comma;
        text += "  {\"決算期\": " + period["決算期"].Text() +
                ", \"Simyu_Kubun\": " + period["Simyu_Kubun"].Text();
        for (const auto& [name, width] : {std::pair("Ks_Zaihyo", 8U), std::pair("Kandaka_Gj", 1U),
                                          std::pair("W_Yoso", 10U), std::pair("QandA", 1U)}) {
            if (period.Has(name)) {
                text += ",\n   \"" + std::string(name) + "\": ";
                Write_Object(text, period[name], "    ", width);
            }
        }
        text += "}";
        comma = ",\n";
    }
    return text + "]}\n";
}

} // namespace morvane
