// SPDX-FileCopyrightText: The Morvane developers
#include "statements/account_book.h"

#include <algorithm>
#include <iterator>

namespace morvane {

namespace {

using namespace statement_form;
using enum Account;
using enum Account_Class;

constexpr std::array<std::string_view, static_cast<std::size_t>(Account_Class::Count)> class_names = {
    "",     "Rds",  "Yks",   "Mks", "Tst",   "Kns", "Rdf",   "Ktf", "Hjk", "Rjk",
    "Jsg",  "Hks",  "Skabu", "Kku", "Kku_u", "Knu", "Knu_u", "Kkg", "Kgu", "KugG",
    "KugT", "SguH", "SguT",  "Ipk", "Egs",   "Egh", "Tbr",   "Tbs", "SesT"};

Account_Class Class_Of(std::string_view name) {
    const auto* found = std::find(class_names.begin(), class_names.end(), name);
    return found == class_names.end() ? None : static_cast<Account_Class>(found - class_names.begin());
}

/// A row that is computed, from sums of classes and from totals that stand before it in the table.
struct Total {
    Account account;
    unsigned when;
    std::array<Book_Term, 7> terms;
    bool in_journal = true; ///< the journal writes it, too
};

// These rows belong to classes themselves and are formed before all others: 経費 of the Hokkaido chart to the
// cost of completed work, 当期製品製造原価 to that of the side business.
constexpr auto totals_within_classes = std::to_array<Total>({
    {Work_Expenses, hokkaido, {Kgu}},
    {Work_Expenses_Breakdown, hokkaido, {Kgu}},
    {Production_Input, any, {SguH}},
    {Production_Cost, any, {Production_Input, SguT}},
    {Products_Made, any, {Production_Cost}},
});

constexpr auto cascade = std::to_array<Total>({
    {Current_Assets, any, {Rds}},
    {Tangible_Assets, any, {Yks}},
    {Intangible_Assets, any, {Mks}},
    {Investments, any, {Tst}},
    {Fixed_Assets, any, {Tangible_Assets, Intangible_Assets, Investments}},
    {Deferred_Assets, corporation, {Kns}},
    {Total_Assets, corporation, {Current_Assets, Fixed_Assets, Deferred_Assets}},
    {Total_Assets, individual, {Current_Assets, Fixed_Assets}},

    {Current_Liabilities, any, {Rdf}},
    {Fixed_Liabilities, any, {Ktf}},
    {Liabilities, any, {Current_Liabilities, Fixed_Liabilities}},

    {Capital_And_Surplus, corporation, {Hjk}},
    {Retained_Earnings_Carried,
     corporation,
     {Total_Assets, -Liabilities, -Capital_And_Surplus, -Rjk, -Jsg, -Hks, -Skabu}},
    {Capital_Surplus, corporation, {Capital_Reserve, Other_Capital_Surplus}},
    {Retained_Earnings, corporation, {Rjk, Retained_Earnings_Carried}},
    {Shareholders_Equity, corporation, {Retained_Earnings, Capital_And_Surplus, Jsg}},
    {Valuation_Differences, corporation, {Hks}},
    {Net_Assets, corporation, {Shareholders_Equity, Valuation_Differences, Skabu}},
    {Liabilities_And_Net_Assets, corporation, {Net_Assets, Liabilities}},
    // The capital of an individual is read from its rows, whatever their class.
    {Capital_And_Surplus, individual, {Capital, Capital_Deposits, -Drawings}},
    {Retained_Earnings_Carried, individual, {Total_Assets, -Liabilities, -Capital_And_Surplus}},
    {Net_Assets, individual, {Retained_Earnings_Carried, Capital_And_Surplus}},
    {Liabilities_And_Net_Assets, individual, {Liabilities, Capital_And_Surplus, Retained_Earnings_Carried}},

    {Goods_Available, any, {KugG}},
    {Side_Business_Cost, any, {Goods_Available, KugT}},
    {Completed_Work_Cost, any, {Kkg}},
    {Completed_Work_Cost_Hokkaido, hokkaido, {Completed_Work_Cost}},
    // The journal leaves this row as it is.
    {Completed_Work_Profit_Hokkaido, hokkaido, {Kku, -Completed_Work_Cost}, false},
    {Side_Business_Cost_Hokkaido, hokkaido, {Side_Business_Cost}},
    {Side_Business_Profit, hokkaido, {Knu, -Side_Business_Cost}},
    {Gross_Profit, hokkaido, {Completed_Work_Profit_Hokkaido, Side_Business_Profit}},
    {Sales_National, national, {Completed_Work_Sales, Side_Business_Sales_National}},
    {Completed_Work_Cost_National, national, {Completed_Work_Cost}},
    {Side_Business_Cost_National, national, {Side_Business_Cost}},
    {Cost_Of_Sales_National, national, {Completed_Work_Cost_National, Side_Business_Cost_National}},
    {Completed_Work_Profit_National, national, {Kku_u, -Completed_Work_Cost}},
    {Side_Business_Profit, national, {Knu_u, -Side_Business_Cost}},
    {Gross_Profit, national, {Completed_Work_Profit_National, Side_Business_Profit}},

    {General_Expenses, any, {Ipk}},
    {Operating_Profit, any, {Gross_Profit, -General_Expenses}},
    {Non_Operating_Income, any, {Egs}},
    {Non_Operating_Expenses, any, {Egh}},
    {Ordinary_Profit, any, {Non_Operating_Income, -Non_Operating_Expenses, Operating_Profit}},
    {Profit_Of_Individual, individual, {Ordinary_Profit}},
    {Extraordinary_Gains, corporation, {Tbr}},
    {Extraordinary_Losses, corporation, {Tbs}},
    {Profit_Before_Taxes, corporation, {Extraordinary_Gains, -Extraordinary_Losses, Ordinary_Profit}},
    {Profit_Of_Corporation, corporation, {Profit_Before_Taxes, -SesT}},
});

constexpr std::size_t debit_column = 0;
constexpr std::size_t credit_column = 1;
constexpr std::size_t balance_column = 2;

Recordset Open_Rows(const Connection& cn, int period, const Account_Book::Columns& names) {
    std::string sql = "SELECT 建設科目CD, 科目分類識別, 集計識別, 内部処理正負, 非表示識別, 貸借正負, 金額";
    for (const std::string_view name : names) {
        sql += name.empty() || name == "金額" ? "" : ", " + std::string(name);
    }
    return cn.Open(sql + " FROM Ks_Zaihyo WHERE 決算期=? ORDER BY 建設科目CD", period);
}

} // namespace

Amounts& Amounts::operator+=(const Amounts& other) {
    for (std::size_t i = 0; i < most; ++i) {
        of[i] += other.of[i];
    }
    return *this;
}

Amounts& Amounts::operator-=(const Amounts& other) {
    for (std::size_t i = 0; i < most; ++i) {
        of[i] -= other.of[i];
    }
    return *this;
}

Yen Improved_Balance(Account account, bool debit_normal, Yen amount, Yen debit, Yen credit) {
    if (account == Drawings) {
        return -amount + debit - credit;
    }
    return debit_normal ? amount + debit - credit : amount - debit + credit;
}

Yen Shown_Balance(Account account, bool debit_normal, Yen amount, Yen debit, Yen credit) {
    constexpr Account first{523};
    constexpr Account second{524};
    const bool turns = account == first || account == second;
    return Improved_Balance(turns ? Drawings : account, debit_normal, amount, debit, credit);
}

Account_Book::Account_Book(const Connection& cn, int period, const Columns& names, Hidden_Rows hidden_rows)
    : of_period(period), columns(names) {
    Recordset read = Open_Rows(cn, period, names);
    Read(read, hidden_rows);
}

Account_Book::Account_Book(Recordset& rows_of_period, const Columns& names, Hidden_Rows hidden_rows)
    : columns(names) {
    Read(rows_of_period, hidden_rows);
}

void Account_Book::Read(Recordset& from, Hidden_Rows hidden_rows) {
    const auto place = [&from](std::string_view name) { return from.Column(name); };
    const int code = place("建設科目CD");
    const int of_class = place("科目分類識別");
    const int summed = place("集計識別");
    const int subtracted = place("内部処理正負");
    const int hidden = place("非表示識別");
    const int side = place("貸借正負");
    const int current = place("金額");
    std::array<int, Amounts::most> places{};
    while (column_count < columns.size() && !columns[column_count].empty()) {
        places[column_count] = place(columns[column_count]);
        ++column_count;
    }
    for (from.Move_First(); !from.Eof(); from.Move_Next()) {
        const bool shown = !from.At(hidden).Is_Null() && from.At(hidden).As_Integer() == 0;
        Row& row = rows.emplace_back();
        row.code = static_cast<int>(from.At(code).As_Integer());
        row.of_class = Class_Of(from.At(of_class).As_Text());
        row.summed = from.At(summed).As_Integer() != 0 && (shown || hidden_rows == Hidden_Rows::Counted);
        row.subtracted = from.At(subtracted).As_Integer() == 1;
        row.debit_normal = from.At(side).As_Integer() == 1;
        row.current = Yen(from.At(current).As_Double());
        for (std::size_t i = 0; i < column_count; ++i) {
            const Value& held = from.At(places[i]);
            row.amounts.of[i] = row.cells[i].stored = Yen(held.As_Double());
            row.cells[i].is_number = !held.Is_Null() && !held.Is_Text();
        }
    }
}

void Account_Book::Row::Put(std::size_t column, Yen amount) {
    amounts.of[column] = amount;
    cells[column].assigned = true;
}

bool Account_Book::Row::Differs(std::size_t column) const {
    const Cell& cell = cells[column];
    return cell.assigned && (!cell.is_number || cell.stored != amounts[column]);
}

const Account_Book::Row* Account_Book::Find(int code) const {
    const auto found = std::lower_bound(rows.begin(), rows.end(), code,
                                        [](const Row& row, int wanted) { return row.code < wanted; });
    return found != rows.end() && found->code == code ? &*found : nullptr;
}

Amounts Account_Book::operator[](Account account) const {
    if (const auto total = totals.find(account); total != totals.end()) {
        return total->second;
    }
    const Row* row = Find(Code(account));
    return row == nullptr ? Amounts() : row->amounts;
}

void Account_Book::Put(int code, std::size_t column, Yen amount) {
    if (const Row* row = Find(code)) {
        rows[static_cast<std::size_t>(row - rows.data())].Put(column, amount);
    }
}

void Account_Book::Form_Balances() {
    for (Row& row : rows) {
        row.Put(balance_column,
                Improved_Balance(static_cast<Account>(row.code), row.debit_normal, row.current,
                                 row.amounts[debit_column], row.amounts[credit_column]));
    }
}

Amounts Account_Book::Sum(std::span<const Book_Term> terms) const {
    Amounts sum;
    for (const Book_Term& term : terms) {
        if (!term.Is_Empty()) {
            const Amounts part =
                term.of_class == None ? (*this)[term.account] : sums[static_cast<std::size_t>(term.of_class)];
            term.minus ? sum -= part : sum += part;
        }
    }
    return sum;
}

void Account_Book::Sum_Classes() {
    sums = {};
    for (const Row& row : rows) {
        if (row.summed) {
            Amounts& sum = sums[static_cast<std::size_t>(row.of_class)];
            row.subtracted ? sum -= row.amounts : sum += row.amounts;
        }
    }
}

void Account_Book::Form_Book_Values(int data_form) {
    for (const Book_Value_Lines& line : Book_Values_Of(data_form)) {
        const Row* const book_value = Find(Code(line.book_value));
        for (std::size_t i = 0; book_value != nullptr && i < column_count; ++i) {
            if (book_value->cells[i].is_number) {
                Put(Code(line.book_value), i, (*this)[line.cost][i] - (*this)[line.depreciation][i]);
            }
        }
    }
}

void Account_Book::Form_Totals(unsigned form) {
    totals.clear();
    if (std::none_of(rows.begin(), rows.end(), [](const Row& row) { return row.summed; })) {
        return;
    }
    const auto run = [this, form](std::span<const Total> table) {
        Sum_Classes();
        for (const Total& total : table) {
            if (Applies(total.when, form)) {
                const Amounts amounts = Sum(total.terms);
                totals[total.account] = amounts;
                for (std::size_t i = 0; i < column_count && (total.in_journal || !Is_Journal()); ++i) {
                    Put(Code(total.account), i, amounts[i]);
                }
            }
        }
    };
    run(totals_within_classes);
    run(cascade);
}

void Account_Book::Store(const Connection& cn) const {
    std::string places;
    for (std::size_t i = 0; i < column_count; ++i) {
        const std::string name(columns[i]);
        places += (i == 0 ? "" : ", ") + name + "=ifnull(?, " + name + ")"; // a Null leaves what is stored
    }
    Statement update = cn.Prepare("UPDATE Ks_Zaihyo SET " + places + " WHERE 決算期=? AND 建設科目CD=?");
    const auto last = static_cast<int>(column_count);
    for (const Row& row : rows) {
        bool changed = false;
        for (std::size_t i = 0; i < column_count; ++i) {
            const bool differs = row.Differs(i);
            update.Bind(static_cast<int>(i) + 1, differs ? Value(row.amounts[i].Count()) : Value());
            changed = changed || differs;
        }
        if (changed) {
            update.Bind(last + 1, of_period);
            update.Bind(last + 2, row.code);
            update.Step();
            update.Reset();
        }
    }
}

void Account_Book::Store(Recordset& rows_of_period) const {
    rows_of_period.Move_First();
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < column_count; ++i) {
            if (row.Differs(i)) {
                rows_of_period.Set(columns[i], row.amounts[i].Count());
            }
        }
        rows_of_period.Move_Next();
    }
}

} // namespace morvane
