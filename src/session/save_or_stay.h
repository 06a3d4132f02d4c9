// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/store_error.h"
#include "session/session.h"

#include <cstdint>
#include <functional>
#include <string>

namespace morvane {

/// How a save at closing ended.
enum class Save_End : std::uint8_t {
    Saved,   ///< everything is stored
    Discard, ///< it cannot be stored and the user closes without
    Stay     ///< the user goes back; what was typed is still there
};

/// What a box says of a save that fails, or of another step of closing that reaches the store.
struct Save_Words {
    const char* what = "入力した内容";
    const char* discard = "保存されていない入力を捨てて閉じます。";
    const char* title = "保存エラー";
    const char* failed = "を保存できませんでした。"; ///< behind `what`
    const char* again = "もう一度保存します。";      ///< what another attempt does
    const char* back = "画面に戻ります。入力した内容は画面に残っています。";
};

/// Runs `save`, the one way in which a screen stores what it holds when it closes. A failing store
/// (Store_Error) and figures that cannot be computed (Run_Time_Error) are told in a box that names the file
/// and the reason and offers another attempt, closing without, and going back; so no screen is impossible to
/// leave.
Save_End Save_Or_Stay(const Session& session, const std::function<void()>& save,
                      const Save_Words& words = {});

/// The same for a save in the middle of the work, before a step that reads what is stored: another attempt or
/// going back. Whether it is stored.
bool Save_Or_Back(const Session& session, const std::function<void()>& save, const Save_Words& words = {});

} // namespace morvane
