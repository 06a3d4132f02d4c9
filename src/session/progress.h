// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <mutex>
#include <stop_token>
#include <string>

namespace morvane {

/// What a long piece of work says while it runs, and whether it is still wanted. The work writes it and
/// whoever waits reads it, from threads of their own.
class Progress {
  public:
    struct State {
        std::string message; ///< what is being done
        int done = 0;
        int total = 0; ///< steps in all; 0: not known
    };

    /// Thrown where work obeys a request to stop.
    struct Stopped {};

    void Say(std::string message) {
        const std::lock_guard hold(mutex);
        state.message = std::move(message);
    }
    void Step(int done, int total) {
        const std::lock_guard hold(mutex);
        state.done = done;
        state.total = total;
    }
    [[nodiscard]] State Now() const {
        const std::lock_guard hold(mutex);
        return state;
    }

    void Ask_To_Stop() { source.request_stop(); }
    [[nodiscard]] std::stop_token Stop() const { return source.get_token(); }

    /// For a place where the work can be left with nothing lost. Throws Stopped.
    void Stop_If_Asked() const {
        if (source.stop_requested()) {
            throw Stopped();
        }
    }

  private:
    mutable std::mutex mutex;
    State state;
    std::stop_source source;
};

} // namespace morvane
