// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/law_year.h"

#include <array>

namespace morvane::law_rows {

/// Items and standards of the review (経営事項審査の項目及び基準, 平成20年国土交通省告示第85号) as first
/// made.
inline constexpr Law_Year of_2008 = {.code = Law_Year_No{1},
                                     .name = "2008年改正",
                                     .version_b = false,
                                     .has_pension = false,
                                     .deduct_40 = false,
                                     .has_saisei = false,
                                     .has_w7_w8 = false,
                                     .has_additions = false,
                                     .w7_of_load = false,
                                     .closed = true,
                                     .option_if_declined = {},
                                     .option = "Simyu2008_flg",
                                     .entry_form = "Frm_Syokuta",
                                     .improved_form = "Frm_Syokutakaiz",
                                     .comparison_form = "Frm_SyokutaHKzen",
                                     .welfare_check = "Frm_W1_Calc_Check",
                                     .result_report = "Rpt_Kekka",
                                     .improvement_report = "Rpt_KaizenHK",
                                     .comparison_report = "Rpt_KaizenHKzen",
                                     .comparison_starts_improvement = true};

/// As revised in 2010 for reviews from April 2011.
inline constexpr Law_Year of_2011 = [](Law_Year law) {
    law.code = Law_Year_No{2};
    law.name = "2011年改正";
    law.version_b = true;
    law.has_saisei = true;
    law.has_w7_w8 = true;
    law.closed = false;
    law.option_if_declined = Law_Year_No{3};
    law.option = "Simyu2011_flg";
    law.entry_form = "Frm_Syokuta_2011";
    law.improved_form = "Frm_Syokutakaiz_2011";
    law.comparison_form = "Frm_SyokutaHKzen_2011";
    law.result_report = "Rpt_Kekka_2011";
    law.improvement_report = "Rpt_KaizenHK_2011";
    law.comparison_report = "Rpt_KaizenzenHK_2011";
    return law;
}(of_2008);

/// As revised in 2012: the insurances told apart.
inline constexpr Law_Year of_2012 = [](Law_Year law) {
    law.code = Law_Year_No{3};
    law.name = "2012年改正";
    law.has_pension = true;
    law.deduct_40 = true;
    law.w7_of_load = true;
    law.option_if_declined = {};
    law.option = "Simyu2012_flg";
    law.entry_form = "Frm_Syokuta_2012";
    law.improved_form = "Frm_Syokutakaiz_2012";
    law.comparison_form = "Frm_SyokutaHKzen_2012";
    law.welfare_check = "Frm_W1_Calc_Check2012";
    law.result_report = "Rpt_Kekka_2012";
    law.improvement_report = "Rpt_KaizenHK_2012";
    law.comparison_report = "Rpt_KaizenzenHK_2012";
    law.comparison_starts_improvement = false;
    return law;
}(of_2011);

/// From 2015 on: young engineers; with the revisions of 2021 and 2023 knowledge, work-life balance, history.
inline constexpr Law_Year of_2015 = [](Law_Year law) {
    law.code = Law_Year_No{4};
    law.name = "2015年改正以降";
    law.has_additions = true;
    law.option = "Simyu2015_flg";
    return law;
}(of_2012);

} // namespace morvane::law_rows
