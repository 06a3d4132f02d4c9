// SPDX-FileCopyrightText: The Morvane developers
#include "company/law_change.h"

#include "company/table_edit.h"
#include "law/elements.h"
#include "review/syokuta.h"

#include <array>
#include <string>

namespace morvane {

namespace {

bool Has_Element(const Connection& cn, int period, int code) {
    return !cn.Open("SELECT * FROM W_Yoso WHERE 決算期=" + std::to_string(period) +
                    " And 要素CD=" + std::to_string(code))
                .Eof();
}

void Renumber_Element(const Connection& cn, int period, int from, int to) {
    cn.Execute("UPDATE W_Yoso SET 要素CD=" + std::to_string(to) + " WHERE 決算期=" + std::to_string(period) +
               " and 要素CD=" + std::to_string(from) + ";");
}

// A leftover under the waiting code would collide; the row in force is 103.
void Park_Pension(const Connection& cn, int period) {
    cn.Execute("DELETE W_Yoso.* from W_Yoso WHERE 決算期=" + std::to_string(period) +
               " and 要素CD=" + std::to_string(element::waiting_pension) + ";");
    Renumber_Element(cn, period, element::pension, element::waiting_pension);
    for (int code = element::pension; code < element::welfare_last; ++code) {
        Renumber_Element(cn, period, code + 1, code);
    }
}

} // namespace

void Put_Law_Year(const Connection& cn, int period, Law_Year_No law_year) {
    const std::array<Value, 3> values = {Law_Number(law_year), period, element::law_year};
    cn.Execute("UPDATE W_Yoso SET 現状=? WHERE 決算期=? And 要素CD=?", values);
}

void Make_Room_For_Pension(const Connection& cn, int period) {
    for (int code = element::welfare_last; code > element::pension; --code) {
        Renumber_Element(cn, period, code - 1, code);
    }
    Renumber_Element(cn, period, element::waiting_pension, element::pension);
    Add_Missing_Elements(cn, period, element::pension, element::pension);
}

void Add_Law_Rows(const Connection& cn, const Session& session, int period) {
    const Law_Year& first = First_Law_Year(&Law_Year::has_saisei);
    const Connection master_store = Cn_Open_Org(session);
    Recordset master =
        master_store.Open("SELECT * FROM W_Yoso WHERE 要素CD>=210 and 要素CD<=219 ORDER BY 要素CD;");
    for (; !master.Eof(); master.Move_Next()) {
        const auto code = static_cast<int>(master["要素CD"].As_Integer());
        if (!Has_Element(cn, period, code)) {
            const std::array<Value, 4> values = {period, code, master["要素名"],
                                                 code == element::law_year ? Value(Law_Number(first.code))
                                                                           : master["現状"]};
            cn.Execute("INSERT INTO W_Yoso (決算期, 要素CD, 要素名, 現状) VALUES (?, ?, ?, ?)", values);
        }
    }
}

void Set_Law_Year(const Session& session, int period, Law_Year_No law_year) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Set_Law_Year(cn, session, period, law_year);
    transaction.Commit();
}

void Set_Law_Year(const Connection& cn, const Session& session, int period, Law_Year_No law_year) {
    const Law_Year& law = Law_Of(law_year);
    const bool has_pension = Has_Element(cn, period, element::welfare_last);
    if (has_pension && !law.has_pension) {
        Park_Pension(cn, period);
    }
    if (!has_pension && law.has_pension) {
        Make_Room_For_Pension(cn, period);
    }
    if (law.has_additions) {
        Add_Young_Engineer_Rows(cn, period);
    }
    // Without a row the law year reads as the oldest, whatever the elements have been renumbered to.
    if (law.code != Oldest_Law_Year().code && !Has_Element(cn, period, element::law_year)) {
        Add_Law_Rows(cn, session, period);
    }
    Put_Law_Year(cn, period, law.code);
}

} // namespace morvane
