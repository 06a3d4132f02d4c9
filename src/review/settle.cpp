// SPDX-FileCopyrightText: The Morvane developers
#include "review/settle.h"

#include "law/elements.h"
#include "law/run_time_error.h"
#include "review/social.h"
#include "session/kyotu_mod.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace morvane {

namespace {

// A round more than any chain of late sub-scores needs; a law year that never settles would be a fault of its
// row.
constexpr int most_rounds = 12;

// Older forms of the accounts are not taken in hand.

void One_Round(Review_Figures& figures, Points y, Points x2, bool current) {
    Social_Items items;
    items.Load(figures);
    Calc_W_2012(items, items.Kikai_Ten, figures).Store(figures);
    Recalc_P_All(figures, x2, y);

    Works works = Calc_Gijutu_All(Load_Kanko(figures, x2, y), figures);
    Save_Gijutu(works, figures);

    // The engineer screen stores no element, so that its sister reads just the lines anew.
    works.lines = figures.works;
    Save_Kanko(Calc_Kanko_All(works, figures), figures, current);
    if (!current) {
        Recalc_P_All(figures, x2, y);
    }
}

void Add_Knowledge_Rows(const Connection& cn, int period) {
    Add_Missing_Elements(cn, period, element::cpd_units, element::w10);
}

bool Has_Element(const Review_Figures& figures, std::size_t code) {
    return figures.elements[code].up;
}

// What every period has or the completed work brings: law year, years of the average, its totals, W and W5.
constexpr std::array elements_beside_the_items = {
    element::w5,      element::w, element::years_of_average, element::total_of_two, element::total_of_three,
    element::law_year};

// Current completed work without items of X2 and W is not filled: their scores would stand as if they had
// been entered. A saved scenario is filled by anything, since its P tells that it is there.
bool Is_Filled(const Review_Figures& figures, Scenario scenario) {
    if (scenario == Scenario::Kaizen) {
        return figures.Is_Started(scenario); // else its first visit posts the current figures over it
    }
    for (std::size_t code = 0; code < figures.elements.size(); ++code) {
        if (Has_Element(figures, code) &&
            std::find(elements_beside_the_items.begin(), elements_beside_the_items.end(),
                      static_cast<int>(code)) == elements_beside_the_items.end()) {
            return true;
        }
    }
    return scenario != Scenario::Genjo &&
           std::any_of(figures.works.begin(), figures.works.end(), [](const Work_Line& line) {
               return line.Has_Kanko() || line.Has_Motouke() || line.Has_Engineer();
           });
}

void Settle_And_Store(const Connection& cn, Side side, Firm_Kind firm,
                      bool (*applies)(const Review_Figures&, Scenario)) {
    const Review_Figures stored = Load_Review(cn, side, firm);
    if (!applies(stored, side.scenario)) {
        return;
    }
    if (Law_Of(stored.law_year).has_additions) {
        Add_Knowledge_Rows(cn, side.period);
    }
    Review_Figures figures = stored;
    Settle(figures, side.scenario);
    Forget_Unchanged(stored, figures);
    Write_Elements(cn, side, figures);
    Write_Works(cn, side, figures);
}

bool Is_Entered(const Review_Figures& figures, Scenario) {
    return Has_Element(figures, element::w1) && Has_Element(figures, element::total_of_two) &&
           figures.date_error.empty();
}

struct Firm {
    std::int32_t number;
    std::string name;
    int period;
    Firm_Type type;
};

Firm Read_Firm(const Connection& cn) {
    Statement row = cn.Prepare("SELECT 管理No, 事業所名, 処理決算期, 法人個人識別 FROM Jigyo_mas");
    if (!row.Step()) {
        throw Score_Refusal("事業所の情報（Jigyo_mas）がありません。");
    }
    return {static_cast<std::int32_t>(row.Integer_At(0)), std::string(row.Text_At(1)),
            static_cast<int>(row.Integer_At(2)), Counted(Firm_Type_Of(row.Integer_At(3)))};
}

void Test_Period(const Connection& cn, Edition edition, int period) {
    Statement row = cn.Prepare("SELECT 決算期 FROM Ks_ki WHERE 決算期=?");
    row.Bind(1, period);
    if (!row.Step()) {
        throw Score_Refusal("第" + std::to_string(period) + "期は登録されていません。");
    }
    if (Get_Data_Ver(cn, edition, period) < Data_Form_No::National_2008) {
        throw Score_Refusal("データが2008年より古いため、事業所指定できません。");
    }
}

void Settle_Entered(const Connection& cn, Side side, Firm_Kind firm) {
    Settle_And_Store(cn, side, firm, Is_Entered);
}

bool Can_Settle(const Connection& cn, Side side, Firm_Kind firm) {
    const Transaction nothing_stays(cn);
    try {
        Settle_Entered(cn, side, firm);
        return true;
    } catch (const Run_Time_Error&) {
        return false;
    }
}

} // namespace

Statement_Scores Calc_Statement(const Review_Figures& figures) {
    return {Calc_Y(figures.statement, figures.firm), Calc_X2(figures)};
}

Statement_Scores Settle(Review_Figures& figures, Scenario scenario) {
    const bool current = scenario == Scenario::Genjo;
    Statement_Scores scores = Calc_Statement(figures);
    for (int round = 0; round < most_rounds; ++round) {
        const auto elements = figures.elements;
        One_Round(figures, scores.y.score, scores.x2.score, current);
        // A round forms the scores of the works from their inputs and the elements alone: once these stay, so
        // do those.
        if (elements == figures.elements) {
            return scores;
        }
    }
    throw std::logic_error("the scores do not settle");
}

void Settle_Filled(const Connection& cn, Side side, Firm_Kind firm) {
    Settle_And_Store(cn, side, firm, Is_Filled);
}

void Store_Works(const Connection& cn, Side side, const Works& works, bool gijutu) {
    Review_Figures figures;
    Read_Elements(cn, side, figures);
    Read_Works(cn, side, figures);
    if (gijutu) {
        Save_Gijutu(works, figures);
    } else {
        // The improved screens leave W to the screen of X2 and W.
        Save_Kanko(works, figures, side.Is_Current());
    }
    Write_Elements(cn, side, figures);
    Write_Works(cn, side, figures);
}

void Put_W_2012(Review_Figures& figures, const Social_Items& items) {
    items.Store(figures);
    const Statement_Scores scores = Calc_Statement(figures);
    Recalc_P_All(figures, scores.x2.score, scores.y.score);
}

Review_Figures With_Items(Review_Figures figures, const Social_Items& items, Scenario scenario) {
    Put_W_2012(figures, items);
    if (Is_Entered(figures, scenario)) {
        Settle(figures, scenario);
    }
    return figures;
}

void Store_W_2012(const Connection& cn, Side side, Firm_Kind firm, const Social_Items& items) {
    Review_Figures figures = Load_Review(cn, side, firm);
    if (Law_Of(figures.law_year).has_additions) {
        Add_Knowledge_Rows(cn, side.period);
    }
    Put_W_2012(figures, items);
    Write_Elements(cn, side, figures);
    Write_Works(cn, side, figures);
}

void Store_And_Settle(const Session& session, Side side,
                      const std::function<void(const Connection&)>& store) {
    const Connection cn = Cn_Open(session);
    const Firm_Kind firm = session.Kind();
    try {
        Transaction transaction(cn);
        store(cn);
        Settle_Entered(cn, side, firm);
        transaction.Commit();
    } catch (const Run_Time_Error&) {
        if (Can_Settle(cn, side, firm)) {
            throw;
        }
        Transaction transaction(cn);
        store(cn);
        transaction.Commit();
    }
}

void Settle_Computable(const Connection& cn, Side side, Firm_Kind firm) {
    try {
        Transaction part(cn);
        Settle_Entered(cn, side, firm);
        part.Commit();
    } catch (const Run_Time_Error&) {
        return; // what stands is shown nowhere without being computed again
    }
}

void Settle_Again(const Session& session) {
    const Connection cn = Cn_Open(session);
    for (const Scenario scenario : every_scenario) {
        Transaction transaction(cn);
        Settle_Computable(cn, Side_In_Hand(session, scenario), session.Kind());
        transaction.Commit();
    }
}

bool Kaizen_Tenki(const Session& session) {
    const Connection cn = Cn_Open(session);
    const Side side = Side_In_Hand(session, Scenario::Kaizen);
    Transaction transaction(cn);
    Review_Figures figures;
    Read_Elements(cn, side, figures);
    Read_Works(cn, side, figures);
    if (!Post_Current(cn, side.period, figures)) {
        return false;
    }
    Write_Elements(cn, side, figures);
    Write_Works(cn, side, figures);
    Settle_Computable(cn, side, session.Kind());
    transaction.Commit();
    return true;
}

Settled_Score Score_Company(const Connection& cn, Edition edition, const Asked_Side& asked) {
    const Transaction reading(cn, Transaction::Purpose::Read);
    const Firm firm = Read_Firm(cn);
    Settled_Score score;
    score.kanri_no = firm.number;
    score.jigyo_name = firm.name;
    const Side side = {asked.period.value_or(firm.period), asked.scenario};
    score.side = side;
    score.figures = Load_Review(cn, side, {edition, firm.type});
    Test_Period(cn, edition, side.period);
    if (side.scenario == Scenario::Kaizen) {
        Post_Current(cn, side.period, score.figures);
    } else if (!score.figures.Is_Started(side.scenario)) {
        throw Score_Refusal("「保存値" + std::string(Columns_Of(side.scenario).name) +
                            "」に保存された改善後数値データはありません。");
    }
    Statement names = cn.Prepare("SELECT 工種CD, 工種略 FROM Kandaka_Gj WHERE 決算期=?");
    names.Bind(1, side.period);
    while (names.Step()) {
        const std::int64_t code = names.Integer_At(0);
        if (code >= 0 && code < static_cast<std::int64_t>(work_line_count)) {
            score.kosyu_ryaku[static_cast<std::size_t>(code)] = names.Text_At(1);
        }
    }
    score.x2w_entered = score.figures.elements[element::w1].up;
    Statement_Scores scores = Settle(score.figures, side.scenario);
    score.y = scores.y;
    score.x2 = scores.x2;
    return score;
}

} // namespace morvane
