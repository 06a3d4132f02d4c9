// SPDX-FileCopyrightText: The Morvane developers
#include "statements/statement_section.h"

#include "review/settle.h"
#include "session/boxes.h"
#include "session/kyotu_mod.h"
#include "statements/zaimu_calc.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr std::array<Row_Amount, 1> entry_columns = {&Statement_Row::amount};
constexpr std::array<Row_Amount, 3> journal_columns = {&Statement_Row::debit, &Statement_Row::credit,
                                                       &Statement_Row::balance};

/// Stores in the improved scenario by `store` and settles its scores in the same transaction.
void Store_Improved(const Session& session, const std::function<void(const Connection&)>& store) {
    Store_And_Settle(session, Side_In_Hand(session, Scenario::Kaizen), store);
}

} // namespace

Statement_Section::Statement_Section(Session& the_session, const Account_Section& the_section,
                                     Section_Use the_use)
    : session(&the_session), section(&the_section), use(the_use), form(Statement_Form_Of(the_session.Kind())),
      lines(Statement_Lines(form)) {
    const Connection cn = Cn_Open(*session);
    Transaction transaction(cn);
    book = Is_Journal() ? Read_Journal(cn, *session) : Read_Book(cn, *session, Amount_Column::Current);
    Form_Totals();
    book.Store(cn);
    if (Is_Journal()) {
        // The balances follow the current amounts: what is scored from them may have changed.
        Settle_Computable(cn, Side_In_Hand(*session, Scenario::Kaizen), session->Kind());
    }
    Load_Rows(cn);
    transaction.Commit();
    for (const std::size_t cost : cost_rows) {
        // The caption of a depreciation belongs to the line above it.
        rows[cost + 1].name_open = false;
        // Imported statements have no book values.
        for (const Row_Amount of : {&Statement_Row::amount, &Statement_Row::debit, &Statement_Row::credit}) {
            if ((rows[cost + 2].*of).Is_Null()) {
                Lay_Book_Value(cost, of);
            }
        }
    }
    if (Is_Journal()) {
        Up_Subtotals();
    }
}

std::span<const Row_Amount> Statement_Section::Columns() const {
    return Is_Journal() ? std::span<const Row_Amount>(journal_columns) : entry_columns;
}

void Statement_Section::Load_Rows(const Connection& cn) {
    Statement row = cn.Prepare(
        "SELECT 建設科目CD, 建設科目名, 正負識別, 科目編集識別, 金額編集識別, 貸借正負, 金額, 借方, "
        "貸方 FROM Ks_Zaihyo WHERE 決算期=? AND 建設科目CD>=? AND 建設科目CD<=? "
        "AND ifnull(非表示識別, 0)=0 ORDER BY 建設科目CD");
    row.With(session->Syori_Ki, Code(section->first), Code(section->Last(use)));
    while (row.Step()) {
        rows.push_back({.code = static_cast<int>(row.Integer_At(0)),
                        .name = row.Value_At(1),
                        .amount = row.Value_At(6),
                        .debit = row.Value_At(7),
                        .credit = row.Value_At(8),
                        .sign = std::string(row.Text_At(2)),
                        .name_open = row.Integer_At(3) != 0,
                        .amount_open = row.Integer_At(4) != 0,
                        .debit_normal = row.Integer_At(5) == 1});
    }
    Find_Book_Values(Number_Of(Get_Data_Ver(cn, session->Kind().edition, session->Syori_Ki)));
}

void Statement_Section::Find_Book_Values(int data_form) {
    for (const Book_Value_Lines& line : Book_Values_Of(data_form)) {
        for (std::size_t i = 0; i + 2 < rows.size(); ++i) {
            if (rows[i].code == Code(line.cost) && rows[i + 1].code == Code(line.depreciation) &&
                rows[i + 2].code == Code(line.book_value)) {
                cost_rows.push_back(i);
            }
        }
    }
}

void Statement_Section::Lay_Amount(std::size_t row, const Value& amount, Row_Amount of) {
    rows.at(row).*of = amount;
    const std::span<const Row_Amount> columns = Columns();
    const auto column = std::find(columns.begin(), columns.end(), of);
    if (column != columns.end()) {
        book.Put(rows[row].code, static_cast<std::size_t>(column - columns.begin()), Yen(amount.As_Double()));
    }
}

// In the journal, too, what raises the depreciation is taken off: a credit there shows as a negative one
// beside the book value. The totals add cost and depreciation and pass the book values by.
void Statement_Section::Lay_Book_Value(std::size_t cost, Row_Amount of) {
    const Value& of_cost = rows[cost].*of;
    const Value& depreciation = rows[cost + 1].*of;
    const bool blank = of_cost.Is_Null() && depreciation.Is_Null();
    Lay_Amount(cost + 2, blank ? Value() : Value(of_cost.As_Double() - depreciation.As_Double()), of);
}

std::optional<std::size_t> Statement_Section::Cost_Row(std::size_t row) const {
    for (const std::size_t cost : cost_rows) {
        if (row >= cost && row <= cost + 2) {
            return cost;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> Statement_Section::Set_Amount(std::size_t row, const Value& amount,
                                                         Row_Amount of) {
    Lay_Amount(row, amount, of);
    const std::optional<std::size_t> cost = Cost_Row(row);
    if (!cost) {
        return std::nullopt;
    }
    Lay_Book_Value(*cost, of);
    return *cost + 2;
}

void Statement_Section::Form_Totals() {
    if (Is_Journal()) {
        book.Form_Balances();
    }
    book.Form_Totals(form);
}

void Statement_Section::Sec_Subtotals() {
    Form_Totals();
    if (Is_Journal()) {
        Up_Subtotals();
    } else {
        Lay_Totals();
    }
}

// A locked row that no amount enters stays blank.
void Statement_Section::Lay_Totals() {
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const double total = book[static_cast<Account>(rows[row].code)][0].Count();
        if (Is_Total(row) && (total != 0.0 || !rows[row].amount.Is_Null())) {
            rows[row].amount = total;
        }
    }
}

// A line that nobody has named shows no balance of nothing.
void Statement_Section::Zan_Calc(Statement_Row& row) const {
    if (row.name.As_Text().empty() && row.amount.Is_Null() && row.debit.Is_Null() && row.credit.Is_Null()) {
        row.balance = {};
        return;
    }
    row.balance = Shown_Balance(static_cast<Account>(row.code), row.debit_normal, Yen(row.amount.As_Double()),
                                Yen(row.debit.As_Double()), Yen(row.credit.As_Double()))
                      .Count();
}

void Statement_Section::Up_Subtotals() {
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (!Is_Total(row)) {
            Zan_Calc(rows[row]);
            continue;
        }
        const Amounts total = book[static_cast<Account>(rows[row].code)];
        for (std::size_t column = 0; column < journal_columns.size(); ++column) {
            rows[row].*journal_columns[column] = total[column].Count();
        }
    }
}

void Statement_Section::Store_Rows(const Connection& cn) const {
    Statement update = cn.Prepare(
        Is_Journal() ? "UPDATE Ks_Zaihyo SET 借方=?, 貸方=?, 改善後残高=? WHERE 決算期=? AND 建設科目CD=?"
                     : "UPDATE Ks_Zaihyo SET 建設科目名=?, 金額=? WHERE 決算期=? AND 建設科目CD=?");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Statement_Row& row = rows[i];
        if (!Is_Journal()) {
            update.With(row.name, row.amount, session->Syori_Ki, row.code).Step();
        } else if (!Is_Total(i)) {
            update.With(row.debit, row.credit, row.balance, session->Syori_Ki, row.code).Step();
        }
        update.Reset();
    }
    if (Is_Journal()) {
        Zaimu_Shukei_KK(cn, *session);
    } else {
        Zaimu_Shukei(cn, *session, Amount_Column::Current);
    }
}

void Statement_Section::Save_Rows() const {
    if (Is_Journal()) {
        Store_Improved(*session, [this](const Connection& cn) { Store_Rows(cn); });
        return;
    }
    const Connection cn = Cn_Open(*session);
    Transaction transaction(cn);
    Store_Rows(cn);
    transaction.Commit();
}

void Statement_Section::Close(bool save) const {
    if (Is_Journal()) {
        Save_Rows();
        return;
    }
    const Connection cn = Cn_Open(*session);
    Transaction transaction(cn);
    if (save) {
        Store_Rows(cn);
    }
    Zaimu_Shukei_KK(cn, *session);
    transaction.Commit();
}

void Clear_Journal(const Session& session) {
    Store_Improved(session, [&session](const Connection& cn) {
        cn.Execute("UPDATE Ks_Zaihyo SET 借方=Null, 貸方=Null, 改善後残高=Null WHERE 決算期=?",
                   session.Syori_Ki);
        Zaimu_Shukei_KK(cn, session);
    });
}

bool Statement_Section::Y_Disp() const {
    const Statement_Panel panel = Panel();
    if (!panel.Is_Complete()) {
        Tell(*session, "財務データエラー",
             "建設財務データが不完全です。最低でも総資本、固定資産、売上高は必要です。");
        return false;
    }
    if (!Ask(*session, "編集保存確認", "編集中の財務諸表を一旦保存します。\nよろしいですか？")) {
        return false;
    }
    Save_Rows();
    if (!panel.May_Compute_Y()) {
        Show_Message(*session, {.title = "バランス不合エラー",
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
