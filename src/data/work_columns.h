// SPDX-FileCopyrightText: The Morvane developers
#pragma once

/// The columns of Kandaka_Gj that every scenario has behind its prefix (改0 to 改3; none for the current
/// state).
namespace morvane::work_column {

inline constexpr const char* before_last = "完工高前々期"; ///< completed work, thousand yen
inline constexpr const char* last = "完工高前期";
inline constexpr const char* former_average = "完工高前平均";
inline constexpr const char* base = "完工高基準";
inline constexpr const char* average = "完工高平均";
inline constexpr const char* x1 = "評点X1";
inline constexpr const char* engineers_1 = "技術者1"; ///< persons
inline constexpr const char* engineers_2 = "技術者2";
inline constexpr const char* engineers_3 = "技術者3";
inline constexpr const char* engineers_4 = "技術者4";
inline constexpr const char* engineers_5 = "技術者5";
inline constexpr const char* engineers_6 =
    "技術者6"; ///< from 2021 on; older stores lack it until it is added
inline constexpr const char* z1 = "評点Z1";
inline constexpr const char* prime_before_last = "元請完工高前々期"; ///< as prime contractor
inline constexpr const char* prime_last = "元請完工高前期";
inline constexpr const char* prime_former_average = "元請完工高前平均";
inline constexpr const char* prime_base = "元請完工高基準";
inline constexpr const char* prime_average = "元請完工高平均";
inline constexpr const char* z2 = "評点Z2";
inline constexpr const char* z = "評点Z";
inline constexpr const char* p = "総合評点P";

} // namespace morvane::work_column
