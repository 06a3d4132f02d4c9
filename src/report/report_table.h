// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/kekka.h"
#include "report/prt_modset.h"

#include <functional>
#include <span>
#include <string_view>

namespace morvane {

/// Draws a whole report on the target behind the operations; holds the figures that were read for it.
using Rpt_Draw = std::function<void(Prt_ModSet&)>;

/// A report: its form, the row of its margins, how its figures are read for the company in hand.
struct Report_Row {
    const char* name;
    int report_no;           ///< レポートNo in Report_Info, shared by some
    const char* title;       ///< of its window, and 書式名称 where the row has to be added
    const char* object_name; ///< オブジェクト名 of a row that is added where it is missing; null: none is
    Rpt_Draw (*read)(const Session&); ///< raises Store_Error, Run_Time_Error
    bool keeps_doing = false;         ///< opening it leaves Prt_Doing as its caller set it
};

/// All reports.
std::span<const Report_Row> Report_Table();

/// The row of a report; null for an unknown name.
const Report_Row* Find_Report(std::string_view name);

/// The form of the result report that a name means; empty for another report.
std::optional<Kekka_Form> Kekka_Form_Of(std::string_view name);

/// Reads margins and paper of a report into the print state and makes it ready: one copy, scale 1, not
/// printing. A missing row is added where the report repairs its own, else the sheet is A4 without margins.
void Load_Report_Info(const Connection& cn, const Report_Row& report, Print_State& print_state);

/// Stores the margins in the row of the report, where there is one.
void Save_Report_Info(const Connection& cn, const Report_Row& report, const Print_State& print_state);

} // namespace morvane
