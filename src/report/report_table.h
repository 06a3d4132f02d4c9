// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/kekka.h"
#include "report/pdf_target.h"
#include "report/prt_modset.h"

#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace morvane {

/// A report with its figures: draws the whole of it on the target behind the operations.
struct Rpt_Draw {
    Report_Heading heading;
    std::function<void(Prt_ModSet&)> draw;
    std::string warning; ///< what must be known before it is taken for the result; empty where nothing
};

/// A report: its form, the row of its margins, how its figures are read for the company in hand.
struct Report_Row {
    const char* name;
    int report_no; ///< レポートNo in Report_Info, shared by some
    const char* window_title;
    const char* row_title; ///< 書式名称 and オブジェクト名 of the row that is added where it is missing;
    const char* object_name;          ///< null: none is
    Rpt_Draw (*read)(const Session&); ///< raises Store_Error, Run_Time_Error
    bool keeps_doing = false;         ///< opening it leaves Prt_Doing as its caller set it
};

/// All reports.
std::span<const Report_Row> Report_Table();

/// The row of a report; null for an unknown name.
const Report_Row* Find_Report(std::string_view name);

/// The form of the result report that a name means; empty for another report.
std::optional<Kekka_Form> Kekka_Form_Of(std::string_view name);

/// What the PDF file of a report tells of itself: its title, and as its author who made it, the office or the
/// firm itself.
Pdf_Info Pdf_Info_Of(const Report_Row& report, const Report_Heading& heading);

/// 用紙幅 and 用紙高 of a report, millimetres.
struct Sheet_Size {
    double width = Print_Target::sheet_width;
    double height = Print_Target::sheet_height;
};

/// Reads margins and paper of a report into the print state and makes it ready: one copy, scale 1, not
/// printing. A missing row is added where the report repairs its own, else the sheet is A4 without margins.
Sheet_Size Load_Report_Info(const Connection& cn, const Report_Row& report, Print_State& print_state);

/// Reads margins and paper of a report into the print state and writes nothing: the sheet that is stored,
/// empty where the report has no row.
std::optional<Sheet_Size> Read_Report_Info(const Connection& cn, const Report_Row& report,
                                           Print_State& print_state);

/// Stores the margins in the row of the report, where there is one and they differ from it: nothing is
/// written for margins as they were, so that a store that cannot be written is no hindrance. Raises
/// Store_Error.
void Save_Report_Info(const Session& session, const Report_Row& report, const Print_State& print_state);

} // namespace morvane
