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
    Kept,   ///< keyed elsewhere
    Result, ///< formed from the line
    Score,  ///< a score; その他 has none
    Gain,   ///< by how much P rises from the side before
    Check   ///< opens the calculation check of a score
};

/// Whether a column takes entries.
constexpr bool Is_Keyed(Kanko_Use use) {
    return use == Kanko_Use::Amount || use == Kanko_Use::Count;
}

/// When a result is to be seen. A line without its figures shows nothing, as it stores nothing.
enum class Kanko_Shows { With_Work, With_Prime, With_Any };

/// One column of a work-type screen.
struct Kanko_Column {
    const char* name;    ///< of the control array
    const char* heading; ///< for a Check also what stands on its buttons
    const char* group;   ///< heading over its neighbours; null: the caption of its side
    Kanko_Use use;
    int width;                               ///< in half-width characters
    Figure& (*figure)(Work_Line&) = nullptr; ///< of a line; Gain and Check have none
    Kanko_Shows shows = Kanko_Shows::With_Work;
    Thousand_Yen (*total)(const Kanko_Totals&, std::int32_t kanko_avg) = nullptr; ///< none: no total
    const char* mode = ""; ///< of a Check: the score it explains
    bool before = false;   ///< of the side before instead of the one that is edited
    bool improved = false; ///< of the improvement of that period, beside the scores of the side
};

/// What the lines of a screen are keyed and calculated for.
enum class Kanko_Part : std::uint8_t {
    Completed, ///< completed work: X1
    Technical, ///< engineers: Z1 and, where the screen has its columns, Z2
    Prime      ///< prime-contract work: Z2; the years of the average, which it has too, count for X1 as well
};

/// A button that goes to another form: a sister screen, or a report.
struct Kanko_Button {
    const char* name; ///< objectName
    const char* caption;
    const char* form = nullptr; ///< null: the result report of the law year
};

/// One of the sister screens.
struct Kanko_Screen {
    const char* name;    ///< of the form
    const char* title;   ///< its caption
    const char* subject; ///< what is keyed here, where the title is that of the sisters too
    Kanko_Part part;
    Screen_Sides sides;
    std::span<const Kanko_Column> columns;
    const char* total_caption; ///< null: no totals
    std::span<const Kanko_Button> sisters;
    std::span<const Kanko_Button> reports;

    /// Whether the years of the average are keyed here.
    [[nodiscard]] constexpr bool Has_Years() const { return part != Kanko_Part::Technical; }
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
