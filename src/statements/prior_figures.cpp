// SPDX-FileCopyrightText: The Morvane developers
#include "statements/prior_figures.h"

#include "law/accounts.h"
#include "law/run_time_error.h"
#include "review/y_calc.h"
#include "session/boxes.h"
#include "statements/z_zzen_get.h"

namespace morvane {

namespace {

using enum Account;

std::vector<Prior_Row> Load_Rows(const Connection& cn, const Session& session, Account from, Account to) {
    std::vector<Prior_Row> rows;
    Recordset row =
        cn.Open("SELECT 建設科目CD, 建設科目名, 金額 FROM Ks_Zaihyo WHERE 決算期=? And 建設科目CD>=? And "
                "建設科目CD<=? ORDER BY 建設科目CD",
                session.Syori_Ki, Code(from), Code(to));
    for (; !row.Eof(); row.Move_Next()) {
        rows.push_back(
            {static_cast<int>(row["建設科目CD"].As_Integer()), row["建設科目名"].As_Text(), row["金額"]});
    }
    return rows;
}

void Save_Amount(Statement& update, const Session& session, int code, const Value& amount) {
    update.With(amount, amount, session.Syori_Ki, code).Step();
    update.Reset();
}

Statement Prepare_Save(const Connection& cn) {
    return cn.Prepare("UPDATE Ks_Zaihyo SET 金額=?, 改善後残高=? WHERE 決算期=? AND 建設科目CD=?");
}

} // namespace

Prior_Figures Load_Prior_Figures(const Session& session) {
    const Connection cn = Cn_Open(session);
    return {
        Load_Rows(cn, session, Prior_Notes_Receivable,
                  session.Is_Corporation() ? Prior_Figures_End : Prior_Other_Depreciation_Of_Side_Business),
        Load_Rows(cn, session, Second_Prior_Notes_Receivable, Second_Prior_Advances_Received)};
}

void Save_Prior_Figures(const Session& session, const Prior_Figures& figures) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Statement update = Prepare_Save(cn);
    for (const auto* block : {&figures.prior, &figures.second_prior}) {
        for (const Prior_Row& row : *block) {
            if (!row.amount.Is_Null()) {
                Save_Amount(update, session, row.code, row.amount);
            }
        }
    }
    transaction.Commit();
}

bool Copy_Prior_Figures(const Session& session, bool second_prior) {
    const std::string overwrites = "\n既にデータがある場合は上書きされます。よろしいですか？";
    if (second_prior) {
        if (!Ask(session, "前々年度データコピー確認",
                 "前々年度財務諸表（改善前データ）より関連の金額データをコピーします。" + overwrites)) {
            return false;
        }
        ZZen_Get(session, session.Syori_Ki, 2);
        return true;
    }
    if (!Ask(session, "前年度データコピー確認",
             "前年度財務諸表（改善前データ）より関連の金額データをコピーします。" + overwrites)) {
        return false;
    }
    Zen_Get(session, session.Syori_Ki, 2);
    return true;
}

Prior_Row Load_Equity_Change(const Session& session) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    std::vector<Prior_Row> rows = Load_Rows(cn, session, Equity_Change, Equity_Change);
    if (rows.empty()) {
        Recordset table = cn.Open("SELECT * FROM Ks_Zaihyo WHERE 決算期=?", session.Syori_Ki);
        table.Add_New();
        table.Set("決算期", static_cast<int>(session.Syori_Ki));
        table.Set("建設科目CD", Code(Equity_Change));
        table.Set("建設科目名", "変動計算書　剰余金の配当");
        table.Update();
        transaction.Commit();
        return {Code(Equity_Change), "変動計算書　剰余金の配当", {}};
    }
    return rows.front();
}

void Save_Equity_Change(const Session& session, const Value& amount) {
    {
        const Connection cn = Cn_Open(session);
        Transaction transaction(cn);
        Statement update = Prepare_Save(cn);
        Save_Amount(update, session, Code(Equity_Change), amount.Is_Null() ? Value(0) : amount);
        transaction.Commit();
    }
    try {
        // Neither is stored: whether they can be formed is told here, where an amount was changed.
        for (const Scenario scenario : {Scenario::Genjo, Scenario::Kaizen}) {
            static_cast<void>(Calc_Y(session, Side_In_Hand(session, scenario)));
        }
    } catch (const Run_Time_Error& error) {
        Tell(session, "実行時エラー", error.what());
    }
}

} // namespace morvane
