// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "statements/saving_form.h"

namespace morvane {

/// The change of shareholders' equity over the period (`Frm_KsHendo`), for the check of the statement
/// screens.
class Frm_KsHendo : public Saving_Form {
    Q_OBJECT

  public:
    /// Raises Store_Error.
    explicit Frm_KsHendo(Shell_Port& shell_port);

  protected:
    void Store(bool save) override;

  private:
    Entry_Grid* grid;
};

} // namespace morvane
