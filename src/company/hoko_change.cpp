// SPDX-FileCopyrightText: The Morvane developers
#include "company/hoko_change.h"

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
constexpr const char* older_works[] = {"Kandaka_Kz", "Kandaka_KzF", "Kandaka_KzS", "Kandaka_KzT"};

void Convert(const Connection& cn, int period, bool corporation, bool wipe) {
    if (wipe) {
        Data_Wipe(cn, period);
    }
    const std::string of_period = " WHERE 決算期=" + std::to_string(period);
    const std::string type = corporation ? "法人" : "個人";
    cn.Execute("UPDATE Ks_Zaihyo SET 建設科目名 = " + type + "科目名, 非表示識別 = " + type +
               "非表示識別, 非印刷識別 = " + type + "非印刷識別" + of_period);
    // An individual names the line of the retirement allowance freely.
    cn.Execute(std::string("UPDATE Ks_Zaihyo SET 科目編集識別 = ") + (corporation ? "False" : "True") +
               of_period + " And 建設科目CD=" + Code_Text(Account::Retirement_Allowance));
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
    std::vector<std::string> others;
    for (Recordset periods = cn.Open("SELECT * FROM Ks_ki"); !periods.Eof(); periods.Move_Next()) {
        if (periods["決算期"].As_Integer() != period_in_hand) {
            others.push_back(periods["決算期"].As_Text());
        }
    }
    for (const std::string& period : others) {
        for (const char* table : {"Ks_Zaihyo", "Kandaka_Gj", "Kandaka_Kz", "Kandaka_KzF", "Kandaka_KzS",
                                  "Kandaka_KzT", "XW_Yoso", "QandA", "Ks_ki"}) {
            cn.Execute(std::string("DELETE ") + table + ".* from " + table + " WHERE 決算期=" + period);
        }
    }
    const std::string of_period = " WHERE 決算期=" + std::to_string(period_in_hand) + ";";
    cn.Execute(std::string("UPDATE Ks_Zaihyo SET ") + statement_figures + of_period);
    cn.Execute(std::string("UPDATE Kandaka_Gj SET ") + work_figures + of_period);
    for (const char* table : older_works) {
        cn.Execute(std::string("UPDATE ") + table + " SET " + work_figures + of_period);
    }
    cn.Execute(std::string("UPDATE XW_Yoso SET ") + y_figures + of_period);
}

} // namespace morvane
