// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"
#include "statements/sections.h"
#include "statements/statement_panel.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace morvane {

/// How many characters the caption of an account can have.
inline constexpr std::size_t account_name_length = 50;

/// One line of a statement screen. Amounts are yen; a Null is blank.
struct Statement_Row {
    int code = 0;
    Value name;               ///< 建設科目名
    Value amount;             ///< 金額
    Value debit = {};         ///< 借方
    Value credit = {};        ///< 貸方
    Value balance = {};       ///< 改善後残高, computed
    std::string sign;         ///< △ beside a deduction
    bool name_open = false;   ///< the caption can be keyed
    bool amount_open = false; ///< what the section keys can be keyed; else it is computed
    bool debit_normal = false;
};

/// The amount of a row that a routine is about.
using Row_Amount = Value Statement_Row::*;

/// A section of the statements of the period in hand: its visible rows as they are keyed, and the panel that
/// follows them without a trip to the store, by the same sums that the store takes. Statement entry keys
/// captions and amounts of the rows, the journal their debits and credits, from which the balances follow.
class Statement_Section {
  public:
    /// Forms the totals of the period, in the journal from all balances formed anew, and loads it. So
    /// 改善後残高 is filled from 金額 where the journal is opened for the first time. Raises Store_Error.
    Statement_Section(Session& the_session, const Account_Section& the_section,
                      Section_Use the_use = Section_Use::Entry);

    [[nodiscard]] const std::vector<Statement_Row>& Rows() const { return rows; }
    [[nodiscard]] Statement_Panel Panel() const { return {form, book, Is_Journal() ? balance_column : 0}; }
    [[nodiscard]] const std::vector<Statement_Line>& Lines() const { return lines; }

    void Set_Name(std::size_t row, const Value& name) { rows.at(row).name = name; }

    /// An amount was keyed. Of a tangible asset its book value follows; the row that shows it is returned.
    std::optional<std::size_t> Set_Amount(std::size_t row, const Value& amount,
                                          Row_Amount of = &Statement_Row::amount);

    /// Forms all totals anew, after one or more amounts, with what the total rows show; in the journal also
    /// the balances of the rows.
    void Sec_Subtotals();

    /// Stores what was keyed into all rows, a blank as Null, and forms the totals of the period, in one
    /// transaction: amounts never stand beside totals that do not hold them. The journal settles the stored
    /// scores of the improved scenario in it, where that was started. Raises Store_Error; Run_Time_Error
    /// where the journal makes an improved score impossible.
    void Save_Rows() const;

    /// Leaves the section: stores it unless it is thrown away, which the journal never does, and forms the
    /// balances after the journal anew, all in one transaction. Raises as Save_Rows.
    void Close(bool save) const;

    /// Y from what has been keyed so far: refuses incomplete or unbalanced statements with a box, asks, and
    /// stores. True when Y may be shown. Raises Store_Error.
    bool Y_Disp() const;

  private:
    static constexpr std::size_t balance_column = 2; ///< of a journal book

    [[nodiscard]] bool Is_Journal() const { return use == Section_Use::Journal; }
    /// The amounts of a row that the columns of the book hold.
    [[nodiscard]] std::span<const Row_Amount> Columns() const;
    void Form_Totals();
    void Store_Rows(const Connection& cn) const;
    void Load_Rows(const Connection& cn);
    void Find_Book_Values(int data_form);
    void Zan_Calc(Statement_Row& row) const;
    void Up_Subtotals();
    void Lay_Totals();
    void Lay_Amount(std::size_t row, const Value& amount, Row_Amount of);
    void Lay_Book_Value(std::size_t cost, Row_Amount of);
    /// The row of the cost whose book value a row has part in.
    [[nodiscard]] std::optional<std::size_t> Cost_Row(std::size_t row) const;
    /// Whether a row is a total: neither keyed nor a book value.
    [[nodiscard]] bool Is_Total(std::size_t row) const {
        return !rows[row].amount_open && !Cost_Row(row).has_value();
    }

    Session* session;
    const Account_Section* section;
    Section_Use use;
    unsigned form;
    Account_Book book;
    std::vector<Statement_Row> rows;
    std::vector<std::size_t> cost_rows; ///< a depreciation and a book value behind each
    std::vector<Statement_Line> lines;
};

/// Throws all debits and credits of the period in hand away and forms its improved balances anew, in one
/// transaction, as Statement_Section::Save_Rows does. Raises as that.
void Clear_Journal(const Session& session);

/// The caption of the display unit. Amounts are yen whatever it says.
const char* Unit_Caption(const Session& session);

} // namespace morvane
