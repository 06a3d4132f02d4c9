// SPDX-FileCopyrightText: The Morvane developers
#include "screens/keiei.h"

#include "session/kyotu_mod.h"

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

} // namespace morvane
