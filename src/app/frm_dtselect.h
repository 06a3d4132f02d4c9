// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/form.h"

#include <string>

namespace morvane {

/// The choice of the data edition, before the frame and at each start until one is chosen. Accepted: it was
/// chosen; rejected: the program ends.
class Frm_DtSelect : public Form {
    Q_OBJECT

  public:
    explicit Frm_DtSelect(Shell_Port& shell_port);

  protected:
    bool May_Close() override;

  private:
    void Choose(const std::string& title, const std::string& text, Edition edition);
};

} // namespace morvane
