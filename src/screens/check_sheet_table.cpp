// SPDX-FileCopyrightText: The Morvane developers
#include "law/choices.h"
#include "law/social_points.h"
#include "law/ten_tables.h"
#include "screens/check_figures.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace morvane {

namespace {

std::string Name(const char* control, std::size_t index) {
    return std::string(control) + "(" + std::to_string(index) + ")";
}

/// A table of the law: limits (lbl_Gak, from below and from above), formulas (lbl_HyouTen), the row in force.
Check_Sheet Calc_Tbl(const Check_Sheet& of) {
    const Tbl_Lists lists = Set_Tbl_Lists(of.Tbl_Disp_No, Law_Of(of.law_year));
    Check_Table table{lists.heading, {"以上", "未満", "評点の算式"}, {2}, {}, of.table_row, 2};
    for (std::size_t row = 0; row < lists.formulas.size(); ++row) {
        const std::string from = row < lists.limits.size() ? lists.limits[row] + "以上" : "";
        const std::string to = row > 0 ? lists.limits[row - 1] + "未満" : "";
        table.rows.push_back({{from, Name("lbl_Gak", 2 * row + 1)},
                              {to, Name("lbl_Gak", 2 * row)},
                              {lists.formulas[row], Name("lbl_HyouTen", row)}});
    }
    Check_Sheet sheet;
    sheet.title = lists.title;
    sheet.tables = {std::move(table)};
    // The number that no score of Z1 sets: shown whichever table is asked for.
    sheet.notice = std::to_string(Tbl_No_Z1);
    return sheet;
}

/// The points of the audit.
Check_Table Audit_Table() {
    Check_Table table{"【別表１】", {"監査の受審状況", "点数"}, {0}, {}, -1, 1};
    for (std::size_t answer = audit_points.size(); answer-- > 0;) {
        table.rows.push_back({{choice::audit.Find(static_cast<std::int32_t>(answer))->entry},
                              {std::to_string(audit_points[answer])}});
    }
    return table;
}

std::string Needed_Text(float needed) {
    if (std::isinf(needed)) {
        return "－";
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f以上", static_cast<double>(needed));
    return text.data();
}

/// The points of the accountants, by completed work.
Check_Table Staff_Table() {
    Check_Table table{"【別表２】", {"年間平均完成工事高"}, {0}, {}, -1, 1};
    for (const std::int16_t ten : accountant_points) {
        table.columns.push_back(std::to_string(ten) + "点");
    }
    const auto& rows = accountants_rows;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::string range = rows[i].from > 0 ? Oku_Man_Text(rows[i].from) + "以上" : "";
        if (i > 0) {
            range += (range.empty() ? "" : "　") + Oku_Man_Text(rows[i - 1].from) + "未満";
        }
        std::vector<Named_Text> line = {{range}};
        for (const float needed : rows[i].needed) {
            line.push_back({Needed_Text(needed)});
        }
        table.rows.push_back(std::move(line));
    }
    return table;
}

} // namespace

Check_Sheet Make_Table_Sheet(const Check_Sheet& of) {
    if (of.Tbl_Disp_No != 0) {
        return Calc_Tbl(of);
    }
    Check_Sheet sheet;
    sheet.title = "経理に関する状況（Ｗ５） 別表";
    sheet.tables = {Audit_Table(), Staff_Table()};
    sheet.closing = {"公認会計士等数は、一級の数に二級の数の" + Decimal(second_grade_accountant) +
                     "倍を加えた数です。該当する点数のうち最も高いものとなります。"};
    return sheet;
}

} // namespace morvane
