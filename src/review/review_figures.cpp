// SPDX-FileCopyrightText: The Morvane developers
#include "review/review_figures.h"

#include "data/shown_text.h"
#include "data/work_columns.h"
#include "law/checked.h"
#include "law/elements.h"
#include "law/era_date.h"
#include "review/work_columns.h"
#include "session/kyotu_mod.h"

#include <algorithm>
#include <cmath>

namespace morvane {

namespace {

std::string Select_Works(std::string_view prefix, bool with_engineer_6) {
    std::string sql = "SELECT 工種CD";
    for (const Work_Column& column : Work_Columns()) {
        const bool lacking = column.name == work_column::engineers_6 && !with_engineer_6;
        sql += lacking ? ", Null" : ", [" + std::string(prefix) + std::string(column.name) + "]";
    }
    return sql + " FROM Kandaka_Gj WHERE 決算期=? ORDER BY 工種CD";
}

Statement Prepare_Works(const Connection& cn, std::string_view prefix) {
    try {
        return cn.Prepare(Select_Works(prefix, true));
    } catch (const Store_Error& error) {
        // A store from before 2021 gets the column when it is next taken in hand.
        if (error.reason != Store_Error::Reason::Missing_Column) {
            throw;
        }
        return cn.Prepare(Select_Works(prefix, false));
    }
}

bool Has_32_Bits(double value) {
    return value > -2147483648.5 && value < 2147483647.5;
}

// A period has all lines or, before it is filled, none.
void Test_Lines(std::span<const Work_Line> works) {
    const auto has_row = [](const Work_Line& line) { return line.row; };
    const auto scored = works.first(scored_lines);
    if (std::any_of(works.begin(), works.end(), has_row) &&
        !std::all_of(scored.begin(), scored.end(), has_row)) {
        throw Run_Time_Error(Run_Time_Error::Kind::Type_Mismatch,
                             "この決算期には工種の行が足りないため、改善後の数値を用意できません。");
    }
}

} // namespace

bool Work_Line::Has_Engineer() const {
    return std::any_of(gijutusya.begin(), gijutusya.end(), [](const Figure& count) { return count.up; });
}

Thousand_Yen Statement_Figures::Get_Y_Kamoku(Account account) const {
    const int code = Code(account);
    const Yen yen = amount[static_cast<std::size_t>(code)];
    const auto name_and_amount = [&] {
        const auto name = beyond_32_bits.find(code);
        return "財務諸表の「" +
               (name == beyond_32_bits.end() ? std::to_string(code) : Shown_Text(name->second)) + "」（" +
               Comma_Str(Value(yen.Count())) + "円）";
    };
    return In_Calculation(name_and_amount, [yen] { return To_Thousand_Yen(yen); });
}

Thousand_Yen Statement_Figures::Get_Y_Sum(std::span<const Account> accounts) const {
    Thousand_Yen sum;
    for (const Account account : accounts) {
        sum += Get_Y_Kamoku(account);
    }
    return sum;
}

// Its entry screen adds the rows of knowledge and skill itself.
void Review_Figures::Take_Law_Year(Law_Year_No code) {
    law_year = code;
    for (int item = element::cpd_units; item <= element::w10 && Law_Of(code).has_additions; ++item) {
        elements[static_cast<std::size_t>(item)].row = true;
    }
}

std::int32_t Review_Figures::Yoso(int code, std::int32_t limit) const {
    const Element& element = elements[static_cast<std::size_t>(code)];
    if (!element.up) {
        return 0;
    }
    if (!Has_32_Bits(element.value)) {
        Throw_Overflow_Of("その他審査項目の「" + Element_Name(code) + "」（" + Number_Text(element.value) +
                          "）");
    }
    const auto value = Round_Half_Even<std::int32_t>(element.value, "その他審査項目");
    return value > limit ? 0 : value;
}

void Review_Figures::Put_Yoso(int code, double value) {
    Element& element = elements[static_cast<std::size_t>(code)];
    if (element.row) {
        element = {value, true, true, true};
    }
}

bool Review_Figures::Is_Started(Scenario scenario) const {
    if (scenario == Scenario::Genjo) {
        return true;
    }
    return std::any_of(works.begin(), works.end(), [scenario](Work_Line line) {
        if (scenario != Scenario::Kaizen) {
            return line.P.up;
        }
        return std::any_of(Copied_Work_Columns().begin(), Copied_Work_Columns().end(),
                           [&line](const Work_Column& column) { return column.place(line).up; });
    });
}

const std::optional<Review_Date>& Review_Figures::Date_For_W() const {
    if (!date_error.empty()) {
        throw Run_Time_Error(Run_Time_Error::Kind::Type_Mismatch, date_error);
    }
    return review_date;
}

Statement_Figures Read_Statement(const Connection& cn, Side side) {
    Statement_Figures figures;
    Statement rows =
        cn.Prepare("SELECT 建設科目CD, 並び順, [" + std::string(Columns_Of(side.scenario).zaihyo) +
                   "], 建設科目名 FROM Ks_Zaihyo WHERE 決算期=?");
    rows.Bind(1, side.period);
    while (rows.Step()) {
        figures.has_rows = true;
        const std::int64_t code = rows.Integer_At(0);
        if (code >= 0 && code < static_cast<std::int64_t>(Statement_Figures::code_end)) {
            const double amount = rows.Double_At(2);
            figures.amount[static_cast<std::size_t>(code)] = Yen(amount);
            if (!Has_32_Bits(amount / 1000.0)) {
                figures.beyond_32_bits[static_cast<int>(code)] = rows.Text_At(3);
            }
        }
        if (code == Code(Account::Data_Form)) {
            figures.form = static_cast<int>(rows.Is_Null(1) ? 2 : rows.Integer_At(1));
        }
    }
    return figures;
}

void Read_Elements(const Connection& cn, Side side, Review_Figures& figures) {
    figures.elements.fill({});
    figures.law_year = Oldest_Law_Year().code;
    Statement rows = cn.Prepare("SELECT 要素CD, 現状, [" + std::string(Columns_Of(side.scenario).yoso) +
                                "] FROM W_Yoso WHERE 決算期=?");
    rows.Bind(1, side.period);
    while (rows.Step()) {
        const std::int64_t code = rows.Integer_At(0);
        if (code == element::law_year && !rows.Is_Null(1)) {
            figures.law_year = Law_Of(rows.Integer_At(1)).code;
        }
        if (code >= 0 && code < static_cast<std::int64_t>(figures.elements.size())) {
            figures.elements[static_cast<std::size_t>(code)] = {rows.Double_At(2), !rows.Is_Null(2), true,
                                                                false};
        }
    }
    for (int code = element::women; code <= element::work_history_points; ++code) {
        figures.elements[static_cast<std::size_t>(code)].row = true;
    }
    figures.Take_Law_Year(figures.law_year);
}

void Read_Works(const Connection& cn, Side side, Review_Figures& figures) {
    figures.works.fill({});
    Statement rows = Prepare_Works(cn, Columns_Of(side.scenario).prefix);
    rows.Bind(1, side.period);
    bool has_other_line = false;
    while (rows.Step()) {
        const std::int64_t code = rows.Integer_At(0);
        if (code < 0 || code >= static_cast<std::int64_t>(work_line_count)) {
            continue;
        }
        has_other_line = has_other_line || code == static_cast<std::int64_t>(other_line);
        Work_Line& line = figures.works[static_cast<std::size_t>(code)];
        line.row = true;
        if (code == static_cast<std::int64_t>(combined_line)) {
            continue;
        }
        for (std::size_t i = 0; i < Work_Columns().size(); ++i) {
            const int column = static_cast<int>(i) + 1;
            if (!rows.Is_Null(column)) {
                const double value = rows.Double_At(column);
                if (!Has_32_Bits(value)) {
                    Throw_Overflow_Of("工種" + std::to_string(code) + "の" +
                                      std::string(Work_Columns()[i].name) + "（" + Number_Text(value) + "）");
                }
                Work_Columns()[i].place(line) = {Round_Half_Even<std::int32_t>(value, "工種別の入力値"), true,
                                                 false};
            }
        }
    }
    // Before 解体 became a work type, その他 stood at 31.
    if (!has_other_line && figures.works[31].row) {
        std::swap(figures.works[31], figures.works[other_line]);
        figures.works[31].row = true;
        figures.works[combined_line].row = true;
    }
}

void Read_Review_Date(const Connection& cn, Review_Figures& figures, std::optional<int> period) {
    figures.review_date.reset();
    figures.date_error.clear();
    Statement firm = cn.Prepare("SELECT 決算期終了年, 決算期終了月, 決算期終了日, 処理決算期 FROM Jigyo_mas");
    if (!firm.Step()) {
        return;
    }
    const Era_Date stored = {firm.Integer_At(0), firm.Integer_At(1), firm.Integer_At(2)};
    if (!firm.Is_Null(0)) {
        const bool other = period && !firm.Is_Null(3);
        const int years = other ? *period - static_cast<int>(firm.Integer_At(3)) : 0;
        figures.review_date = Reiwa_Day(Shift_Years(stored, years));
    }
    if (!figures.review_date) {
        figures.date_error = "決算期終了日「" + firm.Value_At(0).As_Text() + "/" +
                             firm.Value_At(1).As_Text() + "/" + firm.Value_At(2).As_Text() +
                             "」が日付ではないため、社会性等の評点（Ｗ）を計算できません。";
    }
}

Review_Figures Load_Review(const Connection& cn, Side side, Firm_Kind firm) {
    Review_Figures figures;
    figures.firm = firm;
    figures.statement = Read_Statement(cn, side);
    Read_Elements(cn, side, figures);
    Read_Works(cn, side, figures);
    Read_Review_Date(cn, figures, side.period);
    return figures;
}

Side Side_Of(const Connection& cn, const Asked_Side& asked) {
    if (asked.period) {
        return {*asked.period, asked.scenario};
    }
    Statement row = cn.Prepare("SELECT 処理決算期 FROM Jigyo_mas");
    return {row.Step() ? static_cast<int>(row.Integer_At(0)) : 0, asked.scenario};
}

Review_Figures Load_Review(const Session& session, Side side) {
    return Load_Review(Cn_Open(session), side, session.Kind());
}

void Write_Elements(const Connection& cn, Side side, Review_Figures& figures) {
    Statement update = cn.Prepare("UPDATE W_Yoso SET [" + std::string(Columns_Of(side.scenario).yoso) +
                                  "] = ? WHERE 決算期=? And 要素CD=?");
    for (std::size_t code = 0; code < figures.elements.size(); ++code) {
        Element& element = figures.elements[code];
        if (!element.dirty) {
            continue;
        }
        update.Reset();
        update.Bind(1, element.up ? Value(element.value) : Value());
        update.Bind(2, side.period);
        update.Bind(3, static_cast<std::int64_t>(code));
        update.Step();
        element.dirty = false;
    }
}

void Write_Works(const Connection& cn, Side side, Review_Figures& figures) {
    const std::string prefix(Columns_Of(side.scenario).prefix);
    for (std::size_t code = 0; code < work_line_count; ++code) {
        std::string names;
        std::vector<Value> values;
        for (const Work_Column& column : Work_Columns()) {
            Figure& figure = column.place(figures.works[code]);
            if (figure.dirty) {
                names += (names.empty() ? "[" : ", [") + prefix + std::string(column.name) + "] = ?";
                values.push_back(figure.up ? Value(figure.value) : Value());
                figure.dirty = false;
            }
        }
        if (!values.empty()) {
            values.emplace_back(side.period);
            values.emplace_back(static_cast<std::int64_t>(code));
            cn.Execute("UPDATE Kandaka_Gj SET " + names + " WHERE 決算期=? And 工種CD=?", values);
        }
    }
}

void Add_Missing_Elements(const Connection& cn, int period, int first, int last) {
    for (int code = first; code <= last; ++code) {
        if (cn.Open("SELECT 要素CD FROM W_Yoso WHERE 決算期=? And 要素CD=?", period, code).Eof()) {
            cn.Execute("INSERT INTO W_Yoso (決算期, 要素CD, 要素名) VALUES (?, ?, ?)", period, code,
                       Element_Name(code));
        }
    }
}

void Forget_Unchanged(const Review_Figures& stored, Review_Figures& figures) {
    for (std::size_t code = 0; code < figures.elements.size(); ++code) {
        Element& element = figures.elements[code];
        element.dirty = element.dirty && !(element == stored.elements[code]);
    }
    for (std::size_t code = 0; code < work_line_count; ++code) {
        Work_Line before = stored.works[code];
        for (const Work_Column& column : Work_Columns()) {
            Figure& figure = column.place(figures.works[code]);
            figure.dirty = figure.dirty && !(figure == column.place(before));
        }
    }
}

bool Post_Current(const Connection& cn, int period, Review_Figures& improved) {
    if (improved.Is_Started(Scenario::Kaizen)) {
        return false;
    }
    Review_Figures current;
    Read_Elements(cn, {period, Scenario::Genjo}, current);
    Read_Works(cn, {period, Scenario::Genjo}, current);
    Test_Lines(current.works);
    for (std::size_t code = 0; code < scored_lines; ++code) {
        Work_Line from = current.works[code];
        for (const Work_Column& column : Copied_Work_Columns()) {
            const Figure& figure = column.place(from);
            column.place(improved.works[code]) = {figure.value, figure.up, true};
        }
    }
    for (std::size_t code = 0; code < improved.elements.size(); ++code) {
        // An item that was keyed or brought from elsewhere before there was any work stays.
        const Element& element = current.elements[code];
        if (!improved.elements[code].up) {
            improved.elements[code] = {element.value, element.up, element.row, element.row};
        }
    }
    return true;
}

} // namespace morvane
