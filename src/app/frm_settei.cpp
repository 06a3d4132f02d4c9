// SPDX-FileCopyrightText: The Morvane developers
#include "app/frm_settei.h"

#include "company/office_mode.h"
#include "data/store_error.h"
#include "session/boxes.h"
#include "session/install_info.h"
#include "session/kyotu_mod.h"
#include "session/network_settings.h"
#include "session/progress.h"
#include "session/save_or_stay.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"
#include "widgets/window_placement.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace morvane {

namespace {

constexpr const char* security_hint = "０：なし　１：STARTTLS　２：TLS";

constexpr Field office_fields[] = {
    {.name = "Office_Name",
     .caption = "事務所名",
     .max_length = 60,
     .width = 60,
     .hint = "帳票に印刷します。"},
    {.name = "User_ID", .caption = "ユーザーID", .max_length = 30, .width = 30},
    {.name = "Office_Mode",
     .caption = "使い方",
     .kind = Entry_Kind::Choice,
     .width = 2,
     .hint = "１：自社で使う（1社）　２：事務所で使う（多数の事業所）",
     .choices = "12"},
};

constexpr Field smtp_fields[] = {
    {.name = "Smtp_Host", .caption = "送信サーバー（SMTP）", .max_length = 253, .width = 34},
    {.name = "Smtp_Port",
     .caption = "ポート番号",
     .kind = Entry_Kind::Digits,
     .max_length = 5,
     .width = 6,
     .label = "送信ポート番号"},
    {.name = "Smtp_Security",
     .caption = "暗号化",
     .kind = Entry_Kind::Choice,
     .width = 2,
     .hint = security_hint,
     .choices = "012",
     .label = "送信の暗号化"},
    {.name = "Smtp_User", .caption = "ユーザー名", .width = 34, .label = "送信ユーザー名"},
    {.name = "Smtp_Password",
     .caption = "パスワード",
     .width = 34,
     .label = "送信パスワード",
     .password = true},
    {.name = "Sender_Address", .caption = "差出人のメールアドレス", .max_length = 320, .width = 34},
    {.name = "Sender_Name", .caption = "差出人名", .max_length = 100, .width = 34},
    {.name = "Support_Mailbox", .caption = "送信先", .max_length = 320, .width = 34},
};

constexpr Field imap_fields[] = {
    {.name = "Imap_Host", .caption = "受信サーバー（IMAP）", .max_length = 253, .width = 34},
    {.name = "Imap_Port",
     .caption = "ポート番号",
     .kind = Entry_Kind::Digits,
     .max_length = 5,
     .width = 6,
     .label = "受信ポート番号"},
    {.name = "Imap_Security",
     .caption = "暗号化",
     .kind = Entry_Kind::Choice,
     .width = 2,
     .hint = security_hint,
     .choices = "012",
     .label = "受信の暗号化"},
    {.name = "Imap_User", .caption = "ユーザー名", .width = 34, .label = "受信ユーザー名"},
    {.name = "Imap_Password",
     .caption = "パスワード",
     .width = 34,
     .label = "受信パスワード",
     .password = true},
};

constexpr Field host_fields[] = {
    {.name = "Net_Check_Host",
     .caption = "接続確認先",
     .max_length = 260,
     .width = 34,
     .hint = "ホスト名 または ホスト名:ポート番号"},
    {.name = "Help_Host", .caption = "解説ページのホスト", .max_length = 500, .width = 60},
    {.name = "User_Page", .caption = "利用者ページのホスト", .max_length = 500, .width = 60},
    {.name = "Rating_Page", .caption = "格付情報ページ", .max_length = 500, .width = 60},
};

constexpr Field rating_fields[] = {
    {.name = "Rating_Source", .caption = "格付データの取得元", .max_length = 500, .width = 60},
};

struct Group {
    const char* heading;
    std::span<const Field> fields;
    int row;
    int column;
    int columns;
};

const Group group_rows[] = {
    {"事務所", office_fields, 0, 0, 2},         {"メール送信", smtp_fields, 1, 0, 1},
    {"メール受信", imap_fields, 1, 1, 1},       {"接続先", host_fields, 2, 0, 2},
    {"格付情報の取得", rating_fields, 3, 0, 2},
};

/// A host to be tested: the entries that hold it and its port.
struct Probe {
    const char* caption;
    const char* host;
    const char* port;
};

constexpr Probe probes[] = {
    {"接続確認先", net_check_control, nullptr},
    {"送信サーバー", "Smtp_Host", "Smtp_Port"},
    {"受信サーバー", "Imap_Host", "Imap_Port"},
};

std::vector<Tested_Host> Test_Hosts(std::vector<Tested_Host> hosts, Progress& progress) {
    const int total = static_cast<int>(hosts.size());
    for (int done = 0; done < total; ++done) {
        Tested_Host& host = hosts[static_cast<std::size_t>(done)];
        progress.Say(host.caption + "（" + host.address + "）に接続しています…");
        progress.Step(done, total);
        host.reached = Net_Check(host.address, net_check_ms, progress.Stop()) == "1";
    }
    return hosts;
}

} // namespace

Frm_Settei::Frm_Settei(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_Settei"), QStringLiteral("事務所・通信設定")),
      end_program([] { QCoreApplication::exit(0); }) {
    auto* grid = new QGridLayout;
    const bool narrow = Is_Narrow_Display(shell.Window());
    grid->setSpacing(theme::panel_gap);
    int caption_width = 0;
    for (const Group& group : group_rows) {
        auto* box = new Section_Box(QString::fromUtf8(group.heading));
        auto* fields = new Field_Form(group.fields);
        box->body->addWidget(fields);
        box->body->addStretch(1);
        if (narrow) {
            grid->addWidget(box, grid->rowCount(), 0);
        } else {
            grid->addWidget(box, group.row, group.column, 1, group.columns);
        }
        caption_width = std::max(caption_width, fields->Caption_Width());
        groups.push_back(fields);
    }
    for (Field_Form* group : groups) {
        group->Set_Caption_Width(caption_width);
    }
    body->addLayout(grid);
    body->addStretch(1);
    Wire(Add_Button(QStringLiteral("Cmd_Test"), QStringLiteral("接続テスト"), nullptr, true),
         &QPushButton::clicked, [this] { Test_Connections(); });
    Wire(Add_Button(QStringLiteral("Cmd_Excute"), QStringLiteral("保存終了"), "primary"),
         &QPushButton::clicked, [this] { Save(); });
    Wire(Add_Button(QStringLiteral("Cmd_Cancel"), QStringLiteral("キャンセル")), &QPushButton::clicked,
         [this] { reject(); });
    Add_Help_Button();
    shell.Guard([this] { Load(); });
    groups.front()->Focus("Office_Name");
}

void Frm_Settei::Load() {
    const Install_Info info = Read_Install_Info(shell.session.App_Path);
    auto texts = Network_Texts(info.network);
    texts[net_check_control] = info.net_check_host;
    texts.merge(Office_Texts(info));
    for (Field_Form* group : groups) {
        group->Set_Texts(texts);
    }
}

std::map<std::string, std::string> Frm_Settei::Texts() const {
    std::map<std::string, std::string> texts;
    for (const Field_Form* group : groups) {
        texts.merge(group->Texts());
    }
    return texts;
}

bool Frm_Settei::Is_Edited() const {
    return std::any_of(groups.begin(), groups.end(),
                       [](const Field_Form* group) { return group->Is_Edited(); });
}

bool Frm_Settei::Entries_Hold() {
    auto fault = Test_Office(Texts());
    const bool of_office = fault.has_value();
    if (!of_office) {
        fault = Test_Network_Settings(Texts());
    }
    if (!fault) {
        return true;
    }
    Tell(shell.session, of_office ? "事務所設定エラー" : "通信設定エラー", fault->text);
    for (const Field_Form* group : groups) {
        if (group->Has(fault->control)) {
            group->Focus(fault->control);
        }
    }
    return false;
}

void Frm_Settei::Save() {
    if (!Entries_Hold()) {
        return;
    }
    const auto texts = Texts();
    const bool to_multi = texts.at("Office_Mode") == "2";
    const bool changes_mode = to_multi != shell.session.Is_Multi();
    if (changes_mode && !May_Change_Mode(to_multi)) {
        return;
    }
    bool is_saved = false;
    const auto save = [&] {
        Store(texts);
        if (changes_mode) {
            Change_Mode(shell.session, to_multi);
        }
        is_saved = true;
    };
    if (Save_Or_Stay(shell.session, save, {.what = "設定"}) == Save_End::Stay) {
        return;
    }
    const bool has_new_mode = changes_mode && is_saved;
    if (has_new_mode) {
        Tell(shell.session, "使い方変更完了",
             "使い方の変更が終了しました。\n環境設定のため一旦「Morvane」を終了します。");
    }
    Close_Form();
    if (has_new_mode) {
        end_program();
    }
}

bool Frm_Settei::May_Change_Mode(bool to_multi) {
    if (const std::string refusal = Mode_Refusal(shell.session, to_multi); !refusal.empty()) {
        Tell(shell.session, "使い方変更エラー", refusal);
        groups.front()->Focus("Office_Mode");
        return false;
    }
    return Ask(
        shell.session, "使い方変更確認",
        to_multi ? "「事務所で使う」に変更します。入力済みの自社のデータは、事業所の1つとして登録されます。\n"
                   "よろしいですか？"
                 : "「自社で使う」に変更します。\nよろしいですか？");
}

void Frm_Settei::Store(const std::map<std::string, std::string>& texts) {
    Install_Info info = Read_Install_Info(shell.session.App_Path);
    info.network = Network_Of_Texts(texts);
    info.net_check_host = texts.at(net_check_control);
    info.office_name = texts.at("Office_Name");
    info.user_id = texts.at("User_ID");
    Write_Install_Info(shell.session.App_Path, info);
    shell.session.Office_Name = info.office_name;
    shell.session.User_ID = info.user_id;
}

bool Frm_Settei::May_Close() {
    return !Is_Edited() ||
           Ask(shell.session, "編集破棄確認", "編集中の設定を保存せずに終了します。\nよろしいですか？");
}

void Frm_Settei::Test_Connections() {
    if (!Entries_Hold()) {
        return;
    }
    const auto texts = Texts();
    std::vector<Tested_Host> hosts;
    for (const Probe& probe : probes) {
        const std::string& host = texts.at(probe.host);
        if (!host.empty()) {
            hosts.push_back(
                {probe.caption, probe.port == nullptr ? host : host + ":" + texts.at(probe.port)});
        }
    }
    if (hosts.empty()) {
        Tell(shell.session, "接続テスト", "接続確認先を入力してください。");
        groups[3]->Focus(net_check_control);
        return;
    }
    Run_Beside(
        {.title = QStringLiteral("接続テスト"),
         .message = QStringLiteral("接続を確認しています…"),
         .can_be_left = true},
        [hosts](Progress& progress) { return Test_Hosts(hosts, progress); },
        [this](const std::vector<Tested_Host>& tested) { Show_Connections(tested); });
}

void Frm_Settei::Show_Connections(const std::vector<Tested_Host>& tested) {
    std::string text;
    bool all_reached = true;
    for (const Tested_Host& host : tested) {
        all_reached = all_reached && host.reached;
        text += (text.empty() ? "" : "\n") + host.caption + "（" + host.address + "）：" +
                (host.reached ? "接続できました。" : "接続できません。");
    }
    if (!all_reached) {
        text += "\nご使用のPCがインターネットに接続可能か確認してください。";
    }
    Show_Message(shell.session, {.title = "接続テスト",
                                 .text = text,
                                 .icon = all_reached ? Icon::Information : Icon::Warning,
                                 .beep = !all_reached});
}

} // namespace morvane
