// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "statements/prior_figures.h"
#include "widgets/shell_port.h"

namespace morvane {

class Entry_Grid;

/// What a column of amounts is called and headed.
struct Account_Columns {
    const char* name;   ///< control array of the captions
    const char* amount; ///< control array of the amounts
    const char* amount_heading;
    bool signs = false; ///< with the mark of a deduction between them (sanka)
};

/// The columns of an account grid.
enum Account_Column : int { kamk = 0, gaku = 1, gaku_behind_sign = 2 };

/// A grid of accounts: captions and amounts. Enter, Down and Up go round in the column; Ctrl+Right from an
/// amount goes to the caption of the row before. Refused cells of a paste are told in one box.
Entry_Grid* Make_Account_Grid(Shell_Port& shell, const Account_Columns& columns, int rows);

/// Shows accounts whose captions cannot be keyed, in a grid without signs, with nothing to undo.
void Fill_Accounts(Entry_Grid& grid, const std::vector<Prior_Row>& rows);

} // namespace morvane
