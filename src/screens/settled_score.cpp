// SPDX-FileCopyrightText: The Morvane developers
#include "screens/settled_score.h"

#include "screens/kanko.h"
#include "screens/syokuta.h"

#include <stdexcept>

namespace morvane {

namespace {

// A round more than any chain of late sub-scores needs; a law year that never settles would be a fault of its
// row.
constexpr int most_rounds = 12;

void One_Round(Review_Figures& figures, WZX_Calc& wzx, std::int16_t y, std::int16_t x2) {
    Syokuta social;
    social.Load_W_2012(figures);
    social.Calc_W_2012(figures, wzx);
    social.Store_W_2012(figures);
    Recalc_P_All(figures, x2, y);

    Kanko kanko;
    kanko.Load_Kanko(figures, x2, y);
    kanko.Calc_Gijutu_All(figures, wzx);
    kanko.Save_Gijutu(figures);

    // The engineer screen stores no element, so that its sister reads just the lines anew.
    kanko.lines = figures.works;
    kanko.Calc_Kanko_All(figures, wzx);
    kanko.Save_Kanko(figures, true);
}

struct Firm {
    std::int32_t number;
    std::string name;
    int period;
    bool corporation;
};

Firm Read_Firm(const Connection& cn) {
    Statement row = cn.Prepare("SELECT 管理No, 事業所名, 処理決算期, 法人個人識別 FROM Jigyo_mas");
    if (!row.Step()) {
        throw Score_Refusal("事業所の情報（Jigyo_mas）がありません。");
    }
    return {static_cast<std::int32_t>(row.Integer_At(0)), std::string(row.Text_At(1)),
            static_cast<int>(row.Integer_At(2)), row.Integer_At(3) == 1};
}

void Test_Period(const Connection& cn, int period, const Statement_Figures& statement) {
    Statement row = cn.Prepare("SELECT 決算期 FROM Ks_ki WHERE 決算期=?");
    row.Bind(1, period);
    if (!row.Step()) {
        throw Score_Refusal("第" + std::to_string(period) + "期は登録されていません。");
    }
    // Without a marker row the form counts as one that passes.
    if (statement.form != 0 && statement.form < 3) {
        throw Score_Refusal("データが2008年より古いため、事業所指定できません。");
    }
}

} // namespace

void Settle(Review_Figures& figures, Y_Calc& y, X2_Calc& x2) {
    WZX_Calc wzx;
    y.Calc_Y(figures.statement, figures.hokkaido, figures.corporation);
    x2.Calc_X2(figures, wzx, false);
    for (int round = 0; round < most_rounds; ++round) {
        const auto elements = figures.elements;
        One_Round(figures, wzx, y.Y_Ten, x2.X2_Ten);
        // A round forms the scores of the works from their inputs and the elements alone: once these stay, so
        // do those.
        if (elements == figures.elements) {
            return;
        }
    }
    throw std::logic_error("the scores do not settle");
}

Settled_Score Score_Company(const Connection& cn, bool hokkaido, std::optional<int> period,
                            const Scenario& scenario) {
    const Transaction reading(cn, Transaction::Purpose::Read);
    const Firm firm = Read_Firm(cn);
    Settled_Score score;
    score.kanri_no = firm.number;
    score.jigyo_name = firm.name;
    score.period = period.value_or(firm.period);
    score.scenario = &scenario;
    const int year_shift = score.period - firm.period;
    score.figures = Load_Review(cn, score.period, scenario, hokkaido, firm.corporation, year_shift);
    Test_Period(cn, score.period, score.figures.statement);
    if (scenario.number != scenario_genjo.number && score.figures.Is_Empty_Scenario()) {
        if (scenario.number != scenario_kaizen.number) {
            throw Score_Refusal("「保存値" + std::string(scenario.name) +
                                "」に保存された改善後数値データはありません。");
        }
        Review_Figures current;
        Read_Elements(cn, score.period, scenario_genjo, current);
        Read_Works(cn, score.period, scenario_genjo, current);
        Post_Current(current, score.figures);
    }
    Statement names = cn.Prepare("SELECT 工種CD, 工種略 FROM Kandaka_Gj WHERE 決算期=?");
    names.Bind(1, score.period);
    while (names.Step()) {
        const std::int64_t code = names.Integer_At(0);
        if (code >= 0 && code < static_cast<std::int64_t>(work_line_count)) {
            score.kosyu_ryaku[static_cast<std::size_t>(code)] = names.Text_At(1);
        }
    }
    Settle(score.figures, score.y, score.x2);
    return score;
}

} // namespace morvane
