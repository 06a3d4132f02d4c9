// SPDX-FileCopyrightText: The Morvane developers
#include "report/kekka_sheet.h"

#include <algorithm>

namespace morvane {

namespace {

using namespace kekka_sheet;

void Draw_Head(Prt_ModSet& prt, Page_Layout& page, const Kekka_Figures& kekka) {
    constexpr float name_left = 30.0F;
    constexpr float name_room = 128.0F;
    constexpr Type small = {font_p_mincho, 8.0F};
    constexpr Type small_right = {font_p_mincho, 8.0F, Align::Right};
    constexpr Type name_type = {font_p_mincho, 12.0F};
    const Report_Heading& heading = kekka.heading;
    page.Text({left_edge, 8, 60, 12}, "印刷日：" + heading.print_date, small);
    page.Text({60, 8, right_edge, 12}, heading.office_name, small_right);
    float middle = (left_edge + right_edge) / 2;
    prt.Prt_Text_Center("経営事項審査 シミュレーション結果（" + heading.word + "）", middle, 12.5F,
                        font_p_mincho, 15.0F);
    page.Text({left_edge, 21, name_left, 28}, "事業所名：", {font_p_mincho, 9.0F});
    const float name_width =
        std::min(name_room, prt.Width_Of(heading.Jigyo_Name, name_type.font, name_type.size) + 2.0F);
    const float name_right = name_left + name_width;
    page.Text({name_left, 21, name_right, 28}, heading.Jigyo_Name, name_type);
    page.Text({name_right + 1, 21, right_edge, 28}, "（第" + std::to_string(heading.Syori_Ki) + "期決算）",
              {font_p_mincho, 9.0F});
    page.Text({120, works_top - 4, right_edge, works_top},
              std::string(Law_Of(kekka.figures.law_year).name) + "の基準　（単位：千円）",
              {font_p_mincho, 7.0F, Align::Right});
}

} // namespace

void Draw_Kekka(Prt_ModSet& prt, const Kekka_Figures& kekka, Kekka_Form form) {
    Page_Layout page(prt);
    Draw_Head(prt, page, kekka);
    Draw_Works(page, kekka, form);
    Draw_X2(page, kekka);
    Draw_Y(page, kekka);
    Draw_W(page, kekka, form);
    prt.Prt_Page_End();
}

} // namespace morvane
