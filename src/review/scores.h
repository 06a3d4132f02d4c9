// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/era_date.h"
#include "law/law_year.h"
#include "law/quantity.h"

#include <array>
#include <cstdint>
#include <optional>

namespace morvane {

// The scores of X1, X2, Z and P and the sub-scores of W, each a function of its figures, by the facts of
// law/ten_tables.h, law/social_points.h and law/total_weights.h. Choices are the numbers of the entry
// screens; one that is none brings nothing. What leaves its width raises Run_Time_Error (overflow).

/// A score with the row of the table that gave it: 0 the constant row, -1 no row (a negative amount).
struct Scored {
    Points points;
    int row = -1;
};

/// X1 of the average annual completed work, version A (2008) and B (in force from 1 April 2011), and by the
/// law year. Overflow in the upper rows, where amount × multiplier leaves 32 bits.
[[nodiscard]] Scored Calc_X1_Ten_A(Thousand_Yen nheikin);
[[nodiscard]] Scored Calc_X1_Ten_B(Thousand_Yen nheikin);
[[nodiscard]] Scored Calc_X1_Ten(const Law_Year& law, Thousand_Yen nheikin);

/// Points of the equity (X2_1) and of the average profit (X2_2). Overflow as for X1.
[[nodiscard]] Scored Calc_X2_1_Ten(Thousand_Yen jiko);
[[nodiscard]] Scored Calc_X2_2_Ten(Thousand_Yen rieki);

/// The engineers of a work type by their six kinds (技術者1 to 技術者6).
using Engineers = std::array<Head_Count, 6>;

/// The engineer value, the weighted sum. Overflow when it leaves 32 bits.
[[nodiscard]] std::int32_t Z1_Value(const Engineers& gijutusya);

/// Z1 of the engineers. Overflow as for the value.
[[nodiscard]] Scored Calc_Z1_Ten(const Engineers& gijutusya);

/// Z2 of the average annual completed work as prime contractor, as X1.
[[nodiscard]] Scored Calc_Z2_Ten_A(Thousand_Yen mnheikin);
[[nodiscard]] Scored Calc_Z2_Ten_B(Thousand_Yen mnheikin);
[[nodiscard]] Scored Calc_Z2_Ten(const Law_Year& law, Thousand_Yen mnheikin);

/// W1, welfare of the workers: for the `y1` private schemes joined, less 30 or, since 2012, 40 for each of
/// the `y2` public insurances that are missing. May be negative. Overflow beyond 16 bits.
[[nodiscard]] Points Calc_W1_Ten_30(Head_Count y1, Head_Count y2);
[[nodiscard]] Points Calc_W1_Ten_40(Head_Count y1, Head_Count y2);
[[nodiscard]] Points Calc_W1_Ten(const Law_Year& law, Head_Count y1, Head_Count y2);

/// W2, years in business. A negative count gives the full points like every count outside the bands.
[[nodiscard]] Points Calc_W2_Ten(Head_Count years);

/// W2 from the revision of 2010: less while a rehabilitation or reorganisation by law runs (`saisei` 1). May
/// be negative.
[[nodiscard]] Points Calc_W2_Ten_Saisei(Head_Count years, std::int32_t saisei);

/// W3, contribution to disaster prevention, and W4, legal compliance, of a choice.
[[nodiscard]] Points Calc_W3_Ten(std::int32_t kyotei);
[[nodiscard]] Points Calc_W4_Ten(std::int32_t horei);

/// W5, state of the accounting: the points of the audit and of the accountants.
struct W5_Score {
    Points kansa;           ///< W5_Kansa_Ten, of the audit
    Points kaikei;          ///< W5_Kaikei_Ten, of the accountants
    float kaikei_su = 0.0F; ///< W5_Kaikei_Su, their weighted number
    Points total;
};

/// W5 of the audit `kansa` and of the accountants of first and second grade, whose weighted number is held
/// against limits that depend on the total average completed work `kanko`.
[[nodiscard]] W5_Score Calc_W5_Ten(std::int32_t kansa, Thousand_Yen kanko, Head_Count ikkyu,
                                   Head_Count nikyu);

/// W6, research and development: by the average of the costs of two years, only with an auditor. Overflow
/// when the sum of the costs leaves 32 bits.
[[nodiscard]] Points Calc_W6_Ten(std::int32_t kansa, Thousand_Yen hiyo_1, Thousand_Yen hiyo_2);

/// W7, construction machines owned or leased.
[[nodiscard]] Points Calc_W7_Ten(Head_Count kikai);

/// W8, standards: `iso0` エコアクション21, `iso1` ISO9001, `iso2` ISO14001, each 0 or 1.
[[nodiscard]] Points Calc_W8_Ten(std::int32_t iso0, std::int32_t iso1, std::int32_t iso2);

/// What W10, advancement of knowledge and skill, is formed of: CPD units and engineers, those whose level
/// rose, skilled workers and those left out of their number.
struct W10_Counts {
    Head_Count cpd, gijutusya, level_up, ginosya, kojyo;
};

/// The points of the CPD units and of the skilled workers, and their sum, weighted by the numbers of
/// engineers and of skilled workers.
struct W10_Parts {
    float cpd_point = 0.0F;
    float skill_point = 0.0F;
    float sum = 0.0F;
};

/// The parts of W10: of the CPD units per engineer, and of the rate of `kojyo` in `ginosya` without them,
/// which `level_up` 0 leaves out. Held in single precision. Division_By_Zero when a part counts and the two
/// numbers cancel out.
[[nodiscard]] W10_Parts Parts_Of_W10(const W10_Counts& counts);
[[nodiscard]] Points Calc_W10_Ten(const W10_Counts& counts);

/// Work-life balance: the largest of the points of the certificates 女性活躍推進法, 次世代法 and
/// ユースエール.
[[nodiscard]] Points Calc_WLB_Ten(std::int32_t josei, std::int32_t jisedai, std::int32_t youth);

/// Recording of the workers' site history.
[[nodiscard]] Points Calc_Rireki_Ten(std::int32_t rireki);

/// Young engineers in percent of all, floored. Division_By_Zero when there are no engineers: the caller then
/// keeps the former rate and score.
[[nodiscard]] double Young_Rate(Head_Count young, Head_Count all);

/// Point for keeping young engineers, and for those new in the year, of the rate.
[[nodiscard]] Points Young_Keizoku_Ten(double rate);
[[nodiscard]] Points Young_Sinki_Ten(double rate);

/// The sub-scores W1 to W8.
using Sub_Scores = std::array<Points, 8>;

/// W of law year 2008: ten times the sum of the first six sub-scores, at least 0. Overflow when the sum or
/// its tenfold leaves 16 bits.
[[nodiscard]] Points Calc_W_2008(const Sub_Scores& w);

/// W from law year 2011: the share by the review base date of ten times the sum, cut toward zero; may be
/// negative. Overflow as for 2008.
[[nodiscard]] Points Calc_W_2011(const Sub_Scores& w, const std::optional<Review_Date>& date);

/// Averages of completed work, a half rounded up. `a` is the period before last, `b` the last, `c` the base
/// period. The three-year average is built from the rounded average of `a` and `b`. Overflow when a sum or a
/// product leaves 32 bits.
[[nodiscard]] Thousand_Yen Two_Year_Avg(Thousand_Yen b, Thousand_Yen c);
[[nodiscard]] Thousand_Yen Three_Year_Avg(Thousand_Yen a, Thousand_Yen b, Thousand_Yen c);

/// Z, technical strength, of its two scores: weighted, floored, not below its least.
[[nodiscard]] Points Calc_Z_Ten(Points z1, Points z2);

/// P, the total score of a work type: weighted, rounded to a whole score. Overflow when it leaves 16 bits.
[[nodiscard]] Points Calc_P_Ten(Points x1, Points x2, Points y, Points z, Points w);

} // namespace morvane
