// SPDX-FileCopyrightText: The Morvane developers
#include "session/install_info.h"
#include "session/network_settings.h"

#include "data/store_file.h"
#include "support/installation_fixture.h"

#include <nlohmann/json.hpp>
#include <tuple>

namespace morvane::tests {
namespace {

namespace fs = std::filesystem;

class Network_Settings_Test : public Installation {
  protected:
    [[nodiscard]] nlohmann::json File() const {
        return nlohmann::json::parse(Read_Text_File(folder.path / install_info_file));
    }
};

TEST_F(Network_Settings_Test, Settings_Come_Back_And_Other_Keys_Stay) {
    Write_Text_File(folder.path / install_info_file,
                    R"({"管理者識別": 11, "許可番号1": 7, "予備": {"a": [1]}, "通信設定": {"将来": true}})");
    Install_Info info = Read_Install_Info(folder.path);
    EXPECT_EQ(info.network.smtp.port, 587);
    EXPECT_EQ(info.network.imap.security, Mail_Security::Tls);
    // Every entry by its own text, so that two that share a place would show.
    auto texts = Network_Texts(info.network);
    int number = 1000;
    for (const Network_Field& field : Network_Fields()) {
        texts[field.control] = field.security != nullptr ? "0" : std::to_string(++number);
    }
    info.network = Network_Of_Texts(texts);
    Write_Install_Info(folder.path, info);
    EXPECT_EQ(Network_Texts(Read_Install_Info(folder.path).network), texts);
    EXPECT_EQ(File()["許可番号1"], 7);
    EXPECT_EQ(File()["予備"]["a"][0], 1);
    EXPECT_EQ(File()["通信設定"]["将来"], true);
    EXPECT_EQ(File()["通信設定"]["送信の暗号化"], "なし");
    EXPECT_EQ(fs::status(folder.path / install_info_file).permissions(),
              fs::perms::owner_read | fs::perms::owner_write)
        << "it holds passwords";
}

TEST(Network_Fault_Test, Entries_That_Cannot_Be_Used_Are_Named) {
    const std::map<std::string, std::string> whole = {{"Smtp_Host", "smtp.example.co.jp"},
                                                      {"Smtp_Port", "65535"},
                                                      {"Smtp_Security", "1"},
                                                      {"Sender_Address", "a.b@x-y.jp"},
                                                      {"Imap_Host", "10.0.0.1"},
                                                      {"Imap_Port", "1"},
                                                      {"Imap_Security", "2"},
                                                      {"Imap_User", "見本"}};
    EXPECT_FALSE(Test_Network_Settings(whole).has_value());
    EXPECT_FALSE(Test_Network_Settings({}).has_value()) << "nothing set up";
    using Texts = std::vector<const char*>;
    const std::tuple<const char*, Texts, Texts> cases[] = {
        {"Smtp_Host", {"a b", "-a.jp", "a..jp", "a.", "例.jp", "a.jp:25", "a_b"}, {"localhost", "3com.jp"}},
        {"Imap_Port", {"", "0", "65536", "-1", "25x", " 25"}, {"143"}},
        {"Imap_Security", {"", "3"}, {"0"}},
        {"Sender_Address",
         {"", "a", "a@", "@a.jp", "a@b", "a b@c.jp", "a@b.jp\r\nBcc: x@y.jp", "名@a.jp"},
         {"a+b@c.jp"}},
        {"Imap_User", {""}, {"a@b.jp"}},
        {"Net_Check_Host", {"a.jp:0", "https://a.jp", ":80"}, {"a.jp", "a.jp:80"}},
        {"Help_Host", {"ftp://a.jp", "a.jp/x"}, {"a.jp", "http://a.jp:8080/x"}},
        {"User_Page",
         {"https://", "https://a.jp/x y", "file:///etc", "https://a.jp\"x"},
         {"a.jp", "https://a.jp", "http://a.jp/頁?x=1#y"}}};
    for (const auto& [control, refused, taken] : cases) {
        auto texts = whole;
        for (const char* text : refused) {
            texts[control] = text;
            const auto fault = Test_Network_Settings(texts);
            EXPECT_TRUE(fault && fault->control == control) << control << " " << text;
        }
        for (const char* text : taken) {
            texts[control] = text;
            EXPECT_FALSE(Test_Network_Settings(texts)) << control << " " << text;
        }
    }
}

TEST(Network_Fault_Test, A_Page_Is_Found_From_Whatever_Was_Entered) {
    for (const char* base : {"a.jp", "https://a.jp", "https://a.jp/", "https://a.jp/P/page.php",
                             "https://a.jp/P/page.php/", "https://a.jp/P/page.php?x=1#y"}) {
        EXPECT_EQ(Page_Address(base, "/P/page.php"), "https://a.jp/P/page.php") << base;
    }
    EXPECT_EQ(Page_Address("http://a.jp:8080/x/", "/P/page.php"), "http://a.jp:8080/x/P/page.php");
    EXPECT_EQ(Page_Address("", "/P/page.php"), "");
}

TEST_F(Network_Settings_Test, A_Refusal_Of_The_File_Names_The_Field) {
    std::string keys = R"("0": 0)";
    std::string ones;
    std::string lists;
    for (int i = 1; i <= 5001; ++i) {
        keys += ", \"" + std::to_string(i) + "\": {}";
        ones += "1,";
        lists += i % 4 != 0 || i < 1000 ? "" : "[" + ones + "1],";
    }
    const std::pair<std::string, const char*> cases[] = {
        {R"({"管理者識別": "x"})", "管理者識別：数値ではありません（\"x\"）"},
        {R"({"管理者識別": 256})", "管理者識別：数値が範囲外です（256）"},
        {R"({"管理者識別": -1})", "管理者識別：数値が範囲外です（-1）"},
        {R"({"法人個人識別": 32768})", "法人個人識別：数値が範囲外です"},
        {R"({"管理No": 18446744073709551615})", "管理No：数値が範囲外です"},
        {R"({"処理決算期": 1.5})", "処理決算期："},
        {R"({"通信設定": {"送信の暗号化": "SSL"}})", "送信の暗号化："},
        {R"({"通信設定": {"送信ポート": 65536}})", "送信ポート："},
        {"{\"UserID\": \"\xff\"}", ""},
        {"", ""},
        {R"({"管理No": 1e400})", "管理No：数値が大きすぎます"},
        {R"({"管理No": 1, "管理No": 2})", "管理No：同じ名前が2回"},
        {R"({"UserID": [1]})", "UserID：文字列ではありません（配列）"},
        {R"({"事業所名": "a\u0000b"})", "事業所名：使えない文字（制御文字）があります（a\\x00b）"},
        {R"({"通信設定": {"送信ポート": "x"}})", "送信ポート：数値ではありません"},
        {R"({"通信設定": {"送信の暗号化": "\u001b"}})",
         "送信の暗号化：使えない文字（制御文字）があります（\\x1B）"},
        {R"({"通信設定": 5})", "通信設定：オブジェクトではありません（5）"},
        {"[]", "設定の形ではありません"},
        {"{\n\"UserID\": NaN}", "2行11文字目"},
        {std::string(1'000'000, '['), "64段"},
        {R"({"管理No": [)" + ones + "1]}", "管理No：要素が多すぎます（5000まで）"},
        {"{" + keys + "}", "項目が多すぎます（5000まで）"},
        {R"({"a": [)" + lists + "1]}", "値が多すぎます"}};
    for (const auto& [text, reason] : cases) {
        Write_Text_File(folder.path / install_info_file, text);
        const std::string refusal = Refusal_Of([&] { static_cast<void>(Read_Install_Info(folder.path)); });
        EXPECT_PRED2(Has, refusal, (folder.path / install_info_file).string()) << text.substr(0, 80);
        EXPECT_PRED2(Has, refusal, reason);
    }
    fs::remove(folder.path / install_info_file);
    EXPECT_THROW(Make_Session(folder.path, messages), Store_Error);
}

} // namespace
} // namespace morvane::tests
