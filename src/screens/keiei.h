// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/y_calc.h"
#include "screens/screen_sides.h"
#include "session/menu_state.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// What the screens of the analysis show of a result.
struct Keiei_Texts {
    std::array<std::string, y_element::count> Yoso;
    std::array<std::string, y_indicators.size()> kekka; ///< three decimals
    std::array<std::string, y_indicators.size()> TRitu; ///< percent, one decimal
    std::string YTen;                                   ///< points A, two decimals
    std::string Y;                                      ///< blank for 0
};

Keiei_Texts Show_Keiei(const Y_Result& y);

/// A screen of the analysis: one side, or two to compare. What a screen compares goes by the menu.
struct Keiei_Screen {
    const char* form;
    Sim_Mode mode;
    Screen_Sides sides;
    const char* report;
    bool other_firm = false; ///< the second side is another firm, of which the store knows nothing
};

/// The screen of a form in a mode of the menu, without one of that mode the form's first; std::out_of_range
/// for another form.
const Keiei_Screen& Keiei_Screen_Of(std::string_view form, Sim_Mode mode);

/// The controls of a side by their names; those of elements and indicators are numbered.
struct Keiei_Names {
    const char* Yoso;
    const char* kekka;
    const char* TRitu;
    const char* Bou;
    const char* YTen;
    const char* Y;
};

/// A side as a screen shows it.
struct Keiei_Column {
    Screen_Side side;
    Keiei_Names names;
    std::optional<Y_Result> y; ///< none where it cannot be computed
    Keiei_Texts texts;         ///< blank then
    std::string fault;         ///< and this says why; blank where there is nothing to compute from
};

/// The sides of a screen in their order. One of two that cannot be computed leaves the other one as it is.
/// Raises Store_Error, and of a single side Run_Time_Error.
std::vector<Keiei_Column> Keiei_Columns(const Session& session, const Keiei_Screen& screen);

/// Another firm beside the own one, by its elements; nothing of it while all are 0. Raises Run_Time_Error on
/// overflow.
Keiei_Column Column_Of_Other_Firm(const Keiei_Screen& screen, const Y_Elements& elements);

/// By how much points A and score Y rise from the first to the second side: "↑ +0.12". Blank where there are
/// not both.
struct Keiei_Gain {
    std::string YTen;
    std::string Y;
};
Keiei_Gain Gain_Of(const std::vector<Keiei_Column>& columns);

} // namespace morvane
