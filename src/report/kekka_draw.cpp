// SPDX-FileCopyrightText: The Morvane developers
#include "report/kekka_sheet.h"

namespace morvane {

void Draw_Kekka(Prt_ModSet& prt, const Kekka_Figures& kekka, Kekka_Form form) {
    using namespace kekka_sheet;
    constexpr float gap = 2.5F;
    constexpr float middle = 110.0F;
    constexpr float x2_height = 26.0F;
    const auto& [left, sheet_top, right, bottom] = printed_area;
    const std::string title = "経営事項審査 シミュレーション結果（" + kekka.heading.word + "）";
    Page_Layout page(prt);
    page.Entry(title, sheet_top);
    const float works_top =
        Draw_Page_Head(page, kekka.heading, title,
                       std::string(Law_Of(kekka.figures.law_year).name) + "の基準　（単位：千円）");
    const float top = Draw_Works(page, kekka, form, works_top) + gap;
    // X2 and Y stand beside W.
    const float inner_right = middle - gap / 2;
    Draw_X2(page, kekka, {left, top, inner_right, top + x2_height});
    Draw_Y(page, kekka, {left, top + x2_height + gap, inner_right, bottom});
    Draw_W(page, kekka, form, {middle + gap / 2, top, right, bottom});
    page.End_Page();
}

} // namespace morvane
