// SPDX-FileCopyrightText: The Morvane developers
#include "app/frm_hpopen.h"

#include "session/boxes.h"
#include "session/install_info.h"
#include "session/kyotu_mod.h"
#include "session/network_settings.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

namespace {

constexpr const char* user_page_path = "/UserPage/user_page.php";

} // namespace

Frm_HpOpen::Frm_HpOpen(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_HpOpen"), QStringLiteral("「Morvane」ホームページ")) {
    const Install_Info info = Read_Install_Info(shell.session.App_Path);
    const std::string address = Page_Address(info.network.user_page, user_page_path);
    auto* section = new Section_Box(QStringLiteral("利用者ページ"));
    section->body->addWidget(new QLabel(QStringLiteral("「Morvane」の利用者ページをブラウザで開きます。")));
    auto* shown = new QLabel(address.empty() ? QStringLiteral("利用者ページのアドレスが設定されていません。"
                                                              "［事務所・通信設定］で設定してください。")
                                             : QString::fromStdString(address));
    shown->setObjectName(QStringLiteral("Lbl_Address"));
    shown->setTextFormat(Qt::PlainText);
    theme::Set_Look(shown, "muted");
    section->body->addWidget(shown);
    body->addWidget(section);
    setMinimumWidth(480);
    Add_Help_Button();
    QPushButton* settings =
        Add_Button(QStringLiteral("Cmd_Settei"), QStringLiteral("事務所・通信設定"), nullptr, true);
    QPushButton* open = Add_Button(QStringLiteral("Cmd_Sousin"), QStringLiteral("ページを開く"), "primary");
    open->setEnabled(!address.empty());
    QPushButton* cancel = Add_Button(QStringLiteral("Cmd_Cancel"), QStringLiteral("閉じる"));
    Wire(settings, &QPushButton::clicked, [this] {
        shell.Open_Form(QStringLiteral("Frm_Settei"));
        Close_Form();
    });
    Wire(open, &QPushButton::clicked, [this, address] { Open_Page(address); });
    connect(cancel, &QPushButton::clicked, this, &Form::reject);
}

void Frm_HpOpen::Open_Page(const std::string& address) {
    const auto told = [this, address](bool opened) {
        if (opened) {
            Close_Form();
            return;
        }
        Tell(shell.session, "確認メッセージ",
             "ブラウザを起動できませんでした。標準のブラウザの設定を確認してください。\n" + address);
    };
    Run_Beside(
        {.title = QStringLiteral("利用者ページ"),
         .message = QStringLiteral("ブラウザを起動しています…"),
         .can_be_left = true},
        [address](Progress&) { return Url_Open(address); }, told);
}

} // namespace morvane
