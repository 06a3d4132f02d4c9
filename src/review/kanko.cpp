// SPDX-FileCopyrightText: The Morvane developers
#include "review/kanko.h"

#include "law/checked.h"
#include "law/elements.h"
#include "review/x2_calc.h"
#include "session/kyotu_mod.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr const char* what_total = "完成工事高合計";

std::int16_t Ten16(std::int32_t ten) {
    return Narrow<std::int16_t>(ten, "評点");
}

/// The averages of three periods.
struct Averages {
    std::int32_t two_year, three_year, adopted, previous;
};

Averages Averages_Of(std::int32_t kanko_avg, const Figure& zzki, const Figure& zki, const Figure& kijun) {
    if ((zzki.value | zki.value | kijun.value) == 0) {
        return {}; // most lines
    }
    const std::int32_t two_year = Two_Year_Avg(zki.value, kijun.value);
    const std::int32_t three_year = Three_Year_Avg(zzki.value, zki.value, kijun.value);
    return {two_year, three_year, kanko_avg == 2 ? two_year : three_year,
            Calc_Avg_Mae(kanko_avg, zzki.value, zki.value, kijun.value)};
}

void Add(Kanko_Totals& totals, const Averages& averages, const Figure& zzki, const Figure& zki,
         const Figure& kijun) {
    if ((zzki.value | zki.value | kijun.value) == 0) {
        return;
    }
    const auto add = [](std::int32_t& total, std::int32_t amount) {
        total = Add32(total, amount, what_total);
    };
    add(totals.Zzki, zzki.value);
    add(totals.Zki, zki.value);
    add(totals.Kijun, kijun.value);
    add(totals.Zheikin, averages.previous);
    add(totals.two_year, averages.two_year);
    add(totals.three_year, averages.three_year);
}

std::int16_t X1_Ten(WZX_Calc& wzx, const Law_Year& law, std::int32_t average) {
    return law.version_b ? wzx.Calc_X1_Ten_B(average) : wzx.Calc_X1_Ten_A(average);
}

std::int16_t Z2_Ten(WZX_Calc& wzx, const Law_Year& law, std::int32_t average) {
    return law.version_b ? wzx.Calc_Z2_Ten_B(average) : wzx.Calc_Z2_Ten_A(average);
}

// Figures that the calculation forms keep the flags for the store; only their values matter here.
void Put(Figure& figure, std::int32_t value) {
    figure.value = value;
}

// The five columns of prime-contract work, by their own flags.
void Put_Motouke(Work_Line& to, const Work_Line& from) {
    const bool up = from.Has_Motouke();
    to.Mzzki.Set_If(up, from.Mzzki.value);
    to.Mzki.Set_If(up, from.Mzki.value);
    to.Mzheikin.Set_If(up, from.Mzheikin.value);
    to.Mkijun.Set_If(up, from.Mkijun.value);
    to.Mnheikin.Set_If(up, from.Mnheikin.value);
}

} // namespace

void Kanko::Load_Kanko(const Review_Figures& figures, std::int16_t x2, std::int16_t y) {
    lines = figures.works;
    items.Load(figures);
    const std::int32_t years = figures.Yoso(element::years_of_average);
    Kanko_Avg = years == 0 ? 2 : years;
    scores = {x2, y, Ten16(items.W)};
}

void Kanko::Calc_Kanko_All(const Review_Figures& figures, WZX_Calc& wzx, bool w_by_law_year) {
    const Law_Year& law = Law_Of(figures.law_year);
    std::array<Work_Line, work_line_count> next = lines;
    Kanko_Totals sum;
    Kanko_Totals motouke_sum;
    int kept_band = wzx.Tbl_No_X1;
    for (std::size_t i = 0; i < next.size(); ++i) {
        Work_Line& line = next[i];
        const Averages averages = Averages_Of(Kanko_Avg, line.Zzki, line.Zki, line.Kijun);
        Put(line.Nheikin, averages.adopted);
        Put(line.Zheikin, averages.previous);
        Put(line.X1, X1_Ten(wzx, law, averages.adopted));
        const Averages prime = Averages_Of(Kanko_Avg, line.Mzzki, line.Mzki, line.Mkijun);
        if (!Is_Sub_Line(i)) {
            Add(sum, averages, line.Zzki, line.Zki, line.Kijun);
            Add(motouke_sum, prime, line.Mzzki, line.Mzki, line.Mkijun);
        }
        Put(line.Mnheikin, prime.adopted);
        Put(line.Mzheikin, prime.previous);
        Put(line.Zro, Z2_Ten(wzx, law, prime.adopted));
        Put(line.Z, Calc_Z_Ten(Ten16(line.Zi.value), Ten16(line.Zro.value)));
        if (i == Kosyu_Sel) {
            kept_band = wzx.Tbl_No_X1;
        }
    }
    wzx.Tbl_No_X1 = kept_band;

    Social_Items social = items;
    social.Jms_Ten =
        wzx.Calc_W5_Ten(social.keiri_kansa, sum.Nheikin(Kanko_Avg), social.Kjm[0], social.Kjm[1]);
    if (law.has_saisei) {
        social.Enen_Ten = wzx.Calc_W2_Ten_Saisei(social.Enen, social.Saisei);
    }
    const std::array<std::int16_t, 8> sub_scores = {
        Ten16(social.RF_Ten),  Ten16(social.Enen_Ten),   Ten16(social.Bkyotei_Ten), Ten16(social.Horei_ten),
        Ten16(social.Jms_Ten), Ten16(social.Kihatu_Ten), Ten16(social.Kikai_Ten),   Ten16(social.Iso_Ten)};
    const auto w_total = [&](bool law_2008) {
        return Calc_W_Total(wzx, sub_scores, law_2008, law_2008 ? figures.review_date : figures.Date_For_W());
    };
    social.W = w_total(!law.has_w7_w8);
    if (!w_by_law_year) {
        social.W = w_total(false);
    }
    if (social.tishikiGJ[0] != 0) {
        social.W10_ten = wzx.Calc_W10_Ten(social.tishikiGJ[0], social.tishikiGJ[1], social.tishikiGN[0],
                                          social.tishikiGN[1], social.tishikiGN[2]);
    }
    const auto w = static_cast<std::int16_t>(social.W);
    for (Work_Line& line : next) {
        Put(line.P, Calc_P_Ten(Ten16(line.X1.value), scores.X2, scores.Y, Ten16(line.Z.value), w));
    }
    lines = next;
    totals = sum;
    motouke = motouke_sum;
    items = social;
    scores.W = w;
}

void Kanko::Calc_Gijutu_All(const Review_Figures& figures, WZX_Calc& wzx) {
    const Law_Year& law = Law_Of(figures.law_year);
    std::array<Work_Line, work_line_count> next = lines;
    Kanko_Totals sum;
    int kept_band = wzx.Tbl_No_Z2;
    for (std::size_t i = 0; i < next.size(); ++i) {
        Work_Line& line = next[i];
        const auto& count = line.gijutusya;
        Put(line.Zi, wzx.Calc_Z1_Ten(count[0].value, count[1].value, count[2].value, count[3].value,
                                     count[4].value, count[5].value));
        const Averages prime = Averages_Of(Kanko_Avg, line.Mzzki, line.Mzki, line.Mkijun);
        Put(line.Mnheikin, prime.adopted);
        Put(line.Mzheikin, prime.previous);
        if (!Is_Sub_Line(i)) {
            Add(sum, prime, line.Mzzki, line.Mzki, line.Mkijun);
        }
        Put(line.Zro, Z2_Ten(wzx, law, prime.adopted));
        Put(line.Z, Calc_Z_Ten(Ten16(line.Zi.value), Ten16(line.Zro.value)));
        Put(line.P, Calc_P_Ten(Ten16(line.X1.value), scores.X2, scores.Y, Ten16(line.Z.value), scores.W));
        if (i == Kosyu_Sel) {
            kept_band = wzx.Tbl_No_Z2;
        }
    }
    wzx.Tbl_No_Z2 = kept_band;
    lines = next;
    motouke = sum;
}

Kanko_Texts Kanko::Show_Kanko(std::size_t index) const {
    const Work_Line& line = lines[index];
    const auto own = [](const Figure& figure) { return figure.up ? Comma_Str(figure.value) : std::string(); };
    Kanko_Texts texts;
    texts.Zzki = own(line.Zzki);
    texts.Zki = own(line.Zki);
    texts.Kijun = own(line.Kijun);
    if (line.Has_Kanko()) {
        texts.Zheikin = Comma_Str(line.Zheikin.value);
        texts.Nheikin = Comma_Str(line.Nheikin.value);
        if (index < scored_lines) {
            texts.X1 = Comma_Str(line.X1.value);
            texts.Z = Comma_Str(line.Z.value);
            texts.P = Comma_Str(line.P.value);
        }
    }
    return texts;
}

void Kanko::Save_Kanko(Review_Figures& figures, bool with_w) const {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i == combined_line) {
            continue;
        }
        const Work_Line& from = lines[i];
        Work_Line& to = figures.works[i];
        const bool up = from.Has_Kanko();
        to.Zzki.Set_If(up, from.Zzki.value);
        to.Zki.Set_If(up, from.Zki.value);
        to.Zheikin.Set_If(up, from.Zheikin.value);
        to.Kijun.Set_If(up, from.Kijun.value);
        to.Nheikin.Set_If(up, from.Nheikin.value);
        const bool scored = up && i < scored_lines;
        to.X1.Set_If(scored, from.X1.value);
        to.Zi.Set_If(scored, from.Zi.value);
        to.Zro.Set_If(scored, from.Zro.value);
        to.Z.Set_If(scored, from.Z.value);
        to.P.Set_If(scored, from.P.value);
        Put_Motouke(to, from);
    }
    figures.Put_Yoso(element::years_of_average, Kanko_Avg);
    figures.Put_Yoso(element::total_of_two, totals.two_year);
    figures.Put_Yoso(element::total_of_three, totals.three_year);
    figures.Put_Yoso(element::w5, items.Jms_Ten);
    if (with_w) {
        figures.Put_Yoso(element::w, scores.W);
    }
}

void Kanko::Save_Gijutu(Review_Figures& figures) const {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i == combined_line) {
            continue;
        }
        const Work_Line& from = lines[i];
        Work_Line& to = figures.works[i];
        Put_Motouke(to, from);
        if (i >= scored_lines) {
            continue;
        }
        for (std::size_t k = 0; k < from.gijutusya.size(); ++k) {
            to.gijutusya[k].Set_If(from.gijutusya[k].up, from.gijutusya[k].value);
        }
        // P stands where the line has completed work; Z already where it has anything.
        const bool any = from.Has_Kanko() || from.Has_Engineer() || from.Has_Motouke();
        to.Zi.Set_If(any, from.Zi.value);
        to.Zro.Set_If(any, from.Zro.value);
        to.Z.Set_If(any, from.Z.value);
        to.P.Set_If(from.Has_Kanko(), from.P.value);
    }
}

void Save_Kanko(const Connection& cn, const Session& session, int scenario, const Kanko& screen,
                bool gijutu) {
    const Scenario& column = Scenario_Of(scenario);
    Review_Figures figures;
    Read_Elements(cn, session.Syori_Ki, column, figures);
    Read_Works(cn, session.Syori_Ki, column, figures);
    if (gijutu) {
        screen.Save_Gijutu(figures);
    } else {
        // The improved screens leave W to the screen of X2 and W.
        screen.Save_Kanko(figures, scenario == scenario_genjo.number);
    }
    Write_Elements(cn, session.Syori_Ki, column, figures);
    Write_Works(cn, session.Syori_Ki, column, figures);
}

} // namespace morvane
