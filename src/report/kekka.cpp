// SPDX-FileCopyrightText: The Morvane developers
#include "report/kekka.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace morvane {

namespace {

/// The word of a scenario in the title; the saved ones by their slots.
constexpr std::array<std::string_view, 5> scenario_words = {"改善前", "改善後", "保存値１", "保存値２",
                                                            "保存値３"};

/// Whether a statement has figures of the period before in its own lines.
bool Has_Prior_Lines(const Statement_Figures& statement) {
    for (int code = Code(Account::Second_Prior_Notes_Receivable);
         code <= Code(Account::Prior_Retained_Earnings); ++code) {
        if (statement.Get_Y_Kamoku(static_cast<Account>(code)) != Thousand_Yen()) {
            return true;
        }
    }
    return false;
}

/// What a period before has changed no more, so that its statement as it was closed counts in every scenario.
void Read_Zenki(const Connection& cn, int period, Kekka_Figures& kekka) {
    const Review_Figures& figures = kekka.figures;
    const Statement_Figures statement = Read_Statement(cn, {period - 1, Scenario::Genjo});
    if (statement.has_rows) {
        const Y_Result before = Calc_Y(statement, figures.firm);
        std::copy(before.elements.begin(), before.elements.end(), kekka.y_zenki.begin());
    }
    kekka.has_zenki = statement.has_rows || Has_Prior_Lines(figures.statement);
    if (kekka.y.has_figures && kekka.has_zenki) {
        namespace e = y_element;
        kekka.y_zenki[e::equity] = figures.statement.Get_Y_Kamoku(Account::Prior_Equity);
        kekka.y_zenki[e::total_capital] = kekka.y.elements[e::prior_total_capital];
        kekka.y_zenki[e::ordinary_profit] = kekka.y.flow.amounts[0][0];
        kekka.y_zenki[e::cash_flow] = kekka.y.elements[e::prior_cash_flow];
    }
}

} // namespace

Kekka_Figures Kekka_Read(const Connection& cn, const Session& session, const Side& side) {
    Settled_Score score = Score_Company(cn, session.Kind().edition, {side.period, side.scenario});
    Kekka_Figures kekka;
    kekka.heading = Heading_Of(session, score.jigyo_name, side.period,
                               std::string(scenario_words[static_cast<std::size_t>(side.scenario) - 1]));
    kekka.x2w_entered = score.x2w_entered;
    kekka.figures = std::move(score.figures);
    kekka.y = score.y;
    kekka.x2 = score.x2;
    kekka.items.Load(kekka.figures);
    Read_Zenki(cn, score.side.period, kekka);
    return kekka;
}

std::string Entry_Notice(const Kekka_Figures& kekka) {
    return kekka.x2w_entered
               ? ""
               : "自己資本額・利益額・その他（Ｘ２，Ｗ）の画面が未入力です。未入力の項目は "
                 "0（無）として計算しています。完工高・技術者の画面は、入力されるまでＷを 0 点として"
                 "表示します。";
}

} // namespace morvane
