// SPDX-FileCopyrightText: The Morvane developers
#include "screens/kaisetu.h"

#include "session/boxes.h"
#include "session/install_info.h"
#include "session/kyotu_mod.h"
#include "session/progress.h"
#include "session/session.h"

namespace morvane {

namespace {

constexpr const char* box_title = "確認メッセージ";

// What the user may look for is reachable when the connection test reaches its host; without one, the help
// pages' own host is asked.
std::string Probed_Host(const Install_Info& info) {
    if (!info.net_check_host.empty()) {
        return info.net_check_host;
    }
    std::string host = info.network.help_host;
    if (const auto scheme = host.find("://"); scheme != std::string::npos) {
        host.erase(0, scheme + 3);
    }
    return host.substr(0, host.find('/'));
}

} // namespace

std::string Kaisetu_Address(const std::string& host, const std::string& key) {
    return Page_Address(host, "/kaisei08/morv_kaisetu.php") + "?" + key;
}

std::optional<Kaisetu_Page> Ask_Kaisetu(const Session& session, const std::string& key) {
    const Install_Info info = Read_Install_Info(session.App_Path);
    if (info.network.help_host.empty()) {
        Tell(session, box_title,
             "解説ページのホストが設定されていません。\n［事務所・通信設定］の「解説ページのホスト」で設定し"
             "てくださ"
             "い。");
        return std::nullopt;
    }
    const Answer answer = Show_Message(
        session, {.title = box_title,
                  .text = "解説ページへアクセスします。解説を参照しない場合はキャンセルしてください。",
                  .icon = Icon::Warning,
                  .buttons = Buttons::Ok_Cancel,
                  .default_answer = Answer::Cancel,
                  .beep = true});
    if (answer != Answer::Ok) {
        return std::nullopt;
    }
    return Kaisetu_Page{Kaisetu_Address(info.network.help_host, key), Probed_Host(info)};
}

Kaisetu_Result Open_Kaisetu(const Kaisetu_Page& page, Progress& progress) {
    const bool reached = Net_Check(page.probed_host, net_check_ms, progress.Stop()) == "1";
    progress.Stop_If_Asked();
    if (!reached) {
        return Kaisetu_Result::No_Connection;
    }
    return Url_Open(page.address) ? Kaisetu_Result::Opened : Kaisetu_Result::No_Browser;
}

void Tell_Kaisetu(const Session& session, Kaisetu_Result result) {
    if (result == Kaisetu_Result::No_Connection) {
        Tell(session, box_title,
             "ネット接続ができません。ご使用のPCがインターネットに接続可能か確認してください。");
    } else if (result == Kaisetu_Result::No_Browser) {
        Tell(session, box_title, "ブラウザを起動できませんでした。標準のブラウザの設定を確認してください。");
    }
}

} // namespace morvane
