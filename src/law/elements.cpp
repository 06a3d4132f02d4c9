// SPDX-FileCopyrightText: The Morvane developers
#include "law/elements.h"

#include <algorithm>

namespace morvane {

namespace {

namespace e = element;
namespace c = choice;

constexpr Law_Range pension = {.with = &Law_Year::has_pension};
constexpr Law_Range saisei = {.with = &Law_Year::has_saisei};
constexpr Law_Range w7_w8 = {.with = &Law_Year::has_w7_w8};
constexpr Law_Range additions = {.with = &Law_Year::has_additions};

constexpr std::int32_t any_amount = std::numeric_limits<std::int32_t>::max();

// Items and standards of the review (平成20年国土交通省告示第85号), 第一 の四 その他の審査項目; the largest
// numbers are what the entry fields hold.
constexpr Element_Info items[] = {
    {.code = e::equity_basis, .name = "自己資本額の採用区分", .choice = &c::equity_basis},
    {.code = e::w1, .name = "労働福祉の状況_点数"},
    {.code = e::welfare, .name = "雇用保険加入", .choice = &c::yes_no, .most_read = 2},
    {.code = e::welfare + 1, .name = "健康保険加入", .choice = &c::yes_no, .most_read = 2},
    {.code = e::pension, .name = "厚生年金加入", .choice = &c::yes_no, .most_read = 2},
    {.code = e::welfare + 3, .name = "建設業退職金共済制度加入", .choice = &c::yes_no, .most_read = 2},
    {.code = e::welfare + 4,
     .name = "退職一時金もしくは企業年金制度導入",
     .choice = &c::yes_no,
     .most_read = 2},
    {.code = e::welfare_last,
     .name = "法定外労働災害補償制度加入",
     .law = pension,
     .choice = &c::yes_no,
     .most_read = 2},
    {.code = e::w2, .name = "営業年数_点数"},
    {.code = e::years_in_business, .name = "営業年数", .most = 200, .most_read = 200},
    {.code = e::w3, .name = "防災協定_点数"},
    {.code = e::disaster_agreement, .name = "防災協定締結", .choice = &c::yes_no, .most_read = 1},
    {.code = e::w4, .name = "法令遵守_点数"},
    {.code = e::compliance, .name = "法令遵守の状況", .choice = &c::compliance, .most_read = 2},
    {.code = e::w5, .name = "経理に関する状況_点数"},
    {.code = e::audit, .name = "監査の受審", .choice = &c::audit},
    {.code = e::accountants_1, .name = "一級建設業経理事務士等の数", .most = 9'999},
    {.code = e::accountants_2, .name = "二級建設業経理事務士等の数", .most = 9'999},
    {.code = e::w6, .name = "研究開発_点数"},
    {.code = e::research_before, .name = "開発研究費（前期）", .most = 99'999'999, .amount = true},
    {.code = e::research, .name = "開発研究費（当期）", .most = 99'999'999, .amount = true},
    {.code = e::w, .name = "その他審査項目（Ｗ）"},
    {.code = e::years_of_average, .name = "完成工事高の採用平均年数", .choice = &c::years_of_average},
    {.code = e::total_of_two, .name = "２年平均完成工事高合計", .most = any_amount},
    {.code = e::total_of_three, .name = "３年平均完成工事高合計", .most = any_amount},
    {.code = e::law_year, .name = "経審改正年区分"},
    {.code = e::rehabilitation,
     .name = "民事再生法又は会社更生法の適用",
     .law = saisei,
     .choice = &c::yes_no},
    {.code = e::machines, .name = "建設機械の所有及びリース台数", .law = w7_w8, .most = 9'999},
    {.code = e::w7, .name = "建設機械_点数", .law = w7_w8},
    {.code = e::iso_9001, .name = "ISO9001の登録", .law = w7_w8, .choice = &c::yes_no},
    {.code = e::iso_14001, .name = "ISO14001の登録", .law = w7_w8, .choice = &c::yes_no},
    {.code = e::w8, .name = "ISO_点数", .law = w7_w8},
    {.code = e::engineers, .name = "技術職員数all", .law = additions, .most = 99'999},
    {.code = e::young_kept, .name = "若年数_継続", .law = additions, .most = 99'999},
    {.code = e::young_kept_rate, .name = "若年数_継続_割合", .law = additions},
    {.code = e::young_kept_points, .name = "若年数_継続_点数", .law = additions},
    {.code = e::young_new, .name = "若年数_新規", .law = additions, .most = 99'999},
    {.code = e::young_new_rate, .name = "若年数_新規_割合", .law = additions},
    {.code = e::young_new_points, .name = "若年数_新規_点数", .law = additions},
    {.code = e::cpd_units, .name = "CPD単位取得数", .law = additions, .most = 999'999},
    {.code = e::cpd_engineers, .name = "技術者数", .law = additions, .most = 99'999},
    {.code = e::skill_raised, .name = "レベル向上者数", .law = additions, .most = 99'999},
    {.code = e::skilled_workers, .name = "技能者数", .law = additions, .most = 99'999},
    {.code = e::skill_left_out, .name = "控除対象者数", .law = additions, .most = 99'999},
    {.code = e::w10, .name = "技術向上_点数", .law = additions},
    {.code = e::women, .name = "女性活躍推進", .law = additions, .choice = &c::women},
    {.code = e::next_generation, .name = "次世代法", .law = additions, .choice = &c::next_generation},
    {.code = e::youth, .name = "ユースエール", .law = additions, .choice = &c::youth},
    {.code = e::work_history, .name = "履歴蓄積", .law = additions, .choice = &c::work_history},
    {.code = e::eco_action, .name = "エコアクション", .law = additions, .choice = &c::yes_no},
    {.code = e::work_life_points, .name = "WLB_点数", .law = additions},
    {.code = e::work_history_points, .name = "履歴蓄積_点数", .law = additions},
};

bool Is_Welfare(int code) {
    return code >= e::welfare && code <= e::welfare_last;
}

std::string Numbers_Of_Law_Years() {
    std::string numbers;
    for (const Law_Year& law : Law_Years()) {
        numbers += std::to_string(Law_Number(law.code));
    }
    return numbers;
}

} // namespace

std::span<const Element_Info> Element_Infos() {
    return items;
}

const Element_Info* Find_Element(int code) {
    const auto* const found = std::find_if(std::begin(items), std::end(items),
                                           [code](const Element_Info& item) { return item.code == code; });
    return found == std::end(items) ? nullptr : found;
}

std::string Element_Name(int code) {
    const Element_Info* item = Find_Element(code);
    return item == nullptr ? "要素" + std::to_string(code) : item->name;
}

const Choice* Choice_Of(const Element_Info& item, const Law_Year& law) {
    return Is_Welfare(item.code) && item.code < e::welfare + law.Insurances() ? &c::yes_no_exempt
                                                                              : item.choice;
}

bool Entry_Limit::Takes(std::int64_t number) const {
    if (choices.empty()) {
        return number >= lowest && number <= highest;
    }
    return number == 0 ||
           (number > 0 && number <= 9 && choices.find(static_cast<char>('0' + number)) != std::string::npos);
}

std::string Entry_Limit::In_Words() const {
    if (choices.empty()) {
        return std::to_string(lowest) + " から " + std::to_string(highest) + " まで";
    }
    std::string words;
    for (const char key : choices) {
        words += words.empty() ? "" : "、";
        words += key;
    }
    return words + " のどれか";
}

Entry_Limit Limit_Of_Element(int code, const Law_Year& law) {
    if (code == e::law_year) {
        return {.choices = Numbers_Of_Law_Years()};
    }
    const Element_Info* item = Find_Element(code);
    if (item == nullptr) {
        return Width_Of<std::int32_t>();
    }
    if (const Choice* choice = Choice_Of(*item, law)) {
        return {.choices = std::string(choice->keys)};
    }
    return item->most > 0 ? Entry_Limit{.highest = item->most} : Width_Of<std::int16_t>();
}

} // namespace morvane
