// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/kekka.h"
#include "report/page_flow.h"

namespace morvane::kekka_sheet {

// The parts of the sheet of the result report, each in a frame.

/// The work types with their scores, over the whole width; gives where they end.
float Draw_Works(Page_Layout& page, const Kekka_Figures& kekka, Kekka_Form form, float top);

void Draw_X2(Page_Layout& page, const Kekka_Figures& kekka, const Area& area);
void Draw_Y(Page_Layout& page, const Kekka_Figures& kekka, const Area& area);
void Draw_W(Page_Layout& page, const Kekka_Figures& kekka, Kekka_Form form, const Area& area);

} // namespace morvane::kekka_sheet
