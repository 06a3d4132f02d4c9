// SPDX-FileCopyrightText: The Morvane developers
#include "screens/keiei.h"

#include "session/kyotu_mod.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace morvane {

Keiei_Texts Show_Keiei(const Y_Calc& y) {
    Keiei_Texts texts;
    for (std::size_t i = 0; i < keiei_elements.size(); ++i) {
        texts.Yoso[i] = Comma_Str(y.Y_Yoso[keiei_elements[i].place]);
    }
    for (std::size_t i = 0; i < keiei_indicators.size(); ++i) {
        texts.kekka[i] = Fixed_Str(y.Y_Kekka[i], 3);
        texts.TRitu[i] = Fixed_Str(y.Y_Ritu[i], 1);
    }
    texts.YTen = Fixed_Str(y.Y_A_Ten, 2);
    texts.Y = y.Y_Ten == 0 ? "" : Comma_Str(y.Y_Ten);
    return texts;
}

std::string Fixed_Str(float figure, int decimals) {
    // 12.35 as a float lies below 12.35: the half is that of the digits it stands for.
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), figure).ptr;
    double decimal = 0.0;
    std::from_chars(digits.data(), end, decimal);
    const double scale = std::pow(10.0, decimals);
    // A float has at most nine digits, so that nothing but a half lies as near to a half.
    constexpr double beyond_noise = 1.0 + 1e-12;
    double rounded = std::round(decimal * scale * beyond_noise) / scale;
    if (rounded == 0.0) {
        rounded = 0.0; // no "-0.0"
    }
    std::array<char, 64> text{};
    const int length = std::snprintf(text.data(), text.size(), "%.*f", decimals, rounded);
    return {text.data(), static_cast<std::size_t>(length)};
}

} // namespace morvane
