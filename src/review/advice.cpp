// SPDX-FileCopyrightText: The Morvane developers
#include "review/advice.h"

#include "review/expression.h"
#include "session/kyotu_mod.h"

#include <iterator>
#include <span>

namespace morvane {

namespace {

/// The indicator behind an advice: of the eight of the analysis, or of the twelve.
struct Indicator {
    enum class Of { Analysis, Twelve };

    Of of;
    std::size_t number; ///< from 1
};

constexpr Indicator X(std::size_t number) {
    return {Indicator::Of::Analysis, number};
}

constexpr Indicator Twelve(std::size_t number) {
    return {Indicator::Of::Twelve, number};
}

struct Advice_Row {
    Indicator indicator;
    y_element::Place of; ///< what the indicator is a share of: a firm without it is advised nothing
    const char* text;
    const char* of_loss = nullptr; ///< in its place where the indicator is below 0
};

constexpr auto always = y_element::count;
using enum y_element::Place;

// Of the twelve those alone of which the lower side is the worse one: not the debt in months of sales.

constexpr Advice_Row of_profit[] = {
    {Twelve(1), sales,
     "より一層の営業利益の獲得のため、原価管理の徹底・固定費の削減による利益確保の検討を行って下さい。"},
    {X(3), total_capital,
     "総資本に対する売上総利益を高める余地があります。工事ごとに実行予算と実績の差を毎月確認し、採算の"
     "合わない受注を見直すとともに、使っていない資産の処分で総資本を圧縮して下さい。"},
    // The worse half of its range is a loss.
    {X(4), sales,
     "経常損失となっています。借入条件の見直しなどで営業外費用を抑え、採算の合わない受注を避けて、経常利益の"
     "確保を急いで下さい。"},
    {Twelve(2), total_capital,
     "投下した資本に見合う経常利益が得られていません。利益を生まない遊休資産や長期の貸付金を整理し、"
     "少ない資本で利益をあげる経営を目指して下さい。"},
    {Twelve(12), fixed_assets,
     "固定資産が付加価値の獲得に十分生かされていません。外注に頼る工程の自社施工や機械の稼働率の向上を"
     "図り、新しい設備は購入とリースを比べてから決めて下さい。"},
};

constexpr Advice_Row of_liquidity[] = {
    {Twelve(4), sales,
     "運転資金の負担が重くなっています。契約のときに前払金・中間金の支払条件を取り決め、入金が支払に"
     "先立つように工夫して下さい。"},
    {Twelve(5), always,
     "工事代金の立替が多くなっています。出来高に応じた請求を徹底し、未成工事支出金を長く抱える工事の"
     "完成・引渡しを急いで下さい。"},
    {Twelve(6), always,
     "工事代金の回収に時間がかかっています。得意先ごとに回収条件と滞留の状況を一覧にし、期日を過ぎた"
     "未収入金から順に回収して下さい。"},
    {Twelve(3), sales,
     "売上高に対して手元に残る資金が不足しています。半年先までの資金繰り表を作成し、返済と投資が利益と"
     "減価償却費の範囲に収まるように計画を見直して下さい。"},
};

constexpr Advice_Row of_stability[] = {
    {X(1), sales,
     "売上高に対する利息の負担が重くなっています。金利の高い借入金の借換えや繰上返済を金融機関と相談し、"
     "余裕資金は返済に充てて下さい。"},
    {X(2), sales,
     "負債が月商に比べて大きくなっています。不要な資産の売却代金や早く回収した工事代金で、借入金と工事"
     "未払金を計画的に減らして下さい。"},
    {X(5), fixed_assets,
     "固定資産に対する自己資本の割合は、評点では350％まで伸びる余地があります。設備投資は利益の蓄積の範囲にと"
     "どめ、稼働の少ない土地・"
     "建物・機械の売却も検討して下さい。"},
    {Twelve(11), fixed_assets,
     "固定資産を賄う自己資本と長期の資金が、標準より少なくなっています。設備資金を短期借入金で賄っている"
     "場合は、長期借入金への切替えを金融機関と協議して下さい。"},
};

constexpr Advice_Row of_soundness[] = {
    {Twelve(7), total_capital,
     "総資本に占める自己資本の割合が標準を下回っています。利益を社内に残すことを第一とし、増資（個人事業では"
     "元入れ）も含めて自己資本の充実を図って下さい。"},
    // The worse half of its range is a firm that owes more than it has.
    {X(6), total_capital,
     "債務超過となっています。遊休資産の処分や役員などからの借入金の資本への振替えも含め、早期の解消計画を"
     "立てて金融機関と協議して下さい。"},
    {X(8), always,
     "利益の蓄積を続けて下さい。一度に増やすことはできませんので、三年から五年の利益計画を立て、毎期の利益を"
     "確実に積み上げれば、評点の底上げにつながります。",
     "過去の損失が残っています。三年から五年の利益計画を立て、毎期の利益で損失の解消を進めて下さい。"},
    {X(7), always,
     "本業で得る現金を増やすことが評点につながります。売掛債権と未成工事支出金の圧縮、受入金の確保は、利益が"
     "同じでも"
     "営業キャッシュフローを改善します。期末を迎える前に残高を点検して下さい。"},
};

struct Heading {
    const char* name;
    std::span<const Advice_Row> rows;
};
constexpr std::array<Heading, 4> headings = {
    {{"収益性", of_profit}, {"流動性", of_liquidity}, {"安定性", of_stability}, {"健全性", of_soundness}}};

constexpr std::array<const char*, 5> numbers = {"①", "②", "③", "④", "⑤"};
static_assert(std::size(of_profit) == numbers.size());

constexpr float middle_rate = 50.0F; ///< percent: the middle of the range

bool Is_Upper(const Twelve_Indicator& indicator, double figure) {
    const auto value = static_cast<float>(figure);
    return indicator.upper_from_standard ? value >= indicator.Standard() : value <= indicator.Standard();
}

const char* Unit_Of(const Twelve_Indicator& indicator) {
    return indicator.unit == Twelve_Indicator::Unit::Percent ? "％" : "ヶ月";
}

std::string In_Unit(const Twelve_Indicator& indicator, double value) {
    return Expression(value, 3).text + Unit_Of(indicator);
}

/// The figures that an advice may rest on.
class Figures {
  public:
    Figures(const Y_Result& of_firm, const Twelve_Values& of_twelve) : y(of_firm), twelve(of_twelve) {}

    [[nodiscard]] bool Call_For(const Advice_Row& row) const {
        const std::size_t i = row.indicator.number - 1;
        const bool lacks = row.of != always && y.elements[row.of] == Thousand_Yen();
        return !lacks && (Is_Of_Analysis(row.indicator) ? y.rates[i] < middle_rate
                                                        : !Is_Upper(twelve_indicators[i], twelve[i]));
    }

    [[nodiscard]] const char* Words_Of(const Advice_Row& row) const {
        const bool loss = row.of_loss != nullptr && y.indicators[row.indicator.number - 1] < 0.0F;
        return loss ? row.of_loss : row.text;
    }

    [[nodiscard]] std::string Text_Of(Indicator indicator) const {
        const std::size_t i = indicator.number - 1;
        if (Is_Of_Analysis(indicator)) {
            const Y_Indicator& x = y_indicators[i];
            return std::string(x.name.name) + "（" + x.sign + "）　" + Fixed_Str(y.indicators[i], 3) +
                   x.unit.name + "、達成率 " + Fixed_Str(y.rates[i], 1) + "％";
        }
        const Twelve_Indicator& of = twelve_indicators[i];
        return of.name + std::string("　") + In_Unit(of, twelve[i]) + "、標準値 " +
               In_Unit(of, of.standard / 1000.0);
    }

  private:
    static bool Is_Of_Analysis(Indicator indicator) { return indicator.of == Indicator::Of::Analysis; }

    const Y_Result& y;
    const Twelve_Values& twelve;
};

// What stands before the side on which the firm lies; the standards are those of the indicators.
constexpr std::array<const char*, twelve_indicators.size()> sentences = {
    "売上高に対して、企業本来の営業活動の成果である営業利益がどれだけあるかを表す指標です。御社の場合、"
    "標準値１．８７０％に対し、",
    "企業が経営活動のために投下した総資本に対して、経常利益がどれだけあるかを表す指標です。御社の場合、"
    "標準値３．０７６％に対し、",
    "売上高に対して、キャッシュフローがどれだけあるかを表す指標です。御社の場合、標準値１．２５９％に対し、",
    "必要運転資金が月商の何倍あるかを示す指標です。御社の場合、標準値０．４１２ヶ月に対し、",
    "工事代金の立替状況を表す指標です。御社の場合、標準値１５．１７７％に対し、",
    "受取勘定（受取手形・完成工事未収入金等）が月商の何倍あるかを表す指標です。御社の場合、"
    "標準値１．８０５ヶ月に対し、",
    "総資本に対する自己資本の割合を表す指標です。御社の場合、標準値２１．４４５％に対し、",
    "有利子負債（借入金・割引手形等）が月商の何倍あるかを表す指標です。標準値２．７９８ヶ月に対し、",
    "売上高に対して、実質金利（受取利息－支払利息）の負担がどれだけあるかを表す指標です。御社の場合、"
    "標準値０．４７４％に対し、",
    "固定資産に対する自己資本の割合を表す指標です。御社の場合、標準値６７．１６０％に対し、",
    "固定資産に対する自己資本と固定負債の割合を表す指標です。御社の場合、標準値１４４．３９１％に対し、",
    "固定資産に対して、付加価値（売上高－変動費）がどれだけあるかを表す指標です。御社の場合、"
    "標準値１７３．９０４％に対し、"};

} // namespace

std::array<Advice_Section, 4> Advice_Of(const Y_Result& y, const Twelve_Values& twelve) {
    const Figures figures(y, twelve);
    std::array<Advice_Section, 4> sections{};
    for (std::size_t i = 0; i < sections.size(); ++i) {
        Advice_Section& section = sections[i];
        section.heading = headings[i].name;
        for (const Advice_Row& row : headings[i].rows) {
            if (figures.Call_For(row)) {
                section.advice.push_back(
                    {numbers.at(section.advice.size()) + std::string(figures.Words_Of(row)),
                     figures.Text_Of(row.indicator)});
            }
        }
        if (section.advice.empty()) {
            section.nothing =
                section.heading + std::string("の指標は、いずれも良好です。この水準の維持に努めて下さい。");
        }
    }
    return sections;
}

std::array<Twelve_Comment, twelve_indicators.size()> Twelve_Comments(const Twelve_Values& twelve) {
    std::array<Twelve_Comment, twelve_indicators.size()> comments;
    for (std::size_t i = 0; i < comments.size(); ++i) {
        const Twelve_Indicator& indicator = twelve_indicators[i];
        comments[i] = {"X" + std::to_string(i + 1) + "：" + indicator.name, Expression(twelve[i], 3).text,
                       Unit_Of(indicator),
                       sentences[i] + std::string(Is_Upper(indicator, twelve[i]) ? "上位にあります。"
                                                                                 : "下位にあります。")};
    }
    return comments;
}

} // namespace morvane
