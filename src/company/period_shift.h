// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"

#include <cstdint>

namespace morvane {

/// Whether the periods of a store can be renumbered by a difference.
enum class Shift_Test : std::uint8_t {
    Possible,
    Below_Zero, ///< the smallest would be negative
    To_Zero,    ///< the smallest would be 0, which is no period number
    Too_Large   ///< the largest would leave 16 bits
};

/// Tests the registered periods. Raises Store_Error.
Shift_Test Test_Shift(const Connection& cn, int difference);

/// Renumbers all registered periods by `difference`, with their statements, works, elements and notes.
/// XW_Yoso and the older works keep their numbers. The caller has tested it and holds the transaction. Raises
/// Store_Error.
void Period_Shift(const Connection& cn, int difference);

} // namespace morvane
