// SPDX-FileCopyrightText: The Morvane developers
#include "app/crash_session.h"

#include "app/shell.h"
#include "support/ui_fixture.h"

#include <QAction>
#include <QTableView>
#include <csignal>
#include <cstdlib>

namespace morvane::tests {

namespace {

/// Answers every question with Yes.
class Yes_Messages : public Messages {
  public:
    Answer Show(const Message_Box& box) override {
        return box.buttons == Buttons::Yes_No ? Answer::Yes : Answer::Ok;
    }
};

void Take_From_List(Shell& shell, int row) {
    With_Dialog([&] { shell.Frame()->findChild<QAction*>("Mnu_JgSitei")->trigger(); },
                [&](QDialog& list) {
                    Child<QTableView>(list, "ListView")->selectRow(row);
                    Click(list, "Cmd_Sitei");
                });
}

} // namespace

void Run_Crash_Session(const std::filesystem::path& folder) {
    Yes_Messages messages;
    Shell shell(folder, messages);
    if (!shell.Sub_Main().running) {
        std::_Exit(2);
    }
    Take_From_List(shell, 0);
    With_Dialog([&] { Click(*shell.Frame(), "Cmd_Hojyo4"); },
                [&](QDialog& company) {
                    Type_Into(company, "SyaMei", "青葉改");
                    Click(company, "Cmd_Excute");
                });
    Take_From_List(shell, 1);
    Click(*shell.Frame(), "Cmd_Hojyo1");
    Click(*shell.Frame(), "Opt(1)");
    Click(*shell.Frame(), "Cmd_Excute");
    if (shell.session.Syori_Ki != 6) {
        std::_Exit(3);
    }
    std::raise(SIGKILL);
    std::abort();
}

} // namespace morvane::tests
