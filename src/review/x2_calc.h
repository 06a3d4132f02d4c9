// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/review_figures.h"
#include "session/session.h"

#include <array>
#include <cstdint>

namespace morvane {

/// The law year of a period: 現状 of element 210; the oldest where it is Null or has no row. Raises
/// Store_Error.
Law_Year_No Get_Simyu_Kubun(const Session& session, int period);
Law_Year_No Get_Simyu_Kubun(const Connection& cn, int period);

/// The equity and profit score X2 and what led to it, thousand yen and points.
class X2_Calc {
  public:
    // What leads to them, by period: 0 the one before, 1 the current one.
    std::array<std::int32_t, 2> Jiko{};  ///< 自己資本額
    std::array<std::int32_t, 2> Eigyo{}; ///< 営業利益
    std::array<std::int32_t, 2> Genka{}; ///< 減価償却実施額
    std::array<std::int32_t, 2> Rieki{}; ///< 利払前税引前償却前利益, the sum of the two

    std::int32_t JikoS = 1;         ///< basis: 1 base period, else two-period average
    std::int32_t X2_Jiko = 0;       ///< 自己資本額
    std::int32_t X2_Jiko_Used = 0;  ///< the same, not below 0
    std::int32_t X2_Rieki = 0;      ///< 平均利益額 (利払前税引前償却前利益, two periods)
    std::int32_t X2_Rieki_Used = 0; ///< the same, not below 0
    std::int16_t X2_1_Ten = 0;
    std::int16_t X2_2_Ten = 0;
    std::int16_t X2_Ten = 0; ///< X2, not below its least
    int X2_1_Row = 0;        ///< rows of the tables that gave the scores
    int X2_2_Row = 0;

    /// Computes X2 from figures in hand. Without `keep_basis` the basis is element 1 (Null, 0 or missing: 1).
    /// Raises Run_Time_Error on overflow.
    void Calc_X2(const Review_Figures& figures, bool keep_basis);
};

} // namespace morvane
