// SPDX-FileCopyrightText: The Morvane developers
#include "batch/score_run.h"

#include "batch/company_run.h"

#include <ostream>
#include <string>

namespace morvane {

std::size_t Score_Run(const Session& session, const Score_Options& options, std::ostream& out,
                      std::ostream& errors) {
    std::vector<Score_Failure> failures;
    bool first = true;
    out << Score_Head(options.format);
    const auto score_one = [&](const Company& company) {
        const Connection cn = Open_Company(session, company);
        Settled_Score score = Score_Company(cn, session.Kind().edition, options.side);
        score.kanri_no = company.number;
        Score_Extras extras;
        if (options.with_relief) {
            extras.relief = Calc_Gekihen(score.figures);
        }
        if (options.with_twelve) {
            extras.twelve = Calc_Twelve(score.figures.statement, score.figures.firm, score.y);
        }
        return Score_Text(options.format, score, extras);
    };
    const auto write_one = [&](const Company& company, const Company_Outcome& outcome) {
        if (!outcome.failure.empty()) {
            failures.push_back({company.number, company.name, outcome.failure});
            return;
        }
        out << (first ? "" : Score_Separator(options.format)) << outcome.text;
        first = false;
    };
    Run_Companies(options.companies, {.jobs = options.jobs, .progress = options.progress}, errors, score_one,
                  write_one);
    out << Score_Tail(options.format, failures);
    return failures.size();
}

} // namespace morvane
