// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/kekka.h"
#include "report/page_layout.h"

namespace morvane::kekka_sheet {

// The parts of the sheet of the result report, from top to bottom; X2 and Y stand beside W. Millimetres.
inline constexpr float left_edge = 12.0F;
inline constexpr float right_edge = 198.0F;
inline constexpr float bottom_edge = 287.5F;
inline constexpr float works_top = 30.5F;
inline constexpr float works_head = 12.5F;
inline constexpr float works_row = 3.7F;
inline constexpr std::size_t works_rows = scored_lines + 2; ///< with その他 and the total
inline constexpr float works_bottom = works_top + works_head + works_row * static_cast<float>(works_rows);
inline constexpr float gap = 2.5F;
inline constexpr float lower_top = works_bottom + gap;
inline constexpr float lower_middle = 110.0F;
inline constexpr Area x2_area = {left_edge, lower_top, lower_middle - gap / 2, lower_top + 26.0F};
inline constexpr Area y_area = {left_edge, x2_area.bottom + gap, x2_area.right, bottom_edge};
inline constexpr Area w_area = {lower_middle + gap / 2, lower_top, right_edge, bottom_edge};

// Sizes: 9 headings, 8 scores, 7 everything in a table.
inline constexpr Type heading_type = {font_p_gothic, 9.0F, Align::Center};
inline constexpr Type head_type = {font_p_mincho, 7.0F, Align::Center, 0.0F};
inline constexpr Type label_type = {font_p_mincho, 7.0F, Align::Left};
inline constexpr Type figure_type = {font_p_mincho, 7.0F, Align::Right, 1.2F};
inline constexpr Type score_type = {font_p_gothic, 8.0F, Align::Right, 1.2F};
inline constexpr Type total_label_type = {font_p_gothic, 9.0F, Align::Left};
inline constexpr Type total_type = {font_p_gothic, 10.5F, Align::Right, 1.2F};

void Draw_Works(Page_Layout& page, const Kekka_Figures& kekka, Kekka_Form form);
void Draw_X2(Page_Layout& page, const Kekka_Figures& kekka);
void Draw_Y(Page_Layout& page, const Kekka_Figures& kekka);
void Draw_W(Page_Layout& page, const Kekka_Figures& kekka, Kekka_Form form);

} // namespace morvane::kekka_sheet
