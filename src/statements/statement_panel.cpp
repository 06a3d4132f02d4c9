// SPDX-FileCopyrightText: The Morvane developers
#include "statements/statement_panel.h"

namespace morvane {

namespace {

using namespace statement_form;
using enum Account;

constexpr Panel_Group assets = Panel_Group::Assets;
constexpr Panel_Group debts = Panel_Group::Liabilities;
constexpr Panel_Group profit = Panel_Group::Profit;
constexpr Panel_Group check = Panel_Group::Check;

using line_view::balance_check;
using line_view::panel;
constexpr unsigned both = panel | balance_check;

constexpr auto lines = std::to_array<Statement_Line>({
    {"BsIp_Rds", "流動資産合計", assets, any, {Current_Assets}},
    {"BsIp_Yks", "有形固定資産計", assets, any, {Tangible_Assets}, false, panel},
    {"BsIp_Mks", "無形固定資産計", assets, any, {Intangible_Assets}, false, panel},
    {"BsIp_Tst", "投資等計", assets, any, {Investments}, false, panel},
    {"BsIp_KtsKei", "固定資産合計", assets, any, {Fixed_Assets}, true, panel},
    {"BsIp_KtsKei", "固定資産合計", assets, any, {Fixed_Assets}, false, balance_check},
    {"BsIp_KnsKei", "繰延資産合計", assets, corporation, {Deferred_Assets}},
    {"BsIp_SSKei", "資産合計", assets, any, {Total_Assets}, true},

    {"BsIp_Rdf", "流動負債計", debts, any, {Current_Liabilities}},
    {"BsIp_Ktf", "固定負債計", debts, any, {Fixed_Liabilities}},
    {"BsIp_FSiKei", "負債合計", debts, any, {Liabilities}, true},
    {"BsIp_Shk", "資本金・剰余金等", debts, corporation, {Capital_And_Surplus}, false, panel},
    {"BsIp_Shk", "資本金等", debts, corporation, {Capital, Capital_Deposits}, false, balance_check},
    {"BsIp_Krj", "繰越利益剰余金", debts, corporation, {Retained_Earnings_Carried}, false, both, "BsIp_Hjk"},
    {"BsIp_Rjkei", "利益剰余金合計", debts, corporation, {Retained_Earnings}},
    // The mark of deduction is not carried into this line; the totals take treasury shares off.
    {"BsIp_JKabu", "自己株式・申込金", debts, corporation, {Treasury_Share_Deposits, Treasury_Shares}},
    {"BsIp_KKbkei", "株主資本合計", debts, corporation, {Shareholders_Equity}},
    {"BsIp_Hyok", "評価・換算差額合計", debts, corporation, {Valuation_Differences}},
    {"BsIp_Skb", "新株予約権", debts, corporation, {Share_Subscription_Rights}},
    {"bsIp_SHKei", "純資産合計", debts, corporation, {Net_Assets}, true},
    {"BsIp_FSSKei", "負債純資産合計", debts, corporation, {Liabilities_And_Net_Assets}, true},
    {"BsIp_Shk", "期首資本金等", debts, individual, {Capital_And_Surplus}, false, panel},
    {"BsIp_Shk",
     "期首資本金等",
     debts,
     individual,
     {Capital, Capital_Deposits, -Drawings},
     false,
     balance_check},
    {"BsIp_Msr", "事業主利益", debts, individual, {Retained_Earnings_Carried}},
    {"bsIp_SHKei", "資本合計", debts, individual, {Net_Assets}, true},
    {"BsIp_FSSKei", "負債資本合計", debts, individual, {Liabilities_And_Net_Assets}, true},

    // The journal does not move the row of this profit in the Hokkaido chart.
    {"PLIp_Ksr",
     "完成工事総利益",
     profit,
     any,
     {Gross_Profit, -Side_Business_Profit},
     false,
     both,
     "PLIp_Kkg"},
    {"PLIp_Kjr", "兼業事業総利益", profit, any, {Side_Business_Profit}, false, both, "PLIp_Kng"},
    {"PLIp_Usr", "売上総利益", profit, any, {Gross_Profit}, true, both, "PLIp_Kug"},
    {"PLIp_Hkr", "販売・一般管理費計", profit, any, {General_Expenses}, false, both, "PLIp_Ipk"},
    {"PLIp_EgrKei", "営業利益", profit, any, {Operating_Profit}, true},
    {"PLIp_Egs", "営業外収益計", profit, any, {Non_Operating_Income}},
    {"PLIp_Egh", "営業外費用計", profit, any, {Non_Operating_Expenses}},
    {"PLIp_KjrKei", "経常利益", profit, corporation, {Ordinary_Profit}, true},
    {"PLIp_KjrKei", "事業主利益", profit, individual, {Ordinary_Profit}, true},
    {"PLIp_TrKei", "特別利益計", profit, corporation, {Extraordinary_Gains}, false, both, "PLIp_Tbr"},
    {"PLIp_TsKei", "特別損失計", profit, corporation, {Extraordinary_Losses}, false, both, "PLIp_Tbs"},
    {"PLIp_ZtrKei", "税引前当期純利益", profit, corporation, {Profit_Before_Taxes}, true},
    // No chart has a total row of the taxes.
    {"PLIp_Hjz", "法人税等", profit, corporation, {Income_Taxes, Income_Taxes_Deferred}},
    {"PLIp_TkrKei", "当期純利益", profit, corporation, {Profit_Of_Corporation}, true},

    {"Chk_ZRki",
     "前期貸借対照表\n繰越利益剰余金",
     check,
     corporation,
     {Prior_Retained_Earnings},
     false,
     panel},
    {"Chk_TJrki", "当期損益計算書\n当期純利益", check, corporation, {Profit_Of_Corporation}, false, panel},
    {"Chk_TRki",
     "当期貸借対照表\n繰越利益剰余金",
     check,
     corporation,
     {Retained_Earnings_Carried},
     false,
     panel},
    {"Chk_THen", "当期株主資本等\n変動額合計", check, corporation, {Equity_Change}, false, panel},
    {"Chk_ZRki", "前期 繰越利益剰余金", check, corporation, {Prior_Retained_Earnings}, false, balance_check},
    {"Chk_TJrki", "当期純利益", check, corporation, {Profit_Of_Corporation}, false, balance_check},
    {"Chk_TRki",
     "当期 繰越利益剰余金",
     check,
     corporation,
     {Retained_Earnings_Carried},
     false,
     balance_check},
    {"chk_Tkhendo", "当期変動額合計", check, corporation, {Equity_Change}, false, balance_check},
    {"Chk_Sa",
     "差額",
     check,
     corporation,
     {Prior_Retained_Earnings, Profit_Of_Corporation, -Retained_Earnings_Carried, -Equity_Change},
     true},
    {"Chk_Tai", "貸借対照表\n事業主利益", check, individual, {Retained_Earnings_Carried}, false, panel},
    {"Chk_Son", "損益計算書\n事業主利益", check, individual, {Ordinary_Profit}, false, panel},
    {"Chk_Tai",
     "貸借対照表 事業主利益",
     check,
     individual,
     {Retained_Earnings_Carried},
     false,
     balance_check},
    {"Chk_Son", "損益計算書 事業主利益", check, individual, {Profit_Of_Individual}, false, balance_check},
    {"Chk_Sa", "差額", check, individual, {Retained_Earnings_Carried, -Ordinary_Profit}, true, panel},
    {"Chk_Sa",
     "差額",
     check,
     individual,
     {Retained_Earnings_Carried, -Profit_Of_Individual},
     true,
     balance_check},
});

} // namespace

std::vector<Statement_Line> Statement_Lines(unsigned form, unsigned view) {
    std::vector<Statement_Line> seen;
    for (Statement_Line line : lines) {
        if (Applies(line.when, form) && (line.views & view) != 0) {
            if (view == balance_check && line.in_check != nullptr) {
                line.control = line.in_check;
            }
            seen.push_back(line);
        }
    }
    return seen;
}

const char* Check_Text_Of(bool holds, bool of_corporation) {
    if (holds) {
        return "チェック ⇒ ＯＫ！";
    }
    return of_corporation ? "チェック ⇒ Ｎｏ！" : "チェック ⇒ Ｎｏ？";
}

Amounts Statement_Panel::Shown(const Statement_Line& line) const {
    return book.Sum(line.figures);
}

bool Statement_Panel::Check() const {
    return Is_Corporation() ? Figure(Prior_Retained_Earnings) + Figure(Profit_Of_Corporation) ==
                                  Figure(Retained_Earnings_Carried) + Figure(Equity_Change)
                            : Figure(Retained_Earnings_Carried) == Figure(Ordinary_Profit);
}

const char* Statement_Panel::Check_Text() const {
    return Check_Text_Of(Check(), Is_Corporation());
}

bool Statement_Panel::Is_Complete() const {
    return Figure(Liabilities_And_Net_Assets) != Yen() && Figure(Fixed_Assets) != Yen() &&
           Figure(Is_Corporation() ? Gross_Profit : Completed_Work_Sales) != Yen();
}

bool Statement_Panel::May_Compute_Y() const {
    return !Is_Corporation() || Check();
}

} // namespace morvane
