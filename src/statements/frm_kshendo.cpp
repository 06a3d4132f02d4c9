// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_kshendo.h"

#include "statements/account_grid.h"
#include "widgets/entry_grid.h"
#include "widgets/note_button.h"
#include "widgets/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace morvane {

Frm_KsHendo::Frm_KsHendo(Shell_Port& shell_port)
    : Saving_Form(shell_port, QStringLiteral("Frm_KsHendo"), QStringLiteral("建設財務諸表"),
                  "前期建設財務諸表"),
      grid(Make_Account_Grid(shell_port, {"Kamk", {{{"Gaku", "当期変動額合計"}}}}, 1)) {
    Set_Sub_Title(QString::fromStdString(shell.menu.screen.title));
    Add_Unit_Line(QStringLiteral("単位：円"), {});
    grid->setMaximumWidth(460);
    grid->setMaximumHeight(grid->sizeHint().height());
    body->addWidget(grid);
    auto* note = new QLabel(QStringLiteral(
        "資本等変動計算書の当期変動額合計を入力してください。財務データ入力画面のチェック欄に転記されます。\n"
        "（この金額は、点数計算には関係しません。）"));
    theme::Set_Look(note, "muted");
    body->addWidget(note);
    body->addStretch(1);
    Follow(grid);
    Fill_Accounts(*grid, {Load_Equity_Change(shell.session)});
    setFocusProxy(grid);
    Add_Help_Button();
    buttons->insertWidget(1, new Note_Button(shell));
    Add_Closing_Buttons();
}

void Frm_KsHendo::Store(bool save) {
    if (save) {
        Save_Equity_Change(shell.session, grid->Get_Value(0, gaku));
    }
}

} // namespace morvane
