// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "statements/account_book.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace morvane {

enum class Panel_Group : std::uint8_t { Assets, Liabilities, Profit, Check };

/// Where a line of totals stands: in the panel beside a statement screen, in the balance check of the
/// journal.
namespace line_view {
inline constexpr unsigned panel = 1;
inline constexpr unsigned balance_check = 2;
} // namespace line_view

/// A line of totals: figures added and subtracted, under the name of its control.
struct Statement_Line {
    const char* control;
    const char* caption;
    Panel_Group group;
    unsigned when;
    std::array<Book_Term, 4> figures;
    bool is_sum = false; ///< closes the lines above it
    unsigned views = line_view::panel | line_view::balance_check;
    const char* in_check = nullptr; ///< the control of the balance check, where its name is another
};

/// The lines of a view that a firm of that form sees, in order.
std::vector<Statement_Line> Statement_Lines(unsigned form, unsigned view = line_view::panel);

/// What the label of a check says.
const char* Check_Text_Of(bool holds, bool corporation);

/// The totals of a whole period beside the section that is keyed: a look at its book, which must outlive it.
class Statement_Panel {
  public:
    /// The check reads one column of the book.
    Statement_Panel(unsigned firm_form, const Account_Book& the_book, std::size_t checked_column = 0)
        : form(firm_form), book(the_book), column(checked_column) {}

    /// A line in all columns of the book.
    [[nodiscard]] Amounts Shown(const Statement_Line& line) const;

    /// Whether the balance sheet and the income statement agree, to the yen. Of a corporation: retained
    /// earnings carried forward and profit come to the retained earnings and the change of equity.
    [[nodiscard]] bool Check() const;

    /// What the check label says.
    [[nodiscard]] const char* Check_Text() const;

    /// Whether there are a total capital, fixed assets and a gross profit (of an individual: completed work),
    /// without which Y has no figures.
    [[nodiscard]] bool Is_Complete() const;

    /// Whether Y may be computed: only a corporation's statements must balance.
    [[nodiscard]] bool May_Compute_Y() const;

  private:
    [[nodiscard]] bool Is_Corporation() const { return (form & statement_form::corporation) != 0; }

    [[nodiscard]] Yen Figure(Account account) const { return book[account][column]; }

    unsigned form;
    const Account_Book& book;
    std::size_t column;
};

} // namespace morvane
