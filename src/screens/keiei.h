// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/y_calc.h"

#include <array>
#include <string>

namespace morvane {

/// One of the fourteen elements as the screens list them.
struct Keiei_Element {
    const char* caption;
    std::size_t place; ///< in Y_Yoso
};

inline constexpr std::array<Keiei_Element, 14> keiei_elements = {{
    {"売上高", 7},
    {"売上総利益", 8},
    {"受取利息配当金", 9},
    {"支払利息", 10},
    {"経常（事業主）利益", 11},
    {"営業ｷｬｯｼｭﾌﾛｰ（当期）", 12},
    {"営業ｷｬｯｼｭﾌﾛｰ（前期）", 13},
    {"固定資産", 0},
    {"流動負債", 1},
    {"固定負債", 2},
    {"利益剰余金", 3},
    {"自己資本", 4},
    {"総資本（当期）", 5},
    {"総資本（前期）", 6},
}};

/// One of the eight indicators: its name, the unit of its value, the values at which the rate is 0 and 100
/// percent, and, where a group of the notice (経営状況分析の8指標) begins, the group.
struct Keiei_Indicator {
    const char* caption;
    const char* unit;
    const char* lower;
    const char* upper;
    const char* group = nullptr;
};

inline constexpr std::array<Keiei_Indicator, 8> keiei_indicators = {{
    {"純支払利息比率", "％", "5.1", "-0.3", "負債\n抵抗力"},
    {"負債回転期間", "ヶ月", "18.0", "0.9"},
    {"総資本売上総利益率", "％", "6.5", "63.6", "収益性\n効率性"},
    {"売上高経常利益率", "％", "-8.5", "5.1"},
    {"自己資本対固定資産比率", "％", "-76.5", "350.0", "財務\n健全性"},
    {"自己資本比率", "％", "-68.6", "68.5"},
    {"営業キャッシュフロー", "億円", "-10.0", "15.0", "絶対的\n力量"},
    {"利益剰余金", "億円", "-3.0", "100.0"},
}};

/// The highest score Y that the limits of the indicators leave.
inline constexpr std::int16_t highest_y = 1595;

/// What the screens of the analysis show of a result.
struct Keiei_Texts {
    std::array<std::string, 14> Yoso; ///< in the order of keiei_elements
    std::array<std::string, 8> kekka; ///< three decimals
    std::array<std::string, 8> TRitu; ///< percent, one decimal
    std::string YTen;                 ///< points A, two decimals
    std::string Y;                    ///< blank for 0
};

Keiei_Texts Show_Keiei(const Y_Calc& y);

} // namespace morvane
