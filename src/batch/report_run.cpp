// SPDX-FileCopyrightText: The Morvane developers
#include "batch/report_run.h"

#include "batch/company_run.h"
#include "batch/output_folder.h"
#include "data/output_file.h"
#include "report/report_table.h"
#include "review/settle.h"
#include "session/kyotu_mod.h"

#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

namespace morvane {

namespace {

namespace fs = std::filesystem;

// A file by its name, or what stands there and is no folder: a device, a pipe.
bool Is_File(const fs::path& output) {
    std::error_code error;
    const fs::file_status status = fs::status(output, error);
    return output.extension() == ".pdf" || output.extension() == ".PDF" ||
           (fs::exists(status) && !fs::is_directory(status));
}

fs::path File_Of(const fs::path& output, std::int32_t number) {
    if (Is_File(output)) {
        return output;
    }
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "%06d.pdf", static_cast<int>(number));
    return output / name.data();
}

/// A report as a PDF file, and what is to be said of it.
struct Printed {
    std::string pdf;
    std::string notice;
};

/// A variant of another law year would leave out what counts in this one.
void Test_Variant(const Report_Row& report, const Law_Year& law, int period) {
    if (report.variant != nullptr && std::string_view(law.*report.variant) != report.name) {
        throw Score_Refusal("第" + std::to_string(period) + "期は「" + law.name + "」のため、帳票「" +
                            report.name + "」では出力できません。--report を省略するか、" +
                            law.*report.variant + " を指定してください。");
    }
}

Printed Print(const Session& session, const Report_Options& options, const Company& company) {
    const Connection cn = Open_Company(session, company);
    const Side side = Side_Of(cn, options.side);
    const Law_Year& law = Law_Of(Get_Simyu_Kubun(cn, side.period));
    const Report_Row& report =
        *Find_Report(options.report.empty() ? law.result_report : options.report.c_str());
    const Rpt_Draw drawn = report.read(cn, session, {.sides = Sides_Of(report.sides, side)});
    Test_Variant(report, law, side.period);
    Print_State print_state;
    Read_Report_Info(cn, report, print_state);
    std::vector<Letter> missing;
    std::string pdf = Pdf_Of(report, drawn, print_state, &missing);
    return {std::move(pdf), drawn.warning + Missing_Notice(missing)};
}

} // namespace

std::size_t Report_Run(const Session& session, const Report_Options& options, std::ostream& errors) {
    if (Is_File(options.output)) {
        if (options.companies.size() > 1) {
            throw Usage_Error(
                "複数の事業所は1つのファイルに出力できません。-o にフォルダを指定してください。");
        }
    } else {
        Make_Output_Folder(options.output);
    }
    const auto print_one = [&](const Company& company) {
        const Printed printed = Print(session, options, company);
        Write_Output(File_Of(options.output, company.number), printed.pdf);
        return printed.notice;
    };
    const auto tell = [&](const Company& company, const Company_Outcome& outcome) {
        if (!outcome.text.empty()) {
            errors << company.number << " " << company.name << "：" << outcome.text << "\n";
        }
    };
    return Run_Companies(options.companies, {.jobs = options.jobs, .progress = options.progress, .block = 32},
                         errors, print_one, tell);
}

} // namespace morvane
