// SPDX-FileCopyrightText: The Morvane developers
#include "app/frm_dtselect.h"

#include "app/start_up.h"
#include "session/boxes.h"
#include "session/save_or_stay.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace morvane {

Frm_DtSelect::Frm_DtSelect(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_DtSelect"), QStringLiteral("データ選択（初期設定）")) {
    auto* section = new Section_Box(QStringLiteral("使用するデータ"));
    auto* text =
        new QLabel(QStringLiteral("建設業財務諸表の様式に合わせて、使用するデータを選択してください。\n"
                                  "選択は、最初の起動時に一度だけ行います。"));
    section->body->addWidget(text);
    auto* choices = new QGridLayout;
    const auto add = [&](const char* name, const char* caption, const char* hint) {
        const int column = choices->count() / 2; // a button and its hint in each
        auto* button = new QPushButton(QString::fromUtf8(caption));
        button->setObjectName(QString::fromLatin1(name));
        theme::Set_Look(button, "choice");
        button->setAutoDefault(false);
        auto* label = new QLabel(QString::fromUtf8(hint));
        theme::Set_Look(label, "muted");
        label->setAlignment(Qt::AlignCenter);
        choices->addWidget(button, 0, column);
        choices->addWidget(label, 1, column);
        return button;
    };
    QPushButton* hokkaido = add("Cmd_Do", "北海道版", "北海道知事許可の様式");
    QPushButton* national = add("Cmd_Kanto", "全国版", "国土交通大臣・他の都府県知事許可の様式");
    int widest = 0;
    for (int i = 0; i < choices->count(); ++i) {
        widest = std::max(widest, choices->itemAt(i)->widget()->sizeHint().width());
    }
    for (int column = 0; column < choices->columnCount(); ++column) {
        choices->setColumnMinimumWidth(column, widest);
    }
    section->body->addSpacing(8);
    section->body->addLayout(choices);
    body->addWidget(section);
    Add_Help_Button();
    QPushButton* cancel = Add_Button(QStringLiteral("Cmd_Cancel"), QStringLiteral("キャンセル"));
    Wire(hokkaido, &QPushButton::clicked, [this] {
        Choose("北海道版データ設定確認", "「北海道版」のデータが選択されました。よろしいですか？",
               Edition::Hokkaido);
    });
    Wire(national, &QPushButton::clicked, [this] {
        Choose("全国版データ設定確認", "「全国版」のデータが選択されました。よろしいですか？",
               Edition::National);
    });
    connect(cancel, &QPushButton::clicked, this, &Form::reject);
}

void Frm_DtSelect::Choose(const std::string& title, const std::string& text, Edition edition) {
    if (Ask(shell.session, title, text)) {
        const auto choose = [&] { Choose_Edition(shell.session.App_Path, edition); };
        if (Save_Or_Back(shell.session, choose, {.what = "選択したデータ"})) {
            accept();
        }
    }
}

bool Frm_DtSelect::May_Close() {
    return Ask(shell.session, "初期設定中止確認",
               "「Morvane」のデータ選択（初期設定）を行わず終了します。"
               "次回起動時に再度この設定画面が表示されます。");
}

} // namespace morvane
