// SPDX-FileCopyrightText: The Morvane developers
#include "screens/kaisetu.h"
#include "session/install_info.h"
#include "session/progress.h"

#include "data/store_file.h"
#include "support/installation_fixture.h"

#include <cstdlib>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace morvane::tests {
namespace {

namespace fs = std::filesystem;

TEST(Kaisetu, Address) {
    const struct {
        const char* host;
        const char* address;
    } cases[] = {
        {"help.example.jp", "https://help.example.jp/kaisei08/morv_kaisetu.php?11W7"},
        {"help.example.jp:8443/", "https://help.example.jp:8443/kaisei08/morv_kaisetu.php?11W7"},
        {"http://example.jp/help/", "http://example.jp/help/kaisei08/morv_kaisetu.php?11W7"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Kaisetu_Address(c.host, "11W7"), c.address);
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
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const plain = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(
            ::bind(listener, plain, size) | ::listen(listener, 4) | ::getsockname(listener, plain, &size), 0);
        answering = "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    }

    ~Kaisetu_Test() override {
        ::setenv("PATH", path.c_str(), 1);
        ::close(listener);
    }

    Temporary_Folder desktop;
    std::string path;
    int listener = ::socket(AF_INET, SOCK_STREAM, 0);
    std::string answering;
};

TEST_F(Kaisetu_Test, Asks_Tests_And_Opens) {
    const struct {
        const char* name;
        std::string help_host;
        std::string probed;
        Answer answer;
        std::vector<std::string> texts; ///< beginnings
        bool opens;
    } cases[] = {
        {"no host", "", answering, Answer::Ok, {"解説ページのホストが設定されていません。"}, false},
        {"cancelled", answering, answering, Answer::Cancel, {"解説ページへアクセスします。"}, false},
        {"no connection",
         answering,
         "127.0.0.1:1",
         Answer::Ok,
         {"解説ページへアクセスします。解説を参照しない場合はキャンセルしてください。",
          "ネット接続ができません。ご使用のPCがインターネットに接続可能か確認してください。"},
         false},
        {"opened", answering, answering, Answer::Ok, {"解説ページへアクセスします。"}, true},
        {"the pages' own host is tested",
         "http://" + answering + "/x",
         "",
         Answer::Ok,
         {"解説ページへ"},
         true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Install_Info info = Read_Install_Info(session.App_Path);
        info.network.help_host = c.help_host;
        info.net_check_host = c.probed;
        Write_Install_Info(session.App_Path, info);
        fs::remove(desktop.path / "opened");
        messages.shown.clear();
        messages.answers = {c.answer};
        if (const auto page = Ask_Kaisetu(session, "Y-X1")) {
            Progress progress;
            Tell_Kaisetu(session, Open_Kaisetu(*page, progress));
        }
        ASSERT_EQ(messages.shown.size(), c.texts.size());
        for (std::size_t i = 0; i < c.texts.size(); ++i) {
            EXPECT_EQ(messages.shown[i].title, "確認メッセージ");
            EXPECT_TRUE(messages.shown[i].text.starts_with(c.texts[i])) << messages.shown[i].text;
        }
        if (!c.help_host.empty()) {
            const Message_Box& question = messages.shown.front();
            EXPECT_TRUE(question.icon == Icon::Warning && question.default_answer == Answer::Cancel);
        }
        ASSERT_EQ(fs::exists(desktop.path / "opened"), c.opens);
        if (c.opens) {
            EXPECT_EQ(Read_Text_File(desktop.path / "opened"), Kaisetu_Address(c.help_host, "Y-X1"));
        }
    }
}

} // namespace
} // namespace morvane::tests
