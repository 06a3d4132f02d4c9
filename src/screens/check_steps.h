// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/check_sheet.h"

#include <cstdint>
#include <string>

namespace morvane {

struct Ten_Table;

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

/// A figure, or an expression of figures, as a sheet prints it, with the value of what is printed.
class Term {
  public:
    Term(std::int32_t figure); // NOLINT: figures stand in expressions as they are
    /// A figure with fixed decimals.
    Term(double figure, int decimals);
    /// A figure with the decimals that it has, at most six digits.
    static Term Decimal(double figure);

    std::string text;
    Fraction value;

    friend Term operator+(const Term& a, const Term& b);
    friend Term operator-(const Term& a, const Term& b);
    friend Term operator*(const Term& a, const Term& b);
    friend Term operator/(const Term& a, const Term& b);

  private:
    enum class Rank { Sum, Product, Figure };
    Term(std::string the_text, const Fraction& the_value, Rank the_rank)
        : text(std::move(the_text)), value(the_value), rank(the_rank) {}

    [[nodiscard]] std::string Right_Of(Rank least) const;
    [[nodiscard]] std::string Left_Of(Rank least) const;

    Rank rank = Rank::Figure;
};

/// How a step takes the digits behind those of its result: cuts them, rounds a half up, or rounds up from
/// 0.499 on.
enum class Rounding { Cut, Half, From_499 };

/// Writes the steps of a sheet: each is a line that can be followed with pencil and paper. The line names the
/// rounding that was really taken, where the printed result is not the exact value.
class Steps {
  public:
    explicit Steps(Check_Sheet& of) : sheet(of) {}

    /// "expression ＝ result（rounding）". Gives the result as a figure.
    Term Work(const std::string& name, const Term& expression, const Term& result,
              Rounding rounding = Rounding::Cut, int decimals = 0);

    /// A figure that the sheet does not show elsewhere, or that the next steps go on with.
    Term Take(const std::string& name, const Term& figure);

    /// "condition のため result": a limit, a floor, a choice.
    Term Because(const std::string& name, const std::string& condition, const Term& result);

    /// A comparison that places a figure.
    void Tell(const std::string& name, const std::string& comparison);

    /// A line under the sheet's figures.
    void Remark(const std::string& text) { sheet.closing.push_back(text); }

    /// What the last step gave, as it is printed; empty before the first one.
    [[nodiscard]] const std::string& Result() const { return last; }

    /// A figure that must not be below `least`: a step only where it is.
    Term At_Least(const Term& figure, const Term& least);

    /// The score of an amount by a table of the law, as it is computed.
    Term By_Table(const std::string& name, const Ten_Table& table, const Term& amount, std::int32_t v);

    /// The points of the row in force of the table on the sheet; of nothing where no row is.
    Term By_Row(const Term& figure);

  private:
    Term Add(const std::string& name, const std::string& text, const Term& result);

    Check_Sheet& sheet;
    std::string last;
};

} // namespace morvane
