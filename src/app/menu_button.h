// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "app/menu_table.h"

#include <QPushButton>

namespace morvane {

/// A button of the menu. A caption that is too wide breaks at its blanks. Up and Down move along the
/// buttons.
class Menu_Button : public QPushButton {
    Q_OBJECT

  public:
    static constexpr int height_of_button = 38;

    Menu_Button(const Menu_Entry& menu_entry, const QString& caption);

    void Set_Caption(const QString& caption);

    /// Marks the button of the open screen.
    void Set_Open(bool open);

    const Menu_Entry& entry;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace morvane
