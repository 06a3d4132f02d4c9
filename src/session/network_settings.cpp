// SPDX-FileCopyrightText: The Morvane developers
#include "session/network_settings.h"

#include "data/decimal.h"

#include <algorithm>
#include <array>

namespace morvane {

namespace {

using S = Network_Settings;
using enum Network_Entry;

constexpr Network_Field fields[] = {
    {"Smtp_Host", "送信サーバー", Host, [](S& s) -> std::string& { return s.smtp.host; }},
    {"Smtp_Port", "送信ポート", Port, nullptr, [](S& s) -> int& { return s.smtp.port; }},
    {"Smtp_Security", "送信の暗号化", Security, nullptr, nullptr,
     [](S& s) -> Mail_Security& { return s.smtp.security; }},
    {"Smtp_User", "送信ユーザー", Text, [](S& s) -> std::string& { return s.smtp.user; }},
    {"Smtp_Password", "送信パスワード", Password, [](S& s) -> std::string& { return s.smtp.password; }},
    {"Sender_Address", "差出人アドレス", Mail, [](S& s) -> std::string& { return s.sender_address; }},
    {"Sender_Name", "差出人名", Text, [](S& s) -> std::string& { return s.sender_name; }},
    {"Support_Mailbox", "送信先", Mail, [](S& s) -> std::string& { return s.support_mailbox; }},
    {"Imap_Host", "受信サーバー", Host, [](S& s) -> std::string& { return s.imap.host; }},
    {"Imap_Port", "受信ポート", Port, nullptr, [](S& s) -> int& { return s.imap.port; }},
    {"Imap_Security", "受信の暗号化", Security, nullptr, nullptr,
     [](S& s) -> Mail_Security& { return s.imap.security; }},
    {"Imap_User", "受信ユーザー", Text, [](S& s) -> std::string& { return s.imap.user; }},
    {"Imap_Password", "受信パスワード", Password, [](S& s) -> std::string& { return s.imap.password; }},
    {"Help_Host", "解説ページのホスト", Host_Or_Web, [](S& s) -> std::string& { return s.help_host; }},
    {"User_Page", "利用者ページ", Host_Or_Web, [](S& s) -> std::string& { return s.user_page; }},
    {"Rating_Page", "格付情報ページ", Web, [](S& s) -> std::string& { return s.rating_page; }},
    {"Rating_Source", "格付データの取得元", Web, [](S& s) -> std::string& { return s.rating_source; }},
};

constexpr Network_Field net_check_field = {net_check_control, "接続確認先", Host_And_Port};

bool Is_Alnum(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Labels of letters, digits and hyphens (RFC 1123); an IPv4 address reads as such as well.
bool Is_Host(std::string_view host) {
    if (host.empty() || host.size() > 253) {
        return false;
    }
    while (!host.empty()) {
        const std::string_view label = host.substr(0, host.find('.'));
        const bool is_label =
            !label.empty() && label.size() <= 63 && label.front() != '-' && label.back() != '-' &&
            std::all_of(label.begin(), label.end(), [](char c) { return Is_Alnum(c) || c == '-'; });
        if (!is_label || label.size() + 1 == host.size()) {
            return false;
        }
        host.remove_prefix(std::min(label.size() + 1, host.size()));
    }
    return true;
}

bool Is_Port(std::string_view text) {
    const auto port = Decimal(text);
    return port && *port >= 1 && *port <= 65535;
}

bool Is_Host_And_Port(std::string_view text) {
    const auto colon = text.find(':');
    return Is_Host(text.substr(0, colon)) &&
           (colon == std::string_view::npos || Is_Port(text.substr(colon + 1)));
}

// No white space, no control character, no quote that could end an address elsewhere.
bool Is_Plain(std::string_view text) {
    return std::none_of(text.begin(), text.end(), [](char c) {
        return (c >= 0 && c <= ' ') || c == 0x7F || c == '"' || c == '<' || c == '>' || c == '\\';
    });
}

bool Is_Web(std::string_view address) {
    for (const std::string_view scheme : {"https://", "http://"}) {
        if (address.starts_with(scheme)) {
            const std::string_view rest = address.substr(scheme.size());
            return Is_Plain(rest) && Is_Host_And_Port(rest.substr(0, rest.find_first_of("/?#")));
        }
    }
    return false;
}

bool Is_Mail(std::string_view address) {
    const auto at = address.find('@');
    if (at == std::string_view::npos || at == 0 || at > 64) {
        return false;
    }
    const std::string_view local = address.substr(0, at);
    const std::string_view domain = address.substr(at + 1);
    const bool local_fits = std::all_of(local.begin(), local.end(), [](char c) {
        return Is_Alnum(c) || std::string_view("!#$%&'*+-/=?^_`{|}~.").find(c) != std::string_view::npos;
    });
    return local_fits && Is_Host(domain) && domain.find('.') != std::string_view::npos;
}

// Why a text that stands in an entry cannot be used; empty where it can.
std::string Fault_Of(Network_Entry entry, std::string_view text) {
    switch (entry) {
    case Text:
    case Password:
        return text.find_first_of("\r\n") == std::string_view::npos ? "" : "改行は使えません。";
    case Host:
        return Is_Host(text) ? "" : "サーバーの名前（半角英数字、「-」、「.」）を入力してください。";
    case Host_And_Port:
        return Is_Host_And_Port(text)
                   ? ""
                   : "ホスト名（半角英数字、「-」、「.」）か「ホスト名:ポート番号」を入力してください。";
    case Port:
        return Is_Port(text) ? "" : "ポート番号は1から65535までの数字で入力してください。";
    case Security:
        return text == "0" || text == "1" || text == "2" ? "" : "0、1、2のどれかを入力してください。";
    case Mail:
        return Is_Mail(text) ? "" : "メールアドレス（名前@ドメイン、半角）を入力してください。";
    case Web:
        return Is_Web(text) ? "" : "「http://」か「https://」で始まるアドレスを入力してください。";
    case Host_Or_Web:
        return Is_Host_And_Port(text) || Is_Web(text)
                   ? ""
                   : "ホスト名か、「http://」か「https://」で始まるアドレスを入力してください。";
    }
    return {};
}

// Entries that another one needs: where the first stands, the second must.
struct Needed {
    const char* where;
    const char* needed;
    const char* text;
};

constexpr Needed needed_fields[] = {
    {"Smtp_Host", "Smtp_Port", "送信サーバーのポート番号が入力されていません。"},
    {"Smtp_Host", "Smtp_Security", "送信の暗号化が入力されていません。"},
    {"Smtp_Host", "Sender_Address", "差出人のメールアドレスが入力されていません。メールの送信に必要です。"},
    {"Smtp_User", "Smtp_Host", "送信サーバーが入力されていません。"},
    {"Imap_Host", "Imap_Port", "受信サーバーのポート番号が入力されていません。"},
    {"Imap_Host", "Imap_Security", "受信の暗号化が入力されていません。"},
    {"Imap_Host", "Imap_User", "受信サーバーのユーザー名が入力されていません。メールの受信に必要です。"},
    {"Imap_User", "Imap_Host", "受信サーバーが入力されていません。"},
};

std::string Text_Of(const std::map<std::string, std::string>& texts, const char* control) {
    const auto found = texts.find(control);
    return found == texts.end() ? std::string() : found->second;
}

} // namespace

std::span<const Network_Field> Network_Fields() {
    return fields;
}

std::map<std::string, std::string> Network_Texts(Network_Settings settings) {
    std::map<std::string, std::string> texts;
    for (const Network_Field& field : fields) {
        if (field.text != nullptr) {
            texts[field.control] = field.text(settings);
        } else {
            const int number =
                field.number != nullptr ? field.number(settings) : static_cast<int>(field.security(settings));
            texts[field.control] = std::to_string(number);
        }
    }
    return texts;
}

Network_Settings Network_Of_Texts(const std::map<std::string, std::string>& texts) {
    Network_Settings settings;
    for (const Network_Field& field : fields) {
        const auto found = texts.find(field.control);
        if (found == texts.end()) {
            continue;
        }
        const std::string& text = found->second;
        if (field.text != nullptr) {
            field.text(settings) = text;
            continue;
        }
        if (text.empty()) {
            continue;
        }
        const int number = static_cast<int>(Decimal(text).value_or(0));
        if (field.number != nullptr) {
            field.number(settings) = number;
        } else {
            field.security(settings) = static_cast<Mail_Security>(std::clamp(number, 0, 2));
        }
    }
    return settings;
}

std::string Page_Address(std::string base, std::string_view path) {
    if (base.empty()) {
        return {};
    }
    if (base.find("://") == std::string::npos) {
        base.insert(0, "https://");
    }
    base.erase(std::min(base.find_first_of("?#"), base.size()));
    const auto drop_slashes = [&base] {
        while (base.ends_with('/')) {
            base.pop_back();
        }
    };
    drop_slashes();
    if (base.ends_with(path)) {
        base.erase(base.size() - path.size());
        drop_slashes();
    }
    return base + std::string(path);
}

std::optional<Network_Fault> Test_Network_Settings(const std::map<std::string, std::string>& texts) {
    const auto test = [&](const Network_Field& field) -> std::optional<Network_Fault> {
        const std::string text = Text_Of(texts, field.control);
        const std::string why = text.empty() ? std::string() : Fault_Of(field.entry, text);
        if (why.empty()) {
            return std::nullopt;
        }
        const std::string shown = field.entry == Password ? std::string() : "「" + text + "」";
        return Network_Fault{field.control, std::string(field.key) + shown + "は使えません。\n" + why};
    };
    for (const Network_Field& field : fields) {
        if (auto fault = test(field)) {
            return fault;
        }
    }
    for (const Needed& pair : needed_fields) {
        if (!Text_Of(texts, pair.where).empty() && Text_Of(texts, pair.needed).empty()) {
            return Network_Fault{pair.needed, pair.text};
        }
    }
    return test(net_check_field);
}

} // namespace morvane
