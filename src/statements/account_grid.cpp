// SPDX-FileCopyrightText: The Morvane developers
#include "statements/account_grid.h"

#include "session/boxes.h"
#include "statements/statement_section.h"
#include "widgets/entry_grid.h"

namespace morvane {

Entry_Grid* Make_Account_Grid(Shell_Port& shell, const Account_Columns& columns, int rows) {
    std::vector<Grid_Column> grid_columns = {{.name = columns.name,
                                              .heading = "勘定科目",
                                              .use = columns.names_keyed ? Cell_Use::Entry : Cell_Use::Shown,
                                              .kind = Entry_Kind::Text,
                                              .width = 0,
                                              .max_length = static_cast<int>(account_name_length)}};
    if (columns.signs) {
        grid_columns.push_back({.name = "sanka",
                                .use = Cell_Use::Shown,
                                .kind = Entry_Kind::Text,
                                .width = columns.names_keyed ? 2 : 1,
                                .align = Qt::AlignCenter,
                                .in_blocks = false});
    }
    for (const Account_Amount& amount : columns.amounts) {
        if (amount.name != nullptr) {
            grid_columns.push_back({.name = amount.name,
                                    .heading = amount.heading,
                                    .use = amount.keyed ? Cell_Use::Entry : Cell_Use::Shown,
                                    .width = account_amount_width});
        }
    }
    auto* grid = new Entry_Grid(std::move(grid_columns), rows);
    grid->Set_Keys({.wrap = Grid_Wrap::Same_Column,
                    .enter_along_row = !columns.names_keyed,
                    .row_step_at_right = columns.names_keyed ? -1 : 1});
    grid->on_refused = [&shell, grid](const std::vector<Paste_Refused>& refused) {
        shell.Guard([&] { Tell(shell.session, "貼り付けエラー", grid->Refusal_Text(refused)); });
    };
    return grid;
}

void Fill_Accounts(Entry_Grid& grid, const std::vector<Prior_Row>& rows) {
    grid.Set_Row_Count(static_cast<int>(rows.size()));
    std::vector<std::vector<std::string>> names;
    for (const Prior_Row& account : rows) {
        const auto row = static_cast<int>(names.size());
        grid.Set_Value(row, kamk, account.name);
        grid.Set_Value(row, gaku, account.amount);
        grid.Set_Locked(row, kamk, true);
        names.push_back({account.name});
    }
    grid.Set_Captions({}, names);
    grid.Go_To(0, gaku);
}

} // namespace morvane
