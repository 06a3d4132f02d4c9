// SPDX-FileCopyrightText: The Morvane developers
#include "batch/case_file.h"
#include "batch/installation.h"
#include "statements/frm_kszaihyo.h"
#include "statements/frm_kszaiup.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>

namespace {

using namespace morvane;
namespace fs = std::filesystem;

/// A shell around one screen.
class Bare_Shell : public Shell_Port {
  public:
    using Shell_Port::Shell_Port;

    void Show_Company() override {}
    void Show_No_Company() override {}
    void Show_Registered() override {}
    void Open_Form(const QString& /*form*/) override {}
    void Replace_Form(Form* /*screen*/, const QString& /*sister*/) override {}
    void Toggle_Menu() override {}
    [[nodiscard]] bool Is_Menu_Shown() const override { return true; }
    void Show_Help(const QString& /*form*/) override {}
    bool Guard(const std::function<void()>& work) override {
        work();
        return true;
    }
    QWidget* Window() override { return nullptr; }
};

/// Counts how often a widget is painted: what was not painted was not measured.
class Paint_Counter : public QObject {
  public:
    explicit Paint_Counter(QWidget* widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

    int count = 0;
};

double Milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

bool Report(const char* what, std::vector<double> samples, double limit) {
    std::sort(samples.begin(), samples.end());
    const auto at = [&samples](double part) {
        return samples[static_cast<std::size_t>(part * static_cast<double>(samples.size() - 1))];
    };
    std::printf("%-28s %5zu samples  median %7.2f ms  p95 %7.2f ms  limit %5.0f ms\n", what, samples.size(),
                at(0.5), at(0.95), limit);
    return at(0.95) < limit;
}

template <class Screen>
std::unique_ptr<Screen> Open(Bare_Shell& shell, int screen_no = 41) {
    shell.menu.screen.number = static_cast<std::uint8_t>(screen_no);
    auto screen = std::make_unique<Screen>(shell);
    screen->resize(1004, 740);
    screen->show();
    QApplication::processEvents(); // lays out and paints
    return screen;
}

void Press(int key, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(QApplication::focusWidget(), &press);
}

/// Keys a thousand amounts into a screen, each left with Enter, and counts how often a figure of the panel is
/// painted.
std::vector<double> Key_Through(QWidget& screen, const char* figure, int& painted) {
    screen.activateWindow();
    screen.setFocus();
    QApplication::processEvents();
    const Paint_Counter counter(screen.findChild<QWidget*>(QString::fromLatin1(figure)));
    std::vector<double> leaving;
    for (int i = 0; i < 1000; ++i) {
        for (const char digit : std::to_string(1000 + i * 7919)) {
            Press(Qt::Key_0 + (digit - '0'), QString(QLatin1Char(digit)));
        }
        QApplication::processEvents();
        leaving.push_back(Milliseconds([] {
            Press(Qt::Key_Return, {});
            QApplication::processEvents();
        }));
    }
    painted = counter.count;
    return leaving;
}

} // namespace

/// Opens every section of the statements and of the journal and keys through the longest one of each, with
/// real widgets on the offscreen platform. Fails where the slower end is beyond the limit.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    theme::Apply(application);
    const fs::path folder = fs::temp_directory_path() / "morvane-statement-bench";
    fs::remove_all(folder);
    Init_Installation(folder, {Edition::National, false});
    Stderr_Messages messages;
    Session session = Make_Session(folder, messages);
    Import_Case(session, fs::path(MORVANE_SAMPLES) / "aoba_kensetsu.json");
    session.Syori_Ki = 35;
    Bare_Shell shell(session);

    Open<Frm_KsZaihyo>(shell); // fonts and style are ready
    std::vector<double> opening;
    std::vector<double> opening_journal;
    std::vector<double> changing;
    for (int round = 0; round < 10; ++round) {
        for (const int screen_no : {41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51}) {
            opening.push_back(Milliseconds([&] { Open<Frm_KsZaihyo>(shell, screen_no); }));
        }
        std::unique_ptr<Frm_KsZaiUP> journal;
        opening_journal.push_back(Milliseconds([&] { journal = Open<Frm_KsZaiUP>(shell); }));
        for (int section = 1; section <= 11; ++section) {
            const QString button = QStringLiteral("Cmd_Upz(%1)").arg(section);
            changing.push_back(Milliseconds([&] {
                journal->findChild<QPushButton*>(button)->click();
                QApplication::processEvents();
            }));
        }
    }
    int painted = 0;
    int painted_in_journal = 0;
    const auto screen = Open<Frm_KsZaihyo>(shell, 44);
    const std::vector<double> leaving = Key_Through(*screen, "BsIp_FSiKei", painted);
    const auto journal = Open<Frm_KsZaiUP>(shell);
    journal->findChild<QPushButton*>(QStringLiteral("Cmd_Upz(3)"))->click();
    const std::vector<double> leaving_journal = Key_Through(*journal, "BsIp_FSiKei(2)", painted_in_journal);
    bool holds = Report("a section opens", opening, 100);
    holds = Report("a cell is left", leaving, 5) && holds;
    holds = Report("the journal opens", opening_journal, 100) && holds;
    holds = Report("the journal changes section", changing, 100) && holds;
    holds = Report("a cell of it is left", leaving_journal, 8) && holds;
    fs::remove_all(folder);
    // Of 27 rows three are totals; all the others move the liabilities.
    std::printf("the liabilities were painted %d and %d times\n", painted, painted_in_journal);
    const int least = static_cast<int>(leaving.size()) * 3 / 4;
    return holds && painted > least && painted_in_journal > least ? 0 : 1;
}
