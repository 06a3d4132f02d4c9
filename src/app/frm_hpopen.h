// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/form.h"

#include <string>

namespace morvane {

/// Opens the users' page of the program in the browser.
class Frm_HpOpen : public Form {
  public:
    explicit Frm_HpOpen(Shell_Port& shell_port);

  private:
    void Open_Page(const std::string& address);
};

} // namespace morvane
