// SPDX-FileCopyrightText: The Morvane developers
#include "company/table_edit.h"

#include "data/same_name.h"
#include "data/work_columns.h"
#include "law/accounts.h"
#include "law/elements.h"
#include "review/syokuta.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

namespace {

struct Ledger_Row {
    int number;
    const char* date;
    const char* text;
};

constexpr Ledger_Row fix_161 = {14, "2010/05/24", "2010版　科目No.161 集計識別をFalse にセット"};
constexpr Ledger_Row fix_232 = {15, "2010/07/11", "2010版　科目No.232 科目分類識別をKtf に修正"};
constexpr Ledger_Row add_gijutusya6 = {21, "2021/05/13", "2021版　管理技術者補佐関連　フィールド追加"};

std::string Of_Period(const char* table, int period) {
    return std::string("SELECT * FROM ") + table + " WHERE 決算期=" + std::to_string(period);
}

void Add_Ledger_Row(const Connection& cn, const Ledger_Row& row) {
    const std::array<Value, 3> values = {row.number, row.date, row.text};
    cn.Execute("INSERT INTO sys_info (Info_No, Info_Date, Info) VALUES (?, ?, ?)", values);
}

// A store whose change was broken off may have the columns and lack the ledger row; each column is looked at.
void Add_Gijutusya6(const Connection& cn) {
    const std::vector<std::string> present = cn.Open("SELECT * FROM Kandaka_GJ WHERE 決算期=-1;").Columns();
    for (const char* prefix : {"", "改0", "改1", "改2", "改3"}) {
        const std::string column = std::string(prefix) + work_column::engineers_6;
        if (std::none_of(present.begin(), present.end(),
                         [&](const std::string& name) { return Same_Name(name, column); })) {
            cn.Execute("ALTER TABLE Kandaka_GJ ADD COLUMN " + column + " Integer");
        }
    }
}

// 解体 became a work type of its own in 2016; その他 moved from 31 to 33 to make room.
void Add_Work_Types(const Connection& cn, int period) {
    cn.Execute("UPDATE Kandaka_Gj SET Kandaka_Gj.工種CD=33 WHERE 決算期=" + std::to_string(period) +
               " AND 工種CD=31;");
    for (const auto& [code, name] : {std::pair(31, "解体"), std::pair(32, "と・解")}) {
        const std::array<Value, 3> values = {period, code, name};
        cn.Execute("INSERT INTO Kandaka_Gj (決算期, 工種CD, 工種略) VALUES (?, ?, ?)", values);
    }
}

// A period without any row is none: nothing is added to it.
bool Has_Rows(const Connection& cn, const char* table, int period) {
    return !cn.Open(Of_Period(table, period) + ";").Eof();
}

/// What of the present forms the store lacks for the period in hand.
struct Pending {
    bool account_161, account_232, work_types, engineers_6, work_style;
    [[nodiscard]] bool Any() const {
        return account_161 || account_232 || work_types || engineers_6 || work_style;
    }
};

Pending Look(const Connection& cn, const Session& session) {
    const bool present_form = session.Data_Ver == 5 || session.Data_Ver == 6;
    const int period = session.Syori_Ki;
    return {present_form && !Sys_Info_Has(cn, fix_161.number),
            session.Data_Ver == 6 && !Sys_Info_Has(cn, fix_232.number),
            Has_Rows(cn, "Kandaka_Gj", period) &&
                cn.Open(Of_Period("Kandaka_Gj", period) + " And 工種CD=33 And 工種略='その他';").Eof(),
            present_form && !Sys_Info_Has(cn, add_gijutusya6.number),
            Has_Rows(cn, "W_Yoso", period) && cn.Open(Of_Period("W_Yoso", period) + " And 要素CD=" +
                                                      std::to_string(element::eco_action) + ";")
                                                  .Eof()};
}

} // namespace

bool Sys_Info_Has(const Connection& cn, int info_no) {
    return !cn.Open("SELECT * FROM sys_info WHERE info_no=" + std::to_string(info_no)).Eof();
}

void Add_Young_Engineer_Rows(const Connection& cn, int period) {
    Add_Missing_Elements(cn, period, element::engineers, element::young_new_points);
}

void Table_Edit_Run(const Session& session) {
    const Connection cn = Cn_Open(session);
    if (!Look(cn, session).Any()) {
        return;
    }
    Transaction transaction(cn);
    Table_Edit(cn, session);
    transaction.Commit();
}

void Table_Edit(const Connection& cn, const Session& session) {
    const Pending pending = Look(cn, session);
    const std::string period = std::to_string(session.Syori_Ki);
    // The two corrections of accounts reach the period in hand alone, yet count as done for the store.
    if (pending.account_161) {
        cn.Execute("UPDATE Ks_Zaihyo SET Ks_Zaihyo.集計識別=False WHERE 決算期=" + period +
                   " And 建設科目CD=" + Code_Text(Account::Closed_Investments));
        Add_Ledger_Row(cn, fix_161);
    }
    if (pending.account_232) {
        cn.Execute("UPDATE Ks_Zaihyo SET Ks_Zaihyo.科目分類識別='Ktf' WHERE 決算期=" + period +
                   " And 建設科目CD=" + Code_Text(Account::Fixed_Lease_Debt));
        Add_Ledger_Row(cn, fix_232);
    }
    if (pending.work_types) {
        Add_Work_Types(cn, session.Syori_Ki);
    }
    if (pending.engineers_6) {
        Add_Gijutusya6(cn);
        Add_Ledger_Row(cn, add_gijutusya6);
    }
    if (pending.work_style) {
        Add_Missing_Elements(cn, session.Syori_Ki, element::women, element::work_history_points);
    }
}

} // namespace morvane
