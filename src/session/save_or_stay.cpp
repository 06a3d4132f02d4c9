// SPDX-FileCopyrightText: The Morvane developers
#include "session/save_or_stay.h"

#include "law/run_time_error.h"
#include "session/boxes.h"

#include <optional>

namespace morvane {

namespace {

std::string Could_Not(const Save_Words& words) {
    return std::string(words.what) + words.failed + "\n";
}

/// Why an attempt failed; empty where it did not.
std::optional<std::string> Attempt(const std::function<void()>& save, const Save_Words& words) {
    try {
        save();
        return std::nullopt;
    } catch (const Store_Error& error) {
        return Could_Not(words) + error.what();
    } catch (const Run_Time_Error& error) {
        return "計算できないため、" + Could_Not(words) + error.what();
    }
}

Answer Tell_Failure(const Session& session, const std::string& failure, Buttons buttons,
                    const Save_Words& words) {
    std::string text = failure + "\n\n再試行：" + words.again;
    if (buttons == Buttons::Retry_Discard_Back) {
        text += std::string("\n破棄して閉じる：") + words.discard;
    }
    text += std::string("\n戻る：") + words.back;
    return Show_Message(session, {.title = words.title,
                                  .text = text,
                                  .icon = Icon::Warning,
                                  .buttons = buttons,
                                  .default_answer = Answer::Back,
                                  .beep = true});
}

Save_End Run(const Session& session, const std::function<void()>& save, Buttons buttons,
             const Save_Words& words) {
    while (const auto failure = Attempt(save, words)) {
        switch (Tell_Failure(session, *failure, buttons, words)) {
        case Answer::Retry:
            break;
        case Answer::Discard:
            return Save_End::Discard;
        default:
            return Save_End::Stay;
        }
    }
    return Save_End::Saved;
}

} // namespace

Save_End Save_Or_Stay(const Session& session, const std::function<void()>& save, const Save_Words& words) {
    return Run(session, save, Buttons::Retry_Discard_Back, words);
}

bool Save_Or_Back(const Session& session, const std::function<void()>& save, const Save_Words& words) {
    return Run(session, save, Buttons::Retry_Back, words) == Save_End::Saved;
}

} // namespace morvane
