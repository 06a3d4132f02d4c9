// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_opener.h"

#include "session/boxes.h"

namespace morvane {

void Check_Opener::Open(const Check_Request& request, Side side, const std::function<bool()>& store,
                        const std::string& whose) {
    const Session& session = shell.session;
    if (!Calc_Open_Flg()) {
        Tell(session, "オープンエラー", "開いている計算チェックの画面を閉じてから別画面を開いてください。");
        return;
    }
    if (!store()) {
        return;
    }
    Check_Sheet sheet = Make_Check_Sheet(session, side, request);
    if (!whose.empty()) {
        sheet.sub_title = whose;
    }
    open = Check_Screen::Show_Beside(owner, shell, QString::fromStdString(request.form), std::move(sheet));
    // A closed window stays for the events behind it: the flag does not wait for them.
    QObject::connect(open, &QDialog::finished, &owner, [this] { open = nullptr; });
}

bool Check_Opener::May_Close() const {
    if (Calc_Open_Flg()) {
        return true;
    }
    Tell(shell.session, "クローズエラー", "開いている計算チェックの画面を閉じてから画面を閉じてください。");
    return false;
}

} // namespace morvane
