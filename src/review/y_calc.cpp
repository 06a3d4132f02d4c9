// SPDX-FileCopyrightText: The Morvane developers
#include "review/y_calc.h"

#include "law/accounts.h"
#include "law/checked.h"

#include <array>
#include <cmath>
#include <string>

namespace morvane {

namespace {

using namespace y_yoso;
using enum Account;

constexpr const char* what_y = "経営状況評点（Ｙ）";

using Elements = std::array<std::int32_t, 14>;
using Working = std::array<std::int32_t, 20>;

Elements Elements_Of(const Statement_Figures& s, Firm_Kind firm) {
    const std::array hokkaido_sales = {Completed_Work_Sales, Side_Business_Sales_Hokkaido};
    Elements yoso{};
    yoso[kotei_sisan] = s.Get_Y_Kamoku(Fixed_Assets);
    yoso[ryudo_fusai] = s.Get_Y_Kamoku(Current_Liabilities);
    yoso[kotei_fusai] = s.Get_Y_Kamoku(Fixed_Liabilities);
    yoso[rieki_joyokin] = s.Get_Y_Kamoku(firm.Is_Corporation() ? Retained_Earnings : Net_Assets);
    yoso[jiko_sihon] = s.Get_Y_Kamoku(Net_Assets);
    yoso[so_sihon] = s.Get_Y_Kamoku(Liabilities_And_Net_Assets);
    yoso[so_sihon_zenki] = s.Get_Y_Kamoku(Prior_Total_Capital);
    yoso[uriage] = firm.Is_Hokkaido() ? s.Get_Y_Sum(hokkaido_sales, what_y) : s.Get_Y_Kamoku(Sales_National);
    yoso[uriage_sorieki] = s.Get_Y_Kamoku(Gross_Profit);
    yoso[uketori_risoku] = s.Get_Y_Kamoku(Interest_And_Dividends);
    yoso[siharai_risoku] = s.Get_Y_Kamoku(Interest_Paid);
    yoso[keijo_rieki] = s.Get_Y_Kamoku(Ordinary_Profit);
    return yoso;
}

// The edition decides where depreciation and the loss allowance stand, the data form of the period where the
// advances received do.
Working Working_Of(const Statement_Figures& s, Edition edition) {
    const auto both = [&s](Account first, Account second) {
        return s.Get_Y_Sum(std::array{first, second}, what_y);
    };
    return {
        // 経常利益（前期）; 減価償却実施額（前期・当期）; 法人税等（前期・当期）
        s.Get_Y_Kamoku(Prior_Ordinary_Profit),
        s.Get_Y_Sum(prior_depreciation_accounts, what_y),
        s.Get_Y_Sum(Depreciation_Accounts(edition), what_y),
        s.Get_Y_Kamoku(Prior_Income_Taxes),
        s.Get_Y_Kamoku(Income_Taxes),
        // 貸倒引当金（前々期・前期・当期）
        both(Second_Prior_Current_Allowance, Second_Prior_Investment_Allowance),
        both(Prior_Current_Allowance, Prior_Investment_Allowance),
        both(Accounts_Of_Edition(edition).current_allowance, Investment_Allowance),
        // 売掛債権（前々期・前期・当期）
        both(Second_Prior_Notes_Receivable, Second_Prior_Completed_Work_Receivables),
        both(Prior_Notes_Receivable, Prior_Completed_Work_Receivables),
        both(Notes_Receivable, Completed_Work_Receivables),
        // 仕入債務（前々期・前期・当期）
        both(Second_Prior_Notes_Payable, Second_Prior_Work_Payables),
        both(Prior_Notes_Payable, Prior_Work_Payables),
        both(Notes_Payable, Work_Payables),
        // 棚卸資産（前々期・前期・当期）
        both(Second_Prior_Uncompleted_Work, Second_Prior_Materials_In_Store),
        both(Prior_Uncompleted_Work, Prior_Materials_In_Store),
        both(Uncompleted_Work, Materials_In_Store),
        // 受入金（前々期・前期・当期）
        s.Get_Y_Kamoku(Second_Prior_Advances_Received),
        s.Get_Y_Kamoku(Prior_Advances_Received),
        s.Get_Y_Kamoku(s.form == 6 ? Advances_Received_Hokkaido : Advances_Received_National),
    };
}

std::int32_t Plus(std::int32_t a, std::int32_t b) {
    return Add32(a, b, what_y);
}
std::int32_t Minus(std::int32_t a, std::int32_t b) {
    return Sub32(a, b, what_y);
}

/// Profit + depreciation - tax, + rise of the loss allowances, + fall of receivables, + rise of payables, +
/// fall of inventories, + rise of advances received, each between two year ends: `year` 0 from the
/// second-prior to the prior one, 1 from there to the current one.
std::int32_t Cash_Flow(std::int32_t profit, std::int32_t depreciation, std::int32_t tax, const Working& w,
                       std::size_t year) {
    std::int32_t flow = Minus(Plus(profit, depreciation), tax);
    flow = Minus(flow, Minus(w[5 + year], w[6 + year]));
    flow = Plus(flow, Minus(w[8 + year], w[9 + year]));
    flow = Minus(flow, Minus(w[11 + year], w[12 + year]));
    flow = Plus(flow, Minus(w[14 + year], w[15 + year]));
    return Minus(flow, Minus(w[17 + year], w[18 + year]));
}

/// A ratio in percent with three decimals.
float Percent(double num, double den) {
    return static_cast<float>(Round_501(num / den, 100000) * 100);
}

// Indicator number `x` held within its limits.
float Within(float value, std::size_t x) {
    const auto [lower, upper] = y_limits[x - 1];
    if (value >= upper) {
        return upper;
    }
    return value <= lower ? lower : value;
}

} // namespace

double Round_501(double v, double scale) {
    return std::floor(v * scale + 0.501) / scale;
}

std::int16_t Score_Of_Points(float points) {
    return Narrow_Double<std::int16_t>(std::floor(167.3 * points + 583 + 0.501), what_y);
}

float Y_Calc::Calc_Y_X1(const Elements& yoso) {
    const std::int32_t interest = Minus(yoso[siharai_risoku], yoso[uketori_risoku]);
    return yoso[uriage] == 0 ? y_without_denominator[0] : Within(Percent(interest, yoso[uriage]), 1);
}

float Y_Calc::Calc_Y_X2(const Elements& yoso) {
    const std::int32_t debt = Plus(yoso[ryudo_fusai], yoso[kotei_fusai]);
    if (yoso[uriage] == 0) {
        return y_without_denominator[1];
    }
    const double monthly_sales = yoso[uriage] / 12.0;
    return Within(static_cast<float>(Round_501(debt / monthly_sales, 1000)), 2);
}

float Y_Calc::Calc_Y_X3(const Elements& yoso) {
    float average = static_cast<float>(Plus(yoso[so_sihon_zenki], yoso[so_sihon]) / 2.0);
    if (average <= y_least_capital) {
        average = y_least_capital;
    }
    return Within(Percent(yoso[uriage_sorieki], average), 3);
}

float Y_Calc::Calc_Y_X4(const Elements& yoso) {
    return yoso[uriage] == 0 ? y_without_denominator[3] : Within(Percent(yoso[keijo_rieki], yoso[uriage]), 4);
}

float Y_Calc::Calc_Y_X5(const Elements& yoso) {
    return yoso[kotei_sisan] == 0 ? y_without_denominator[4]
                                  : Within(Percent(yoso[jiko_sihon], yoso[kotei_sisan]), 5);
}

float Y_Calc::Calc_Y_X6(const Elements& yoso) {
    return yoso[so_sihon] == 0 ? y_without_denominator[5]
                               : Within(Percent(yoso[jiko_sihon], yoso[so_sihon]), 6);
}

float Y_Calc::Calc_Y_X7(const Elements& yoso) {
    const auto average = static_cast<float>(Plus(yoso[cash_flow_zenki], yoso[cash_flow]) / 2.0);
    return Within(static_cast<float>(Round_501(static_cast<double>(average) / 100000, 1000)), 7);
}

float Y_Calc::Calc_Y_X8(const Elements& yoso) {
    return Within(static_cast<float>(Round_501(yoso[rieki_joyokin] / 100000.0, 1000)), 8);
}

void Y_Calc::Calc_Y(const Session& session, std::uint8_t kbn) {
    Y_Slot = Y_Slot_Flg ? kbn : Y_Slot;
    Y_Col = kbn == 1 ? 1 : 2;
    Side side = {session.Syori_Ki - (Y_Kikan - 1), Y_Col == 1 ? Scenario::Genjo : Scenario::Kaizen};
    if (Y_Slot_Flg && Y_Slot >= 3) {
        side.scenario = static_cast<Scenario>(Y_Slot);
    }
    Calc_Y(Read_Statement(Cn_Open(session), side), session.Kind());
}

void Y_Calc::Calc_Y(const Statement_Figures& statement, Firm_Kind firm) {
    Elements yoso = Y_Yoso;
    Working work = Y_Work;
    std::array<float, 8> x = Y_Kekka;
    if (statement.has_rows) {
        yoso = Elements_Of(statement, firm);
        work = Working_Of(statement, firm.edition);
        yoso[cash_flow_zenki] = Cash_Flow(work[0], work[1], work[3], work, 0);
        yoso[cash_flow] = Cash_Flow(yoso[keijo_rieki], work[2], work[4], work, 1);
        x = {Calc_Y_X1(yoso), Calc_Y_X2(yoso), Calc_Y_X3(yoso), Calc_Y_X4(yoso),
             Calc_Y_X5(yoso), Calc_Y_X6(yoso), Calc_Y_X7(yoso), Calc_Y_X8(yoso)};
    }
    const std::array<double, 8> rates = {(x[0] - 5.1) / -5.4,  (x[1] - 18.0) / 17.1,  (x[2] - 6.5) / 57.1,
                                         (8.5 + x[3]) / 13.6,  (76.5 + x[4]) / 426.5, (68.6 + x[5]) / 137.1,
                                         (x[6] + 10.0) / 25.0, (x[7] + 3.0) / 103.0};
    const double points = -0.4650 * x[0] - 0.0508 * x[1] + 0.0264 * x[2] + 0.0277 * x[3] + 0.0011 * x[4] +
                          0.0089 * x[5] + 0.0818 * x[6] + 0.0172 * x[7] + 0.1906;
    const auto a = static_cast<float>(Round_501(points, 100));
    const std::int16_t score = Score_Of_Points(a);

    Y_Yoso = yoso;
    Y_Work = work;
    Y_Kekka = x;
    for (std::size_t i = 0; i < rates.size(); ++i) {
        Y_Ritu[i] = static_cast<float>(std::abs(rates[i]) * 100);
    }
    Y_A_Ten = a;
    Y_Ten = score < 0 ? std::int16_t{0} : score;
    has_figures = statement.has_rows;
    if (has_figures) {
        has_figures = false;
        for (const std::int32_t element : Y_Yoso) {
            has_figures = has_figures || element != 0;
        }
    }
}

} // namespace morvane
