// SPDX-FileCopyrightText: The Morvane developers
#include "batch/company_run.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <ostream>
#include <thread>

namespace morvane {

namespace {

Company_Outcome Run_One(const Company& company, const std::function<std::string(const Company&)>& work) {
    try {
        return {work(company), ""};
    } catch (const std::exception& error) {
        return {"", One_Line(error.what())};
    }
}

/// Does one block with all threads; each takes the next company that none has taken.
void Run_Block(std::span<const Company> companies, unsigned jobs, std::vector<Company_Outcome>& outcomes,
               const std::function<std::string(const Company&)>& work) {
    std::atomic<std::size_t> next{0};
    const auto take = [&] {
        for (std::size_t i = next++; i < outcomes.size(); i = next++) {
            outcomes[i] = Run_One(companies[i], work);
        }
    };
    std::vector<std::thread> threads;
    for (unsigned i = 1; i < jobs; ++i) {
        threads.emplace_back(take);
    }
    take();
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

std::size_t Run_Companies(std::span<const Company> companies, const Company_Run& run, std::ostream& errors,
                          const std::function<std::string(const Company&)>& work,
                          const std::function<void(const Company&, const Company_Outcome&)>& done) {
    const unsigned jobs = run.jobs != 0 ? run.jobs : std::max(1U, std::thread::hardware_concurrency());
    std::size_t failures = 0;
    for (std::size_t begin = 0; begin < companies.size(); begin += run.block) {
        const auto block = companies.subspan(begin, std::min(run.block, companies.size() - begin));
        std::vector<Company_Outcome> outcomes(block.size());
        Run_Block(block, std::min<unsigned>(jobs, static_cast<unsigned>(block.size())), outcomes, work);
        for (std::size_t i = 0; i < block.size(); ++i) {
            if (!outcomes[i].failure.empty()) {
                errors << block[i].number << " " << block[i].name << "：" << outcomes[i].failure << "\n";
                ++failures;
            }
            done(block[i], outcomes[i]);
        }
        if (run.progress) {
            Show_Progress(errors, begin + block.size(), companies.size());
        }
    }
    return failures;
}

std::vector<Company> Chosen_Companies(const Session& session, std::span<const std::int32_t> numbers) {
    std::vector<Company> all = Companies_Of(session);
    if (numbers.empty()) {
        return all;
    }
    std::vector<Company> chosen;
    for (const std::int32_t number : numbers) {
        const auto found = std::find_if(
            all.begin(), all.end(), [number](const Company& company) { return company.number == number; });
        chosen.push_back(found == all.end() ? Company{number, "（未登録）", Company::Place::Nowhere}
                                            : *found);
    }
    return chosen;
}

} // namespace morvane
