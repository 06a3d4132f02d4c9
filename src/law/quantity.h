// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/checked.h"

#include <compare>
#include <concepts>
#include <cstdint>

namespace morvane {

/// A whole number of one unit. Numbers of different units neither add nor compare nor assign to each other,
/// and a plain number becomes one only where the code says so. Arithmetic is checked: a result outside the
/// width raises Run_Time_Error (overflow); `In_Calculation` gives that failure the name of what was computed.
template <class Unit, std::signed_integral Width>
class Quantity {
  public:
    using Rep = Width;

    constexpr Quantity() = default;
    explicit constexpr Quantity(Rep number) : held(number) {}

    /// From a number of any width; raises Run_Time_Error where it does not fit.
    [[nodiscard]] static Quantity Of(std::int64_t number) { return Quantity(Narrow<Rep>(number, "")); }

    /// The bare number, for stores, texts and single-precision formulas.
    [[nodiscard]] constexpr Rep Count() const { return held; }

    friend Quantity operator+(Quantity a, Quantity b) { return Of(std::int64_t{a.held} + b.held); }
    friend Quantity operator-(Quantity a, Quantity b) { return Of(std::int64_t{a.held} - b.held); }
    friend Quantity operator*(Quantity a, std::int32_t times) { return Of(std::int64_t{a.held} * times); }
    friend Quantity operator*(std::int32_t times, Quantity a) { return a * times; }
    Quantity operator-() const { return Of(-std::int64_t{held}); }
    Quantity& operator+=(Quantity other) { return *this = *this + other; }
    Quantity& operator-=(Quantity other) { return *this = *this - other; }

    friend constexpr auto operator<=>(const Quantity&, const Quantity&) = default;

  private:
    Rep held = 0;
};

/// Amounts of the review (千円): signed 32 bits.
using Thousand_Yen = Quantity<struct Thousand_Yen_Unit, std::int32_t>;

/// Scores of the review (点): signed 16 bits.
using Points = Quantity<struct Points_Unit, std::int16_t>;

/// Persons, machines, years and certificates: signed 32 bits.
using Head_Count = Quantity<struct Head_Count_Unit, std::int32_t>;

/// An amount of a statement (円), as the stores hold it: a whole number or, in older stores, one with a
/// fraction, up to 15 digits. It adds and subtracts; there is no way to the review but To_Thousand_Yen.
class Yen {
  public:
    constexpr Yen() = default;
    explicit constexpr Yen(double yen) : held(yen) {}

    [[nodiscard]] constexpr double Count() const { return held; }

    friend constexpr Yen operator+(Yen a, Yen b) { return Yen(a.held + b.held); }
    friend constexpr Yen operator-(Yen a, Yen b) { return Yen(a.held - b.held); }
    constexpr Yen operator-() const { return Yen(-held); }
    constexpr Yen& operator+=(Yen other) { return *this = *this + other; }
    constexpr Yen& operator-=(Yen other) { return *this = *this - other; }
    friend constexpr auto operator<=>(const Yen&, const Yen&) = default;

  private:
    double held = 0.0;
};

/// The one cut from yen to thousand yen: toward zero. Raises Run_Time_Error (overflow) beyond 32 bits.
[[nodiscard]] inline Thousand_Yen To_Thousand_Yen(Yen amount) {
    return Thousand_Yen(Narrow_Double<std::int32_t>(std::trunc(amount.Count() / 1000.0), ""));
}

/// Runs a computation; an overflow in it that bears no name yet is told as one of `what` (Japanese), a text
/// or what gives one when it is needed.
template <class Name, class Computation>
auto In_Calculation(const Name& what, Computation&& computation) -> decltype(computation()) {
    try {
        return computation();
    } catch (const Run_Time_Error& error) {
        if (error.kind != Run_Time_Error::Kind::Overflow || !error.Is_Unnamed()) {
            throw;
        }
    }
    if constexpr (std::invocable<const Name&>) {
        Throw_Overflow_Of(what());
    } else {
        Throw_Overflow_Of(what);
    }
}

} // namespace morvane
