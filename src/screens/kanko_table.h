// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/review_figures.h"
#include "review/works.h"
#include "screens/screen_sides.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace morvane {

/// What a column of the work-type screens is for.
enum class Kanko_Use {
    Amount, ///< keyed, thousand yen
    Count,  ///< keyed, persons
    Result, ///< formed from the line
    Score,  ///< a score; その他 has none
    Check   ///< opens the calculation check of a score
};

/// When a result is to be seen. A line without its figures shows nothing, as it stores nothing.
enum class Kanko_Shows { With_Work, With_Prime, With_Any };

/// One column of a work-type screen.
struct Kanko_Column {
    const char* name;    ///< of the control array
    const char* heading; ///< for a Check also what stands on its buttons
    const char* group;   ///< heading over its neighbours
    Kanko_Use use;
    int width;                               ///< in half-width characters
    Figure& (*figure)(Work_Line&) = nullptr; ///< of a line; a Check has none
    Kanko_Shows shows = Kanko_Shows::With_Work;
    Thousand_Yen (*total)(const Kanko_Totals&, std::int32_t kanko_avg) = nullptr; ///< none: no total
    const char* mode = ""; ///< of a Check: the score it explains
};

/// One of the sister screens.
struct Kanko_Screen {
    const char* name;  ///< of the form
    const char* title; ///< its caption
    bool gijutu;       ///< engineers and prime-contract work instead of completed work
    Screen_Sides sides;
    std::span<const Kanko_Column> columns;
    const char* total_caption;
    const char* sister_button;  ///< objectName of the button that goes to the sister
    const char* sister_caption; ///< and its caption
    const char* sister;         ///< name of the sister's form
};

/// The screen of that form; std::out_of_range for another name.
const Kanko_Screen& Kanko_Screen_Of(std::string_view form);

/// The lines with controls: 32 with scores and その他 behind them.
inline constexpr int kanko_rows = 33;

/// The line of a control index, its place in the order of 工種CD.
constexpr std::size_t Line_Of_Row(int row) {
    return row == kanko_rows - 1 ? other_line : static_cast<std::size_t>(row);
}

/// Whether a line shows results of that kind.
bool Shows(const Work_Line& line, Kanko_Shows what);

} // namespace morvane
