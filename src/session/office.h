// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstdint>

namespace morvane {

/// Who uses an installation: a firm for itself, or an office for many.
enum class Office_Mode : std::uint8_t { Single, Multi };

/// The mode of a 管理者識別: 11 is an office, everything else a firm of its own.
constexpr Office_Mode Office_Mode_Of(std::uint8_t number) {
    return number == 11 ? Office_Mode::Multi : Office_Mode::Single;
}
constexpr std::uint8_t Number_Of(Office_Mode mode) {
    return mode == Office_Mode::Multi ? 11 : 0;
}

/// The unit in which a company's statements are shown (単位): yen, 千円, 百万円.
enum class Display_Unit : std::uint8_t { Ones, Thousands, Millions };

/// The unit of a stored 単位: 1 yen, 2 thousand yen, everything else million yen.
constexpr Display_Unit Display_Unit_Of(std::int64_t number) {
    return number == 1 ? Display_Unit::Ones : number == 2 ? Display_Unit::Thousands : Display_Unit::Millions;
}

} // namespace morvane
