// SPDX-FileCopyrightText: The Morvane developers
#include "batch/score_run.h"

#include "batch/case_file.h"
#include "batch/check_run.h"
#include "company/datacheck.h"
#include "data/store_file.h"
#include "session/kidou_ini.h"
#include "support/installation_fixture.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>

namespace morvane::tests {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using nlohmann::ordered_json;

/// Two periods, the second in hand and closing on 31 March 2024; figures in the second.
json Firm(int number, const json& works) {
    json firm = {{"format", "morvane-case"},
                 {"version", 1},
                 {"Tiiki_CD", "13"},
                 {"Jigyo_mas",
                  {{"管理No", number},
                   {"事業所名", "見本" + std::to_string(number)},
                   {"法人個人識別", 1},
                   {"処理決算期", 2},
                   {"決算期終了年", 6},
                   {"決算期終了月", 3},
                   {"決算期終了日", 31}}}};
    const json insured = {{"101", 1}, {"102", 1}, {"103", 1}, {"121", 1}};
    firm["periods"] = {{{"決算期", 1}, {"Simyu_Kubun", 4}, {"W_Yoso", insured}},
                       {{"決算期", 2}, {"Simyu_Kubun", 4}, {"W_Yoso", insured}, {"Kandaka_Gj", works}}};
    return firm;
}

const json one_line = {
    {"0", {{"完工高前期", 9'000}, {"完工高基準", 11'000}, {"技術者1", 1}, {"技術者3", 0}}}};

class Score_Test : public Installation {
  protected:
    void Import(const json& record) const {
        Write_Text_File(beside.path / "case.json", record.dump());
        Import_Case(session, beside.path / "case.json");
    }

    void Import_Firms(int count) const {
        for (int number = 1; number <= count; ++number) {
            Import(Firm(number, one_line));
        }
    }

    /// What the check of the installation finds in so many files.
    std::string Checked(std::size_t faulty) const {
        std::ostringstream out;
        EXPECT_EQ(Check_Run(session, out), faulty) << out.str();
        return out.str();
    }

    struct Run {
        std::string out;
        std::vector<std::string> errors; ///< lines
        std::size_t failures = 0;

        [[nodiscard]] ordered_json Parsed() const { return ordered_json::parse(out); }
    };

    using Change = std::function<void(Score_Options&)>;
    [[nodiscard]] Run Scored(const Change& change = [](Score_Options&) {}) const {
        Score_Options options;
        options.companies = Companies_Of(session);
        options.format = Score_Format::Json;
        options.jobs = 1;
        change(options);
        std::ostringstream out, errors;
        Run run;
        run.failures = Score_Run(session, options, out, errors);
        run.out = out.str();
        std::istringstream lines(errors.str());
        for (std::string line; std::getline(lines, line);) {
            run.errors.push_back(line);
        }
        return run;
    }

    void Execute(std::int32_t number, const std::string& sql) const {
        Connection(Company_Store(session, number), session.Db_Key).Execute(sql);
    }
    /// In the latter half of the file, so that the store still opens and says what tables it has.
    static void Damage(const fs::path& store) {
        constexpr std::uintmax_t page = 4096;
        const std::uintmax_t end = fs::file_size(store);
        std::fstream file(store, std::ios::in | std::ios::out | std::ios::binary);
        for (std::uintmax_t at = end / page / 2 * page; at < end; at += page) {
            file.seekp(static_cast<std::streamoff>(at));
            file << std::string(64, 'x');
        }
    }

    Temporary_Folder beside;
};

TEST_F(Score_Test, Csv_And_Table) {
    json firm = Firm(1, one_line);
    firm["Jigyo_mas"]["事業所名"] = "見本,\"組\"";
    Import(firm);
    const std::string csv = Scored([](Score_Options& options) { options.format = Score_Format::Csv; }).out;
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 35);
    const std::string first_lines =
        "管理No,事業所名,決算期,Simyu_Kubun,scenario,工種CD,工種略,完工高平均,評点X1,評点Z1,元請完工高平均,"
        "評点Z2,評点Z,総合評点P,Y,X2,W\n"
        "1,\"見本,\"\"組\"\"\",2,4,genjo,0,土木一式,10000,528,584,,241,515,363,41,454,175\n"
        "1,\"見本,\"\"組\"\"\",2,4,genjo,1,ＰＣ,,,,,,,,41,454,175\n";
    EXPECT_EQ(csv.substr(0, first_lines.size()), first_lines);
    const std::string table =
        Scored([](Score_Options& options) { options.format = Score_Format::Table; }).out;
    for (const char* part : {"第2期", "Y 41", "A -3.24", "X2 454", "W 175", "土木一式", "10,000", "363"}) {
        EXPECT_PRED2(Has, table, part);
    }
    EXPECT_EQ(table.find("建築一式"), std::string::npos) << "a line without figures";
}

TEST_F(Score_Test, Failures_Leave_The_Others) {
    Import_Firms(5);
    Import(Firm(2, {{"0", {{"完工高基準", 57'266'232}}}}));
    fs::remove(Company_Store(session, 3));
    Damage(Company_Store(session, 4));
    for (const unsigned jobs : {1U, 4U}) {
        const Run run = Scored([&](Score_Options& options) {
            options.jobs = jobs;
            options.companies.insert(options.companies.begin(), {99, "（未登録）", {}});
        });
        EXPECT_EQ(run.failures, 4U);
        const ordered_json root = run.Parsed();
        ASSERT_EQ(root["companies"].size(), 2U);
        EXPECT_EQ(root["companies"][0]["管理No"], 1);
        EXPECT_EQ(root["companies"][1]["管理No"], 5);
        const std::pair<int, const char*> failed[] = {
            {99, "000099.dat"}, {2, "桁あふれ"}, {3, "000003.dat"}, {4, "000004.dat"}};
        ASSERT_EQ(root["errors"].size(), std::size(failed));
        ASSERT_EQ(run.errors.size(), std::size(failed));
        for (std::size_t i = 0; i < std::size(failed); ++i) {
            EXPECT_EQ(root["errors"][i]["管理No"], failed[i].first);
            EXPECT_PRED2(Has, run.errors[i], failed[i].second);
            EXPECT_TRUE(run.errors[i].starts_with(std::to_string(failed[i].first) + " ")) << run.errors[i];
            EXPECT_TRUE(run.errors[i].ends_with("：" + root["errors"][i]["error"].get<std::string>()));
        }
    }
}

// A closing date that is none takes only the scores that need it; 29 February counts as the last of its
// month.
TEST_F(Score_Test, Dates_That_Are_None) {
    const struct {
        int year, month, day, period;
        int w; ///< -1: refused
    } cases[] = {{6, 2, 29, 2, 175}, {6, 2, 29, 1, 190}, {8, 2, 29, 2, 175},
                 {7, 2, 29, 2, -1},  {6, 4, 31, 2, -1},  {6, 4, 31, 1, -1}};
    for (const auto& c : cases) {
        Import(Firm(1, one_line));
        Execute(1, "UPDATE Jigyo_mas SET 決算期終了年=" + std::to_string(c.year) + ", 決算期終了月=" +
                       std::to_string(c.month) + ", 決算期終了日=" + std::to_string(c.day));
        Import(Firm(2, one_line));
        const ordered_json root =
            Scored([&](Score_Options& options) { options.side.period = c.period; }).Parsed();
        ASSERT_EQ(root["companies"].size(), c.w < 0 ? 1U : 2U) << c.month << " " << c.day;
        if (c.w < 0) {
            EXPECT_NE(root["errors"][0]["error"].get<std::string>().find("日付ではない"), std::string::npos);
        } else {
            EXPECT_EQ(root["companies"][0]["W"]["W"], c.w) << c.year;
        }
    }
}

TEST_F(Score_Test, A_Company_Left_In_Hand_Is_Read_From_The_Working_Store) {
    Import_Firms(2);
    Copy_Store(Company_Store(session, 2), session.Work_Store, session.Db_Key);
    session.Syori_Ki = 2;
    Put_Work(0, {{"完工高基準", 31'000}});
    const auto averages = [&] {
        const ordered_json companies = Scored().Parsed()["companies"];
        return std::vector<int>{companies[0]["Kandaka_Gj"][0]["完工高平均"],
                                companies[1]["Kandaka_Gj"][0]["完工高平均"]};
    };
    EXPECT_EQ(averages(), std::vector({10'000, 10'000}));
    Write_Kidou_Ini(folder.path, {2, "見本2"});
    EXPECT_EQ(averages(), std::vector({10'000, 20'000}));
    // Registered and not yet taken through the list: the lock file alone tells.
    Write_Kidou_Ini(folder.path, {});
    Write_Text_File(folder.path / "morvane.lock", "2          \n");
    EXPECT_EQ(averages(), std::vector({10'000, 20'000}));
    // A working store that is not the marked company's is nobody's newest state.
    fs::remove(folder.path / "morvane.lock");
    Write_Kidou_Ini(folder.path, {2, "見本2"});
    Cn_Open(session).Execute("UPDATE Jigyo_mas SET 管理No=77");
    const auto scored = Scored();
    EXPECT_EQ(scored.Parsed()["companies"].size(), 1U);
    ASSERT_EQ(scored.errors.size(), 1U);
    EXPECT_PRED2(Has, scored.errors[0], "事業所番号 77");
}

// The name of a file is no proof of whose it is.
TEST_F(Score_Test, A_Foreign_Store_Is_Neither_Scored_Nor_Passed) {
    Import_Firms(3);
    fs::rename(Company_Store(session, 1), folder.path / "data/x");
    fs::rename(Company_Store(session, 2), Company_Store(session, 1));
    fs::rename(folder.path / "data/x", Company_Store(session, 2));
    Execute(3, "UPDATE Ks_Zaihyo SET 並び順=6 WHERE 建設科目CD=99;");
    const auto scored = Scored();
    EXPECT_EQ(scored.Parsed()["companies"].size(), 0U);
    ASSERT_EQ(scored.errors.size(), 3U);
    const char* words[] = {"事業所番号 2", "事業所番号 1", "北海道版のデータ"};
    for (std::size_t i = 0; i < scored.errors.size(); ++i) {
        EXPECT_PRED2(Has, scored.errors[i], words[i]);
    }
    Checked(3);
    Import(Firm(4, one_line));
    Execute(4, "UPDATE Jigyo_mas SET 事業所名='改名', 決算期終了月=13;");
    const std::string found = Checked(4);
    EXPECT_PRED2(Has, found, "data/000004.dat：事業所名「改名」が事業所一覧の");
    EXPECT_PRED2(Has, found, "data/000004.dat：決算期終了日「6/13/31」");
}

TEST_F(Score_Test, Check_Finds_What_Is_Wrong) {
    Import_Firms(4);
    EXPECT_EQ(Checked(0), "");
    Execute(1, "UPDATE Ks_Zaihyo SET 金額=1 WHERE 決算期=2 And 建設科目CD=901;");
    Execute(1, "UPDATE Ks_Zaihyo SET 金額=2000 WHERE 決算期=1 And 建設科目CD=199;");
    Execute(2, "DROP TABLE QandA;");
    Damage(Company_Store(session, 3));
    fs::remove(Company_Store(session, 4));
    fs::copy_file(Company_Store(session, 1), folder.path / "data" / "000077.dat");
    const std::string found = Checked(5);
    for (const char* finding :
         {"data/000001.dat：第2期 バランス不合：差額 -1 円",
          "data/000001.dat：第1期 バランス不合： 資産合計 2,000 円", "data/000002.dat：", "QandA",
          "data/000003.dat：", "data/000004.dat：", "data/000077.dat：事業所一覧にないファイルです。"}) {
        EXPECT_PRED2(Has, found, finding);
    }
    EXPECT_EQ(std::count(found.begin(), found.end(), '\n'), 6);

    Damage(folder.path / "morv_set.dat");
    EXPECT_PRED2(Has, Checked(6), "morv_set.dat：");

    // A firm of its own is the company of the working store.
    Install("13", false);
    EXPECT_EQ(Scored().Parsed()["companies"].size(), 0U);
    Import(Firm(3, one_line));
    EXPECT_EQ(Scored().Parsed()["companies"][0]["管理No"], 3);
    Cn_Open(session).Execute("UPDATE Ks_Zaihyo SET 金額=1 WHERE 決算期=2 And 建設科目CD=901;");
    EXPECT_EQ(Checked(1), "Morvane.dat：第2期 バランス不合：差額 -1 円（0 と 1）\n");
}

} // namespace
} // namespace morvane::tests
