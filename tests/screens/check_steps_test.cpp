// SPDX-FileCopyrightText: The Morvane developers
#include "law/elements.h"
#include "law/run_time_error.h"
#include "review/settle.h"
#include "review/social.h"
#include "screens/check_sheet.h"
#include "session/kyotu_mod.h"
#include "support/generated_firm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>
#include <span>
#include <vector>

namespace morvane::tests {
namespace {

// ---- A reader with pencil and paper: it knows nothing but the lines that a sheet shows.

constexpr long double near = 1e-9L;

bool Same(long double a, long double b) {
    return std::fabs(a - b) <= near * std::max(1.0L, std::fabs(a));
}

/// Reads one line from its front.
class Reader {
  public:
    explicit Reader(std::string_view line) : rest(line) {}

    std::string_view rest;
    std::vector<long double> numbers; ///< that were read

    bool Take(std::string_view word) {
        while (rest.starts_with(" ")) {
            rest.remove_prefix(1);
        }
        if (!rest.starts_with(word)) {
            return false;
        }
        rest.remove_prefix(word.size());
        return true;
    }

    long double Number() {
        Take("");
        const std::size_t sign = rest.starts_with("-") ? 1 : 0;
        std::string digits(rest.substr(0, rest.find_first_not_of("0123456789,.", sign)));
        rest.remove_prefix(digits.size());
        std::erase(digits, ',');
        if (digits.empty() || digits == "-") {
            throw std::runtime_error("no number: " + std::string(rest));
        }
        numbers.push_back(std::stold(digits));
        return numbers.back();
    }

    long double Sum() {
        long double sum = Product();
        while (true) {
            const bool adds = Take("＋");
            if (!adds && !Take("－")) {
                return sum;
            }
            sum += adds ? Product() : -Product();
        }
    }

  private:
    long double Product() {
        long double product = Factor();
        while (true) {
            const bool multiplies = Take("×");
            if (!multiplies && !Take("／")) {
                return product;
            }
            product = multiplies ? product * Factor() : product / Factor();
        }
    }

    long double Factor() {
        if (Take("（")) {
            const long double inner = Sum();
            if (!Take("）")) {
                throw std::runtime_error("no bracket: " + std::string(rest));
            }
            return inner;
        }
        return Number();
    }
};

/// Whether `shown` is `exact` by the rounding that the line names.
bool Rounds_To(long double exact, long double shown, std::string_view how) {
    if (how.empty()) {
        return Same(exact, shown);
    }
    if (how == "（単精度で保持）") {
        return static_cast<long double>(static_cast<float>(exact)) == shown;
    }
    long double scale = 1;
    if (const auto places = how.find("位未満"); places != std::string_view::npos) {
        scale = std::pow(10.0L, static_cast<long double>(how[places - 1] - '0'));
    }
    const long double value = exact * scale;
    const std::pair<const char*, long double> ways[] = {
        {"切り捨て）", std::trunc(value)},
        {"切り下げ）", std::floor(value)},
        {"四捨五入）", std::round(value)},
        {"四捨五入）", std::round(value * (1 + 1e-15L))},
        {"0.5以上を切り上げ）", std::floor(value + 0.5L)},
        {"0.499以上を切り上げ）", std::floor(value + 0.501L + near)}};
    return std::ranges::any_of(
        ways, [&](const auto& way) { return how.ends_with(way.first) && Same(way.second, shown * scale); });
}

bool Compares(long double a, std::string_view sign, long double b) {
    const bool same = Same(a, b);
    return sign == "＜"   ? a < b && !same
           : sign == "≦"  ? a < b || same
           : sign == "＞" ? a > b && !same
           : sign == "≧"  ? a > b || same
                          : same;
}

/// Whether the row of a table that the sheet marks is the one for the figure.
bool Row_Holds(const std::string& row, const std::string& input) {
    if (row.find("ISO") != std::string::npos || row.find("21") != std::string::npos ||
        row == "登録・認証なし") {
        return true; // combinations: tested by the score
    }
    const long double number = Reader(row).Number();
    const long double figure = Reader(input).Number();
    if (row.ends_with("以上")) {
        return figure >= number || figure < 0;
    }
    return row.ends_with("以下") ? figure <= number : figure == number;
}

class Sheet_Reader {
  public:
    explicit Sheet_Reader(const Check_Sheet& the_sheet) : sheet(the_sheet) {
        for (const auto& lines :
             {std::span(sheet.inputs), std::span(sheet.results).first(sheet.results.size() - 1)}) {
            for (const Check_Line& line : lines) {
                Take_Numbers(line.value.text);
            }
        }
        for (const auto* lines : {&sheet.formula, &sheet.closing}) {
            std::ranges::for_each(*lines, [this](const std::string& line) { Take_Numbers(line); });
        }
        for (const auto& line : sheet.filled) {
            std::ranges::for_each(line, [this](const Named_Text& part) { Take_Numbers(part.text); });
        }
        known.insert({0.0L, 0.015L}); // what is blank, and 1.5 percent
    }

    /// Follows all steps; the last result.
    long double Follow() {
        long double result = 0;
        for (const Check_Step& step : sheet.steps) {
            result = Follow(step);
            known.insert(result);
        }
        return result;
    }

  private:
    const Check_Sheet& sheet;
    std::set<long double> known; ///< figures that a step may go on with

    void Take_Numbers(const std::string& text) {
        for (std::size_t at = 0; at < text.size();) {
            if (std::isdigit(static_cast<unsigned char>(text[at])) == 0) {
                ++at;
                continue;
            }
            Reader reader(std::string_view(text).substr(at));
            known.insert(reader.Number());
            at = text.size() - reader.rest.size();
        }
    }

    [[nodiscard]] bool Known(long double number) const {
        return std::any_of(known.begin(), known.end(),
                           [number](long double k) { return Same(k, number) || Same(-k, number); });
    }

    [[nodiscard]] std::string Input(const std::string& name) const {
        for (const Check_Line& line : sheet.inputs) {
            if (line.caption.find(name) != std::string::npos) {
                return line.value.text;
            }
        }
        return "none";
    }

    long double Follow(const Check_Step& step) const {
        SCOPED_TRACE(step.name + " | " + step.text);
        constexpr std::string_view because = "のため ";
        if (const auto at = step.text.find(because); at != std::string::npos) {
            Condition(step.name, step.text.substr(0, at));
            return Reader(std::string_view(step.text).substr(at + because.size())).Number();
        }
        Reader reader(step.text);
        const long double exact = reader.Sum();
        if (reader.rest.empty()) {
            EXPECT_TRUE(Known(exact) || step.name.find("（") != std::string::npos)
                << "not a figure of the sheet";
            return exact;
        }
        if (reader.Take("＝")) {
            // A table of the law has its own multipliers, W of the six sub-scores its own parts.
            if (!step.name.ends_with("評点") && !step.name.ends_with("点数") &&
                step.name != "総合評点に使うＷ") {
                for (const long double number : reader.numbers) {
                    EXPECT_TRUE(Known(number)) << "no figure of the sheet: " << number;
                }
            }
            const long double shown = reader.Number();
            if (step.name == "割合（2進数で保持した値）") {
                EXPECT_EQ(static_cast<double>(shown), static_cast<double>(exact));
            } else {
                EXPECT_TRUE(Rounds_To(exact, shown, reader.rest)) << exact;
            }
            return shown;
        }
        Chain(exact, reader);
        return exact;
    }

    static void Chain(long double left, Reader& reader) {
        while (!reader.rest.empty()) {
            std::string_view sign;
            for (const std::string_view candidate : {"＜", "≦", "＞", "≧", "＝"}) {
                if (sign.empty() && reader.Take(candidate)) {
                    sign = candidate;
                }
            }
            ASSERT_FALSE(sign.empty()) << reader.rest;
            const long double right = reader.Sum();
            EXPECT_TRUE(Compares(left, sign, right));
            left = right;
        }
    }

    void Condition(const std::string& name, const std::string& condition) const {
        if (condition.starts_with("「")) {
            const std::string row = condition.substr(3, condition.size() - 6);
            const Check_Table& table = sheet.tables.at(0);
            EXPECT_EQ(table.rows.at(static_cast<std::size_t>(table.mark)).front().text, row);
            const Check_Step& first = sheet.steps.front();
            const bool average = first.name == "平均研究開発費";
            EXPECT_TRUE(
                Row_Holds(row, average ? first.text.substr(first.text.find("＝ ") + std::string("＝ ").size())
                                       : sheet.inputs.at(0).value.text));
            return;
        }
        Reader reader(std::string_view(condition).substr(0, condition.find_last_not_of(' ') + 1));
        const long double first = reader.Sum();
        if (reader.rest.empty()) {
            const std::string input = Input(name);
            ASSERT_NE(input, "none") << name;
            EXPECT_EQ(input.empty() ? 0.0L : Reader(input).Number(), first);
            return;
        }
        if (!reader.Take("（該当する行なし）")) {
            Chain(first, reader);
        }
    }
};

// ---- Firms of all kinds.

template <class Value>
Value One_Of(std::initializer_list<Value> choices, std::mt19937& random) {
    return std::data(choices)[random() % choices.size()];
}

constexpr std::size_t followed_lines = 5;

/// A firm of any kind, whose numbers lie at the steps of the tables and whose ratios on both sides of their
/// limits; every account may be nothing.
Review_Figures Any_Firm(const Law_Year& law, std::mt19937& random) {
    Review_Figures f = Generated_Firm(law, random);
    f.firm.type = One_Of({Firm_Type::Corporation, Firm_Type::Individual}, random);
    f.firm.edition = One_Of({Edition::National, Edition::Hokkaido}, random);
    f.statement.form = One_Of({5, 6}, random);
    const double scale = std::pow(10.0, std::uniform_real_distribution<>(3.0, 10.5)(random));
    const bool all_zero = random() % 25 == 0;
    for (Yen& amount : f.statement.amount) {
        const double share = std::uniform_real_distribution<>(-0.4, 1.0)(random);
        amount =
            Yen(all_zero || random() % 6 == 0 ? 0.0
                                              : std::trunc(scale * share / One_Of({1, 1, 10, 100}, random)));
    }
    const std::pair<int, std::vector<int>> numbers[] = {
        {111, {0, 5, 6, 20, 34, 35, 100}},
        {142, {0, 1, 2, 5, 14}},
        {143, {0, 1, 2, 3, 30}},
        {151, {0, 49'999, 50'001, 100'000, 1'234'567, 2'999'999, 9'000'000}},
        {152, {0, 50'000, 99'999, 200'001, 2'000'000, 7'500'000, 12'000'000}},
        {201, {0, 2, 2, 3, 3}},
        {212, {0, 1, 7, 8, 11, 13, 14, 50}},
        {221, {0, 7, 20, 50, 100}},
        {222, {0, 1, 3, 15, 29}},
        {225, {0, 1, 7}},
        {228, {0, 10, 59, 60, 90, 299, 300, 301, 620}},
        {229, {0, 3, 7, 10, 20}},
        {230, {0, 1, 3}},
        {231, {0, 1, 10, 16, 200}},
        {232, {0, 1, 2, 3, 10, 16}}};
    for (const auto& [code, values] : numbers) {
        f.Put_Yoso(code, values[random() % values.size()]);
    }
    for (Work_Line& line : std::span(f.works).first<followed_lines>()) {
        const int size = One_Of({1, 1, 10, 100}, random);
        const bool beyond_the_table = random() % 30 == 0;
        for (Figure* figure : {&line.Zzki, &line.Zki, &line.Kijun, &line.Mzzki, &line.Mzki, &line.Mkijun}) {
            figure->value *= random() % 10 == 0 ? -size : size;
            if (beyond_the_table) {
                figure->value = 200'000'000;
            }
        }
        for (Figure& count : line.gijutusya) {
            count.value *= size;
        }
    }
    return f;
}

/// Other items, as a user who goes through the screen keys them.
void Edit(Social_Items& items, std::mt19937& random) {
    const auto of = [&random](std::initializer_list<int> choices) { return One_Of(choices, random); };
    items.Kikai = of({0, 1, 7, 8, 9, 12, 14, 30});
    items.JyakunenAll = of({0, 20, 100});
    items.JyakunenK = of({0, 15, 29});
    items.tishikiGJ = {of({0, 90, 300, 1500}), of({0, 10, 20})};
    items.tishikiGN = {of({0, 3}), of({0, 16, 20}), of({0, 1, 2, 16})};
}

std::string Steps_Of(const Check_Sheet& sheet) {
    std::string lines;
    for (const Check_Step& step : sheet.steps) {
        lines += step.name + "： " + step.text + "\n";
    }
    return lines;
}

/// Follows a sheet and holds it against the score of the entry screen.
void Expect_Followed(const Review_Figures& figures, const Check_Request& request, std::int32_t score) {
    const Check_Sheet sheet = Make_Check_Sheet(figures, request);
    SCOPED_TRACE(request.mode + "\n" + Steps_Of(sheet));
    const std::string& shown = sheet.results.back().value.text;
    EXPECT_EQ(shown, request.mode == "Y" && score == 0 ? "" : Comma_Str(score));
    if (request.mode == "W9" && figures.Yoso(221) == 0) {
        return; // former values stand
    }
    ASSERT_FALSE(sheet.steps.empty());
    EXPECT_TRUE(Same(Sheet_Reader(sheet).Follow(), score));
    for (const std::string& line : sheet.closing) {
        EXPECT_EQ(line.find("前に保存された値"), std::string::npos);
    }
}

void Expect_W_Followed(const Review_Figures& figures) {
    constexpr int codes[] = {100, 110, 120, 130, 150, 200, 140, -1, -1, -1, 213, 216, 227, 233};
    for (int i = 0; i < static_cast<int>(std::size(codes)); ++i) {
        const Law_Year& law = Law_Of(figures.law_year);
        if (codes[i] >= 0 && Find_Element(codes[i])->law.Has(law)) {
            Expect_Followed(figures, W2X_Request(law, i), figures.Yoso(codes[i]));
        }
    }
}

/// The same of an indicator, which is no whole number.
void Expect_Followed(const Review_Figures& figures, const Check_Request& request, double value,
                     long double within) {
    const Check_Sheet sheet = Make_Check_Sheet(figures, request);
    SCOPED_TRACE(request.mode + "\n" + Steps_Of(sheet));
    const long double result = Sheet_Reader(sheet).Follow();
    EXPECT_LT(std::fabs(result - static_cast<long double>(value)), within);
    EXPECT_EQ(Reader(sheet.results.back().value.text).Number(), result);
}

void Expect_Y_Followed(const Review_Figures& figures, const Y_Result& y) {
    for (int i = 0; i < 9; ++i) {
        const float value = i < 8 ? y.indicators[static_cast<std::size_t>(i)] : y.points;
        Expect_Followed(figures, Y1_Request(i), static_cast<double>(value), 1e-4L);
    }
    Expect_Followed(figures, Y1_Request(9), y.score.Count());
    const Twelve_Result twelve = Calc_Twelve(figures.statement, figures.firm, y);
    for (std::size_t i = 0; i < twelve.values.size(); ++i) {
        Expect_Followed(figures, Twelve_Request(i), twelve.values[i], 1e-6L);
    }
}

void Expect_Works_Followed(const Review_Figures& figures) {
    for (std::size_t i = 0; i < followed_lines; ++i) {
        const Work_Line& line = figures.works[i];
        const std::pair<const char*, const Figure*> scores[] = {
            {"X", &line.X1}, {"P", &line.P}, {"Z", &line.Z}, {"Z1", &line.Zi}, {"Z2", &line.Zro}};
        for (const auto& [mode, score] : scores) {
            if (score->up) {
                Expect_Followed(figures, XZP_Request(mode, i), score->value);
            } else {
                EXPECT_TRUE(Make_Check_Sheet(figures, XZP_Request(mode, i)).steps.empty());
            }
        }
    }
}

TEST(Check_Steps, Followed_By_Hand_They_Give_The_Scores) {
    constexpr int firms_of_a_law = 75;
    int beyond = 0;
    for (int law = 1; law <= 4; ++law) {
        std::mt19937 random(static_cast<unsigned>(law));
        for (int n = 0; n < firms_of_a_law && !::testing::Test::HasFailure(); ++n) {
            SCOPED_TRACE("law " + std::to_string(law) + " firm " + std::to_string(n));
            Review_Figures figures = Any_Firm(Law_Of(law), random);
            Statement_Scores scores;
            try {
                scores = Settle(figures);
            } catch (const Run_Time_Error&) {
                ++beyond; // an amount in a hole of a table: there is no score to explain
                continue;
            }
            Expect_Y_Followed(figures, scores.y);
            Expect_Followed(figures, W2X_Request(Law_Of(law), 7), scores.x2.equity.scored.points.Count());
            Expect_Followed(figures, W2X_Request(Law_Of(law), 8), scores.x2.profit.scored.points.Count());
            Expect_Followed(figures, W2X_Request(Law_Of(law), 9), scores.x2.score.Count());
            Expect_Works_Followed(figures);
            // What the entry screen of X2 and W shows: settled, and with an edit that the total has in part.
            Social_Items items;
            items.Load(figures);
            const std::int32_t kikai_ten_of_load = items.Kikai_Ten;
            for (int pass = 0; pass < 2; ++pass) {
                items = Calc_W_2012(items, kikai_ten_of_load, figures);
                items.Store(figures);
                Expect_W_Followed(figures);
                Edit(items, random);
            }
        }
    }
    EXPECT_LT(beyond, 4 * firms_of_a_law / 5);
}

} // namespace
} // namespace morvane::tests
