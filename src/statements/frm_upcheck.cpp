// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_upcheck.h"

#include "statements/up_check.h"
#include "widgets/theme.h"
#include "widgets/total_panel.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

namespace morvane {

namespace {

/// A panel of the window and the column that it stands in.
struct Group {
    Panel_Group group;
    const char* heading;
    std::size_t column;
};
constexpr std::array<Group, 4> groups = {{
    {Panel_Group::Assets, "資産", 0},
    {Panel_Group::Liabilities, "負債・純資産", 0},
    {Panel_Group::Profit, "損益", 1},
    {Panel_Group::Check, "チェック", 1},
}};

constexpr int characters = 10; ///< of a figure at least; a longer one takes its room

Total_Panel* Make_Panel(const Up_Check& check, const Group& group) {
    std::vector<Total_Field> fields;
    for (const Statement_Line& line : check.Lines()) {
        if (line.group == group.group) {
            fields.push_back({line.control, line.caption,
                              line.is_sum ? Total_Field::Line::Sum : Total_Field::Line::Figure});
        }
    }
    const bool has_mark = group.group == Panel_Group::Check;
    if (has_mark) {
        fields.push_back({"Check", "", Total_Field::Line::Check});
    }
    auto* panel = new Total_Panel(QString::fromUtf8(group.heading), fields, characters,
                                  {{"改善後 金額", "改善前 金額"}, &Up_Check::Control});
    for (const Statement_Line& line : check.Lines()) {
        if (line.group == group.group) {
            const Amounts amounts = check.Shown(line);
            for (const std::size_t column : {0, 1}) {
                panel->Set_Value(line.control, amounts[column].Count(), column);
            }
        }
    }
    if (has_mark) {
        panel->Set_Check("Check", check.Check(), QString::fromUtf8(check.Check_Text()));
    }
    return panel;
}

} // namespace

Frm_UPCheck::Frm_UPCheck(Shell_Port& shell_port)
    : Form(shell_port,
           shell_port.session.Is_Corporation() ? QStringLiteral("Frm_UPCheck")
                                               : QStringLiteral("Frm_UPCheckKJ"),
           QStringLiteral("財務改善バランスチェック")) {
    const Up_Check check(shell.session);
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::panel_gap);
    std::array<QVBoxLayout*, 2> columns{};
    for (QVBoxLayout*& column : columns) {
        column = new QVBoxLayout;
        column->setSpacing(theme::grid * 2);
        row->addLayout(column);
    }
    for (const Group& group : groups) {
        columns.at(group.column)->addWidget(Make_Panel(check, group));
    }
    for (QVBoxLayout* column : columns) {
        column->addStretch(1);
    }
    body->addLayout(row);
    Add_Help_Button();
    QPushButton* Tojiru = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    connect(Tojiru, &QPushButton::clicked, this, &Frm_UPCheck::reject);
    Tojiru->setFocus();
}

} // namespace morvane
