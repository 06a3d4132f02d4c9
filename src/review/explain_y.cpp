// SPDX-FileCopyrightText: The Morvane developers
#include "review/explain.h"

#include <cmath>

namespace morvane {

namespace {

using namespace y_yoso;

constexpr double percent_digits = 100000; // of a ratio: three decimals of its percentage

/// An indicator that is a ratio in percent.
struct Percentage {
    const char* name;
    Place numerator;
    const char* denominator_name;
    Place denominator;
};

// The score takes the limit for a value at or beyond it.
void Within_Limits(Steps& steps, std::size_t x, const Expression& shown, double value) {
    const auto [lower, upper] = y_limits[x - 1];
    const Expression least(static_cast<double>(lower), 3);
    const Expression most(static_cast<double>(upper), 3);
    const auto held = static_cast<float>(value);
    if (held >= upper) {
        steps.Because("上限", shown.text + " ≧ " + most.text, most);
    } else if (held <= lower) {
        steps.Because("下限", shown.text + " ≦ " + least.text, least);
    } else {
        steps.Because("上限・下限", least.text + " ＜ " + shown.text + " ＜ " + most.text, shown);
    }
}

void Percent_Steps(Steps& steps, std::size_t x, const char* name, const Expression& numerator, double num,
                   const Expression& denominator, double den) {
    const double ratio = Round_501(num / den, percent_digits);
    const Expression rounded =
        steps.Work(name, numerator / denominator, Expression(ratio, 5), Rounding::From_499, 5);
    const Expression percent = steps.Work("百分率", rounded * 100, Expression(ratio * 100, 3));
    Within_Limits(steps, x, percent, ratio * 100);
}

// Thousand yen in hundred million.
void Oku_Steps(Steps& steps, std::size_t x, const char* name, const Expression& amount, double thousand_yen) {
    const double oku = Round_501(thousand_yen / 100000, 1000);
    const Expression shown = steps.Work(name, amount / 100000, Expression(oku, 3), Rounding::From_499, 3);
    Within_Limits(steps, x, shown, oku);
}

void Without_Denominator(Steps& steps, std::size_t x, const char* denominator) {
    steps.Because(denominator, "0", Expression(static_cast<double>(y_without_denominator[x - 1]), 3));
}

// A mean of two is held in single precision: its half is kept as far as that has digits.
Expression Mean(Steps& steps, const char* name, std::int32_t a, std::int32_t b, float mean) {
    const bool whole = std::floor(mean) == mean;
    return steps.Work(name, (Expression(a) + b) / 2, Expression(static_cast<double>(mean), whole ? 0 : 1));
}

void Interest_Steps(const Check_Figures& f, Steps& steps) {
    const auto& yoso = f.y.Y_Yoso;
    if (yoso[uriage] == 0) {
        Without_Denominator(steps, 1, "売上高");
        return;
    }
    const std::int32_t interest = yoso[siharai_risoku] - yoso[uketori_risoku];
    const Expression shown = steps.Work("支払利息 － 受取利息配当金",
                                        Expression(yoso[siharai_risoku]) - yoso[uketori_risoku], interest);
    Percent_Steps(steps, 1, "純支払利息比率", shown, interest, yoso[uriage], yoso[uriage]);
}

void Debt_Steps(const Check_Figures& f, Steps& steps) {
    const auto& yoso = f.y.Y_Yoso;
    if (yoso[uriage] == 0) {
        Without_Denominator(steps, 2, "売上高");
        return;
    }
    const std::int32_t debt = yoso[ryudo_fusai] + yoso[kotei_fusai];
    const Expression shown =
        steps.Work("流動負債 ＋ 固定負債", Expression(yoso[ryudo_fusai]) + yoso[kotei_fusai], debt);
    const double months = Round_501(debt / (yoso[uriage] / 12.0), 1000);
    const Expression value = steps.Work("負債回転期間", shown / (Expression(yoso[uriage]) / 12),
                                        Expression(months, 3), Rounding::From_499, 3);
    Within_Limits(steps, 2, value, months);
}

void Capital_Steps(const Check_Figures& f, Steps& steps) {
    const auto& yoso = f.y.Y_Yoso;
    auto mean = static_cast<float>((yoso[so_sihon_zenki] + yoso[so_sihon]) / 2.0);
    Expression capital = Mean(steps, "総資本の平均", yoso[so_sihon_zenki], yoso[so_sihon], mean);
    if (mean < y_least_capital) {
        mean = y_least_capital;
        const Expression least(static_cast<double>(mean), 0);
        capital = steps.Because("総資本の平均の下限", capital.text + " ＜ " + least.text, least);
    }
    Percent_Steps(steps, 3, "総資本売上総利益率", yoso[uriage_sorieki], yoso[uriage_sorieki], capital,
                  static_cast<double>(mean));
}

void Cash_Flow_Steps(const Check_Figures& f, Steps& steps) {
    const auto& yoso = f.y.Y_Yoso;
    const auto& w = f.y.Y_Work;
    const auto flow = [&w](std::int32_t profit, std::int32_t depreciation, std::int32_t tax,
                           std::size_t year) {
        const auto change = [&w, year](std::size_t place) {
            return Expression(w[place + year]) - w[place + year + 1];
        };
        return Expression(profit) + depreciation - tax - change(5) + change(8) - change(11) + change(14) -
               change(17);
    };
    steps.Work("算出額（前期）", flow(w[0], w[1], w[3], 0), yoso[cash_flow_zenki]);
    steps.Work("算出額（当期）", flow(yoso[keijo_rieki], w[2], w[4], 1), yoso[cash_flow]);
    const auto mean = static_cast<float>((yoso[cash_flow_zenki] + yoso[cash_flow]) / 2.0);
    const Expression shown = Mean(steps, "二期平均額", yoso[cash_flow_zenki], yoso[cash_flow], mean);
    Oku_Steps(steps, 7, "営業キャッシュフロー", shown, static_cast<double>(mean));
}

} // namespace

void Steps_Of_Indicator(std::size_t x, const Check_Figures& f, Steps& steps) {
    const auto& yoso = f.y.Y_Yoso;
    switch (x) {
    case 1:
        Interest_Steps(f, steps);
        return;
    case 2:
        Debt_Steps(f, steps);
        return;
    case 3:
        Capital_Steps(f, steps);
        return;
    case 7:
        Cash_Flow_Steps(f, steps);
        return;
    case 8:
        Oku_Steps(steps, 8, "利益剰余金", yoso[rieki_joyokin], yoso[rieki_joyokin]);
        return;
    default:
        break;
    }
    constexpr Percentage ratios[] = {{"売上高経常利益率", keijo_rieki, "売上高", uriage},
                                     {"自己資本対固定資産比率", jiko_sihon, "固定資産", kotei_sisan},
                                     {"自己資本比率", jiko_sihon, "総資本（当期）", so_sihon}};
    const Percentage& ratio = ratios[x - 4];
    if (yoso[ratio.denominator] == 0) {
        Without_Denominator(steps, x, ratio.denominator_name);
        return;
    }
    Percent_Steps(steps, x, ratio.name, yoso[ratio.numerator], yoso[ratio.numerator], yoso[ratio.denominator],
                  yoso[ratio.denominator]);
}

void Steps_Of_A(const Check_Figures& f, Steps& steps) {
    const auto x = [&f](std::size_t number) {
        return Expression(static_cast<double>(f.y.Y_Kekka[number - 1]), 3);
    };
    const auto weight = [](double value) { return Expression(value, 4); };
    steps.Work("経営状況点数",
               weight(-0.4650) * x(1) - weight(0.0508) * x(2) + weight(0.0264) * x(3) +
                   weight(0.0277) * x(4) + weight(0.0011) * x(5) + weight(0.0089) * x(6) +
                   weight(0.0818) * x(7) + weight(0.0172) * x(8) + weight(0.1906),
               Expression(static_cast<double>(f.y.Y_A_Ten), 2), Rounding::From_499, 2);
}

void Steps_Of_Y(const Check_Figures& f, Steps& steps) {
    const Expression points(static_cast<double>(f.y.Y_A_Ten), 2);
    const Expression score = steps.Work("経営状況評点", Expression(167.3, 1) * points + 583,
                                        std::int32_t{Score_Of_Points(f.y.Y_A_Ten)}, Rounding::From_499);
    steps.At_Least(score, 0);
}

} // namespace morvane
