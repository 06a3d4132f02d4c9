// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "calc/review_figures.h"
#include "session/session.h"

#include <array>
#include <cstdint>

namespace morvane {

/// The management-status score (経営状況分析, 8 indicators by 告示第85号; the same for every law year) and
/// what a call leaves behind. Elements and working figures are thousand yen; the indicators X1 to X8, their
/// rates and the points A are single precision and stay so.
class Y_Calc {
  public:
    std::uint8_t Y_Kikan = 1; ///< period to read: 1 in hand, 2 the one before
    bool Y_Slot_Flg = false;  ///< the argument of Calc_Y names a slot instead of a column
    std::int16_t Y_Col = 1;   ///< 1 金額, 2 改善後残高
    std::uint8_t Y_Slot = 0;

    std::array<std::int32_t, 14> Y_Yoso{}; ///< the fourteen calculation elements
    std::array<std::int32_t, 20> Y_Work{}; ///< working figures of the operating cash flow
    std::array<float, 8> Y_Kekka{};        ///< X1 to X8
    std::array<float, 8> Y_Ritu{};         ///< achievement rates, percent
    float Y_A_Ten = 0.0F;                  ///< points A, two decimals
    std::int16_t Y_Ten = 0;                ///< score Y
    bool has_figures = false;              ///< the period has rows and at least one element is not 0

    /// Reads the period's statement and computes all results. `kbn` 1 takes 金額, another value 改善後残高;
    /// with Y_Slot_Flg 1 and 2 mean the same and n from 3 on the balance of slot n - 2. A period without rows
    /// leaves X1 to X8 as they were and forms rates, A and Y anew. Raises Store_Error; Run_Time_Error on
    /// overflow, the results are then those of the former call.
    void Calc_Y(const Session& session, std::uint8_t kbn);

    /// The same from figures in hand.
    void Calc_Y(const Statement_Figures& statement, bool hokkaido, bool corporation);

  private:
    static float Calc_Y_X1(const std::array<std::int32_t, 14>& yoso);
    static float Calc_Y_X2(const std::array<std::int32_t, 14>& yoso);
    static float Calc_Y_X3(const std::array<std::int32_t, 14>& yoso);
    static float Calc_Y_X4(const std::array<std::int32_t, 14>& yoso);
    static float Calc_Y_X5(const std::array<std::int32_t, 14>& yoso);
    static float Calc_Y_X6(const std::array<std::int32_t, 14>& yoso);
    static float Calc_Y_X7(const std::array<std::int32_t, 14>& yoso);
    static float Calc_Y_X8(const std::array<std::int32_t, 14>& yoso);
};

} // namespace morvane
