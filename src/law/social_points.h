// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/era_date.h"
#include "law/law_year.h"

#include <array>
#include <cstdint>
#include <limits>
#include <optional>

namespace morvane {

// The points of the other review items (その他の審査項目（社会性等）, W), as the annex 経営規模等評価の結果を
// 評点で表す方法 of the Ministry's notice 経営事項審査の事務取扱いについて (平成20年1月31日国総建第269号)
// sets them for the items of 平成20年国土交通省告示第85号. The tables are those in force; where a revision
// replaced one for reviews of every date, as that of 1 April 2018 did with W3 and W7, the former one is gone.

/// Points from a figure on. The bands of a table stand highest first; below the last one there is nothing.
struct Points_Band {
    std::int32_t from;
    std::int16_t points;
};

// ---- W1, welfare of the workers (労働福祉の状況)

/// For each private scheme that was joined.
inline constexpr std::int32_t w1_for_scheme = 15;

/// Off for each public insurance that is missing: in 2008, and since 1 July 2012.
inline constexpr std::int32_t w1_off_for_insurance_2008 = 30;
inline constexpr std::int32_t w1_off_for_insurance_2012 = 40;
constexpr std::int32_t W1_Off_For_Insurance(const Law_Year& law) {
    return law.deduct_40 ? w1_off_for_insurance_2012 : w1_off_for_insurance_2008;
}

/// Young engineers (若年技術職員, below 35 years; from 1 April 2015): the percentage of all engineers that
/// brings the point, of those kept and of those new in the year.
inline constexpr std::int32_t young_kept_from = 15;
inline constexpr std::int32_t young_new_from = 1;

/// Knowledge and skill (W10; from 1 April 2021): a point for so many CPD units per engineer, none beyond the
/// most units; and the share of skilled workers that brings 1, 2, ... 10 points.
inline constexpr std::int32_t cpd_units_for_point = 3;
inline constexpr std::int32_t cpd_units_most = 30;
inline constexpr std::array<float, 10> skill_rates = {0.015F, 0.03F,  0.045F, 0.06F,  0.075F,
                                                      0.09F,  0.105F, 0.12F,  0.135F, 0.15F};

/// Work-life balance (from 1 January 2023) by the certificate held, 0 none: of 女性活躍推進法, of 次世代法,
/// and ユースエール. The largest one counts.
inline constexpr std::array<std::int16_t, 5> josei_points = {0, 5, 4, 3, 2};
inline constexpr std::array<std::int16_t, 4> jisedai_points = {0, 5, 3, 3};
inline constexpr std::array<std::int16_t, 2> youth_points = {0, 4};

/// Recording of the workers' site history (from 14 August 2023): none, on all works, on all public works,
/// the declaration, the first and the second together with it (from 1 July 2026).
inline constexpr std::array<std::int16_t, 6> rireki_points = {0, 10, 5, 5, 15, 10};

// ---- W2, continuity of the business (建設業の営業継続の状況)

/// Nothing up to the first, a step for each further year, no more from the last one on.
inline constexpr std::int32_t w2_years_without = 5;
inline constexpr std::int32_t w2_for_year = 2;
inline constexpr std::int32_t w2_years_most = 35;

/// Off while a rehabilitation or reorganisation runs (from 1 April 2011).
inline constexpr std::int16_t w2_off_for_saisei = 60;

// ---- W3, W4: contribution to disaster prevention (20 from 1 April 2018), legal compliance

inline constexpr std::array<std::int16_t, 2> w3_points = {0, 20};
/// None, an instruction (指示), a suspension of business (営業停止).
inline constexpr std::array<std::int16_t, 3> w4_points = {0, -15, -30};

// ---- W5, state of the accounting (経理に関する状況)

/// Of the audit (監査の受審状況): none, a confirmation of the accounts, an accounting adviser, an auditor.
inline constexpr std::array<std::int16_t, 4> audit_points = {0, 2, 10, 20};
inline constexpr std::int32_t audit_by_auditor = 3;

/// An accountant of the second grade counts so much of one of the first.
inline constexpr double second_grade_accountant = 0.4;

/// Weighted accountants needed while the average completed work (thousand yen) is at least `from` and below
/// the `from` of the row before, highest first, for each of `accountant_points`; infinite where the points
/// cannot be had.
struct Accountants_Row {
    std::int32_t from;
    std::array<float, 5> needed;
};
inline constexpr std::array<std::int16_t, 5> accountant_points = {10, 8, 6, 4, 2};
inline constexpr float not_to_be_had = std::numeric_limits<float>::infinity();
inline constexpr std::array<Accountants_Row, 6> accountants_rows = {{
    {60'000'000, {13.6F, 10.8F, 7.2F, 5.2F, 2.8F}},
    {15'000'000, {8.8F, 6.8F, 4.8F, 2.8F, 1.6F}},
    {4'000'000, {4.4F, 3.2F, 2.4F, 1.2F, 0.8F}},
    {1'000'000, {2.4F, 1.6F, 1.2F, 0.8F, 0.4F}},
    {100'000, {1.2F, 0.8F, 0.4F, not_to_be_had, not_to_be_had}},
    {0, {0.4F, not_to_be_had, not_to_be_had, not_to_be_had, not_to_be_had}},
}};

// ---- W6, research and development (研究開発の状況)

/// By the average cost of two years (thousand yen), only with an auditor.
inline constexpr std::array<Points_Band, 25> w6_bands = {{
    {10'000'000, 25}, {7'500'000, 24}, {5'000'000, 23}, {3'000'000, 22}, {2'000'000, 21},
    {1'900'000, 20},  {1'800'000, 19}, {1'700'000, 18}, {1'600'000, 17}, {1'500'000, 16},
    {1'400'000, 15},  {1'300'000, 14}, {1'200'000, 13}, {1'100'000, 12}, {1'000'000, 11},
    {900'000, 10},    {800'000, 9},    {700'000, 8},    {600'000, 7},    {500'000, 6},
    {400'000, 5},     {300'000, 4},    {200'000, 3},    {100'000, 2},    {50'000, 1},
}};

// ---- W7, W8 (from 1 April 2011)

/// Construction machines owned or leased (建設機械の保有状況; these points from 1 April 2018).
inline constexpr std::array<Points_Band, 11> w7_bands = {
    {{14, 15}, {12, 14}, {10, 13}, {8, 12}, {7, 11}, {6, 10}, {5, 9}, {4, 8}, {3, 7}, {2, 6}, {1, 5}}};

/// Standards: for each of ISO9001 and ISO14001; for エコアクション21 (from 1 January 2023), which counts only
/// without ISO14001.
inline constexpr std::int16_t w8_for_iso = 5;
inline constexpr std::int16_t w8_for_eco_action = 3;

// ---- The total

/// The sum of the sub-scores counts so many times; from 2011 on it is a share of that.
inline constexpr std::int32_t w_times = 10;
inline constexpr std::int32_t w_share_whole = 200;

/// The share by the review base date, newest first.
struct W_Share_Row {
    Review_Date from;
    std::int32_t share;
};
inline constexpr std::array<W_Share_Row, 2> w_shares = {{
    {{2023, 8, 14}, 175}, // with the site history
    {{2011, 4, 1}, 190},  // with machines and standards
}};

/// The share of a date; the first one for a date before it and where there is none.
constexpr std::int32_t W_Share(const std::optional<Review_Date>& date) {
    for (const W_Share_Row& row : w_shares) {
        if (date && *date >= row.from) {
            return row.share;
        }
    }
    return w_shares.back().share;
}

} // namespace morvane
