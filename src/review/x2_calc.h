// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/review_figures.h"
#include "review/scores.h"

#include <array>
#include <cstdint>
#include <optional>

namespace morvane {

/// The equity and profit score (自己資本額及び平均利益額 評点X2) and what led to it.
struct X2_Result {
    /// The figures of two periods: of the one before and of the current one.
    using Two_Periods = std::array<Thousand_Yen, 2>;

    /// One of the two amounts, what of it counts (not below 0), and its score.
    struct Part {
        Thousand_Yen amount, counted;
        Scored scored;
    };

    std::int32_t basis = 1;     ///< of the equity: 1 the base period, else the average of both
    Two_Periods equities{};     ///< 自己資本額
    Two_Periods profits{};      ///< 利払前税引前償却前利益, the sum of the two below
    Two_Periods operating{};    ///< 営業利益
    Two_Periods depreciation{}; ///< 減価償却実施額
    Part equity;                ///< 自己資本額, X2_1
    Part profit;                ///< 平均利益額, X2_2
    Points score;               ///< X2, not below its least
};

/// Computes X2; the basis is that of the figures (element 1; Null, 0 or missing: 1) unless another one is
/// asked for. Raises Run_Time_Error on overflow.
[[nodiscard]] X2_Result Calc_X2(const Review_Figures& figures, std::optional<std::int32_t> basis = {});

} // namespace morvane
