// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/p_gain.h"
#include "screens/check_opener.h"
#include "screens/screen_sides.h"

class QWidget;

namespace morvane {

class Gain_Strip;

/// The work type that tells of a change: the one that it moves most, where it moves none the one of the
/// highest P. Empty where none has P.
[[nodiscard]] std::optional<std::size_t> Telling_Line(const P_Gain& gain);

/// Shows in the strip what a change brings: to one work type, none where there is nothing to name, and to all
/// together. A screen calls it whenever its figures have been calculated.
void Show_Gain(Gain_Strip& strip, const P_Gain& gain, std::optional<std::size_t> line);

/// The strip for two sides: an entry changes the one into the other, of two periods each has its name.
[[nodiscard]] Gain_Strip* Make_Gain_Strip(const Screen_Sides& sides);

/// A label for what a reader of the figures has to know.
[[nodiscard]] QWidget* Make_Notice(const std::string& notice);

/// The sides of a screen for the checks of their scores; `figures` gives those of the side before (true) or
/// of the other one.
[[nodiscard]] Checked_Sides Sides_To_Check(const Screen_Sides& sides,
                                           const std::function<Review_Figures(bool of_before)>& figures);

} // namespace morvane
