// SPDX-FileCopyrightText: The Morvane developers
#include "law/ten_tables.h"
#include "law/work_types.h"
#include "screens/check_figures.h"

namespace morvane {

namespace {

template <Figure Work_Line::*Member>
std::string Of(const Check_Figures& f) {
    return Own(f.Line().*Member);
}

template <std::size_t Kind>
std::string Engineers(const Check_Figures& f) {
    return Own(f.Line().gijutusya[Kind]);
}

std::string Average_Years(const Check_Figures& f) {
    return Number(f.Kanko_Avg);
}

std::string Engineer_Value(const Check_Figures& f) {
    std::array<std::int32_t, 6> counts{};
    for (std::size_t i = 0; i < counts.size(); ++i) {
        counts[i] = f.Line().gijutusya[i].value;
    }
    return Number(Z1_Value(counts));
}

void Show_Work_Type(const Check_Figures& f, Check_Sheet& sheet) {
    const Work_Type& type = work_types.at(f.Kosyu_Sel);
    sheet.sub_title = (type.label.empty() ? "" : std::string(type.label) + "　") + std::string(type.name);
}

// The formula of the row in force as the table prints it, without the blank that sets it in there.
void Show_Row(const Check_Figures& f, Check_Sheet& sheet, int row) {
    constexpr std::string_view blank = "　";
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
    Show_Row(f, sheet, f.wzx.Tbl_No_X1);
}

void More_Of_Z2(const Check_Figures& f, Check_Sheet& sheet) {
    Show_Work_Type(f, sheet);
    Show_Average(f, sheet, "年間平均元請完成工事高");
    Show_Row(f, sheet, f.wzx.Tbl_No_Z2);
}

void More_Of_Z1(const Check_Figures& f, Check_Sheet& sheet) {
    Show_Work_Type(f, sheet);
    Show_Row(f, sheet, f.wzx.Tbl_No_Z1);
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
                     [](const Check_Figures& f) { return Number(f.x2.X2_Ten); }},
                    {"経営状況評点（Ｙ）", [](const Check_Figures& f) { return Number(f.y.Y_Ten); }},
                    {"技術力評点（Ｚ）", Of<&Work_Line::Z>},
                    {"その他審査項目評点（Ｗ）", Item<&Social_Items::W>}},
         .formula = {"Ｘ１ × 0.25 ＋ Ｘ２ × 0.15 ＋ Ｙ × 0.2 ＋ Ｚ × 0.25 ＋ Ｗ × 0.15"},
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
         .formula = {"技術職員点数（Ｚｲ）× 0.8 ＋ 元請完成工事高点数（Ｚﾛ）× 0.2"},
         .results = {{"技術力評点（Ｚ）：", Of<&Work_Line::Z>}},
         .closing = {"小数点以下は切り捨て、450点に満たないときは450点となります。"},
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
         .inputs = {{"監理", Engineers<0>},
                    {"１級", Engineers<1>},
                    {"管理補佐", Engineers<5>},
                    {"基幹", Engineers<2>},
                    {"２級", Engineers<3>},
                    {"その他", Engineers<4>}},
         .formula =
             {"技術職員数値 ＝ 監理 × 6 ＋ １級 × 5 ＋ 管理補佐 × 4 ＋ 基幹 × 3 ＋ ２級 × 2 ＋ その他 × 1"},
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
