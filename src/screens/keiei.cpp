// SPDX-FileCopyrightText: The Morvane developers
#include "screens/keiei.h"

#include "session/kyotu_mod.h"

namespace morvane {

Keiei_Texts Show_Keiei(const Y_Result& y) {
    Keiei_Texts texts;
    for (std::size_t i = 0; i < y.elements.size(); ++i) {
        texts.Yoso[i] = Comma_Str(y.elements[i]);
    }
    for (std::size_t i = 0; i < y.indicators.size(); ++i) {
        texts.kekka[i] = Fixed_Str(y.indicators[i], 3);
        texts.TRitu[i] = Fixed_Str(y.rates[i], 1);
    }
    texts.YTen = Fixed_Str(y.points, 2);
    texts.Y = y.score == Points() ? "" : Comma_Str(y.score);
    return texts;
}

} // namespace morvane
