// SPDX-FileCopyrightText: The Morvane developers
#include "screens/y_texts.h"

#include <cmath>
#include <cstdio>

namespace morvane {

namespace {

std::string Fixed(float number, int decimals) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, static_cast<double>(number));
    return text.data();
}

} // namespace

std::string Indicator_Text(float indicator) {
    return Fixed(indicator, 3);
}

std::string Points_Text(float points) {
    return Fixed(points, 2);
}

} // namespace morvane
