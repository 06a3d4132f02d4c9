// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/shell_port.h"

#include <QPushButton>

namespace morvane {

/// Cmd_QandA of a screen: opens the note of the screen that is open and is lit while it has one.
class Note_Button : public QPushButton {
    Q_OBJECT

  public:
    /// Raises Store_Error.
    explicit Note_Button(Shell_Port& shell_port, QWidget* parent = nullptr);

    /// Looks again whether the screen that is open has a note. Raises Store_Error.
    void Refresh();

    [[nodiscard]] bool Is_Lit() const { return lit; }

  private:
    Shell_Port& shell;
    bool lit = false;
};

} // namespace morvane
