// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "batch/installation.h"
#include "batch/score_format.h"

#include <iosfwd>
#include <vector>

namespace morvane {

struct Score_Options {
    std::vector<Company> companies;
    Asked_Side side;
    Score_Format format = Score_Format::Table;
    bool with_relief = false; ///< JSON alone: P under the four ways of averaging
    bool with_twelve = false; ///< JSON alone: the twelve indicators
    unsigned jobs = 0;        ///< threads; 0 all cores
    bool progress = false;    ///< a bar on the error stream
};

/// Scores the companies in their order, each from its own file, and writes the results. A company that fails
/// is one line on `errors` and the others go on. Memory does not grow with their number. Gives the count of
/// failures.
std::size_t Score_Run(const Session& session, const Score_Options& options, std::ostream& out,
                      std::ostream& errors);

} // namespace morvane
