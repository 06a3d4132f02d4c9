// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/syokuta_table.h"
#include "widgets/entry_cell.h"

#include <functional>

namespace morvane {

/// The entry cell of a field of X2 and W: digits or, by its law year, the keys of a choice; Up and Down leave
/// it.
class Syokuta_Edit : public Entry_Cell {
  public:
    Syokuta_Edit(const Syokuta_Cell& field, const Law_Year& law, QWidget* parent = nullptr);

    const Syokuta_Cell& cell;
    QString hint;                      ///< what the entry means
    std::function<bool()> on_leave;    ///< takes the entry; false calls the focus back
    std::function<void(int)> on_arrow; ///< -1 Up, 1 Down
    std::function<void(bool)> on_step; ///< an entry of the screen is to be undone (true) or done again

    /// The entry as a number; blank is 0.
    [[nodiscard]] std::int32_t Number() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void Undo_Last() override;
    void Redo_Last() override;
    bool May_Leave() override { return !on_leave || on_leave(); }
};

} // namespace morvane
