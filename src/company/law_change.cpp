// SPDX-FileCopyrightText: The Morvane developers
#include "company/law_change.h"

#include "company/table_edit.h"

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
    cn.Execute("DELETE W_Yoso.* from W_Yoso WHERE 決算期=" + std::to_string(period) + " and 要素CD=999;");
    Renumber_Element(cn, period, 103, 999);
    Renumber_Element(cn, period, 104, 103);
    Renumber_Element(cn, period, 105, 104);
    Renumber_Element(cn, period, 106, 105);
}

} // namespace

void Make_Room_For_Pension(const Connection& cn, int period) {
    Renumber_Element(cn, period, 105, 106);
    Renumber_Element(cn, period, 104, 105);
    Renumber_Element(cn, period, 103, 104);
    if (Has_Element(cn, period, 999)) {
        Renumber_Element(cn, period, 999, 103);
        return;
    }
    const std::array<Value, 3> values = {period, 103, "厚生年金加入"};
    cn.Execute("INSERT INTO W_Yoso (決算期, 要素CD, 要素名) VALUES (?, ?, ?)", values);
}

void Add_Law_Rows(const Connection& cn, const Session& session, int period) {
    const Connection master_store = Cn_Open_Org(session);
    Recordset master =
        master_store.Open("SELECT * FROM W_Yoso WHERE 要素CD>=210 and 要素CD<=219 ORDER BY 要素CD;");
    for (; !master.Eof(); master.Move_Next()) {
        const auto code = static_cast<int>(master["要素CD"].As_Integer());
        if (!Has_Element(cn, period, code)) {
            const std::array<Value, 4> values = {period, code, master["要素名"],
                                                 code == 210 ? Value(2) : master["現状"]};
            cn.Execute("INSERT INTO W_Yoso (決算期, 要素CD, 要素名, 現状) VALUES (?, ?, ?, ?)", values);
        }
    }
}

void To_Law2011(const Session& session, int period) {
    Set_Law_Year(session, period, 2);
}

void To_Law2012(const Session& session, int period) {
    Set_Law_Year(session, period, 3);
}

void To_Law2015(const Session& session, int period) {
    Set_Law_Year(session, period, 4);
}

void Set_Law_Year(const Session& session, int period, int law_year) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Set_Law_Year(cn, session, period, law_year);
    transaction.Commit();
}

void Set_Law_Year(const Connection& cn, const Session& session, int period, int law_year) {
    const bool has_106 = Has_Element(cn, period, 106);
    if (law_year < 3 && has_106) {
        Park_Pension(cn, period);
    }
    if (law_year >= 3 && !has_106) {
        Make_Room_For_Pension(cn, period);
    }
    if (law_year >= 4) {
        Add_Young_Engineer_Rows(cn, period);
    }
    // Without a row the law year reads 1, whatever the elements have been renumbered to.
    if (law_year > 1 && !Has_Element(cn, period, 210)) {
        Add_Law_Rows(cn, session, period);
    }
    cn.Execute("UPDATE W_Yoso SET 現状=" + std::to_string(law_year) +
               " WHERE 決算期=" + std::to_string(period) + " and 要素CD=210;");
}

} // namespace morvane
