// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/review_figures.h"

#include <random>

namespace morvane::tests {

/// A firm at random: a statement, every item that its law year keys within its choices, lines of work, a
/// review date at which the weight of W changes; no scores.
Review_Figures Generated_Firm(const Law_Year& law, std::mt19937& random);

/// Stores items and works into a side of the company in hand and settles its scores, as an import does.
void Store_Firm(const Session& session, Side side, Review_Figures figures);

} // namespace morvane::tests
