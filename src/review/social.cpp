// SPDX-FileCopyrightText: The Morvane developers
#include "review/social.h"

namespace morvane {

namespace {

constexpr const char* what_w1 = "担い手の育成・確保に関する取組（Ｗ１）";
constexpr const char* what_items = "その他審査項目（Ｗ）";

Points Ten(std::int32_t ten) {
    return Points(Narrow<std::int16_t>(ten, what_items));
}

// W1 from 2015 on: welfare with what stands beside it.
Points W1_With_Additions(const Social_Items& items) {
    Points sum = Ten(items.RF1_Ten);
    for (const std::int32_t ten :
         {items.jyakunenK_ten, items.jyakunenS_ten, items.W10_ten, items.wlb_ten, items.rireki_ten}) {
        const Points addition = Ten(ten);
        sum = In_Calculation(what_w1, [&] { return sum + addition; });
    }
    return sum;
}

// Without technical staff the rates and their scores stay as they were.
void Calc_Young(Social_Items& items) {
    if (items.JyakunenAll == 0) {
        return;
    }
    const Head_Count all(items.JyakunenAll);
    const double kept = Young_Rate(Head_Count(items.JyakunenK), all);
    const double fresh = Young_Rate(Head_Count(items.JyakunenS), all);
    items.JyakunenK_ritu = Narrow_Double<std::int32_t>(kept, "若年技術職員の割合");
    items.JyakunenS_ritu = Narrow_Double<std::int32_t>(fresh, "若年技術職員の割合");
    items.jyakunenK_ten = Young_Keizoku_Ten(kept).Count();
    items.jyakunenS_ten = Young_Sinki_Ten(fresh).Count();
}

} // namespace

Points W2_Of(const Social_Items& items, const Law_Year& law) {
    const Head_Count years(items.Enen);
    return law.has_saisei ? Calc_W2_Ten_Saisei(years, items.Saisei) : Calc_W2_Ten(years);
}

W5_Score W5_Of(const Social_Items& items, Thousand_Yen kanko) {
    return Calc_W5_Ten(items.keiri_kansa, kanko, Head_Count(items.Kjm[0]), Head_Count(items.Kjm[1]));
}

W10_Counts W10_Counts_Of(const Social_Items& items) {
    return {Head_Count(items.tishikiGJ[0]), Head_Count(items.tishikiGJ[1]), Head_Count(items.tishikiGN[0]),
            Head_Count(items.tishikiGN[1]), Head_Count(items.tishikiGN[2])};
}

Sub_Scores Sub_Scores_Of(const Social_Items& items, std::int32_t kikai_ten) {
    return {Points::Of(items.RF_Ten),    Points::Of(items.Enen_Ten), Points::Of(items.Bkyotei_Ten),
            Points::Of(items.Horei_ten), Points::Of(items.Jms_Ten),  Points::Of(items.Kihatu_Ten),
            Points::Of(kikai_ten),       Points::Of(items.Iso_Ten)};
}

Social_Items Calc_W_2012(const Social_Items& items, std::int32_t kikai_ten_of_load,
                         const Review_Figures& figures) {
    const Law_Year& law = Law_Of(figures.law_year);
    Social_Items next = items;
    next.RF1_Ten = Calc_W1(next, law).Count();
    next.RF_Ten = next.RF1_Ten;
    if (law.has_additions) {
        next.wlb_ten = Calc_WLB_Ten(next.wlb[0], next.wlb[1], next.wlb[2]).Count();
        next.rireki_ten = Calc_Rireki_Ten(next.rireki).Count();
        next.RF_Ten = W1_With_Additions(next).Count();
    }
    next.Enen_Ten = W2_Of(next, law).Count();
    if (law.has_w7_w8) {
        next.Kikai_Ten = Calc_W7_Ten(Head_Count(next.Kikai)).Count();
        next.Iso_Ten = Calc_W8_Ten(next.Iso[0], next.Iso[1], next.Iso[2]).Count();
    }
    if (law.has_additions) {
        next.W10_ten = Calc_W10_Ten(W10_Counts_Of(next)).Count();
        Calc_Young(next);
    }
    next.Bkyotei_Ten = Calc_W3_Ten(next.Bkyotei).Count();
    next.Horei_ten = Calc_W4_Ten(next.Horei).Count();
    next.Jms_Ten = W5_Of(next, Thousand_Yen(next.keiri_kandaka)).total.Count();
    next.Kihatu_Ten =
        Calc_W6_Ten(next.keiri_kansa, Thousand_Yen(next.Kihatu[0]), Thousand_Yen(next.Kihatu[1])).Count();
    const std::int32_t machines = law.w7_of_load ? kikai_ten_of_load : next.Kikai_Ten;
    const Sub_Scores sub_scores = In_Calculation(what_items, [&] { return Sub_Scores_Of(next, machines); });
    next.W =
        (law.has_w7_w8 ? Calc_W_2011(sub_scores, figures.Date_For_W()) : Calc_W_2008(sub_scores)).Count();
    return next;
}

} // namespace morvane
