// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "batch/installation.h"

#include <exception>
#include <functional>
#include <iosfwd>
#include <span>
#include <string>
#include <vector>

namespace morvane {

/// How one company went: what the work gave, or the reason why it failed in one line.
struct Company_Outcome {
    std::string text;
    std::string failure;
};

struct Company_Run {
    unsigned jobs = 0;       ///< threads; 0 all cores
    bool progress = false;   ///< a bar on the error stream
    std::size_t block = 256; ///< companies between two states of the bar
};

/// Why something failed, in Japanese, in one line that can go to a terminal: the words of the program's own
/// failures, and words for those of the system that come without.
std::string Failure_Text(const std::exception& error);

/// The state of a long work as a bar; the last one ends its line.
void Show_Progress(std::ostream& errors, std::size_t done, std::size_t all);

/// Does `work` for each company, several at a time, and then `done` in their order. A company that fails is
/// one line on `errors` and the others go on. Memory does not grow with their number. Gives the count of
/// failures.
std::size_t Run_Companies(std::span<const Company> companies, const Company_Run& run, std::ostream& errors,
                          const std::function<std::string(const Company&)>& work,
                          const std::function<void(const Company&, const Company_Outcome&)>& done);

/// The companies of these numbers, all where none is given. A number that is not registered fails like a
/// company whose file is not there.
std::vector<Company> Chosen_Companies(const Session& session, std::span<const std::int32_t> numbers);

} // namespace morvane
