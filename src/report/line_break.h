// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// The width of a text in any unit.
using Text_Measure = std::function<float(std::string_view)>;

/// Parts a text into lines not wider than `width`, as Japanese is set (JIS X 4051): between any two
/// characters, but closing signs, small kana and lengthening signs begin no line, opening signs end none, and
/// words and numbers of Latin letters stay whole. What may not be parted moves to the next line; only what is
/// wider than a whole line is parted anywhere. "\n" ends a line. At least one line.
std::vector<std::string> Break_Lines(std::string_view text, float width, const Text_Measure& measure);

} // namespace morvane
