// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/quantity.h"

#include <cstdint>
#include <string>
#include <utility>

namespace morvane {

/// An exact rational number, as large as the figures of a calculation by hand need it.
class Fraction {
  public:
    __extension__ using Whole = __int128;

    Fraction(Whole number) : numerator(number) {} // NOLINT: a whole number is one
    Fraction(Whole the_numerator, Whole the_denominator);

    [[nodiscard]] Whole Floor() const;
    [[nodiscard]] double To_Double() const;

    friend Fraction operator+(const Fraction& a, const Fraction& b);
    friend Fraction operator-(const Fraction& a, const Fraction& b);
    friend Fraction operator*(const Fraction& a, const Fraction& b);
    friend Fraction operator/(const Fraction& a, const Fraction& b); ///< b not 0
    friend bool operator==(const Fraction& a, const Fraction& b) = default;
    friend bool operator<(const Fraction& a, const Fraction& b);

  private:
    Whole numerator;
    Whole denominator = 1; ///< above 0, without a common factor
};

/// A power of ten, from 0 on.
[[nodiscard]] Fraction Power_Of_Ten(int exponent);

/// A figure, or an expression of figures, as it is printed, with the value of what is printed.
class Expression {
  public:
    Expression(std::int32_t figure = 0); // NOLINT: figures stand in expressions as they are
    template <class Unit, class Width>
    Expression(Quantity<Unit, Width> figure) : Expression(std::int32_t{figure.Count()}) {} // NOLINT
    /// A figure with fixed decimals.
    Expression(double figure, int decimals);
    /// A figure with the decimals that it has, at most six digits.
    static Expression Decimal(double figure);
    /// A mean of two whole figures in single precision: its half is kept as far as that has digits.
    static Expression Mean(float figure);

    std::string text;
    Fraction value;

    friend Expression operator+(const Expression& a, const Expression& b);
    friend Expression operator-(const Expression& a, const Expression& b);
    friend Expression operator*(const Expression& a, const Expression& b);
    friend Expression operator/(const Expression& a, const Expression& b);

  private:
    enum class Rank { Sum, Product, Figure };
    Expression(std::string the_text, const Fraction& the_value, Rank the_rank)
        : text(std::move(the_text)), value(the_value), rank(the_rank) {}

    [[nodiscard]] std::string Right_Of(Rank least) const;
    [[nodiscard]] std::string Left_Of(Rank least) const;

    Rank rank = Rank::Figure;
};

} // namespace morvane
