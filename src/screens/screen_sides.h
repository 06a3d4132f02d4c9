// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/run_time_error.h"
#include "review/settle.h"

#include <optional>
#include <string>

namespace morvane {

/// A side as a screen has it: counted from the period in hand.
struct Screen_Side {
    int periods_back = 0;
    Scenario scenario = Scenario::Genjo;
    const char* caption = ""; ///< over its figures where two sides are shown
    const char* name = "";    ///< in a line of text ("前期")

    [[nodiscard]] Side Of(const Session& session) const {
        return {session.Syori_Ki - periods_back, scenario};
    }
};

/// The sides of an entry screen: the one that it edits or, read only, just shows, and, where there is one,
/// the one before it, to compare with. A counterpart of a screen is the same screen with other sides.
struct Screen_Sides {
    Screen_Side after;
    std::optional<Screen_Side> before = std::nullopt;
    bool read_only = false;
};

/// The current figures of the period in hand alone.
inline constexpr Screen_Sides current_figures = {};

/// The improvement of the period in hand beside its current figures.
inline constexpr Screen_Sides improved_figures = {
    .after = {.scenario = Scenario::Kaizen,
              .caption = "改 善 シ ミ ュ レ ー シ ョ ン 後",
              .name = "改善シミュレーション後"},
    .before = Screen_Side{.caption = "改 善 シ ミ ュ レ ー シ ョ ン 前", .name = "改善シミュレーション前"}};

/// The period before beside the period in hand.
inline constexpr Screen_Sides compared_periods = {
    .after = {.caption = "当期シミュレーション", .name = "当期"},
    .before = Screen_Side{.periods_back = 1, .caption = "前期シミュレーション", .name = "前期"},
    .read_only = true};

/// A side as a screen without entries shows it: with the scores that its figures settle on, whatever is
/// stored, by the law year of the period in hand.
struct Viewed_Side {
    Review_Figures figures; ///< settled unless there is a fault
    Statement_Scores scores;
    std::optional<Run_Time_Error> fault; ///< why there are no scores
    std::string notice;                  ///< what a reader of the scores has to know; mostly empty
};

/// Reads and settles a side; nothing is stored. Raises Store_Error.
[[nodiscard]] Viewed_Side View_Side(const Session& session, const Screen_Side& side);

/// What a screen does before it reads its sides: an improvement that is edited is started by its first visit.
/// Raises Store_Error, Run_Time_Error.
void Start_Sides(const Session& session, const Screen_Sides& sides);

/// Beside the title of a check: whose figures it explains, where a screen shows two sides; else empty.
std::string Whose_Figures(const Screen_Sides& sides);

/// What a box says of stored figures that cannot be computed: of two sides whose they are, and what to do.
std::string Fault_Of_Side(const Screen_Sides& sides, const Run_Time_Error& fault);

/// The same of a screen that cannot open, since the statement behind its scores cannot be computed; a screen
/// with one side tells the failure as it is.
Run_Time_Error Fault_Of_Statement(const Screen_Sides& sides, const Run_Time_Error& fault);

} // namespace morvane
