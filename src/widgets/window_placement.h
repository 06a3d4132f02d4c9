// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QList>
#include <QObject>
#include <QRect>
#include <QSettings>
#include <filesystem>
#include <optional>

class QWidget;

namespace morvane {

/// Keeps where windows stand and how large they are, by objectName, in windows.ini of the installation
/// folder. Where the folder cannot be written, windows open at their default places.
class Window_Placement : public QObject {
  public:
    explicit Window_Placement(const std::filesystem::path& app_path);

    /// Puts a window to where it stood, or in its default size to the middle of the screen (a dialog to the
    /// middle of its parent), and keeps its place whenever it is hidden or closed. Never off the screen; a
    /// window without a parent whose default size fills the screen is maximized at first.
    void Follow(QWidget* window, const QSize& default_size);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Keep(const QWidget& window);

    QSettings settings;
};

/// Moves a window wholly onto the display on which most of it is, and makes it as small as that needs.
void Bring_Into_View(QWidget& window);

/// The free area of the display on which a window is, without the frame of a window on it.
QRect Free_Area_Of(const QWidget& window);

/// Whether the display of a window (null: the first display) is too narrow for groups beside each other.
bool Is_Narrow_Display(const QWidget* window);

/// The size of the frame at its first start on a display: a sensible share of a large one, all of a small
/// one.
QSize First_Size(const QSize& display);

/// Where a window of that size goes so that `form` can still be worked with: beside it where that leaves the
/// window some width, else in the right half of the display (its free area), or the left one, as far as it
/// leaves `focus` free. None where the display is too small for two windows.
std::optional<QRect> Beside(const QRect& form, const QRect& focus, const QSize& size, const QRect& display);

/// A window's place as near to `wanted` as it is wholly on one of the screens (their free areas, at least
/// one).
QRect On_Screen(const QRect& wanted, const QList<QRect>& screens);

} // namespace morvane
