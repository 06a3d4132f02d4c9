// SPDX-FileCopyrightText: The Morvane developers
#include "app/form_table.h"

#include "app/frm_dtselect.h"
#include "app/frm_hpopen.h"
#include "app/frm_settei.h"
#include "app/frm_ver.h"
#include "company/frm_jgnew.h"
#include "company/frm_jgsitei.h"
#include "company/frm_kssitei.h"
#include "report/report_window.h"
#include "screens/frm_advice.h"
#include "screens/frm_gekihen.h"
#include "screens/frm_kanko.h"
#include "screens/frm_keiei.h"
#include "screens/frm_qanda.h"
#include "screens/frm_syokuta.h"
#include "screens/frm_ychart.h"
#include "screens/frm_ysisan.h"
#include "sim/frm_kzcopy.h"
#include "statements/frm_kshendo.h"
#include "statements/frm_kszaihyo.h"
#include "statements/frm_kszaiup.h"
#include "statements/frm_kszenki.h"
#include "statements/frm_upcheck.h"

#include <array>
#include <vector>

namespace morvane {

namespace {

template <class Screen>
Form* Make(Shell_Port& shell, const char*) {
    return new Screen(shell);
}

template <Form* (*Maker)(Shell_Port&)>
Form* Make_By(Shell_Port& shell, const char*) {
    return Maker(shell);
}

/// Screens of one class go by their names.
template <class Screen>
Form* Make_Member(Shell_Port& shell, const char* name) {
    return new Screen(shell, name);
}

// The comparison with the prior period is one page for its screens.
constexpr const char* comparison_page = "prior_period";

constexpr auto screens = std::to_array<Form_Row>({
    // The shell.
    {"Frm_Main", nullptr, false, "Frm_Command"},
    {"Frm_Command"},
    {"Frm_DtSelect", Make<Frm_DtSelect>, true},
    {"Frm_Ver", Make<Frm_Ver>, true},
    {"Frm_HpOpen", Make<Frm_HpOpen>, true},
    {"Frm_Settei", Make<Frm_Settei>, true},
    {"Frm_QandA", Make<Frm_QandA>, true},
    // Companies and periods.
    {"Frm_JGSitei", Make<Frm_JGSitei>, true},
    {"Frm_JgNew", Make_By<Make_Frm_JgNew>, true},
    {"Frm_Jgmas", Make_By<Make_Frm_Jgmas>, true},
    {"Frm_KsSitei", Make<Frm_KsSitei>},
    // Statements.
    {"Frm_KsZaihyo", Make<Frm_KsZaihyo>},
    {"Frm_KsZaihyoKJ", Make<Frm_KsZaihyo>, false, "Frm_KsZaihyo"},
    {"Frm_KsZenki", Make<Frm_KsZenki>},
    {"Frm_KsZenkiKJ", Make<Frm_KsZenki>, false, "Frm_KsZenki"},
    {"Frm_KsHendo", Make<Frm_KsHendo>},
    {"Frm_KsZaiUP", Make<Frm_KsZaiUP>},
    {"Frm_KsZaiUPKJ", Make<Frm_KsZaiUP>, false, "Frm_KsZaiUP"},
    {"Frm_UPCheck", Make<Frm_UPCheck>, true},
    {"Frm_UPCheckKJ", Make<Frm_UPCheck>, true, "Frm_UPCheck"},
    {"Frm_PrKSZaiSti", nullptr, true},
    {"Frm_YSisan", Make<Frm_YSisan>, true},
    // The review.
    {"Frm_Keiei", Make_Member<Frm_Keiei>},
    {"Frm_KeieiKz", Make_Member<Frm_Keiei>},
    {"Frm_Y1_Calc_Check", nullptr, false, "Calc_Check"},
    {"Frm_Ychart", Make<Frm_Ychart>},
    {"Frm_Advice", Make<Frm_Advice>, true},
    {"Frm_Syokuta", Make_Member<Frm_Syokuta>},
    {"Frm_Syokuta_2011", Make_Member<Frm_Syokuta>, false, "Frm_Syokuta"},
    {"Frm_Syokuta_2012", Make_Member<Frm_Syokuta>, false, "Frm_Syokuta"},
    {"Frm_Syokutakaiz", Make_Member<Frm_Syokuta>},
    {"Frm_Syokutakaiz_2011", Make_Member<Frm_Syokuta>, false, "Frm_Syokutakaiz"},
    {"Frm_Syokutakaiz_2012", Make_Member<Frm_Syokuta>, false, "Frm_Syokutakaiz"},
    {"Frm_SyokutaHKzen", Make_Member<Frm_Syokuta>, false, comparison_page},
    {"Frm_SyokutaHKzen_2011", Make_Member<Frm_Syokuta>, false, comparison_page},
    {"Frm_SyokutaHKzen_2012", Make_Member<Frm_Syokuta>, false, comparison_page},
    {"Frm_Kanko", Make_Member<Frm_Kanko>},
    {"Frm_Kanko2", Make_Member<Frm_Kanko>, false, "Frm_Kanko"},
    {"Frm_KankoKaiz", Make_Member<Frm_Kanko>},
    {"Frm_KankoKaiz2", Make_Member<Frm_Kanko>, false, "Frm_KankoKaiz"},
    {"Frm_KankoKaiz3", Make_Member<Frm_Kanko>, false, "Frm_KankoKaiz"},
    {"Frm_KankoKaizzen", Make_Member<Frm_Kanko>, false, comparison_page},
    {"Frm_KankoKaiz2zen", Make_Member<Frm_Kanko>, false, comparison_page},
    {"Frm_KankoKaiz3zen", Make_Member<Frm_Kanko>, false, comparison_page},
    {"Frm_Gekihen", Make<Frm_Gekihen>},
    {"Frm_KzCopy", Make<Frm_KzCopy>, true},
    // How a score came about: opened beside the screens that show the scores.
    {"Frm_X2_Calc_Check", nullptr, false, "Calc_Check"},
    {"Frm_W1_Calc_Check", nullptr, false, "Calc_Check"},
    {"Frm_W1_Calc_Check2012", nullptr, false, "Calc_Check"},
    {"Frm_W2_Calc_Check", nullptr, false, "Calc_Check"},
    {"Frm_W2_Calc_Check_2011", nullptr, false, "Calc_Check"},
    {"Frm_W7_Calc_Check_2011", nullptr, false, "Calc_Check"},
    {"Frm_W8_Calc_Check_2011", nullptr, false, "Calc_Check"},
    {"Frm_W9_Calc_Check_2015", nullptr, false, "Calc_Check"},
    {"Frm_W10_Calc_Check_2021", nullptr, false, "Calc_Check"},
    {"Frm_W_Calc_Check_2011", nullptr, false, "Calc_Check"},
    {"Frm_XZP_Calc_Check", nullptr, false, "Calc_Check"},
    {"Frm_Zイ_Calc_Check", nullptr, false, "Calc_Check"},
    {"Frm_W2_Calc_Table", nullptr, false, "Calc_Check"},
    {"Frm_Calc_Tbl", nullptr, false, "Calc_Check"},
    // Rating.
    {"Frm_Kakuduke"},
    {"Frm_HatyuSitei", nullptr, true},
    {"Frm_KakuInfoUP", nullptr, true},
    {"Frm_KakuHpOpen", nullptr, true},
    // Maintenance, exchange.
    {"Frm_PrtSET", nullptr, true, "Rpt_Kekka"},
    {"Frm_DtHosyu"},
    {"Frm_DtConv", nullptr, true},
    {"Frm_MlSend", nullptr, true},
    {"Frm_DtSend", nullptr, true},
    {"Frm_DtRec", nullptr, true},
    {"Frm_ToiSend", nullptr, true},
});

std::vector<Form_Row> With_Reports() {
    std::vector<Form_Row> rows(screens.begin(), screens.end());
    for (const Report_Row& report : Report_Table()) {
        rows.push_back({report.name, Make_Report, true, report.page});
    }
    return rows;
}

} // namespace

std::span<const Form_Row> Form_Table() {
    static const std::vector<Form_Row> rows = With_Reports();
    return rows;
}

const Form_Row* Find_Form(std::string_view name) {
    for (const Form_Row& row : Form_Table()) {
        if (name == row.name) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace morvane
