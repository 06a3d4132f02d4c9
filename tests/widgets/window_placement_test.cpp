// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/window_placement.h"

#include "support/ui_fixture.h"

namespace morvane::tests {
namespace {

TEST(Window_Placement_Test, No_Window_Stands_Off_The_Screen) {
    const QList<QRect> screens = {{0, 0, 1366, 768}, {1366, 0, 1920, 1080}};
    const std::pair<QRect, QRect> cases[] = {
        {{100, 50, 800, 600}, {100, 50, 800, 600}},
        {{-200, -30, 800, 600}, {0, 0, 800, 600}},
        {{1300, 500, 800, 600}, {1366, 480, 800, 600}},
        {{5000, 5000, 800, 600}, {566, 168, 800, 600}}, // of a screen that is gone
        {{0, 0, 4000, 700}, {1366, 0, 1920, 700}},
    };
    for (const auto& [wanted, placed] : cases) {
        EXPECT_EQ(On_Screen(wanted, screens), placed) << wanted.x();
    }
}

TEST(Window_Placement_Test, A_Second_Window_Stands_Beside_What_Is_Worked_With) {
    constexpr QSize size(860, 680);
    const QRect small(0, 32, 1366, 736);
    const QRect large(0, 32, 1920, 1048);
    const QRect second(1366, 32, 1920, 1048);
    const QRect field(210, 200, 120, 24);
    const std::tuple<const char*, QRect, QRect, QRect, std::optional<QRect>> cases[] = {
        {"right of a narrow form", small, {20, 100, 700, 500}, field, QRect(724, 88, 642, 680)},
        {"left of it", small, {600, 40, 760, 700}, {610, 200, 100, 24}, QRect(0, 40, 596, 680)},
        {"as wide as it asks for", large, {0, 60, 900, 800}, field, QRect(1060, 60, 860, 680)},
        {"right half", small, {0, 32, 1366, 736}, field, QRect(683, 32, 683, 680)},
        {"left half", small, {0, 32, 1366, 736}, {900, 200, 80, 24}, QRect(0, 32, 683, 680)},
        {"half less a field", small, {0, 32, 1366, 736}, {640, 160, 140, 24}, QRect(784, 32, 582, 680)},
        {"a field over both", small, {0, 32, 1366, 736}, {100, 200, 900, 24}, QRect(683, 32, 683, 680)},
        {"a second display", second, second, {}, QRect(2426, 32, 860, 680)},
        {"too small", {0, 32, 911, 480}, {0, 32, 911, 480}, field, std::nullopt},
    };
    for (const auto& [what, display, screen, focus, place] : cases) {
        EXPECT_EQ(Beside(screen, focus, size, display), place) << what;
    }
}

TEST(Window_Placement_Test, A_Window_Comes_Back_To_Where_It_Stood) {
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
