// SPDX-FileCopyrightText: The Morvane developers
#include "screens/screen_sides.h"

#include "law/elements.h"
#include "session/kyotu_mod.h"

#include <algorithm>
#include <vector>

namespace morvane {

namespace {

bool Has_Work(const Review_Figures& figures) {
    return std::any_of(figures.works.begin(), figures.works.end(),
                       [](const Work_Line& line) { return line.Has_Kanko(); });
}

// Scores are formed of nothing too: "前期：財務諸表、完成工事高が未入力です。"
std::string Missing_Text(const Screen_Side& side, const Review_Figures& loaded, const Y_Result& y) {
    std::string missing;
    for (const auto& [what, is_there] : {std::pair{"財務諸表", y.has_figures},
                                         {"完成工事高", Has_Work(loaded)},
                                         {"Ｘ２・Ｗの項目", loaded.elements[element::w1].up}}) {
        missing += is_there ? "" : (missing.empty() ? "" : "、") + std::string(what);
    }
    return missing.empty() ? "" : side.name + ("：" + missing) + "が未入力です。";
}

std::string Law_Year_Text(const Screen_Side& side, const Law_Year& own, const Law_Year& law) {
    return own.code == law.code ? ""
                                : side.name + std::string("の経審計算年は") + own.name + "ですが、" +
                                      law.name + "で計算しています。";
}

std::string Form_Text(const Connection& cn, const Session& session, const Screen_Side& side) {
    const Data_Form_No form = Get_Data_Ver(cn, session.Kind().edition, side.Of(session).period);
    return form < Data_Form_No::National_2008
               ? side.name +
                     std::string("のデータ形式が古いため、財務諸表を正しく読み取れないことがあります。")
               : "";
}

std::string Named_Fault(const Screen_Sides& sides, const Run_Time_Error& fault) {
    return (sides.before ? std::string(sides.after.name) + "の数値：" : "") + fault.what();
}

} // namespace

void Start_Sides(const Session& session, const Screen_Sides& sides) {
    if (sides.after.scenario == Scenario::Kaizen && !sides.read_only) {
        Kaizen_Tenki(session);
    }
}

Viewed_Side View_Side(const Session& session, const Screen_Side& side) {
    Viewed_Side view;
    const Connection cn = Cn_Open(session);
    try {
        view.figures = Load_Review(cn, side.Of(session), session.Kind());
        const Law_Year& own = Law_Of(view.figures.law_year);
        const Law_Year& law = Law_Of(Get_Simyu_Kubun(cn, session.Syori_Ki));
        view.figures.Take_Law_Year(law.code);
        view.notice = Law_Year_Text(side, own, law) + Form_Text(cn, session, side);
        Review_Figures settled = view.figures;
        view.scores = Settle(settled, side.scenario);
        view.notice += Missing_Text(side, view.figures, view.scores.y);
        view.figures = settled;
    } catch (const Run_Time_Error& error) {
        view.fault = error;
    }
    return view;
}

std::string Whose_Figures(const Screen_Sides& sides) {
    return sides.before ? std::string(sides.after.name) + "の数値による計算です。" : "";
}

std::string Fault_Of_Side(const Screen_Sides& sides, const Run_Time_Error& fault) {
    return Named_Fault(sides, fault) + "\n保存されている数値を確認し、修正してください。";
}

Run_Time_Error Fault_Of_Statement(const Screen_Sides& sides, const Run_Time_Error& fault) {
    if (!sides.before) {
        return fault;
    }
    return {fault.kind, Named_Fault(sides, fault) +
                            "\n財務諸表の金額を、改善後は財務改善の仕訳も確認し、修正してください。"};
}

} // namespace morvane
