// SPDX-FileCopyrightText: The Morvane developers
#include "company/law_change.h"

#include "company/table_edit.h"
#include "law/elements.h"
#include "review/review_figures.h"

namespace morvane {

namespace {

void Renumber_Element(const Connection& cn, int period, int from, int to) {
    cn.Execute("UPDATE W_Yoso SET 要素CD=? WHERE 決算期=? And 要素CD=?", to, period, from);
}

// A leftover under the waiting code would collide; the row in force is that of the pension.
void Park_Pension(const Connection& cn, int period) {
    cn.Execute("DELETE FROM W_Yoso WHERE 決算期=? And 要素CD=?", period, element::waiting_pension);
    Renumber_Element(cn, period, element::pension, element::waiting_pension);
    for (int code = element::pension; code < element::welfare_last; ++code) {
        Renumber_Element(cn, period, code + 1, code);
    }
}

} // namespace

void Put_Law_Year(const Connection& cn, int period, Law_Year_No law_year) {
    cn.Execute("UPDATE W_Yoso SET 現状=? WHERE 決算期=? And 要素CD=?", Law_Number(law_year), period,
               element::law_year);
}

void Make_Room_For_Pension(const Connection& cn, int period) {
    for (int code = element::welfare_last; code > element::pension; --code) {
        Renumber_Element(cn, period, code - 1, code);
    }
    Renumber_Element(cn, period, element::waiting_pension, element::pension);
    Add_Missing_Elements(cn, period, element::pension, element::pension);
}

void Add_Law_Rows(const Connection& cn, int period) {
    const bool is_known = Has_Element(cn, period, element::law_year);
    Add_Missing_Elements(cn, period, element::law_year, element::w8);
    if (!is_known) {
        Put_Law_Year(cn, period, First_Law_Year(&Law_Year::has_saisei).code);
    }
}

void Set_Law_Year(const Session& session, int period, Law_Year_No law_year) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Set_Law_Year(cn, period, law_year);
    transaction.Commit();
}

void Set_Law_Year(const Connection& cn, int period, Law_Year_No law_year) {
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
        Add_Law_Rows(cn, period);
    }
    Put_Law_Year(cn, period, law.code);
}

} // namespace morvane
