// SPDX-FileCopyrightText: The Morvane developers
#include "review/explain.h"

#include "law/ten_tables.h"

namespace morvane {

namespace {

// The rounding that leads from the exact value to the printed one, in words. A half of a negative value, and
// what the analysis counts as a half (from 0.499 on), differ from what is taught as 四捨五入.
std::string Rounding_Text(const Fraction& exact, const Fraction& shown, Rounding rounding, int decimals) {
    if (exact == shown) {
        return "";
    }
    const std::string of =
        decimals == 0 ? "小数点以下の端数は" : "小数点以下" + std::to_string(decimals) + "位未満の端数は";
    const Fraction value = exact * Power_Of_Ten(decimals);
    const Fraction result = shown * Power_Of_Ten(decimals);
    const bool negative = value < Fraction(0);
    const Fraction size = negative ? Fraction(0) - value : value;
    const auto signed_value = [negative](Fraction::Whole whole) {
        return Fraction(negative ? -whole : whole);
    };
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

Expression Steps::Add(const std::string& name, const std::string& text, const Expression& result) {
    lines.push_back({name, text});
    last = result.text;
    return result;
}

Expression Steps::Work(const std::string& name, const Expression& expression, const Expression& result,
                       Rounding rounding, int decimals) {
    const std::string taken = Rounding_Text(expression.value, result.value, rounding, decimals);
    return Add(name, expression.text + " ＝ " + result.text + (taken.empty() ? "" : "（" + taken + "）"),
               result);
}

Expression Steps::Take(const std::string& name, const Expression& figure) {
    return Add(name, figure.text, figure);
}

Expression Steps::Because(const std::string& name, const std::string& condition, const Expression& result) {
    return Add(name, condition + " のため " + result.text, result);
}

void Steps::Tell(const std::string& name, const std::string& comparison) {
    lines.push_back({name, comparison});
}

Expression Steps::At_Least(const Expression& figure, const Expression& least) {
    return figure.value < least.value ? Because("下限", figure.text + " ＜ " + least.text, least) : figure;
}

Expression Steps::By_Table(const std::string& name, const Ten_Table& table, const Expression& amount,
                           std::int32_t v) {
    const auto [ten, row] = Ten_Lookup(table, v);
    if (row < 0) {
        return Because(name, amount.text + " ＜ 0", ten);
    }
    if (row == 0) {
        return Because(name, amount.text + " ≧ " + Expression(table.constant_from).text, ten);
    }
    if (!Printed_As_Computed(table, row)) {
        Remark("別表のこの行に表示される式は係数が異なります。点数は計算過程の式で算出します。");
    }
    const Ten_Row& formula = table.rows[static_cast<std::size_t>(row - 1)];
    return Work(name,
                Expression(formula.multiplier) * amount / Expression(formula.divisor) +
                    Expression(formula.addend),
                ten);
}

Expression Steps::By_Row(const Expression& figure, const Points_Table& table) {
    if (table.mark < 0) {
        return Because("下表", figure.text + "（該当する行なし）", 0);
    }
    const Points_Table::Row& row = table.rows[static_cast<std::size_t>(table.mark)];
    const Expression points(std::int32_t{row.points.Count()});
    return Add("下表", "「" + row.item + "」のため " + points.text, points);
}

} // namespace morvane
