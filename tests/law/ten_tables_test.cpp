// SPDX-FileCopyrightText: The Morvane developers
#include "law/ten_tables.h"

#include "session/run_time_error.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <numeric>
#include <stdexcept>
#include <string>
#include <vector>

namespace morvane {
namespace {

constexpr std::int32_t int32_max = std::numeric_limits<std::int32_t>::max();

struct Shown_Table {
    int number, law;
    const Ten_Table* table;
    std::size_t row_count;
};

const Shown_Table shown_tables[] = {
    {1, 1, &Ten_X1_A, 41}, {1, 2, &Ten_X1_B, 41}, {2, 3, &Ten_X2_1, 46}, {3, 1, &Ten_X2_2, 36},
    {4, 1, &Ten_Z2_A, 41}, {4, 4, &Ten_Z2_B, 41}, {5, 1, &Ten_Z1, 29},
};

std::int64_t Exact_Ten(const Ten_Row& row, std::int64_t v) {
    return v * row.multiplier / row.divisor + row.addend;
}

/// Walks the rows one by one, in 64 bits.
void Expect_As_Table(const Ten_Table& table, std::int32_t v) {
    Ten_Result expected = v < 0 ? Ten_Result{0, -1} : Ten_Result{table.constant_ten, 0};
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const Ten_Row& row = table.rows[i];
        if (v >= row.from && v <= row.to) {
            if (std::int64_t{v} * row.multiplier > int32_max) {
                EXPECT_THROW(static_cast<void>(Ten_Lookup(table, v)), Run_Time_Error) << v;
                return;
            }
            expected = {static_cast<std::int32_t>(Exact_Ten(row, v)), static_cast<int>(i) + 1};
        }
    }
    const Ten_Result result = Ten_Lookup(table, v);
    EXPECT_EQ(result.ten, expected.ten) << v;
    EXPECT_EQ(result.row, expected.row) << v;
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

TEST(Ten_Tables, Every_Band_Edge) {
    for (const Shown_Table& shown : shown_tables) {
        SCOPED_TRACE(testing::Message() << "table " << shown.number << ", law year " << shown.law);
        std::vector<std::int32_t> edges{shown.table->constant_from, int32_max - 1, -int32_max};
        for (const Ten_Row& row : shown.table->rows) {
            edges.insert(edges.end(), {row.from, row.to});
        }
        for (const std::int32_t edge : edges) {
            for (const std::int32_t v : {edge - 1, edge, edge + 1}) {
                Expect_As_Table(*shown.table, v);
            }
        }
    }
}

TEST(Ten_Tables, Known_Scores) {
    const struct {
        const Ten_Table* table;
        std::int32_t v, ten;
        int row;
    } cases[] = {
        {&Ten_X1_A, 9'999, 518, 41},     {&Ten_X1_A, 10'000, 519, 40},      {&Ten_X1_B, 777'777, 965, 22},
        {&Ten_X2_1, 777'777, 893, 27},   {&Ten_X2_2, 3'456'789, 1'346, 10}, {&Ten_Z1, 39, 878, 24},
        {&Ten_Z1, 40, 885, 23},          {&Ten_Z1, 15'499, 2'334, 1},       {&Ten_Z1, 15'500, 2'335, 0},
        {&Ten_Z2_A, 777'777, 1'024, 22}, {&Ten_Z2_B, 55'555, 757, 33},
    };
    for (const auto& c : cases) {
        const Ten_Result result = Ten_Lookup(*c.table, c.v);
        EXPECT_EQ(result.ten, c.ten) << c.table->caption << c.v;
        EXPECT_EQ(result.row, c.row) << c.table->caption << c.v;
    }
}

// Where the 32-bit product gives out: the last amount with a score, the first and the last without.
TEST(Ten_Tables, Amounts_Out_Of_Reach) {
    const struct {
        const Ten_Table* table;
        std::int32_t first, last, ten_below;
    } cases[] = {
        {&Ten_X1_A, 29'020'050, 99'999'999, 1'781}, {&Ten_X1_B, 28'633'116, 99'999'999, 1'807},
        {&Ten_X2_1, 32'537'632, 39'999'999, 1'483}, {&Ten_X2_1, 40'518'560, 299'999'999, 1'535},
        {&Ten_X2_2, 15'000'000, 29'999'999, 1'986}, {&Ten_Z2_A, 30'000'000, 99'999'999, 1'985},
        {&Ten_Z2_B, 19'522'579, 19'999'999, 2'107}, {&Ten_Z2_B, 23'860'930, 24'999'999, 2'187},
        {&Ten_Z2_B, 28'256'364, 99'999'999, 2'257},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Ten_Lookup(*c.table, c.first - 1).ten, c.ten_below);
        EXPECT_THROW(static_cast<void>(Ten_Lookup(*c.table, c.first)), Run_Time_Error) << c.first;
        EXPECT_THROW(static_cast<void>(Ten_Lookup(*c.table, c.last)), Run_Time_Error) << c.last;
        EXPECT_GE(Ten_Lookup(*c.table, c.last + 1).row, 0);
    }
}

/// The numbers of a text, separators left out, and the text with # in place of each.
struct Parsed {
    std::string shape;
    std::vector<std::int32_t> numbers;
};

Parsed Parse(const std::string& text) {
    Parsed parsed;
    bool inside = false;
    for (const char ch : text) {
        if (ch >= '0' && ch <= '9') {
            if (!inside) {
                parsed.shape += '#';
                parsed.numbers.push_back(0);
            }
            parsed.numbers.back() = parsed.numbers.back() * 10 + (ch - '0');
        } else if (ch != ',') {
            parsed.shape += ch;
        }
        inside = ch == ',' || (ch >= '0' && ch <= '9');
    }
    return parsed;
}

TEST(Tbl_Lists, Formulas_Are_The_Rows_But_For_Six) {
    std::vector<std::string> different;
    for (const auto& [number, law, table, row_count] : shown_tables) {
        const std::vector<std::string> formulas = Set_Tbl_Lists(number, Law_Of(law)).formulas;
        ASSERT_EQ(formulas.size(), row_count + 1);
        EXPECT_EQ(Parse(formulas[0]).numbers, std::vector{table->constant_ten});
        const std::string shape =
            std::string("　#×（") + table->caption + (number == 5 ? "）÷ # ＋ #" : "）÷#＋#");
        for (std::size_t i = 0; i < row_count; ++i) {
            const Parsed parsed = Parse(formulas[i + 1]);
            const Ten_Row& row = table->rows[i];
            EXPECT_EQ(parsed.shape, shape);
            if (parsed.numbers != std::vector{row.multiplier, row.divisor, row.addend}) {
                different.push_back(formulas[i + 1]);
            }
        }
    }
    const std::vector<std::string> expected{
        "　27×（年間平均完成工事高）÷20,000＋669",       "　129×（年間平均完成工事高）÷1,000＋390",
        "　89×（年間平均完成工事高）÷10,000,000＋1,651", "　34×（自己資本額）÷1,000,000＋946",
        "　296×（年間平均元請完成工事高）÷1,000＋210",   "　341×（年間平均元請完成工事高）÷1,000＋241",
    };
    EXPECT_EQ(different, expected);
}

TEST(Tbl_Lists, Limits_Are_The_Bounds) {
    const std::map<std::string, std::vector<std::int32_t>> units{
        {"#億#万円", {100'000, 10}}, {"#億円", {100'000}}, {"#万円", {10}}, {"#", {1}}};
    for (const auto& [number, law, table, row_count] : shown_tables) {
        const std::vector<std::string> limits = Set_Tbl_Lists(number, Law_Of(law)).limits;
        ASSERT_EQ(limits.size(), row_count);
        for (std::size_t i = 0; i < limits.size(); ++i) {
            const Parsed parsed = Parse(limits[i]);
            const auto& unit = units.at(parsed.shape);
            EXPECT_EQ(parsed.shape == "#", number == 5);
            EXPECT_EQ(std::inner_product(unit.begin(), unit.end(), parsed.numbers.begin(), 0),
                      i == 0 ? table->constant_from : table->rows[i - 1].from);
        }
    }
}

TEST(Tbl_Lists, Texts) {
    const struct {
        int number;
        const char *heading, *title, *constant, *first_formula, *first_limit;
        std::size_t index;
        const char* limit;
    } cases[] = {
        {1, "許可を受けた建設業に係る建設工事の種類別年間平均完成工事高", "年間平均完成工事高 別表", "2,268",
         "　112×（年間平均完成工事高）÷20,000,000＋1,708", "1,000億円", 26, "2億5,000万円"},
        {2, "自己資本の額又は平均自己資本の額", "自己資本額 別表", "2,114",
         "　63×（自己資本額）÷50,000,000＋1,736", "3,000億円", 45, "1,000万円"},
        {3, "平均利益額", "平均利益額 別表", "2,447", "　134×（平均利益額）÷5,000,000＋1,643", "300億円", 22,
         "2億円"},
        {4, "許可を受けた建設業に係る建設工事の種類別年間平均元請完成工事高", "年間平均元請完成工事高 別表",
         "2,268", "　103×（年間平均元請完成工事高）÷20,000,000＋1,976", "1,000億円", 31, "8,000万円"},
        {5, "技術職員数値", "技術職員数値 別表", "2,335", "　62×（技術職員数値）÷ 3,570 ＋ 2,065", "15,500",
         28, "5"},
    };
    for (const auto& c : cases) {
        const Tbl_Lists lists = Set_Tbl_Lists(c.number, Law_Of(1));
        EXPECT_EQ(lists.heading, c.heading);
        EXPECT_EQ(lists.title, c.title);
        EXPECT_EQ(lists.formulas.at(0), c.constant);
        EXPECT_EQ(lists.formulas.at(1), c.first_formula);
        EXPECT_EQ(lists.limits.at(0), c.first_limit);
        EXPECT_EQ(lists.limits.at(c.index), c.limit);
    }
    EXPECT_THROW(static_cast<void>(Set_Tbl_Lists(0, Law_Of(1))), std::out_of_range);
    EXPECT_THROW(static_cast<void>(Set_Tbl_Lists(6, Law_Of(1))), std::out_of_range);
}

} // namespace
} // namespace morvane
