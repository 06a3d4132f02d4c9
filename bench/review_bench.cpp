// SPDX-FileCopyrightText: The Morvane developers
#include "app/form_table.h"
#include "app/shell.h"
#include "batch/case_file.h"
#include "batch/installation.h"
#include "screens/check_screen.h"
#include "times.h"
#include "widgets/entry_cell.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <cstdlib>
#include <memory>

// How long the entry of X2 and W takes on a sample firm, with real widgets on the offscreen platform:
// opening, keying a field (leaving it, with calculation and repaint), the calculation checks. Prints median
// and 95th percentile in milliseconds.

namespace morvane {
namespace {

constexpr double aim_open = 100;
constexpr double aim_field = 8;
constexpr int period = 35;

void Set_Law_Year(Session& session, int law) {
    session.Simyu_Kubun = Law_Of(law).code;
    Cn_Open(session).Execute("UPDATE W_Yoso SET 現状 = " + std::to_string(law) + " WHERE 要素CD=210");
}

std::unique_ptr<Form> Open(Shell_Port& shell, const char* name) {
    std::unique_ptr<Form> form(Find_Form(name)->Make(shell));
    form->resize(1186, 700);
    form->show();
    return form;
}

/// Opens a screen many times and keys all its fields.
void Measure_Screen(Shell_Port& shell, const char* name) {
    Times opens;
    Times fields;
    for (int run = 0; run < 20; ++run) {
        std::unique_ptr<Form> form;
        opens.Measure([&] { form = Open(shell, name); });
        form->activateWindow();
        Settle_Events();
        for (Entry_Cell* cell : form->findChildren<Entry_Cell*>()) {
            if (!cell->isVisible()) {
                continue;
            }
            fields.Measure([cell] { cell->setFocus(Qt::TabFocusReason); });
            QKeyEvent key(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, QStringLiteral("1"));
            QApplication::sendEvent(cell, &key);
        }
    }
    opens.Print((std::string(name) + ": open").c_str(), aim_open);
    fields.Print((std::string(name) + ": leave a field").c_str(), aim_field);
}

void Measure_Check(Shell_Port& shell, Form& owner, const Check_Request& request) {
    Times opens;
    for (int run = 0; run < 20; ++run) {
        opens.Measure([&] {
            Check_Screen::Show_Beside(owner, shell, QString::fromStdString(request.form),
                                      Make_Check_Sheet(shell.session, Side_In_Hand(shell.session), request));
        });
        owner.findChild<Form*>()->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    opens.Print((request.form + " " + request.mode).c_str(), aim_open);
}

void Measure(const std::filesystem::path& folder) {
    Quiet_Messages messages;
    Init_Installation(folder, {Edition::National, false});
    Shell shell(folder, messages);
    Session session = Make_Session(folder, messages);
    Import_Case(session, std::filesystem::path(MORVANE_SAMPLES) / "aoba_kensetsu.json");
    shell.Sub_Main();
    shell.session.Syori_Ki = period;
    for (const int law : {1, 2, 4}) {
        Set_Law_Year(shell.session, law);
        Measure_Screen(shell, Law_Of(law).entry_form);
        Measure_Screen(shell, Law_Of(law).improved_form);
        Measure_Screen(shell, Law_Of(law).comparison_form);
    }
    for (const Sim_Mode mode : {Sim_Mode::Improvement, Sim_Mode::Other_Firm, Sim_Mode::Prior_Period}) {
        shell.menu.mode = mode;
        Measure_Screen(shell, "Frm_KeieiKz");
    }
    shell.menu.mode = Sim_Mode::Current;
    Measure_Screen(shell, "Frm_Ychart");
    Measure_Screen(shell, "Frm_Advice");
    const std::unique_ptr<Form> owner = Open(shell, "Frm_Syokuta_2012");
    for (const int index : {0, 1, 4, 6, 7, 13}) {
        Measure_Check(shell, *owner, W2X_Request(Law_Of(4), index));
    }
    Measure_Check(shell, *owner, XZP_Request("X", 0));
    Measure_Check(shell, *owner, Y1_Request(6));
}

} // namespace
} // namespace morvane

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    morvane::theme::Apply(application);
    std::string pattern = (std::filesystem::temp_directory_path() / "morvane-bench-XXXXXX").string();
    const std::filesystem::path folder = ::mkdtemp(pattern.data());
    morvane::Measure(folder);
    std::filesystem::remove_all(folder);
    return 0;
}
