// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/twelve_indicators.h"
#include "law/y_indicators.h"
#include "review/y_calc.h"

#include <array>
#include <string>
#include <vector>

namespace morvane {

/// The twelve indicators in their order, percent or months; they are compared in single precision.
using Twelve_Values = std::array<double, twelve_indicators.size()>;

/// A sentence of advice, numbered, and the figure that it rests on.
struct Advice {
    std::string text;
    std::string figure;
};

/// What is advised under a heading: a sentence that nothing is, where there is no advice.
struct Advice_Section {
    const char* heading;
    std::vector<Advice> advice;
    std::string nothing = {};
};

/// The advice to a firm under its four headings (収益性, 流動性, 安定性, 健全性). Each rests on one
/// indicator: of the analysis it is given in the worse half of the indicator's range, of the twelve on the
/// lower side of the standard, and never where the firm has nothing of what the indicator is divided by.
[[nodiscard]] std::array<Advice_Section, 4> Advice_Of(const Y_Result& y, const Twelve_Values& twelve);

/// What is said of one of the twelve indicators.
struct Twelve_Comment {
    std::string label;  ///< "X1：売上高営業利益率"
    std::string figure; ///< three decimals
    const char* unit;
    std::string text; ///< the standard, and on which side of it the firm lies
};

/// The comments in the order of the indicators. A value on its standard is on the upper side.
[[nodiscard]] std::array<Twelve_Comment, twelve_indicators.size()>
Twelve_Comments(const Twelve_Values& twelve);

} // namespace morvane
