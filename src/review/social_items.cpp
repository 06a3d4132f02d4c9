// SPDX-FileCopyrightText: The Morvane developers
#include "review/social_items.h"

#include "review/wzx_calc.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr std::int32_t any = INT32_MAX;

template <std::int32_t Social_Items::*Member>
std::int32_t& One(Social_Items& items) {
    return items.*Member;
}

template <auto Member, std::size_t Index>
std::int32_t& Of(Social_Items& items) {
    return (items.*Member)[Index];
}

using S = Social_Items;

constexpr Social_Field fields[] = {
    {100, One<&S::RF_Ten>, 1, any, "RF_Ten", "労働福祉の状況_点数"},
    {101, Of<&S::Rf1, 0>, 1, 2, "Rf1(0)", "雇用保険加入"},
    {102, Of<&S::Rf1, 1>, 1, 2, "Rf1(1)", "健康保険加入"},
    {103, Of<&S::Rf1, 2>, 1, 2, "Rf1(2)", "厚生年金加入"},
    {104, Of<&S::Rf1, 3>, 1, 2, "Rf1(3)", "建設業退職金共済制度加入"},
    {105, Of<&S::Rf1, 4>, 1, 2, "Rf1(4)", "退職一時金もしくは企業年金制度導入"},
    {106, Of<&S::Rf1, 5>, 3, 2, "Rf1(5)", "法定外労働災害補償制度加入"},
    {110, One<&S::Enen_Ten>, 1, any, "Enen_Ten", "営業年数_点数"},
    {111, One<&S::Enen>, 1, 200, "Enen", "営業年数"},
    {120, One<&S::Bkyotei_Ten>, 1, any, "Bkyotei_Ten", "防災協定_点数"},
    {121, One<&S::Bkyotei>, 1, 1, "Bkyotei", "防災協定締結"},
    {130, One<&S::Horei_ten>, 1, any, "Horei_ten", "法令遵守_点数"},
    {131, One<&S::Horei>, 1, 2, "Horei", "法令遵守の状況"},
    {140, One<&S::Jms_Ten>, 1, any, "Jms_Ten", "経理に関する状況_点数"},
    {141, One<&S::keiri_kansa>, 1, any, "keiri_kansa", "監査の受審"},
    {142, Of<&S::Kjm, 0>, 1, any, "Kjm(0)", "一級建設業経理事務士等の数"},
    {143, Of<&S::Kjm, 1>, 1, any, "Kjm(1)", "二級建設業経理事務士等の数"},
    {150, One<&S::Kihatu_Ten>, 1, any, "Kihatu_Ten", "研究開発_点数"},
    {151, Of<&S::Kihatu, 0>, 1, any, "Kihatu(0)", "開発研究費（前期）"},
    {152, Of<&S::Kihatu, 1>, 1, any, "Kihatu(1)", "開発研究費（当期）"},
    {200, One<&S::W>, 1, any, "W", "その他審査項目（Ｗ）"},
    {211, One<&S::Saisei>, 2, any, "Saisei", "民事再生法又は会社更生法の適用"},
    {212, One<&S::Kikai>, 2, any, "Kikai", "建設機械の所有及びリース台数"},
    {213, One<&S::Kikai_Ten>, 2, any, "Kikai_Ten", "建設機械_点数"},
    {214, Of<&S::Iso, 1>, 2, any, "Iso(1)", "ISO9001の登録"},
    {215, Of<&S::Iso, 2>, 2, any, "Iso(2)", "ISO14001の登録"},
    {216, One<&S::Iso_Ten>, 2, any, "Iso_Ten", "ISO_点数"},
    {221, One<&S::JyakunenAll>, 4, any, "JyakunenK(1)", "技術職員数all"},
    {222, One<&S::JyakunenK>, 4, any, "JyakunenK(0)", "若年数_継続"},
    {223, One<&S::JyakunenK_ritu>, 4, any, "JyakunenK_ritu", "若年数_継続_割合"},
    {224, One<&S::jyakunenK_ten>, 4, any, "jyakunenK_ten", "若年数_継続_点数"},
    {225, One<&S::JyakunenS>, 4, any, "JyakunenS(0)", "若年数_新規"},
    {226, One<&S::JyakunenS_ritu>, 4, any, "JyakunenS_ritu", "若年数_新規_割合"},
    {227, One<&S::jyakunenS_ten>, 4, any, "jyakunenS_ten", "若年数_新規_点数"},
    {228, Of<&S::tishikiGJ, 0>, 4, any, "tishikiGJ(0)", "CPD単位取得数"},
    {229, Of<&S::tishikiGJ, 1>, 4, any, "tishikiGJ(1)", "技術者数"},
    {230, Of<&S::tishikiGN, 0>, 4, any, "tishikiGN(0)", "レベル向上者数"},
    {231, Of<&S::tishikiGN, 1>, 4, any, "tishikiGN(1)", "技能者数"},
    {232, Of<&S::tishikiGN, 2>, 4, any, "tishikiGN(2)", "控除対象者数"},
    {233, One<&S::W10_ten>, 4, any, "W10_ten", "技術向上_点数"},
    {235, Of<&S::wlb, 0>, 4, any, "wlb(0)", "女性活躍推進"},
    {236, Of<&S::wlb, 1>, 4, any, "wlb(1)", "次世代法"},
    {237, Of<&S::wlb, 2>, 4, any, "wlb(2)", "ユースエール"},
    {238, One<&S::rireki>, 4, any, "rireki", "履歴蓄積"},
    {239, Of<&S::Iso, 0>, 4, any, "Iso(0)", "エコアクション"},
    {240, One<&S::wlb_ten>, 4, any, "wlb_ten", "WLB_点数"},
    {241, One<&S::rireki_ten>, 4, any, "rireki_ten", "履歴蓄積_点数"},
};

} // namespace

std::span<const Social_Field> Social_Fields() {
    return fields;
}

W1_Count Count_W1(const Social_Items& items, const Law_Year& law) {
    const auto insurances_end = items.Rf1.begin() + law.insurances;
    return {static_cast<std::int32_t>(std::count(insurances_end, insurances_end + law.schemes, 1)),
            static_cast<std::int32_t>(std::count(items.Rf1.begin(), insurances_end, 0))};
}

std::int16_t Calc_W1(const Social_Items& items, const Law_Year& law) {
    const auto [joined, missing] = Count_W1(items, law);
    return law.deduct_40 ? WZX_Calc().Calc_W1_Ten_40(joined, missing)
                         : WZX_Calc().Calc_W1_Ten_30(joined, missing);
}

void Social_Items::Load(const Review_Figures& figures) {
    *this = {};
    const int law = Law_Of(figures.law_year).code;
    const std::int32_t basis = figures.Yoso(1);
    JikoS = basis == 0 ? 1 : basis;
    for (const Social_Field& field : fields) {
        if (law >= field.law_from) {
            field.place(*this) = figures.Yoso(field.code, field.limit);
        }
    }
    RF1_Ten = Calc_W1(*this, Law_Of(figures.law_year));
    const std::int32_t years = figures.Yoso(201);
    if (years != 0) {
        keiri_kandaka = figures.Yoso(years == 2 ? 202 : 203);
    }
}

void Social_Items::Store(Review_Figures& figures) const {
    const int law = Law_Of(figures.law_year).code;
    figures.Put_Yoso(1, JikoS);
    Social_Items copy = *this;
    for (const Social_Field& field : fields) {
        if (law >= field.law_from) {
            figures.Put_Yoso(field.code, field.place(copy));
        }
    }
}

} // namespace morvane
