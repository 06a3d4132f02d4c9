// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/window_placement.h"

#include "support/ui_fixture.h"

namespace morvane::tests {
namespace {

TEST(Window_Placement_Test, No_window_stands_off_the_screen) {
    const QList<QRect> screens = {{0, 0, 1366, 768}, {1366, 0, 1920, 1080}};
    const struct {
        QRect wanted;
        QRect placed;
    } cases[] = {
        {{100, 50, 800, 600}, {100, 50, 800, 600}},
        {{-200, -30, 800, 600}, {0, 0, 800, 600}},
        {{1300, 500, 800, 600}, {1366, 480, 800, 600}},
        {{5000, 5000, 800, 600}, {566, 168, 800, 600}}, // of a screen that is gone
        {{0, 0, 4000, 700}, {1366, 0, 1920, 700}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(On_Screen(c.wanted, screens), c.placed) << c.wanted.x();
    }
}

TEST(Window_Placement_Test, A_window_comes_back_to_where_it_stood) {
    const Temporary_Folder folder;
    const auto show = [&](const QRect* move_to) {
        Window_Placement placement(folder.path);
        QWidget window;
        window.setObjectName("Frm_Main");
        placement.Follow(&window, {400, 300});
        const QRect came_up = window.geometry();
        window.show();
        if (move_to != nullptr) {
            window.setGeometry(*move_to);
        }
        window.close();
        return came_up;
    };
    const QRect moved(20, 60, 500, 350);
    EXPECT_EQ(show(&moved).size(), QSize(400, 300));
    EXPECT_EQ(show(nullptr), moved);
    std::filesystem::remove(folder.path / "windows.ini");
    std::filesystem::create_directory(folder.path / "windows.ini");
    EXPECT_EQ(show(nullptr).size(), QSize(400, 300)) << "a file that cannot be used is harmless";
}

} // namespace
} // namespace morvane::tests
