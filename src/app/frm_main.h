// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "app/frm_command.h"
#include "app/work_area.h"

#include <QMainWindow>
#include <functional>

namespace morvane {

/// The frame: the menu bar, the menu at its left, the child screens beside it.
class Frm_Main : public QMainWindow {
    Q_OBJECT

  public:
    /// What the frame asks of the program around it.
    struct Hooks {
        std::function<void()> normal_end;      ///< Cmd_End
        std::function<bool()> may_close;       ///< the close box
        std::function<void(QWidget*)> send_f1; ///< help for what has the focus
    };

    Frm_Main(Shell_Port& shell_port, Hooks the_hooks);

    /// Closes without the guards of the close box: the normal end has done its work.
    void Close_For_Good();

    Work_Area* area;
    Frm_Command* command;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void Make_Menu_Bar();
    QAction* Add_Entry(const char* name, const char* caption, const std::function<void()>& work);
    void Refuse_While_Editing(const std::function<void()>& work);

    Shell_Port& shell;
    Hooks hooks;
    bool for_good = false;
};

} // namespace morvane
