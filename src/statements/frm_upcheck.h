// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/form.h"

namespace morvane {

/// The balance check of the improvement (`Frm_UPCheck` of a corporation, `Frm_UPCheckKJ` of an individual):
/// the improved statements beside the current ones, and whether both agree. It blocks nothing.
class Frm_UPCheck : public Form {
    Q_OBJECT

  public:
    /// Raises Store_Error.
    explicit Frm_UPCheck(Shell_Port& shell_port);
};

} // namespace morvane
