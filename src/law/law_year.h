// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <array>
#include <cstdint>

namespace morvane {

/// What a law year of the review takes: which tables, which items and which forms. The next revision is one
/// row more; nothing else in the program compares law years.
struct Law_Year {
    std::uint8_t code;  ///< Simyu_Kubun, element 210
    const char* name;   ///< as screens and reports name it
    bool version_b;     ///< X1 and Z2 by the tables in force from April 2011
    int insurances;     ///< W1: public insurances, elements from 101 on
    int schemes;        ///< W1: private schemes, the elements behind them
    bool deduct_40;     ///< W1: 40 instead of 30 for each insurance that is missing
    bool has_saisei;    ///< W2 with the deduction for rehabilitation or reorganisation
    bool has_w7_w8;     ///< machines and standards belong to W
    bool has_additions; ///< W1 with young engineers, knowledge, work-life balance, work history; eco action
                        ///< in W8
    bool w7_of_load;    ///< the entry screen takes W7 into the total as it was when the screen was opened
    const char* entry_form;      ///< entry screen of X2 and W
    const char* improved_form;   ///< its counterpart of the improvement simulation
    const char* comparison_form; ///< its counterpart of the prior-period comparison
    const char* result_report;   ///< result report
};

/// Sources: items and standards of the review (経営事項審査の項目及び基準, 平成20年国土交通省告示第85号) as
/// first made, as revised in 2010 for reviews from April 2011 (X1, Z2, rehabilitation, machines, ISO), in
/// 2012 (insurances told apart, 40 points), and from 2015 on (young engineers; with 2021 and 2023 knowledge,
/// work-life balance, history).
inline constexpr std::array<Law_Year, 4> law_years = {{
    {1, "2008年改正", false, 2, 3, false, false, false, false, false, "Frm_Syokuta", "Frm_Syokutakaiz",
     "Frm_SyokutaHKzen", "Rpt_Kekka"},
    {2, "2011年改正", true, 2, 3, false, true, true, false, false, "Frm_Syokuta_2011", "Frm_Syokutakaiz_2011",
     "Frm_SyokutaHKzen_2011", "Rpt_Kekka_2011"},
    {3, "2012年改正", true, 3, 3, true, true, true, false, true, "Frm_Syokuta_2012", "Frm_Syokutakaiz_2012",
     "Frm_SyokutaHKzen_2012", "Rpt_Kekka_2012"},
    {4, "2015年改正以降", true, 3, 3, true, true, true, true, true, "Frm_Syokuta_2012",
     "Frm_Syokutakaiz_2012", "Frm_SyokutaHKzen_2012", "Rpt_Kekka_2012"},
}};

/// The law year of a period: codes below the first row read as the first, above the last as the last.
constexpr const Law_Year& Law_Of(int simyu_kubun) {
    if (simyu_kubun <= law_years.front().code) {
        return law_years.front();
    }
    return simyu_kubun >= law_years.back().code ? law_years.back()
                                                : law_years[static_cast<std::size_t>(simyu_kubun - 1)];
}

} // namespace morvane
