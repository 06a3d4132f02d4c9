// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace morvane {

// The weights of the scores. They are single-precision figures: where a decimal cannot be held, what is held
// lies a little above it (0.8, 0.2, 0.15), so that a whole result is never lost to rounding.

/// P (総合評定値): 建設業法施行規則 第21条の3.
struct P_Weights {
    float x1, x2, y, z, w;
};
inline constexpr P_Weights p_weights = {0.25F, 0.15F, 0.2F, 0.25F, 0.15F};

// X2 and Z: annex 経営規模等評価の結果を評点で表す方法 of the Ministry's notice
// 経営事項審査の事務取扱いについて (平成20年1月31日国総建第269号).

/// X2 is the mean of its two scores, cut, and not below this.
inline constexpr std::int16_t x2_least = 454;

/// Z is formed of the engineers' score (Z1) and that of prime-contract work (Z2), and is not below this.
struct Z_Weights {
    float z1, z2;
};
inline constexpr Z_Weights z_weights = {0.8F, 0.2F};
inline constexpr std::int16_t z_least = 450;

/// The engineer value: what an engineer of the six kinds counts. The sixth kind, assistants of supervising
/// engineers (監理技術者補佐), came into the law last (1 April 2021) and stands between the second and the
/// third.
inline constexpr std::array<std::int32_t, 6> engineer_weights = {6, 5, 3, 2, 1, 4};

/// The kinds, heaviest first.
inline constexpr std::array<std::size_t, 6> engineers_by_weight = {0, 1, 5, 2, 3, 4};

} // namespace morvane
