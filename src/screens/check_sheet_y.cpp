// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_figures.h"

#include <array>
#include <cstdio>

namespace morvane {

namespace {

using namespace y_yoso;

template <std::size_t Place>
std::string Yoso(const Check_Figures& f) {
    return Number(f.y.Y_Yoso[Place]);
}

template <std::size_t Place>
std::string Work(const Check_Figures& f) {
    return Number(f.y.Y_Work[Place]);
}

std::string Fixed(double value, int decimals) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

template <std::size_t Place>
std::string Kekka(const Check_Figures& f) {
    return Fixed(static_cast<double>(f.y.Y_Kekka[Place]), 3);
}

std::string Points_A(const Check_Figures& f) {
    return Fixed(static_cast<double>(f.y.Y_A_Ten), 2);
}

constexpr std::size_t indicators = 8; // before the points and the score

constexpr const char* rounded_5 = "（小数点以下5位未満の端数は四捨五入）";
constexpr const char* rounded_3 = "（小数点以下3位未満の端数は四捨五入）";

// The steps of an indicator, its limits in words.
template <std::size_t X>
void Steps_Of_X(const Check_Figures& f, Steps& steps) {
    Steps_Of_Indicator(X, f, steps);
}

template <std::size_t X>
void Limits_Of_X(const Check_Figures& /*f*/, Check_Sheet& sheet) {
    const auto [lower, upper] = y_limits[X - 1];
    sheet.closing.push_back("上限は" + Fixed(static_cast<double>(upper), 1) + "、下限は" +
                            Fixed(static_cast<double>(lower), 1) + "です。");
}

std::vector<Sheet_Text> Indicators() {
    return {
        {.mode = "Y-X1",
         .title = "（Ｘ１）純支払利息比率 計算詳細チェック",
         .inputs = {{"売上高", Yoso<uriage>},
                    {"受取利息配当金", Yoso<uketori_risoku>},
                    {"支払利息", Yoso<siharai_risoku>}},
         .formula = {"（支払利息 － 受取利息配当金）／ 売上高 × 100"},
         .results = {{"純支払利息比率（Ｘ１）：", Kekka<0>}},
         .closing = {rounded_5},
         .more = Limits_Of_X<1>,
         .steps = Steps_Of_X<1>},
        {.mode = "Y-X2",
         .title = "（Ｘ２）負債回転期間 計算詳細チェック",
         .inputs = {{"売上高", Yoso<uriage>},
                    {"流動負債", Yoso<ryudo_fusai>},
                    {"固定負債", Yoso<kotei_fusai>}},
         .formula = {"（流動負債 ＋ 固定負債） ／ （売上高 ／ 12）"},
         .results = {{"負債回転期間（Ｘ２）：", Kekka<1>}},
         .closing = {rounded_3},
         .more = Limits_Of_X<2>,
         .steps = Steps_Of_X<2>},
        {.mode = "Y-X3",
         .title = "（Ｘ３）総資本売上総利益率 計算詳細チェック",
         .inputs = {{"総資本（前期）", Yoso<so_sihon_zenki>},
                    {"総資本（当期）", Yoso<so_sihon>},
                    {"売上総利益", Yoso<uriage_sorieki>}},
         .formula = {"売上総利益 ／（（総資本（前期） ＋ 総資本（当期））／2）× 100"},
         .results = {{"総資本売上総利益率（Ｘ３）：", Kekka<2>}},
         .closing = {rounded_5, "総資本の平均が30,000千円（3,000万円）に満たないときは30,000千円とします。"},
         .more = Limits_Of_X<3>,
         .steps = Steps_Of_X<3>},
        {.mode = "Y-X4",
         .title = "（Ｘ４）売上高経常利益率 計算詳細チェック",
         .inputs = {{"経常（事業主）利益", Yoso<keijo_rieki>}, {"売上高", Yoso<uriage>}},
         .formula = {"経常（事業主）利益 ／ 売上高 × 100"},
         .results = {{"売上高経常利益率（Ｘ４）：", Kekka<3>}},
         .closing = {rounded_5},
         .more = Limits_Of_X<4>,
         .steps = Steps_Of_X<4>},
        {.mode = "Y-X5",
         .title = "（Ｘ５）自己資本対固定資産比率 計算詳細チェック",
         .inputs = {{"自己資本", Yoso<jiko_sihon>}, {"固定資産", Yoso<kotei_sisan>}},
         .formula = {"自己資本 ／ 固定資産 × 100"},
         .results = {{"自己資本対固定資産比率（Ｘ５）：", Kekka<4>}},
         .closing = {rounded_5},
         .more = Limits_Of_X<5>,
         .steps = Steps_Of_X<5>},
        {.mode = "Y-X6",
         .title = "（Ｘ６）自己資本比率 計算詳細チェック",
         .inputs = {{"自己資本", Yoso<jiko_sihon>}, {"総資本（当期）", Yoso<so_sihon>}},
         .formula = {"自己資本 ／ 総資本（当期）× 100"},
         .results = {{"自己資本比率（Ｘ６）：", Kekka<5>}},
         .closing = {rounded_5},
         .more = Limits_Of_X<6>,
         .steps = Steps_Of_X<6>},
    };
}

/// The operating cash flow: profit, depreciation, tax, and what the balances between two year ends changed.
Sheet_Text Cash_Flow() {
    return {
        .mode = "Y-X7",
        .title = "（Ｘ７）営業キャッシュフロー 計算詳細チェック",
        .inputs = {{"経常利益（前期）", Work<0>},       {"経常利益（当期）", Yoso<keijo_rieki>},
                   {"減価償却実施額（前期）", Work<1>}, {"減価償却実施額（当期）", Work<2>},
                   {"法人税等（前期）", Work<3>},       {"法人税等（当期）", Work<4>},
                   {"貸倒引当金（前々期）", Work<5>},   {"貸倒引当金（前期）", Work<6>},
                   {"貸倒引当金（当期）", Work<7>},     {"売掛債権（前々期）", Work<8>},
                   {"売掛債権（前期）", Work<9>},       {"売掛債権（当期）", Work<10>},
                   {"仕入債務（前々期）", Work<11>},    {"仕入債務（前期）", Work<12>},
                   {"仕入債務（当期）", Work<13>},      {"棚卸資産（前々期）", Work<14>},
                   {"棚卸資産（前期）", Work<15>},      {"棚卸資産（当期）", Work<16>},
                   {"受入金（前々期）", Work<17>},      {"受入金（前期）", Work<18>},
                   {"受入金（当期）", Work<19>}},
        .formula =
            {"算出額（前期） ＝ 経常利益（前期） ＋ 減価償却実施額（前期） － 法人税等（前期）"
             " － （貸倒引当金（前々期） － 貸倒引当金（前期））"
             " ＋ （売掛債権（前々期） － 売掛債権（前期）） － （仕入債務（前々期） － 仕入債務（前期））"
             " ＋ （棚卸資産（前々期） － 棚卸資産（前期）） － （受入金（前々期） － 受入金（前期））",
             "算出額（当期） ＝ 経常利益（当期） ＋ 減価償却実施額（当期） － 法人税等（当期）"
             " － （貸倒引当金（前期） － 貸倒引当金（当期））"
             " ＋ （売掛債権（前期） － 売掛債権（当期）） － （仕入債務（前期） － 仕入債務（当期））"
             " ＋ （棚卸資産（前期） － 棚卸資産（当期）） － （受入金（前期） － 受入金（当期））",
             "二期平均額 = （算出額（前期） + 算出額（当期））／ 2", "二期平均額 ／ 100,000"},
        .results = {{"算出額（前期）：", Yoso<13>},
                    {"算出額（当期）：", Yoso<12>},
                    {"営業キャッシュフロー（Ｘ７）：", Kekka<6>}},
        .closing = {rounded_3},
        .more = Limits_Of_X<7>,
        .steps = Steps_Of_X<7>};
}

std::vector<Sheet_Text> Scores() {
    return {
        {.mode = "Y-X8",
         .title = "（Ｘ８）利益剰余金 計算詳細チェック",
         .inputs = {{"利益剰余金", Yoso<rieki_joyokin>}},
         .formula = {"利益剰余金 ／ 100,000"},
         .results = {{"利益剰余金（Ｘ８）：", Kekka<7>}},
         .closing = {rounded_3},
         .more = Limits_Of_X<8>,
         .steps = Steps_Of_X<8>},
        {.mode = "Y-A",
         .title = "（Ａ）経営状況点数 計算詳細チェック",
         .inputs = {{"純支払利息比率（Ｘ１）", Kekka<0>},
                    {"負債回転期間（Ｘ２）", Kekka<1>},
                    {"総資本売上総利益率（Ｘ３）", Kekka<2>},
                    {"売上高経常利益率（Ｘ４）", Kekka<3>},
                    {"自己資本対固定資産比率（Ｘ５）", Kekka<4>},
                    {"自己資本比率（Ｘ６）", Kekka<5>},
                    {"営業キャッシュフロー（Ｘ７）", Kekka<6>},
                    {"利益剰余金（Ｘ８）", Kekka<7>}},
         .formula = {"－0.4650 × Ｘ１ － 0.0508 × Ｘ２ ＋ 0.0264 × Ｘ３ ＋ 0.0277 × Ｘ４ ＋ 0.0011 × Ｘ５ "
                     "＋ 0.0089 × Ｘ６ ＋ 0.0818 × Ｘ７ ＋ 0.0172 × Ｘ８ ＋ 0.1906"},
         .results = {{"経営状況点数（Ａ）：", Points_A}},
         .closing = {"（小数点以下2位未満の端数は四捨五入）"},
         .steps = Steps_Of_A},
        {.mode = "Y",
         .title = "（Ｙ）経営状況評点 計算詳細チェック",
         .inputs = {{"経営状況点数", Points_A}},
         .formula = {"167.3 × 経営状況点数 + 583"},
         .results = {{"経営状況評点（Ｙ）：",
                      [](const Check_Figures& f) { return f.y.Y_Ten == 0 ? "" : Number(f.y.Y_Ten); }}},
         .closing = {"（小数点以下の端数は四捨五入）", "0に満たないときは0となります。"},
         .steps = Steps_Of_Y},
    };
}

} // namespace

const std::vector<Sheet_Text>& Y1_Sheets() {
    static const std::vector<Sheet_Text> sheets = [] {
        std::vector<Sheet_Text> all = Indicators();
        all.push_back(Cash_Flow());
        for (const Sheet_Text& sheet : Scores()) {
            all.push_back(sheet);
        }
        for (std::size_t i = 0; i < all.size(); ++i) {
            Sheet_Text& sheet = all[i];
            sheet.amounts = i < indicators;
            sheet.form = "Frm_Y1_Calc_Check";
            sheet.help_key = sheet.mode;
        }
        return all;
    }();
    return sheets;
}

} // namespace morvane
