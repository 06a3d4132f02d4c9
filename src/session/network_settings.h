// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace morvane {

/// How a connection to a mail server is protected.
enum class Mail_Security { None, Starttls, Tls };

/// A mail server and the account there.
struct Mail_Server {
    std::string host;
    int port = 0;
    Mail_Security security = Mail_Security::Tls;
    std::string user;
    std::string password;
};

/// Where mail, pages and rating data come from and go to. Empty texts mean that it is not set up.
struct Network_Settings {
    Mail_Server smtp{{}, 587, Mail_Security::Starttls, {}, {}};
    Mail_Server imap{{}, 993, Mail_Security::Tls, {}, {}};
    std::string sender_address;
    std::string sender_name;
    std::string support_mailbox; ///< where data goes that is sent to the support
    std::string help_host;       ///< host[:port] or web address of the explanatory pages
    std::string user_page;       ///< host[:port] or web address of the users' pages
    std::string rating_page;     ///< web address of the page about ratings
    std::string rating_source;   ///< web address that rating data is loaded from
};

/// What an entry of the settings has to be.
enum class Network_Entry { Text, Password, Host, Host_And_Port, Port, Security, Mail, Web, Host_Or_Web };

/// One entry: the control that holds it, its key in the settings file, what it has to be. Exactly one of the
/// last three leads to its place.
struct Network_Field {
    const char* control;
    const char* key;
    Network_Entry entry;
    std::string& (*text)(Network_Settings&) = nullptr;
    int& (*number)(Network_Settings&) = nullptr;
    Mail_Security& (*security)(Network_Settings&) = nullptr;
};

/// All entries, in the order in which they are tested.
std::span<const Network_Field> Network_Fields();

/// The control of the host that the connection test reaches; it is kept beside these settings.
inline constexpr const char* net_check_control = "Net_Check_Host";

/// The settings as texts by control: a security as "0", "1", "2", a port as its number.
std::map<std::string, std::string> Network_Texts(Network_Settings settings);

/// The settings that tested texts stand for; what is absent, and a port or security left blank, keeps its
/// default.
Network_Settings Network_Of_Texts(const std::map<std::string, std::string>& texts);

/// The web address of a page (its path begins with "/") on a host[:port] or below a web address; also where
/// that is the page's own address already. Empty where none is configured.
std::string Page_Address(std::string base, std::string_view path);

/// An entry that cannot be used: its control and why, in Japanese.
struct Network_Fault {
    std::string control;
    std::string text;
};

/// Tests texts by control: form of hosts, ports, web and mail addresses, and that a mail server has what it
/// needs. The first fault, none where all can be used.
std::optional<Network_Fault> Test_Network_Settings(const std::map<std::string, std::string>& texts);

} // namespace morvane
