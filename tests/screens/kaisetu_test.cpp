// SPDX-FileCopyrightText: The Morvane developers
#include "screens/kaisetu.h"
#include "session/install_info.h"
#include "session/progress.h"

#include "data/store_file.h"
#include "support/installation_fixture.h"
#include "support/listener.h"

#include <cstdlib>

namespace morvane::tests {
namespace {

namespace fs = std::filesystem;

TEST(Kaisetu, Address) {
    const std::pair<const char*, const char*> cases[] = {
        {"help.example.jp", "https://help.example.jp/kaisei08/morv_kaisetu.php?11W7"},
        {"help.example.jp:8443/", "https://help.example.jp:8443/kaisei08/morv_kaisetu.php?11W7"},
        {"http://example.jp/help/", "http://example.jp/help/kaisei08/morv_kaisetu.php?11W7"},
    };
    for (const auto& [host, address] : cases) {
        EXPECT_EQ(Kaisetu_Address(host, "11W7"), address);
    }
}

/// A desktop whose browser notes what it is given, and a host of this machine that answers.
class Kaisetu_Test : public Installation {
  protected:
    Kaisetu_Test() : path(::getenv("PATH")) {
        Write_Text_File(desktop.path / "xdg-open",
                        "#!/bin/sh\nprintf '%s' \"$*\" > '" + (desktop.path / "opened").string() + "'\n");
        fs::permissions(desktop.path / "xdg-open", fs::perms::owner_all);
        ::setenv("PATH", (desktop.path.string() + ":" + path).c_str(), 1);
    }
    ~Kaisetu_Test() override { ::setenv("PATH", path.c_str(), 1); }

    Temporary_Folder desktop;
    std::string path;
    Listener listener{4};
};

TEST_F(Kaisetu_Test, Asks_Tests_And_Opens) {
    const std::string host = listener.Host();
    const char* const asks = "解説ページへアクセスします。解説を参照しない場合はキャンセルしてください。";
    const char* const unset = "解説ページのホストが設定されていません。";
    const char* const offline =
        "ネット接続ができません。ご使用のPCがインターネットに接続可能か確認してください。";
    // texts: beginnings
    const std::tuple<const char*, std::string, std::string, Answer, std::vector<std::string>, bool> cases[] =
        {
            {"no host", "", host, Answer::Ok, {unset}, false},
            {"cancelled", host, host, Answer::Cancel, {asks}, false},
            {"no connection", host, "127.0.0.1:1", Answer::Ok, {asks, offline}, false},
            {"opened", host, host, Answer::Ok, {asks}, true},
            {"the pages' own host is tested", "http://" + host + "/x", "", Answer::Ok, {asks}, true},
        };
    for (const auto& [name, help_host, probed, answer, texts, opens] : cases) {
        SCOPED_TRACE(name);
        Install_Info info = Read_Install_Info(session.App_Path);
        info.network.help_host = help_host;
        info.net_check_host = probed;
        Write_Install_Info(session.App_Path, info);
        fs::remove(desktop.path / "opened");
        messages.shown.clear();
        messages.answers = {answer};
        if (const auto page = Ask_Kaisetu(session, "Y-X1")) {
            Progress progress;
            Tell_Kaisetu(session, Open_Kaisetu(*page, progress));
        }
        ASSERT_EQ(messages.shown.size(), texts.size());
        for (std::size_t i = 0; i < texts.size(); ++i) {
            EXPECT_EQ(messages.shown[i].title, "確認メッセージ");
            EXPECT_TRUE(messages.shown[i].text.starts_with(texts[i])) << messages.shown[i].text;
        }
        if (!help_host.empty()) {
            const Message_Box& question = messages.shown.front();
            EXPECT_TRUE(question.icon == Icon::Warning && question.default_answer == Answer::Cancel);
        }
        ASSERT_EQ(fs::exists(desktop.path / "opened"), opens);
        if (opens) {
            EXPECT_EQ(Read_Text_File(desktop.path / "opened"), Kaisetu_Address(help_host, "Y-X1"));
        }
    }
}

} // namespace
} // namespace morvane::tests
