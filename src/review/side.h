// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/scenario.h"

#include <cstdint>

namespace morvane {

/// Whose figures a routine reads or writes: a period of the firm in one scenario. Current, improved, saved
/// and prior figures are sides, so that no routine has a mode for them.
struct Side {
    std::int16_t period = 0;                    ///< 決算期
    const Scenario* scenario = &scenario_genjo; ///< never null

    [[nodiscard]] bool Is_Current() const { return scenario->number == scenario_genjo.number; }
    [[nodiscard]] Side Before() const { return {static_cast<std::int16_t>(period - 1), scenario}; }

    friend bool operator==(const Side& a, const Side& b) {
        return a.period == b.period && a.scenario->number == b.scenario->number;
    }
};

} // namespace morvane
