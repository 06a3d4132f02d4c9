// SPDX-FileCopyrightText: The Morvane developers
#include "batch/score_run.h"

#include "session/run_time_error.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <ostream>
#include <string>
#include <thread>

namespace morvane {

namespace {

constexpr std::size_t block_size = 256;

struct Outcome {
    std::string text;
    std::string failure;
};

Outcome Score_One(const Session& session, const Score_Options& options, const Company& company) {
    Outcome outcome;
    try {
        const Connection cn(Store_Of(session, company), session.Db_Key, Connection::Mode::Read_Only);
        Settled_Score score = Score_Company(cn, session.Is_Hokkaido(), options.period, *options.scenario);
        score.kanri_no = company.number;
        outcome.text = Score_Text(options.format, score);
    } catch (const std::exception& error) {
        outcome.failure = One_Line(error.what());
    }
    return outcome;
}

/// Scores one block with all threads; each takes the next company that none has taken.
void Score_Block(const Session& session, const Score_Options& options, std::size_t begin, unsigned jobs,
                 std::vector<Outcome>& outcomes) {
    std::atomic<std::size_t> next{0};
    const auto work = [&] {
        for (std::size_t i = next++; i < outcomes.size(); i = next++) {
            outcomes[i] = Score_One(session, options, options.companies[begin + i]);
        }
    };
    std::vector<std::thread> threads;
    for (unsigned i = 1; i < jobs; ++i) {
        threads.emplace_back(work);
    }
    work();
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void Show_Progress(std::ostream& errors, std::size_t done, std::size_t all) {
    constexpr std::size_t width = 40;
    const std::size_t filled = done * width / std::max<std::size_t>(all, 1);
    errors << "\r[" << std::string(filled, '#') << std::string(width - filled, '.') << "] " << done << "/"
           << all << (done == all ? "\n" : "") << std::flush;
}

} // namespace

std::size_t Score_Run(const Session& session, const Score_Options& options, std::ostream& out,
                      std::ostream& errors) {
    const unsigned jobs =
        options.jobs != 0 ? options.jobs : std::max(1U, std::thread::hardware_concurrency());
    std::vector<Score_Failure> failures;
    bool first = true;
    out << Score_Head(options.format);
    for (std::size_t begin = 0; begin < options.companies.size(); begin += block_size) {
        std::vector<Outcome> outcomes(std::min(block_size, options.companies.size() - begin));
        Score_Block(session, options, begin, std::min<unsigned>(jobs, static_cast<unsigned>(outcomes.size())),
                    outcomes);
        for (std::size_t i = 0; i < outcomes.size(); ++i) {
            const Company& company = options.companies[begin + i];
            if (!outcomes[i].failure.empty()) {
                errors << company.number << " " << company.name << "：" << outcomes[i].failure << "\n";
                failures.push_back({company.number, company.name, outcomes[i].failure});
                continue;
            }
            out << (first ? "" : Score_Separator(options.format)) << outcomes[i].text;
            first = false;
        }
        if (options.progress) {
            Show_Progress(errors, begin + outcomes.size(), options.companies.size());
        }
    }
    out << Score_Tail(options.format, failures);
    return failures.size();
}

} // namespace morvane
