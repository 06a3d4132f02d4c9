// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/advice.h"
#include "screens/check_opener.h"
#include "widgets/form.h"

class QButtonGroup;
class QGridLayout;

namespace morvane {

/// What an adviser says to the current figures of the period in hand: the advice under four headings, and, as
/// its other side, the comments to the twelve indicators. Opening it computes and stores the twelve.
class Frm_Advice : public Form {
    Q_OBJECT

  public:
    /// Raises Store_Error, Run_Time_Error.
    explicit Frm_Advice(Shell_Port& shell_port);

  protected:
    bool May_Close() override { return checks.May_Close(); }

  private:
    void Add_Side(const char* name, const char* caption, QWidget* side);
    [[nodiscard]] QWidget* Make_Comments(const Twelve_Values& twelve);
    void Add_Comment(QGridLayout& grid, std::size_t place, const Twelve_Comment& comment);
    void Make_Buttons();

    Check_Opener checks{*this, shell};
    QButtonGroup* sides;
};

} // namespace morvane
