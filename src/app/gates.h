// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <array>
#include <cstdint>
#include <span>

namespace morvane {

/// What must be there before a screen opens.
enum class Gate : std::uint8_t {
    None,
    Statement,       ///< the period has statement rows (zero amounts pass)
    Statement_Other, ///< the same before the comparison with another firm
    Completed_Work,  ///< elements 202 and 203 are not 0; a period without element rows passes
    Y,               ///< the current Y has something to compute from
    Y_Short,         ///< the same, refused with the first sentence alone
    X2W,             ///< element 200 is stored
    Current_X2W,     ///< the same, before an improved screen
    Improved_X2W,    ///< element 200 of the improved scenario is stored
    Prior_Period     ///< the period before the one in hand is registered
};

/// Tests one gate without a box. Raises Store_Error, Run_Time_Error.
bool Gate_Is_Open(const Session& session, Gate gate);

/// Tests gates in their order; the first that refuses shows its box and ends the test with false.
bool Pass_Gates(const Session& session, std::span<const Gate> gates);

} // namespace morvane
