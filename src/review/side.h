// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/scenario.h"
#include "session/session.h"

#include <optional>

namespace morvane {

/// Whose figures a routine reads or writes: a period of the firm in one scenario. Current, improved, saved
/// and prior figures are sides, so that no routine has a mode for them.
struct Side {
    int period = 0; ///< 決算期
    Scenario scenario = Scenario::Genjo;

    [[nodiscard]] bool Is_Current() const { return scenario == Scenario::Genjo; }
    [[nodiscard]] Side Before() const { return {period - 1, scenario}; }

    friend bool operator==(const Side&, const Side&) = default;
};

/// A side as it is asked of many firms: without a period that which each of them has in hand.
struct Asked_Side {
    std::optional<int> period;
    Scenario scenario = Scenario::Genjo;
};

/// A scenario of the period in hand.
inline Side Side_In_Hand(const Session& session, Scenario scenario = Scenario::Genjo) {
    return {session.Syori_Ki, scenario};
}

} // namespace morvane
