// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/form.h"

namespace morvane {

/// The version box: version of the program, user and user id.
class Frm_Ver : public Form {
    Q_OBJECT

  public:
    explicit Frm_Ver(Shell_Port& shell_port);
};

} // namespace morvane
