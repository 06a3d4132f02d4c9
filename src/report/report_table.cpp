// SPDX-FileCopyrightText: The Morvane developers
#include "report/report_table.h"

#include "report/kekka.h"

#include <algorithm>
#include <array>
#include <memory>

namespace morvane {

namespace {

constexpr int paper_a4 = 9;
constexpr int upright = 1;

template <Kekka_Form Form>
Rpt_Draw Read_Kekka(const Connection& cn, const Session& session, const Report_Request& request) {
    auto kekka = std::make_shared<const Kekka_Figures>(Kekka_Read(cn, session, request.sides.at(0)));
    return {kekka->heading, [kekka](Prt_ModSet& prt) { Draw_Kekka(prt, *kekka, Form); },
            Entry_Notice(*kekka)};
}

// Number 35 came with the revision of 2011: stores from before it lack the row, whichever of the two newer
// forms meets them first.
constexpr const char* kekka_title = "結果通知書(2011)";
constexpr const char* kekka_2011 = "Rpt_Kekka_2011";

constexpr auto reports = std::to_array<Report_Row>({
    {"Rpt_Kekka", 17, "結果通知書", Report_Sides::One, Read_Kekka<Kekka_Form::Rpt_Kekka>, "Rpt_Kekka",
     &Law_Year::result_report},
    {"Rpt_Kekka_2011", 35, "結果通知書", Report_Sides::One, Read_Kekka<Kekka_Form::Rpt_Kekka_2011>,
     "Rpt_Kekka", &Law_Year::result_report, kekka_title, kekka_2011},
    {"Rpt_Kekka_2012", 35, "結果通知書", Report_Sides::One, Read_Kekka<Kekka_Form::Rpt_Kekka_2012>,
     "Rpt_Kekka", &Law_Year::result_report, kekka_title, kekka_2011},
});

Recordset Open_Info(const Connection& cn, const Report_Row& report) {
    return cn.Open("SELECT * FROM Report_Info WHERE レポートNo=?", report.report_no);
}

void Add_Row(Recordset& rows, const Report_Row& report) {
    rows.Add_New();
    rows.Set("レポートNo", report.report_no);
    rows.Set("書式名称", report.row_title);
    rows.Set("オブジェクト名", report.object_name);
    rows.Set("用紙サイズ", paper_a4);
    rows.Set("用紙向き", upright);
    rows.Set("用紙幅", Print_Target::sheet_width);
    rows.Set("用紙高", Print_Target::sheet_height);
    rows.Set("上余白", 0);
    rows.Set("左余白", 0);
    rows.Update();
}

} // namespace

std::span<const Report_Row> Report_Table() {
    return reports;
}

const Report_Row* Find_Report(std::string_view name) {
    const auto* const found = std::find_if(reports.begin(), reports.end(),
                                           [name](const Report_Row& report) { return name == report.name; });
    return found == reports.end() ? nullptr : found;
}

Report_Request Request_In_Hand(const Session& session, Scenario scenario, const Report_Row& report) {
    return {.sides = Sides_Of(report.sides, Side_In_Hand(session, scenario))};
}

std::string Pdf_Of(const Report_Row& report, const Rpt_Draw& drawn, Print_State state,
                   std::vector<Letter>* missing) {
    const Report_Heading& heading = drawn.heading;
    const std::string& author = heading.office_name.empty() ? heading.Jigyo_Name : heading.office_name;
    state.Prt_Scale = 1.0F;
    state.Prt_Doing = true;
    Pdf_Target target({Document_Title(report.title, heading), author});
    Prt_ModSet operations(state, target);
    drawn.draw(operations);
    if (missing != nullptr) {
        *missing = operations.Missing();
    }
    return target.Finish();
}

Sheet_Size Load_Report_Info(const Connection& cn, const Report_Row& report, Print_State& print_state) {
    print_state = {};
    print_state.Prt_Doing = report.keeps_doing;
    const auto stored = Read_Report_Info(cn, report, print_state);
    if (!stored && report.object_name != nullptr) {
        Recordset rows = Open_Info(cn, report);
        Add_Row(rows, report);
    }
    return stored.value_or(Sheet_Size{});
}

std::optional<Sheet_Size> Read_Report_Info(const Connection& cn, const Report_Row& report,
                                           Print_State& print_state) {
    Recordset rows = Open_Info(cn, report);
    if (rows.Eof()) {
        return std::nullopt;
    }
    print_state.Ue_Mrg_Val = static_cast<float>(rows["上余白"].As_Double());
    print_state.Hida_Mrg_Val = static_cast<float>(rows["左余白"].As_Double());
    print_state.Prt_Paper = static_cast<std::uint8_t>(rows["用紙サイズ"].As_Integer(paper_a4));
    print_state.Prt_Muki = static_cast<std::uint8_t>(rows["用紙向き"].As_Integer(upright));
    print_state.Prt_Top = print_state.Ue_Mrg_Val;
    print_state.Prt_Left = print_state.Hida_Mrg_Val;
    const Sheet_Size stored = {rows["用紙幅"].As_Double(), rows["用紙高"].As_Double()};
    return stored.width > 0 && stored.height > 0 ? stored : Sheet_Size{};
}

void Save_Report_Info(const Session& session, const Report_Row& report, const Print_State& print_state) {
    {
        const Connection reader(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
        Print_State stored;
        if (!Read_Report_Info(reader, report, stored) || (stored.Ue_Mrg_Val == print_state.Ue_Mrg_Val &&
                                                          stored.Hida_Mrg_Val == print_state.Hida_Mrg_Val)) {
            return;
        }
    }
    const Connection cn = Cn_Open(session);
    Recordset rows = Open_Info(cn, report);
    rows.Set("上余白", static_cast<double>(print_state.Ue_Mrg_Val));
    rows.Set("左余白", static_cast<double>(print_state.Hida_Mrg_Val));
    rows.Update();
}

} // namespace morvane
