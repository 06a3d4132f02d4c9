// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace morvane {

/// How much of a foreign text a message repeats, in characters.
inline constexpr std::size_t most_shown = 200;

/// The same of the name of a file: the system's own limit.
inline constexpr std::size_t most_path = 4096;

/// A foreign text (a value of a file, an argument, the name of a file) as it can stand in a message: at most
/// `most` characters, and behind them how many there are. Control characters, marks that turn the direction
/// of writing and bytes that are no UTF-8 stand as \n, \t, \u202E, \xFF, so that they reach no terminal.
std::string Shown_Text(std::string_view text, std::size_t most = most_shown);

/// A whole message of several lines in the same manner; its line feeds stay, its length has no limit.
std::string Shown_Lines(std::string_view text);

/// Whether a text has characters that cannot be seen and change what is: controls of both ranges, marks of
/// the direction of writing. Tab and line ends are none where it may have several lines.
bool Has_Control(std::string_view text, bool has_lines);

} // namespace morvane
