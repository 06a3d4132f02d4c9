// SPDX-FileCopyrightText: The Morvane developers
#include "review/works.h"

#include "law/elements.h"
#include "law/law_year.h"
#include "review/social.h"

namespace morvane {

namespace {

constexpr const char* what_score = "評点";

Points Ten(const Score_Figure& score) {
    return Points(Narrow<std::int16_t>(score.value, what_score));
}

/// An amount of a line over three periods.
struct Periods {
    Thousand_Yen zzki, zki, kijun;

    [[nodiscard]] bool Is_Empty() const { return (zzki.Count() | zki.Count() | kijun.Count()) == 0; }
    [[nodiscard]] Averages Average(std::int32_t kanko_avg) const {
        return Averages_Of(kanko_avg, zzki, zki, kijun);
    }
};

Periods Kanko_Of(const Work_Line& line) {
    return {line.Zzki.Number(), line.Zki.Number(), line.Kijun.Number()};
}

Periods Motouke_Of(const Work_Line& line) {
    return {line.Mzzki.Number(), line.Mzki.Number(), line.Mkijun.Number()};
}

void Add(Kanko_Totals& totals, const Periods& periods, const Averages& averages) {
    if (periods.Is_Empty()) {
        return; // most lines
    }
    In_Calculation("完成工事高合計", [&] {
        totals.Zzki += periods.zzki;
        totals.Zki += periods.zki;
        totals.Kijun += periods.kijun;
        totals.Zheikin += averages.previous;
        totals.two_year += averages.two_year;
        totals.three_year += averages.three_year;
    });
}

/// The averages and Z2 of prime-contract work, and Z with the Z1 of the line.
void Put_Z(Work_Line& line, const Law_Year& law, const Averages& prime) {
    line.Mnheikin.Put(prime.adopted);
    line.Mzheikin.Put(prime.previous);
    const Points zro = Calc_Z2_Ten(law, prime.adopted).points;
    line.Zro.Put(zro);
    line.Z.Put(Calc_Z_Ten(Ten(line.Zi), zro));
}

void Put_P(Work_Line& line, const Works::Scores& scores) {
    line.P.Put(Calc_P_Ten(Ten(line.X1), scores.X2, scores.Y, Ten(line.Z), scores.W));
}

/// The items of W that follow the completed work. The point of knowledge does not enter this W.
void Calc_Social(Social_Items& items, Thousand_Yen kanko, const Review_Figures& figures, W_Form form) {
    const Law_Year& law = Law_Of(figures.law_year);
    items.Jms_Ten = W5_Of(items, kanko).total.Count();
    if (law.has_saisei) {
        items.Enen_Ten = W2_Of(items, law).Count();
    }
    const Sub_Scores sub_scores =
        In_Calculation(what_score, [&] { return Sub_Scores_Of(items, items.Kikai_Ten); });
    const bool six = form == W_Form::By_Law_Year && !law.has_w7_w8;
    items.W = (six ? Calc_W_2008(sub_scores) : Calc_W_2011(sub_scores, figures.Date_For_W())).Count();
    if (items.tishikiGJ[0] != 0) {
        items.W10_ten = Calc_W10_Ten(W10_Counts_Of(items)).Count();
    }
}

// The five columns of prime-contract work, by their own flags.
void Put_Motouke(Work_Line& to, const Work_Line& from) {
    const bool up = from.Has_Motouke();
    to.Mzzki.Set_If(up, from.Mzzki);
    to.Mzki.Set_If(up, from.Mzki);
    to.Mzheikin.Set_If(up, from.Mzheikin);
    to.Mkijun.Set_If(up, from.Mkijun);
    to.Mnheikin.Set_If(up, from.Mnheikin);
}

} // namespace

Engineers Engineers_Of(const Work_Line& line) {
    Engineers engineers;
    for (std::size_t i = 0; i < engineers.size(); ++i) {
        engineers[i] = line.gijutusya[i].Number();
    }
    return engineers;
}

Averages Averages_Of(std::int32_t kanko_avg, Thousand_Yen a, Thousand_Yen b, Thousand_Yen c) {
    if ((a.Count() | b.Count() | c.Count()) == 0) {
        return {}; // most lines
    }
    const Thousand_Yen two_year = Two_Year_Avg(b, c);
    const Thousand_Yen three_year = Three_Year_Avg(a, b, c);
    return kanko_avg == 2 ? Averages{two_year, three_year, two_year, b}
                          : Averages{two_year, three_year, three_year, Two_Year_Avg(a, b)};
}

Works Load_Kanko(const Review_Figures& figures, Points x2, Points y) {
    Works works;
    works.lines = figures.works;
    works.items.Load(figures);
    const std::int32_t years = figures.Yoso(element::years_of_average);
    works.Kanko_Avg = years == 0 ? 2 : years;
    works.scores = {x2, y, In_Calculation(what_score, [&] { return Points::Of(works.items.W); })};
    return works;
}

Works Calc_Kanko_All(const Works& works, const Review_Figures& figures, W_Form form) {
    const Law_Year& law = Law_Of(figures.law_year);
    Works next = works;
    next.totals = {};
    next.motouke = {};
    for (std::size_t i = 0; i < next.lines.size(); ++i) {
        Work_Line& line = next.lines[i];
        const Periods periods = Kanko_Of(line);
        const Averages averages = periods.Average(next.Kanko_Avg);
        line.Nheikin.Put(averages.adopted);
        line.Zheikin.Put(averages.previous);
        line.X1.Put(Calc_X1_Ten(law, averages.adopted).points);
        const Periods prime_periods = Motouke_Of(line);
        const Averages prime = prime_periods.Average(next.Kanko_Avg);
        if (!Is_Sub_Line(i)) {
            Add(next.totals, periods, averages);
            Add(next.motouke, prime_periods, prime);
        }
        Put_Z(line, law, prime);
    }
    Calc_Social(next.items, next.totals.Nheikin(next.Kanko_Avg), figures, form);
    next.scores.W = Points::Of(next.items.W);
    for (Work_Line& line : next.lines) {
        Put_P(line, next.scores);
    }
    return next;
}

Works Calc_Gijutu_All(const Works& works, const Review_Figures& figures) {
    const Law_Year& law = Law_Of(figures.law_year);
    Works next = works;
    next.motouke = {};
    for (std::size_t i = 0; i < next.lines.size(); ++i) {
        Work_Line& line = next.lines[i];
        line.Zi.Put(Calc_Z1_Ten(Engineers_Of(line)).points);
        const Periods periods = Motouke_Of(line);
        const Averages prime = periods.Average(next.Kanko_Avg);
        if (!Is_Sub_Line(i)) {
            Add(next.motouke, periods, prime);
        }
        Put_Z(line, law, prime);
        Put_P(line, next.scores);
    }
    return next;
}

void Save_Kanko(const Works& works, Review_Figures& figures, bool with_w) {
    for (std::size_t i = 0; i < works.lines.size(); ++i) {
        if (i == combined_line) {
            continue;
        }
        const Work_Line& from = works.lines[i];
        Work_Line& to = figures.works[i];
        const bool up = from.Has_Kanko();
        to.Zzki.Set_If(up, from.Zzki);
        to.Zki.Set_If(up, from.Zki);
        to.Zheikin.Set_If(up, from.Zheikin);
        to.Kijun.Set_If(up, from.Kijun);
        to.Nheikin.Set_If(up, from.Nheikin);
        const bool scored = up && i < scored_lines;
        to.X1.Set_If(scored, from.X1);
        to.Zi.Set_If(scored, from.Zi);
        to.Zro.Set_If(scored, from.Zro);
        to.Z.Set_If(scored, from.Z);
        to.P.Set_If(scored, from.P);
        Put_Motouke(to, from);
    }
    figures.Put_Yoso(element::years_of_average, works.Kanko_Avg);
    figures.Put_Yoso(element::total_of_two, works.totals.two_year.Count());
    figures.Put_Yoso(element::total_of_three, works.totals.three_year.Count());
    figures.Put_Yoso(element::w5, works.items.Jms_Ten);
    if (with_w) {
        figures.Put_Yoso(element::w, works.scores.W.Count());
    }
}

void Save_Gijutu(const Works& works, Review_Figures& figures) {
    for (std::size_t i = 0; i < works.lines.size(); ++i) {
        if (i == combined_line) {
            continue;
        }
        const Work_Line& from = works.lines[i];
        Work_Line& to = figures.works[i];
        Put_Motouke(to, from);
        if (i >= scored_lines) {
            continue;
        }
        for (std::size_t k = 0; k < from.gijutusya.size(); ++k) {
            to.gijutusya[k].Set_If(from.gijutusya[k].up, from.gijutusya[k]);
        }
        // P stands where the line has completed work; Z already where it has anything.
        const bool any = from.Has_Kanko() || from.Has_Engineer() || from.Has_Motouke();
        to.Zi.Set_If(any, from.Zi);
        to.Zro.Set_If(any, from.Zro);
        to.Z.Set_If(any, from.Z);
        to.P.Set_If(from.Has_Kanko(), from.P);
    }
}

void Recalc_P_All(Review_Figures& figures, Points x2, Points y) {
    In_Calculation("その他審査項目（Ｗ）", [&] {
        const Points w = Points::Of(figures.Yoso(element::w));
        for (std::size_t i = 0; i < scored_lines; ++i) {
            Work_Line& line = figures.works[i];
            if (line.P.up) {
                line.P.Set(Calc_P_Ten(line.X1.Number(), x2, y, line.Z.Number(), w));
            }
        }
    });
}

} // namespace morvane
