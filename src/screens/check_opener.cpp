// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_opener.h"

#include "session/boxes.h"

namespace morvane {

void Check_Opener::Open(const Check_Request& request, Side side, const std::function<bool()>& store,
                        const std::string& whose) {
    if (!May_Open() || !store()) {
        return;
    }
    Check_Sheet sheet = Make_Check_Sheet(shell.session, side, request);
    if (!whose.empty()) {
        sheet.sub_title = whose;
    }
    Show(request, std::move(sheet));
}

bool Check_Opener::May_Open() const {
    if (!Calc_Open_Flg()) {
        Tell(shell.session, "オープンエラー",
             "開いている計算チェックの画面を閉じてから別画面を開いてください。");
        Bring_Forward();
    }
    return Calc_Open_Flg();
}

void Check_Opener::Show(const Check_Request& request, Check_Sheet sheet, const Other_Side& other) {
    Form* shown = Check_Screen::Show_Beside(owner, shell, QString::fromStdString(request.form),
                                            std::move(sheet), other);
    open = shown;
    // A closed window stays for the events behind it: the flag does not wait for them.
    QObject::connect(shown, &QDialog::finished, &owner, [this, shown] {
        if (open == shown) {
            open = nullptr;
        }
    });
}

void Check_Opener::Open_Either(const Check_Request& request, const Checked_Sides& sides, std::size_t first) {
    if (May_Open()) {
        Show_Side(request, sides, first);
    }
}

// The window of the other side takes the place of the one before. Where it has no scores that one stays.
void Check_Opener::Show_Side(const Check_Request& request, const Checked_Sides& sides, std::size_t which) {
    Check_Sheet sheet = Make_Check_Sheet(sides[which].read(), request);
    sheet.sub_title = sides[which].name.toStdString() + "の数値による計算です。";
    if (open != nullptr && !open->close()) {
        return;
    }
    const std::size_t other = 1 - which;
    Show(request, std::move(sheet),
         {sides[other].name + QStringLiteral("の計算(&A)"),
          [this, request, sides, other] { Show_Side(request, sides, other); }});
}

// A window manager may have put a dialog over it: the box tells of a window that must be seen.
void Check_Opener::Bring_Forward() const {
    open->raise();
    open->activateWindow();
}

bool Check_Opener::May_Close() const {
    if (Calc_Open_Flg()) {
        return true;
    }
    Tell(shell.session, "クローズエラー", "開いている計算チェックの画面を閉じてから画面を閉じてください。");
    Bring_Forward();
    return false;
}

} // namespace morvane
