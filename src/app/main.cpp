// SPDX-FileCopyrightText: The Morvane developers
#include "app/shell.h"
#include "session/program_folder.h"
#include "widgets/message_windows.h"
#include "widgets/theme.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Morvane"));
    QApplication::setApplicationVersion(QStringLiteral(MORVANE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("morvane"));
    morvane::theme::Apply(application);
    morvane::Message_Windows messages;
    morvane::Shell shell(morvane::Choose_App_Path(), messages);
    const morvane::Shell::Start start = shell.Sub_Main();
    return start.running ? QApplication::exec() : start.status;
}
