// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/p_gain.h"

namespace morvane {

class Gain_Strip;

/// Shows in the strip what a change brings: to one work type, none where there is nothing to name, and to all
/// together. A screen calls it whenever its figures have been calculated.
void Show_Gain(Gain_Strip& strip, const P_Gain& gain, std::optional<std::size_t> line);

} // namespace morvane
