// SPDX-FileCopyrightText: The Morvane developers
#include "app/crash_session.h"
#include "widgets/theme.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS();
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    morvane::theme::Apply(application);
    if (qEnvironmentVariableIsSet(morvane::tests::crash_variable)) {
        morvane::tests::Run_Crash_Session(qEnvironmentVariable(morvane::tests::crash_variable).toStdString());
    }
    return RUN_ALL_TESTS();
}
