// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/law_year.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace morvane {

/// One row of a score table: from `from` to `to`, both inclusive, the score is the floor of
/// amount × `multiplier` ÷ `divisor` + `addend`.
struct Ten_Row {
    std::int32_t from;
    std::int32_t to;
    std::int32_t multiplier;
    std::int32_t divisor;
    std::int32_t addend;
};

/// A score table of the Ministry's notice on the items and standards of the Management Item Review
/// (経営事項審査の項目及び基準, 平成20年国土交通省告示第85号). Amounts are thousand yen, those of Z1 the
/// engineer value. Rows are numbered from the top as the law prints them: row 0 is the constant score from
/// `constant_from` upward, row n is `rows[n - 1]`, the last row starts at 0.
struct Ten_Table {
    std::span<const Ten_Row> rows;
    std::int32_t constant_from;
    std::int32_t constant_ten;
    const char* caption; ///< what the table scores, as its formula texts name it
    const char* what;    ///< the score, as an error names it
};

/// Version A is the notice as made in 2008, version B its revision of 2010, in force from 1 April 2011. The
/// revision left X2 and Z1 as they were.
extern const Ten_Table Ten_X1_A; ///< average annual completed work by work type
extern const Ten_Table Ten_X1_B;
extern const Ten_Table Ten_X2_1; ///< equity
extern const Ten_Table Ten_X2_2; ///< average profit before interest, tax and depreciation
extern const Ten_Table Ten_Z1;   ///< weighted number of engineers
extern const Ten_Table Ten_Z2_A; ///< average annual completed work as prime contractor
extern const Ten_Table Ten_Z2_B;

struct Ten_Result {
    std::int32_t ten; ///< the score
    int row;          ///< number of the row that gave it, -1 when no row did
};

/// The score of amount `v` (thousand yen; for Z1 the engineer value) by the notice's table. A negative amount
/// has no row and scores 0. The product of amount and multiplier is held in signed 32 bits: where it leaves
/// them Run_Time_Error (overflow) is raised, so the uppermost rows cannot be used in full.
[[nodiscard]] Ten_Result Ten_Lookup(const Ten_Table& table, std::int32_t v);

/// The table behind `Tbl_Disp_No` (1 X1, 2 X2_1, 3 X2_2, 4 Z2, 5 Z1) at a law year, which tells the version
/// of X1 and Z2. Any other number raises std::out_of_range.
[[nodiscard]] const Ten_Table& Table_Of_Number(int Tbl_Disp_No, const Law_Year& law);

/// Whether the formula that Set_Tbl_Lists prints for row `row` is the one that scores.
[[nodiscard]] bool Printed_As_Computed(const Ten_Table& table, int row);

/// An amount of whole 万円, given in thousand yen, in 億円 and 万円.
[[nodiscard]] std::string Oku_Man_Text(std::int32_t thousand_yen);

/// What the table screen shows of one table.
struct Tbl_Lists {
    std::string heading;
    std::string title;
    std::vector<std::string> limits;   ///< lower limits of the rows, highest first, without the one at 0
    std::vector<std::string> formulas; ///< by row number, so that the constant score stands first
};

/// The texts of the table of Table_Of_Number. Limits are in yen (億円, 万円), those of Z1 plain numbers.
[[nodiscard]] Tbl_Lists Set_Tbl_Lists(int Tbl_Disp_No, const Law_Year& law);

} // namespace morvane
