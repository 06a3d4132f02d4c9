// SPDX-FileCopyrightText: The Morvane developers
#include "law/ten_tables.h"

#include <gtest/gtest.h>

#include <iterator>
#include <stdexcept>
#include <tuple>

namespace morvane {
namespace {

/// Number, law year, table, rows.
const std::tuple<int, int, const Ten_Table*, std::size_t> shown_tables[] = {
    {1, 1, &Ten_X1_A, 41}, {1, 2, &Ten_X1_B, 41}, {2, 3, &Ten_X2_1, 46}, {3, 1, &Ten_X2_2, 36},
    {4, 1, &Ten_Z2_A, 41}, {4, 4, &Ten_Z2_B, 41}, {5, 1, &Ten_Z1, 29},
};

std::int64_t Exact_Ten(const Ten_Row& row, std::int64_t v) {
    return v * row.multiplier / row.divisor + row.addend;
}

// The law's lines meet: a row carried on to the bound above it gives what the next row gives there (in Z1,
// whose figures are rounded, up to one point less). A figure mistyped in any row shows here. Only the
// constant of Z2 A does not meet its row.
TEST(Ten_Tables, Rows_Leave_No_Gap_And_Meet) {
    for (const auto& [number, law, table, row_count] : shown_tables) {
        SCOPED_TRACE(testing::Message() << "table " << number << ", law year " << law);
        ASSERT_EQ(table->rows.size(), row_count);
        std::int32_t bound = table->constant_from;
        std::int64_t above = table == &Ten_Z2_A ? 2'491 : table->constant_ten;
        for (const Ten_Row& row : table->rows) {
            EXPECT_EQ(row.to, bound - 1);
            EXPECT_LE(Exact_Ten(row, bound), above) << row.from;
            EXPECT_GE(Exact_Ten(row, bound), above - (table == &Ten_Z1 ? 1 : 0)) << row.from;
            bound = row.from;
            above = Exact_Ten(row, bound);
        }
        EXPECT_EQ(bound, 0);
    }
}

// The points themselves, the numbers of the rows and the amounts at which the 32-bit product gives out are
// held by tests/reference and by the command line.

// Six formulas are printed with other figures than those that score.
TEST(Tbl_Lists, Formulas_Printed_Otherwise) {
    const std::tuple<int, int, std::size_t, const char*> cases[] = {
        {1, 1, 32, "　27×（年間平均完成工事高）÷20,000＋669"},
        {1, 1, 41, "　129×（年間平均完成工事高）÷1,000＋390"},
        {1, 2, 5, "　89×（年間平均完成工事高）÷10,000,000＋1,651"},
        {2, 3, 19, "　34×（自己資本額）÷1,000,000＋946"},
        {4, 1, 41, "　296×（年間平均元請完成工事高）÷1,000＋210"},
        {4, 4, 41, "　341×（年間平均元請完成工事高）÷1,000＋241"},
    };
    for (const auto& [number, law, row, formula] : cases) {
        EXPECT_EQ(Set_Tbl_Lists(number, Law_Of(law)).formulas.at(row), formula);
    }
    std::size_t otherwise = 0;
    for (const auto& [number, law, table, row_count] : shown_tables) {
        EXPECT_EQ(Set_Tbl_Lists(number, Law_Of(law)).formulas.size(), row_count + 1);
        EXPECT_EQ(Set_Tbl_Lists(number, Law_Of(law)).limits.size(), row_count);
        for (int row = 1; row <= static_cast<int>(row_count); ++row) {
            otherwise += Printed_As_Computed(*table, row) ? 0U : 1U;
        }
    }
    EXPECT_EQ(otherwise, std::size(cases));
}

TEST(Tbl_Lists, Texts) {
    // Number, constant, first formula, first limit, and a limit further on with its place
    using Text = const char*;
    const std::tuple<int, Text, Text, Text, std::size_t, Text> cases[] = {
        {1, "2,268", "　112×（年間平均完成工事高）÷20,000,000＋1,708", "1,000億円", 26, "2億5,000万円"},
        {2, "2,114", "　63×（自己資本額）÷50,000,000＋1,736", "3,000億円", 45, "1,000万円"},
        {3, "2,447", "　134×（平均利益額）÷5,000,000＋1,643", "300億円", 22, "2億円"},
        {4, "2,268", "　103×（年間平均元請完成工事高）÷20,000,000＋1,976", "1,000億円", 31, "8,000万円"},
        {5, "2,335", "　62×（技術職員数値）÷ 3,570 ＋ 2,065", "15,500", 28, "5"},
    };
    for (const auto& [number, constant, first_formula, first_limit, index, limit] : cases) {
        const Tbl_Lists lists = Set_Tbl_Lists(number, Law_Of(1));
        EXPECT_EQ(lists.formulas.at(0), constant);
        EXPECT_EQ(lists.formulas.at(1), first_formula);
        EXPECT_EQ(lists.limits.at(0), first_limit);
        EXPECT_EQ(lists.limits.at(index), limit);
    }
    EXPECT_THROW(static_cast<void>(Set_Tbl_Lists(0, Law_Of(1))), std::out_of_range);
    EXPECT_THROW(static_cast<void>(Set_Tbl_Lists(6, Law_Of(1))), std::out_of_range);
}

} // namespace
} // namespace morvane
