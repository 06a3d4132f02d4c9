// SPDX-FileCopyrightText: The Morvane developers
// How long the work-type screens and the analysis take to open, and a field of the former to be left: from
// the key to the repainted window, on the offscreen platform.
#include "batch/case_file.h"
#include "batch/installation.h"
#include "company/datacheck.h"
#include "screens/frm_kanko.h"
#include "screens/frm_keiei.h"
#include "widgets/shell_port.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace morvane {
namespace {

/// A shell that lets every failure through.
class Bench_Shell : public Shell_Port {
  public:
    using Shell_Port::Shell_Port;
    void Show_Company() override {}
    void Show_No_Company() override {}
    void Show_Registered() override {}
    void Open_Form(const QString&) override {}
    void Replace_Form(Form*, const QString&) override {}
    void Toggle_Menu() override {}
    [[nodiscard]] bool Is_Menu_Shown() const override { return true; }
    void Place(QWidget*) override {}
    void Show_Help(const QString&) override {}
    bool Guard(const std::function<void()>& work) override {
        work();
        return true;
    }
    QWidget* Window() override { return nullptr; }
};

void Report(const char* what, std::vector<double> milliseconds) {
    std::sort(milliseconds.begin(), milliseconds.end());
    const auto at = [&](double part) {
        return milliseconds[static_cast<std::size_t>(part * static_cast<double>(milliseconds.size() - 1))];
    };
    std::printf("%-33s median %7.2f ms  p95 %7.2f ms  max %7.2f ms  (%zu)\n", what, at(0.5), at(0.95),
                milliseconds.back(), milliseconds.size());
}

double Milliseconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Shows a form and waits until it is painted.
template <class Make>
Form* Open(const Make& make, std::vector<double>& times) {
    QElapsedTimer timer;
    timer.start();
    Form* form = make();
    form->resize(990, 690);
    form->show();
    form->activateWindow();
    QApplication::processEvents();
    times.push_back(Milliseconds(timer));
    return form;
}

template <class Make>
void Measure_Opening(const char* what, const Make& make) {
    std::vector<double> times;
    for (int i = 0; i < 40; ++i) {
        delete Open(make, times);
    }
    times.erase(times.begin()); // fonts and style are loaded once in a process
    Report(what, std::move(times));
}

/// Keys a figure into every entry field and leaves it by Enter.
template <class Make>
void Measure_Leaving(const char* what, const Make& make, int fields) {
    std::vector<double> opening;
    Form* form = Open(make, opening);
    auto* grid = form->findChild<Entry_Grid*>(QStringLiteral("grid"));
    grid->Focus_Cell(grid->Current().row, grid->Current().column);
    std::vector<double> times;
    for (int field = 0; field < fields; ++field) {
        QWidget* cell = QApplication::focusWidget();
        for (const char digit : std::to_string(1 + field % 9)) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(digit)));
            QApplication::sendEvent(cell, &press);
        }
        QApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(cell, &enter);
        QApplication::processEvents();
        times.push_back(Milliseconds(timer));
    }
    Report(what, std::move(times));
    delete form;
}

void Measure(const std::filesystem::path& folder) {
    Stderr_Messages messages;
    New_Installation(MORVANE_TEMPLATES, folder, {.edition = Edition::National, .multi = true});
    Session session = Make_Session(folder, messages);
    const Imported firm = Import_Case(session, std::filesystem::path(MORVANE_SAMPLES) / "aoba_kensetsu.json");
    Check_Out(session, firm.number, firm.name);
    Bench_Shell shell(session);
    const auto keiei = [&] { return new Frm_Keiei(shell); };
    Measure_Opening("open Frm_Keiei", keiei);
    for (const auto& [screen, keyed] : {std::pair{"Frm_Kanko", 3},
                                        {"Frm_Kanko2", 9},
                                        {"Frm_KankoKaiz", 3},
                                        {"Frm_KankoKaiz2", 6},
                                        {"Frm_KankoKaiz3", 3},
                                        {"Frm_KankoKaizzen", 3},
                                        {"Frm_KankoKaiz2zen", 6},
                                        {"Frm_KankoKaiz3zen", 3}}) {
        const auto make = [&, name = screen] { return new Frm_Kanko(shell, name); };
        Measure_Opening((std::string("open ") + screen).c_str(), make);
        Measure_Leaving((std::string("leave a field of ") + screen).c_str(), make, 32 * keyed);
    }
}

} // namespace
} // namespace morvane

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    morvane::theme::Apply(application);
    std::string folder = (std::filesystem::temp_directory_path() / "kanko_bench_XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) {
        std::perror("mkdtemp");
        return 1;
    }
    morvane::Measure(folder);
    std::filesystem::remove_all(folder);
    return 0;
}
