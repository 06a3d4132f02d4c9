// SPDX-FileCopyrightText: The Morvane developers
#include "batch/company_run.h"

#include "data/shown_text.h"
#include "data/store_error.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <new>
#include <ostream>
#include <thread>

namespace morvane {

namespace {

Company_Outcome Run_One(const Company& company, const std::function<std::string(const Company&)>& work) {
    try {
        return {work(company), ""};
    } catch (const std::exception& error) {
        return {"", Failure_Text(error)};
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

// The program's own failures are told in Japanese; those of libraries are ASCII.
bool Is_Told(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return (static_cast<unsigned char>(c) & 0x80U) != 0; });
}

} // namespace

std::string Failure_Text(const std::exception& error) {
    if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&error)) {
        return One_Line(Store_Error(file->path1(), Reason_Of_Errno(file->code().value()), "").what());
    }
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) {
        return "メモリーが足りません。";
    }
    return Is_Told(error.what()) ? One_Line(error.what())
                                 : "処理できませんでした（" + Shown_Text(error.what()) + "）。";
}

void Show_Progress(std::ostream& errors, std::size_t done, std::size_t all) {
    constexpr std::size_t width = 40;
    const std::size_t filled = done * width / std::max<std::size_t>(all, 1);
    errors << "\r[" << std::string(filled, '#') << std::string(width - filled, '.') << "] " << done << "/"
           << all << (done == all ? "\n" : "") << std::flush;
}

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
                errors << block[i].number << " " << Shown_Text(block[i].name) << "：" << outcomes[i].failure
                       << "\n";
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
