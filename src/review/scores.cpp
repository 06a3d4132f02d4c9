// SPDX-FileCopyrightText: The Morvane developers
#include "review/scores.h"

#include "law/social_points.h"
#include "law/ten_tables.h"
#include "law/total_weights.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace morvane {

namespace {

constexpr const char* what_w = "その他の審査項目（Ｗ）";
constexpr const char* what_avg = "年間平均完成工事高";

Scored Score_Of(const Ten_Table& table, std::int32_t v) {
    const Ten_Result result = Ten_Lookup(table, v);
    return {Points(Narrow<std::int16_t>(result.ten, table.what)), result.row};
}

Points Band_Points(std::span<const Points_Band> bands, std::int32_t value) {
    const auto band =
        std::find_if(bands.begin(), bands.end(), [value](const Points_Band& b) { return value >= b.from; });
    return band == bands.end() ? Points() : Points(band->points);
}

Points Choice_Points(std::span<const std::int16_t> points, std::int32_t choice) {
    const bool known = choice >= 0 && choice < static_cast<std::int32_t>(points.size());
    return known ? Points(points[static_cast<std::size_t>(choice)]) : Points();
}

/// The sum, checked at every step, so many times as the total counts it.
Points Sum_Times(std::span<const Points> sub_scores) {
    return In_Calculation(what_w, [&] {
        Points sum;
        for (const Points ten : sub_scores) {
            sum += ten;
        }
        return sum * w_times;
    });
}

Points Welfare(Head_Count joined, Head_Count missing, std::int32_t off) {
    return In_Calculation("労働福祉の状況（Ｗ１）", [&] {
        return Points::Of(std::int64_t{joined.Count()} * w1_for_scheme - std::int64_t{missing.Count()} * off);
    });
}

// A negative total is held against the highest row.
std::span<const float> Accountants_Needed(Thousand_Yen kanko) {
    const auto* const row =
        std::find_if(accountants_rows.begin(), accountants_rows.end(),
                     [kanko](const Accountants_Row& r) { return kanko.Count() >= r.from; });
    return (row == accountants_rows.end() ? accountants_rows.front() : *row).needed;
}

Points Accountant_Points(Thousand_Yen kanko, float accountants) {
    const std::span<const float> needed = Accountants_Needed(kanko);
    for (std::size_t i = 0; i < needed.size(); ++i) {
        if (accountants >= needed[i]) {
            return Points(accountant_points[i]);
        }
    }
    return {};
}

/// Share of `part` in engineers and skilled workers together.
float W10_Weight(Head_Count part, const W10_Counts& counts) {
    const double all = static_cast<double>(counts.gijutusya.Count()) + counts.ginosya.Count();
    if (all == 0.0) {
        throw Run_Time_Error(Run_Time_Error::Kind::Division_By_Zero,
                             "知識及び技術者・技能者の向上に関する取組の状況（Ｗ１０）を計算できません。技術"
                             "者数と技能者数の合計が０です。");
    }
    return static_cast<float>(part.Count() / all);
}

float Cpd_Point(float average) {
    if (average < 0.0F || average > static_cast<float>(cpd_units_most)) {
        return 0.0F;
    }
    return static_cast<float>(std::floor(average / static_cast<double>(cpd_units_for_point)));
}

float Skill_Point(const W10_Counts& counts) {
    float rate = 0.0F;
    if (counts.ginosya != counts.kojyo) {
        const double kojyo = counts.kojyo.Count();
        rate = static_cast<float>(kojyo / (counts.ginosya.Count() - kojyo));
    }
    const float* const first_missed = std::upper_bound(skill_rates.begin(), skill_rates.end(), rate);
    return static_cast<float>(first_missed - skill_rates.begin());
}

} // namespace

Scored Calc_X1_Ten_A(Thousand_Yen nheikin) {
    return Score_Of(Ten_X1_A, nheikin.Count());
}

Scored Calc_X1_Ten_B(Thousand_Yen nheikin) {
    return Score_Of(Ten_X1_B, nheikin.Count());
}

Scored Calc_X1_Ten(const Law_Year& law, Thousand_Yen nheikin) {
    return law.version_b ? Calc_X1_Ten_B(nheikin) : Calc_X1_Ten_A(nheikin);
}

Scored Calc_X2_1_Ten(Thousand_Yen jiko) {
    return Score_Of(Ten_X2_1, jiko.Count());
}

Scored Calc_X2_2_Ten(Thousand_Yen rieki) {
    return Score_Of(Ten_X2_2, rieki.Count());
}

std::int32_t Z1_Value(const Engineers& gijutusya) {
    std::int64_t value = 0;
    for (std::size_t i = 0; i < gijutusya.size(); ++i) {
        value += std::int64_t{engineer_weights[i]} * gijutusya[i].Count();
    }
    return Narrow<std::int32_t>(value, "技術職員数値");
}

Scored Calc_Z1_Ten(const Engineers& gijutusya) {
    return Score_Of(Ten_Z1, Z1_Value(gijutusya));
}

Scored Calc_Z2_Ten_A(Thousand_Yen mnheikin) {
    return Score_Of(Ten_Z2_A, mnheikin.Count());
}

Scored Calc_Z2_Ten_B(Thousand_Yen mnheikin) {
    return Score_Of(Ten_Z2_B, mnheikin.Count());
}

Scored Calc_Z2_Ten(const Law_Year& law, Thousand_Yen mnheikin) {
    return law.version_b ? Calc_Z2_Ten_B(mnheikin) : Calc_Z2_Ten_A(mnheikin);
}

Points Calc_W1_Ten_30(Head_Count y1, Head_Count y2) {
    return Welfare(y1, y2, w1_off_for_insurance_2008);
}

Points Calc_W1_Ten_40(Head_Count y1, Head_Count y2) {
    return Welfare(y1, y2, w1_off_for_insurance_2012);
}

Points Calc_W1_Ten(const Law_Year& law, Head_Count y1, Head_Count y2) {
    return law.deduct_40 ? Calc_W1_Ten_40(y1, y2) : Calc_W1_Ten_30(y1, y2);
}

Points Calc_W2_Ten(Head_Count years) {
    const bool full = years.Count() < 0 || years.Count() >= w2_years_most;
    const std::int32_t counted = (full ? w2_years_most : years.Count()) - w2_years_without;
    return Points(static_cast<std::int16_t>(std::max(counted, 0) * w2_for_year));
}

Points Calc_W2_Ten_Saisei(Head_Count years, std::int32_t saisei) {
    return Calc_W2_Ten(years) - Points(saisei == 1 ? w2_off_for_saisei : std::int16_t{0});
}

Points Calc_W3_Ten(std::int32_t kyotei) {
    return Choice_Points(w3_points, kyotei);
}

Points Calc_W4_Ten(std::int32_t horei) {
    return Choice_Points(w4_points, horei);
}

W5_Score Calc_W5_Ten(std::int32_t kansa, Thousand_Yen kanko, Head_Count ikkyu, Head_Count nikyu) {
    W5_Score score;
    score.kansa = Choice_Points(audit_points, kansa);
    // The 0.09 lifts a product that fell just short of its whole thousandth.
    score.kaikei_su = static_cast<float>(
        std::floor((nikyu.Count() * second_grade_accountant + ikkyu.Count()) * 1000 + 0.09) / 1000);
    score.kaikei = Accountant_Points(kanko, score.kaikei_su);
    score.total = score.kansa + score.kaikei;
    return score;
}

Points Calc_W6_Ten(std::int32_t kansa, Thousand_Yen hiyo_1, Thousand_Yen hiyo_2) {
    if (kansa != audit_by_auditor) {
        return {};
    }
    const Thousand_Yen sum = In_Calculation("平均研究開発費", [&] { return hiyo_1 + hiyo_2; });
    // A negative average has no points, so that cutting it toward zero does no harm.
    return Band_Points(w6_bands, sum.Count() / 2);
}

Points Calc_W7_Ten(Head_Count kikai) {
    return Band_Points(w7_bands, kikai.Count());
}

Points Calc_W8_Ten(std::int32_t iso0, std::int32_t iso1, std::int32_t iso2) {
    const Points iso9001(iso1 == 1 ? w8_for_iso : std::int16_t{0});
    if (iso2 == 1) {
        return Points(w8_for_iso) + iso9001;
    }
    if (iso2 != 0) {
        return {};
    }
    return iso9001 + Points(iso0 == 1 ? w8_for_eco_action : std::int16_t{0});
}

W10_Parts Parts_Of_W10(const W10_Counts& counts) {
    const Head_Count none;
    W10_Parts parts;
    float weight_one = 0.0F;
    if (counts.gijutusya != none && counts.cpd != none) {
        weight_one = W10_Weight(counts.gijutusya, counts);
        parts.cpd_point =
            Cpd_Point(static_cast<float>(static_cast<double>(counts.cpd.Count()) / counts.gijutusya.Count()));
    }
    float weight_two = 0.0F;
    if (counts.ginosya != none && counts.level_up != none) {
        weight_two = W10_Weight(counts.ginosya, counts);
        parts.skill_point = Skill_Point(counts);
    }
    // Summed in double and stored in single, so that weights of rounded shares still add up to full points.
    parts.sum = static_cast<float>(static_cast<double>(parts.cpd_point) * weight_one +
                                   static_cast<double>(parts.skill_point) * weight_two);
    return parts;
}

Points Calc_W10_Ten(const W10_Counts& counts) {
    const float v = Parts_Of_W10(counts).sum;
    const bool within = v >= 0.0F && v <= static_cast<float>(skill_rates.size());
    return within ? Points(static_cast<std::int16_t>(v)) : Points();
}

Points Calc_WLB_Ten(std::int32_t josei, std::int32_t jisedai, std::int32_t youth) {
    return std::max({Choice_Points(josei_points, josei), Choice_Points(jisedai_points, jisedai),
                     Choice_Points(youth_points, youth)});
}

Points Calc_Rireki_Ten(std::int32_t rireki) {
    return Choice_Points(rireki_points, rireki);
}

double Young_Rate(Head_Count young, Head_Count all) {
    if (all == Head_Count()) {
        throw Run_Time_Error(Run_Time_Error::Kind::Division_By_Zero,
                             "若年技術職員の割合を計算できません。技術職員の数が０です。");
    }
    return std::floor(static_cast<double>(young.Count()) / all.Count() * 100);
}

Points Young_Keizoku_Ten(double rate) {
    return Points(rate >= young_kept_from ? 1 : 0);
}

Points Young_Sinki_Ten(double rate) {
    return Points(rate >= young_new_from ? 1 : 0);
}

Points Calc_W_2008(const Sub_Scores& w) {
    return std::max(Sum_Times(std::span(w).first<6>()), Points());
}

Points Calc_W_2011(const Sub_Scores& w, const std::optional<Review_Date>& date) {
    return Points(static_cast<std::int16_t>(W_Share(date) * Sum_Times(w).Count() / w_share_whole));
}

// floor(x / 2 + 0.5) and floor(x / 3 + 0.5) of whole numbers, without leaving them.

Thousand_Yen Two_Year_Avg(Thousand_Yen b, Thousand_Yen c) {
    const Thousand_Yen sum = In_Calculation(what_avg, [&] { return c + b; });
    return Thousand_Yen(static_cast<std::int32_t>((std::int64_t{sum.Count()} + 1) >> 1U));
}

Thousand_Yen Three_Year_Avg(Thousand_Yen a, Thousand_Yen b, Thousand_Yen c) {
    const Thousand_Yen sum = In_Calculation(what_avg, [&] { return c + 2 * Two_Year_Avg(a, b); });
    const std::int64_t doubled = 2 * std::int64_t{sum.Count()} + 3;
    return Thousand_Yen(static_cast<std::int32_t>(doubled / 6 - (doubled % 6 < 0 ? 1 : 0)));
}

Points Calc_Z_Ten(Points z1, Points z2) {
    const double ten = std::floor(z1.Count() * double{z_weights.z1} + z2.Count() * double{z_weights.z2});
    return std::max(Points(Narrow_Double<std::int16_t>(ten, "技術力評点（Ｚ）")), Points(z_least));
}

Points Calc_P_Ten(Points x1, Points x2, Points y, Points z, Points w) {
    const double ten = x1.Count() * double{p_weights.x1} + x2.Count() * double{p_weights.x2} +
                       y.Count() * double{p_weights.y} + z.Count() * double{p_weights.z} +
                       w.Count() * double{p_weights.w} + 0.501;
    return Points(Floor_To<std::int16_t>(ten, "総合評点（Ｐ）"));
}

} // namespace morvane
