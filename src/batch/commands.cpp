// SPDX-FileCopyrightText: The Morvane developers
#include "batch/commands.h"

#include "batch/case_file.h"
#include "batch/check_run.h"
#include "batch/company_run.h"
#include "batch/installation.h"
#include "batch/report_run.h"
#include "batch/score_run.h"
#include "calc/law_year.h"
#include "calc/ten_tables.h"
#include "data/store_file.h"
#include "maint/csv_out.h"
#include "report/report_table.h"
#include "session/run_time_error.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>
#include <map>
#include <unistd.h>

namespace morvane {

namespace {

namespace fs = std::filesystem;

constexpr int status_done = 0;
constexpr int status_failed = 1;
constexpr int status_usage = 2;

Stderr_Messages messages; // has no state

// ---- init

struct Init_Arguments {
    std::string folder;
    std::string edition = "13";
    std::string mode = "multi";
    bool sample = false;
};

/// Imports the files one after the other; a file that fails is one line, the others go on.
int Import_All(const Session& session, const std::vector<fs::path>& files) {
    int status = status_done;
    for (const fs::path& file : files) {
        try {
            const Imported imported = Import_Case(session, file);
            std::cout << imported.number << " " << imported.name
                      << (imported.replaced ? "：置き換えました。" : "：取り込みました。") << "\n";
        } catch (const std::exception& error) {
            std::cerr << error.what() << "\n";
            status = status_failed;
        }
    }
    return status;
}

int Run_Init(const Init_Arguments& arguments) {
    const bool multi = arguments.mode == "multi";
    std::vector<fs::path> samples;
    if (arguments.sample) {
        samples = Sample_Cases(arguments.edition);
        samples.resize(multi ? samples.size() : std::min<std::size_t>(samples.size(), 1));
    }
    const std::string office = multi && arguments.sample ? "見本行政書士事務所" : "";
    Init_Installation(arguments.folder, {arguments.edition, multi, office});
    if (samples.empty()) {
        return status_done;
    }
    const Session session = Open_Installation(arguments.folder, messages);
    const Instance_Lock lock = Lock_Installation(session);
    return Import_All(session, samples);
}

// ---- import, export, csv

int Run_Import(const std::string& folder, const std::vector<std::string>& names) {
    const Session session = Open_Installation(folder, messages);
    if (!session.Is_Multi() && names.size() != 1) {
        throw Usage_Error("自社で使う（single）データフォルダには1件だけ取り込めます。");
    }
    const std::vector<fs::path> files(names.begin(), names.end());
    for (const fs::path& file : files) {
        if (!fs::exists(file)) {
            throw Usage_Error("ファイル「" + file.string() + "」がありません。");
        }
    }
    const Instance_Lock lock = Lock_Installation(session);
    return Import_All(session, files);
}

Company Named_Company(const Session& session, std::int32_t number) {
    for (Company& company : Companies_Of(session)) {
        if (company.number == number) {
            return std::move(company);
        }
    }
    throw Score_Refusal(std::to_string(number) + "：登録されていない事業所番号です。");
}

int Run_Export(const std::string& folder, std::int32_t number, const std::string& output) {
    const Session session = Open_Installation(folder, messages);
    const std::string text =
        Case_Text(Export_Case(session, Store_Of(session, Named_Company(session, number))));
    if (output.empty()) {
        std::cout << text;
    } else {
        Write_Text_File(output, text);
    }
    return status_done;
}

int Run_Csv(const std::string& folder, const std::string& target, std::optional<std::int32_t> number) {
    const Session session = Open_Installation(folder, messages);
    const fs::path store = number ? Store_Of(session, Named_Company(session, *number)) : session.Work_Store;
    std::error_code error;
    fs::create_directories(target, error);
    if (!fs::is_directory(target)) {
        throw Usage_Error("フォルダ「" + target + "」を作成できません。");
    }
    Csv_Out(Connection(store, session.Db_Key, Connection::Mode::Read_Only), target);
    return status_done;
}

// ---- score

struct Score_Arguments {
    std::string folder;
    std::vector<std::int32_t> companies;
    std::optional<int> period;
    std::string scenario = "genjo";
    std::string format = "table";
    unsigned jobs = 0;
};

const Scenario& Named_Scenario(const std::string& name) {
    return *std::find_if(scenarios.begin(), scenarios.end(),
                         [&](const Scenario& scenario) { return scenario.name == name; });
}

int Run_Score(const Score_Arguments& arguments) {
    const Session session = Open_Installation(arguments.folder, messages);
    Score_Options options;
    options.period = arguments.period;
    options.scenario = &Named_Scenario(arguments.scenario);
    options.format = arguments.format == "json"  ? Score_Format::Json
                     : arguments.format == "csv" ? Score_Format::Csv
                                                 : Score_Format::Table;
    options.jobs = arguments.jobs;
    options.progress = ::isatty(STDERR_FILENO) == 1 && ::isatty(STDOUT_FILENO) == 0;
    options.companies = Chosen_Companies(session, arguments.companies);
    return Score_Run(session, options, std::cout, std::cerr) == 0 ? status_done : status_failed;
}

// ---- report

int Run_Report(const Score_Arguments& arguments, const std::string& report, const std::string& output) {
    const Session session = Open_Installation(arguments.folder, messages);
    Report_Options options;
    options.companies = Chosen_Companies(session, arguments.companies);
    options.period = arguments.period;
    options.scenario = &Named_Scenario(arguments.scenario);
    options.report = report;
    options.output = output;
    options.jobs = arguments.jobs;
    options.progress = ::isatty(STDERR_FILENO) == 1;
    return Report_Run(session, options, std::cerr) == 0 ? status_done : status_failed;
}

// ---- ten

int Run_Ten(const std::string& name, std::int64_t amount, int law) {
    const bool b = Law_Of(law).version_b;
    const std::map<std::string, std::pair<int, const Ten_Table*>> tables = {
        {"X1", {1, b ? &Ten_X1_B : &Ten_X1_A}},
        {"X2_1", {2, &Ten_X2_1}},
        {"X2_2", {3, &Ten_X2_2}},
        {"Z1", {5, &Ten_Z1}},
        {"Z2", {4, b ? &Ten_Z2_B : &Ten_Z2_A}}};
    if (amount < INT32_MIN || amount > INT32_MAX) {
        throw Run_Time_Error(Run_Time_Error::Kind::Overflow, "値が32ビットの範囲を超えています。");
    }
    const auto& [number, table] = tables.at(name);
    const Ten_Result result = Ten_Lookup(*table, static_cast<std::int32_t>(amount));
    std::cout << "評点 " << result.ten;
    if (result.row < 0) {
        std::cout << "  行 -（負の値）\n";
        return status_done;
    }
    std::cout << "  行 " << result.row << "\n";
    if (result.row == 0) {
        std::cout << table->constant_from << " 以上：" << table->constant_ten << "\n";
    } else {
        const Ten_Row& row = table->rows[static_cast<std::size_t>(result.row - 1)];
        std::cout << row.from << " 以上 " << row.to << " 以下：" << row.multiplier << "×（" << table->caption
                  << "）÷" << row.divisor << "＋" << row.addend << "\n";
    }
    return status_done;
}

// ---- the command line

/// What is wrong with the arguments, in Japanese; `detail` is the parser's word on the argument concerned.
std::string Argument_Fault(const CLI::Error& error) {
    static const std::map<std::string, std::string> faults = {
        {"RequiredError", "引数が足りません"},        {"ExtrasError", "知らない引数です"},
        {"ValidationError", "指定できない値です"},    {"ConversionError", "数値ではありません"},
        {"ArgumentMismatch", "引数の数が合いません"}, {"OptionNotFound", "知らない引数です"},
    };
    const auto found = faults.find(error.get_name());
    return (found == faults.end() ? std::string("引数が正しくありません") : found->second) + "（" +
           error.what() + "）。";
}

/// The commands and their arguments; `Run` is set by the one that was given.
class Command_Line {
  public:
    Command_Line() {
        app.require_subcommand(1);
        app.option_defaults()->group("オプション");
        app.set_help_flag("-h,--help", "使い方を表示します。")->group("オプション");
        app.set_help_all_flag("--help-all", "すべてのコマンドの使い方を表示します。")->group("オプション");
        for (const auto& [label, text] :
             {std::pair("Usage", "使い方"), std::pair("OPTIONS", "オプション"),
              std::pair("Positionals", "引数"), std::pair("SUBCOMMAND", "コマンド")}) {
            app.get_formatter()->label(label, text);
        }
        app.failure_message([](const CLI::App*, const CLI::Error& error) {
            return Argument_Fault(error) +
                   "\n使い方は morvane-batch --help、各コマンドの使い方は morvane-batch コマンド "
                   "--help で表示します。\n";
        });
        Add_Init();
        Add_Import();
        Add_Score();
        Add_Export();
        Add_Csv();
        Add_Report();
        Add_Ten();
        Add_Check();
    }

    int Run(int argc, char** argv) {
        try {
            app.parse(argc, argv);
        } catch (const CLI::ParseError& error) {
            return app.exit(error) == 0 ? status_done : status_usage;
        }
        return command();
    }

  private:
    CLI::App* Add(const char* name, const char* does, const char* example) {
        CLI::App* sub = app.add_subcommand(name, does)->group("コマンド");
        sub->set_help_all_flag();
        sub->set_help_flag("-h,--help", "使い方を表示します。")->group("オプション");
        sub->footer(std::string("例: ") + example);
        return sub;
    }

    void Add_Init() {
        CLI::App* sub = Add("init", "データフォルダを作成します。",
                            "morvane-batch init ~/morvane --edition 13 --mode multi --sample");
        sub->add_option("DIR", init.folder, "作成するフォルダ")->required();
        sub->add_option("--edition", init.edition, "01 北海道版、13 全国版")
            ->check(CLI::IsMember({"13", "01"}));
        sub->add_option("--mode", init.mode, "single 自社で使う（1社）、multi 事務所で使う（多数の事業所）")
            ->check(CLI::IsMember({"single", "multi"}));
        sub->add_flag("--sample", init.sample, "見本の事業所を取り込みます。");
        sub->callback([this] { command = [this] { return Run_Init(init); }; });
    }

    void Add_Import() {
        CLI::App* sub = Add("import", "ケースファイルの事業所を追加または置き換えます。",
                            "morvane-batch import ~/morvane aoba.json");
        sub->add_option("DIR", folder, "データフォルダ")->required();
        sub->add_option("CASE", files, "ケースファイル（JSON）")->required();
        sub->callback([this] { command = [this] { return Run_Import(folder, files); }; });
    }

    void Add_Score() {
        CLI::App* sub = Add("score", "評点を計算します。",
                            "morvane-batch score ~/morvane --company 1 --period 35 --format json");
        Add_Choice(sub);
        sub->add_option("--format", score.format, "出力形式")->check(CLI::IsMember({"table", "csv", "json"}));
        sub->callback([this] { command = [this] { return Run_Score(score); }; });
    }

    /// Which companies, of which period, in which scenario.
    void Add_Choice(CLI::App* sub) {
        sub->add_option("DIR", score.folder, "データフォルダ")->required();
        sub->add_option("--company", score.companies, "事業所番号（繰り返し可。省略時はすべて）");
        sub->add_option("--period", score.period, "決算期（省略時は処理中の決算期）");
        sub->add_option("--scenario", score.scenario, "genjo 現状、kaizen 改善後、1～3 保存値")
            ->check(CLI::IsMember({"genjo", "kaizen", "1", "2", "3"}));
        sub->add_option("--jobs", score.jobs, "同時に計算する数（省略時は全コア）")
            ->check(CLI::Range(1U, 256U));
    }

    void Add_Report() {
        CLI::App* sub = Add("report", "結果通知書をPDFに出力します。",
                            "morvane-batch report ~/morvane --company 1 -o kekka.pdf");
        Add_Choice(sub);
        std::vector<std::string> names;
        for (const Report_Row& row : Report_Table()) {
            if (Kekka_Form_Of(row.name)) {
                names.emplace_back(row.name);
            }
        }
        sub->add_option("--report", report, "帳票（省略時は決算期の改正年の結果通知書）")
            ->check(CLI::IsMember(names));
        sub->add_option("-o,--output", output, "出力するPDFファイル、またはフォルダ（事業所ごとに1ファイル）")
            ->required();
        sub->callback([this] { command = [this] { return Run_Report(score, report, output); }; });
    }

    void Add_Export() {
        CLI::App* sub = Add("export", "事業所をケースファイルに書き出します。",
                            "morvane-batch export ~/morvane --company 1 -o aoba.json");
        sub->add_option("DIR", folder, "データフォルダ")->required();
        sub->add_option("--company", company, "事業所番号")->required();
        sub->add_option("-o,--output", output, "出力ファイル（省略時は標準出力）");
        sub->callback([this] { command = [this] { return Run_Export(folder, *company, output); }; });
    }

    void Add_Csv() {
        CLI::App* sub =
            Add("csv", "5つの表をCSVに書き出します。", "morvane-batch csv ~/morvane ~/csv --company 1");
        sub->add_option("DIR", folder, "データフォルダ")->required();
        sub->add_option("OUT", output, "出力フォルダ")->required();
        sub->add_option("--company", company, "事業所番号（省略時は作業中のデータ）");
        sub->callback([this] { command = [this] { return Run_Csv(folder, output, company); }; });
    }

    void Add_Ten() {
        CLI::App* sub = Add("ten", "評点表の点数と行を表示します。", "morvane-batch ten X1 120000 --law 4");
        sub->add_option("TABLE", table, "評点表")
            ->required()
            ->check(CLI::IsMember({"X1", "X2_1", "X2_2", "Z1", "Z2"}));
        sub->add_option("VALUE", value, "金額（千円）、Z1 は技術職員数値")->required();
        sub->add_option("--law", law, "改正年の区分 1～4（省略時 4）")->check(CLI::Range(1, 4));
        sub->callback([this] { command = [this] { return Run_Ten(table, value, law); }; });
    }

    void Add_Check() {
        CLI::App* sub = Add("check", "すべてのデータファイルを検査します。", "morvane-batch check ~/morvane");
        sub->add_option("DIR", folder, "データフォルダ")->required();
        sub->callback([this] {
            command = [this] {
                const Session session = Open_Installation(folder, messages);
                return Check_Run(session, std::cout) == 0 ? status_done : status_failed;
            };
        });
    }

    CLI::App app{"morvane-batch：経営事項審査シミュレーションの一括処理", "morvane-batch"};
    std::function<int()> command;
    Init_Arguments init;
    Score_Arguments score;
    std::string folder, output, table, report;
    std::vector<std::string> files;
    std::optional<std::int32_t> company;
    std::int64_t value = 0;
    int law = 4;
};

} // namespace

int Batch_Main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    int status = status_done;
    try {
        status = Command_Line().Run(argc, argv);
    } catch (const Usage_Error& error) {
        std::cerr << error.what() << "\n";
        status = status_usage;
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        status = status_failed;
    }
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "標準出力に書き込めませんでした。\n";
        return status_failed;
    }
    return status;
}

} // namespace morvane
