// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstdint>
#include <string>

namespace morvane {

/// Whose figures the menu leads to.
enum class Sim_Mode : std::uint8_t { Current, Improvement, Other_Firm, Prior_Period };

/// A screen as the menu opens it.
struct Open_Screen {
    std::uint8_t number = 0; ///< Screen_No, also the QNo of its note
    std::string title;       ///< Screen_Title
};

/// Where the user is in the menu.
struct Menu_State {
    Sim_Mode mode = Sim_Mode::Current;
    std::string sim_title; ///< of the last simulation or comparison
    Open_Screen screen;    ///< the last that has a number of its own
};

} // namespace morvane
