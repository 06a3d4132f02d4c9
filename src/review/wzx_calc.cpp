// SPDX-FileCopyrightText: The Morvane developers
#include "review/wzx_calc.h"

#include "law/checked.h"
#include "law/ten_tables.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <span>

namespace morvane {

namespace {

constexpr const char* what_w = "その他の審査項目（Ｗ）";
constexpr const char* what_avg = "年間平均完成工事高";

/// Amount score by its table. The row number is kept for the table screen unless the amount had no row.
std::int16_t Amount_Ten(const Ten_Table& table, std::int32_t v, int& tbl_no) {
    const Ten_Result result = Ten_Lookup(table, v);
    if (result.row >= 0) {
        tbl_no = result.row;
    }
    return Narrow<std::int16_t>(result.ten, table.what);
}

/// Points by the lowest value of a band, highest band first; nothing below the last band.
struct Band {
    std::int32_t from;
    std::int16_t ten;
};

std::int16_t Band_Ten(std::span<const Band> bands, std::int32_t value) {
    const auto band =
        std::find_if(bands.begin(), bands.end(), [value](const Band& b) { return value >= b.from; });
    return band == bands.end() ? std::int16_t{0} : band->ten;
}

/// Points of a choice, by its number from 0; nothing for a number that is no choice.
std::int16_t Choice_Ten(std::span<const std::int16_t> points, std::int32_t choice) {
    const bool known = choice >= 0 && choice < static_cast<std::int32_t>(points.size());
    return known ? points[static_cast<std::size_t>(choice)] : std::int16_t{0};
}

/// 16-bit sum, checked at every step, times ten.
std::int16_t Tenfold_Sum(std::initializer_list<std::int16_t> sub_scores) {
    std::int16_t sum = 0;
    for (const std::int16_t ten : sub_scores) {
        sum = Add16(sum, ten, what_w);
    }
    return Narrow<std::int16_t>(std::int64_t{sum} * 10, what_w);
}

std::int16_t W1_Ten(std::int32_t y1, std::int32_t y2, std::int32_t deduction) {
    return Narrow<std::int16_t>(std::int64_t{y1} * 15 - std::int64_t{y2} * deduction,
                                "労働福祉の状況（Ｗ１）");
}

constexpr std::int16_t w3_points[] = {0, 20};
constexpr std::int16_t w4_points[] = {0, -15, -30};
constexpr std::int16_t w5_kansa_points[] = {0, 2, 10, 20};
constexpr Band w6_bands[] = {{10'000'000, 25}, {7'500'000, 24}, {5'000'000, 23},
                             {3'000'000, 22},  {2'000'000, 21}, {50'000, 1}};
constexpr Band w7_bands[] = {{14, 15}, {12, 14}, {10, 13}, {8, 12}};
constexpr std::int16_t josei_points[] = {0, 5, 4, 3, 2};
constexpr std::int16_t jisedai_points[] = {0, 5, 3, 3};
constexpr std::int16_t youth_points[] = {0, 4};
constexpr std::int16_t rireki_points[] = {0, 10, 5, 5, 15, 10};

constexpr float none = std::numeric_limits<float>::infinity();
constexpr W5_Row w5_rows[] = {
    {60'000'000, {13.6F, 10.8F, 7.2F, 5.2F, 2.8F}}, {15'000'000, {8.8F, 6.8F, 4.8F, 2.8F, 1.6F}},
    {4'000'000, {4.4F, 3.2F, 2.4F, 1.2F, 0.8F}},    {1'000'000, {2.4F, 1.6F, 1.2F, 0.8F, 0.4F}},
    {100'000, {1.2F, 0.8F, 0.4F, none, none}},      {0, {0.4F, none, none, none, none}},
};

// A negative total is held against the highest row.
std::span<const float> W5_Needed(std::int32_t kanko) {
    const auto* const row = std::find_if(std::begin(w5_rows), std::end(w5_rows),
                                         [kanko](const W5_Row& r) { return kanko >= r.from; });
    return (row == std::end(w5_rows) ? *std::begin(w5_rows) : *row).needed;
}

std::int16_t W5_Points(std::int32_t kanko, float accountants) {
    const std::span<const float> needed = W5_Needed(kanko);
    for (std::size_t i = 0; i < needed.size(); ++i) {
        if (accountants >= needed[i]) {
            return w5_points[i];
        }
    }
    return 0;
}

/// Share of `part` in engineers and skilled workers together.
float W10_Weight(std::int32_t part, std::int32_t gijutusya, std::int32_t ginosya) {
    const double all = static_cast<double>(gijutusya) + ginosya;
    if (all == 0.0) {
        throw Run_Time_Error(Run_Time_Error::Kind::Division_By_Zero,
                             "知識及び技術者・技能者の向上に関する取組の状況（Ｗ１０）を計算できません。技術"
                             "者数と技能者数の合計が０です。");
    }
    return static_cast<float>(part / all);
}

/// A point for every 3 units per engineer up to 30; beyond 30 nothing.
float Cpd_Point(float average) {
    if (average < 0.0F || average > 30.0F) {
        return 0.0F;
    }
    return static_cast<float>(std::floor(average / 3.0));
}

/// Rate of skilled workers needed for 1, 2, ... 10 points.
constexpr float skill_rates[] = {0.015F, 0.03F, 0.045F, 0.06F, 0.075F, 0.09F, 0.105F, 0.12F, 0.135F, 0.15F};

float Skill_Point(std::int32_t ginosya, std::int32_t kojyo) {
    float rate = 0.0F;
    if (ginosya != kojyo) {
        rate = static_cast<float>(kojyo / (static_cast<double>(ginosya) - kojyo));
    }
    const float* const first_missed = std::upper_bound(std::begin(skill_rates), std::end(skill_rates), rate);
    return static_cast<float>(first_missed - std::begin(skill_rates));
}

} // namespace

std::int16_t WZX_Calc::Calc_X1_Ten_A(std::int32_t nheikin) {
    return Amount_Ten(Ten_X1_A, nheikin, Tbl_No_X1);
}

std::int16_t WZX_Calc::Calc_X1_Ten_B(std::int32_t nheikin) {
    return Amount_Ten(Ten_X1_B, nheikin, Tbl_No_X1);
}

std::int16_t WZX_Calc::Calc_X2_1_Ten(std::int32_t jiko) {
    return Amount_Ten(Ten_X2_1, jiko, Tbl_No_X2_1);
}

std::int16_t WZX_Calc::Calc_X2_2_Ten(std::int32_t rieki) {
    return Amount_Ten(Ten_X2_2, rieki, Tbl_No_X2_2);
}

std::int32_t WZX_Calc::Calc_Z1_Ten(std::int32_t gijutu_1, std::int32_t gijutu_2, std::int32_t gijutu_3,
                                   std::int32_t gijutu_4, std::int32_t gijutu_5,
                                   std::int32_t gijutu_6) const {
    return Ten_Lookup(Ten_Z1, Z1_Value({gijutu_1, gijutu_2, gijutu_3, gijutu_4, gijutu_5, gijutu_6})).ten;
}

std::int16_t WZX_Calc::Calc_Z2_Ten_A(std::int32_t mnheikin) {
    return Amount_Ten(Ten_Z2_A, mnheikin, Tbl_No_Z2);
}

std::int16_t WZX_Calc::Calc_Z2_Ten_B(std::int32_t mnheikin) {
    return Amount_Ten(Ten_Z2_B, mnheikin, Tbl_No_Z2);
}

std::int16_t WZX_Calc::Calc_W1_Ten_30(std::int32_t y1, std::int32_t y2) const {
    return W1_Ten(y1, y2, 30);
}

std::int16_t WZX_Calc::Calc_W1_Ten_40(std::int32_t y1, std::int32_t y2) const {
    return W1_Ten(y1, y2, 40);
}

std::int16_t WZX_Calc::Calc_W2_Ten(std::int32_t years) const {
    if (years < 0 || years >= 35) {
        return 60;
    }
    return static_cast<std::int16_t>(std::max(years - 5, 0) * 2);
}

std::int16_t WZX_Calc::Calc_W2_Ten_Saisei(std::int32_t years, std::int32_t saisei) const {
    return static_cast<std::int16_t>(Calc_W2_Ten(years) - (saisei == 1 ? 60 : 0));
}

std::int16_t WZX_Calc::Calc_W3_Ten(std::int32_t kyotei) const {
    return Choice_Ten(w3_points, kyotei);
}

std::int16_t WZX_Calc::Calc_W4_Ten(std::int32_t horei) const {
    return Choice_Ten(w4_points, horei);
}

std::int16_t WZX_Calc::Calc_W5_Ten(std::int32_t kansa, std::int32_t kanko, std::int32_t ikkyu,
                                   std::int32_t nikyu) {
    W5_Kansa_Ten = Choice_Ten(w5_kansa_points, kansa);
    // The 0.09 lifts a product that fell just short of its whole thousandth.
    W5_Kaikei_Su = static_cast<float>(std::floor((nikyu * 0.4 + ikkyu) * 1000 + 0.09) / 1000);
    W5_Kaikei_Ten = W5_Points(kanko, W5_Kaikei_Su);
    return Add16(W5_Kansa_Ten, W5_Kaikei_Ten, "経理に関する状況（Ｗ５）");
}

std::int16_t WZX_Calc::Calc_W6_Ten(std::int32_t kansa, std::int32_t hiyo_1, std::int32_t hiyo_2) const {
    if (kansa != 3) {
        return 0;
    }
    // A negative average has no points, so that cutting it toward zero does no harm.
    const std::int32_t average = Add32(hiyo_1, hiyo_2, "平均研究開発費") / 2;
    if (average >= 100'000 && average < 2'000'000) {
        return static_cast<std::int16_t>(average / 100'000 + 1);
    }
    return Band_Ten(w6_bands, average);
}

std::int16_t WZX_Calc::Calc_W7_Ten(std::int32_t kikai) const {
    if (kikai >= 1 && kikai <= 7) {
        return static_cast<std::int16_t>(kikai + 4);
    }
    return Band_Ten(w7_bands, kikai);
}

std::int16_t WZX_Calc::Calc_W8_Ten(std::int32_t iso0, std::int32_t iso1, std::int32_t iso2) const {
    if (iso2 == 1) {
        return iso1 == 1 ? 10 : 5;
    }
    if (iso2 != 0) {
        return 0;
    }
    return static_cast<std::int16_t>((iso1 == 1 ? 5 : 0) + (iso0 == 1 ? 3 : 0));
}

std::int16_t WZX_Calc::Calc_W10_Ten(std::int32_t cpd, std::int32_t gijutusya, std::int32_t level_up,
                                    std::int32_t ginosya, std::int32_t kojyo) const {
    const float v = Parts_Of_W10(cpd, gijutusya, level_up, ginosya, kojyo).sum;
    return v >= 0.0F && v <= 10.0F ? static_cast<std::int16_t>(v) : std::int16_t{0};
}

std::int16_t WZX_Calc::Calc_WLB_Ten(std::int32_t josei, std::int32_t jisedai, std::int32_t youth) const {
    return std::max({Choice_Ten(josei_points, josei), Choice_Ten(jisedai_points, jisedai),
                     Choice_Ten(youth_points, youth)});
}

std::int16_t WZX_Calc::Calc_Rireki_Ten(std::int32_t rireki) const {
    return Choice_Ten(rireki_points, rireki);
}

std::int16_t WZX_Calc::Calc_W_2008(std::int16_t w1, std::int16_t w2, std::int16_t w3, std::int16_t w4,
                                   std::int16_t w5, std::int16_t w6) const {
    return std::max(Tenfold_Sum({w1, w2, w3, w4, w5, w6}), std::int16_t{0});
}

std::int16_t WZX_Calc::Calc_W_2011(std::int16_t w1, std::int16_t w2, std::int16_t w3, std::int16_t w4,
                                   std::int16_t w5, std::int16_t w6, std::int16_t w7, std::int16_t w8,
                                   const std::optional<Review_Date>& date) {
    if (date) {
        last_date = date;
    }
    return static_cast<std::int16_t>(W_Share(last_date) * Tenfold_Sum({w1, w2, w3, w4, w5, w6, w7, w8}) /
                                     200);
}

W10_Parts Parts_Of_W10(std::int32_t cpd, std::int32_t gijutusya, std::int32_t level_up, std::int32_t ginosya,
                       std::int32_t kojyo) {
    W10_Parts parts;
    float weight_one = 0.0F;
    if (gijutusya != 0 && cpd != 0) {
        weight_one = W10_Weight(gijutusya, gijutusya, ginosya);
        parts.cpd_point = Cpd_Point(static_cast<float>(static_cast<double>(cpd) / gijutusya));
    }
    float weight_two = 0.0F;
    if (ginosya != 0 && level_up != 0) {
        weight_two = W10_Weight(ginosya, gijutusya, ginosya);
        parts.skill_point = Skill_Point(ginosya, kojyo);
    }
    // Summed in double and stored in single, so that weights of rounded shares still add up to full points.
    parts.sum = static_cast<float>(static_cast<double>(parts.cpd_point) * weight_one +
                                   static_cast<double>(parts.skill_point) * weight_two);
    return parts;
}

std::int32_t Z1_Value(const std::array<std::int32_t, 6>& gijutusya) {
    constexpr std::array<std::int64_t, 6> weights = {6, 5, 3, 2, 1, 4};
    std::int64_t value = 0;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        value += weights[i] * gijutusya[i];
    }
    return Narrow<std::int32_t>(value, "技術職員数値");
}

int W_Share(const std::optional<Review_Date>& date) {
    constexpr Review_Date cut_off{2023, 8, 14};
    return date && *date >= cut_off ? 175 : 190;
}

std::span<const W5_Row> W5_Rows() {
    return w5_rows;
}

double Young_Rate(std::int32_t young, std::int32_t all) {
    if (all == 0) {
        throw Run_Time_Error(Run_Time_Error::Kind::Division_By_Zero,
                             "若年技術職員の割合を計算できません。技術職員の数が０です。");
    }
    return std::floor(static_cast<double>(young) / all * 100);
}

std::int16_t Young_Keizoku_Ten(double rate) {
    return rate >= 15.0 ? 1 : 0;
}

std::int16_t Young_Sinki_Ten(double rate) {
    return rate >= 1.0 ? 1 : 0;
}

// floor(x / 2 + 0.5) and floor(x / 3 + 0.5) of whole numbers, without leaving them.

std::int32_t Two_Year_Avg(std::int32_t b, std::int32_t c) {
    return static_cast<std::int32_t>((std::int64_t{Add32(c, b, what_avg)} + 1) >> 1U);
}

std::int32_t Three_Year_Avg(std::int32_t a, std::int32_t b, std::int32_t c) {
    const std::int64_t sum = Add32(c, Mul32(2, Two_Year_Avg(a, b), what_avg), what_avg);
    const std::int64_t doubled = 2 * sum + 3;
    return static_cast<std::int32_t>(doubled / 6 - (doubled % 6 < 0 ? 1 : 0));
}

std::int32_t Calc_Avg_Nen(std::int32_t kanko_avg, std::int32_t a, std::int32_t b, std::int32_t c) {
    return kanko_avg == 2 ? Two_Year_Avg(b, c) : Three_Year_Avg(a, b, c);
}

std::int32_t Calc_Avg_Mae(std::int32_t kanko_avg, std::int32_t a, std::int32_t b, std::int32_t /*c*/) {
    return kanko_avg == 2 ? b : Two_Year_Avg(a, b);
}

// The weights are single-precision figures: 0.8 and 0.2 of them lie a little above their decimals, so that a
// whole result is never lost to rounding.

std::int16_t Calc_Z_Ten(std::int16_t z1, std::int16_t z2) {
    const double ten = std::floor(z1 * double{0.8F} + z2 * double{0.2F});
    return std::max(Narrow_Double<std::int16_t>(ten, "技術力評点（Ｚ）"), std::int16_t{450});
}

std::int16_t Calc_P_Ten(std::int16_t x1, std::int16_t x2, std::int16_t y, std::int16_t z, std::int16_t w) {
    const double ten =
        x1 * 0.25 + x2 * double{0.15F} + y * double{0.2F} + w * double{0.15F} + z * 0.25 + 0.501;
    return Floor_To<std::int16_t>(ten, "総合評点（Ｐ）");
}

} // namespace morvane
