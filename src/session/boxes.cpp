// SPDX-FileCopyrightText: The Morvane developers
#include "session/boxes.h"

#include "session/session.h"

#include <stdexcept>

namespace morvane {

Answer Show_Message(const Session& session, const Message_Box& box) {
    if (session.messages == nullptr) {
        throw std::logic_error("the session has no message port");
    }
    return session.messages->Show(box);
}

void Tell(const Session& session, const std::string& title, const std::string& text) {
    Show_Message(session, {.title = title, .text = text, .beep = true});
}

bool Ask(const Session& session, const std::string& title, const std::string& text) {
    return Show_Message(session, {.title = title,
                                  .text = text,
                                  .icon = Icon::Warning,
                                  .buttons = Buttons::Yes_No,
                                  .default_answer = Answer::No,
                                  .beep = true}) == Answer::Yes;
}

} // namespace morvane
