// SPDX-FileCopyrightText: The Morvane developers
#include "review/social_items.h"

#include "law/elements.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace morvane {

namespace {

namespace e = element;

template <std::int32_t Social_Items::*Member>
std::int32_t& One(Social_Items& items) {
    return items.*Member;
}

template <auto Member, std::size_t Index>
std::int32_t& Of(Social_Items& items) {
    return (items.*Member)[Index];
}

using S = Social_Items;

using Place = std::int32_t& (*)(Social_Items&);

constexpr std::pair<int, Place> place_list[] = {
    {e::equity_basis, One<&S::JikoS>},
    {e::w1, One<&S::RF_Ten>},
    {e::welfare, Of<&S::Rf1, 0>},
    {e::welfare + 1, Of<&S::Rf1, 1>},
    {e::welfare + 2, Of<&S::Rf1, 2>},
    {e::welfare + 3, Of<&S::Rf1, 3>},
    {e::welfare + 4, Of<&S::Rf1, 4>},
    {e::welfare + 5, Of<&S::Rf1, 5>},
    {e::w2, One<&S::Enen_Ten>},
    {e::years_in_business, One<&S::Enen>},
    {e::w3, One<&S::Bkyotei_Ten>},
    {e::disaster_agreement, One<&S::Bkyotei>},
    {e::w4, One<&S::Horei_ten>},
    {e::compliance, One<&S::Horei>},
    {e::w5, One<&S::Jms_Ten>},
    {e::audit, One<&S::keiri_kansa>},
    {e::accountants_1, Of<&S::Kjm, 0>},
    {e::accountants_2, Of<&S::Kjm, 1>},
    {e::w6, One<&S::Kihatu_Ten>},
    {e::research_before, Of<&S::Kihatu, 0>},
    {e::research, Of<&S::Kihatu, 1>},
    {e::w, One<&S::W>},
    {e::rehabilitation, One<&S::Saisei>},
    {e::machines, One<&S::Kikai>},
    {e::w7, One<&S::Kikai_Ten>},
    {e::iso_9001, Of<&S::Iso, 1>},
    {e::iso_14001, Of<&S::Iso, 2>},
    {e::w8, One<&S::Iso_Ten>},
    {e::engineers, One<&S::JyakunenAll>},
    {e::young_kept, One<&S::JyakunenK>},
    {e::young_kept_rate, One<&S::JyakunenK_ritu>},
    {e::young_kept_points, One<&S::jyakunenK_ten>},
    {e::young_new, One<&S::JyakunenS>},
    {e::young_new_rate, One<&S::JyakunenS_ritu>},
    {e::young_new_points, One<&S::jyakunenS_ten>},
    {e::cpd_units, Of<&S::tishikiGJ, 0>},
    {e::cpd_engineers, Of<&S::tishikiGJ, 1>},
    {e::skill_raised, Of<&S::tishikiGN, 0>},
    {e::skilled_workers, Of<&S::tishikiGN, 1>},
    {e::skill_left_out, Of<&S::tishikiGN, 2>},
    {e::w10, One<&S::W10_ten>},
    {e::women, Of<&S::wlb, 0>},
    {e::next_generation, Of<&S::wlb, 1>},
    {e::youth, Of<&S::wlb, 2>},
    {e::work_history, One<&S::rireki>},
    {e::eco_action, Of<&S::Iso, 0>},
    {e::work_life_points, One<&S::wlb_ten>},
    {e::work_history_points, One<&S::rireki_ten>},
};

// By code: every score reads them all.
constexpr std::array<Place, 256> places = [] {
    std::array<Place, 256> by_code{};
    for (const auto& [code, place] : place_list) {
        by_code[static_cast<std::size_t>(code)] = place;
    }
    return by_code;
}();

bool Is_Item(int code) {
    return places[static_cast<std::size_t>(code)] != nullptr;
}

} // namespace

std::int32_t& Social_Items::At(int code) {
    const Place place = places.at(static_cast<std::size_t>(code));
    if (place == nullptr) {
        throw std::out_of_range("no item " + std::to_string(code));
    }
    return place(*this);
}

W1_Count Count_W1(const Social_Items& items, const Law_Year& law) {
    const auto insurances_end = items.Rf1.begin() + law.Insurances();
    return {static_cast<std::int32_t>(std::count(insurances_end, insurances_end + law.schemes, 1)),
            static_cast<std::int32_t>(std::count(items.Rf1.begin(), insurances_end, 0))};
}

Points Calc_W1(const Social_Items& items, const Law_Year& law) {
    const auto [joined, missing] = Count_W1(items, law);
    return Calc_W1_Ten(law, Head_Count(joined), Head_Count(missing));
}

void Social_Items::Load(const Review_Figures& figures) {
    *this = {};
    const Law_Year& law = Law_Of(figures.law_year);
    for (const Element_Info& item : Element_Infos()) {
        if (Is_Item(item.code) && item.law.Has(law)) {
            At(item.code) = figures.Yoso(item.code, item.most_read);
        }
    }
    JikoS = JikoS == 0 ? 1 : JikoS;
    RF1_Ten = Calc_W1(*this, law).Count();
    const std::int32_t years = figures.Yoso(e::years_of_average);
    if (years != 0) {
        keiri_kandaka = figures.Yoso(years == 2 ? e::total_of_two : e::total_of_three);
    }
}

void Social_Items::Store(Review_Figures& figures) const {
    const Law_Year& law = Law_Of(figures.law_year);
    Social_Items copy = *this;
    for (const Element_Info& item : Element_Infos()) {
        if (Is_Item(item.code) && item.law.Has(law)) {
            figures.Put_Yoso(item.code, copy.At(item.code));
        }
    }
}

} // namespace morvane
