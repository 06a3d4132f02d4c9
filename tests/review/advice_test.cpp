// SPDX-FileCopyrightText: The Morvane developers
#include "review/advice.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace morvane::tests {
namespace {

/// A firm that needs no advice.
struct Firm {
    Y_Result y;
    Twelve_Values twelve{};

    Firm() {
        y.rates.fill(50.0F);
        y.elements.fill(Thousand_Yen(1));
        for (std::size_t i = 0; i < twelve.size(); ++i) {
            twelve[i] = static_cast<double>(twelve_indicators[i].Standard());
        }
    }

    /// A little on the lower side of its standard.
    void Lower(std::size_t number) {
        const float far = std::numeric_limits<float>::infinity();
        double& value = twelve[number - 1];
        value = std::nextafter(static_cast<float>(value),
                               twelve_indicators[number - 1].upper_from_standard ? -far : far);
    }

    /// What is advised: "収益性 ①... | figure", a line each.
    [[nodiscard]] std::string Told() const {
        std::ostringstream told;
        for (const Advice_Section& section : Advice_Of(y, twelve)) {
            EXPECT_EQ(section.advice.empty(), !section.nothing.empty()) << section.heading;
            for (const Advice& advice : section.advice) {
                told << section.heading << ' ' << advice.text << " | " << advice.figure << '\n';
            }
        }
        return told.str();
    }
};

TEST(Advice_Test, Each_Follows_Its_Own_Figure) {
    EXPECT_EQ(Firm().Told(), "") << "in the middle and on the standards";
    for (const std::size_t number : {8U, 9U, 10U}) {
        Firm firm;
        firm.Lower(number);
        EXPECT_EQ(firm.Told(), "") << "nothing rests on " << number;
    }
    // x of the analysis or t of the twelve, number, heading, figure
    const std::tuple<char, std::size_t, const char*, const char*> rows[] = {
        {'t', 1, "収益性", "売上高営業利益率　1.870％、標準値 1.870％"},
        {'x', 3, "収益性", "総資本売上総利益率（Ｘ３）　1.500％、達成率 49.9％"},
        {'x', 4, "収益性", "売上高経常利益率（Ｘ４）　1.500％、達成率 49.9％"},
        {'t', 2, "収益性", "総資本経常利益率　3.076％、標準値 3.076％"},
        {'t', 12, "収益性", "付加価値対固定資産比率　173.904％、標準値 173.904％"},
        {'t', 4, "流動性", "必要運転資金月商倍率　0.412ヶ月、標準値 0.412ヶ月"},
        {'t', 5, "流動性", "立替工事高比率　15.177％、標準値 15.177％"},
        {'t', 6, "流動性", "受取勘定月商倍率　1.805ヶ月、標準値 1.805ヶ月"},
        {'t', 3, "流動性", "キャッシュフロー対売上高比率　1.259％、標準値 1.259％"},
        {'x', 1, "安定性", "純支払利息比率（Ｘ１）　1.500％、達成率 49.9％"},
        {'x', 2, "安定性", "負債回転期間（Ｘ２）　1.500ヶ月、達成率 49.9％"},
        {'x', 5, "安定性", "自己資本対固定資産比率（Ｘ５）　1.500％、達成率 49.9％"},
        {'t', 11, "安定性", "長期固定適合比率　144.391％、標準値 144.391％"},
        {'t', 7, "健全性", "自己資本比率　21.445％、標準値 21.445％"},
        {'x', 6, "健全性", "自己資本比率（Ｘ６）　1.500％、達成率 49.9％"},
        {'x', 8, "健全性", "利益剰余金（Ｘ８）　1.500億円、達成率 49.9％"},
        {'x', 7, "健全性", "営業キャッシュフロー（Ｘ７）　1.500億円、達成率 49.9％"}};
    Firm worst;
    for (const auto& [of, number, heading, figure] : rows) {
        Firm firm;
        for (Firm* lowered : {&firm, &worst}) {
            if (of == 'x') {
                lowered->y.rates[number - 1] = 49.9F;
                lowered->y.indicators[number - 1] = 1.5F;
            } else {
                lowered->Lower(number);
            }
        }
        const std::string told = firm.Told();
        EXPECT_TRUE(told.starts_with(std::string(heading) + " ①")) << figure << ": " << told;
        EXPECT_TRUE(told.ends_with(std::string(" | ") + figure + "\n")) << told;
    }
    // Without what an indicator is a share of there is nothing to advise; a loss has words of its own.
    Firm bare = worst;
    for (const y_element::Place place :
         {y_element::sales, y_element::total_capital, y_element::fixed_assets}) {
        bare.y.elements[place] = Thousand_Yen();
    }
    bare.y.indicators[7] = -0.1F;
    const std::string told = bare.Told();
    EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 4) << told;
    EXPECT_NE(told.find("過去の損失"), std::string::npos);
    // Those of a heading stand in their order, numbered.
    const auto sections = Advice_Of(worst.y, worst.twelve);
    EXPECT_EQ(sections[0].advice[0].text, "①より一層の営業利益の獲得のため、原価管理の徹底・固定費の削減に"
                                          "よる利益確保の検討を行って下さい。");
    std::size_t row = 0;
    for (const Advice_Section& section : sections) {
        ASSERT_TRUE(section.advice.size() >= 3 && section.advice.size() <= 5);
        for (std::size_t i = 0; i < section.advice.size(); ++i, ++row) {
            EXPECT_TRUE(section.advice[i].text.starts_with(std::array{"①", "②", "③", "④", "⑤"}.at(i)));
            EXPECT_EQ(section.advice[i].figure, std::get<3>(rows[row]));
        }
    }
    EXPECT_EQ(row, std::size(rows));
}

TEST(Advice_Test, Comments_Tell_The_Side_Of_The_Standard) {
    const Firm on_standard;
    const auto on = Twelve_Comments(on_standard.twelve);
    for (std::size_t i = 0; i < on.size(); ++i) {
        EXPECT_TRUE(on[i].text.ends_with("上位にあります。")) << on[i].label;
        Firm firm;
        firm.Lower(i + 1);
        EXPECT_TRUE(Twelve_Comments(firm.twelve)[i].text.ends_with("下位にあります。")) << on[i].label;
        // The standard that the sentence names is the one that is compared with.
        std::string wide;
        for (const char c : on[i].figure) {
            wide += std::string("\xEF\xBC") + static_cast<char>(c + 0x60); // its full-width sister
        }
        EXPECT_NE(on[i].text.find("標準値" + wide), std::string::npos) << on[i].text;
    }
    EXPECT_EQ(on[0].label, "X1：売上高営業利益率");
    EXPECT_EQ(on[11].label, "X12：付加価値対固定資産比率");
    EXPECT_EQ(on[7].text, "有利子負債（借入金・割引手形等）が月商の何倍あるかを表す指標です。標準値２．７９８"
                          "ヶ月に対し、上位にあります。");
}

} // namespace
} // namespace morvane::tests
