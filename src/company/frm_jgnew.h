// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/form.h"

namespace morvane {

/// "事業所新規登録" or "事業所情報編集", by Jg_New_Flg: the master data of a company in multi-company mode.
/// Modal.
Form* Make_Frm_JgNew(Shell_Port& shell);

/// "自社情報": the firm's own master data in single-company mode. Modal.
Form* Make_Frm_Jgmas(Shell_Port& shell);

} // namespace morvane
