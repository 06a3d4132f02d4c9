// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/window_placement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace morvane {

namespace {

// Room for the title bar, which the window manager puts above a window's own area.
constexpr int title_bar = 32;

constexpr int frame = 1; // at its other sides

constexpr int narrow_display = 1080;

QList<QRect> Free_Areas() {
    QList<QRect> areas;
    for (const QScreen* screen : QGuiApplication::screens()) {
        areas.append(screen->availableGeometry().adjusted(0, title_bar, 0, 0));
    }
    return areas;
}

} // namespace

QRect On_Screen(const QRect& wanted, const QList<QRect>& screens) {
    const auto shared = [&](const QRect& screen) {
        const QRect common = screen.intersected(wanted);
        return qint64{common.width()} * common.height();
    };
    const QRect& screen =
        *std::max_element(screens.begin(), screens.end(),
                          [&](const QRect& a, const QRect& b) { return shared(a) < shared(b); });
    QRect placed(wanted.topLeft(), wanted.size().boundedTo(screen.size()));
    placed.moveLeft(std::clamp(placed.left(), screen.left(), screen.right() + 1 - placed.width()));
    placed.moveTop(std::clamp(placed.top(), screen.top(), screen.bottom() + 1 - placed.height()));
    return placed;
}

void Bring_Into_View(QWidget& window) {
    window.setGeometry(On_Screen(window.geometry(), Free_Areas()));
}

bool Is_Narrow_Display(const QWidget* window) {
    const QScreen* display = window != nullptr ? window->screen() : QGuiApplication::primaryScreen();
    return display->availableSize().width() < narrow_display;
}

QRect Free_Area_Of(const QWidget& window) {
    return window.screen()->availableGeometry().adjusted(frame, title_bar, -frame, -frame);
}

std::optional<QRect> Beside(const QRect& form, const QRect& focus, const QSize& size, const QRect& display) {
    constexpr int least_width = 420;
    constexpr int gap = 4; // the frames of both windows
    if (display.width() < narrow_display) {
        return std::nullopt;
    }
    QRect right = display;
    right.setLeft(std::max(display.left(), form.right() + 1 + gap));
    QRect left = display;
    left.setRight(std::min(display.right(), form.left() - 1 - gap));
    QRect room = right.width() >= left.width() ? right : left;
    if (room.width() < least_width) {
        const QRect halves[] = {{QPoint(display.center().x() + 1, display.top()), display.bottomRight()},
                                {display.topLeft(), QPoint(display.center().x(), display.bottom())}};
        right = halves[0];
        left = halves[1];
        if (!focus.isNull()) {
            right.setLeft(std::max(right.left(), focus.right() + 1 + gap));
            left.setRight(std::min(left.right(), focus.left() - 1 - gap));
        }
        room = right.width() >= least_width ? right : left.width() >= least_width ? left : halves[0];
    }
    // On the side of the form, where it takes no more than it needs.
    QRect place({}, size.boundedTo(room.size()));
    place.moveTop(std::clamp(form.top(), room.top(), room.bottom() + 1 - place.height()));
    place.moveLeft(room.left() == display.left() ? room.left() : room.right() + 1 - place.width());
    return place;
}

QSize First_Size(const QSize& display) {
    constexpr QSize comfortable(1320, 760);
    const QSize share = display * 85 / 100;
    return comfortable.expandedTo(share).boundedTo(display).boundedTo({1800, 1100});
}

Window_Placement::Window_Placement(const std::filesystem::path& app_path)
    : settings(QString::fromStdString((app_path / "windows.ini").string()), QSettings::IniFormat) {}

void Window_Placement::Follow(QWidget* window, const QSize& default_size) {
    const QString name = window->objectName();
    const QRect stored(settings.value(name + QStringLiteral("/x")).toInt(),
                       settings.value(name + QStringLiteral("/y")).toInt(),
                       settings.value(name + QStringLiteral("/width")).toInt(),
                       settings.value(name + QStringLiteral("/height")).toInt());
    const QList<QRect> screens = Free_Areas();
    if (stored.width() >= window->minimumWidth() && stored.height() >= window->minimumHeight() &&
        stored.isValid()) {
        window->setGeometry(On_Screen(stored, screens));
    } else {
        const QWidget* parent = window->parentWidget();
        // What would fill the display is left to the window manager, who knows the size of its own frames.
        const QSize room = screens[0].size();
        const bool fills = default_size.width() >= room.width() || default_size.height() >= room.height();
        const bool maximized = parent == nullptr && fills;
        QRect middle({}, maximized ? default_size.boundedTo(room * 9 / 10) : default_size);
        if (maximized) {
            window->setWindowState(window->windowState() | Qt::WindowMaximized);
        }
        middle.moveCenter(parent != nullptr ? parent->window()->geometry().center() : screens[0].center());
        window->setGeometry(On_Screen(middle, screens));
    }
    if (settings.value(name + QStringLiteral("/maximized")).toBool()) {
        window->setWindowState(window->windowState() | Qt::WindowMaximized);
    }
    window->installEventFilter(this);
}

bool Window_Placement::eventFilter(QObject* watched, QEvent* event) {
    // An iconified window is hidden by the window manager, spontaneously.
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        Keep(*qobject_cast<QWidget*>(watched));
    }
    return QObject::eventFilter(watched, event);
}

void Window_Placement::Keep(const QWidget& window) {
    const QRect place = window.isMaximized() ? window.normalGeometry() : window.geometry();
    const QString name = window.objectName();
    settings.setValue(name + QStringLiteral("/x"), place.x());
    settings.setValue(name + QStringLiteral("/y"), place.y());
    settings.setValue(name + QStringLiteral("/width"), place.width());
    settings.setValue(name + QStringLiteral("/height"), place.height());
    settings.setValue(name + QStringLiteral("/maximized"), window.isMaximized());
    settings.sync();
}

} // namespace morvane
