// SPDX-FileCopyrightText: The Morvane developers
#include "screens/keiei.h"

#include "session/kyotu_mod.h"

#include <gtest/gtest.h>
#include <map>

namespace morvane::tests {
namespace {

Y_Calc Result_Of(const std::map<int, double>& thousand_yen) {
    Statement_Figures statement;
    statement.has_rows = true;
    statement.form = 5;
    for (const auto& [code, amount] : thousand_yen) {
        statement.amount[static_cast<std::size_t>(code)] = amount * 1000.0;
    }
    Y_Calc y;
    y.Calc_Y(statement, {});
    return y;
}

TEST(Keiei, The_Ends_Of_The_Bars_Are_The_Limits_Of_The_Indicators) {
    const Keiei_Texts best = Show_Keiei(Result_Of(
        {{402, 1e6}, {470, 1e6}, {419, 1e9}, {489, 2e9}, {319, 1e9}, {179, 1e3}, {399, 1e6}, {289, 2e9}}));
    const Keiei_Texts worst = Show_Keiei(Result_Of({{402, 1e6},
                                                    {480, 1e6},
                                                    {229, 1e9},
                                                    {419, -1e9},
                                                    {489, -2e9},
                                                    {319, -1e9},
                                                    {179, 1e3},
                                                    {399, 1e6},
                                                    {289, -2e9}}));
    for (std::size_t i = 0; i < keiei_indicators.size(); ++i) {
        EXPECT_EQ(best.kekka[i], keiei_indicators[i].upper + std::string("00")) << i;
        EXPECT_EQ(worst.kekka[i], keiei_indicators[i].lower + std::string("00")) << i;
        EXPECT_EQ(best.TRitu[i], "100.0");
        EXPECT_EQ(worst.TRitu[i], "0.0");
    }
    EXPECT_EQ(best.Y, "1,595");
    EXPECT_EQ(highest_y, 1595);
    EXPECT_EQ(worst.Y, "") << "no figure for 0";
}

TEST(Keiei, Elements_Stand_Under_Their_Captions) {
    // Each account at the place of its caption.
    const Keiei_Texts texts = Show_Keiei(Result_Of({{402, 1001},
                                                    {419, 1002},
                                                    {470, 3},
                                                    {480, 4},
                                                    {489, 1005},
                                                    {833, 7},
                                                    {179, 1008},
                                                    {229, 1009},
                                                    {248, 1010},
                                                    {289, 1011},
                                                    {319, 1012},
                                                    {399, 1013},
                                                    {830, -1014}}));
    EXPECT_EQ(texts.Yoso,
              (std::array<std::string, 14>{"1,001", "1,002", "3", "4", "1,005", "1,005", "7", "1,008",
                                           "1,009", "1,010", "1,011", "1,012", "1,013", "-1,014"}));
}

TEST(Keiei, Decimals_Round_The_Digits_That_Stand_There) {
    const struct {
        float figure;
        int decimals;
        const char* text;
    } cases[] = {{12.35F, 1, "12.4"},  {45.25F, 1, "45.3"}, {-0.25F, 1, "-0.3"}, {-0.04F, 1, "0.0"},
                 {99.95F, 1, "100.0"}, {5.1F, 3, "5.100"},  {1.005F, 2, "1.01"}, {0.0F, 3, "0.000"}};
    for (const auto& c : cases) {
        EXPECT_EQ(Fixed_Str(c.figure, c.decimals), c.text) << c.figure;
    }
}

} // namespace
} // namespace morvane::tests
