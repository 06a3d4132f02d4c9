// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/print_state.h"
#include "widgets/field_form.h"
#include "widgets/form.h"

namespace morvane {

/// The largest margins with which a report is on the sheet as a whole, mm.
struct Margin_Room {
    float top, left;
};

/// The page setting of a report (ページ設定): margins and copies in the print state of its window, and the
/// way to the platform's printer dialog.
class Frm_PrtSET : public Form {
    Q_OBJECT

  public:
    /// `printer_dialog` lets the user choose a printer, with the copies to begin with; it gives the copies
    /// chosen, or those given to it where the user cancelled. Margins above `margin_room` are asked about.
    Frm_PrtSET(Shell_Port& shell_port, Print_State& print_state, std::function<int(int)> printer_dialog,
               const Margin_Room& margin_room);

  private:
    void Load();
    void Take();
    void Cmd_PrtSet();
    float Margin(const char* name, const char* caption, float former);
    std::uint8_t Whole(const char* name, const char* caption, std::uint8_t former);
    [[noreturn]] void Refuse(const char* name, const std::string& former, const std::string& reason);

    [[nodiscard]] bool May_Cut(const Print_State& next) const;

    Print_State& prt;
    std::function<int(int)> choose_printer;
    const Margin_Room room;
    Field_Form* fields;
};

} // namespace morvane
