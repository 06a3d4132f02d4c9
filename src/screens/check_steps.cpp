// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_steps.h"

#include "law/ten_tables.h"
#include "session/kyotu_mod.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace morvane {

// ---- Fraction

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

Whole Power_Of_Ten(int exponent) {
    Whole power = 1;
    for (; exponent > 0; --exponent) {
        power *= 10;
    }
    return power;
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

// ---- Term

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
    return {text.starts_with('-') ? -digits : digits, Power_Of_Ten(decimals)};
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

Term::Term(std::int32_t figure) : text(Comma_Str(figure)), value(figure) {}

Term::Term(double figure, int decimals) : text(Fixed_Text(figure, decimals)), value(Printed_Value(text)) {}

Term Term::Decimal(double figure) {
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%.6g", figure);
    const std::string text = digits.data();
    const std::size_t point = text.find('.');
    return {figure, point == std::string::npos ? 0 : static_cast<int>(text.size() - point - 1)};
}

std::string Term::Left_Of(Rank least) const {
    return rank < least ? "（" + text + "）" : text;
}

// A negative figure behind an operator is bracketed too.
std::string Term::Right_Of(Rank least) const {
    return rank < least || text.starts_with('-') ? "（" + text + "）" : text;
}

namespace {

// Brackets bring their own room.
std::string Joined(const std::string& left, const char* sign, const std::string& right) {
    return left + (left.ends_with("）") ? "" : " ") + sign + (right.starts_with("（") ? "" : " ") + right;
}

} // namespace

Term operator+(const Term& a, const Term& b) {
    return {Joined(a.text, "＋", b.Right_Of(Term::Rank::Product)), a.value + b.value, Term::Rank::Sum};
}

Term operator-(const Term& a, const Term& b) {
    return {Joined(a.text, "－", b.Right_Of(Term::Rank::Product)), a.value - b.value, Term::Rank::Sum};
}

Term operator*(const Term& a, const Term& b) {
    return {Joined(a.Left_Of(Term::Rank::Product), "×", b.Right_Of(Term::Rank::Figure)), a.value * b.value,
            Term::Rank::Product};
}

Term operator/(const Term& a, const Term& b) {
    return {Joined(a.Left_Of(Term::Rank::Product), "／", b.Right_Of(Term::Rank::Figure)), a.value / b.value,
            Term::Rank::Product};
}

// ---- Steps

namespace {

// The rounding that leads from the exact value to the printed one, in words. A half of a negative value, and
// what the analysis counts as a half (from 0.499 on), differ from what is taught as 四捨五入.
std::string Rounding_Text(const Fraction& exact, const Fraction& shown, Rounding rounding, int decimals) {
    if (exact == shown) {
        return "";
    }
    const std::string of =
        decimals == 0 ? "小数点以下の端数は" : "小数点以下" + std::to_string(decimals) + "位未満の端数は";
    const Fraction value = exact * Fraction(Power_Of_Ten(decimals));
    const Fraction result = shown * Fraction(Power_Of_Ten(decimals));
    const bool negative = value < Fraction(0);
    const Fraction size = negative ? Fraction(0) - value : value;
    const auto signed_value = [negative](Whole whole) { return Fraction(negative ? -whole : whole); };
    if (rounding == Rounding::Cut) {
        if (result == signed_value(size.Floor())) {
            return of + "切り捨て";
        }
        if (result == Fraction(value.Floor())) {
            return of + "切り下げ";
        }
    } else {
        if (result == signed_value((size + Fraction(1, 2)).Floor())) {
            return of + "四捨五入";
        }
        const bool half = rounding == Rounding::Half;
        if (result == Fraction((value + (half ? Fraction(1, 2) : Fraction(501, 1000))).Floor())) {
            return of + (half ? "0.5以上を切り上げ" : "0.499以上を切り上げ");
        }
    }
    if (static_cast<double>(static_cast<float>(exact.To_Double())) == shown.To_Double()) {
        return "単精度で保持";
    }
    return "計算精度による端数";
}

} // namespace

Term Steps::Add(const std::string& name, const std::string& text, const Term& result) {
    sheet.steps.push_back({name, text});
    last = result.text;
    return result;
}

Term Steps::Work(const std::string& name, const Term& expression, const Term& result, Rounding rounding,
                 int decimals) {
    const std::string taken = Rounding_Text(expression.value, result.value, rounding, decimals);
    return Add(name, expression.text + " ＝ " + result.text + (taken.empty() ? "" : "（" + taken + "）"),
               result);
}

Term Steps::Take(const std::string& name, const Term& figure) {
    return Add(name, figure.text, figure);
}

Term Steps::Because(const std::string& name, const std::string& condition, const Term& result) {
    return Add(name, condition + " のため " + result.text, result);
}

void Steps::Tell(const std::string& name, const std::string& comparison) {
    sheet.steps.push_back({name, comparison});
}

Term Steps::At_Least(const Term& figure, const Term& least) {
    return figure.value < least.value ? Because("下限", figure.text + " ＜ " + least.text, least) : figure;
}

Term Steps::By_Table(const std::string& name, const Ten_Table& table, const Term& amount, std::int32_t v) {
    const auto [ten, row] = Ten_Lookup(table, v);
    if (row < 0) {
        return Because(name, amount.text + " ＜ 0", ten);
    }
    if (row == 0) {
        return Because(name, amount.text + " ≧ " + Term(table.constant_from).text, ten);
    }
    if (!Printed_As_Computed(table, row)) {
        Remark("別表のこの行に表示される式は係数が異なります。点数は計算過程の式で算出します。");
    }
    const Ten_Row& formula = table.rows[static_cast<std::size_t>(row - 1)];
    return Work(name, Term(formula.multiplier) * amount / Term(formula.divisor) + Term(formula.addend), ten);
}

Term Steps::By_Row(const Term& figure) {
    const Check_Table& table = sheet.tables.back();
    if (table.mark < 0) {
        return Because("下表", figure.text + "（該当する行なし）", 0);
    }
    const std::vector<Named_Text>& row = table.rows[static_cast<std::size_t>(table.mark)];
    const Term points(static_cast<std::int32_t>(std::stol(row.back().text)));
    return Add("下表", "「" + row.front().text + "」のため " + points.text, points);
}

} // namespace morvane
