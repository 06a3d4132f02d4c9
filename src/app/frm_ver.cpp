// SPDX-FileCopyrightText: The Morvane developers
#include "app/frm_ver.h"

#include "widgets/section_box.h"
#include "widgets/theme.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

Frm_Ver::Frm_Ver(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_Ver"), QStringLiteral("バージョン情報")) {
    const Session& session = shell.session;
    auto* row = new QHBoxLayout;
    row->setSpacing(20);
    auto* picture = new QLabel;
    picture->setPixmap(QIcon(QStringLiteral(":/morvane.svg")).pixmap(96, 96));
    row->addWidget(picture, 0, Qt::AlignTop);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(6);
    const auto add = [&](const char* name, const QString& text, bool heading = false) {
        auto* label = new QLabel(text);
        label->setObjectName(QString::fromLatin1(name));
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        if (heading) {
            theme::Set_Look(label, "title");
        }
        lines->addWidget(label);
    };
    add("Lbl_Name", session.Is_Multi() ? QStringLiteral("MorvanePlus") : QStringLiteral("Morvane"), true);
    add("Lbl_Version", QStringLiteral("Version " MORVANE_VERSION));
    add("Lbl_Edition", QString::fromStdString(session.Todofuken_Mei + " 版"));
    lines->addSpacing(8);
    add("Lbl_User", QString::fromStdString("利 用 者：" +
                                           (session.Is_Multi() ? session.Office_Name : session.Jigyo_Name)));
    add("Lbl_UserID", QString::fromStdString("ユーザーID：" + session.User_ID));
    row->addLayout(lines, 1);
    body->addLayout(row);
    setMinimumWidth(440);
    QPushButton* settings =
        Add_Button(QStringLiteral("Cmd_Settei"), QStringLiteral("事務所・通信設定"), nullptr, true);
    Wire(settings, &QPushButton::clicked, [this] { shell.Open_Form(QStringLiteral("Frm_Settei")); });
    QPushButton* close = Add_Button(QStringLiteral("Cmd_Cancel"), QStringLiteral("閉じる"), "primary");
    connect(close, &QPushButton::clicked, this, &Form::reject);
    close->setFocus();
}

} // namespace morvane
