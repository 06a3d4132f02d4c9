// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "calc/y_calc.h"

#include <array>
#include <string>

namespace morvane {

/// The fourteen elements of Y, in thousand yen, in the order of Y_Calc.
inline constexpr std::array<const char*, 14> y_element_captions = {"売上高",
                                                                   "売上総利益",
                                                                   "受取利息配当金",
                                                                   "支払利息",
                                                                   "経常（事業主）利益",
                                                                   "営業ｷｬｯｼｭﾌﾛｰ（当期）",
                                                                   "営業ｷｬｯｼｭﾌﾛｰ（前期）",
                                                                   "固定資産",
                                                                   "流動負債",
                                                                   "固定負債",
                                                                   "利益剰余金",
                                                                   "自己資本",
                                                                   "総資本（当期）",
                                                                   "総資本（前期）"};

/// The eight indicators X1 to X8.
inline constexpr std::array<const char*, 8> y_indicator_captions = {
    "純支払利息比率(X1)",         "負債回転期間(X2)", "総資本売上総利益率(X3)",   "売上高経常利益率(X4)",
    "自己資本対固定資産比率(X5)", "自己資本比率(X6)", "営業キャッシュフロー(X7)", "利益剰余金(X8)"};

/// An indicator with its three decimals.
std::string Indicator_Text(float indicator);

/// The points A with their two decimals.
std::string Points_Text(float points);

} // namespace morvane
