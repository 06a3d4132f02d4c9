// SPDX-FileCopyrightText: The Morvane developers
#include "company/table_edit.h"

#include "data/same_name.h"
#include "data/work_columns.h"
#include "law/accounts.h"
#include "law/elements.h"
#include "review/review_figures.h"

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

void Add_Ledger_Row(const Connection& cn, const Ledger_Row& row) {
    cn.Execute("INSERT INTO sys_info (Info_No, Info_Date, Info) VALUES (?, ?, ?)", row.number, row.date,
               row.text);
}

// A store whose change was broken off may have the columns and lack the ledger row; each column is looked at.
void Add_Gijutusya6(const Connection& cn) {
    const std::vector<std::string> present = cn.Open("SELECT * FROM Kandaka_GJ WHERE 決算期=-1").Columns();
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
    cn.Execute("UPDATE Kandaka_Gj SET 工種CD=33 WHERE 決算期=? And 工種CD=31", period);
    for (const auto& [code, name] : {std::pair(31, "解体"), std::pair(32, "と・解")}) {
        cn.Execute("INSERT INTO Kandaka_Gj (決算期, 工種CD, 工種略) VALUES (?, ?, ?)", period, code, name);
    }
}

// A period without any row is none: nothing is added to it.
bool Has_Rows(const Connection& cn, const char* table, int period) {
    return !cn.Open(std::string("SELECT 決算期 FROM ") + table + " WHERE 決算期=? LIMIT 1", period).Eof();
}

/// What of the present forms the store lacks for the period in hand.
struct Pending {
    bool account_161, account_232, work_types, engineers_6, work_style;
    [[nodiscard]] bool Any() const {
        return account_161 || account_232 || work_types || engineers_6 || work_style;
    }
};

Pending Look(const Connection& cn, const Session& session) {
    const bool present_form = Is_Present(session.Data_Ver);
    const int period = session.Syori_Ki;
    return {
        present_form && !Sys_Info_Has(cn, fix_161.number),
        session.Data_Ver == Data_Form_No::Hokkaido && !Sys_Info_Has(cn, fix_232.number),
        Has_Rows(cn, "Kandaka_Gj", period) &&
            cn.Open("SELECT 工種CD FROM Kandaka_Gj WHERE 決算期=? And 工種CD=33 And 工種略='その他'", period)
                .Eof(),
        present_form && !Sys_Info_Has(cn, add_gijutusya6.number),
        Has_Rows(cn, "W_Yoso", period) && !Has_Element(cn, period, element::eco_action)};
}

} // namespace

bool Has_Element(const Connection& cn, int period, int code) {
    return !cn.Open("SELECT 要素CD FROM W_Yoso WHERE 決算期=? And 要素CD=?", period, code).Eof();
}

bool Sys_Info_Has(const Connection& cn, int info_no) {
    return !cn.Open("SELECT Info_No FROM sys_info WHERE Info_No=?", info_no).Eof();
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
    const int period = session.Syori_Ki;
    // The two corrections of accounts reach the period in hand alone, yet count as done for the store.
    if (pending.account_161) {
        cn.Execute("UPDATE Ks_Zaihyo SET 集計識別=0 WHERE 決算期=? And 建設科目CD=?", period,
                   Code(Account::Closed_Investments));
        Add_Ledger_Row(cn, fix_161);
    }
    if (pending.account_232) {
        cn.Execute("UPDATE Ks_Zaihyo SET 科目分類識別='Ktf' WHERE 決算期=? And 建設科目CD=?", period,
                   Code(Account::Fixed_Lease_Debt));
        Add_Ledger_Row(cn, fix_232);
    }
    if (pending.work_types) {
        Add_Work_Types(cn, period);
    }
    if (pending.engineers_6) {
        Add_Gijutusya6(cn);
        Add_Ledger_Row(cn, add_gijutusya6);
    }
    if (pending.work_style) {
        Add_Missing_Elements(cn, period, element::women, element::work_history_points);
    }
}

} // namespace morvane
