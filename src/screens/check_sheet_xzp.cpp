// SPDX-FileCopyrightText: The Morvane developers
#include "law/ten_tables.h"
#include "law/total_weights.h"
#include "law/work_types.h"
#include "review/works.h"
#include "screens/check_figures.h"

#include <algorithm>

namespace morvane {

namespace {

template <auto Member>
std::string Of(const Check_Figures& f) {
    return Own(f.Line().*Member);
}

constexpr std::array<const char*, 6> engineer_kinds = {"監理", "１級", "基幹", "２級", "その他", "管理補佐"};

template <std::size_t Kind>
std::string Engineers_Text(const Check_Figures& f) {
    return Own(f.Line().gijutusya[Kind]);
}

std::string Average_Years(const Check_Figures& f) {
    return Number(f.Kanko_Avg);
}

std::string Engineer_Value(const Check_Figures& f) {
    return Number(Z1_Value(Engineers_Of(f.Line())));
}

void Show_Work_Type(const Check_Figures& f, Check_Sheet& sheet) {
    const Work_Type& type = work_types.at(f.Kosyu_Sel);
    sheet.sub_title = (type.label.empty() ? "" : std::string(type.label) + "　") + std::string(type.name);
}

// The formula of the row in force as the table prints it, without the blank that sets it in there; the first
// one for an amount that has no row.
void Show_Row(const Check_Figures& f, Check_Sheet& sheet, int row) {
    constexpr std::string_view blank = "　";
    row = std::max(row, 0);
    sheet.table_row = row;
    const Tbl_Lists lists = Set_Tbl_Lists(sheet.Tbl_Disp_No, f.Law());
    std::string_view formula = lists.formulas[static_cast<std::size_t>(row)];
    if (formula.starts_with(blank)) {
        formula.remove_prefix(blank.size());
    }
    sheet.formula.emplace_back(formula);
}

void Show_Average(const Check_Figures& f, Check_Sheet& sheet, const std::string& what) {
    if (f.Kanko_Avg == 2) {
        sheet.formula.push_back(what + " ＝（基準決算 ＋ 前期）／ 2");
    } else {
        sheet.formula.emplace_back("前平均 ＝（前期 ＋ 前々期）／ 2");
        sheet.formula.push_back(what + " ＝（基準決算 ＋ 前平均 × 2）／ 3");
    }
}

void More_Of_X(const Check_Figures& f, Check_Sheet& sheet) {
    Show_Work_Type(f, sheet);
    Show_Average(f, sheet, "年間平均完成工事高");
    Show_Row(f, sheet, Calc_X1_Ten(f.Law(), f.Line().Nheikin.Number()).row);
}

void More_Of_Z2(const Check_Figures& f, Check_Sheet& sheet) {
    Show_Work_Type(f, sheet);
    Show_Average(f, sheet, "年間平均元請完成工事高");
    Show_Row(f, sheet, Calc_Z2_Ten(f.Law(), f.Line().Mnheikin.Number()).row);
}

void More_Of_Z1(const Check_Figures& f, Check_Sheet& sheet) {
    Show_Work_Type(f, sheet);
    Show_Row(f, sheet, Tbl_No_Z1);
}

std::string P_Formula() {
    return "Ｘ１ × " + Decimal(p_weights.x1) + " ＋ Ｘ２ × " + Decimal(p_weights.x2) + " ＋ Ｙ × " +
           Decimal(p_weights.y) + " ＋ Ｚ × " + Decimal(p_weights.z) + " ＋ Ｗ × " + Decimal(p_weights.w);
}

std::string Z1_Formula() {
    std::string formula;
    for (const std::size_t kind : engineers_by_weight) {
        formula += (formula.empty() ? "技術職員数値 ＝ " : " ＋ ") + std::string(engineer_kinds[kind]) +
                   " × " + Number(engineer_weights[kind]);
    }
    return formula;
}

constexpr const char* rounded = "（平均の小数点以下の端数は四捨五入）";

} // namespace

const std::vector<Sheet_Text>& XZP_Sheets() {
    static const std::vector<Sheet_Text> sheets = {
        {.mode = "X",
         .form = "Frm_XZP_Calc_Check",
         .title = "（Ｘ１）完成工事高評点 計算詳細チェック",
         .help_key = "X1",
         .help_key_b = "11X1",
         .amounts = true,
         .inputs = {{"完成工事高（前々期）", Of<&Work_Line::Zzki>},
                    {"完成工事高（前期）", Of<&Work_Line::Zki>},
                    {"完成工事高（基準決算）", Of<&Work_Line::Kijun>},
                    {"採用年平均", Average_Years}},
         .results = {{"年間平均完成工事高：", Of<&Work_Line::Nheikin>},
                     {"完成工事高評点（Ｘ１）：", Of<&Work_Line::X1>}},
         .closing = {rounded, "評点：年間平均完成工事高を基に【別表】の式で算出します。"},
         .table_form = "Frm_Calc_Tbl",
         .Tbl_Disp_No = 1,
         .more = More_Of_X,
         .steps = Steps_Of_X1},
        {.mode = "P",
         .form = "Frm_XZP_Calc_Check",
         .title = "（Ｐ）総合評点 計算詳細チェック",
         .help_key = "P",
         .inputs = {{"完成工事高評点（Ｘ１）", Of<&Work_Line::X1>},
                    {"自己資本額及び平均利益額評点（Ｘ２）",
                     [](const Check_Figures& f) { return Number(f.x2.score); }},
                    {"経営状況評点（Ｙ）", [](const Check_Figures& f) { return Number(f.y.score); }},
                    {"技術力評点（Ｚ）", Of<&Work_Line::Z>},
                    {"その他審査項目評点（Ｗ）", Item<&Social_Items::W>}},
         .formula = {P_Formula()},
         .results = {{"総合評点（Ｐ）：", Of<&Work_Line::P>}},
         .closing = {"（小数点以下の端数は四捨五入）"},
         .more = Show_Work_Type,
         .steps = Steps_Of_P},
        {.mode = "Z",
         .form = "Frm_XZP_Calc_Check",
         .title = "（Ｚ）技術力評点 計算詳細チェック",
         .help_key = "Z",
         .inputs = {{"技術職員点数（Ｚｲ）", Of<&Work_Line::Zi>},
                    {"元請完成工事高点数（Ｚﾛ）", Of<&Work_Line::Zro>}},
         .formula = {"技術職員点数（Ｚｲ）× " + Decimal(z_weights.z1) + " ＋ 元請完成工事高点数（Ｚﾛ）× " +
                     Decimal(z_weights.z2)},
         .results = {{"技術力評点（Ｚ）：", Of<&Work_Line::Z>}},
         .closing = {Least_Text(z_least)},
         .more = Show_Work_Type,
         .steps = Steps_Of_Z},
        {.mode = "Z2",
         .form = "Frm_XZP_Calc_Check",
         .title = "（Ｚﾛ）元請完成工事高点数 計算詳細チェック",
         .help_key = "Z2",
         .help_key_b = "11Z2",
         .amounts = true,
         .inputs = {{"元請完成工事高（前々期）", Of<&Work_Line::Mzzki>},
                    {"元請完成工事高（前期）", Of<&Work_Line::Mzki>},
                    {"元請完成工事高（基準決算）", Of<&Work_Line::Mkijun>},
                    {"採用年平均", Average_Years}},
         .results = {{"年間平均元請完成工事高：", Of<&Work_Line::Mnheikin>},
                     {"元請完成工事高点数（Ｚﾛ）：", Of<&Work_Line::Zro>}},
         .closing = {rounded, "点数：年間平均元請完成工事高を基に【別表】の式で算出します。"},
         .table_form = "Frm_Calc_Tbl",
         .Tbl_Disp_No = 4,
         .more = More_Of_Z2,
         .steps = Steps_Of_Z2},
        {.mode = "Z1",
         .form = "Frm_Zイ_Calc_Check",
         .title = "（Ｚｲ）技術職員点数 計算詳細チェック",
         .help_key = "Z1",
         .inputs = {{engineer_kinds[0], Engineers_Text<0>},
                    {engineer_kinds[1], Engineers_Text<1>},
                    {engineer_kinds[5], Engineers_Text<5>},
                    {engineer_kinds[2], Engineers_Text<2>},
                    {engineer_kinds[3], Engineers_Text<3>},
                    {engineer_kinds[4], Engineers_Text<4>}},
         .formula = {Z1_Formula()},
         .results = {{"技術職員数値：", Engineer_Value}, {"技術職員点数（Ｚｲ）：", Of<&Work_Line::Zi>}},
         .closing = {"点数：技術職員数値を基に【別表】の式で算出します。"},
         .table_form = "Frm_Calc_Tbl",
         .Tbl_Disp_No = 5,
         .more = More_Of_Z1,
         .steps = Steps_Of_Z1},
    };
    return sheets;
}

} // namespace morvane
