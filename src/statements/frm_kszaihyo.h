// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "statements/statement_form.h"

namespace morvane {

/// Statement entry (`Frm_KsZaihyo` of a corporation, `Frm_KsZaihyoKJ` of an individual): the accounts of the
/// section that the menu has chosen.
class Frm_KsZaihyo : public Statement_Form {
    Q_OBJECT

  public:
    /// Raises Store_Error.
    explicit Frm_KsZaihyo(Shell_Port& shell_port);

  protected:
    void Store(bool save) override { section.Close(save); }

  private:
    void Add_Buttons();
};

} // namespace morvane
