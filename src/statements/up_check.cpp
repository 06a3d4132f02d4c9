// SPDX-FileCopyrightText: The Morvane developers
#include "statements/up_check.h"

#include "session/kyotu_mod.h"

#include <algorithm>

namespace morvane {

namespace {

using namespace statement_form;
using enum Account;

constexpr Panel_Group assets = Panel_Group::Assets;
constexpr Panel_Group debts = Panel_Group::Liabilities;
constexpr Panel_Group profit = Panel_Group::Profit;
constexpr Panel_Group check = Panel_Group::Check;

constexpr auto table = std::to_array<Statement_Line>({
    {"BsIp_Rds", "流動資産合計", assets, any, {Current_Assets}},
    {"BsIp_KtsKei", "固定資産合計", assets, any, {Fixed_Assets}},
    {"BsIp_KnsKei", "繰延資産合計", assets, corporation, {Deferred_Assets}},
    {"BsIp_SSKei", "資産合計", assets, any, {Total_Assets}, true},

    {"BsIp_Rdf", "流動負債計", debts, any, {Current_Liabilities}},
    {"BsIp_Ktf", "固定負債計", debts, any, {Fixed_Liabilities}},
    {"BsIp_FSiKei", "負債合計", debts, any, {Liabilities}, true},
    // Without the capital surplus, which the panel of the statements adds here.
    {"BsIp_Shk", "資本金等", debts, corporation, {Capital, Capital_Deposits}},
    {"BsIp_Hjk", "繰越利益剰余金", debts, corporation, {Retained_Earnings_Carried}},
    {"BsIp_Rjkei", "利益剰余金合計", debts, corporation, {Retained_Earnings}},
    {"BsIp_JKabu", "自己株式・申込金", debts, corporation, {Treasury_Share_Deposits, Treasury_Shares}},
    {"BsIp_KKbkei", "株主資本合計", debts, corporation, {Shareholders_Equity}},
    {"BsIp_Hyok", "評価・換算差額合計", debts, corporation, {Valuation_Differences}},
    {"BsIp_Skb", "新株予約権", debts, corporation, {Share_Subscription_Rights}},
    {"bsIp_SHKei", "純資産合計", debts, corporation, {Net_Assets}, true},
    {"BsIp_FSSKei", "負債純資産合計", debts, corporation, {Liabilities_And_Net_Assets}, true},
    {"BsIp_Shk", "期首資本金等", debts, individual, {Capital, Capital_Deposits, -Drawings}},
    {"BsIp_Msr", "事業主利益", debts, individual, {Retained_Earnings_Carried}},
    {"bsIp_SHKei", "資本合計", debts, individual, {Net_Assets}, true},
    {"BsIp_FSSKei", "負債資本合計", debts, individual, {Liabilities_And_Net_Assets}, true},

    {"PLIp_Kkg", "完成工事総利益", profit, national, {Completed_Work_Profit_National}},
    // The journal does not move the row of this profit in the Hokkaido chart.
    {"PLIp_Kkg", "完成工事総利益", profit, hokkaido, {Gross_Profit, -Side_Business_Profit}},
    {"PLIp_Kng", "兼業事業総利益", profit, any, {Side_Business_Profit}},
    {"PLIp_Kug", "売上総利益", profit, any, {Gross_Profit}, true},
    {"PLIp_Ipk", "販売・一般管理費計", profit, any, {General_Expenses}},
    {"PLIp_EgrKei", "営業利益", profit, any, {Operating_Profit}, true},
    {"PLIp_Egs", "営業外収益計", profit, any, {Non_Operating_Income}},
    {"PLIp_Egh", "営業外費用計", profit, any, {Non_Operating_Expenses}},
    {"PLIp_KjrKei", "経常利益", profit, corporation, {Ordinary_Profit}, true},
    {"PLIp_KjrKei", "事業主利益", profit, individual, {Ordinary_Profit}, true},
    {"PLIp_Tbr", "特別利益計", profit, corporation, {Extraordinary_Gains}},
    {"PLIp_Tbs", "特別損失計", profit, corporation, {Extraordinary_Losses}},
    {"PLIp_ZtrKei", "税引前当期純利益", profit, corporation, {Profit_Before_Taxes}, true},
    // No chart has a total row of the taxes.
    {"PLIp_Hjz", "法人税等", profit, corporation, {Income_Taxes, Income_Taxes_Deferred}},
    {"PLIp_TkrKei", "当期純利益", profit, corporation, {Profit_Of_Corporation}, true},

    {"Chk_ZRki", "前期 繰越利益剰余金", check, corporation, {Prior_Retained_Earnings}},
    {"Chk_TJrki", "当期純利益", check, corporation, {Profit_Of_Corporation}},
    {"Chk_TRki", "当期 繰越利益剰余金", check, corporation, {Retained_Earnings_Carried}},
    {"chk_Tkhendo", "当期変動額合計", check, corporation, {Equity_Change}},
    {"Chk_Sa",
     "差額",
     check,
     corporation,
     {Prior_Retained_Earnings, Profit_Of_Corporation, -Retained_Earnings_Carried, -Equity_Change},
     true},
    {"Chk_Tai", "貸借対照表 事業主利益", check, individual, {Retained_Earnings_Carried}},
    {"Chk_Son", "損益計算書 事業主利益", check, individual, {Profit_Of_Individual}},
    {"Chk_Sa", "差額", check, individual, {Retained_Earnings_Carried, -Profit_Of_Individual}, true},
});

} // namespace

Up_Check::Up_Check(const Session& session)
    : form(Statement_Form_Of(session.Kind())),
      book(Cn_Open(session), session.Syori_Ki, {"改善後残高", "金額"}, Hidden_Rows::Counted),
      lines(Lines_Of(table, form)) {}

bool Up_Check::Check() const {
    const auto difference = std::find_if(lines.begin(), lines.end(), [](const Statement_Line& line) {
        return std::string_view(line.control) == "Chk_Sa";
    });
    const Amounts amounts = Shown(*difference);
    return amounts[0] == Yen() && amounts[1] == Yen();
}

const char* Up_Check::Check_Text() const {
    return Check_Text_Of(Check(), (form & corporation) != 0);
}

std::string Up_Check::Control(const std::string& line, std::size_t column) {
    if (column == 0) {
        return line;
    }
    const std::size_t end = line.find('_');
    const std::string place = line.substr(0, end); // BsIp, PLIp, Chk
    return (place.ends_with("Ip") ? place.substr(0, 2) : place) + "Ks" + line.substr(end);
}

} // namespace morvane
