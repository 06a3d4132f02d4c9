// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/run_time_error.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace morvane {

/// Raises Run_Time_Error (overflow) of `what` (Japanese); an empty one leaves the failure without a name, for
/// the calculation around it to name.
[[noreturn]] inline void Throw_Overflow_Of(const std::string& what) {
    throw Run_Time_Error(Run_Time_Error::Kind::Overflow,
                         what.empty() ? what : what + "の計算で桁あふれが発生しました。");
}

/// Integer arithmetic of the scoring engine. Amounts are signed 32 bits of thousand yen, scores signed 16
/// bits; a result outside its width raises Run_Time_Error (overflow) that names `what` in Japanese.
template <class Int>
[[nodiscard]] inline Int Narrow(std::int64_t value, const char* what) {
    if (value < std::numeric_limits<Int>::min() || value > std::numeric_limits<Int>::max()) {
        Throw_Overflow_Of(what);
    }
    return static_cast<Int>(value);
}

/// A whole double as an integer of the given width. A fraction, a NaN or an infinity is not expected here:
/// the caller has floored or cut the value first.
template <class Int>
[[nodiscard]] inline Int Narrow_Double(double value, const char* what) {
    if (!(value >= static_cast<double>(std::numeric_limits<Int>::min()) &&
          value <= static_cast<double>(std::numeric_limits<Int>::max()))) {
        Throw_Overflow_Of(what);
    }
    return static_cast<Int>(value);
}

/// The floor of a double, narrowed: by conversion, since a call of the floor function costs more than the
/// score.
template <class Int>
[[nodiscard]] inline Int Floor_To(double value, const char* what) {
    constexpr double limit = 9.0e15;
    if (!(value > -limit && value < limit)) {
        return Narrow_Double<Int>(value, what);
    }
    const auto cut = static_cast<std::int64_t>(value);
    return Narrow<Int>(static_cast<double>(cut) > value ? cut - 1 : cut, what);
}

/// A stored figure as an integer: rounded to the nearest whole number, a half to the even one, then narrowed.
template <class Int>
[[nodiscard]] inline Int Round_Half_Even(double value, const char* what) {
    if (value > -1.0e9 && value < 1.0e9) {
        const auto whole = static_cast<std::int32_t>(value);
        if (static_cast<double>(whole) == value) {
            return Narrow<Int>(whole, what);
        }
    }
    return Narrow_Double<Int>(std::nearbyint(value), what);
}

} // namespace morvane
