// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/messages.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace morvane {

/// Takes the default answer of every box.
class Quiet_Messages : public Messages {
  public:
    Answer Show(const Message_Box& box) override { return box.default_answer; }
};

/// Everything that waits is done and painted.
inline void Settle_Events() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

/// What a piece of work takes, many times over.
class Times {
  public:
    void Measure(const std::function<void()>& work) {
        QElapsedTimer timer;
        timer.start();
        work();
        Settle_Events();
        Add(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    void Add(double milliseconds) { values.push_back(milliseconds); }

    void Print(const char* name, double aim) {
        if (values.empty()) {
            return; // nothing of it is there
        }
        std::sort(values.begin(), values.end());
        const auto at = [&](double part) {
            return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
        };
        std::printf("%-36s median %7.1f ms  p95 %7.1f ms  (aim %.0f ms, %zu runs)\n", name, at(0.5), at(0.95),
                    aim, values.size());
    }

  private:
    std::vector<double> values;
};

} // namespace morvane
