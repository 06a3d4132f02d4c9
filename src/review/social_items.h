// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/law_year.h"
#include "review/review_figures.h"
#include "review/scores.h"

#include <array>
#include <cstdint>

namespace morvane {

/// The inputs and scores of X2 and W as the entry screens and the check screens hold them, by the names of
/// their cells. Amounts are thousand yen.
struct Social_Items {
    std::int32_t JikoS = 1;               ///< equity basis: 1 base period, 2 two-period average
    std::array<std::int32_t, 6> Rf1{};    ///< insurances and schemes of W1, elements 101 to 106
    std::int32_t RF1_Ten = 0;             ///< what Rf1 alone gives; not stored
    std::int32_t RF_Ten = 0;              ///< W1
    std::int32_t Enen = 0;                ///< years in business
    std::int32_t Saisei = 0;              ///< rehabilitation or reorganisation
    std::int32_t Enen_Ten = 0;            ///< W2
    std::int32_t Bkyotei = 0;             ///< agreement on disaster prevention
    std::int32_t Bkyotei_Ten = 0;         ///< W3
    std::int32_t Horei = 0;               ///< compliance
    std::int32_t Horei_ten = 0;           ///< W4
    std::int32_t keiri_kansa = 0;         ///< audit
    std::array<std::int32_t, 2> Kjm{};    ///< accounting staff of first and second grade
    std::int32_t Jms_Ten = 0;             ///< W5
    std::array<std::int32_t, 2> Kihatu{}; ///< research cost of two periods
    std::int32_t Kihatu_Ten = 0;          ///< W6
    std::int32_t Kikai = 0;               ///< construction machines
    std::int32_t Kikai_Ten = 0;           ///< W7
    std::array<std::int32_t, 3> Iso{};    ///< エコアクション21, ISO9001, ISO14001
    std::int32_t Iso_Ten = 0;             ///< W8
    std::int32_t JyakunenAll = 0;         ///< all technical staff
    std::int32_t JyakunenK = 0;           ///< young ones kept
    std::int32_t JyakunenK_ritu = 0;      ///< percent
    std::int32_t jyakunenK_ten = 0;
    std::int32_t JyakunenS = 0; ///< young ones new
    std::int32_t JyakunenS_ritu = 0;
    std::int32_t jyakunenS_ten = 0;
    std::array<std::int32_t, 2> tishikiGJ{}; ///< CPD units, engineers
    std::array<std::int32_t, 3> tishikiGN{}; ///< skilled workers: levels raised, number, left out
    std::int32_t W10_ten = 0;
    std::array<std::int32_t, 3> wlb{}; ///< certificates of work-life balance
    std::int32_t wlb_ten = 0;
    std::int32_t rireki = 0; ///< work history
    std::int32_t rireki_ten = 0;
    std::int32_t W = 0;             ///< W total
    std::int32_t keiri_kandaka = 0; ///< total of the adopted average completed work

    /// The item of an element; std::out_of_range for a code that is none.
    [[nodiscard]] std::int32_t& At(int code);
    [[nodiscard]] std::int32_t At(int code) const { return Social_Items(*this).At(code); }

    /// Reads the items of a law year; those that it does not have stay 0. A value above its limit reads as 0.
    /// Raises Run_Time_Error for a figure beyond 32 bits.
    void Load(const Review_Figures& figures);

    /// Writes inputs and scores of the law year into the rows that the period has. Completed work (201 to
    /// 203) and the law year itself (210) belong to others.
    void Store(Review_Figures& figures) const;
};

/// W1 as insurances and schemes alone give it: each insurance answered 0 deducts, each scheme answered 1
/// adds.
struct W1_Count {
    std::int32_t joined = 0;  ///< Y1, schemes answered 1
    std::int32_t missing = 0; ///< Y2, insurances answered 0
};
W1_Count Count_W1(const Social_Items& items, const Law_Year& law);
Points Calc_W1(const Social_Items& items, const Law_Year& law);

} // namespace morvane
