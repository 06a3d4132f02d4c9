// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QColor>
#include <QFont>

class QApplication;
class QWidget;

namespace morvane::theme {

// Colours. The yellow, red, pale blue and light red are part of the program's behaviour: they tell checks,
// locked cells and the best column.
inline constexpr QRgb window = 0xFFF3F5F8;
inline constexpr QRgb surface = 0xFFFFFFFF;
inline constexpr QRgb zebra = 0xFFF7F9FC;
inline constexpr QRgb line = 0xFFC9D1DB;
inline constexpr QRgb text = 0xFF1C2733;
inline constexpr QRgb muted = 0xFF5B6B7C;
inline constexpr QRgb accent = 0xFF1F5FA8;
inline constexpr QRgb accent_soft = 0xFFE3EDF8;
inline constexpr QRgb locked = 0xFFC9EEF8;
inline constexpr QRgb focus = 0xFFFFFFC0;
inline constexpr QRgb check_yes = 0xFFFFFF00;
inline constexpr QRgb check_no = 0xFFFF0000;
inline constexpr QRgb button_rest = 0xFFE0E0E0;
inline constexpr QRgb button_open = 0xFFC0C0FF;
inline constexpr QRgb best = 0xFFFFC0C0;
inline constexpr QRgb rise = accent;         ///< difference of a score upwards
inline constexpr QRgb fall = 0xFFB3261E;     ///< and downwards
inline constexpr QRgb disabled = 0xFF9AA5B1; ///< text of what cannot be used
inline constexpr QRgb selected = 0xFFCFE0F4; ///< row selected in a list
inline constexpr QRgb found = 0xFFFFE08A;    ///< hits of a search in a page
inline constexpr QRgb grid_line = 0xFFE2E7ED;
inline constexpr QRgb shown = 0xFFF3F5F8; ///< cells of a grid that are not keyed
inline constexpr QRgb shown_zebra = 0xFFECEFF4;
inline constexpr QRgb heading_current = 0xFFC6DBF1; ///< heading and caption of the cell in entry

// Distances in device-independent pixels.
inline constexpr int grid = 4;
inline constexpr int cell_height = 24;
inline constexpr int panel_gap = 12;
inline constexpr int command_width = 180;
inline constexpr int tight_gain = 16; ///< what a button of the look "tight" is narrower

inline constexpr double body_points = 10.5;
inline constexpr double heading_points = 12;
inline constexpr double title_points = 14;

/// The gothic family of all screens in a size (points).
QFont Gothic(double points = body_points, bool bold = false);

/// Gives a widget one of the looks that the style sheet knows (primary, menu, section, band, ...).
void Set_Look(QWidget* widget, const char* look);

/// Gives the application its style, palette, fonts, keys of buttons, Japanese texts and icon. Once, before
/// the first window.
void Apply(QApplication& application);

} // namespace morvane::theme
