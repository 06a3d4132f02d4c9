// SPDX-FileCopyrightText: The Morvane developers
#include "session/kyotu_mod.h"

#include "law/elements.h"
#include "law/law_year.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace morvane {

namespace {

std::string With_Arrow(double difference, const std::string& number) {
    return difference > 0 ? "↑ +" + number : difference < 0 ? "↓ " + number : "±" + number;
}

} // namespace

std::string Comma_Str(const Value& value) {
    std::string text = value.As_Text();
    if (text.empty()) {
        return text;
    }
    const bool negative = text.front() == '-';
    if (negative) {
        text.erase(0, 1);
    }
    const auto point = text.find('.');
    const std::string decimals = point == std::string::npos ? std::string() : text.substr(point);
    text.resize(point == std::string::npos ? text.size() : point);
    const std::string sign = negative ? "-" : "";
    if (text.size() <= 3) {
        return sign + text;
    }
    std::string grouped = text.substr(0, text.size() % 3);
    for (std::size_t at = text.size() % 3; at < text.size(); at += 3) {
        grouped += (grouped.empty() ? "" : ",") + text.substr(at, 3);
    }
    return sign + grouped + decimals;
}

std::string Gain_Str(std::int32_t difference) {
    return With_Arrow(difference, Comma_Str(std::int64_t{difference}));
}

std::string Gain_Str(float difference, int decimals) {
    const std::string number = Fixed_Str(difference, decimals);
    return With_Arrow(std::stod(number), number); // what is shown as 0 is none
}

std::string Fixed_Str(float figure, int decimals) {
    // 12.35 as a float lies below 12.35: the half is that of the digits it stands for.
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), figure).ptr;
    double decimal = 0.0;
    std::from_chars(digits.data(), end, decimal);
    const double scale = std::pow(10.0, decimals);
    // A float has at most nine digits, so that nothing but a half lies as near to a half.
    constexpr double beyond_noise = 1.0 + 1e-12;
    double rounded = std::round(decimal * scale * beyond_noise) / scale;
    if (rounded == 0.0) {
        rounded = 0.0; // no "-0.0"
    }
    std::array<char, 64> text{};
    const int length = std::snprintf(text.data(), text.size(), "%.*f", decimals, rounded);
    return {text.data(), static_cast<std::size_t>(length)};
}

bool QandA_Flag(const Session& session, int screen_no) {
    const Connection cn = Cn_Open(session);
    const Recordset rs = cn.Open("SELECT * FROM QandA WHERE 決算期=? And QNo=?", session.Syori_Ki, screen_no);
    return !rs.Eof() && !(rs["質問"].Is_Null() && rs["アドバイス"].Is_Null());
}

double Kamoku_Get(Account account, Recordset& rows) {
    return rows.Find("建設科目CD", Code(account)) ? rows["金額"].As_Double() : 0.0;
}

double Yoso_Get(int code, Recordset& rows) {
    return rows.Find("要素CD", code) ? rows["現状"].As_Double() : 0.0;
}

Data_Form_No Get_Data_Ver(const Session& session, int period) {
    return Get_Data_Ver(Cn_Open(session), session.Kind().edition, period);
}

Data_Form_No Get_Data_Ver(const Connection& cn, Edition edition, int period) {
    const bool hokkaido = edition == Edition::Hokkaido;
    const auto row_of = [&](Account account) {
        return cn.Open("SELECT 並び順 FROM Ks_Zaihyo WHERE 決算期=? And 建設科目CD=?", period, Code(account));
    };
    const Recordset marker = row_of(Account::Data_Form);
    std::int64_t form = hokkaido ? 52 : 51;
    if (!marker.Eof()) {
        form = marker["並び順"].As_Integer(2);
    }
    if (hokkaido) {
        if (form == 1 || (form == 2 && row_of(Account::Depreciation_In_Cost_Hokkaido).Eof())) {
            form = 53;
        }
    }
    return Data_Form_Of(form);
}

Law_Year_No Get_Simyu_Kubun(const Session& session, int period) {
    return Get_Simyu_Kubun(Cn_Open(session), period);
}

Law_Year_No Get_Simyu_Kubun(const Connection& cn, int period) {
    const Recordset rows =
        cn.Open("SELECT 現状 FROM W_Yoso WHERE 決算期=? And 要素CD=?", period, element::law_year);
    const std::int64_t oldest = Law_Number(Oldest_Law_Year().code);
    return Law_Of(rows.Eof() ? oldest : rows["現状"].As_Integer(oldest)).code;
}

bool Url_Open(const std::string& address) {
    if (!address.starts_with("http://") && !address.starts_with("https://") &&
        !address.starts_with("file:///")) {
        return false;
    }
    std::string program = "xdg-open";
    std::string argument = address;
    char* const arguments[] = {program.data(), argument.data(), nullptr};
    pid_t child = 0;
    if (posix_spawnp(&child, program.c_str(), nullptr, nullptr, arguments, environ) != 0) {
        return false;
    }
    // A launcher that knows the desktop ends at once and tells whether it worked; one that runs the browser
    // itself goes on beside the program.
    constexpr int patience_ms = 1500;
    constexpr int step_ms = 20;
    for (int waited = 0; waited < patience_ms; waited += step_ms) {
        int status = 0;
        if (waitpid(child, &status, WNOHANG) == child) {
            return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        }
        usleep(step_ms * 1000);
    }
    std::thread([child] {
        int status = 0;
        waitpid(child, &status, 0);
    }).detach();
    return true;
}

namespace {

/// Waits until a connection is made or refused; false where neither comes.
bool Is_Settled(int descriptor, int timeout_ms, const std::stop_token& stop) {
    constexpr int step_ms = 50;
    for (int waited = 0; waited < timeout_ms && !stop.stop_requested(); waited += step_ms) {
        pollfd wait{descriptor, POLLOUT, 0};
        if (poll(&wait, 1, std::min(step_ms, timeout_ms - waited)) == 1) {
            return true;
        }
    }
    return false;
}

bool Connects(const addrinfo& target, int timeout_ms, const std::stop_token& stop) {
    const int descriptor =
        socket(target.ai_family, target.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, target.ai_protocol);
    if (descriptor < 0) {
        return false;
    }
    bool reached = connect(descriptor, target.ai_addr, target.ai_addrlen) == 0;
    if (!reached && errno == EINPROGRESS) {
        int error = 1;
        socklen_t size = sizeof error;
        reached = Is_Settled(descriptor, timeout_ms, stop) &&
                  getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
    }
    close(descriptor);
    return reached;
}

} // namespace

std::string Net_Check(const std::string& host, int timeout_ms, const std::stop_token& stop) {
    const auto colon = host.rfind(':');
    const std::string name = host.substr(0, colon);
    const std::string port = colon == std::string::npos ? "443" : host.substr(colon + 1);
    if (name.empty()) {
        return "0";
    }
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* list = nullptr;
    if (getaddrinfo(name.c_str(), port.c_str(), &hints, &list) != 0) {
        return "0";
    }
    bool reached = false;
    for (const addrinfo* target = list; target != nullptr && !reached && !stop.stop_requested();
         target = target->ai_next) {
        reached = Connects(*target, timeout_ms, stop);
    }
    freeaddrinfo(list);
    return reached ? "1" : "0";
}

} // namespace morvane
