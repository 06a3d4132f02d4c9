// SPDX-FileCopyrightText: The Morvane developers
#include "statements/saving_form.h"

#include "session/boxes.h"
#include "session/save_or_stay.h"
#include "widgets/entry_grid.h"
#include "widgets/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

namespace morvane {

Saving_Form::Saving_Form(Shell_Port& shell_port, const QString& name, const QString& title, std::string work,
                         On_Cancel what_canseru_does)
    : Form(shell_port, name, title), edited_work(std::move(work)), on_cancel(what_canseru_does) {
    if (auto* sub_title = findChild<QLabel*>(QStringLiteral("Lbl_SubTitle"))) {
        theme::Set_Look(sub_title, "heading");
    }
}

void Saving_Form::Follow(Entry_Grid* grid) {
    grids.push_back(grid);
}

void Saving_Form::Add_Closing_Buttons() {
    QPushButton* cancel = Add_Button(QStringLiteral("Canseru"), QStringLiteral("ｷｬﾝｾﾙ"));
    QPushButton* close = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    close->setToolTip(QStringLiteral("入力した内容を保存して閉じます。"));
    cancel->setToolTip(on_cancel == On_Cancel::Throw_Away
                           ? QStringLiteral("入力した内容を保存しないで閉じます。")
                           : QStringLiteral("確認してから閉じます。入力した仕訳は保存されます。"));
    Wire(cancel, &QPushButton::clicked, [this] { Cancel(); });
    connect(close, &QPushButton::clicked, this, &Saving_Form::reject);
}

QHBoxLayout* Saving_Form::Add_Unit_Line(const QString& unit, const QString& note) {
    auto* line = new QHBoxLayout;
    line->setSpacing(theme::panel_gap);
    auto* Tani = new QLabel(unit);
    Tani->setObjectName(QStringLiteral("Tani"));
    auto* note_label = new QLabel(note);
    theme::Set_Look(note_label, "muted");
    line->addWidget(Tani, 0, Qt::AlignTop);
    line->addWidget(note_label, 1, Qt::AlignTop);
    body->addLayout(line);
    return line;
}

void Saving_Form::Cancel() {
    bool gives_up = false;
    shell.Guard([&] {
        gives_up = Ask(shell.session, "編集破棄確認",
                       "編集中の" + edited_work +
                           "を保存せずに終了します。\n編集内容は保存されません。よろしいですか？");
    });
    if (gives_up) {
        saving = on_cancel == On_Cancel::Store_All_The_Same;
        reject();
        saving = true;
    }
}

bool Saving_Form::May_Close() {
    // A text that is no number has gone back to the former value: the user looks at it first.
    if (saving &&
        !std::all_of(grids.begin(), grids.end(), [](Entry_Grid* grid) { return grid->Finish_Entry(); })) {
        return false;
    }
    return Save_Or_Stay(shell.session, [this] { Store(saving); }) != Save_End::Stay;
}

} // namespace morvane
