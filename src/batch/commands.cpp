// SPDX-FileCopyrightText: The Morvane developers
#include "batch/commands.h"

#include "batch/case_file.h"
#include "batch/check_run.h"
#include "batch/company_run.h"
#include "batch/installation.h"
#include "batch/output_folder.h"
#include "batch/report_run.h"
#include "batch/score_run.h"
#include "data/decimal.h"
#include "data/output_file.h"
#include "data/shown_text.h"
#include "law/law_year.h"
#include "law/run_time_error.h"
#include "law/ten_tables.h"
#include "maint/csv_out.h"
#include "report/report_table.h"

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
    bool repair = false;
    bool edition_given = false;
};

void Tell_Imported(const Imported& imported) {
    const std::string name = std::to_string(imported.number) + " " + Shown_Text(imported.name);
    std::cout << name << (imported.replaced ? "：置き換えました。" : "：取り込みました。") << "\n";
    for (const std::string& reason : imported.unsettled) {
        std::cerr << name << "：" << Shown_Text(reason) << "\n";
    }
}

std::string Text_Of_Failure(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& error) {
        return Failure_Text(error);
    }
}

/// Imports the files one after the other; a file that fails is one line, the others go on.
int Import_All(const Session& session, const std::vector<fs::path>& files) {
    int status = status_done;
    const bool progress = ::isatty(STDERR_FILENO) == 1 && ::isatty(STDOUT_FILENO) == 0 && files.size() > 1;
    std::size_t done = 0;
    Import_Cases(session, files, [&](const Import_End& end) {
        if (end.imported) {
            Tell_Imported(*end.imported);
        } else {
            std::cerr << Text_Of_Failure(end.failure) << "\n";
            status = status_failed;
        }
        if (progress) {
            Show_Progress(std::cerr, ++done, files.size());
        }
    });
    return status;
}

int Run_Repair(const Init_Arguments& arguments) {
    const auto lines = Repair_Folder(arguments.folder,
                                     arguments.edition_given ? Edition_Of(arguments.edition) : std::nullopt);
    for (const std::string& line : lines) {
        std::cout << One_Line(line) << "\n";
    }
    if (lines.empty()) {
        std::cout << "失われたファイルはありません。\n";
    }
    return status_done;
}

int Run_Init(const Init_Arguments& arguments) {
    if (arguments.repair) {
        return Run_Repair(arguments);
    }
    const bool multi = arguments.mode == "multi";
    const std::optional<Edition> edition = Edition_Of(arguments.edition);
    std::vector<fs::path> samples;
    if (arguments.sample) {
        samples = Sample_Cases(*edition);
        samples.resize(multi ? samples.size() : std::min<std::size_t>(samples.size(), 1));
    }
    const std::string office = multi && arguments.sample ? "見本行政書士事務所" : "";
    const Instance_Lock lock = Init_Installation(arguments.folder, {edition, multi, office});
    if (samples.empty()) {
        return status_done;
    }
    return Import_All(Open_Installation(arguments.folder, messages), samples);
}

// ---- import, export, csv

int Run_Import(const std::string& folder, const std::vector<std::string>& names) {
    const Session session = Open_Installation(folder, messages);
    if (!session.Is_Multi() && names.size() != 1) {
        throw Usage_Error("自社で使う（single）データフォルダには1件だけ取り込めます。");
    }
    const std::vector<fs::path> files(names.begin(), names.end());
    for (const fs::path& file : files) {
        std::error_code error;
        if (!fs::exists(file, error)) {
            throw Usage_Error("ファイル「" + Shown_Text(file.string(), most_path) + "」がありません。");
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
        Write_Output(output, text);
    }
    return status_done;
}

int Run_Csv(const std::string& folder, const std::string& target, std::optional<std::int32_t> number) {
    const Session session = Open_Installation(folder, messages);
    const fs::path store = number ? Store_Of(session, Named_Company(session, *number)) : session.Work_Store;
    Make_Output_Folder(target);
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
    std::vector<std::string> with;
    unsigned jobs = 0;
};

Asked_Side Side_Of(const Score_Arguments& arguments) {
    return {arguments.period, Scenario_Named(arguments.scenario).value()};
}

int Run_Score(const Score_Arguments& arguments) {
    const Session session = Open_Installation(arguments.folder, messages);
    Score_Options options;
    options.side = Side_Of(arguments);
    options.format = arguments.format == "json"  ? Score_Format::Json
                     : arguments.format == "csv" ? Score_Format::Csv
                                                 : Score_Format::Table;
    const auto with = [&arguments](const char* what) {
        return std::find(arguments.with.begin(), arguments.with.end(), what) != arguments.with.end();
    };
    options.with_relief = with("relief");
    options.with_twelve = with("twelve");
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
    options.side = Side_Of(arguments);
    options.report = report;
    options.output = output;
    options.jobs = arguments.jobs;
    options.progress = ::isatty(STDERR_FILENO) == 1;
    return Report_Run(session, options, std::cerr) == 0 ? status_done : status_failed;
}

// ---- ten

int Run_Ten(const std::string& name, std::int64_t amount, const Law_Year& law) {
    const bool b = law.version_b;
    const std::map<std::string, std::pair<int, const Ten_Table*>> tables = {
        {"X1", {1, b ? &Ten_X1_B : &Ten_X1_A}},
        {"X2_1", {2, &Ten_X2_1}},
        {"X2_2", {3, &Ten_X2_2}},
        {"Z1", {5, &Ten_Z1}},
        {"Z2", {4, b ? &Ten_Z2_B : &Ten_Z2_A}}};
    if (amount < INT32_MIN || amount > INT32_MAX) {
        throw Run_Time_Error(Run_Time_Error::Kind::Overflow,
                             "桁あふれのため計算できません。評点表の値は 2,147,483,647 までです。");
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

/// A list of words, shown.
std::string Listed(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words) {
        list += (list.empty() ? "" : "、") + Shown_Text(word);
    }
    return list;
}

/// The arguments that a command needs and did not get.
std::vector<std::string> Missing_Arguments(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    if (chosen.empty()) {
        return {"コマンド"};
    }
    std::vector<std::string> missing;
    for (const CLI::Option* option : chosen.front()->get_options()) {
        if (option->get_required() && option->count() == 0) {
            missing.push_back(option->get_name());
        }
    }
    return missing;
}

/// What is wrong with the arguments, in Japanese.
std::string Argument_Fault(const CLI::App& app, const CLI::Error& error) {
    const auto is = [&error](CLI::ExitCodes code) { return error.get_exit_code() == static_cast<int>(code); };
    if (is(CLI::ExitCodes::RequiredError)) {
        return "引数が足りません（" + Listed(Missing_Arguments(app)) + "）。";
    }
    if (is(CLI::ExitCodes::ExtrasError)) {
        return "知らない引数です（" + Listed(app.remaining(true)) + "）。";
    }
    if (is(CLI::ExitCodes::ArgumentMismatch)) {
        const std::string text = error.what(); // begins with the option
        return "値の数が合いません（" + Shown_Text(text.substr(0, text.find(':'))) + "）。";
    }
    return "引数が正しくありません。";
}

constexpr const char* usage_hint =
    "使い方は morvane-batch --help、各コマンドの使い方は morvane-batch コマンド "
    "--help で表示します。";

/// The whole number that the text of an argument is: decimal, from `lowest` to `highest`. Raises Usage_Error.
template <class Int>
Int Number_Argument(const char* name, const std::string& text, Int lowest, Int highest) {
    const auto number = Decimal(text);
    if (!number || *number < std::int64_t{lowest} || *number > std::int64_t{highest}) {
        const auto in_reach = [](Int limit) {
            return std::to_string(std::clamp<std::int64_t>(limit, INT32_MIN, INT32_MAX));
        };
        throw Usage_Error(std::string(name) + "に「" + Shown_Text(text) + "」は指定できません。" +
                          in_reach(lowest) + " から " + in_reach(highest) +
                          " までの数字を指定してください。\n" + usage_hint);
    }
    return static_cast<Int>(*number);
}

std::int32_t Company_Argument(const std::string& text) {
    return Number_Argument<std::int32_t>("事業所番号（--company）", text, 0, INT32_MAX);
}

/// An option that takes one of some words.
CLI::Option* One_Of(CLI::Option* option, const std::vector<std::string>& words) {
    return option->type_name(Listed(words))->check([option, words](const std::string& text) {
        if (std::find(words.begin(), words.end(), text) == words.end()) {
            throw Usage_Error(option->get_name() + " に「" + Shown_Text(text) + "」は指定できません。" +
                              Listed(words) + " のどれかを指定してください。\n" + usage_hint);
        }
        return std::string();
    });
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
              std::pair("Positionals", "引数"), std::pair("SUBCOMMAND", "コマンド"),
              std::pair("REQUIRED", "必須"), std::pair("TEXT", "文字列")}) {
            app.get_formatter()->label(label, text);
        }
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
            if (error.get_exit_code() == 0) {
                return app.exit(error);
            }
            throw Usage_Error(Argument_Fault(app, error) + "\n" + usage_hint);
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
        const CLI::Option* edition = sub->add_option("--edition", init.edition, "01 北海道版、13 全国版");
        One_Of(sub->get_option("--edition"), {"13", "01"});
        One_Of(sub->add_option("--mode", init.mode,
                               "single 自社で使う（1社）、multi 事務所で使う（多数の事業所）"),
               {"single", "multi"});
        sub->add_flag("--sample", init.sample, "見本の事業所を取り込みます。");
        sub->add_flag(
            "--repair", init.repair,
            "フォルダから失われたファイル（設定、事業所一覧など）だけを、残りのデータから作り直します。");
        sub->callback([this, edition] {
            init.edition_given = edition->count() > 0;
            command = [this] { return Run_Init(init); };
        });
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
        One_Of(sub->add_option("--format", score.format, "出力形式"), {"table", "csv", "json"});
        One_Of(sub->add_option("--with", score.with,
                               "JSON に加える内容（コンマ区切り）。relief 激変緩和措置の比較、twelve 12指標")
                   ->delimiter(',')
                   ->allow_extra_args(false),
               {"relief", "twelve"});
        sub->callback([this] {
            Take_Choice();
            if (!score.with.empty() && score.format != "json") {
                throw Usage_Error(std::string("表とCSVには --with の内容を出力できません。--format json "
                                              "を併せて指定してください。\n") +
                                  usage_hint);
            }
            command = [this] { return Run_Score(score); };
        });
    }

    /// Which companies, of which period, in which scenario.
    void Add_Choice(CLI::App* sub) {
        sub->add_option("DIR", score.folder, "データフォルダ")->required();
        Add_Number(sub, "--company", companies, "事業所番号（繰り返し可。省略時はすべて）");
        Add_Number(sub, "--period", period, "決算期（省略時は処理中の決算期）");
        One_Of(sub->add_option("--scenario", score.scenario, "genjo 現状、kaizen 改善後、1～3 保存値"),
               {"genjo", "kaizen", "1", "2", "3"});
        Add_Number(sub, "--jobs", jobs, "同時に計算する数（省略時は全コア）");
    }

    // Numbers come as texts: the parser's own reading takes a leading zero for another base.
    template <class Texts>
    static CLI::Option* Add_Number(CLI::App* sub, const char* name, Texts& texts, const std::string& does) {
        return sub->add_option(name, texts, does)->allow_extra_args(false)->type_name("数");
    }

    void Take_Choice() {
        for (const std::string& text : companies) {
            score.companies.push_back(Company_Argument(text));
        }
        if (period) {
            score.period = Number_Argument("決算期（--period）", *period, 0, 32767);
        }
        if (jobs) {
            score.jobs = static_cast<unsigned>(Number_Argument("--jobs ", *jobs, 1, 256));
        }
    }

    void Add_Report() {
        CLI::App* sub = Add("report", "結果通知書をPDFに出力します。",
                            "morvane-batch report ~/morvane --company 1 -o kekka.pdf");
        Add_Choice(sub);
        std::vector<std::string> names;
        for (const Report_Row& row : Report_Table()) {
            names.emplace_back(row.name);
        }
        One_Of(sub->add_option("--report", report, "帳票（省略時は決算期の改正年の結果通知書）"), names);
        sub->add_option("-o,--output", output, "出力するPDFファイル、またはフォルダ（事業所ごとに1ファイル）")
            ->required();
        sub->callback([this] {
            Take_Choice();
            command = [this] { return Run_Report(score, report, output); };
        });
    }

    void Add_Export() {
        CLI::App* sub = Add("export", "事業所をケースファイルに書き出します。",
                            "morvane-batch export ~/morvane --company 1 -o aoba.json");
        sub->add_option("DIR", folder, "データフォルダ")->required();
        Add_Number(sub, "--company", company, "事業所番号")->required();
        const CLI::Option* target =
            sub->add_option("-o,--output", output, "出力ファイル（省略時は標準出力）");
        sub->callback([this, target] {
            if (target->count() > 0 && output.empty()) {
                throw Usage_Error("出力先の名前が空です。");
            }
            command = [this, number = Company_Argument(*company)] {
                return Run_Export(folder, number, output);
            };
        });
    }

    void Add_Csv() {
        CLI::App* sub =
            Add("csv", "5つの表をCSVに書き出します。", "morvane-batch csv ~/morvane ~/csv --company 1");
        sub->add_option("DIR", folder, "データフォルダ")->required();
        sub->add_option("OUT", output, "出力フォルダ")->required();
        Add_Number(sub, "--company", company, "事業所番号（省略時は作業中のデータ）");
        sub->callback([this] {
            std::optional<std::int32_t> number;
            if (company) {
                number = Company_Argument(*company);
            }
            command = [this, number] { return Run_Csv(folder, output, number); };
        });
    }

    void Add_Ten() {
        CLI::App* sub = Add("ten", "評点表の点数と行を表示します。", "morvane-batch ten X1 120000 --law 4");
        One_Of(sub->add_option("TABLE", table, "評点表")->required(), {"X1", "X2_1", "X2_2", "Z1", "Z2"});
        sub->add_option("VALUE", value, "金額（千円）、Z1 は技術職員数値")->required()->type_name("数");
        Add_Number(sub, "--law", law,
                   "改正年の区分 " + std::to_string(Law_Number(Oldest_Law_Year().code)) + "～" + law +
                       "（省略時 " + law + "）");
        sub->callback([this] {
            const auto number = Number_Argument<std::int64_t>("VALUE ", value, INT64_MIN, INT64_MAX);
            const int code = Number_Argument<int>("--law ", law, Law_Number(Oldest_Law_Year().code),
                                                  Law_Number(Newest_Law_Year().code));
            command = [this, number, code] { return Run_Ten(table, number, Law_Of(code)); };
        });
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
    std::vector<std::string> companies;
    std::optional<std::string> company, period, jobs;
    std::string value;
    std::string law = std::to_string(Law_Number(Newest_Law_Year().code));
};

} // namespace

int Batch_Main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    int status = status_done;
    try {
        status = Command_Line().Run(argc, argv);
    } catch (const Usage_Error& error) {
        std::cerr << Shown_Lines(error.what()) << "\n";
        status = status_usage;
    } catch (const std::exception& error) {
        std::cerr << Failure_Text(error) << "\n";
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
