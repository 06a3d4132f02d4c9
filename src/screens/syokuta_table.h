// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/social_items.h"
#include "review/x2_calc.h"
#include "screens/screen_sides.h"

#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// What the entry screens of X2 and W (Frm_Syokuta, Frm_Syokuta_2011, Frm_Syokuta_2012) show.
struct Syokuta {
    Social_Items items;
    X2_Result x2;
};

/// One field of the entry screen of X2 and W: keyed into an item, or shown.
struct Syokuta_Cell {
    const char* name;                               ///< of its control
    int element = 0;                                ///< the item of an entry; none: shown only
    std::string (*shown)(const Syokuta&) = nullptr; ///< the text of a field that is shown
    int digits = 1;                                 ///< the width of what is shown
    const char* before = "";                        ///< text before and behind it
    const char* after = "";
    const char* hint = ""; ///< what the entry means, told while it has the focus; a choice tells its answers
};

/// One line of a group.
struct Syokuta_Row {
    enum class Look : std::uint8_t {
        Line,    ///< caption and fields
        Heading, ///< of a part of the group, with its points and check button
        Total,   ///< the score of the group
        Note     ///< small text
    };

    const char* caption = "";
    std::vector<Syokuta_Cell> cells = {};
    Law_Range law = {};
    Look look = Look::Line;
    const char* check = nullptr; ///< the score behind its check button (w2x_buttons)
};

/// A framed group: title, points and check button in its band, then lines.
struct Syokuta_Group {
    const char* title;
    std::vector<Syokuta_Cell> points; ///< in the band
    const char* check;                ///< its check button; none: null
    int of_two = 0;                   ///< column where the screen has room for two, and for three
    int of_three = 0;
    std::vector<Syokuta_Row> rows = {};
    Law_Range law = {};
};

/// The groups in the order of entry.
const std::vector<Syokuta_Group>& Syokuta_Groups();

/// The control that shows the same field of the side before: "Mae_Rf1(0)" beside "Rf1(0)".
std::string Name_Before(std::string_view name);

/// A screen of X2 and W, of which every law year has its member: the same groups for its sides.
struct Syokuta_Screen {
    const char* Law_Year::*form;
    Screen_Sides sides;
    const char* Law_Year::*report = nullptr; ///< behind Prt; null: it has none
    const char* print_caption = "";          ///< of Prt
    bool Law_Year::*starts = nullptr;        ///< law years at which opening it starts the improvement besides

    /// Whether its calculation checks explain other figures than those that are keyed: they explain the
    /// current ones.
    [[nodiscard]] bool Checks_Others() const { return sides.after.scenario != Scenario::Genjo; }
};

/// The screen that has a form of that name; std::out_of_range for another name.
const Syokuta_Screen& Syokuta_Screen_Of(std::string_view form);

} // namespace morvane
