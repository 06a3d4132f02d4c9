// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/y_calc.h"

#include <array>
#include <string>

namespace morvane {

/// What the screens of the analysis show of a result.
struct Keiei_Texts {
    std::array<std::string, y_element::count> Yoso;
    std::array<std::string, y_indicators.size()> kekka; ///< three decimals
    std::array<std::string, y_indicators.size()> TRitu; ///< percent, one decimal
    std::string YTen;                                   ///< points A, two decimals
    std::string Y;                                      ///< blank for 0
};

Keiei_Texts Show_Keiei(const Y_Result& y);

} // namespace morvane
