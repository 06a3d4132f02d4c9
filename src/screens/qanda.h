// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/menu_state.h"

#include <string>

namespace morvane {

struct Session;

/// The note of a screen in a period: what was asked and what was advised.
struct Screen_Note {
    std::string title;    ///< タイトル
    std::string question; ///< 質問
    std::string advice;   ///< アドバイス

    friend bool operator==(const Screen_Note&, const Screen_Note&) = default;
};

/// The note of a screen in the period in hand. Without a row the title is that of the screen. Raises
/// Store_Error.
Screen_Note Read_Note(const Session& session, const Open_Screen& screen);

/// Stores the note of a screen; a part that is blank is stored as Null. A missing row is made where
/// something was written. One transaction. Raises Store_Error.
void Save_Note(const Session& session, const Open_Screen& screen, const Screen_Note& note);

} // namespace morvane
