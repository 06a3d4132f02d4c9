// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_upcheck.h"

#include "statements/line_panels.h"
#include "statements/up_check.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

namespace {

constexpr int characters = 10; // a longer figure takes its room

} // namespace

Frm_UPCheck::Frm_UPCheck(Shell_Port& shell_port)
    : Form(shell_port,
           shell_port.session.Is_Corporation() ? QStringLiteral("Frm_UPCheck")
                                               : QStringLiteral("Frm_UPCheckKJ"),
           QStringLiteral("財務改善バランスチェック")) {
    const Up_Check check(shell.session);
    auto* panels =
        new Line_Panels(check.Lines(), characters, {{"改善後 金額", "改善前 金額"}, &Up_Check::Control});
    for (const Statement_Line& line : check.Lines()) {
        panels->Show_Line(line, check.Shown(line));
    }
    panels->Set_Check(check.Check(), check.Check_Text());
    body->addWidget(panels);
    Add_Help_Button();
    QPushButton* Tojiru = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    connect(Tojiru, &QPushButton::clicked, this, &Frm_UPCheck::reject);
    Tojiru->setFocus();
}

} // namespace morvane
