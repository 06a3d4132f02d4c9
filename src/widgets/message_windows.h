// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/messages.h"

#include <QPointer>
#include <QWidget>

namespace morvane {

/// Notices and questions as windows over the program's window: icon, Japanese buttons, the default button,
/// the system's beep.
class Message_Windows : public Messages {
  public:
    Answer Show(const Message_Box& box) override;
};

} // namespace morvane
