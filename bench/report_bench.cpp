// SPDX-FileCopyrightText: The Morvane developers
#include "batch/case_file.h"
#include "batch/report_run.h"
#include "company/datacheck.h"
#include "report/kekka.h"
#include "report/pdf_target.h"
#include "report/recorded_sheet.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <iostream>

namespace {

using namespace morvane;
namespace fs = std::filesystem;

constexpr int company_count = 1000;

/// An installation with a sample firm in as many companies, for the whole run.
struct Many {
    Many() : folder(fs::temp_directory_path() / "morvane-report-bench") {
        fs::remove_all(folder);
        Init_Installation(folder, {Edition::National, true});
        session = Make_Session(folder, messages);
        Import_Case(session, fs::path(MORVANE_SAMPLES) / "sakura_setsubi.json");
        session.Work_Store = Company_Store(session, 5);
        session.Syori_Ki = 28;
        for (int number = 1; number <= company_count; ++number) {
            companies.push_back({number, "計測", Company::Place::Resting_Store});
            if (number != 5) {
                fs::copy_file(session.Work_Store, Company_Store(session, number));
                Connection(Company_Store(session, number), session.Db_Key, Connection::Mode::Scratch)
                    .Execute("UPDATE Jigyo_mas SET 管理No=" + std::to_string(number));
            }
        }
    }
    ~Many() { fs::remove_all(folder); }

    Stderr_Messages messages;
    fs::path folder;
    Session session;
    std::vector<Company> companies;
};

Many& The_Many() {
    static Many many;
    return many;
}

void Draw_On(Print_Target& target, const Kekka_Figures& kekka) {
    const Print_State state;
    Prt_ModSet prt(state, target);
    Draw_Kekka(prt, kekka, Kekka_Form::Rpt_Kekka_2012);
}

Kekka_Figures Read() {
    const Session& session = The_Many().session;
    return Kekka_Read(Cn_Open(session), session, Side_In_Hand(session));
}

void Read_Figures(benchmark::State& state) {
    static_cast<void>(The_Many());
    for (auto _ : state) {
        benchmark::DoNotOptimize(Read());
    }
}

void Draw_Sheet(benchmark::State& state) {
    const Kekka_Figures kekka = Read();
    for (auto _ : state) {
        Recorded_Sheet sheet;
        Draw_On(sheet, kekka);
        benchmark::DoNotOptimize(sheet);
    }
}

void Make_Pdf(benchmark::State& state) {
    const Kekka_Figures kekka = Read();
    for (auto _ : state) {
        Pdf_Target pdf({"結果通知書", "計測"});
        Draw_On(pdf, kekka);
        benchmark::DoNotOptimize(pdf.Finish());
    }
}

/// Each company scored, printed and written to its file, with all cores.
void Thousand_Pdfs(benchmark::State& state) {
    Many& many = The_Many();
    Report_Options options;
    options.companies = many.companies;
    options.output = many.folder / "out";
    for (auto _ : state) {
        if (Report_Run(many.session, options, std::cerr) != 0) {
            state.SkipWithError("a company failed");
        }
    }
}

BENCHMARK(Read_Figures)->Unit(benchmark::kMillisecond);
BENCHMARK(Draw_Sheet)->Unit(benchmark::kMillisecond);
BENCHMARK(Make_Pdf)->Unit(benchmark::kMillisecond);
BENCHMARK(Thousand_Pdfs)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(1)->Repetitions(3);

} // namespace

BENCHMARK_MAIN();
