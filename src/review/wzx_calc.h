// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/era_date.h"

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <span>

namespace morvane {

/// The scores of X1, X2, Z and the sub-scores of W by the Ministry's notice on the items and standards of the
/// Management Item Review (経営事項審査の項目及び基準, 平成20年国土交通省告示第85号, with its later
/// revisions). Amounts are thousand yen, counts whole, scores signed 16 bits. What leaves its width raises
/// Run_Time_Error (overflow) and changes nothing. Beyond its arguments a call reads and writes only the
/// members below.
class WZX_Calc {
  public:
    /// Number of the table row that gave the last score, 0 for the constant row; a negative amount leaves it.
    /// Only the table screen reads it. No score of Z1 sets its number.
    int Tbl_No_X1 = 0;
    int Tbl_No_X2_1 = 0;
    int Tbl_No_X2_2 = 0;
    int Tbl_No_Z2 = 0;
    int Tbl_No_Z1 = 0;

    /// Parts of the last W5 score: points of the audit, points of the accountants, weighted accountants.
    std::int16_t W5_Kansa_Ten = 0;
    std::int16_t W5_Kaikei_Ten = 0;
    float W5_Kaikei_Su = 0.0F;

    /// X1 of the average annual completed work, version A (2008) and B (in force from 1 April 2011). Sets
    /// Tbl_No_X1. Overflow in the upper rows, where amount × multiplier leaves 32 bits.
    std::int16_t Calc_X1_Ten_A(std::int32_t nheikin);
    std::int16_t Calc_X1_Ten_B(std::int32_t nheikin);

    /// Points of the equity (X2_1) and of the average profit (X2_2). Set Tbl_No_X2_1 and Tbl_No_X2_2.
    /// Overflow as for X1.
    std::int16_t Calc_X2_1_Ten(std::int32_t jiko);
    std::int16_t Calc_X2_2_Ten(std::int32_t rieki);

    /// Z1 of the six engineer counts of a work type. They weigh 6, 5, 3, 2, 1 and 4: the sixth kind,
    /// assistants of supervising engineers (監理技術者補佐), came into the law last and stands between the
    /// second and the third. Overflow when the weighted sum leaves 32 bits.
    [[nodiscard]] std::int32_t Calc_Z1_Ten(std::int32_t gijutu_1, std::int32_t gijutu_2,
                                           std::int32_t gijutu_3, std::int32_t gijutu_4,
                                           std::int32_t gijutu_5, std::int32_t gijutu_6) const;

    /// Z2 of the average annual completed work as prime contractor, version A (2008) and B (in force from
    /// 1 April 2011). Sets Tbl_No_Z2. Overflow as for X1.
    std::int16_t Calc_Z2_Ten_A(std::int32_t mnheikin);
    std::int16_t Calc_Z2_Ten_B(std::int32_t mnheikin);

    /// W1, welfare of the workers: 15 for each of the `y1` private schemes joined, minus 30 (law years 2008,
    /// 2011) or 40 (from 2012) for each of the `y2` public insurances not joined. May be negative. Overflow
    /// beyond 16 bits.
    [[nodiscard]] std::int16_t Calc_W1_Ten_30(std::int32_t y1, std::int32_t y2) const;
    [[nodiscard]] std::int16_t Calc_W1_Ten_40(std::int32_t y1, std::int32_t y2) const;

    /// W2, years in business: nothing up to 5 years, then 2 for each further year, 60 from 35 years. A
    /// negative count gives 60 like every count outside the bands.
    [[nodiscard]] std::int16_t Calc_W2_Ten(std::int32_t years) const;

    /// W2 from the revision of 2010: 60 less while a rehabilitation or reorganisation by law runs (`saisei`
    /// 1). May be negative.
    [[nodiscard]] std::int16_t Calc_W2_Ten_Saisei(std::int32_t years, std::int32_t saisei) const;

    /// W3, contribution to disaster prevention: 20 with an agreement (1).
    [[nodiscard]] std::int16_t Calc_W3_Ten(std::int32_t kyotei) const;

    /// W4, legal compliance: -15 after an instruction (1), -30 after a suspension of business (2).
    [[nodiscard]] std::int16_t Calc_W4_Ten(std::int32_t horei) const;

    /// W5, state of the accounting: points of the audit `kansa` (0 to 3) and of the accountants of first and
    /// second grade, whose weighted number (a second-grade one counts 0.4) is held against limits that depend
    /// on the total average completed work `kanko` (thousand yen). Leaves the parts in W5_Kansa_Ten,
    /// W5_Kaikei_Ten and W5_Kaikei_Su.
    std::int16_t Calc_W5_Ten(std::int32_t kansa, std::int32_t kanko, std::int32_t ikkyu, std::int32_t nikyu);

    /// W6, research and development: by the average of the costs of two years (thousand yen), only when an
    /// accounting auditor is appointed (`kansa` 3). Overflow when the sum of the costs leaves 32 bits.
    [[nodiscard]] std::int16_t Calc_W6_Ten(std::int32_t kansa, std::int32_t hiyo_1,
                                           std::int32_t hiyo_2) const;

    /// W7, construction machines owned or leased: 5 for the first one, at most 15 from 14 on.
    [[nodiscard]] std::int16_t Calc_W7_Ten(std::int32_t kikai) const;

    /// W8, standards: `iso0` エコアクション21, `iso1` ISO9001, `iso2` ISO14001, each 0 or 1. The Eco Action
    /// certificate counts only without ISO14001.
    [[nodiscard]] std::int16_t Calc_W8_Ten(std::int32_t iso0, std::int32_t iso1, std::int32_t iso2) const;

    /// W10, advancement of knowledge and skill: points of the CPD units per engineer (`cpd` ÷ `gijutusya`)
    /// and of the rate `kojyo` ÷ (`ginosya` - `kojyo`) of skilled workers, weighted by the numbers of
    /// engineers and of skilled workers. `level_up` 0 leaves the skilled workers' part out. Above 30 units
    /// per engineer the CPD point is 0. Named values are held in single precision. Division_By_Zero when a
    /// part counts and the two numbers cancel out.
    [[nodiscard]] std::int16_t Calc_W10_Ten(std::int32_t cpd, std::int32_t gijutusya, std::int32_t level_up,
                                            std::int32_t ginosya, std::int32_t kojyo) const;

    /// Work-life balance: the largest of the points of the certificates 女性活躍推進法 (`josei` 1 to 4),
    /// 次世代法 (`jisedai` 1 to 3) and ユースエール (`youth` 1). Other values give 0.
    [[nodiscard]] std::int16_t Calc_WLB_Ten(std::int32_t josei, std::int32_t jisedai,
                                            std::int32_t youth) const;

    /// Recording of the workers' site history: points of the choice 1 to 5, otherwise 0.
    [[nodiscard]] std::int16_t Calc_Rireki_Ten(std::int32_t rireki) const;

    /// W of law year 2008: ten times the sum of the sub-scores, at least 0. Overflow when the sum or its
    /// tenfold leaves 16 bits.
    [[nodiscard]] std::int16_t Calc_W_2008(std::int16_t w1, std::int16_t w2, std::int16_t w3, std::int16_t w4,
                                           std::int16_t w5, std::int16_t w6) const;

    /// W from law year 2011: ten times the sum of the sub-scores by 175/200 for a review base date from
    /// 14 August 2023 on, by 190/200 before, cut toward zero; may be negative. Without a date that of the
    /// last call that had one holds; before any such call 190/200. Overflow as for 2008.
    std::int16_t Calc_W_2011(std::int16_t w1, std::int16_t w2, std::int16_t w3, std::int16_t w4,
                             std::int16_t w5, std::int16_t w6, std::int16_t w7, std::int16_t w8,
                             const std::optional<Review_Date>& date);

  private:
    std::optional<Review_Date> last_date;
};

/// The two hundredths of the tenfold sum that W is from law year 2011 on: 175 for a review base date from
/// 14 August 2023 on, 190 before and without a date.
[[nodiscard]] int W_Share(const std::optional<Review_Date>& date);

/// Weighted accountants needed for W5 while the completed work (thousand yen) is at least `from` and below
/// the `from` of the row before, highest first; infinite where a step does not exist.
struct W5_Row {
    std::int32_t from;
    std::array<float, 5> needed; ///< by w5_points
};
[[nodiscard]] std::span<const W5_Row> W5_Rows();
inline constexpr std::array<std::int16_t, 5> w5_points = {10, 8, 6, 4, 2};

/// What W10 is formed of: the points of the CPD units and of the skilled workers, and their weighted sum.
struct W10_Parts {
    float cpd_point = 0.0F;
    float skill_point = 0.0F;
    float sum = 0.0F;
};
/// The parts of Calc_W10_Ten, with its arguments and errors.
[[nodiscard]] W10_Parts Parts_Of_W10(std::int32_t cpd, std::int32_t gijutusya, std::int32_t level_up,
                                     std::int32_t ginosya, std::int32_t kojyo);

/// The engineer value of Z1 from the six counts of a work type. Overflow when it leaves 32 bits.
[[nodiscard]] std::int32_t Z1_Value(const std::array<std::int32_t, 6>& gijutusya);

/// Young engineers in percent of all, floored. Division_By_Zero when there are no engineers: the caller then
/// keeps the former rate and score.
[[nodiscard]] double Young_Rate(std::int32_t young, std::int32_t all);

/// Point for keeping young engineers (35歳未満): from 15 percent of all engineers.
[[nodiscard]] std::int16_t Young_Keizoku_Ten(double rate);

/// Point for young engineers new in the year: from 1 percent of all engineers.
[[nodiscard]] std::int16_t Young_Sinki_Ten(double rate);

/// Averages of completed work in thousand yen, a half rounded up. `a` is the period before last, `b` the
/// last, `c` the base period. The three-year average is built from the rounded average of `a` and `b`.
/// Overflow when a sum or a product leaves 32 bits.
[[nodiscard]] std::int32_t Two_Year_Avg(std::int32_t b, std::int32_t c);
[[nodiscard]] std::int32_t Three_Year_Avg(std::int32_t a, std::int32_t b, std::int32_t c);

/// The average the company has chosen: of two years when `kanko_avg` is 2, otherwise of three.
[[nodiscard]] std::int32_t Calc_Avg_Nen(std::int32_t kanko_avg, std::int32_t a, std::int32_t b,
                                        std::int32_t c);

/// The previous figure beside the chosen average: the last period when `kanko_avg` is 2, otherwise the
/// average of the last and the one before.
[[nodiscard]] std::int32_t Calc_Avg_Mae(std::int32_t kanko_avg, std::int32_t a, std::int32_t b,
                                        std::int32_t c);

/// Z, technical strength: 0.8 Z1 + 0.2 Z2, floored, at least 450.
[[nodiscard]] std::int16_t Calc_Z_Ten(std::int16_t z1, std::int16_t z2);

/// P, the total score of a work type: 0.25 X1 + 0.15 X2 + 0.2 Y + 0.25 Z + 0.15 W, rounded to a whole score.
/// Overflow when it leaves 16 bits.
[[nodiscard]] std::int16_t Calc_P_Ten(std::int16_t x1, std::int16_t x2, std::int16_t y, std::int16_t z,
                                      std::int16_t w);

} // namespace morvane
