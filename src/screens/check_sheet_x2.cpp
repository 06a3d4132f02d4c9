// SPDX-FileCopyrightText: The Morvane developers
#include "law/total_weights.h"
#include "screens/check_figures.h"

namespace morvane {

namespace {

void More_Of_X2_1(const Check_Figures& f, Check_Sheet& sheet) {
    sheet.formula.emplace_back(f.x2.JikoS == 1
                                   ? "自己資本額 ＝ 自己資本額（当期）"
                                   : "自己資本額 ＝（自己資本額（前期）＋ 自己資本額（当期））／ 2");
    sheet.table_row = f.x2.X2_1_Row;
}

void More_Of_X2_2(const Check_Figures& f, Check_Sheet& sheet) {
    sheet.table_row = f.x2.X2_2_Row;
}

} // namespace

const std::vector<Sheet_Text>& X2_Sheets() {
    static const std::vector<Sheet_Text> sheets = {
        {.mode = "X2-1",
         .form = "Frm_X2_Calc_Check",
         .title = "（Ｘ２_１）自己資本額点数 計算詳細チェック",
         .help_key = "X2-1",
         .amounts = true,
         .inputs = {{"自己資本額（前期）", X2_Pair<&X2_Calc::Jiko, 0>},
                    {"自己資本額（当期）", X2_Pair<&X2_Calc::Jiko, 1>},
                    {"採用年平均", [](const Check_Figures& f) { return Number(f.x2.JikoS); }}},
         .results = {{"自己資本額：", [](const Check_Figures& f) { return Number(f.x2.X2_Jiko); }},
                     {"自己資本額点数（Ｘ２_１）： ",
                      [](const Check_Figures& f) { return Number(f.x2.X2_1_Ten); }}},
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
         .inputs = {{"利払前税引前償却前利益（前期）", X2_Pair<&X2_Calc::Rieki, 0>},
                    {"利払前税引前償却前利益（当期）", X2_Pair<&X2_Calc::Rieki, 1>},
                    {"営業利益（前期）", X2_Pair<&X2_Calc::Eigyo, 0>},
                    {"営業利益（当期）", X2_Pair<&X2_Calc::Eigyo, 1>},
                    {"減価償却実施額（前期）", X2_Pair<&X2_Calc::Genka, 0>},
                    {"減価償却実施額（当期）", X2_Pair<&X2_Calc::Genka, 1>}},
         .formula = {"利払前税引前償却前利益 ＝ 営業利益 ＋ 減価償却実施額",
                     "平均利益額 ＝（利払前税引前償却前利益（前期）＋ 利払前税引前償却前利益（当期））／ 2"},
         .results = {{"平均利益額：", [](const Check_Figures& f) { return Number(f.x2.X2_Rieki); }},
                     {"平均利益額点数（Ｘ２_２）： ",
                      [](const Check_Figures& f) { return Number(f.x2.X2_2_Ten); }}},
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
         .inputs = {{"自己資本額点数", [](const Check_Figures& f) { return Number(f.x2.X2_1_Ten); }},
                    {"平均利益額点数", [](const Check_Figures& f) { return Number(f.x2.X2_2_Ten); }}},
         .formula = {"（自己資本額点数 ＋ 平均利益額点数）／ 2"},
         .results = {{"評点（Ｘ２）：", [](const Check_Figures& f) { return Number(f.x2.X2_Ten); }}},
         .closing = {Least_Text(x2_least)},
         .steps = Steps_Of_X2},
    };
    return sheets;
}

} // namespace morvane
