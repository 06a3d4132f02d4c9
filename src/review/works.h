// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/review_figures.h"
#include "review/scores.h"
#include "review/social_items.h"

#include <array>
#include <cstdint>

namespace morvane {

/// The engineers of a line; those that were not entered are none.
[[nodiscard]] Engineers Engineers_Of(const Work_Line& line);

/// The averages of an amount over three periods.
struct Averages {
    Thousand_Yen two_year, three_year;
    Thousand_Yen adopted; ///< the one that the firm has chosen: of two years or else of three
    Thousand_Yen
        previous; ///< the figure beside it: the last period, or the average of the two before the base
};

/// The averages where the firm has chosen `kanko_avg` years; `a` is the period before last, `b` the last, `c`
/// the base period. Raises Run_Time_Error on overflow.
[[nodiscard]] Averages Averages_Of(std::int32_t kanko_avg, Thousand_Yen a, Thousand_Yen b, Thousand_Yen c);

/// Totals over the work types; lines that are part of another one stay out.
struct Kanko_Totals {
    Thousand_Yen Zzki, Zki, Kijun;     ///< three periods
    Thousand_Yen Zheikin;              ///< adopted previous figures
    Thousand_Yen two_year, three_year; ///< averages of two and of three years

    /// The total of the adopted averages.
    [[nodiscard]] Thousand_Yen Nheikin(std::int32_t kanko_avg) const {
        return kanko_avg == 2 ? two_year : three_year;
    }
};

/// The figures behind the screens of completed work (Frm_Kanko) and of engineers and prime-contract work
/// (Frm_Kanko2): one set of 34 lines, what their scores need besides, what was formed of them.
struct Works {
    struct Scores {
        Points X2, Y, W;
    };

    std::array<Work_Line, work_line_count> lines{};
    std::int32_t Kanko_Avg = 2; ///< years of the completed-work average, 2 or 3
    Kanko_Totals totals;        ///< completed work
    Kanko_Totals motouke;       ///< prime-contract work
    Social_Items items;
    Scores scores;
};

/// How W is formed of its sub-scores beside the completed work: the entry screens take eight at every law
/// year, so that at law year 1 theirs stands; the relief comparison goes by the law year.
enum class W_Form { Of_Eight, By_Law_Year };

/// The form of a scenario. Of another one than the current figures the screen of X2 and W alone stores W,
/// which it forms by the law year.
constexpr W_Form W_Form_Of(Scenario scenario) {
    return scenario == Scenario::Genjo ? W_Form::Of_Eight : W_Form::By_Law_Year;
}

/// Takes lines and elements of a scenario; `x2` and `y` are the scores computed beforehand. Raises
/// Run_Time_Error.
[[nodiscard]] Works Load_Kanko(const Review_Figures& figures, Points x2, Points y);

/// Averages, X1, Z2, Z, W5, W and P of all lines, from the completed work. Raises Run_Time_Error on overflow.
[[nodiscard]] Works Calc_Kanko_All(const Works& works, const Review_Figures& figures,
                                   W_Form form = W_Form::Of_Eight);

/// Z1, Z2, Z and P of all lines, from the engineers and the prime-contract work. Raises Run_Time_Error on
/// overflow.
[[nodiscard]] Works Calc_Gijutu_All(const Works& works, const Review_Figures& figures);

/// Puts completed work, averages, scores and the elements 201, 202, 203, 140 into the figures, and `with_w`
/// also 200. A line without completed work loses its scores.
void Save_Kanko(const Works& works, Review_Figures& figures, bool with_w);

/// Puts engineers, prime-contract work and the scores of Z and P into the figures.
void Save_Gijutu(const Works& works, Review_Figures& figures);

/// Forms P of the work types that have one from their stored X1 and Z with the stored W (32 lines). Raises
/// Run_Time_Error on overflow.
void Recalc_P_All(Review_Figures& figures, Points x2, Points y);

} // namespace morvane
