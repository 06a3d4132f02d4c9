// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_kszaihyo.h"

#include "session/save_or_stay.h"
#include "widgets/entry_grid.h"
#include "widgets/note_button.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace morvane {

namespace {

// Beside the panel the captions need room to be read.
constexpr int narrowest_grid = 332;
constexpr auto layouts = std::to_array<Panel_Layout>({
    {2, 286, narrowest_grid},
    {2, 262, narrowest_grid, "QLabel { font-size: 9.5pt; }"},
    {1, 286, narrowest_grid},
});

constexpr Statement_Look entry_look = {
    .columns = {.name = "Kamk", .amounts = {{{"Gaku", "金額"}}}, .signs = true},
    .amounts = {&Statement_Row::amount},
    .layouts = layouts,
    .widest_grid = 620,
    .characters = 10,
};

/// The section that the menu has chosen.
const Account_Section& Section_Of(const Open_Screen& screen) {
    const Account_Section* section = Section_Of_Screen(screen.number);
    return section == nullptr ? account_sections.front() : *section;
}

} // namespace

Frm_KsZaihyo::Frm_KsZaihyo(Shell_Port& shell_port)
    : Statement_Form(shell_port,
                     shell_port.session.Is_Corporation() ? QStringLiteral("Frm_KsZaihyo")
                                                         : QStringLiteral("Frm_KsZaihyoKJ"),
                     QStringLiteral("建設財務諸表"), entry_look,
                     {shell_port.session, Section_Of(shell_port.menu.screen)}) {
    Set_Sub_Title(QString::fromStdString(shell.menu.screen.title));
    Add_Unit_Line(QString::fromUtf8(Unit_Caption(shell.session)),
                  QStringLiteral("金額は、「円単位」で入力してください。"
                                 "全ての財務データより計算するために必要です。"));
    Add_Fields();
    Add_Buttons();
}

void Frm_KsZaihyo::Add_Buttons() {
    Add_Help_Button();
    Add_Menu_Button();
    buttons->insertWidget(2, new Note_Button(shell));
    QPushButton* Y_Disp = Add_Button(QStringLiteral("Y_Disp"), QStringLiteral("Ｙ点試算"));
    Add_Closing_Buttons();
    Wire(Y_Disp, &QPushButton::clicked, [this] {
        bool opens = false;
        if (grid->Finish_Entry() &&
            Save_Or_Back(shell.session, [this, &opens] { opens = section.Y_Disp(); }) && opens) {
            shell.Open_Form(QStringLiteral("Frm_YSisan"));
        }
        grid->setFocus(Qt::OtherFocusReason); // the keying goes on where it was
    });
}

} // namespace morvane
