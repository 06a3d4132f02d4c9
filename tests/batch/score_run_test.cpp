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
json Firm(int number, const json& works, const json& elements = {}, int law_year = 4) {
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
    json insured = {{"101", 1}, {"102", 1}, {"103", 1}, {"121", 1}};
    insured.update(elements.is_null() ? json::object() : elements);
    firm["periods"] = {
        {{"決算期", 1}, {"Simyu_Kubun", law_year}, {"W_Yoso", insured}},
        {{"決算期", 2}, {"Simyu_Kubun", law_year}, {"W_Yoso", insured}, {"Kandaka_Gj", works}}};
    return firm;
}

const json one_line = {
    {"0", {{"完工高前期", 9'000}, {"完工高基準", 11'000}, {"技術者1", 1}, {"技術者3", 0}}}};

class Score_Test : public Installation {
  protected:
    using Installation::Installation;

    void Import(const json& record) const {
        Write_Text_File(beside.path / "case.json", record.dump());
        Import_Case(session, beside.path / "case.json");
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

std::string Keys(const ordered_json& object) {
    std::string keys;
    for (const auto& [key, value] : object.items()) {
        keys += (keys.empty() ? "" : " ") + key;
    }
    return keys;
}

TEST_F(Score_Test, Json_Of_A_Company) {
    Import(Firm(1, one_line));
    const Run run = Scored();
    EXPECT_EQ(run.failures, 0U);
    const ordered_json root = run.Parsed();
    EXPECT_EQ(Keys(root), "format version companies errors");
    EXPECT_EQ(root["format"], "morvane-score");
    EXPECT_EQ(root["version"], 1);
    EXPECT_EQ(root["errors"], ordered_json::array());
    ASSERT_EQ(root["companies"].size(), 1U);
    const ordered_json& company = root["companies"][0];
    EXPECT_EQ(Keys(company), "管理No 事業所名 決算期 Simyu_Kubun scenario Y X2 W Kandaka_Gj");
    EXPECT_EQ(Keys(company["Y"]), "X ritu A Y");
    EXPECT_EQ(company["X2"].dump(),
              R"({"Jiko":0,"Jiko_Used":0,"Rieki":0,"Rieki_Used":0,"X2_1":361,"X2_2":547,"X2":454})");
    // 10 × 20 × 175/200
    EXPECT_EQ(company["W"].dump(), R"({"W1":0,"W2":0,"W3":20,"W4":0,"W5":0,"W6":0,"W7":0,"W8":0,"W":175})");
    EXPECT_EQ(company["事業所名"].get<std::string>() + company["scenario"].get<std::string>(), "見本1genjo");
    EXPECT_PRED2(Has, run.out, R"("Y":{"X":[5.1,18.0,6.5,-8.5,-76.5,0.0,0.0,0.0],"ritu":[)");
    EXPECT_PRED2(Has, run.out, R"(,40.0,2.9126213],"A":-3.24,"Y":41})");
    ASSERT_EQ(company["Kandaka_Gj"].size(), 34U);
    // X1 11 × 10,000 ÷ 2,000 + 473; Z 467.2 + 48.2; P 132 + 68.1 + 8.2 + 128.75 + 26.25
    EXPECT_EQ(
        company["Kandaka_Gj"][0].dump(),
        R"({"工種CD":0,"工種略":"土木一式","完工高平均":10000,"評点X1":528,"評点Z1":584,"元請完工高平均":null,)"
        R"("評点Z2":241,"評点Z":515,"総合評点P":363})");
    EXPECT_EQ(
        company["Kandaka_Gj"][33].dump(),
        R"({"工種CD":33,"工種略":"その他","完工高平均":null,"評点X1":null,"評点Z1":null,"元請完工高平均":null,)"
        R"("評点Z2":null,"評点Z":null,"総合評点P":null})");
}

TEST_F(Score_Test, Csv_And_Table) {
    json firm = Firm(1, one_line);
    firm["Jigyo_mas"]["事業所名"] = "見本,\"組\"";
    Import(firm);
    const std::string csv = Scored([](Score_Options& options) { options.format = Score_Format::Csv; }).out;
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 35);
    const std::string first_lines =
        "管理No,事業所名,決算期,Simyu_Kubun,scenario,工種CD,工種略,完工高平均,評点X1,評点Z1,元請完工高平均,"
        "評点Z2,"
        "評点Z,総合評点P,Y,X2,W\n"
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
    for (const int number : {1, 2, 3, 4, 5}) {
        Import(Firm(number, one_line));
    }
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
        ASSERT_EQ(root["errors"].size(), 4U);
        ASSERT_EQ(run.errors.size(), 4U);
        const int failed[] = {99, 2, 3, 4};
        const char* reasons[] = {"", "桁あふれ", "000003.dat", "000004.dat"};
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(root["errors"][i]["管理No"], failed[i]);
            const std::string reason = root["errors"][i]["error"];
            EXPECT_PRED2(Has, reason, reasons[i]);
            EXPECT_FALSE(reason.empty());
            EXPECT_EQ(run.errors[i].rfind(std::to_string(failed[i]) + " ", 0), 0U) << run.errors[i];
            EXPECT_PRED2(Has, run.errors[i], reason);
        }
    }
}

TEST_F(Score_Test, Periods_And_Slots) {
    Import(Firm(1, one_line));
    for (const auto& [period, w] : {std::pair(1, 190), {2, 175}, {3, -1}, {0, -1}}) {
        const ordered_json root =
            Scored([period = period](Score_Options& options) { options.side.period = period; }).Parsed();
        if (w >= 0) {
            EXPECT_EQ(root["companies"][0]["決算期"], period);
            EXPECT_EQ(root["companies"][0]["W"]["W"], w);
        } else {
            EXPECT_PRED2(Has, root["errors"][0]["error"], "登録されていません");
        }
    }
    for (const Scenario slot : {Scenario::Slot_1, Scenario::Slot_2, Scenario::Slot_3}) {
        const Run run = Scored([&](Score_Options& options) { options.side.scenario = slot; });
        EXPECT_EQ(run.failures, 1U);
        EXPECT_NE(run.out.find("保存値" + std::string(Columns_Of(slot).name)), std::string::npos);
    }
    Execute(1, "UPDATE Kandaka_Gj SET 改2完工高基準=20000, 改2総合評点P=1 WHERE 決算期=2 And 工種CD=2;");
    Execute(1, "UPDATE Ks_Zaihyo SET 改善後残高2=10000000000 WHERE 決算期=2 And 建設科目CD=289;");
    const Run run = Scored([](Score_Options& options) { options.side.scenario = Scenario::Slot_2; });
    const ordered_json company = run.Parsed()["companies"][0];
    EXPECT_EQ(company["scenario"], "2");
    EXPECT_EQ(company["Y"]["X"][7], 100.0);
    EXPECT_EQ(company["Kandaka_Gj"][2]["完工高平均"], 10'000);
    EXPECT_TRUE(company["Kandaka_Gj"][0]["総合評点P"].is_null());
}

// What the first visit of the improved screens would post: the current works and elements, without the sixth
// class of engineers, on the statement after the journal.
TEST_F(Score_Test, A_Working_Scenario_That_Was_Never_Started) {
    const auto company = [&](Scenario scenario) {
        return Scored([&](Score_Options& options) { options.side.scenario = scenario; })
            .Parsed()["companies"][0];
    };
    for (const int law : {1, 4}) {
        json firm = Firm(1, one_line, {{"131", 1}, {"142", 2}}, law);
        Import(firm);
        ordered_json genjo = company(Scenario::Genjo);
        ordered_json kaizen = company(Scenario::Kaizen);
        EXPECT_EQ(kaizen["scenario"], "kaizen");
        kaizen["scenario"] = "genjo";
        if (law == 1) {
            // The completed-work screen leaves its W to the current figures; P follows the W beside it.
            EXPECT_EQ(genjo["W"]["W"], 10 * 30 * 175 / 200);
            EXPECT_EQ(kaizen["W"]["W"], 10 * 30);
            kaizen["W"] = genjo["W"];
            EXPECT_GT(kaizen["Kandaka_Gj"][0]["総合評点P"].get<int>(),
                      genjo["Kandaka_Gj"][0]["総合評点P"].get<int>());
            kaizen["Kandaka_Gj"][0]["総合評点P"] = genjo["Kandaka_Gj"][0]["総合評点P"];
        }
        EXPECT_EQ(kaizen, genjo) << law;

        firm["periods"][1]["Ks_Zaihyo"] = {{"274", {{"金額", 0}, {"貸方", 500'000'000}}},
                                           {"100", {{"借方", 900'000'000}}}};
        Import(firm);
        genjo = company(Scenario::Genjo);
        kaizen = company(Scenario::Kaizen);
        EXPECT_EQ(genjo["Y"]["X"][7], 0.0);
        EXPECT_EQ(kaizen["Y"]["X"][7], 9.0) << "retained earnings of 900 million after the journal";
        EXPECT_EQ(kaizen["X2"]["Jiko"], 900'000);
        kaizen["W"]["W"] = law == 1 ? genjo["W"]["W"] : kaizen["W"]["W"];
        EXPECT_EQ(kaizen["W"], genjo["W"]);
        for (const char* column : {"評点X1", "評点Z", "完工高平均"}) {
            EXPECT_EQ(kaizen["Kandaka_Gj"][0][column], genjo["Kandaka_Gj"][0][column]);
        }
        EXPECT_GT(kaizen["Kandaka_Gj"][0]["総合評点P"].get<int>(),
                  genjo["Kandaka_Gj"][0]["総合評点P"].get<int>());
    }
    Import(Firm(1, {{"0", {{"完工高基準", 2}, {"技術者6", 1}}}}));
    EXPECT_EQ(company(Scenario::Genjo)["Kandaka_Gj"][0]["評点Z1"], 559);
    EXPECT_EQ(company(Scenario::Kaizen)["Kandaka_Gj"][0]["評点Z1"], 510);
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

TEST_F(Score_Test, Threads_Change_Nothing) {
    for (int number = 1; number <= 9; ++number) {
        Import(
            Firm(number, {{std::to_string(number), {{"完工高基準", number * 1000}}}}, {{"111", number * 3}}));
    }
    const std::string one = Scored().out;
    EXPECT_EQ(ordered_json::parse(one)["companies"][8]["管理No"], 9);
    EXPECT_EQ(Scored([](Score_Options& options) { options.jobs = 4; }).out, one);
    EXPECT_EQ(Scored([](Score_Options& options) { options.jobs = 0; }).out, one);
}

TEST_F(Score_Test, A_Company_Left_In_Hand_Is_Read_From_The_Working_Store) {
    Import(Firm(1, one_line));
    Import(Firm(2, one_line));
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
    for (const int number : {1, 2, 3}) {
        Import(Firm(number, one_line));
    }
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
    std::ostringstream out;
    EXPECT_EQ(Check_Run(session, out), 3U) << out.str();
    Import(Firm(4, one_line));
    Execute(4, "UPDATE Jigyo_mas SET 事業所名='改名', 決算期終了月=13;");
    EXPECT_EQ(Check_Run(session, out), 4U);
    EXPECT_PRED2(Has, out.str(), "data/000004.dat：事業所名「改名」が事業所一覧の");
    EXPECT_PRED2(Has, out.str(), "data/000004.dat：決算期終了日「6/13/31」");
}

TEST_F(Score_Test, Check_Finds_What_Is_Wrong) {
    for (const int number : {1, 2, 3, 4}) {
        Import(Firm(number, one_line));
    }
    const auto checked = [&](std::size_t faulty) {
        std::ostringstream out;
        EXPECT_EQ(Check_Run(session, out), faulty) << out.str();
        return out.str();
    };
    EXPECT_EQ(checked(0), "");
    Execute(1, "UPDATE Ks_Zaihyo SET 金額=1 WHERE 決算期=2 And 建設科目CD=901;");
    Execute(1, "UPDATE Ks_Zaihyo SET 金額=2000 WHERE 決算期=1 And 建設科目CD=199;");
    Execute(2, "DROP TABLE QandA;");
    Damage(Company_Store(session, 3));
    fs::remove(Company_Store(session, 4));
    fs::copy_file(Company_Store(session, 1), folder.path / "data" / "000077.dat");
    const std::string found = checked(5);
    for (const char* finding :
         {"data/000001.dat：第2期 バランス不合：差額 -1 円",
          "data/000001.dat：第1期 バランス不合： 資産合計 2,000 円", "data/000002.dat：", "QandA",
          "data/000003.dat：", "data/000004.dat：", "data/000077.dat：事業所一覧にないファイルです。"}) {
        EXPECT_PRED2(Has, found, finding);
    }
    EXPECT_EQ(std::count(found.begin(), found.end(), '\n'), 6);

    Damage(folder.path / "morv_set.dat");
    EXPECT_PRED2(Has, checked(6), "morv_set.dat：");
}

class Single_Test : public Score_Test {
  protected:
    Single_Test() : Score_Test("13", false) {}
};

TEST_F(Single_Test, The_Working_Store_Is_The_Company) {
    EXPECT_EQ(Scored().Parsed()["companies"].size(), 0U);
    Import(Firm(3, one_line));
    EXPECT_EQ(Scored().Parsed()["companies"][0]["管理No"], 3);
    std::ostringstream out;
    EXPECT_EQ(Check_Run(session, out), 0U) << out.str();
    Cn_Open(session).Execute("UPDATE Ks_Zaihyo SET 金額=1 WHERE 決算期=2 And 建設科目CD=901;");
    EXPECT_EQ(Check_Run(session, out), 1U);
    EXPECT_EQ(out.str(), "Morvane.dat：第2期 バランス不合：差額 -1 円（0 と 1）\n");
}

} // namespace
} // namespace morvane::tests
