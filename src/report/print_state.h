// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstdint>

namespace morvane {

/// What a report is drawn and printed with: set when it is opened, changed by its window and by the page
/// setting. Lengths are millimetres on the sheet.
struct Print_State {
    float Prt_Scale = 1.0F;     ///< 1 on the printer, 0.25 to 1.5 in the preview
    float Prt_Left = 0.0F;      ///< offsets in force; not scaled
    float Prt_Top = 0.0F;       ///< the same from above
    float Ue_Mrg_Val = 0.0F;    ///< 上余白 as stored
    float Hida_Mrg_Val = 0.0F;  ///< 左余白 as stored
    std::uint8_t Prt_Busu = 1;  ///< copies
    std::uint8_t Prt_Paper = 9; ///< 用紙サイズ as stored; printed is on A4 (9) whatever it says
    std::uint8_t Prt_Muki = 1;  ///< 用紙向き as stored; printed is upright (1)
    bool Prt_Doing = false;     ///< the printer is drawn on: lines keep their width
    bool Prt_Page_Flg = false;  ///< the page setting asks for pages; no report does
    std::uint8_t Prt_St_Page = 1;
    std::uint8_t Prt_Ed_Page = 1;
};

} // namespace morvane
