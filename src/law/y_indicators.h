// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/quantity.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace morvane {

// The analysis of the management status (経営状況分析): the eight indicators of 平成20年国土交通省告示第85号,
// the points A that they form and the score Y. They are the same for every law year.

/// What the indicators are formed of, thousand yen, in the order of the screens.
namespace y_element {
enum Place : std::size_t {
    sales,
    gross_profit,
    interest_received,
    interest_paid,
    ordinary_profit,
    cash_flow,
    prior_cash_flow,
    fixed_assets,
    current_liabilities,
    fixed_liabilities,
    retained_earnings,
    equity,
    total_capital,
    prior_total_capital,
    count
};
} // namespace y_element

/// A name of the law; the sheet of the result notice (結果通知書) has a shorter one for some.
struct Y_Name {
    const char* name;
    const char* on_notice = nullptr;

    [[nodiscard]] constexpr const char* On_Notice() const { return on_notice != nullptr ? on_notice : name; }
};

inline constexpr std::array<Y_Name, y_element::count> y_elements = {{{"売上高"},
                                                                     {"売上総利益"},
                                                                     {"受取利息配当金"},
                                                                     {"支払利息"},
                                                                     {"経常（事業主）利益", "経常利益"},
                                                                     {"営業ｷｬｯｼｭﾌﾛｰ（当期）", "営業CF"},
                                                                     {"営業ｷｬｯｼｭﾌﾛｰ（前期）"},
                                                                     {"固定資産"},
                                                                     {"流動負債"},
                                                                     {"固定負債"},
                                                                     {"利益剰余金"},
                                                                     {"自己資本"},
                                                                     {"総資本（当期）", "総資本"},
                                                                     {"総資本（前期）"}}};

/// A part of the operating cash flow of a year: it adds to the flow or goes off it.
struct Y_Flow_Part {
    const char* name;
    bool adds;
};

/// The figures of the year, and the balances, of which that counts by which they fell during the year.
inline constexpr std::array<Y_Flow_Part, 3> y_flow_amounts = {
    {{"経常利益", true}, {"減価償却実施額", true}, {"法人税等", false}}};
inline constexpr std::size_t y_flow_depreciation = 1;
inline constexpr std::array<Y_Flow_Part, 5> y_flow_balances = {
    {{"貸倒引当金", false}, {"売掛債権", true}, {"仕入債務", false}, {"棚卸資産", true}, {"受入金", false}}};
inline constexpr std::size_t y_flow_allowance = 0;

/// The scale of X7 and X8: a hundred million yen (億円) in thousand yen.
inline constexpr std::int32_t thousand_yen_of_oku = 100'000;

/// The total capital of X3 counts as thirty million yen at least.
inline constexpr Thousand_Yen y_least_capital{30'000};

/// A figure that the law gives with one decimal, in tenths: as a single, as a double and as a difference of
/// two it is then the nearest one.
struct Tenths {
    int number = 0;

    [[nodiscard]] constexpr float Single() const { return static_cast<float>(number) / 10.0F; }
    [[nodiscard]] constexpr double Double() const { return number / 10.0; }
    friend constexpr Tenths operator-(Tenths a, Tenths b) { return {a.number - b.number}; }
};

/// An indicator counts between its limits.
struct Y_Indicator {
    const char* sign;
    Y_Name name;
    Y_Name unit;
    Tenths lower, upper;
    bool low_is_best = false;
    std::optional<Tenths> without_denominator = {}; ///< what it is where its denominator is 0
    int decimals;                                   ///< that are kept: of a percentage those of the ratio
    double weight;                                  ///< in the points A
    const char* group = nullptr;                    ///< the group of the notice that begins with it

    /// Where the achievement rate (達成率) is 0 and 100 percent.
    [[nodiscard]] constexpr Tenths Worst() const { return low_is_best ? upper : lower; }
    [[nodiscard]] constexpr Tenths Best() const { return low_is_best ? lower : upper; }

    /// A power of ten: of its decimals.
    [[nodiscard]] constexpr double Scale() const { return decimals == ratio_decimals ? 100'000.0 : 1'000.0; }

    static constexpr int ratio_decimals = 5;
    static constexpr int value_decimals = 3;
};

inline constexpr Y_Name y_percent = {"％", "%"};

inline constexpr std::array<Y_Indicator, 8> y_indicators = {{
    {.sign = "Ｘ１",
     .name = {"純支払利息比率"},
     .unit = y_percent,
     .lower = {-3},
     .upper = {51},
     .low_is_best = true,
     .without_denominator = Tenths{51},
     .decimals = Y_Indicator::ratio_decimals,
     .weight = -0.4650,
     .group = "負債\n抵抗力"},
    {.sign = "Ｘ２",
     .name = {"負債回転期間"},
     .unit = {"ヶ月", "月"},
     .lower = {9},
     .upper = {180},
     .low_is_best = true,
     .without_denominator = Tenths{180},
     .decimals = Y_Indicator::value_decimals,
     .weight = -0.0508},
    {.sign = "Ｘ３",
     .name = {"総資本売上総利益率", "純資本売上総利益率"},
     .unit = y_percent,
     .lower = {65},
     .upper = {636},
     .decimals = Y_Indicator::ratio_decimals,
     .weight = 0.0264,
     .group = "収益性\n効率性"},
    {.sign = "Ｘ４",
     .name = {"売上高経常利益率"},
     .unit = y_percent,
     .lower = {-85},
     .upper = {51},
     .without_denominator = Tenths{-85},
     .decimals = Y_Indicator::ratio_decimals,
     .weight = 0.0277},
    {.sign = "Ｘ５",
     .name = {"自己資本対固定資産比率", "自己資本固定資産比率"},
     .unit = y_percent,
     .lower = {-765},
     .upper = {3500},
     .without_denominator = Tenths{-765},
     .decimals = Y_Indicator::ratio_decimals,
     .weight = 0.0011,
     .group = "財務\n健全性"},
    {.sign = "Ｘ６",
     .name = {"自己資本比率"},
     .unit = y_percent,
     .lower = {-686},
     .upper = {685},
     .without_denominator = Tenths{0},
     .decimals = Y_Indicator::ratio_decimals,
     .weight = 0.0089},
    {.sign = "Ｘ７",
     .name = {"営業キャッシュフロー", "営業CF"},
     .unit = {"億円"},
     .lower = {-100},
     .upper = {150},
     .decimals = Y_Indicator::value_decimals,
     .weight = 0.0818,
     .group = "絶対的\n力量"},
    {.sign = "Ｘ８",
     .name = {"利益剰余金"},
     .unit = {"億円"},
     .lower = {-30},
     .upper = {1000},
     .decimals = Y_Indicator::value_decimals,
     .weight = 0.0172},
}};

/// The points A are the weighted indicators and this, with two decimals.
inline constexpr int y_weight_decimals = 4;
inline constexpr double y_points_base = 0.1906;

/// The score Y is the points A by this factor and this, whole and not below 0.
inline constexpr double y_score_factor = 167.3;
inline constexpr std::int32_t y_score_base = 583;

/// What lies this far below a half or nearer is rounded up: the rounding of the analysis is no half-up.
inline constexpr double y_rounding = 0.501;

/// The score of a firm whose indicators all are the best ones.
constexpr std::int16_t Highest_Y() {
    double points = y_points_base;
    for (const Y_Indicator& indicator : y_indicators) {
        points += indicator.weight * indicator.Best().Double();
    }
    const auto hundredths = static_cast<std::int32_t>(points * 100 + y_rounding);
    return static_cast<std::int16_t>(y_score_factor * hundredths / 100 + y_score_base + y_rounding);
}
inline constexpr std::int16_t highest_y = Highest_Y();
static_assert(highest_y == 1595);

} // namespace morvane
