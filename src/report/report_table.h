// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/law_year.h"
#include "report/pdf_target.h"
#include "report/prt_modset.h"
#include "report/report_heading.h"
#include "report/report_request.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace morvane {

/// A report with its figures: draws the whole of it on the target behind the operations.
struct Rpt_Draw {
    Report_Heading heading; ///< also names document and file: "結果通知書_青葉建設_第35期_改善前.pdf"
    std::function<void(Prt_ModSet&)> draw;
    std::string warning; ///< what must be known before it is taken for the result; empty where nothing
};

/// A report: window, menu and batch tool know of it what stands here.
struct Report_Row {
    const char* name;
    int report_no;      ///< レポートNo in Report_Info, shared by some
    const char* title;  ///< of its window, its document and its file
    Report_Sides sides; ///< what it shows where it is opened by its name alone
    /// Reads the figures asked for from the open store of a company. Raises Store_Error, Run_Time_Error, and
    /// Score_Refusal with the reason where there is nothing to draw.
    Rpt_Draw (*read)(const Connection&, const Session&, const Report_Request&);
    const char* page;                         ///< of the manual
    const char* Law_Year::*variant = nullptr; ///< names the variant of a law year; null: there is one
    const char* row_title = nullptr;   ///< 書式名称 and オブジェクト名 of the row that is added
    const char* object_name = nullptr; ///< where it is missing; null: none is
    bool keeps_doing = false;          ///< the preview shows its lines in full width
};

/// All reports.
std::span<const Report_Row> Report_Table();

/// The row of a report; null for an unknown name.
const Report_Row* Find_Report(std::string_view name);

/// What a report that is opened by its name alone is asked for: the period in hand in a scenario.
Report_Request Request_In_Hand(const Session& session, Scenario scenario, const Report_Row& report);

/// Draws a report on paper as a PDF document: the bytes of the file. It tells of itself its title, and as its
/// author who made it, the office or the firm itself. Letters that no font has are added to `missing`.
std::string Pdf_Of(const Report_Row& report, const Rpt_Draw& drawn, Print_State state,
                   std::vector<Letter>* missing = nullptr);

/// 用紙幅 and 用紙高 of a report, millimetres.
struct Sheet_Size {
    double width = Print_Target::sheet_width;
    double height = Print_Target::sheet_height;
};

/// Reads margins and paper of a report into the print state and makes it ready: one copy, scale 1, on the
/// preview. A missing row is added where the report repairs its own, else the sheet is A4 without margins.
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
