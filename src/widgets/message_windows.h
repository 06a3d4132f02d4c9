// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/messages.h"

#include <QFont>
#include <QString>

namespace morvane {

/// The lines of a text, where those wider than `width` pixels are broken: behind a punctuation mark or a
/// blank near their end, else between two words, else anywhere.
QString Fitted_Lines(const QString& text, const QFont& font, int width);

/// Notices and questions as windows over the program's window: icon, Japanese buttons, the default button,
/// the system's beep. A window is as wide as its longest line needs, up to the display.
class Message_Windows : public Messages {
  public:
    Answer Show(const Message_Box& box) override;
};

} // namespace morvane
