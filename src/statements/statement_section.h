// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"
#include "statements/sections.h"
#include "statements/statement_panel.h"

#include <optional>
#include <string>
#include <vector>

namespace morvane {

/// How many characters the caption of an account can have.
inline constexpr std::size_t account_name_length = 50;

/// One line of a statement screen.
struct Statement_Row {
    int code = 0;
    Value name;               ///< 建設科目名
    Value amount;             ///< 金額, yen; Null is blank
    std::string sign;         ///< △ beside a deduction
    bool name_open = false;   ///< the caption can be keyed
    bool amount_open = false; ///< the amount can be keyed; else it is computed
};

/// A section of the statements of the period in hand: its visible rows as they are keyed, and the panel that
/// follows them without a trip to the store, by the same sums that the store takes.
class Statement_Section {
  public:
    /// Forms the totals of the period and loads it. Raises Store_Error.
    Statement_Section(Session& the_session, const Account_Section& the_section);

    [[nodiscard]] const std::vector<Statement_Row>& Rows() const { return rows; }
    [[nodiscard]] Statement_Panel Panel() const { return {form, book}; }
    [[nodiscard]] const std::vector<Statement_Line>& Lines() const { return lines; }

    void Set_Name(std::size_t row, const Value& name) { rows.at(row).name = name; }

    /// An amount was keyed. Of a tangible asset its book value follows; the row that shows it is returned.
    std::optional<std::size_t> Set_Amount(std::size_t row, const Value& amount);

    /// Forms all totals anew, after one or more amounts.
    void Sec_Subtotals() { book.Form_Totals(form); }

    /// Stores captions and amounts of all rows, a blank as Null, and forms the totals of the period, in one
    /// transaction: amounts never stand beside totals that do not hold them. Raises Store_Error.
    void Save_Rows() const;

    /// Leaves the section: stores it unless it is thrown away, and forms the balances after the journal anew,
    /// all in one transaction. Raises Store_Error.
    void Close(bool save) const;

    /// Y from what has been keyed so far: refuses incomplete or unbalanced statements with a box, asks, and
    /// stores. True when Y may be shown. Raises Store_Error.
    bool Y_Disp() const;

  private:
    void Store_Rows(const Connection& cn) const;
    void Load_Rows(const Connection& cn);
    void Lay_Amount(std::size_t row, const Value& amount);
    void Lay_Book_Value(std::size_t cost);
    /// The row of the cost whose book value a row has part in.
    [[nodiscard]] std::optional<std::size_t> Cost_Row(std::size_t row) const;

    Session& session;
    const Account_Section& section;
    unsigned form;
    Account_Book book;
    std::vector<Statement_Row> rows;
    std::vector<std::size_t> cost_rows; ///< a depreciation and a book value behind each
    std::vector<Statement_Line> lines;
};

/// The caption of the display unit. Amounts are yen whatever it says.
const char* Unit_Caption(const Session& session);

} // namespace morvane
