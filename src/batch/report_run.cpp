// SPDX-FileCopyrightText: The Morvane developers
#include "batch/report_run.h"

#include "batch/company_run.h"
#include "batch/output_folder.h"
#include "data/output_file.h"
#include "report/kekka.h"
#include "report/pdf_target.h"
#include "report/report_table.h"

#include <array>
#include <cstdio>
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

Printed Pdf_Of(const Session& session, const Report_Options& options, const Company& company) {
    const Connection cn = Open_Company(session, company);
    Settled_Score score = Score_Company(cn, session.Is_Hokkaido(), options.period, *options.scenario);
    const Law_Year& law = Law_Of(score.figures.law_year);
    const std::string name = law.result_report;
    if (!options.report.empty() && options.report != name) {
        throw Score_Refusal("第" + std::to_string(score.period) + "期は「" + law.name + "」のため、帳票「" +
                            options.report + "」では出力できません。--report を省略するか、" + name +
                            " を指定してください。");
    }
    const Kekka_Figures kekka = Kekka_Read(cn, std::move(score), Heading_Of(session));
    const Report_Row& report = *Find_Report(name);
    Print_State print_state;
    print_state.Prt_Doing = true;
    Read_Report_Info(cn, report, print_state);
    Pdf_Target pdf(Pdf_Info_Of(report, kekka.heading));
    Prt_ModSet prt(print_state, pdf);
    Draw_Kekka(prt, kekka, Kekka_Form_Of(name).value());
    return {pdf.Finish(), Entry_Notice(kekka) + Missing_Notice(prt.Missing())};
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
        const Printed printed = Pdf_Of(session, options, company);
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
