// SPDX-FileCopyrightText: The Morvane developers
#include "batch/case_file.h"
#include "batch/installation.h"
#include "company/data_set.h"
#include "review/settle.h"
#include "sim/kz_copy.h"
#include "statements/zaimu_calc.h"

#include <benchmark/benchmark.h>
#include <filesystem>

namespace {

using namespace morvane;
namespace fs = std::filesystem;

/// An installation with one sample firm, for the whole run.
struct Sample {
    Sample() : folder(fs::temp_directory_path() / "morvane-core-bench") {
        fs::remove_all(folder);
        Init_Installation(folder, {Edition::National, false});
        session = Make_Session(folder, messages);
        Import_Case(session, fs::path(MORVANE_SAMPLES) / "aoba_kensetsu.json");
        session.Syori_Ki = 35;
    }

    Stderr_Messages messages;
    fs::path folder;
    Session session;
};

Sample& The_Sample() {
    static Sample sample;
    return sample;
}

void Open_And_Read_Store(benchmark::State& state) {
    const Session& session = The_Sample().session;
    for (auto _ : state) {
        const Connection cn(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
        benchmark::DoNotOptimize(Load_Review(cn, {35}, {}));
    }
}
BENCHMARK(Open_And_Read_Store)->Unit(benchmark::kMicrosecond);

void Open_Store(benchmark::State& state) {
    const Session& session = The_Sample().session;
    for (auto _ : state) {
        const Connection cn(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
        benchmark::DoNotOptimize(&cn);
    }
}
BENCHMARK(Open_Store)->Unit(benchmark::kMicrosecond);

void Score_From_File(benchmark::State& state) {
    const Session& session = The_Sample().session;
    for (auto _ : state) {
        const Connection cn(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
        benchmark::DoNotOptimize(Score_Company(cn, Edition::National));
    }
}
BENCHMARK(Score_From_File)->Unit(benchmark::kMicrosecond);

void Aggregate_Period(benchmark::State& state) {
    const Session& session = The_Sample().session;
    for (auto _ : state) {
        Zaimu_Shukei(session, Amount_Column::Current);
    }
}
BENCHMARK(Aggregate_Period)->Unit(benchmark::kMillisecond);

/// All scores of 34 lines from figures in memory, to the settled state: what the arithmetic alone costs.
void Score_In_Memory(benchmark::State& state) {
    const Session& session = The_Sample().session;
    const Connection cn(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
    const Review_Figures read = Load_Review(cn, {35}, {});
    for (auto _ : state) {
        Review_Figures figures = read;
        Settle(figures);
        benchmark::DoNotOptimize(figures);
    }
}
BENCHMARK(Score_In_Memory)->Unit(benchmark::kMicrosecond);

void Import_A_Firm(benchmark::State& state) {
    for (auto _ : state) {
        Import_Case(The_Sample().session, fs::path(MORVANE_SAMPLES) / "aoba_kensetsu.json");
    }
}
BENCHMARK(Import_A_Firm)->Unit(benchmark::kMillisecond);

/// The copies of scenarios in a store of ten periods, to the last flush; and the settling behind each screen.
template <class Operation>
void In_Ten_Periods(benchmark::State& state, Operation operation) {
    const fs::path folder = fs::temp_directory_path() / "morvane-slot-bench";
    fs::remove_all(folder);
    Init_Installation(folder, {Edition::National, false});
    Stderr_Messages messages;
    Session session = Make_Session(folder, messages);
    Import_Case(session, fs::path(MORVANE_SAMPLES) / "sakura_setsubi.json");
    session.Syori_Ki = 28;
    for (std::int16_t period = 29; period <= 36; ++period) {
        Period_Copy(session, period, session.Syori_Ki, Copy_Mode::After);
    }
    session.Syori_Ki = 28;
    session.Simyu_Kubun = Newest_Law_Year().code;
    for (auto _ : state) {
        operation(session);
    }
    fs::remove_all(folder);
}
BENCHMARK_CAPTURE(In_Ten_Periods, Slot_Save, [](const Session& session) {
    KzCopy_SlotSave(session, Scenario::Slot_2);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(In_Ten_Periods, Slot_Load, [](const Session& session) {
    static bool turn = false; // so that each changes what the other brought
    turn = !turn;
    KzCopy_SlotLoad(session, turn ? Scenario::Slot_1 : Scenario::Slot_3);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(In_Ten_Periods, Mae_To_Go, KzCopy_MaeToGo)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(In_Ten_Periods, Go_To_Mae, KzCopy_GoToMae)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(In_Ten_Periods, Settle_Again, Settle_Again)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
