// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/review_figures.h"
#include "session/session.h"

#include <array>
#include <cstdint>

namespace morvane {

/// Places of Y_Yoso.
namespace y_yoso {
enum Place : std::size_t {
    kotei_sisan,    // 固定資産
    ryudo_fusai,    // 流動負債
    kotei_fusai,    // 固定負債
    rieki_joyokin,  // 利益剰余金
    jiko_sihon,     // 自己資本
    so_sihon,       // 総資本（当期）
    so_sihon_zenki, // 総資本（前期）
    uriage,         // 売上高
    uriage_sorieki, // 売上総利益
    uketori_risoku, // 受取利息配当金
    siharai_risoku, // 支払利息
    keijo_rieki,    // 経常（事業主）利益
    cash_flow,      // 営業キャッシュフロー（当期）
    cash_flow_zenki // 営業キャッシュフロー（前期）
};
} // namespace y_yoso

/// The limits between which an indicator counts; the worse one is the upper one for X1 and X2.
struct Y_Limits {
    float lower, upper;
};
inline constexpr std::array<Y_Limits, 8> y_limits = {{{-0.3F, 5.1F},
                                                      {0.9F, 18.0F},
                                                      {6.5F, 63.6F},
                                                      {-8.5F, 5.1F},
                                                      {-76.5F, 350.0F},
                                                      {-68.6F, 68.5F},
                                                      {-10.0F, 15.0F},
                                                      {-3.0F, 100.0F}}};

/// What X1, X2, X4, X5 and X6 are where their denominator is 0: the worst value, but 0 for X6.
inline constexpr std::array<float, 8> y_without_denominator = {5.1F, 18.0F, 0.0F, -8.5F, -76.5F, 0.0F};

/// The total capital of X3 counts as thirty million yen at least (thousand yen).
inline constexpr float y_least_capital = 30000.0F;

/// floor(v × scale + 0.501) ÷ scale: the rounding of the analysis, not half-up.
[[nodiscard]] double Round_501(double v, double scale);

/// The score Y of the points A before it is held at 0. Raises Run_Time_Error beyond 16 bits.
[[nodiscard]] std::int16_t Score_Of_Points(float points);

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
    void Calc_Y(const Statement_Figures& statement, Firm_Kind firm);

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
