// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/field_form.h"
#include "widgets/form.h"

namespace morvane {

/// The page setting of a report (ページ設定): margins and copies in the session's print state, and the way to
/// the platform's printer dialog.
class Frm_PrtSET : public Form {
    Q_OBJECT

  public:
    /// `printer_dialog` lets the user choose a printer, with the copies to begin with; it gives the copies
    /// chosen, or those given to it where the user cancelled.
    Frm_PrtSET(Shell_Port& shell_port, std::function<int(int)> printer_dialog);

  private:
    void Load();
    void Take();
    void Cmd_PrtSet();
    float Margin(const char* name, const char* caption, float former);
    std::uint8_t Whole(const char* name, const char* caption, std::uint8_t former);
    [[noreturn]] void Refuse(const char* name, const std::string& former, const std::string& reason);

    std::function<int(int)> choose_printer;
    Field_Form* fields;
};

} // namespace morvane
