// SPDX-FileCopyrightText: The Morvane developers
#include "law/social_points.h"
#include "review/explain.h"
#include "review/social.h"

#include <cmath>

namespace morvane {

namespace {

using S = Social_Items;

constexpr const char* late = "変更した項目の点数は、入力画面を開き直したときに評点へ反映されます。";

// The sum of the sub-scores before the machines and behind them, with the machines' one in its place.
Expression Sum_Of_W(const S& s, const Expression& machines, bool with_w7_w8) {
    const Expression six =
        Expression(s.RF_Ten) + s.Enen_Ten + s.Bkyotei_Ten + s.Horei_ten + s.Jms_Ten + s.Kihatu_Ten;
    return with_w7_w8 ? six + machines + s.Iso_Ten : six;
}

std::int32_t Sum_But_Machines(const S& s) {
    return s.RF_Ten + s.Enen_Ten + s.Bkyotei_Ten + s.Horei_ten + s.Jms_Ten + s.Kihatu_Ten + s.Iso_Ten;
}

// The score of the machines that the total was formed with. The entry screen of some law years takes it as it
// was when the screen was opened; no two scores give the same total.
std::int32_t Machines_In_Total(const Check_Figures& f, std::int32_t share) {
    const std::int32_t most = w7_bands.front().points;
    const S& s = f.items;
    const auto total = [&](std::int32_t machines) {
        return (Sum_But_Machines(s) + machines) * w_times * share / w_share_whole;
    };
    if (total(s.Kikai_Ten) != s.W) {
        for (std::int32_t machines = 0; machines <= most; ++machines) {
            if (total(machines) == s.W) {
                return machines;
            }
        }
    }
    return s.Kikai_Ten;
}

// The rate in percent, cut. A quotient is held in binary, so that some whole percentages come out a little
// below themselves: then the quotient is told as it is held.
Expression Rate(Steps& steps, const char* name, std::int32_t young, std::int32_t all) {
    const double held = static_cast<double>(young) / all;
    const auto rate = static_cast<std::int32_t>(std::floor(held * 100));
    const Expression expression = Expression(young) / Expression(all) * 100;
    if (expression.value.Floor() == rate) {
        return steps.Work(name, expression, rate);
    }
    constexpr int binary_digits = 17;
    const Expression quotient = steps.Work("割合（2進数で保持した値）", Expression(young) / Expression(all),
                                           Expression(held, binary_digits));
    return steps.Work(name, quotient * 100, rate);
}

void Young_Steps(Steps& steps, const char* name, std::int32_t young, std::int32_t all, std::int32_t from) {
    const Expression rate = Rate(steps, name, young, all);
    const bool reached = rate.value.Floor() >= from;
    steps.Because(std::string(name) + "の点数",
                  rate.text + (reached ? " ≧ " : " ＜ ") + Expression(from).text, reached ? 1 : 0);
}

Expression Cpd_Steps(const S& s, Steps& steps, std::int32_t points) {
    const auto [units, engineers] = s.tishikiGJ;
    constexpr const char* name = "CPDの点数";
    if (engineers == 0) {
        return steps.Because("技術者数", "0", 0);
    }
    if (units == 0) {
        return steps.Because("CPD単位取得数", "0", 0);
    }
    const Expression average = Expression(units) / Expression(engineers);
    if (Fraction(cpd_units_most) < average.value) {
        return steps.Because(name, average.text + " ＞ " + Expression(cpd_units_most).text, points);
    }
    if (average.value < Fraction(0)) {
        return steps.Because(name, average.text + " ＜ 0", points);
    }
    return steps.Work(name, average / cpd_units_for_point, points);
}

Expression Skill_Steps(const S& s, Steps& steps, std::int32_t points) {
    const auto [raised, workers, left_out] = s.tishikiGN;
    constexpr const char* name = "技能の点数";
    if (workers == 0) {
        return steps.Because("技能者数", "0", 0);
    }
    if (raised == 0) {
        return steps.Because("技能レベル向上者数", "0", 0);
    }
    const Expression deducted = steps.Take("控除対象者数（入力値）", left_out);
    const Expression base = Expression(workers) - deducted;
    if (workers == left_out) {
        return steps.Because("技能者数 － 控除対象者数", base.text + " ＝ 0", points);
    }
    const Expression rate = deducted / base;
    if (rate.value < Fraction(0)) {
        return steps.Because(name, rate.text + " ＜ 0", points);
    }
    const Expression most = Expression::Decimal(skill_rates.back());
    if (!(rate.value < most.value)) {
        return steps.Because(name, rate.text + " ≧ " + most.text, points);
    }
    return steps.Work(name, rate / Expression::Decimal(skill_rates.front()), points);
}

// The row of the table for the completed work, as its limits.
std::size_t Row_For_Work(Steps& steps, std::int32_t work) {
    const auto& rows = accountants_rows;
    constexpr const char* name = "完成工事高による【別表２】の行";
    const std::string shown = Expression(work).text;
    std::size_t row = 0;
    while (row < rows.size() && work < rows[row].from) {
        ++row;
    }
    if (row == rows.size()) {
        steps.Tell(name, shown + " ＜ 0");
        return 0; // a negative total is held against the highest row
    }
    const std::string above = row == 0 ? "" : " ＜ " + Expression(rows[row - 1].from).text;
    steps.Tell(name, Expression(rows[row].from).text + " ≦ " + shown + above);
    return row;
}

// The step of that row that the accountants reach.
void Accountant_Steps(const Check_Figures& f, Steps& steps, const Expression& accountants,
                      const Expression& points) {
    const auto& needed = accountants_rows[Row_For_Work(steps, f.items.keiri_kandaka)].needed;
    std::string condition = accountants.text;
    std::string missed;
    for (const float least : needed) {
        if (std::isinf(least)) {
            break;
        }
        const std::string limit = Expression(static_cast<double>(least), 1).text;
        if (f.w5.kaikei_su >= least) {
            condition = limit + " ≦ " + condition;
            break;
        }
        missed = " ＜ " + limit;
    }
    steps.Because("公認会計士等数の点数", condition + missed, points);
}

} // namespace

void Steps_Of_W1(const Check_Figures& f, Steps& steps) {
    const S& s = f.items;
    const auto [joined, missing] = Count_W1(s, f.Law());
    const Expression welfare = steps.Work(
        "労働福祉の状況",
        Expression(joined) * w1_for_scheme - Expression(missing) * W1_Off_For_Insurance(f.Law()), s.RF1_Ten);
    if (!f.Law().has_additions) {
        return;
    }
    const std::int32_t taken = s.RF_Ten - s.RF1_Ten - s.wlb_ten - s.rireki_ten;
    if (taken == s.jyakunenK_ten + s.jyakunenS_ten + s.W10_ten) {
        steps.Work("担い手の育成・確保に関する取組",
                   welfare + s.jyakunenK_ten + s.jyakunenS_ten + s.W10_ten + s.wlb_ten + s.rireki_ten,
                   s.RF_Ten);
        return;
    }
    // These three reach the total a calculation late.
    const Expression before = steps.Take("若年技術職員、知識・技能の点数の計（変更前）", taken);
    steps.Work("担い手の育成・確保に関する取組", welfare + before + s.wlb_ten + s.rireki_ten, s.RF_Ten);
    steps.Remark(late);
}

void Steps_Of_W2(const Check_Figures& f, Steps& steps) {
    const Expression points = steps.By_Row(f.items.Enen, Points_Of_W2(f));
    if (f.Law().has_saisei && f.items.Saisei == 1) {
        steps.Work("適用が有の場合", points - std::int32_t{w2_off_for_saisei}, f.items.Enen_Ten);
    }
}

void Steps_Of_W3(const Check_Figures& f, Steps& steps) {
    steps.By_Row(f.items.Bkyotei, Points_Of_W3(f));
}

void Steps_Of_W4(const Check_Figures& f, Steps& steps) {
    steps.By_Row(f.items.Horei, Points_Of_W4(f));
}

void Steps_Of_W5(const Check_Figures& f, Steps& steps) {
    const S& s = f.items;
    const Expression audit =
        steps.Because("監査の受審", Expression(s.keiri_kansa).text, std::int32_t{f.w5.kansa.Count()});
    const Expression accountants =
        steps.Work("公認会計士等数",
                   Expression(s.Kjm[0]) + Expression(s.Kjm[1]) * Expression::Decimal(second_grade_accountant),
                   Expression(static_cast<double>(f.w5.kaikei_su), 1));
    const Expression points = std::int32_t{f.w5.kaikei.Count()};
    Accountant_Steps(f, steps, accountants, points);
    steps.Work("経理に関する状況", audit + points, s.Jms_Ten);
}

void Steps_Of_W6(const Check_Figures& f, Steps& steps) {
    const S& s = f.items;
    if (s.keiri_kansa != audit_by_auditor) {
        steps.Because("監査の受審", Expression(s.keiri_kansa).text, 0);
        return;
    }
    const auto average = static_cast<std::int32_t>((std::int64_t{s.Kihatu[0]} + s.Kihatu[1]) / 2);
    steps.By_Row(steps.Work("平均研究開発費", (Expression(s.Kihatu[0]) + s.Kihatu[1]) / 2, average),
                 Points_Of_W6(f));
}

void Steps_Of_W7(const Check_Figures& f, Steps& steps) {
    steps.By_Row(f.items.Kikai, Points_Of_W7(f));
}

void Steps_Of_W8(const Check_Figures& f, Steps& steps) {
    steps.By_Row(f.items.Iso[2], Points_Of_W8(f));
}

void Steps_Of_Young(const Check_Figures& f, Steps& steps) {
    const S& s = f.items;
    if (s.JyakunenAll == 0) {
        steps.Remark("技術職員数が0のときは、割合と点数は前の値のままとなります。");
        return;
    }
    Young_Steps(steps, "継続的な育成・確保", s.JyakunenK, s.JyakunenAll, young_kept_from);
    Young_Steps(steps, "新規育成・確保", s.JyakunenS, s.JyakunenAll, young_new_from);
}

void Steps_Of_W10(const Check_Figures& f, Steps& steps) {
    const S& s = f.items;
    const std::int32_t engineers = s.tishikiGJ[1];
    const std::int32_t workers = s.tishikiGN[1];
    const W10_Parts parts = Parts_Of_W10(W10_Counts_Of(s));
    const Expression cpd = Cpd_Steps(s, steps, static_cast<std::int32_t>(parts.cpd_point));
    const Expression skill = Skill_Steps(s, steps, static_cast<std::int32_t>(parts.skill_point));
    const Expression all = Expression(engineers) + workers;
    if (all.value == Fraction(0)) {
        steps.Because("技術者数 ＋ 技能者数", all.text + " ＝ 0", 0);
        return;
    }
    steps.Work("点数", cpd * engineers / all + skill * workers / all, s.W10_ten);
}

void Steps_Of_W(const Check_Figures& f, Steps& steps) {
    const S& s = f.items;
    const std::int32_t share = W_Share(f.figures.review_date);
    if (!f.Law().has_w7_w8) {
        const std::int32_t tenfold = (Sum_But_Machines(s) - s.Iso_Ten) * w_times;
        const std::int32_t of_eight = Sum_But_Machines(s) * w_times * share / w_share_whole;
        if (s.W != std::max(tenfold, 0) && s.W == of_eight) {
            steps.Remark("完工高の画面が８項目の算式で計算して保存した点数です。");
            steps.Work("その他審査項目", Sum_Of_W(s, 0, true) * w_times * share / w_share_whole, s.W);
            return;
        }
        steps.At_Least(steps.Work("その他審査項目", Sum_Of_W(s, 0, false) * w_times, tenfold), 0);
        return;
    }
    const std::int32_t machines = Machines_In_Total(f, share);
    if (machines != s.Kikai_Ten) {
        steps.Take("Ｗ７（入力画面を開いたときの点数）", machines);
        steps.Remark(late);
    }
    steps.Work("その他審査項目", Sum_Of_W(s, machines, true) * w_times * share / w_share_whole, s.W);
}

} // namespace morvane
