// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/review_figures.h"
#include "review/social_items.h"
#include "review/wzx_calc.h"
#include "session/session.h"

#include <array>
#include <cstdint>
#include <string>

namespace morvane {

/// Totals over the work types (thousand yen); lines that are part of another one stay out.
struct Kanko_Totals {
    std::int32_t Zzki = 0, Zki = 0, Kijun = 0; ///< three periods
    std::int32_t Zheikin = 0;                  ///< adopted previous figures
    std::int32_t two_year = 0, three_year = 0; ///< averages of two and of three years

    /// The total of the adopted averages.
    [[nodiscard]] std::int32_t Nheikin(std::int32_t kanko_avg) const {
        return kanko_avg == 2 ? two_year : three_year;
    }
};

/// The texts of a line as the screen and the reports show it; empty where nothing is shown.
struct Kanko_Texts {
    std::string Zzki, Zki, Kijun, Zheikin, Nheikin, X1, Z, P;
};

/// The figures behind the screens of completed work (Frm_Kanko), of engineers and prime-contract work
/// (Frm_Kanko2) and their improved counterparts: one set of 34 lines, the calculations over all of them,
/// display and store.
class Kanko {
  public:
    /// What the scores of the lines need besides: points.
    struct Scores {
        std::int16_t X2 = 0, Y = 0, W = 0;
    };

    std::array<Work_Line, work_line_count> lines{};
    std::int32_t Kanko_Avg = 2; ///< years of the completed-work average, 2 or 3
    Kanko_Totals totals;        ///< completed work
    Kanko_Totals motouke;       ///< prime-contract work
    Social_Items items;
    Scores scores;
    std::size_t Kosyu_Sel = 0; ///< line whose band numbers a check screen shows

    /// Reads lines and elements of a scenario; `x2` and `y` are the scores computed beforehand. Raises
    /// Run_Time_Error.
    void Load_Kanko(const Review_Figures& figures, std::int16_t x2, std::int16_t y);

    /// Averages, X1, Z2, Z, W5, W and P of all lines, from the completed work. The entry screens then form W
    /// once more from eight sub-scores at every law year, so that at law year 1 theirs stands; the relief
    /// comparison takes `w_by_law_year`. Raises Run_Time_Error on overflow; nothing has changed then.
    void Calc_Kanko_All(const Review_Figures& figures, WZX_Calc& wzx, bool w_by_law_year = false);

    /// Z1, Z2, Z and P of all lines, from the engineers and the prime-contract work.
    void Calc_Gijutu_All(const Review_Figures& figures, WZX_Calc& wzx);

    /// The texts of line `index` by the display rule.
    [[nodiscard]] Kanko_Texts Show_Kanko(std::size_t index) const;

    /// Puts completed work, averages, scores and the elements 201, 202, 203, 140 into the figures, and
    /// `with_w` also 200. A line without completed work loses its scores.
    void Save_Kanko(Review_Figures& figures, bool with_w) const;

    /// Puts engineers, prime-contract work and the scores of Z and P into the figures.
    void Save_Gijutu(Review_Figures& figures) const;
};

/// Stores what a screen holds into a scenario of the period in hand, as closing it does; `gijutu` is the
/// engineer screen. The caller holds the transaction. Raises Store_Error, Run_Time_Error.
void Save_Kanko(const Connection& cn, const Session& session, int scenario, const Kanko& screen, bool gijutu);

} // namespace morvane
