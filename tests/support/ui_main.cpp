// SPDX-FileCopyrightText: The Morvane developers
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
    return RUN_ALL_TESTS();
}
