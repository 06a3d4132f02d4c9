// SPDX-FileCopyrightText: The Morvane developers
#include "sim/kz_copy.h"

#include "data/connection.h"
#include "data/work_columns.h"
#include "law/accounts.h"
#include "law/elements.h"
#include "review/settle.h"
#include "review/side.h"
#include "review/work_columns.h"
#include "session/kyotu_mod.h"
#include "statements/zaimu_calc.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace morvane {

namespace {

/// The columns that a scenario has in a table.
struct Family {
    const char* table;
    std::vector<std::string> columns;
};

Family Balances_Of(Scenario scenario) {
    return {"Ks_Zaihyo", {std::string(Columns_Of(scenario).zaihyo)}};
}

Family Journal_Of(Scenario scenario) {
    const Side_Columns& names = Columns_Of(scenario);
    return {"Ks_Zaihyo", {std::string(names.credit), std::string(names.debit), std::string(names.zaihyo)}};
}

Family Works_Of(Scenario scenario) {
    Family family = {"Kandaka_Gj", {}};
    for (const Work_Column& column : Copied_Work_Columns()) {
        family.columns.push_back(std::string(Columns_Of(scenario).prefix) + std::string(column.name));
    }
    return family;
}

Family Elements_Of(Scenario scenario) {
    return {"W_Yoso", {std::string(Columns_Of(scenario).yoso)}};
}

using Family_Of = Family (*)(Scenario);

/// What a saved scenario holds.
constexpr std::initializer_list<Family_Of> saved_families = {Journal_Of, Works_Of, Elements_Of};

/// The working store while figures of its period in hand are copied.
class Copying {
  public:
    explicit Copying(const Session& of)
        : session(of), cn(Cn_Open(of)), transaction(cn), period(of.Syori_Ki) {}

    /// One family of a table over the other, on all rows or those of a further condition.
    void Copy(Family_Of family, Scenario from, Scenario to, const std::string& rows = {}) const {
        const Family target = family(to);
        const Family source = family(from);
        std::string assignments;
        for (std::size_t i = 0; i < target.columns.size(); ++i) {
            assignments += (i == 0 ? "[" : ", [") + target.columns[i] + "] = [" + source.columns[i] + "]";
        }
        cn.Execute(std::string("UPDATE ") + target.table + " SET " + assignments + " WHERE 決算期=?" + rows,
                   period);
    }

    /// The current figures of a table into the working scenario where that has none there.
    void Seed(Family_Of family) const {
        const Family target = family(Scenario::Kaizen);
        std::string any;
        for (const std::string& column : target.columns) {
            any += (any.empty() ? "[" : " Or [") + column + "] IS NOT NULL";
        }
        Statement held = cn.Prepare(std::string("SELECT 1 FROM ") + target.table + " WHERE 決算期=? And (" +
                                        any + ") LIMIT 1",
                                    period);
        if (!held.Step()) {
            Copy(family, Scenario::Genjo, Scenario::Kaizen);
        }
    }

    /// Whether the improved statement is another than the current one: by an entry of the journal, or because
    /// it was recalled and the current one was changed since. Else the two differ in an individual's drawings
    /// alone, whose sign the balances turn, and there is nothing to take over.
    [[nodiscard]] bool Has_Improved_Statement() const {
        return cn
            .Prepare("SELECT 1 FROM Ks_Zaihyo WHERE 決算期=? And (借方<>0 Or 貸方<>0 Or (金額編集識別<>0 And "
                     "建設科目CD<>? And 改善後残高<>ifnull(金額, 0))) LIMIT 1",
                     period, Code(Account::Drawings))
            .Step();
    }

    /// Book values and totals of the current amounts: the journal shows the former in its own way.
    void Sum_Statements() const {
        Account_Book book = Read_Book(cn, session, Amount_Column::Current);
        book.Form_Book_Values(Number_Of(Get_Data_Ver(cn, session.Kind().edition, period)));
        book.Form_Totals(Statement_Form_Of(session.Kind()));
        book.Store(cn);
    }

    /// Settles what was changed and keeps it.
    void Finish(std::initializer_list<Scenario> changed) {
        for (const Scenario scenario : changed) {
            Settle_Computable(cn, {period, scenario}, session.Kind());
        }
        transaction.Commit();
    }

  private:
    const Session& session;
    const Connection cn;
    Transaction transaction;
    int period;
};

} // namespace

void KzCopy_MaeToGo(const Session& session) {
    Copying copying(session);
    copying.Copy(Works_Of, Scenario::Genjo, Scenario::Kaizen);
    copying.Copy(Elements_Of, Scenario::Genjo, Scenario::Kaizen);
    copying.Finish({Scenario::Kaizen});
}

void KzCopy_GoToMae(const Session& session) {
    // The law year is the period's, whatever a scenario brought from elsewhere has in its place.
    const std::string but_the_law_year = " And 要素CD<>" + std::to_string(element::law_year);
    Copying copying(session);
    if (copying.Has_Improved_Statement()) {
        copying.Seed(Balances_Of);
        copying.Copy(Balances_Of, Scenario::Kaizen, Scenario::Genjo);
    }
    copying.Seed(Works_Of);
    copying.Seed(Elements_Of);
    copying.Copy(Works_Of, Scenario::Kaizen, Scenario::Genjo);
    copying.Copy(Elements_Of, Scenario::Kaizen, Scenario::Genjo, but_the_law_year);
    copying.Sum_Statements();
    copying.Finish({Scenario::Genjo, Scenario::Kaizen});
}

void KzCopy_SlotSave(const Session& session, Scenario slot) {
    Copying copying(session);
    for (const Family_Of family : saved_families) {
        copying.Copy(family, Scenario::Kaizen, slot);
    }
    copying.Finish({slot});
}

void KzCopy_SlotLoad(const Session& session, Scenario slot) {
    Copying copying(session);
    for (const Family_Of family : saved_families) {
        copying.Copy(family, slot, Scenario::Kaizen);
    }
    copying.Finish({Scenario::Kaizen});
}

bool KzCopy_SlotExists(const Session& session, Scenario slot) {
    return Result_Of(session, slot).works > 0;
}

std::string Scenario_Result::In_Words() const {
    if (works == 0) {
        return "データなし";
    }
    return "最高 P " + Comma_Str(Value(best_p)) + "（" + best_work + "）、" + std::to_string(works) + "工種";
}

Scenario_Result Result_Of(const Session& session, Scenario scenario) {
    const Connection cn = Cn_Open(session);
    const std::string p = "[" + std::string(Columns_Of(scenario).prefix) + work_column::p + "]";
    Statement row = cn.Prepare("SELECT " + p + ", 工種略 FROM Kandaka_Gj WHERE 決算期=? And " + p +
                                   " IS NOT NULL ORDER BY " + p + " DESC, 工種CD",
                               session.Syori_Ki);
    Scenario_Result result;
    while (row.Step()) {
        if (++result.works == 1) {
            result.best_p = static_cast<std::int32_t>(row.Integer_At(0));
            result.best_work = row.Text_At(1);
        }
    }
    return result;
}

bool Has_Sixth_Engineers(const Session& session) {
    const Connection cn = Cn_Open(session);
    return cn
        .Prepare("SELECT 1 FROM Kandaka_Gj WHERE 決算期=? And (技術者6<>0 Or 改0技術者6<>0)",
                 session.Syori_Ki)
        .Step();
}

bool Has_Improved_X2W(const Session& session) {
    const Connection cn = Cn_Open(session);
    Statement row =
        cn.Prepare("SELECT 改善後0 FROM W_Yoso WHERE 決算期=? And 要素CD=?", session.Syori_Ki, element::w1);
    return row.Step() && !row.Is_Null(0);
}

} // namespace morvane
