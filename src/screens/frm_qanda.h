// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/qanda.h"
#include "widgets/form.h"

class QPlainTextEdit;

namespace morvane {

class Entry_Cell;

/// The note of the open screen in the period in hand: title, question, advice. Closing it stores what was
/// changed; where that fails the screen stays with everything that was typed.
class Frm_QandA : public Form {
    Q_OBJECT

  public:
    explicit Frm_QandA(Shell_Port& shell_port);

  protected:
    bool May_Close() override;

  private:
    [[nodiscard]] Screen_Note Shown() const;

    const Open_Screen screen;
    Entry_Cell* Title;
    QPlainTextEdit* Shitumon;
    QPlainTextEdit* Advice;
    Screen_Note stored;
};

} // namespace morvane
