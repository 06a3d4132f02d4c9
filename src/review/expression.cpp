// SPDX-FileCopyrightText: The Morvane developers
#include "review/expression.h"

#include "session/kyotu_mod.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace morvane {

namespace {

using Whole = Fraction::Whole;

Whole Common_Factor(Whole a, Whole b) {
    while (b != 0) {
        const Whole rest = a % b;
        a = b;
        b = rest;
    }
    return a < 0 ? -a : a;
}

} // namespace

Fraction::Fraction(Whole the_numerator, Whole the_denominator) {
    Whole factor = Common_Factor(the_numerator, the_denominator);
    if ((the_denominator < 0) != (factor < 0)) {
        factor = -factor;
    }
    numerator = the_numerator / factor;
    denominator = the_denominator / factor;
}

Whole Fraction::Floor() const {
    const Whole cut = numerator / denominator;
    return numerator % denominator < 0 ? cut - 1 : cut;
}

double Fraction::To_Double() const {
    return static_cast<double>(static_cast<long double>(numerator) / static_cast<long double>(denominator));
}

Fraction operator+(const Fraction& a, const Fraction& b) {
    return {a.numerator * b.denominator + b.numerator * a.denominator, a.denominator * b.denominator};
}

Fraction operator-(const Fraction& a, const Fraction& b) {
    return {a.numerator * b.denominator - b.numerator * a.denominator, a.denominator * b.denominator};
}

Fraction operator*(const Fraction& a, const Fraction& b) {
    return {a.numerator * b.numerator, a.denominator * b.denominator};
}

Fraction operator/(const Fraction& a, const Fraction& b) {
    return {a.numerator * b.denominator, a.denominator * b.numerator};
}

bool operator<(const Fraction& a, const Fraction& b) {
    return a.numerator * b.denominator < b.numerator * a.denominator;
}

Fraction Power_Of_Ten(int exponent) {
    Whole power = 1;
    for (; exponent > 0; --exponent) {
        power *= 10;
    }
    return power;
}

namespace {

// The value of a printed figure: digits with commas and a decimal point.
Fraction Printed_Value(const std::string& text) {
    Whole digits = 0;
    int decimals = 0;
    bool behind_point = false;
    for (const char c : text) {
        if (c == '.') {
            behind_point = true;
        } else if (c >= '0' && c <= '9') {
            digits = digits * 10 + (c - '0');
            decimals += behind_point ? 1 : 0;
        }
    }
    return Fraction(text.starts_with('-') ? -digits : digits) / Power_Of_Ten(decimals);
}

std::string Fixed_Text(double figure, int decimals) {
    std::array<char, 400> digits{};
    std::snprintf(digits.data(), digits.size(), "%.*f", decimals, figure);
    std::string text = digits.data();
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    for (std::size_t at = std::min(text.find('.'), text.size()); at > first + 3; at -= 3) {
        text.insert(at - 3, ",");
    }
    return text;
}

} // namespace

Expression::Expression(std::int32_t figure) : text(Comma_Str(figure)), value(figure) {}

Expression::Expression(double figure, int decimals)
    : text(Fixed_Text(figure, decimals)), value(Printed_Value(text)) {}

Expression Expression::Decimal(double figure) {
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%.6g", figure);
    const std::string text = digits.data();
    const std::size_t point = text.find('.');
    return {figure, point == std::string::npos ? 0 : static_cast<int>(text.size() - point - 1)};
}

Expression Expression::Mean(float figure) {
    return {static_cast<double>(figure), std::floor(figure) == figure ? 0 : 1};
}

std::string Expression::Left_Of(Rank least) const {
    return rank < least ? "（" + text + "）" : text;
}

// A negative figure behind an operator is bracketed too.
std::string Expression::Right_Of(Rank least) const {
    return rank < least || text.starts_with('-') ? "（" + text + "）" : text;
}

namespace {

// Brackets bring their own room.
std::string Joined(const std::string& left, const char* sign, const std::string& right) {
    return left + (left.ends_with("）") ? "" : " ") + sign + (right.starts_with("（") ? "" : " ") + right;
}

} // namespace

Expression operator+(const Expression& a, const Expression& b) {
    return {Joined(a.text, "＋", b.Right_Of(Expression::Rank::Product)), a.value + b.value,
            Expression::Rank::Sum};
}

Expression operator-(const Expression& a, const Expression& b) {
    return {Joined(a.text, "－", b.Right_Of(Expression::Rank::Product)), a.value - b.value,
            Expression::Rank::Sum};
}

Expression operator*(const Expression& a, const Expression& b) {
    return {Joined(a.Left_Of(Expression::Rank::Product), "×", b.Right_Of(Expression::Rank::Figure)),
            a.value * b.value, Expression::Rank::Product};
}

Expression operator/(const Expression& a, const Expression& b) {
    return {Joined(a.Left_Of(Expression::Rank::Product), "／", b.Right_Of(Expression::Rank::Figure)),
            a.value / b.value, Expression::Rank::Product};
}

} // namespace morvane
