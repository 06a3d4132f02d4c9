// SPDX-FileCopyrightText: The Morvane developers
#include "screens/syokuta_table.h"

#include "law/elements.h"
#include "session/kyotu_mod.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace morvane {

namespace {

namespace e = element;

using S = Social_Items;
using Look = Syokuta_Row::Look;

/// A shown item, and a shown figure of X2.
template <std::int32_t S::*Member>
std::string Show(const Syokuta& screen) {
    return Comma_Str(screen.items.*Member);
}

std::string Show_X2(const Syokuta& screen) {
    return Comma_Str(screen.x2.score);
}

template <X2_Result::Part X2_Result::*Part>
std::string Show_Points(const Syokuta& screen) {
    return Comma_Str((screen.x2.*Part).scored.points);
}

template <X2_Result::Two_Periods X2_Result::*Figures, std::size_t Period>
std::string Show_Of(const Syokuta& screen) {
    return Comma_Str((screen.x2.*Figures)[Period]);
}

constexpr int amount_digits = 11;
constexpr int score_digits = 5;
constexpr int points_digits = 4;

template <std::int32_t S::*Member>
Syokuta_Cell Points_Cell(const char* name) {
    return {.name = name, .shown = Show<Member>, .digits = points_digits};
}

constexpr Law_Range any = {};
constexpr Law_Range together = {.without = &Law_Year::has_pension};
constexpr Law_Range pension_apart = {.with = &Law_Year::has_pension};
constexpr Law_Range additions = {.with = &Law_Year::has_additions};

Syokuta_Row Flag(int place, const char* name, const char* caption, const Law_Range& law) {
    return {.caption = caption, .cells = {{.name = name, .element = e::welfare + place}}, .law = law};
}

std::vector<Syokuta_Row> Rows_Of_X2() {
    return {
        {.caption = "計算→ 基準：１ 2年平均：２",
         .cells = {{.name = "JikoS(0)", .element = e::equity_basis}}},
        {.caption = "自己資本額",
         .cells = {{.name = "Js_Ten", .shown = Show_Points<&X2_Result::equity>, .digits = score_digits}},
         .look = Look::Heading,
         .check = "X2-1"},
        {.cells = {{.name = "JikoS(1)",
                    .shown = Show_Of<&X2_Result::equities, 0>,
                    .digits = amount_digits,
                    .before = "前期"},
                   {.name = "JikoS(2)",
                    .shown = Show_Of<&X2_Result::equities, 1>,
                    .digits = amount_digits,
                    .before = "当期"}}},
        {.caption = "平均利益額",
         .cells = {{.name = "HeiRieki_Ten",
                    .shown = Show_Points<&X2_Result::profit>,
                    .digits = score_digits}},
         .look = Look::Heading,
         .check = "X2-2"},
        {.cells = {{.name = "HeiRieki(1)",
                    .shown = Show_Of<&X2_Result::profits, 0>,
                    .digits = amount_digits,
                    .before = "前期"},
                   {.name = "HeiRieki(2)",
                    .shown = Show_Of<&X2_Result::profits, 1>,
                    .digits = amount_digits,
                    .before = "当期"}}},
    };
}

std::vector<Syokuta_Row> Rows_Of_Welfare() {
    return {
        Flag(0, "Rf1(0)", "雇用保険加入の有無", any),
        Flag(1, "Rf1(1)", "健保及び厚生年金加入の有無", together),
        Flag(2, "Rf1(2)", "建設業退職金共済制度加入の有無", together),
        Flag(3, "Rf1(3)", "退職一時金もしくは企業年金制度導入の有無", together),
        Flag(4, "Rf1(4)", "法定外労働災害補償制度加入の有無", together),
        Flag(1, "Rf1(1)", "健康保険加入の有無", pension_apart),
        Flag(2, "Rf1(2)", "厚生年金加入の有無", pension_apart),
        Flag(3, "Rf1(3)", "建設業退職金共済制度加入の有無", pension_apart),
        Flag(4, "Rf1(4)", "退職一時金もしくは企業年金制度導入の有無", pension_apart),
        Flag(5, "Rf1(5)", "法定外労働災害補償制度加入の有無", pension_apart),
    };
}

constexpr const char* of_young = "35歳未満の技術職員の数";
constexpr const char* of_all = "技術職員の数。新規育成・確保と共通です";

std::vector<Syokuta_Row> Rows_Of_Additions() {
    return {
        {.caption = "若年の技術職員（若年／全数 ％ 点）", .look = Look::Heading, .check = "W9"},
        {.caption = "継続的な育成・確保",
         .cells = {{.name = "JyakunenK(0)", .element = e::young_kept, .hint = of_young},
                   {.name = "JyakunenK(1)", .element = e::engineers, .before = "／", .hint = of_all},
                   {.name = "JyakunenK_ritu", .shown = Show<&S::JyakunenK_ritu>, .digits = 4},
                   {.name = "jyakunenK_ten", .shown = Show<&S::jyakunenK_ten>, .digits = 2}}},
        {.caption = "新規育成・確保",
         .cells = {{.name = "JyakunenS(0)",
                    .element = e::young_new,
                    .hint = "審査基準日前１年間に新たに技術職員となった35歳未満の数"},
                   {.name = "JyakunenS(1)", .shown = Show<&S::JyakunenAll>, .digits = 5, .before = "／"},
                   {.name = "JyakunenS_ritu", .shown = Show<&S::JyakunenS_ritu>, .digits = 4},
                   {.name = "jyakunenS_ten", .shown = Show<&S::jyakunenS_ten>, .digits = 2}}},
        {.caption = "知識・技術・技能の向上",
         .cells = {Points_Cell<&S::W10_ten>("W10_ten")},
         .look = Look::Heading,
         .check = "W10"},
        {.caption = "ＣＰＤ単位取得数",
         .cells = {{.name = "tishikiGJ(0)",
                    .element = e::cpd_units,
                    .hint = "技術者が１年間に取得したＣＰＤ単位の合計"},
                   {.name = "tishikiGJ(1)",
                    .element = e::cpd_engineers,
                    .before = "技術者数",
                    .hint = "監理技術者になる資格などを持つ技術者の数"}}},
        {.caption = "技能レベル向上者数",
         .cells = {{.name = "tishikiGN(0)",
                    .element = e::skill_raised,
                    .hint = "審査基準日前３年間に能力評価の区分が上がった技能者の数"},
                   {.name = "tishikiGN(1)",
                    .element = e::skilled_workers,
                    .before = "技能者数",
                    .hint = "審査基準日前３年間に工事の施工に従事した技能者の数"}}},
        {.caption = "控除対象者数",
         .cells = {{.name = "tishikiGN(2)",
                    .element = e::skill_left_out,
                    .hint = "はじめから最上位の区分にある技能者の数"}}},
        {.caption = "ワーク・ライフ・バランス",
         .cells = {Points_Cell<&S::wlb_ten>("wlb_ten")},
         .look = Look::Heading},
        {.caption = "女性活躍推進法に基づく認定", .cells = {{.name = "wlb(0)", .element = e::women}}},
        {.caption = "次世代法に基づく認定", .cells = {{.name = "wlb(1)", .element = e::next_generation}}},
        {.caption = "若者雇用促進法に基づく認定 （ユースエール：1)",
         .cells = {{.name = "wlb(2)", .element = e::youth}}},
        {.caption = "建設工事の就業履歴の蓄積",
         .cells = {Points_Cell<&S::rireki_ten>("rireki_ten")},
         .look = Look::Heading},
        {.caption = "全工事で実施：1、全公共工事：2、自主宣言有：3、無：0",
         .cells = {{.name = "rireki", .element = e::work_history}}},
        {.caption = "【注】・全工事＋自主宣言：4　・公共工事＋自主宣言：5", .look = Look::Note},
        {.caption = "←審査基準日2026/07/01以降", .look = Look::Note},
        {.caption = "担い手の育成・確保に関する取組（Ｗ１）  点数",
         .cells = {Points_Cell<&S::RF_Ten>("RF_Ten")},
         .look = Look::Total,
         .check = "W1"},
    };
}

std::vector<Syokuta_Row> Rows_Of_W5() {
    return {
        {.caption = choice::audit_caption, .cells = {{.name = "keiri_kansa", .element = e::audit}}},
        {.caption = " 完成工事高 (X1入力画面より）",
         .cells = {{.name = "keiri_kandaka", .shown = Show<&S::keiri_kandaka>, .digits = amount_digits}}},
        {.caption = "一級建設業経理事務士等の数",
         .cells = {{.name = "Kjm(0)",
                    .element = e::accountants_1,
                    .hint = "公認会計士、税理士、一級の登録経理試験合格者等の数"}}},
        {.caption = "二級建設業経理事務士等の数",
         .cells = {{.name = "Kjm(1)",
                    .element = e::accountants_2,
                    .hint = "二級の登録経理試験合格者等の数"}}},
    };
}

std::vector<Syokuta_Group> Groups_Of_X2_And_W1() {
    return {
        {.title = "自己資本額及び平均利益額（Ｘ２）",
         .points = {{.name = "X2", .shown = Show_X2, .digits = score_digits}},
         .check = "X2",
         .rows = Rows_Of_X2()},
        {.title = "労働福祉の状況（Ｗ１）",
         .points = {Points_Cell<&S::RF_Ten>("RF_Ten")},
         .check = "W1",
         .rows = Rows_Of_Welfare(),
         .law = {.without = &Law_Year::has_additions}},
        {.title = "労働福祉の状況",
         .points = {Points_Cell<&S::RF1_Ten>("RF1_Ten")},
         .check = nullptr,
         .rows = Rows_Of_Welfare(),
         .law = additions},
        {.title = "担い手の育成・確保（Ｗ１）",
         .points = {},
         .check = nullptr,
         .of_three = 1,
         .rows = Rows_Of_Additions(),
         .law = additions},
    };
}

std::vector<Syokuta_Group> Groups_Of_W2_To_W4() {
    return {
        {.title = "営業継続の状況（Ｗ２）",
         .points = {Points_Cell<&S::Enen_Ten>("Enen_Ten")},
         .check = "W2",
         .of_two = 1,
         .of_three = 2,
         .rows = {{.caption = "建設業の営業継続の状況",
                   .cells = {{.name = "Enen",
                              .element = e::years_in_business,
                              .after = "年",
                              .hint = "建設業の許可を受けてからの営業年数"}}},
                  {.caption = " 民事再生法又は会社更生法の適用の有無",
                   .cells = {{.name = "Saisei", .element = e::rehabilitation}},
                   .law = {.with = &Law_Year::has_saisei}}}},
        {.title = "防災活動への貢献（Ｗ３）",
         .points = {Points_Cell<&S::Bkyotei_Ten>("Bkyotei_Ten")},
         .check = "W3",
         .of_two = 1,
         .of_three = 2,
         .rows = {{.caption = " 防災協定締結の有無",
                   .cells = {{.name = "Bkyotei", .element = e::disaster_agreement}}}}},
        {.title = "法令遵守の状況（Ｗ４）",
         .points = {Points_Cell<&S::Horei_ten>("Horei_ten")},
         .check = "W4",
         .of_two = 1,
         .of_three = 2,
         .rows = {{.caption = " ( 0無  1指示を受けた場合  2営業の全部もしくは一部の停止を命ぜられた場合)",
                   .cells = {{.name = "Horei", .element = e::compliance}}}}},
    };
}

constexpr const char* of_research = "金額単位：千円。会計監査人を設置している場合だけ点数になります。";

std::vector<Syokuta_Group> Groups_From_W5() {
    return {
        {.title = "経理に関する状況（Ｗ５）",
         .points = {Points_Cell<&S::Jms_Ten>("Jms_Ten")},
         .check = "W5",
         .of_two = 1,
         .of_three = 2,
         .rows = Rows_Of_W5()},
        {.title = "研究開発の状況（Ｗ６）",
         .points = {Points_Cell<&S::Kihatu_Ten>("Kihatu_Ten")},
         .check = "W6",
         .of_two = 1,
         .of_three = 2,
         .rows = {{.caption = " 開発研究費",
                   .cells = {{.name = "Kihatu(0)",
                              .element = e::research_before,
                              .before = "前期",
                              .hint = of_research}}},
                  {.cells = {{.name = "Kihatu(1)",
                              .element = e::research,
                              .before = "当期",
                              .hint = of_research}}}}},
        {.title = "建設機械の保有状況（Ｗ７）",
         .points = {Points_Cell<&S::Kikai_Ten>("Kikai_Ten")},
         .check = "W7",
         .of_two = 1,
         .rows = {{.caption = "建設機械の所有及びリース台数",
                   .cells =
                       {{.name = "Kikai", .element = e::machines, .after = "台", .hint = "建設機械の台数"}}}},
         .law = {.with = &Law_Year::has_w7_w8}},
        {.title = "認証・登録の状況（Ｗ８）",
         .points = {Points_Cell<&S::Iso_Ten>("Iso_Ten")},
         .check = "W8",
         .of_two = 1,
         .rows = {{.caption = " エコアクション21の認証の有無",
                   .cells = {{.name = "Iso(0)", .element = e::eco_action}},
                   .law = additions},
                  {.caption = " ISO9001の登録の有無", .cells = {{.name = "Iso(1)", .element = e::iso_9001}}},
                  {.caption = " ISO14001の登録有無", .cells = {{.name = "Iso(2)", .element = e::iso_14001}}}},
         .law = {.with = &Law_Year::has_w7_w8}},
        {.title = "その他審査項目（Ｗ）",
         .points = {{.name = "W", .shown = Show<&S::W>, .digits = score_digits}},
         .check = "W",
         .of_two = 1,
         .of_three = 2},
    };
}

constexpr std::array screens = {
    Syokuta_Screen{&Law_Year::entry_form, current_figures},
    Syokuta_Screen{&Law_Year::improved_form, improved_figures, &Law_Year::improvement_report,
                   "改善後一覧印刷"},
    Syokuta_Screen{&Law_Year::comparison_form, compared_periods, &Law_Year::comparison_report, "比較一覧印刷",
                   &Law_Year::comparison_starts_improvement},
};

} // namespace

const std::vector<Syokuta_Group>& Syokuta_Groups() {
    static const std::vector<Syokuta_Group> groups = [] {
        std::vector<Syokuta_Group> all = Groups_Of_X2_And_W1();
        for (const auto& more : {Groups_Of_W2_To_W4(), Groups_From_W5()}) {
            all.insert(all.end(), more.begin(), more.end());
        }
        return all;
    }();
    return groups;
}

// The names grew with the screens.
std::string Name_Before(std::string_view name) {
    std::string named(name);
    if (name.starts_with("Jyakunen")) {
        named.front() = 'j';
    }
    const bool joined = name.starts_with("tishiki") || name == "W10_ten";
    return (joined ? "Mae" : "Mae_") + named;
}

const Syokuta_Screen& Syokuta_Screen_Of(std::string_view form) {
    for (const Syokuta_Screen& screen : screens) {
        const auto has = [&](const Law_Year& law) { return law.*screen.form == form; };
        if (std::any_of(Law_Years().begin(), Law_Years().end(), has)) {
            return screen;
        }
    }
    throw std::out_of_range("no screen of X2 and W is " + std::string(form));
}

} // namespace morvane
