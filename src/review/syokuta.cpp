// SPDX-FileCopyrightText: The Morvane developers
#include "review/syokuta.h"

#include "law/checked.h"
#include "law/elements.h"
#include "review/y_calc.h"

#include <array>
#include <string>

namespace morvane {

namespace {

constexpr const char* what_w1 = "担い手の育成・確保に関する取組（Ｗ１）";

std::int16_t Ten16(std::int32_t ten) {
    return Narrow<std::int16_t>(ten, "その他審査項目（Ｗ）");
}

// Without technical staff the rates and their scores stay as they were.
void Calc_Young(Social_Items& items) {
    if (items.JyakunenAll == 0) {
        return;
    }
    const double kept = Young_Rate(items.JyakunenK, items.JyakunenAll);
    const double fresh = Young_Rate(items.JyakunenS, items.JyakunenAll);
    items.JyakunenK_ritu = Narrow_Double<std::int32_t>(kept, "若年技術職員の割合");
    items.JyakunenS_ritu = Narrow_Double<std::int32_t>(fresh, "若年技術職員の割合");
    items.jyakunenK_ten = Young_Keizoku_Ten(kept);
    items.jyakunenS_ten = Young_Sinki_Ten(fresh);
}

} // namespace

void Syokuta::Load_W_2012(const Review_Figures& figures) {
    items.Load(figures);
    kikai_ten_of_load = items.Kikai_Ten;
}

void Syokuta::Calc_W_2012(const Review_Figures& figures, WZX_Calc& wzx) {
    const Law_Year& law = Law_Of(figures.law_year);
    Social_Items next = items;
    x2.JikoS = items.JikoS;
    x2.Calc_X2(figures, wzx, true);
    next.RF1_Ten = Calc_W1(next, law);
    next.RF_Ten = next.RF1_Ten;
    if (law.has_additions) {
        next.wlb_ten = wzx.Calc_WLB_Ten(next.wlb[0], next.wlb[1], next.wlb[2]);
        next.rireki_ten = wzx.Calc_Rireki_Ten(next.rireki);
        for (const std::int32_t ten :
             {next.jyakunenK_ten, next.jyakunenS_ten, next.W10_ten, next.wlb_ten, next.rireki_ten}) {
            next.RF_Ten = Add16(Ten16(next.RF_Ten), Ten16(ten), what_w1);
        }
    }
    next.Enen_Ten =
        law.has_saisei ? wzx.Calc_W2_Ten_Saisei(next.Enen, next.Saisei) : wzx.Calc_W2_Ten(next.Enen);
    if (law.has_w7_w8) {
        next.Kikai_Ten = wzx.Calc_W7_Ten(next.Kikai);
        next.Iso_Ten = wzx.Calc_W8_Ten(next.Iso[0], next.Iso[1], next.Iso[2]);
    }
    if (law.has_additions) {
        next.W10_ten = wzx.Calc_W10_Ten(next.tishikiGJ[0], next.tishikiGJ[1], next.tishikiGN[0],
                                        next.tishikiGN[1], next.tishikiGN[2]);
        Calc_Young(next);
    }
    next.Bkyotei_Ten = wzx.Calc_W3_Ten(next.Bkyotei);
    next.Horei_ten = wzx.Calc_W4_Ten(next.Horei);
    next.Jms_Ten = wzx.Calc_W5_Ten(next.keiri_kansa, next.keiri_kandaka, next.Kjm[0], next.Kjm[1]);
    next.Kihatu_Ten = wzx.Calc_W6_Ten(next.keiri_kansa, next.Kihatu[0], next.Kihatu[1]);
    const std::int32_t machines = law.w7_of_load ? kikai_ten_of_load : next.Kikai_Ten;
    next.W = Calc_W_Total(wzx,
                          {Ten16(next.RF_Ten), Ten16(next.Enen_Ten), Ten16(next.Bkyotei_Ten),
                           Ten16(next.Horei_ten), Ten16(next.Jms_Ten), Ten16(next.Kihatu_Ten),
                           Ten16(machines), Ten16(next.Iso_Ten)},
                          !law.has_w7_w8, law.has_w7_w8 ? figures.Date_For_W() : figures.review_date);
    items = next;
}

void Recalc_P_All(Review_Figures& figures, std::int16_t x2, std::int16_t y) {
    const std::int16_t w = Ten16(figures.Yoso(element::w));
    for (std::size_t i = 0; i < scored_lines; ++i) {
        Work_Line& line = figures.works[i];
        if (line.P.up) {
            line.P.Set(Calc_P_Ten(Ten16(line.X1.value), x2, y, Ten16(line.Z.value), w));
        }
    }
}

void Add_Knowledge_Rows(const Connection& cn, int period) {
    Add_Missing_Elements(cn, period, element::cpd_units, element::w10);
}

void Add_Missing_Elements(const Connection& cn, int period, int first, int last) {
    for (int code = first; code <= last; ++code) {
        if (cn.Open("SELECT 要素CD FROM W_Yoso WHERE 決算期=? And 要素CD=?", period, code).Eof()) {
            cn.Execute("INSERT INTO W_Yoso (決算期, 要素CD, 要素名) VALUES (?, ?, ?)", period, code,
                       Element_Name(code));
        }
    }
}

void Store_W_2012(const Connection& cn, const Session& session, int scenario, const Syokuta& screen) {
    const Scenario& column = Scenario_Of(scenario);
    if (Law_Of(session.Simyu_Kubun).has_additions) {
        Add_Knowledge_Rows(cn, session.Syori_Ki);
    }
    Review_Figures figures = Load_Review(cn, session.Syori_Ki, column, session.Kind());
    screen.Store_W_2012(figures);
    WZX_Calc wzx;
    X2_Calc x2;
    Y_Calc y;
    x2.Calc_X2(figures, wzx, false);
    y.Calc_Y(figures.statement, figures.firm);
    Recalc_P_All(figures, x2.X2_Ten, y.Y_Ten);
    Write_Elements(cn, session.Syori_Ki, column, figures);
    Write_Works(cn, session.Syori_Ki, column, figures);
}

} // namespace morvane
