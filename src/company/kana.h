// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// A reading as the register keeps it: hiragana and full-width katakana as half-width katakana, the voiced
/// marks behind them, full-width blanks as blanks. Everything else stays as it is.
std::string Half_Width_Kana(std::string_view text);

/// A name with the older and the local forms of its characters (髙, 﨑, 邊, 澤) as the common ones, so that a
/// search finds it under either.
std::string Common_Kanji(std::string_view text);

} // namespace morvane
