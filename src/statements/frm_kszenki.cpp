// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_kszenki.h"

#include "session/save_or_stay.h"
#include "statements/account_grid.h"
#include "widgets/entry_grid.h"
#include "widgets/note_button.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

namespace {

/// What tells the two blocks apart.
struct Block_Texts {
    Account_Columns columns;
    const char* heading;
    const char* button;
    const char* caption;
};
constexpr Block_Texts prior_texts = {{"Kamk", {{{"Gaku", "前期残高"}}}}, "前期", "Zen_Copy", "前期ﾃﾞｰﾀｺﾋﾟｰ"};
constexpr Block_Texts second_prior_texts = {
    {"ZKamk", {{{"ZGaku", "前々期残高"}}}}, "前々期", "ZZen_copy", "前々期ﾃﾞｰﾀｺﾋﾟｰ"};

constexpr const char* prior_work = "前期建設財務諸表";
constexpr int block_width = 460;

} // namespace

Frm_KsZenki::Frm_KsZenki(Shell_Port& shell_port)
    : Saving_Form(shell_port,
                  shell_port.session.Is_Corporation() ? QStringLiteral("Frm_KsZenki")
                                                      : QStringLiteral("Frm_KsZenkiKJ"),
                  QStringLiteral("建設財務諸表"), prior_work),
      figures(Load_Prior_Figures(shell_port.session)) {
    Set_Sub_Title(shell.session.Is_Corporation() ? QString::fromStdString(shell.menu.screen.title)
                                                 : QStringLiteral("前期関連データ"));
    body->setSpacing(theme::grid * 2);
    Add_Unit_Line(QStringLiteral("単位：円"),
                  QStringLiteral("空欄の科目は、保存されている金額のままになります。"));
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::panel_gap);
    row->addWidget(Add_Block(prior, figures.prior, false), 1, Qt::AlignTop);
    row->addWidget(Add_Block(second_prior, figures.second_prior, true), 1, Qt::AlignTop);
    row->addStretch(0);
    body->addLayout(row, 1);
    setFocusProxy(prior.grid);
    Add_Help_Button();
    buttons->insertWidget(1, new Note_Button(shell));
    Add_Closing_Buttons();
}

QWidget* Frm_KsZenki::Add_Block(Block& block, std::vector<Prior_Row>& rows, bool second) {
    const Block_Texts& texts = second ? second_prior_texts : prior_texts;
    auto* panel = new Section_Box(QString::fromUtf8(texts.heading));
    panel->setMaximumWidth(block_width);
    block.rows = &rows;
    block.grid = Make_Account_Grid(shell, texts.columns, static_cast<int>(rows.size()));
    block.grid->setMaximumHeight(block.grid->sizeHint().height());
    auto* copy = new QPushButton(QString::fromUtf8(texts.caption));
    copy->setObjectName(QString::fromUtf8(texts.button));
    copy->setAccessibleName(copy->text());
    copy->setAutoDefault(false);
    Wire(copy, &QPushButton::clicked, [this, second] { Copy(second); });
    panel->body->addWidget(block.grid, 1);
    panel->body->addWidget(copy, 0, Qt::AlignRight);
    panel->body->addStretch(0);
    Follow(block.grid);
    Fill(block);
    return panel;
}

void Frm_KsZenki::Fill(Block& block) {
    Fill_Accounts(*block.grid, *block.rows);
}

// What was keyed into the other block stays.
void Frm_KsZenki::Copy(bool second) {
    Save_Or_Back(shell.session,
                 [this, second] {
                     if (Copy_Prior_Figures(shell.session, second)) {
                         Prior_Figures copied = Load_Prior_Figures(shell.session);
                         Block& block = second ? second_prior : prior;
                         *block.rows = second ? copied.second_prior : copied.prior;
                         Fill(block);
                     }
                 },
                 {.what = "コピーした残高"});
}

void Frm_KsZenki::Store(bool save) {
    if (!save) {
        return;
    }
    for (const Block& block : {prior, second_prior}) {
        for (int row = 0; row < block.grid->Row_Count(); ++row) {
            (*block.rows)[static_cast<std::size_t>(row)].amount = block.grid->Get_Value(row, gaku);
        }
    }
    Save_Prior_Figures(shell.session, figures);
}

} // namespace morvane
