// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/check_screen.h"
#include "widgets/form.h"

#include <QPointer>
#include <array>
#include <functional>

namespace morvane {

/// One of two sides beside each other whose scores a check explains.
struct Checked_Side {
    QString name;                         ///< "前期"
    std::function<Review_Figures()> read; ///< raises Store_Error, and Run_Time_Error where it has no scores
};
using Checked_Sides = std::array<Checked_Side, 2>;

/// The opener's side of the check screens: an entry screen owns one and has at most one check screen open
/// beside it, as a modeless window of its own that goes with it.
///
///     Check_Opener checks{*this, shell};                 // a member of the screen
///     checks.Open(XZP_Request("X", i), side, [this] { return Save(); });
///     bool May_Close() override { return checks.May_Close() && Save(); }
class Check_Opener {
  public:
    Check_Opener(Form& entry_screen, Shell_Port& shell_port) : owner(entry_screen), shell(shell_port) {}

    /// True while no check screen is open.
    [[nodiscard]] bool Calc_Open_Flg() const { return open == nullptr; }

    /// Opens a check screen of a side; refuses with a box while one is open. The screen reads the store, so
    /// `store` saves the entry screen before; where it returns false (it has told why) nothing opens. `whose`
    /// stands beside the title where the figures are not those of the screen. Raises Store_Error,
    /// Run_Time_Error.
    void Open(const Check_Request& request, Side side, const std::function<bool()>& store,
              const std::string& whose = {});

    /// The same for a screen without entries that shows two sides: opens the check of one of them, which has
    /// a button that goes to the other one. Raises Store_Error, Run_Time_Error.
    void Open_Either(const Check_Request& request, const Checked_Sides& sides, std::size_t first = 1);

    /// Whether the entry screen may close: refuses with a box while a check screen is open. The menu closes
    /// that one first, without the box.
    [[nodiscard]] bool May_Close() const;

  private:
    [[nodiscard]] bool May_Open() const;
    void Bring_Forward() const;
    void Show(const Check_Request& request, Check_Sheet sheet, const Other_Side& other = {});
    void Show_Side(const Check_Request& request, const Checked_Sides& sides, std::size_t which);

    Form& owner;
    Shell_Port& shell;
    QPointer<Form> open;
};

} // namespace morvane
