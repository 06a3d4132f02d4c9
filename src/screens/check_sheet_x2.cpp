// SPDX-FileCopyrightText: The Morvane developers
#include "law/total_weights.h"
#include "screens/check_figures.h"

namespace morvane {

namespace {

template <X2_Result::Two_Periods X2_Result::*Figures, std::size_t Period>
std::string Of(const Check_Figures& f) {
    return Number((f.x2.*Figures)[Period]);
}

template <X2_Result::Part X2_Result::*Part>
std::string Points_Of(const Check_Figures& f) {
    return Number((f.x2.*Part).scored.points);
}

void More_Of_X2_1(const Check_Figures& f, Check_Sheet& sheet) {
    sheet.formula.emplace_back(f.x2.basis == 1
                                   ? "自己資本額 ＝ 自己資本額（当期）"
                                   : "自己資本額 ＝（自己資本額（前期）＋ 自己資本額（当期））／ 2");
    sheet.table_row = f.x2.equity.scored.row;
}

void More_Of_X2_2(const Check_Figures& f, Check_Sheet& sheet) {
    sheet.table_row = f.x2.profit.scored.row;
}

} // namespace

const std::vector<Sheet_Text>& X2_Sheets() {
    static const std::vector<Sheet_Text> sheets = {
        {.mode = "X2-1",
         .form = "Frm_X2_Calc_Check",
         .title = "（Ｘ２_１）自己資本額点数 計算詳細チェック",
         .help_key = "X2-1",
         .amounts = true,
         .inputs = {{"自己資本額（前期）", Of<&X2_Result::equities, 0>},
                    {"自己資本額（当期）", Of<&X2_Result::equities, 1>},
                    {"採用年平均", [](const Check_Figures& f) { return Number(f.x2.basis); }}},
         .results = {{"自己資本額：", [](const Check_Figures& f) { return Number(f.x2.equity.amount); }},
                     {"自己資本額点数（Ｘ２_１）： ", Points_Of<&X2_Result::equity>}},
         .closing = {"自己資本額点数：自己資本額を基に【別表】の式で算出します。",
                     "自己資本額が０未満のときは０とみなします。"},
         .table_form = "Frm_Calc_Tbl",
         .Tbl_Disp_No = 2,
         .more = More_Of_X2_1,
         .steps = Steps_Of_X2_1},
        {.mode = "X2-2",
         .form = "Frm_X2_Calc_Check",
         .title = "（Ｘ２_２）平均利益額点数 計算詳細チェック",
         .help_key = "X2-2",
         .amounts = true,
         .inputs = {{"利払前税引前償却前利益（前期）", Of<&X2_Result::profits, 0>},
                    {"利払前税引前償却前利益（当期）", Of<&X2_Result::profits, 1>},
                    {"営業利益（前期）", Of<&X2_Result::operating, 0>},
                    {"営業利益（当期）", Of<&X2_Result::operating, 1>},
                    {"減価償却実施額（前期）", Of<&X2_Result::depreciation, 0>},
                    {"減価償却実施額（当期）", Of<&X2_Result::depreciation, 1>}},
         .formula = {"利払前税引前償却前利益 ＝ 営業利益 ＋ 減価償却実施額",
                     "平均利益額 ＝（利払前税引前償却前利益（前期）＋ 利払前税引前償却前利益（当期））／ 2"},
         .results = {{"平均利益額：", [](const Check_Figures& f) { return Number(f.x2.profit.amount); }},
                     {"平均利益額点数（Ｘ２_２）： ", Points_Of<&X2_Result::profit>}},
         .closing = {"平均利益額点数：平均利益額を基に【別表】の式で算出します。",
                     "平均利益額が０未満のときは０とみなします。"},
         .table_form = "Frm_Calc_Tbl",
         .Tbl_Disp_No = 3,
         .more = More_Of_X2_2,
         .steps = Steps_Of_X2_2},
        {.mode = "X2",
         .form = "Frm_X2_Calc_Check",
         .title = "（Ｘ２）自己資本額及び平均利益額 計算詳細チェック",
         .help_key = "X2",
         .inputs = {{"自己資本額点数", Points_Of<&X2_Result::equity>},
                    {"平均利益額点数", Points_Of<&X2_Result::profit>}},
         .formula = {"（自己資本額点数 ＋ 平均利益額点数）／ 2"},
         .results = {{"評点（Ｘ２）：", [](const Check_Figures& f) { return Number(f.x2.score); }}},
         .closing = {Least_Text(x2_least)},
         .steps = Steps_Of_X2},
    };
    return sheets;
}

} // namespace morvane
