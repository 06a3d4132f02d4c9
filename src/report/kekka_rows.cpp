// SPDX-FileCopyrightText: The Morvane developers
#include "report/kekka_rows.h"

#include "law/elements.h"
#include "session/kyotu_mod.h"

#include <array>
#include <cstdio>

namespace morvane {

namespace {

namespace e = element;

constexpr const char* not_taken = "適用外";

/// The word of an answer; a number that is no answer is printed as it is.
std::string Word(const Choice& choice, std::int32_t number) {
    const Answer_Word* answer = choice.Find(number);
    return answer != nullptr ? answer->Report_Word() : std::to_string(number);
}

using K = const Kekka_Figures&;

template <std::size_t Index>
std::string Insurance(K kekka) {
    return Word(choice::yes_no_exempt, kekka.items.Rf1[Index]);
}

std::string Health_And_Pension(K kekka) {
    return Insurance<1>(kekka) + "│" + Insurance<2>(kekka);
}

/// The private schemes follow the insurances, of which the law years tell two or three.
template <std::size_t Index>
std::string Scheme(K kekka) {
    const auto first = static_cast<std::size_t>(Law_Of(kekka.figures.law_year).Insurances());
    return Word(choice::yes_no_exempt, kekka.items.Rf1[first + Index]);
}

/// Young engineers of all: "3/20（15%）".
std::string Young(std::int32_t young, std::int32_t all, std::int32_t percent) {
    return all == 0 ? ""
                    : Figure_Text(young) + "/" + Figure_Text(all) + "（" + std::to_string(percent) + "%）";
}

std::string Young_Kept(K kekka) {
    return Young(kekka.items.JyakunenK, kekka.items.JyakunenAll, kekka.items.JyakunenK_ritu);
}

std::string Young_New(K kekka) {
    return Young(kekka.items.JyakunenS, kekka.items.JyakunenAll, kekka.items.JyakunenS_ritu);
}

/// CPD units of the engineers and their average: "120/12（10.000）".
std::string Cpd(K kekka) {
    const auto [units, engineers] = kekka.items.tishikiGJ;
    if (engineers == 0) {
        return "";
    }
    std::array<char, 32> average{};
    std::snprintf(average.data(), average.size(), "%.3f", static_cast<double>(units) / engineers);
    return Figure_Text(units) + "/" + Figure_Text(engineers) + "（" + average.data() + "）";
}

/// Workers whose level rose of all but those left out: "3/（20－2）".
std::string Skill(K kekka) {
    const auto [risen, workers, left_out] = kekka.items.tishikiGN;
    return workers == 0
               ? ""
               : Figure_Text(risen) + "/（" + Figure_Text(workers) + "－" + Figure_Text(left_out) + "）";
}

std::string Josei(K kekka) {
    return Word(choice::women, kekka.items.wlb[0]);
}
std::string Jisedai(K kekka) {
    return Word(choice::next_generation, kekka.items.wlb[1]);
}
std::string Youth(K kekka) {
    return Word(choice::youth, kekka.items.wlb[2]);
}
std::string Rireki(K kekka) {
    return Word(choice::work_history, kekka.items.rireki);
}
std::string Years(K kekka) {
    return Figure_Text(kekka.items.Enen) + "年";
}
std::string Years_And_Saisei(K kekka) {
    return Years(kekka) + "│" + Word(choice::yes_no_exempt, kekka.items.Saisei);
}
std::string Bosai(K kekka) {
    return Word(choice::yes_no_exempt, kekka.items.Bkyotei);
}
/// Suspension of business (2) and instruction (1).
std::string Horei(K kekka) {
    return Word(choice::yes_no_exempt, kekka.items.Horei == 2) + "│" +
           Word(choice::yes_no_exempt, kekka.items.Horei == 1);
}
std::string Audit(K kekka) {
    return Word(choice::audit, kekka.items.keiri_kansa);
}
template <std::size_t Index>
std::string Accountants(K kekka) {
    return Figure_Text(kekka.items.Kjm[Index]) + "人";
}
/// The average of two years, cut as the score cuts it.
std::string Research(K kekka) {
    return Figure_Text((std::int64_t{kekka.items.Kihatu[0]} + kekka.items.Kihatu[1]) / 2) + "千円";
}
std::string Machines(K kekka) {
    return Figure_Text(kekka.items.Kikai) + "台";
}
template <std::size_t Index>
std::string Standard(K kekka) {
    return Word(choice::yes_no_exempt, kekka.items.Iso[Index]);
}
std::string Iso_9001_14001(K kekka) {
    return Standard<1>(kekka) + "│" + Standard<2>(kekka);
}

/// A row of the sheet: the forms that have it, the elements that tell
/// whether it was answered (0 none) and that hold its points.
struct Row {
    const char* label;
    Kekka_Form from;
    Kekka_Form until;
    int element;
    std::string (*value)(K);
    int points = 0;
    std::size_t rows_of_points = 1;
    bool is_score = false;
    Law_Range law = {}; ///< narrower than that of its element
};

constexpr Kekka_Form f2008 = Kekka_Form::Rpt_Kekka;
constexpr Kekka_Form f2011 = Kekka_Form::Rpt_Kekka_2011;
constexpr Kekka_Form f2012 = Kekka_Form::Rpt_Kekka_2012;

constexpr Row rows[] = {
    {"雇用保険加入の有無", f2008, f2012, e::welfare, Insurance<0>},
    {"健保及び厚生年金加入の有無", f2008, f2011, e::welfare + 1, Insurance<1>},
    {"健康保険│厚生年金保険加入の有無", f2012, f2012, e::welfare + 1, Health_And_Pension},
    {"建設業退職金共済制度加入の有無", f2008, f2012, e::welfare + 2, Scheme<0>},
    {"退職一時金制度若しくは企業年金制度導入の有無", f2008, f2012, e::welfare + 3, Scheme<1>},
    {"法定外労働災害補償制度加入の有無", f2008, f2012, e::welfare + 4, Scheme<2>},
    {"若年技術職員の継続的な育成及び確保", f2012, f2012, e::young_kept, Young_Kept, e::young_kept_points},
    {"新規若年技術職員の育成及び確保", f2012, f2012, e::young_new, Young_New, e::young_new_points},
    {"ＣＰＤ単位の平均値による評価", f2012, f2012, e::cpd_units, Cpd, e::w10, 2},
    {"技能レベル向上による評価", f2012, f2012, e::skill_raised, Skill},
    {"女性の活躍推進の法律に基づく認定", f2012, f2012, e::women, Josei, e::work_life_points, 3},
    {"次世代育成支援法に基づく認定の状況", f2012, f2012, e::next_generation, Jisedai},
    {"青少年の雇用促進等の法に基づく認定の状況", f2012, f2012, e::youth, Youth},
    {"工事に従事する者の就業履歴の措置の実施状況", f2012, f2012, e::work_history, Rireki,
     e::work_history_points},
    {"労働福祉の状況", f2008, f2011, 0, nullptr, e::w1, 1, true},
    {"建設工事の担い手育成に関する取組の状況", f2012, f2012, 0, nullptr, e::w1, 1, true},
    {"営業年数", f2008, f2008, e::years_in_business, Years},
    {"営業年数│民事再生法等適用の有無",
     f2011,
     f2012,
     e::years_in_business,
     Years_And_Saisei,
     0,
     1,
     false,
     {.with = &Law_Year::has_saisei}},
    {"建設業の営業継続の状況", f2008, f2012, 0, nullptr, e::w2, 1, true},
    {"防災協定締結の有無", f2008, f2012, e::disaster_agreement, Bosai},
    {"防災活動への貢献の状況", f2008, f2012, 0, nullptr, e::w3, 1, true},
    {"営業停止処分の有無│指示処分の有無", f2008, f2012, e::compliance, Horei},
    {"法令遵守の状況", f2008, f2012, 0, nullptr, e::w4, 1, true},
    {"監査の受審状況", f2008, f2012, e::audit, Audit},
    {"公認会計士等の数", f2008, f2012, e::accountants_1, Accountants<0>},
    {"二級登録経理試験合格者の数", f2008, f2012, e::accountants_2, Accountants<1>},
    {"建設業の経理の状況", f2008, f2012, 0, nullptr, e::w5, 1, true},
    {"研究開発費│研究開発の状況", f2008, f2012, e::research, Research, e::w6, 1, true},
    {"建設機械の保有及びリース台数│点数", f2011, f2012, e::machines, Machines, e::w7, 1, true},
    {"エコアクション21認証の有無", f2012, f2012, e::eco_action, Standard<0>},
    {"ISO9001登録の有無│ISO14001登録の有無", f2011, f2012, e::iso_9001, Iso_9001_14001},
    {"国際標準化機構が定めた規格に基づく登録の状況", f2011, f2012, 0, nullptr, e::w8, 1, true},
};

bool Answered(K kekka, int element) {
    return kekka.figures.elements[static_cast<std::size_t>(element)].up;
}

Social_Row Printed(const Row& row, K kekka) {
    Social_Row printed{row.label, "", "", row.rows_of_points, row.is_score};
    const Law_Year& law = Law_Of(kekka.figures.law_year);
    const Element_Info& item = *Find_Element(row.element != 0 ? row.element : row.points);
    if (!item.law.Has(law) || !row.law.Has(law)) {
        printed.value = not_taken;
        return printed;
    }
    if (row.value != nullptr && Answered(kekka, row.element)) {
        printed.value = row.value(kekka);
    }
    if (row.points != 0) {
        printed.points = Score_Text(kekka, row.points);
    }
    return printed;
}

} // namespace

std::string Figure_Text(std::int64_t figure, bool zero_blank) {
    return figure == 0 && zero_blank ? "" : Comma_Str(figure);
}

std::string Score_Text(const Kekka_Figures& kekka, int element) {
    return Answered(kekka, element) ? Figure_Text(kekka.figures.Yoso(element)) : "";
}

std::vector<Social_Row> Social_Rows(const Kekka_Figures& kekka, Kekka_Form form) {
    std::vector<Social_Row> printed;
    for (const Row& row : rows) {
        if (form >= row.from && form <= row.until) {
            printed.push_back(Printed(row, kekka));
        }
    }
    return printed;
}

} // namespace morvane
