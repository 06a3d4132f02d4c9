// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/choices.h"
#include "law/law_year.h"

#include <cstdint>
#include <limits>
#include <span>
#include <string>

namespace morvane {

/// The elements of the review by 要素CD, as W_Yoso numbers them.
namespace element {

inline constexpr int equity_basis = 1; ///< 1 base period, 2 average of two
inline constexpr int w1 = 100;
inline constexpr int welfare =
    101; ///< the first of the insurances and schemes; 106 only with the pension apart
inline constexpr int pension = 103; ///< 厚生年金, where it is answered apart
inline constexpr int welfare_last = 106;
inline constexpr int w2 = 110;
inline constexpr int years_in_business = 111;
inline constexpr int w3 = 120;
inline constexpr int disaster_agreement = 121;
inline constexpr int w4 = 130;
inline constexpr int compliance = 131;
inline constexpr int w5 = 140;
inline constexpr int audit = 141;
inline constexpr int accountants_1 = 142;
inline constexpr int accountants_2 = 143;
inline constexpr int w6 = 150;
inline constexpr int research_before = 151;
inline constexpr int research = 152;
inline constexpr int w = 200;
inline constexpr int years_of_average = 201; ///< of completed work: 2 or 3
inline constexpr int total_of_two = 202;     ///< the average completed work of all types, over two years
inline constexpr int total_of_three = 203;
inline constexpr int law_year = 210;
inline constexpr int rehabilitation = 211;
inline constexpr int machines = 212;
inline constexpr int w7 = 213;
inline constexpr int iso_9001 = 214;
inline constexpr int iso_14001 = 215;
inline constexpr int w8 = 216;
inline constexpr int engineers = 221;
inline constexpr int young_kept = 222;
inline constexpr int young_kept_rate = 223;
inline constexpr int young_kept_points = 224;
inline constexpr int young_new = 225;
inline constexpr int young_new_rate = 226;
inline constexpr int young_new_points = 227;
inline constexpr int cpd_units = 228;
inline constexpr int cpd_engineers = 229;
inline constexpr int skill_raised = 230;
inline constexpr int skilled_workers = 231;
inline constexpr int skill_left_out = 232;
inline constexpr int w10 = 233;
inline constexpr int women = 235;
inline constexpr int next_generation = 236;
inline constexpr int youth = 237;
inline constexpr int work_history = 238;
inline constexpr int eco_action = 239;
inline constexpr int work_life_points = 240;
inline constexpr int work_history_points = 241;
inline constexpr int waiting_pension = 999; ///< 厚生年金 while the law year does not tell it apart

} // namespace element

/// What an entry of the review takes, on its screen as from a file.
struct Entry_Limit {
    std::string choices = {}; ///< the single keys of a choice; empty: a number
    std::int64_t lowest = 0;
    std::int64_t highest = 0;

    [[nodiscard]] bool Takes(std::int64_t number) const;

    /// What is taken, in Japanese: "0、1、2 のどれか", "0 から 200 まで".
    [[nodiscard]] std::string In_Words() const;
};

/// The values of a whole number of that width.
template <class Int>
[[nodiscard]] Entry_Limit Width_Of() {
    return {.lowest = std::numeric_limits<Int>::min(), .highest = std::numeric_limits<Int>::max()};
}

/// An element: an item of X2 or W, or what completed work and law year leave beside them.
struct Element_Info {
    int code;
    const char* name;               ///< 要素名 of its row, by which failures call it
    Law_Range law = {};             ///< that read and store it
    const Choice* choice = nullptr; ///< of an answer; welfare has its own by law year
    std::int32_t most = 0;          ///< of a number that is keyed; 0: none is
    bool amount = false;            ///< thousand yen
    std::int32_t most_read = std::numeric_limits<std::int32_t>::max(); ///< above it a stored value reads as 0
};

/// The elements in the order of their codes, as every period has them.
[[nodiscard]] std::span<const Element_Info> Element_Infos();

/// The element of a code; null where there is none.
[[nodiscard]] const Element_Info* Find_Element(int code);

/// What an element is called: its name, else its code.
[[nodiscard]] std::string Element_Name(int code);

/// The answers of an element at a law year; null where it is none to choose. The first of the welfare items
/// are insurances, from which a firm may be exempt.
[[nodiscard]] const Choice* Choice_Of(const Element_Info& item, const Law_Year& law);

/// The limit of an element of W_Yoso at a law year; an element that the law year does not have keeps that of
/// the others, a computed one the width of its figure. A choice may always be 0, which stands for one that
/// was never made.
[[nodiscard]] Entry_Limit Limit_Of_Element(int code, const Law_Year& law);

} // namespace morvane
