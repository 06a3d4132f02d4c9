// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "calc/y_calc.h"

#include <array>
#include <string>

namespace morvane {

/// An element of Y as the screens show it.
struct Y_Element {
    const char* caption;
    std::size_t place; ///< in Y_Yoso
};

/// The fourteen elements of Y, thousand yen, in the order of the screens.
inline constexpr std::array<Y_Element, 14> y_elements = {{{"売上高", 7},
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
                                                          {"総資本（前期）", 6}}};

/// The eight indicators X1 to X8.
inline constexpr std::array<const char*, 8> y_indicator_captions = {
    "純支払利息比率(X1)",         "負債回転期間(X2)", "総資本売上総利益率(X3)",   "売上高経常利益率(X4)",
    "自己資本対固定資産比率(X5)", "自己資本比率(X6)", "営業キャッシュフロー(X7)", "利益剰余金(X8)"};

/// An indicator with its three decimals.
std::string Indicator_Text(float indicator);

/// The points A with their two decimals.
std::string Points_Text(float points);

} // namespace morvane
