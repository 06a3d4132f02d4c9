// SPDX-FileCopyrightText: The Morvane developers
#include "app/shell.h"
#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/frm_jgsitei.h"
#include "company/new_installation.h"
#include "company/register.h"
#include "data/store_file.h"
#include "session/install_info.h"
#include "session/program_folder.h"
#include "times.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QPushButton>
#include <cstdlib>
#include <iostream>

// How long the windows take, with real widgets on the offscreen platform: the start of the program to a menu
// that is painted, the list of 10,000 companies, a filter, a check-out. Prints median and 95th percentile in
// milliseconds.

namespace morvane {
namespace {

constexpr int company_count = 10000;

/// A register of many companies, two of which have data.
void Make_Register(const std::filesystem::path& folder, Messages& messages) {
    New_Installation(*Delivered_Folder("templates"), folder, {.edition = Edition::National, .multi = true});
    Session session = Make_Session(folder, messages);
    for (const std::int32_t number : {1, 2}) {
        New_Data_Set(session, Firm_Type::Corporation, 5);
        Install_Info info = Read_Install_Info(folder);
        info.kanri_no = number;
        info.office_name = "計測建設" + std::to_string(number);
        info.syori_ki = 5;
        Jigyo_Init(session, info);
        Copy_Store(session.Work_Store, Company_Store(session, number), session.Db_Key);
    }
    const Connection cn = Cn_Open_Jgmas(session);
    Transaction transaction(cn);
    Statement insert = cn.Prepare("INSERT INTO jgmas (事業所CD, 事業所名, 事業所カナ名) VALUES (?, ?, ?)");
    const auto filters = Kana_Filters();
    for (int number = 1; number <= company_count; ++number) {
        insert.Reset();
        insert.Bind(1, number);
        insert.Bind(2, "計測建設株式会社" + std::to_string(number));
        insert.Bind(3, filters[static_cast<std::size_t>(number) % filters.size()].kana);
        insert.Step();
    }
    transaction.Commit();
}

/// The program from its first statement to the painted menu; run as a process of its own.
int Start_Once(QApplication& application, const std::filesystem::path& folder) {
    theme::Apply(application);
    Quiet_Messages messages;
    Shell shell(folder, messages);
    if (!shell.Sub_Main().running) {
        return 1;
    }
    Settle_Events();
    std::_Exit(0);
}

void Measure_Start(const char* program, const std::filesystem::path& folder) {
    Times starts;
    for (int run = 0; run < 15; ++run) {
        QElapsedTimer timer;
        timer.start();
        QProcess process;
        process.start(QString::fromLocal8Bit(program),
                      {QStringLiteral("--start"), QString::fromStdString(folder)});
        process.waitForFinished();
        starts.Add(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    starts.Print("start to the painted menu", 700);
}

void Measure_List(const std::filesystem::path& folder) {
    Quiet_Messages messages;
    Shell shell(folder, messages);
    shell.Sub_Main();
    shell.Frame()->resize(1366, 768);
    Times opens;
    Times filters;
    Times check_outs;
    for (int run = 0; run < 20; ++run) {
        Frm_JGSitei* list = nullptr;
        opens.Measure([&] {
            list = new Frm_JGSitei(shell);
            list->show();
        });
        for (const char* button : {"FgKa", "FgHa", "FgZen"}) {
            filters.Measure([&] { list->findChild<QPushButton*>(QString::fromLatin1(button))->click(); });
        }
        delete list;
        const std::int32_t number = run % 2 + 1;
        check_outs.Measure([&] {
            Check_Out(shell.session, number, "計測建設");
            shell.Show_Company();
        });
    }
    opens.Print("list of 10,000 companies", 300);
    filters.Print("a filter of the list", 50);
    check_outs.Print("check-out with check-in", 150);
}

} // namespace
} // namespace morvane

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc == 3 && std::string_view(argv[1]) == "--start") {
        return morvane::Start_Once(application, argv[2]);
    }
    morvane::theme::Apply(application);
    std::string pattern = (std::filesystem::temp_directory_path() / "morvane-bench-XXXXXX").string();
    const std::filesystem::path folder = ::mkdtemp(pattern.data());
    morvane::Quiet_Messages messages;
    morvane::Make_Register(folder, messages);
    morvane::Measure_Start(argv[0], folder);
    morvane::Measure_List(folder);
    std::filesystem::remove_all(folder);
    return 0;
}
