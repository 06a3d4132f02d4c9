// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace morvane::tests {

/// A host on this machine that takes connections while it lives, as many at a time as its queue is long.
class Listener {
  public:
    explicit Listener(int queue) {
        socklen_t size = sizeof address;
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(::bind(sockets[0], Plain(), size), 0);
        EXPECT_EQ(::listen(sockets[0], queue), 0);
        EXPECT_EQ(::getsockname(sockets[0], Plain(), &size), 0);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() {
        for (const int one : sockets) {
            ::close(one);
        }
    }

    /// Fills the queue: no packet of a further connection is taken, as by a firewall that drops them.
    void Fill() {
        for (int i = 0; i < 3; ++i) {
            sockets.push_back(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0));
            ::connect(sockets.back(), Plain(), sizeof address);
        }
    }

    [[nodiscard]] std::string Host() const { return "127.0.0.1:" + std::to_string(ntohs(address.sin_port)); }

  private:
    sockaddr* Plain() { return reinterpret_cast<sockaddr*>(&address); }

    sockaddr_in address{};
    std::vector<int> sockets{::socket(AF_INET, SOCK_STREAM, 0)};
};

} // namespace morvane::tests
