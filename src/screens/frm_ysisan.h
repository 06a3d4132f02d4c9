// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/form.h"

namespace morvane {

/// A look at Y from the statement screens: elements, indicators, points and score of the period in hand.
class Frm_YSisan : public Form {
    Q_OBJECT

  public:
    /// Raises Store_Error, Run_Time_Error.
    explicit Frm_YSisan(Shell_Port& shell_port);
};

} // namespace morvane
