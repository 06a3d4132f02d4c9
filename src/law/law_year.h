// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstdint>
#include <span>

namespace morvane {

/// The number of a law year as the stores hold it (Simyu_Kubun, element 210).
enum class Law_Year_No : std::uint8_t {};

/// A law year of the review: which tables, which items and which forms it takes. The next revision is one row
/// more, made of the row before and what it changes; nothing else in the program tells law years apart.
struct Law_Year {
    Law_Year_No code;
    const char* name;   ///< as screens and reports name it
    bool version_b;     ///< X1 and Z2 by the tables in force from April 2011
    bool has_pension;   ///< W1: health insurance and pension (厚生年金) are answered apart
    bool deduct_40;     ///< W1: 40 instead of 30 for each insurance that is missing
    bool has_saisei;    ///< W2 with the deduction for rehabilitation or reorganisation
    bool has_w7_w8;     ///< machines and standards belong to W
    bool has_additions; ///< W1 with young engineers, knowledge, work-life balance, work history; eco action
                        ///< in W8
    bool w7_of_load;    ///< the entry screen takes W7 into the total as it was when the screen was opened
    bool closed;        ///< no period is turned to it any more
    Law_Year_No
        option_if_declined;      ///< what is marked when the change to it is declined; 0: what the period has
    const char* option;          ///< of the screen of periods
    const char* entry_form;      ///< entry screen of X2 and W
    const char* improved_form;   ///< its counterpart of the improvement simulation
    const char* comparison_form; ///< its counterpart of the prior-period comparison
    const char* welfare_check;   ///< calculation check of W1, W3, W4 and W6
    const char* result_report;   ///< result report
    const char* improvement_report;     ///< comparison before and after the improvement, with what was saved
    const char* comparison_report;      ///< that of the prior period with the period in hand
    bool comparison_starts_improvement; ///< opening comparison_form is a first visit of the improvement too

    /// W1: public insurances, elements from 101 on, and the private schemes behind them.
    [[nodiscard]] constexpr int Insurances() const { return has_pension ? 3 : 2; }
    static constexpr int schemes = 3;
};

/// The rows in the order of their numbers, which run from 1.
[[nodiscard]] std::span<const Law_Year> Law_Years();

/// The row of a law year. Numbers below the first row read as the first, above the last as the last.
[[nodiscard]] const Law_Year& Law_Of(std::int64_t number);
[[nodiscard]] const Law_Year& Law_Of(Law_Year_No code);

/// The law year in force, which new periods take.
[[nodiscard]] const Law_Year& Newest_Law_Year();

/// The law year of a period that has no row for it.
[[nodiscard]] const Law_Year& Oldest_Law_Year();

/// The law year that brought a feature.
[[nodiscard]] const Law_Year& First_Law_Year(bool Law_Year::*feature);

/// The number as stores, files and texts hold it.
[[nodiscard]] constexpr int Law_Number(Law_Year_No code) {
    return static_cast<int>(code);
}

/// The law years that something belongs to: those with a feature, those without one, or both; by itself all.
/// It stays in force until a row says otherwise.
struct Law_Range {
    bool Law_Year::*with = nullptr;
    bool Law_Year::*without = nullptr;

    [[nodiscard]] constexpr bool Has(const Law_Year& law) const {
        return (with == nullptr || law.*with) && (without == nullptr || !(law.*without));
    }
};

} // namespace morvane
