// SPDX-FileCopyrightText: The Morvane developers
#include "company/hoko_change.h"

#include "data/connection.h"
#include "law/accounts.h"

#include <string>
#include <vector>

namespace morvane {

namespace {

constexpr const char* statement_figures =
    "金額 = Null, 借方 = Null, 貸方 = Null, 改善後残高 = Null, 仮金額 = Null";
constexpr const char* work_figures =
    "完工高前々期 = Null, 完工高前期 = Null, 完工高前平均 = Null, 完工高基準 = Null, 完工高平均 = Null, "
    "評点X1 = Null, "
    "技術者1前期 = Null, 技術者2前期 = Null, 技術者他前期 = Null, 技術者1基準 = Null, 技術者2基準 = Null, "
    "技術者他基準 = Null, 技術者1平均 = Null, 技術者2平均 = Null, 技術者他平均 = Null, 評点Z = Null, "
    "総合評点P = Null";
constexpr const char* y_figures =
    "現状 = Null, 改善後 = Null, 入力値 = Null, 改善後1 = Null, 改善後2 = Null, 改善後3 = Null";

void Convert(const Connection& cn, int period, bool corporation, bool wipe) {
    if (wipe) {
        Data_Wipe(cn, period);
    }
    cn.Execute(corporation ? "UPDATE Ks_Zaihyo SET 建設科目名 = 法人科目名, 非表示識別 = 法人非表示識別, "
                             "非印刷識別 = 法人非印刷識別 WHERE 決算期=?"
                           : "UPDATE Ks_Zaihyo SET 建設科目名 = 個人科目名, 非表示識別 = 個人非表示識別, "
                             "非印刷識別 = 個人非印刷識別 WHERE 決算期=?",
               period);
    // An individual names the line of the retirement allowance freely.
    cn.Execute("UPDATE Ks_Zaihyo SET 科目編集識別 = ? WHERE 決算期=? And 建設科目CD=?", corporation ? 0 : -1,
               period, Code(Account::Retirement_Allowance));
}

void Convert_In_Hand(const Session& session, bool corporation, bool wipe) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Convert(cn, session.Syori_Ki, corporation, wipe);
    transaction.Commit();
}

} // namespace

void To_Kojin(const Connection& cn, int period, std::int16_t keep) {
    Convert(cn, period, false, keep == 0);
}

void To_Houjin(const Connection& cn, int period, std::int16_t keep) {
    Convert(cn, period, true, keep == 0);
}

void To_Kojin(const Session& session, std::int16_t keep) {
    Convert_In_Hand(session, false, keep == 0);
}

void To_Houjin(const Session& session, std::int16_t keep) {
    Convert_In_Hand(session, true, keep == 0);
}

void Data_Wipe(const Connection& cn, int period_in_hand) {
    std::vector<std::int64_t> others;
    for (Recordset periods = cn.Open("SELECT * FROM Ks_ki"); !periods.Eof(); periods.Move_Next()) {
        if (const std::int64_t period = periods["決算期"].As_Integer(); period != period_in_hand) {
            others.push_back(period);
        }
    }
    for (const std::int64_t period : others) {
        for (const char* table : {"Ks_Zaihyo", "Kandaka_Gj", "Kandaka_Kz", "Kandaka_KzF", "Kandaka_KzS",
                                  "Kandaka_KzT", "XW_Yoso", "QandA", "Ks_ki"}) {
            cn.Execute(std::string("DELETE FROM ") + table + " WHERE 決算期=?", period);
        }
    }
    const auto wipe = [&](const char* table, const char* figures) {
        cn.Execute(std::string("UPDATE ") + table + " SET " + figures + " WHERE 決算期=?", period_in_hand);
    };
    wipe("Ks_Zaihyo", statement_figures);
    for (const char* table : {"Kandaka_Gj", "Kandaka_Kz", "Kandaka_KzF", "Kandaka_KzS", "Kandaka_KzT"}) {
        wipe(table, work_figures);
    }
    wipe("XW_Yoso", y_figures);
}

} // namespace morvane
