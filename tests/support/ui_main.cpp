// SPDX-FileCopyrightText: The Morvane developers
#include "app/crash_session.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QTemporaryFile>
#include <gtest/gtest.h>

namespace {

// The first display is the one on which windows open; the others are those of common machines, in the size
// that is left by the display's scale.
constexpr const char* display_list = R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": true,
"screens": [
 {"name": "first",        "x": 0,    "y": 0,    "width": 800,  "height": 800},
 {"name": "1366 at 150%", "x": 0,    "y": 1000, "width": 911,  "height": 512},
 {"name": "1920 at 200%", "x": 1000, "y": 1000, "width": 960,  "height": 540},
 {"name": "1366 at 125%", "x": 2000, "y": 1000, "width": 1093, "height": 614},
 {"name": "1920 at 150%", "x": 3200, "y": 1000, "width": 1280, "height": 720},
 {"name": "1366 at 100%", "x": 4600, "y": 1000, "width": 1366, "height": 768}
]})";

} // namespace

// The toolkit's look for another font, where one lacks a character, leaves patterns behind in the font
// library.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS();
    }
    QTemporaryFile displays;
    displays.open();
    displays.write(display_list);
    displays.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + displays.fileName().toLocal8Bit());
    QApplication application(argc, argv);
    morvane::theme::Apply(application);
    if (qEnvironmentVariableIsSet(morvane::tests::crash_variable)) {
        morvane::tests::Run_Crash_Session(qEnvironmentVariable(morvane::tests::crash_variable).toStdString());
    }
    return RUN_ALL_TESTS();
}
