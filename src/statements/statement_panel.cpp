// SPDX-FileCopyrightText: The Morvane developers
#include "statements/statement_panel.h"

#include "session/kyotu_mod.h"

#include <cstdlib>

namespace morvane {

namespace {

using namespace statement_form;
using enum Panel_Field;

/// The accounts that a field is loaded from; a negative code is subtracted.
struct Source {
    Panel_Field field;
    unsigned when;
    std::array<int, 3> codes;
};

constexpr auto sources = std::to_array<Source>({
    {Rds, any, {129}},
    {Yks, any, {149}},
    {Mks, any, {159}},
    {Tst, any, {178}},
    {KtsKei, any, {179}},
    {KnsKei, corporation, {189}},
    {SSKei, any, {199}},
    {Rdf, any, {229}},
    {Ktf, any, {248}},
    {FSiKei, any, {229, 248}},
    {Shk, corporation, {250, 251, 269}},
    {Shk, individual, {250, 251, -273}},
    {Between, corporation, {270, 272, 274}},
    {Krj, any, {281}},
    {Rjkei, corporation, {289}},
    {Treasury, corporation, {-290}},
    {Subscription, corporation, {291}},
    {KKbkei, corporation, {298}},
    {Hyok, corporation, {303}},
    {Skb, corporation, {310}},
    {SHKei, any, {319}},
    {FSSKei, any, {399}},
    {Sales, any, {400}},
    {Cost, any, {539}},
    {Side_Sales, national, {401}},
    {Side_Sales, hokkaido, {410}},
    {Side_Cost, any, {705}},
    {Ksr, national, {417}},
    {Ksr, hokkaido, {409}},
    {Kjr, any, {418}},
    {Usr, any, {419}},
    {Hkr, any, {468}},
    {EgrKei, any, {469}},
    {Egs, any, {479}},
    {Egh, any, {488}},
    {KjrKei, any, {489}},
    {TrKei, corporation, {499}},
    {TsKei, corporation, {509}},
    {ZtrKei, corporation, {510}},
    {Hjz, corporation, {511}},
    {Hjz_Deferred, corporation, {512}},
    {TkrKei, corporation, {519}},
    {ZRki, corporation, {838}},
    {THen, corporation, {901}},
});

/// A total from fields that stand before it. A field that a firm's form does not have is 0.
struct Formula {
    Panel_Field field;
    std::array<Panel_Field, 4> plus;
    std::array<Panel_Field, 7> minus{};
};

constexpr auto formulas = std::to_array<Formula>({
    {KtsKei, {Yks, Mks, Tst}},
    {SSKei, {KtsKei, Rds, KnsKei}},
    {FSiKei, {Rdf, Ktf}},
    {Krj, {SSKei}, {FSiKei, Shk, Between, Treasury, Subscription, Hyok, Skb}},
    {Rjkei, {Krj, Between}},
    {KKbkei, {Rjkei, Shk, Treasury, Subscription}},
    {SHKei, {KKbkei, Hyok, Skb}},
    {FSSKei, {SHKei, FSiKei}},
    {Ksr, {Sales}, {Cost}},
    {Kjr, {Side_Sales}, {Side_Cost}},
    {Usr, {Ksr, Kjr}},
    {EgrKei, {Usr}, {Hkr}},
    {KjrKei, {EgrKei, Egs}, {Egh}},
    {ZtrKei, {KjrKei, TrKei}, {TsKei}},
    {TkrKei, {ZtrKei}, {Hjz, Hjz_Deferred}},
});

using enum Panel_Group;

constexpr auto lines = std::to_array<Statement_Line>({
    {"BsIp_Rds", "流動資産合計", Assets, any, {Rds}},
    {"BsIp_Yks", "有形固定資産計", Assets, any, {Yks}},
    {"BsIp_Mks", "無形固定資産計", Assets, any, {Mks}},
    {"BsIp_Tst", "投資等計", Assets, any, {Tst}},
    {"BsIp_KtsKei", "固定資産合計", Assets, any, {KtsKei}, {}, true},
    {"BsIp_KnsKei", "繰延資産合計", Assets, corporation, {KnsKei}},
    {"BsIp_SSKei", "資産合計", Assets, any, {SSKei}, {}, true},

    {"BsIp_Rdf", "流動負債計", Liabilities, any, {Rdf}},
    {"BsIp_Ktf", "固定負債計", Liabilities, any, {Ktf}},
    {"BsIp_FSiKei", "負債合計", Liabilities, any, {FSiKei}, {}, true},
    {"BsIp_Shk", "資本金・剰余金等", Liabilities, corporation, {Shk}},
    {"BsIp_Krj", "繰越利益剰余金", Liabilities, corporation, {Krj}},
    {"BsIp_Rjkei", "利益剰余金合計", Liabilities, corporation, {Rjkei}},
    // The mark of deduction is not carried into this line; the totals take treasury shares off.
    {"BsIp_JKabu", "自己株式・申込金", Liabilities, corporation, {Subscription}, {Treasury}},
    {"BsIp_KKbkei", "株主資本合計", Liabilities, corporation, {KKbkei}},
    {"BsIp_Hyok", "評価・換算差額合計", Liabilities, corporation, {Hyok}},
    {"BsIp_Skb", "新株予約権", Liabilities, corporation, {Skb}},
    {"bsIp_SHKei", "純資産合計", Liabilities, corporation, {SHKei}, {}, true},
    {"BsIp_FSSKei", "負債純資産合計", Liabilities, corporation, {FSSKei}, {}, true},
    {"BsIp_Shk", "期首資本金等", Liabilities, individual, {Shk}},
    {"BsIp_Msr", "事業主利益", Liabilities, individual, {Krj}},
    {"bsIp_SHKei", "資本合計", Liabilities, individual, {SHKei}, {}, true},
    {"BsIp_FSSKei", "負債資本合計", Liabilities, individual, {FSSKei}, {}, true},

    {"PLIp_Ksr", "完成工事総利益", Profit, any, {Ksr}},
    {"PLIp_Kjr", "兼業事業総利益", Profit, any, {Kjr}},
    {"PLIp_Usr", "売上総利益", Profit, any, {Usr}, {}, true},
    {"PLIp_Hkr", "販売・一般管理費計", Profit, any, {Hkr}},
    {"PLIp_EgrKei", "営業利益", Profit, any, {EgrKei}, {}, true},
    {"PLIp_Egs", "営業外収益計", Profit, any, {Egs}},
    {"PLIp_Egh", "営業外費用計", Profit, any, {Egh}},
    {"PLIp_KjrKei", "経常利益", Profit, corporation, {KjrKei}, {}, true},
    {"PLIp_KjrKei", "事業主利益", Profit, individual, {KjrKei}, {}, true},
    {"PLIp_TrKei", "特別利益計", Profit, corporation, {TrKei}},
    {"PLIp_TsKei", "特別損失計", Profit, corporation, {TsKei}},
    {"PLIp_ZtrKei", "税引前当期純利益", Profit, corporation, {ZtrKei}, {}, true},
    {"PLIp_Hjz", "法人税等", Profit, corporation, {Hjz, Hjz_Deferred}},
    {"PLIp_TkrKei", "当期純利益", Profit, corporation, {TkrKei}, {}, true},

    {"Chk_ZRki", "前期貸借対照表\n繰越利益剰余金", Panel_Group::Check, corporation, {ZRki}},
    {"Chk_TJrki", "当期損益計算書\n当期純利益", Panel_Group::Check, corporation, {TkrKei}},
    {"Chk_TRki", "当期貸借対照表\n繰越利益剰余金", Panel_Group::Check, corporation, {Krj}},
    {"Chk_THen", "当期株主資本等\n変動額合計", Panel_Group::Check, corporation, {THen}},
    {"Chk_Sa", "差額", Panel_Group::Check, corporation, {ZRki, TkrKei}, {Krj, THen}, true},
    {"Chk_Tai", "貸借対照表\n事業主利益", Panel_Group::Check, individual, {Krj}},
    {"Chk_Son", "損益計算書\n事業主利益", Panel_Group::Check, individual, {KjrKei}},
    {"Chk_Sa", "差額", Panel_Group::Check, individual, {Krj}, {KjrKei}, true},
});

template <class Fields>
double Sum(const Statement_Panel& panel, const Fields& fields) {
    double sum = 0.0;
    for (const Panel_Field field : fields) {
        sum += panel[field]; // None stays 0
    }
    return sum;
}

} // namespace

unsigned Statement_Form_Of(const Session& session) {
    return (session.Is_Corporation() ? corporation : individual) |
           (session.Is_Hokkaido() ? hokkaido : national);
}

std::vector<Statement_Line> Statement_Lines(unsigned form) {
    std::vector<Statement_Line> seen;
    for (const Statement_Line& line : lines) {
        if (Applies(line.when, form)) {
            seen.push_back(line);
        }
    }
    return seen;
}

Statement_Panel::Statement_Panel(unsigned firm_form, Recordset& period_rows) : form(firm_form) {
    for (const Source& source : sources) {
        if (!Applies(source.when, form)) {
            continue;
        }
        for (const int code : source.codes) {
            if (code != 0) {
                const double amount = Kamoku_Get(static_cast<Account>(std::abs(code)), period_rows);
                (*this)[source.field] += code > 0 ? amount : -amount;
            }
        }
    }
}

void Statement_Panel::Panel_Totals() {
    for (const Formula& formula : formulas) {
        (*this)[formula.field] = Sum(*this, formula.plus) - Sum(*this, formula.minus);
    }
}

double Statement_Panel::Shown(const Statement_Line& line) const {
    return Sum(*this, line.plus) - Sum(*this, line.minus);
}

bool Statement_Panel::Check() const {
    const Statement_Panel& the = *this;
    return Is_Corporation() ? the[ZRki] + the[TkrKei] == the[Krj] + the[THen] : the[Krj] == the[KjrKei];
}

const char* Statement_Panel::Check_Text() const {
    if (Check()) {
        return "チェック ⇒ ＯＫ！";
    }
    return Is_Corporation() ? "チェック ⇒ Ｎｏ！" : "チェック ⇒ Ｎｏ？";
}

bool Statement_Panel::Is_Complete() const {
    const Statement_Panel& the = *this;
    return the[FSSKei] != 0.0 && the[KtsKei] != 0.0 && the[Is_Corporation() ? Usr : Sales] != 0.0;
}

bool Statement_Panel::May_Compute_Y() const {
    return !Is_Corporation() || Check();
}

} // namespace morvane
