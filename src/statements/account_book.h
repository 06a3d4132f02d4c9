// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"
#include "law/accounts.h"
#include "law/quantity.h"

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// The classes of accounts (科目分類識別) that totals are formed of. A row of any other class enters none.
enum class Account_Class : std::uint8_t {
    None,
    Rds,   ///< 流動資産
    Yks,   ///< 有形固定資産
    Mks,   ///< 無形固定資産
    Tst,   ///< 投資その他の資産
    Kns,   ///< 繰延資産
    Rdf,   ///< 流動負債
    Ktf,   ///< 固定負債
    Hjk,   ///< 資本金・資本剰余金
    Rjk,   ///< 利益剰余金
    Jsg,   ///< 自己株式・申込証拠金
    Hks,   ///< 評価・換算差額等
    Skabu, ///< 新株予約権
    Kku,   ///< 完成工事高, Hokkaido chart
    Kku_u, ///< 完成工事高, national chart
    Knu,   ///< 兼業事業売上高, Hokkaido chart
    Knu_u, ///< 兼業事業売上高, national chart
    Kkg,   ///< 完成工事原価
    Kgu,   ///< 経費 of the cost of completed work, Hokkaido chart
    KugG,  ///< 兼業事業売上原価: goods at the start, bought and made
    KugT,  ///< 兼業事業売上原価: goods at the end
    SguH,  ///< 製造原価: input
    SguT,  ///< 製造原価: unfinished goods at the end
    Ipk,   ///< 販売費及び一般管理費
    Egs,   ///< 営業外収益
    Egh,   ///< 営業外費用
    Tbr,   ///< 特別利益
    Tbs,   ///< 特別損失
    SesT,  ///< 法人税等
    Count
};

/// Amounts of up to three columns of an account that are summed side by side.
struct Amounts {
    static constexpr std::size_t most = 3;
    std::array<Yen, most> of{};

    [[nodiscard]] Yen operator[](std::size_t column) const { return of[column]; }
    Amounts& operator+=(const Amounts& other);
    Amounts& operator-=(const Amounts& other);
};

/// A class sum or an amount that a total adds or, after a minus, subtracts.
struct Book_Term {
    constexpr Book_Term() = default;
    constexpr Book_Term(Account_Class sum) : of_class(sum) {}
    constexpr Book_Term(Account figure) : account(figure) {}

    Account_Class of_class = Account_Class::None;
    Account account{-1}; ///< what was formed of it before; else the amount of its row
    bool minus = false;

    [[nodiscard]] constexpr bool Is_Empty() const {
        return of_class == Account_Class::None && Code(account) < 0;
    }
};
constexpr Book_Term operator-(Book_Term term) {
    term.minus = !term.minus;
    return term;
}
constexpr Book_Term operator-(Account account) {
    return -Book_Term(account);
}
constexpr Book_Term operator-(Account_Class sum) {
    return -Book_Term(sum);
}

/// What decides which accounts, captions and totals a firm's statements have. A table's row applies where the
/// firm has all bits of the row.
namespace statement_form {
inline constexpr unsigned any = 0;
inline constexpr unsigned corporation = 1; ///< 様式第15号, 第16号
inline constexpr unsigned individual = 2;  ///< 様式第18号, 第19号
inline constexpr unsigned national = 4;    ///< national edition of the chart
inline constexpr unsigned hokkaido = 8;    ///< Hokkaido edition
} // namespace statement_form

/// The bits that a firm has.
constexpr unsigned Statement_Form_Of(Firm_Kind kind) {
    return (kind.Is_Corporation() ? statement_form::corporation : statement_form::individual) |
           (kind.Is_Hokkaido() ? statement_form::hokkaido : statement_form::national);
}

/// Whether a table's row applies to a firm.
constexpr bool Applies(unsigned row, unsigned form) {
    return (row & form) == row;
}

/// Whether rows that are not shown enter the sums.
enum class Hidden_Rows : std::uint8_t { Left_Out, Counted };

/// The rows of a period with the amounts of one to three columns, in yen, and the totals that follow from
/// them. It is read once, changed and summed in memory, and writes back what has changed.
class Account_Book {
  public:
    /// Columns of Ks_Zaihyo, the first ones of Amounts; empty ones stay 0.
    using Columns = std::array<std::string_view, Amounts::most>;

    /// The columns that the journal moves; those of a saved scenario have its number behind their names.
    static constexpr Columns journal = {"借方", "貸方", "改善後残高"};

    Account_Book() = default;

    /// Reads a period; Null is 0. Raises Store_Error.
    Account_Book(const Connection& cn, int period, const Columns& names, Hidden_Rows hidden_rows);

    /// Reads rows in memory, by ascending code.
    Account_Book(Recordset& rows_of_period, const Columns& names, Hidden_Rows hidden_rows);

    /// The amounts of a total that was formed, else those of the row; without a row 0.
    [[nodiscard]] Amounts operator[](Account account) const;

    /// The terms added up: totals, rows and, once the totals were formed, classes.
    [[nodiscard]] Amounts Sum(std::span<const Book_Term> terms) const;

    /// Assigns the amount of a row in one column; without the row nothing happens.
    void Put(int code, std::size_t column, Yen amount);

    /// Forms 改善後残高 of each row of a journal book from 金額, 借方 and 貸方.
    void Form_Balances();

    /// Forms the book values that have an amount from cost and depreciation, by the data form of the period.
    void Form_Book_Values(int data_form);

    /// Forms all subtotals and totals and puts them into their rows. Where no row enters a sum everything
    /// stays. The balance sheet (様式第15号, 個人様式第18号) balances because row 281 is the remainder.
    void Form_Totals(unsigned form);

    /// Writes the assigned amounts that differ from what the store holds, so that a statement that adds up is
    /// not written again. To be called inside a transaction. Raises Store_Error.
    void Store(const Connection& cn) const;

    /// The same into the rows in memory that it was read from.
    void Store(Recordset& rows_of_period) const;

  private:
    struct Cell {
        Yen stored;
        bool is_number = false; ///< the store holds neither Null nor a text
        bool assigned = false;
    };
    struct Row {
        int code = 0;
        Account_Class of_class = Account_Class::None;
        bool summed = false;     ///< 集計識別, and shown or counted all the same
        bool subtracted = false; ///< 内部処理正負
        bool debit_normal = false;
        Yen current; ///< 金額
        Amounts amounts;
        std::array<Cell, Amounts::most> cells;

        void Put(std::size_t column, Yen amount);
        [[nodiscard]] bool Differs(std::size_t column) const;
    };
    using Class_Sums = std::array<Amounts, static_cast<std::size_t>(Account_Class::Count)>;

    void Read(Recordset& from, Hidden_Rows hidden_rows);
    [[nodiscard]] const Row* Find(int code) const;
    void Sum_Classes();
    [[nodiscard]] bool Is_Journal() const { return columns.front().starts_with(journal.front()); }

    int of_period = 0;
    Columns columns;
    std::size_t column_count = 0;
    std::vector<Row> rows; ///< by code
    Class_Sums sums{};
    std::map<Account, Amounts> totals;
};

/// The balance after the journal of an account, in yen: a debit-normal account rises by a debit. The owner's
/// drawings turn their sign, deliberately, since they lower the capital.
Yen Improved_Balance(Account account, bool debit_normal, Yen amount, Yen debit, Yen credit);

/// The same as the screen of the journal shows it: there two lines of the oldest appropriation of profit turn
/// their sign as the drawings do.
Yen Shown_Balance(Account account, bool debit_normal, Yen amount, Yen debit, Yen credit);

} // namespace morvane
