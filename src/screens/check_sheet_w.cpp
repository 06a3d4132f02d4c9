// SPDX-FileCopyrightText: The Morvane developers
#include "law/choices.h"
#include "law/social_points.h"
#include "screens/check_figures.h"

#include <array>
#include <cstdio>

namespace morvane {

namespace {

using S = Social_Items;

/// An answer with its meaning.
std::string Answer_Text(std::int32_t number, const Choice& choice) {
    const Answer_Word* answer = choice.Find(number);
    return Number(number) + (answer != nullptr ? std::string("：") + answer->Check_Word() : "");
}

template <std::size_t Index>
std::string Rf1(const Check_Figures& f) {
    return Answer_Text(f.items.Rf1[Index], choice::yes_no_exempt);
}

template <auto Member>
std::string Yes_No(const Check_Figures& f) {
    return Answer_Text(f.items.*Member, choice::yes_no);
}

template <std::size_t Index>
std::string Iso(const Check_Figures& f) {
    return Answer_Text(f.items.Iso[Index], choice::yes_no);
}

std::string Audit(const Check_Figures& f) {
    return Answer_Text(f.items.keiri_kansa, choice::audit);
}

template <std::int32_t Social_Items::*Member>
std::string Percent(const Check_Figures& f) {
    return Number(f.items.*Member) + "％";
}

std::string Tenths(float value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f", static_cast<double>(value));
    return text.data();
}

std::string Y1_Of_W1(const Check_Figures& f) {
    return Number(Count_W1(f.items, f.Law()).joined);
}

std::string Y2_Of_W1(const Check_Figures& f) {
    return Number(Count_W1(f.items, f.Law()).missing);
}

// The points of an item, so many blocks of rows side by side.
template <Points_Table (*Points_Of)(const Check_Figures&), int Blocks>
void Show_Points(const Check_Figures& f, Check_Sheet& sheet) {
    const Points_Table points = Points_Of(f);
    Check_Table table{"", {points.item, "点数"}, {0}, {}, points.mark, Blocks};
    for (const Points_Table::Row& row : points.rows) {
        table.rows.push_back({{row.item}, {Number(row.points.Count())}});
    }
    sheet.tables.push_back(std::move(table));
}

std::string W1_Formula(std::int32_t off) {
    return "Ｙ１ × " + Number(w1_for_scheme) + " － Ｙ２ × " + Number(off);
}

void More_Of_W(const Check_Figures& f, Check_Sheet& sheet) {
    sheet.formula.push_back("（Ｗ１ ＋ Ｗ２ ＋ Ｗ３ ＋ Ｗ４ ＋ Ｗ５ ＋ Ｗ６ ＋ Ｗ７ ＋ Ｗ８）× " +
                            Number(w_times) + " × " + Number(W_Share(f.figures.review_date)) + " ／ " +
                            Number(w_share_whole));
    sheet.closing.emplace_back("（小数点以下の端数は切り捨て）");
}

// The sub-scores of W by the names that they have at a law year.
std::vector<Sheet_Line> W_Parts(bool w7_w8, bool additions) {
    std::vector<Sheet_Line> lines = {
        {additions ? "担い手の育成・確保に関する取組（Ｗ１）" : "労働福祉の状況（Ｗ１）", Item<&S::RF_Ten>},
        {"建設業の営業継続の状況（Ｗ２）", Item<&S::Enen_Ten>},
        {"防災活動への貢献の状況（Ｗ３）", Item<&S::Bkyotei_Ten>},
        {"法令遵守の状況（Ｗ４）", Item<&S::Horei_ten>},
        {"経理に関する状況（Ｗ５）", Item<&S::Jms_Ten>},
        {"研究開発の状況（Ｗ６）", Item<&S::Kihatu_Ten>}};
    if (w7_w8) {
        lines.push_back({"建設機械の保有状況（Ｗ７）", Item<&S::Kikai_Ten>});
        lines.push_back({additions ? "国又は国際標準化機構が定めた規格による認証等の状況（Ｗ８）"
                                   : "国際標準化機構が定めた規格による登録の状況（Ｗ８）",
                         Item<&S::Iso_Ten>});
    }
    return lines;
}

// The inputs again in the formulas. The rate is formed of those left out; the levels raised decide only
// whether there is one.
void More_Of_W10(const Check_Figures& f, Check_Sheet& sheet) {
    const std::string cpd = Number(f.items.tishikiGJ[0]);
    const std::string engineers = Number(f.items.tishikiGJ[1]);
    const std::string raised = Number(f.items.tishikiGN[0]);
    const std::string workers = Number(f.items.tishikiGN[1]);
    sheet.filled = {
        {{"CPD単位取得数の平均 ＝ "}, {cpd, "LblCpd"}, {" ／ "}, {engineers, "LblGJSu(0)"}},
        {{"技能の割合 ＝ 控除対象者数 ／（"},
         {workers, "LblGino(0)"},
         {" － 控除対象者数）　技能レベル向上者数 "},
         {raised, "LblKojyo"},
         {" が0のときは算出しません"}},
        {{"CPDの点数 × "},
         {engineers, "LblGJSu(1)"},
         {" ／（"},
         {engineers, "LblGJSu(2)"},
         {" ＋ "},
         {workers, "LblGino(1)"},
         {"）＋ 技能の点数 × "},
         {workers, "LblGino(2)"},
         {" ／（"},
         {engineers, "LblGJSu(3)"},
         {" ＋ "},
         {workers, "LblGino(3)"},
         {"）"}},
    };
}

constexpr const char* w1_score = "点数は労働福祉の各項目から算出します。";
constexpr const char* y1_caption = "Ｙ１（加入・導入している制度の数）";
constexpr const char* y2_caption = "Ｙ２（加入していない保険の数）";
constexpr const char* title_w1 = "（Ｗ１）労働福祉の状況 計算詳細チェック";
constexpr const char* title_w2 = "（Ｗ２）建設業の営業継続の状況 計算詳細チェック";
constexpr const char* title_w = "（Ｗ）その他審査項目 計算詳細チェック";

const std::vector<Sheet_Line> six_flags = {{"雇用保険加入の有無", Rf1<0>},
                                           {"健康保険加入の有無", Rf1<1>},
                                           {"厚生年金加入の有無", Rf1<2>},
                                           {"建設業退職金共済制度加入の有無", Rf1<3>},
                                           {"退職一時金もしくは企業年金制度導入の有無", Rf1<4>},
                                           {"法定外労働災害補償制度加入の有無", Rf1<5>},
                                           {y1_caption, Y1_Of_W1},
                                           {y2_caption, Y2_Of_W1}};

std::vector<Sheet_Text> Sheets_Of_W1() {
    return {
        {.mode = "W1",
         .law = {.without = &Law_Year::has_pension},
         .title = title_w1,
         .help_key = "W1",
         .inputs = {{"雇用保険加入の有無", Rf1<0>},
                    {"健保及び厚生年金加入の有無", Rf1<1>},
                    {"建設業退職金共済制度加入の有無", Rf1<2>},
                    {"退職一時金もしくは企業年金制度導入の有無", Rf1<3>},
                    {"法定外労働災害補償制度加入の有無", Rf1<4>},
                    {y1_caption, Y1_Of_W1},
                    {y2_caption, Y2_Of_W1}},
         .formula = {W1_Formula(w1_off_for_insurance_2008)},
         .results = {{"労働福祉の状況（Ｗ１）：", Item<&S::RF_Ten>}},
         .closing = {w1_score},
         .steps = Steps_Of_W1},
        {.mode = "W1",
         .law = {.with = &Law_Year::has_pension, .without = &Law_Year::has_additions},
         .title = title_w1,
         .help_key = "W1",
         .inputs = six_flags,
         .formula = {W1_Formula(w1_off_for_insurance_2012)},
         .results = {{"労働福祉の状況（Ｗ１）：", Item<&S::RF_Ten>}},
         .closing = {w1_score},
         .steps = Steps_Of_W1},
        {.mode = "W1",
         .law = {.with = &Law_Year::has_additions},
         .title = "（Ｗ１）担い手の育成・確保に関する取組 計算詳細チェック",
         .help_key = "W1",
         .inputs = six_flags,
         .formula = {W1_Formula(w1_off_for_insurance_2012)},
         .results = {{"労働福祉の状況：", Item<&S::RF1_Ten>},
                     {"若年技術職員の継続的な育成・確保：", Item<&S::jyakunenK_ten>},
                     {"若年技術職員の新規育成・確保：", Item<&S::jyakunenS_ten>},
                     {"知識及び技術者・技能者の向上に関する取組の状況：", Item<&S::W10_ten>},
                     {"ワーク・ライフ・バランスに関する取組の状況：", Item<&S::wlb_ten>},
                     {"就業履歴を蓄積するための措置の実施状況：", Item<&S::rireki_ten>},
                     {"担い手の育成・確保に関する取組（Ｗ１）：", Item<&S::RF_Ten>}},
         .closing = {"労働福祉の状況の点数に、若年技術職員以下の各項目の点数を加えたものがＷ１の点数です。"},
         .steps = Steps_Of_W1},
    };
}

std::vector<Sheet_Text> Sheets_Of_W2_To_W6() {
    return {
        {.mode = "W2",
         .law = {.without = &Law_Year::has_saisei},
         .title = title_w2,
         .help_key = "W2",
         .inputs = {{"営業年数", Item<&S::Enen>}},
         .results = {{"建設業の営業継続の状況（Ｗ２）：", Item<&S::Enen_Ten>}},
         .closing = {"点数は下表の営業年数に該当する点数となります。"},
         .more = Show_Points<Points_Of_W2, 3>,
         .steps = Steps_Of_W2},
        {.mode = "W2",
         .law = {.with = &Law_Year::has_saisei},
         .form = "Frm_W2_Calc_Check_2011",
         .title = title_w2,
         .help_key = "11W2",
         .inputs = {{"営業年数", Item<&S::Enen>},
                    {"民事再生法又は会社更生法の適用の有無", Yes_No<&S::Saisei>}},
         .formula = {"営業年数の点数 － " + Number(w2_off_for_saisei) +
                     "（民事再生法又は会社更生法の適用が有の場合）"},
         .results = {{"建設業の営業継続の状況（Ｗ２）：", Item<&S::Enen_Ten>}},
         .closing = {"点数は下表の営業年数に該当する点数となります。"},
         .more = Show_Points<Points_Of_W2, 3>,
         .steps = Steps_Of_W2},
        {.mode = "W3",
         .title = "（Ｗ３）防災活動への貢献の状況 計算詳細チェック",
         .help_key = "W3",
         .inputs = {{"防災協定締結の有無", Yes_No<&S::Bkyotei>}},
         .results = {{"防災活動への貢献の状況（Ｗ３）：", Item<&S::Bkyotei_Ten>}},
         .closing = {"点数は下表に該当する点数となります。"},
         .more = Show_Points<Points_Of_W3, 1>,
         .steps = Steps_Of_W3},
        {.mode = "W4",
         .title = "（Ｗ４）法令遵守の状況 計算詳細チェック",
         .help_key = "W4",
         .inputs = {{"法令遵守の状況",
                     [](const Check_Figures& f) { return Answer_Text(f.items.Horei, choice::compliance); }}},
         .results = {{"法令遵守の状況（Ｗ３）：", Item<&S::Horei_ten>}},
         .closing = {"点数は下表に該当する点数となります。"},
         .more = Show_Points<Points_Of_W4, 1>,
         .steps = Steps_Of_W4},
        {.mode = "W5",
         .form = "Frm_W2_Calc_Check",
         .title = "（Ｗ５）経理に関する状況 計算詳細チェック",
         .help_key = "W5",
         .amounts = true,
         .inputs = {{choice::audit_caption, Item<&S::keiri_kansa>},
                    {" 完成工事高(X1入力画面より)", Item<&S::keiri_kandaka>},
                    {"一級建設業経理事務士等の数", Item_Of<&S::Kjm, 0>},
                    {"二級建設業経理事務士等の数", Item_Of<&S::Kjm, 1>}},
         .formula = {"公認会計士等数 ＝ 一級の数 ＋ 二級の数 × " + Decimal(second_grade_accountant),
                     "監査受審状況の点数 + 公認会計士等数の点数"},
         .results = {{"公認会計士等数：", [](const Check_Figures& f) { return Tenths(f.w5.kaikei_su); }},
                     {"監査受審状況の点数：",
                      [](const Check_Figures& f) { return Number(f.w5.kansa.Count()); }},
                     {"公認会計士等数の点数：",
                      [](const Check_Figures& f) { return Number(f.w5.kaikei.Count()); }},
                     {"経理に関する状況（Ｗ５）：", Item<&S::Jms_Ten>}},
         .closing =
             {"監査受審状況の点数は【別表１】、公認会計士等数の点数は【別表２】に該当する点数となります。"},
         .table_form = "Frm_W2_Calc_Table",
         .steps = Steps_Of_W5},
        {.mode = "W6",
         .title = "（Ｗ６）研究開発の状況 計算詳細チェック",
         .help_key = "W6",
         .amounts = true,
         .inputs = {{"監査の受審", Audit},
                    {"研究開発費（前期）", Item_Of<&S::Kihatu, 0>},
                    {"研究開発費（後期）", Item_Of<&S::Kihatu, 1>}},
         .formula = {"平均研究開発費 ＝ （研究開発費（前期）＋ 研究開発費（後期））／ 2"},
         .results = {{"研究開発の状況（Ｗ６）：", Item<&S::Kihatu_Ten>}},
         .closing = {"ただし、監査法人を設置していない場合は0点となります。",
                     "点数は算出した平均研究開発費に該当する点数となります。"},
         .more = Show_Points<Points_Of_W6, 3>,
         .steps = Steps_Of_W6},
    };
}

std::vector<Sheet_Text> Sheets_From_2011() {
    return {
        {.mode = "W7",
         .law = {.with = &Law_Year::has_w7_w8},
         .form = "Frm_W7_Calc_Check_2011",
         .title = "（Ｗ７）建設機械の保有状況 計算詳細チェック",
         .help_key = "11W7",
         .inputs = {{"建設機械の所有及びリース台数", Item<&S::Kikai>}},
         .results = {{"建設機械の保有状況（Ｗ７）：", Item<&S::Kikai_Ten>}},
         .closing = {"点数は下表に該当する点数となります。"},
         .more = Show_Points<Points_Of_W7, 2>,
         .steps = Steps_Of_W7},
        {.mode = "W8",
         .law = {.with = &Law_Year::has_w7_w8, .without = &Law_Year::has_additions},
         .form = "Frm_W8_Calc_Check_2011",
         .title = "（Ｗ８）国際標準化機構が定めた規格による登録の状況 計算詳細チェック",
         .help_key = "11W8",
         .inputs = {{"ISO9001の登録の有無", Iso<1>}, {"ISO14001の登録有無", Iso<2>}},
         .results = {{"登録の状況（Ｗ８）：", Item<&S::Iso_Ten>}},
         .closing = {"点数は下表に該当する点数となります。"},
         .more = Show_Points<Points_Of_W8, 1>,
         .steps = Steps_Of_W8},
        {.mode = "W8",
         .law = {.with = &Law_Year::has_additions},
         .form = "Frm_W8_Calc_Check_2011",
         .title = "（Ｗ８）国又は国際標準化機構が定めた規格による認証等の状況 計算詳細チェック",
         .help_key = "11W8",
         .inputs = {{"エコアクション21の認証の有無", Iso<0>},
                    {"ISO9001の登録の有無", Iso<1>},
                    {"ISO14001の登録有無", Iso<2>}},
         .results = {{"認証・登録の状況（Ｗ８）：", Item<&S::Iso_Ten>}},
         .closing = {"点数は下表に該当する点数となります。"},
         .more = Show_Points<Points_Of_W8, 1>,
         .steps = Steps_Of_W8},
        {.mode = "W9",
         .law = {.with = &Law_Year::has_additions},
         .form = "Frm_W9_Calc_Check_2015",
         .title = "若年の技術職員の育成及び確保の状況 計算詳細チェック",
         .help_key = "15W9",
         .inputs = {{"技術職員数", Item<&S::JyakunenAll>},
                    {"若年技術職員数（継続的な育成・確保）", Item<&S::JyakunenK>},
                    {"若年技術職員の割合（継続的な育成・確保）", Percent<&S::JyakunenK_ritu>},
                    {"新規若年技術職員数（新規育成・確保）", Item<&S::JyakunenS>},
                    {"新規若年技術職員の割合（新規育成・確保）", Percent<&S::JyakunenS_ritu>}},
         .formula = {"割合 ＝ 若年技術職員数 ／ 技術職員数 × 100（小数点以下は切り捨て）"},
         .results = {{"継続的な育成・確保：", Item<&S::jyakunenK_ten>},
                     {"新規育成・確保：", Item<&S::jyakunenS_ten>}},
         .closing = {"継続的な育成・確保は割合が" + Number(young_kept_from) +
                     "％以上のとき1点、新規育成・確保は" + Number(young_new_from) +
                     "％以上のとき1点となります。"},
         .steps = Steps_Of_Young},
        {.mode = "W10",
         .law = {.with = &Law_Year::has_additions},
         .form = "Frm_W10_Calc_Check_2021",
         .title = "知識及び技術者・技能者の向上に関する取組の状況 (W10)",
         .help_key = "15W9",
         .inputs = {{"CPD単位取得数", Item_Of<&S::tishikiGJ, 0>, "Cpd"},
                    {"技術者数", Item_Of<&S::tishikiGJ, 1>, "GJSu"},
                    {"技能レベル向上者数", Item_Of<&S::tishikiGN, 0>, "Kojyo"},
                    {"技能者数", Item_Of<&S::tishikiGN, 1>, "Gino"},
                    {"控除対象者数", Item_Of<&S::tishikiGN, 1>, "KojyoSu"}},
         .results = {{"知識及び技術者・技能者の向上に関する取組の状況：", Item<&S::W10_ten>, "W10Ten"}},
         .closing = {"CPDの点数は平均" + Number(cpd_units_for_point) + "単位ごとに1点、技能の点数は割合" +
                         Decimal(skill_rates.front() * 100.0) + "％ごとに1点で、それぞれ" +
                         Number(static_cast<std::int32_t>(skill_rates.size())) + "点までとなります。",
                     "CPD単位取得数の平均が" + Number(cpd_units_most) +
                         "を超えるときは、CPDの点数は0点となります。",
                     "上の控除対象者数の欄は技能者数を表示します。計算には入力した控除対象者数を使います。"},
         .more = More_Of_W10,
         .steps = Steps_Of_W10},
        {.mode = "W",
         .law = {.without = &Law_Year::has_w7_w8},
         .title = title_w,
         .help_key = "W",
         .inputs = W_Parts(false, false),
         .formula = {"（Ｗ１ ＋ Ｗ２ ＋ Ｗ３ ＋ Ｗ４ ＋ Ｗ５ ＋ Ｗ６）× " + Number(w_times)},
         .results = {{"その他審査項目（Ｗ）：", Item<&S::W>}},
         .closing = {"負の値のときは0点となります。"},
         .steps = Steps_Of_W},
        {.mode = "W",
         .law = {.with = &Law_Year::has_w7_w8, .without = &Law_Year::has_additions},
         .form = "Frm_W_Calc_Check_2011",
         .title = title_w,
         .help_key = "11W",
         .inputs = W_Parts(true, false),
         .results = {{"その他審査項目（Ｗ）：", Item<&S::W>}},
         .more = More_Of_W,
         .steps = Steps_Of_W},
        {.mode = "W",
         .law = {.with = &Law_Year::has_additions},
         .form = "Frm_W_Calc_Check_2011",
         .title = title_w,
         .help_key = "11W",
         .inputs = W_Parts(true, true),
         .results = {{"その他審査項目（Ｗ）：", Item<&S::W>}},
         .more = More_Of_W,
         .steps = Steps_Of_W},
    };
}

} // namespace

const std::vector<Sheet_Text>& W_Sheets() {
    static const std::vector<Sheet_Text> sheets = [] {
        std::vector<Sheet_Text> all = Sheets_Of_W1();
        for (const auto& more : {Sheets_Of_W2_To_W6(), Sheets_From_2011()}) {
            all.insert(all.end(), more.begin(), more.end());
        }
        return all;
    }();
    return sheets;
}

} // namespace morvane
