// SPDX-FileCopyrightText: The Morvane developers
#include "statements/statement_section.h"

#include "session/boxes.h"
#include "session/kyotu_mod.h"
#include "statements/zaimu_calc.h"

namespace morvane {

Statement_Section::Statement_Section(Session& the_session, const Account_Section& the_section)
    : session(the_session), section(the_section), form(Statement_Form_Of(the_session.Kind())),
      lines(Statement_Lines(form)) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    book = Read_Book(cn, session, Amount_Column::Current);
    Sec_Subtotals();
    book.Store(cn);
    Load_Rows(cn);
    transaction.Commit();
    for (const std::size_t cost : cost_rows) {
        // The caption of a depreciation belongs to the line above it.
        rows[cost + 1].name_open = false;
        // Imported statements have no book values.
        if (rows[cost + 2].amount.Is_Null()) {
            Lay_Book_Value(cost);
        }
    }
}

void Statement_Section::Load_Rows(const Connection& cn) {
    Statement row = cn.Prepare("SELECT 建設科目CD, 建設科目名, 金額, 正負識別, 科目編集識別, 金額編集識別 "
                               "FROM Ks_Zaihyo WHERE 決算期=? AND 建設科目CD>=? AND 建設科目CD<=? "
                               "AND ifnull(非表示識別, 0)=0 ORDER BY 建設科目CD");
    row.With(session.Syori_Ki, Code(section.first), Code(section.last));
    while (row.Step()) {
        rows.push_back({.code = static_cast<int>(row.Integer_At(0)),
                        .name = row.Value_At(1),
                        .amount = row.Value_At(2),
                        .sign = std::string(row.Text_At(3)),
                        .name_open = row.Integer_At(4) != 0,
                        .amount_open = row.Integer_At(5) != 0});
    }
    const int data_form = Number_Of(Get_Data_Ver(cn, session.Kind().edition, session.Syori_Ki));
    for (const Book_Value_Lines& line : Book_Values_Of(data_form)) {
        for (std::size_t i = 0; i + 2 < rows.size(); ++i) {
            if (rows[i].code == Code(line.cost) && rows[i + 1].code == Code(line.depreciation) &&
                rows[i + 2].code == Code(line.book_value)) {
                cost_rows.push_back(i);
            }
        }
    }
}

void Statement_Section::Lay_Amount(std::size_t row, const Value& amount) {
    rows.at(row).amount = amount;
    book.Put(rows[row].code, 0, Yen(amount.As_Double()));
}

void Statement_Section::Lay_Book_Value(std::size_t cost) {
    const Value& of_cost = rows[cost].amount;
    const Value& depreciation = rows[cost + 1].amount;
    const bool blank = of_cost.Is_Null() && depreciation.Is_Null();
    Lay_Amount(cost + 2, blank ? Value() : Value(of_cost.As_Double() - depreciation.As_Double()));
}

std::optional<std::size_t> Statement_Section::Cost_Row(std::size_t row) const {
    for (const std::size_t cost : cost_rows) {
        if (row >= cost && row <= cost + 2) {
            return cost;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> Statement_Section::Set_Amount(std::size_t row, const Value& amount) {
    Lay_Amount(row, amount);
    const std::optional<std::size_t> cost = Cost_Row(row);
    if (!cost) {
        return std::nullopt;
    }
    Lay_Book_Value(*cost);
    return *cost + 2;
}

void Statement_Section::Store_Rows(const Connection& cn) const {
    Statement update =
        cn.Prepare("UPDATE Ks_Zaihyo SET 建設科目名=?, 金額=? WHERE 決算期=? AND 建設科目CD=?");
    for (const Statement_Row& row : rows) {
        update.With(row.name, row.amount, session.Syori_Ki, row.code).Step();
        update.Reset();
    }
    Zaimu_Shukei(cn, session, Amount_Column::Current);
}

void Statement_Section::Save_Rows() const {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Store_Rows(cn);
    transaction.Commit();
}

void Statement_Section::Close(bool save) const {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    if (save) {
        Store_Rows(cn);
    }
    Zaimu_Shukei_KK(cn, session);
    transaction.Commit();
}

bool Statement_Section::Y_Disp() const {
    const Statement_Panel panel = Panel();
    if (!panel.Is_Complete()) {
        Tell(session, "財務データエラー",
             "建設財務データが不完全です。最低でも総資本、固定資産、売上高は必要です。");
        return false;
    }
    if (!Ask(session, "編集保存確認", "編集中の財務諸表を一旦保存します。\nよろしいですか？")) {
        return false;
    }
    Save_Rows();
    if (!panel.May_Compute_Y()) {
        Show_Message(session, {.title = "バランス不合エラー",
                               .text = "バランスが不合のため、計算できません。",
                               .icon = Icon::Exclamation,
                               .beep = true});
        return false;
    }
    return true;
}

const char* Unit_Caption(const Session& session) {
    switch (session.Tani_Kbn) {
    case Display_Unit::Ones:
        return "単位：円";
    case Display_Unit::Thousands:
        return "単位：千円";
    default:
        return "単位：百千円";
    }
}

} // namespace morvane
