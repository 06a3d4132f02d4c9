// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "batch/installation.h"
#include "review/side.h"

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace morvane {

struct Report_Options {
    std::vector<Company> companies;
    Asked_Side side;
    std::string report; ///< name of a report; empty: the result report of the law year, whose variants alone
                        ///< are printed
    std::filesystem::path output; ///< a PDF file, for one company, else a folder
    unsigned jobs = 0;
    bool progress = false;
};

/// Prints a report of each company into a PDF file: `output` itself where it ends with .pdf, else a
/// file NNNNNN.pdf in that folder, which is made. The scores are the settled ones. Raises Usage_Error where
/// `output` cannot hold them; a company that fails is one line on `errors`. Gives the count of failures.
std::size_t Report_Run(const Session& session, const Report_Options& options, std::ostream& errors);

} // namespace morvane
