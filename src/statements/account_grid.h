// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "statements/prior_figures.h"
#include "widgets/shell_port.h"

#include <array>

namespace morvane {

class Entry_Grid;

/// The width of amounts in half-width characters, where there is room.
inline constexpr int account_amount_width = 13;

/// A column of amounts of an account grid.
struct Account_Amount {
    const char* name = nullptr; ///< control array
    const char* heading = "";
    bool keyed = true; ///< else it is only shown
};

/// The columns of an account grid: captions, and amounts up to the first one without a name.
struct Account_Columns {
    const char* name; ///< control array of the captions
    std::array<Account_Amount, 4> amounts;
    bool signs = false; ///< with the mark of a deduction between them (sanka)
    bool names_keyed = true;
};

/// The columns of an account grid.
enum Account_Column : int { kamk = 0, gaku = 1, gaku_behind_sign = 2 };

/// A grid of accounts: captions and amounts. Enter, Down and Up go round in the column; Ctrl+Right from an
/// amount goes to the caption of the row before. Where captions are not keyed, Enter goes from amount to
/// amount along the rows. Refused cells of a paste are told in one box.
Entry_Grid* Make_Account_Grid(Shell_Port& shell, const Account_Columns& columns, int rows);

/// Shows accounts whose captions cannot be keyed, in a grid without signs, with nothing to undo.
void Fill_Accounts(Entry_Grid& grid, const std::vector<Prior_Row>& rows);

} // namespace morvane
