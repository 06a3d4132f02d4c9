// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/expression.h"
#include "review/scores.h"
#include "review/social_items.h"
#include "review/twelve.h"
#include "review/x2_calc.h"
#include "review/y_calc.h"

#include <cstdint>
#include <string>
#include <vector>

namespace morvane {

struct Ten_Table;

/// What a score is explained from: the figures of a side, and what forms the scores besides.
struct Check_Figures {
    Review_Figures figures;
    Social_Items items;
    W5_Score w5;
    X2_Result x2;
    Y_Result y;
    Twelve_Result twelve;
    std::size_t Kosyu_Sel = 0;  ///< the work type, by its place
    std::int32_t Kanko_Avg = 2; ///< years of the completed-work average

    [[nodiscard]] const Law_Year& Law() const { return Law_Of(figures.law_year); }
    [[nodiscard]] const Work_Line& Line() const { return figures.works[Kosyu_Sel]; }
};

/// A step of the calculation with the firm's own figures: what it forms, and a line that can be followed by
/// hand ("900 ／ 3,000 ＝ 0.30000", "30.000 ≧ 5.100 のため 5.100").
struct Check_Step {
    std::string name;
    std::string text;
};

/// The points of an item of W, one row marked where the item stands.
struct Points_Table {
    struct Row {
        std::string item;
        Points points;
    };

    std::string item; ///< what the rows tell
    std::vector<Row> rows = {};
    int mark = -1; ///< row in force, -1 none

    void Add(const std::string& of, Points points, bool in_force);
};

[[nodiscard]] Points_Table Points_Of_W2(const Check_Figures& f);
[[nodiscard]] Points_Table Points_Of_W3(const Check_Figures& f);
[[nodiscard]] Points_Table Points_Of_W4(const Check_Figures& f);
[[nodiscard]] Points_Table Points_Of_W6(const Check_Figures& f);
[[nodiscard]] Points_Table Points_Of_W7(const Check_Figures& f);
[[nodiscard]] Points_Table Points_Of_W8(const Check_Figures& f);

/// How a step takes the digits behind those of its result: cuts them, rounds a half up, or rounds up from
/// 0.499 on.
enum class Rounding { Cut, Half, From_499 };

/// Writes how a score came about: each step is a line that can be followed with pencil and paper. The line
/// names the rounding that was really taken, where the printed result is not the exact value.
class Steps {
  public:
    [[nodiscard]] const std::vector<Check_Step>& Lines() const { return lines; }

    /// What is to be told besides.
    [[nodiscard]] const std::vector<std::string>& Remarks() const { return remarks; }

    /// What the last step gave, as it is printed; empty before the first one.
    [[nodiscard]] const std::string& Result() const { return last; }

    /// "expression ＝ result（rounding）". Gives the result as a figure.
    Expression Work(const std::string& name, const Expression& expression, const Expression& result,
                    Rounding rounding = Rounding::Cut, int decimals = 0);

    /// A figure that the sheet does not show elsewhere, or that the next steps go on with.
    Expression Take(const std::string& name, const Expression& figure);

    /// "condition のため result": a limit, a floor, a choice.
    Expression Because(const std::string& name, const std::string& condition, const Expression& result);

    /// A comparison that places a figure.
    void Tell(const std::string& name, const std::string& comparison);

    void Remark(const std::string& text) { remarks.push_back(text); }

    /// A figure that must not be below `least`: a step only where it is.
    Expression At_Least(const Expression& figure, const Expression& least);

    /// The score of an amount by a table of the law, as it is computed.
    Expression By_Table(const std::string& name, const Ten_Table& table, const Expression& amount,
                        std::int32_t v);

    /// The points of the row in force of a table; of nothing where no row is.
    Expression By_Row(const Expression& figure, const Points_Table& table);

  private:
    Expression Add(const std::string& name, const std::string& text, const Expression& result);

    std::vector<Check_Step> lines;
    std::vector<std::string> remarks;
    std::string last;
};

/// The steps of the scores.
void Steps_Of_X2_1(const Check_Figures& f, Steps& steps);
void Steps_Of_X2_2(const Check_Figures& f, Steps& steps);
void Steps_Of_X2(const Check_Figures& f, Steps& steps);
void Steps_Of_W1(const Check_Figures& f, Steps& steps);
void Steps_Of_W2(const Check_Figures& f, Steps& steps);
void Steps_Of_W3(const Check_Figures& f, Steps& steps);
void Steps_Of_W4(const Check_Figures& f, Steps& steps);
void Steps_Of_W5(const Check_Figures& f, Steps& steps);
void Steps_Of_W6(const Check_Figures& f, Steps& steps);
void Steps_Of_W7(const Check_Figures& f, Steps& steps);
void Steps_Of_W8(const Check_Figures& f, Steps& steps);
void Steps_Of_Young(const Check_Figures& f, Steps& steps);
void Steps_Of_W10(const Check_Figures& f, Steps& steps);
void Steps_Of_W(const Check_Figures& f, Steps& steps);
void Steps_Of_X1(const Check_Figures& f, Steps& steps);
void Steps_Of_Z1(const Check_Figures& f, Steps& steps);
void Steps_Of_Z2(const Check_Figures& f, Steps& steps);
void Steps_Of_Z(const Check_Figures& f, Steps& steps);
void Steps_Of_P(const Check_Figures& f, Steps& steps);
/// Of the indicator `x` of Y, 1 to 8, of the points A and of the score Y.
void Steps_Of_Indicator(std::size_t x, const Check_Figures& f, Steps& steps);
/// Of the place `i` of the twelve indicators.
void Steps_Of_Twelve(std::size_t i, const Check_Figures& f, Steps& steps);
void Steps_Of_A(const Check_Figures& f, Steps& steps);
void Steps_Of_Y(const Check_Figures& f, Steps& steps);

} // namespace morvane
