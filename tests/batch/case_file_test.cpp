// SPDX-FileCopyrightText: The Morvane developers
#include "batch/case_file.h"

#include "batch/check_run.h"
#include "company/company_identity.h"
#include "company/datacheck.h"
#include "company/pending_work.h"
#include "data/store_file.h"
#include "review/review_figures.h"
#include "session/kidou_ini.h"
#include "support/failing_writes.h"
#include "support/installation_fixture.h"

#include <nlohmann/json.hpp>
#include <regex>

namespace morvane::tests {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

class Case_Test : public Installation {
  protected:
    using Installation::Installation;

    /// Writes a case into a folder beside the installation and imports it.
    Imported Import(const json& record) const { return Import_Text(record.dump()); }
    Imported Import_Text(const std::string& text) const {
        Write_Text_File(case_file, text);
        return Import_Case(session, case_file);
    }

    [[nodiscard]] fs::path Store(std::int32_t number) const {
        return session.Is_Multi() ? Company_Store(session, number) : session.Work_Store;
    }
    [[nodiscard]] std::string Export(std::int32_t number) const {
        return Case_Text(Export_Case(session, Store(number)));
    }

    /// Lets Field and Amount read a company's store.
    void Look_Into(std::int32_t number, std::int16_t period) {
        session.Work_Store = Store(number);
        session.Syori_Ki = period;
    }
    void Execute(std::int32_t number, const std::string& sql) const {
        Connection(Store(number), session.Db_Key).Execute(sql);
    }

    Temporary_Folder beside;
    fs::path case_file = beside.path / "見本.json";
};

json Firm(int number = 7, const char* name = "見本組") {
    json firm = json::parse(R"({"format": "morvane-case", "version": 1, "Tiiki_CD": "13",
        "Jigyo_mas": {"事業所カナ名": "ﾐﾎﾝ", "法人個人識別": 1, "処理決算期": 2,
                      "決算期終了年": 7, "決算期終了月": 3, "決算期終了日": 31},
        "periods": [{"決算期": 1, "Simyu_Kubun": 4,
                     "Ks_Zaihyo": {"100": 1000000, "101": 700000, "130": 500, "131": 120, "136": 70, "145": 9, "200": {"金額": 400000, "借方": 30000}},
                     "Kandaka_Gj": {"0": {"完工高前期": 10, "完工高基準": 20, "元請完工高前期": 5, "元請完工高基準": 6,
                                          "技術者1": 3, "技術者5": 1, "技術者6": 2}},
                     "W_Yoso": {"101": 1, "111": 35, "121": 1, "142": {"現状": 2, "改善後0": 3}},
                     "QandA": {"41": {"質問": "期末の現金"}}},
                    {"決算期": 2, "Simyu_Kubun": 4}]})");
    firm["Jigyo_mas"]["管理No"] = number;
    firm["Jigyo_mas"]["事業所名"] = name;
    return firm;
}

// ---- the sample firms

// Every firm in an office; of firms of their own, which replace the blank store first, the first one.
const struct {
    const char* file;
    const char* edition;
    std::int32_t number;
    bool multi = true;
} samples[] = {{"aoba_kensetsu", "13", 1}, {"tanaka_komuten", "13", 2}, {"hokurei_doboku", "01", 3},
               {"midori_denki", "13", 4},  {"sakura_setsubi", "13", 5}, {"aoba_kensetsu", "13", 1, false}};

class Sample_Test : public Case_Test, public ::testing::WithParamInterface<std::size_t> {
  protected:
    Sample_Test() : Case_Test(samples[GetParam()].edition, samples[GetParam()].multi) {}

    /// What a case gives comes back, with the scores beside it.
    static void Expect_Within(const json& given, const json& exported) {
        for (const auto& [table, plain] :
             {std::pair{"Ks_Zaihyo", "金額"}, {"Kandaka_Gj", ""}, {"W_Yoso", "現状"}}) {
            for (const auto& [code, row] : given[table].items()) {
                const auto fields = [plain = plain](const json& of) {
                    return of.is_object() ? of : json{{plain, of}};
                };
                const json stored = fields(exported[table].value(code, json()));
                json all = stored;
                all.merge_patch(fields(row));
                EXPECT_EQ(stored, all) << given["決算期"] << " " << table << " " << code;
            }
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Firms, Sample_Test, ::testing::Range<std::size_t>(0, std::size(samples)));

TEST_P(Sample_Test, Balances_And_Comes_Back_The_Same) {
    const auto& sample = samples[GetParam()];
    const fs::path file = Samples_Folder() / (std::string(sample.file) + ".json");
    EXPECT_EQ(Import_Case(session, file).number, sample.number);
    const json given = json::parse(Read_Text_File(file));
    const std::string text = Export(sample.number);
    const json exported = json::parse(text);
    EXPECT_EQ(exported["Jigyo_mas"], given["Jigyo_mas"]);
    for (std::size_t i = 0; i < given["periods"].size(); ++i) {
        Expect_Within(given["periods"][i], exported["periods"][i]);
        const Balance_Check check =
            Check_Balance(Connection(Store(sample.number), session.Db_Key), given["periods"][i]["決算期"],
                          *Firm_Type_Of(given["Jigyo_mas"]["法人個人識別"]));
        EXPECT_TRUE(check.Is_Ok() && check.left != 0.0) << i << " " << check.left - check.right;
    }
    const std::string before = Dump(Store(sample.number));
    EXPECT_EQ(Import_Text(text).replaced, sample.multi);
    EXPECT_EQ(Export(sample.number), text);
    EXPECT_EQ(Dump(Store(sample.number)), before);
    EXPECT_EQ(Dump(Store(sample.number).string() + (sample.multi ? ".bak" : ".bak2")), before);
}

// Whatever the screens may have left in the store goes out and comes in again.
TEST_F(Case_Test, Changes_Of_The_Store_Come_Back) {
    Import_Case(session, Samples_Folder() / "sakura_setsubi.json");
    // Scores that are none of the figures beside them are formed anew; all else stays as it is.
    const struct {
        const char* sql;
        bool stays = true;
    } changes[] = {
        {"UPDATE Ks_Zaihyo SET 金額 = Null WHERE 決算期=28 And 建設科目CD=820;"},
        {"UPDATE Ks_Zaihyo SET 金額 = 5, 改善後残高 = 5 WHERE 決算期=28 And 建設科目CD=821;"},
        {"UPDATE Ks_Zaihyo SET 借方1 = 借方, 貸方1 = 貸方, 改善後残高1 = 改善後残高 WHERE 決算期=28;"},
        {"UPDATE Ks_Zaihyo SET 改善後残高3 = 11 WHERE 建設科目CD=319;"},
        {"UPDATE Kandaka_Gj SET 改1完工高基準 = 77, 改1総合評点P = 800, 改3評点X1 = 0 WHERE 工種CD=10;",
         false},
        {"UPDATE W_Yoso SET 改善後1 = 改善後0, 改善後2 = 0 WHERE 決算期=28;", false},
        {"UPDATE W_Yoso SET 改善後0 = 現状 WHERE 決算期=28;", false},
        {"UPDATE Ks_Zaihyo SET 借方 = 300, 貸方 = 40 WHERE 決算期=27 And 建設科目CD=100;"},
        {"UPDATE Ks_Zaihyo SET 改善後残高 = 12345 WHERE 決算期=27 And 建設科目CD=203;"},
        {"UPDATE Ks_Zaihyo SET 仮金額 = -9 WHERE 建設科目CD=100;"},
        {"UPDATE Ks_Zaihyo SET 建設科目名 = '仮払金 \"A\"' WHERE 決算期=28 And 建設科目CD=112;"},
        {"UPDATE Ks_Zaihyo SET 建設科目名 = Null WHERE 決算期=28 And 建設科目CD=212;"},
        {"UPDATE Ks_Zaihyo SET 建設科目名 = '資産' WHERE 決算期=28 And 建設科目CD=199;"},
        {"UPDATE QandA SET 質問 = '一行目\n二行目', アドバイス = '答え' WHERE 決算期=27 And QNo=41;"},
        {"UPDATE Kandaka_Gj SET 評点X1 = 700, 評点Z1 = 0, 総合評点P = 651, 完工高平均 = 5 WHERE 工種CD=2;",
         false},
        {"UPDATE Kandaka_Gj SET 技術者6 = 4, 改0技術者6 = 2 WHERE 工種CD=28;"},
        {"UPDATE Kandaka_Gj SET 完工高基準 = Null WHERE 工種CD=29;", false},
        {"UPDATE W_Yoso SET 現状 = 1234 WHERE 要素CD=200;", false},
        {"UPDATE W_Yoso SET 現状 = Null WHERE 要素CD=111;", false},
        {"UPDATE Jigyo_mas SET 代表者名 = Null, 決算期終了年 = 5, 単位 = 2, 処理決算期 = 27;"},
    };
    for (const auto& change : changes) {
        SCOPED_TRACE(change.sql);
        const std::string before = Export(5);
        Execute(5, change.sql);
        const std::string text = Export(5);
        EXPECT_NE(text, before);
        EXPECT_EQ(Import_Text(text).number, 5);
        const std::string settled = Export(5);
        const std::string dump = Dump(Store(5));
        if (change.stays) {
            Execute(5, change.sql);
            EXPECT_TRUE(Dump(Store(5)) == dump);
        }
        Import_Text(settled);
        EXPECT_EQ(Export(5), settled);
    }
    Look_Into(5, 28);
    EXPECT_NE(Amount(399, "改善後残高1"), 0.0) << "totals of a saved slot";
    EXPECT_EQ(Amount(199, "改善後残高1"), Amount(399, "改善後残高1"));
    EXPECT_EQ(List("SELECT 現状, 改善後0 FROM W_Yoso WHERE 決算期=28 And 要素CD=210"), "4=4");
}

// ---- what import makes of a case

TEST_F(Case_Test, What_A_Case_Leaves_Out_Is_Null) {
    Import(Firm());
    Look_Into(7, 2);
    const Connection cn = Cn_Open(session);
    Recordset line = cn.Open("SELECT * FROM Kandaka_Gj WHERE 決算期=2 ORDER BY 工種CD;");
    EXPECT_EQ(line.Count(), work_line_count);
    for (; !line.Eof(); line.Move_Next()) {
        for (const std::string& column : line.Columns()) {
            EXPECT_EQ(line[column].Is_Null(), column != "決算期" && column != "工種CD" && column != "工種略")
                << column;
        }
    }
    Expect_Rows({
        {"要素CD FROM W_Yoso WHERE 決算期=2 And 現状 Is Not Null", "210"},
        {"count(質問) FROM QandA WHERE 決算期=2", "0"},
        {"金額 FROM Ks_Zaihyo WHERE 決算期=2 And 建設科目CD=100", "-"},
        {"技術者6 FROM Kandaka_Gj WHERE 決算期=1 And 工種CD=0", "2"},
        {"改善後0 FROM W_Yoso WHERE 決算期=1 And 要素CD=142", "3"},
        {"質問 FROM QandA WHERE 決算期=1 And QNo=41", "期末の現金"},
        {"処理決算期 FROM Jigyo_mas WHERE 管理No=7", "2"},
        {"金額 FROM Ks_Zaihyo WHERE 決算期=1 And 建設科目CD=129", "1700000"},
        // The book values of tangible assets are no entry of a case, yet the statement screen stores them.
        {"金額 FROM Ks_Zaihyo WHERE 決算期=1 And 建設科目CD In (132, 135, 138, 142, 146, 149)",
         "380 - 70 - -9 441"},
        {"改善後残高 FROM Ks_Zaihyo WHERE 決算期=1 And 建設科目CD=229", "370000"},
    });
}

// ---- refusals

TEST_F(Case_Test, Refusals_Name_The_Place_And_Write_Nothing) {
    // What a place of the case is given, and why it is refused; the place is named, unless another one is.
    const json dropped = json::binary({});
    const struct {
        std::string place;
        json value;
        const char* reason;
        const char* named = nullptr;
    } cases[] = {
        {"/format", "case", "morvane-case"},
        {"/version", 2, "版"},
        {"/extra", 1, "知らない"},
        {"/Tiiki_CD", "14", "\"13\""},
        {"/Tiiki_CD", "01", "「01」"},
        {"/Jigyo_mas", dropped, "オブジェクト"},
        {"/Jigyo_mas/年商", 1, "ない項目"},
        {"/Jigyo_mas/事業所名", 5, "文字列"},
        {"/Jigyo_mas/管理No", dropped, "指定されていません"},
        {"/Jigyo_mas/管理No", nullptr, "指定されていません"},
        {"/Jigyo_mas/管理No", -1, "使用できない"},
        {"/Jigyo_mas/管理No", 0, "使用できない"},
        {"/Jigyo_mas/管理No", 999'999, "使用できない"},
        {"/Jigyo_mas/管理No", 1'000'007, "下6桁"},
        {"/Jigyo_mas/管理No", 2'147'483'648, "範囲外"},
        {"/Jigyo_mas/管理No", "7", "数値"},
        {"/Jigyo_mas/法人個人識別", 3, "1"},
        {"/Jigyo_mas/処理決算期", 3, "periods"},
        {"/Jigyo_mas/決算期終了年", 32'768, "範囲外"},
        {"/Jigyo_mas/決算期終了月", 268, "日付", "Jigyo_mas.決算期終了年"},
        {"/Jigyo_mas/決算期終了日", 287, "日付", "Jigyo_mas.決算期終了年"},
        {"/Jigyo_mas/決算期終了年", 32'767, "日付"},
        {"/Jigyo_mas/決算期終了日", dropped, "日付", "Jigyo_mas.決算期終了年"},
        {"/Jigyo_mas/決算期開始月", 4, "日付", "Jigyo_mas.決算期開始年"},
        {"/Jigyo_mas/単位", 99, "千円"},
        {"/Jigyo_mas/事業所名", " ", "指定されていません"},
        {"/Jigyo_mas/事業所名", std::string(1'000'000, 'a'), "60文字以内"},
        {"/Jigyo_mas/事業所名", std::string("見本\0組", 10), "制御文字"},
        {"/Jigyo_mas/代表者名", "\x1b[31m", "制御文字"},
        {"/Jigyo_mas/代表者名", "\u009b31m", "制御文字"},
        {"/Jigyo_mas/代表者名", "\u202e見本", "制御文字"},
        {"/periods/0/Kandaka_Gj/0/評点X1", 123456, "32767"},
        {"/Jigyo_mas/郵便番号1", "1x", "数字"},
        {"/Jigyo_mas/許可番号1", std::string(101, '1'), "100文字"},
        {"/jigyo_mas", json::object(), "知らない"},
        {"/periods", json::array(), "配列"},
        {"/periods", json(201, json::object()), "200期"},
        {"/periods", json::object(), "配列"},
        {"/periods/1", 5, "オブジェクト"},
        {"/periods/1/決算期", dropped, "指定されていません"},
        {"/periods/1/決算期", 1, "連続"},
        {"/periods/1/決算期", 3, "連続"},
        {"/periods/0/決算期", 32'768, "範囲外"},
        {"/periods/1/Simyu_Kubun", 5, "範囲外"},
        {"/periods/1/Kandaka", json::object(), "知らない"},
        {"/periods/1/Ks_Zaihyo", json::array(), "オブジェクト"},
        {"/periods/0/Ks_Zaihyo/129", 5, "自動計算"},
        {"/periods/0/Ks_Zaihyo/129/改善後残高", 5, "自動計算"},
        {"/periods/0/Ks_Zaihyo/998", 5, "コード"},
        {"/periods/0/Ks_Zaihyo/100x", 5, "コード"},
        {"/periods/0/Ks_Zaihyo/100", 0.5, "整数"},
        {"/periods/0/Ks_Zaihyo/100", true, "数値"},
        {"/periods/0/Ks_Zaihyo/100", 2e15, "範囲外"},
        {"/periods/0/Ks_Zaihyo/100/並び順", 1, "指定できない"},
        {"/periods/0/Ks_Zaihyo/100/貸方4", 1, "指定できない"},
        {"/periods/0/Kandaka_Gj/34", json::object(), "コード"},
        {"/periods/0/Kandaka_Gj/0", 5, "オブジェクト"},
        {"/periods/0/Kandaka_Gj/32/完工高基準", 1, "集計"},
        {"/periods/0/Kandaka_Gj/0/工種略", "土", "指定できない"},
        {"/periods/0/Kandaka_Gj/0/完工高", 1, "ない項目"},
        {"/periods/0/Ks_Zaihyo/0100", 5, "2回", "periods[0].Ks_Zaihyo.100"},
        {"/periods/0/Ks_Zaihyo/100/建設科目名", std::string(51, 'a'), "50文字"},
        {"/periods/0/Kandaka_Gj/0/技術者1", -1, "0 から 32767"},
        {"/periods/0/Kandaka_Gj/0/改0完工高前期", -1, "0 から"},
        {"/periods/0/Kandaka_Gj/0/完工高基準", 2'147'483'648, "2147483647"},
        {"/periods/0/W_Yoso/1", 9, "1、2 のどれか"},
        {"/periods/0/W_Yoso/101", 77, "0、1、2 のどれか"},
        {"/periods/0/W_Yoso/104", 2, "0、1 のどれか"},
        {"/periods/0/W_Yoso/111", 201, "0 から 200"},
        {"/periods/0/W_Yoso/142/改善後0", 10'000, "9999"},
        {"/periods/0/W_Yoso/201", 4, "2、3 のどれか"},
        {"/periods/0/W_Yoso/200", 1e9, "32767"},
        {"/periods/0/QandA/41/質問", std::string("a\0b", 3), "制御文字"},
        {"/periods/0/W_Yoso/300", 1, "コード"},
        {"/periods/0/W_Yoso/210", 4, "Simyu_Kubun"},
        {"/periods/0/W_Yoso/101/改善後", 1, "指定できない"},
        {"/periods/0/QandA/41/タイトル", "x", "指定できない"},
    };
    const auto name_of = [](const std::string& place) {
        const std::string indexed =
            std::regex_replace(place.substr(1), std::regex("periods/(\\d)"), "periods[$1]");
        return std::regex_replace(indexed, std::regex("/"), ".");
    };
    const auto expect_refused = [&](const std::string& text, const std::string& path,
                                    const std::string& reason) {
        const auto before = State();
        const std::string refusal = Refusal_Of<Case_Error>([&] { Import_Text(text); });
        EXPECT_PRED2(Has, refusal, "「" + case_file.string() + "」" + path);
        EXPECT_PRED2(Has, refusal, reason);
        EXPECT_EQ(State(), before) << path;
    };
    Import(Firm());
    for (const auto& c : cases) {
        json firm = Firm();
        const json::json_pointer place(c.place);
        if (c.value == dropped) {
            firm.at(place.parent_pointer()).erase(place.back());
        } else {
            json& over = firm[place.parent_pointer()];
            over = over.is_object() || over.is_array() ? over : json::object();
            firm[place] = c.value;
        }
        expect_refused(firm.dump(), " " + (c.named != nullptr ? c.named : name_of(c.place)) + "：", c.reason);
    }
    json twice = Firm();
    twice["Jigyo_mas"]["EMail"] = twice["Jigyo_mas"]["email"] = "a@example.jp";
    expect_refused(twice.dump(), " Jigyo_mas.email：", "2回");
    json older = Firm();
    older["periods"][0]["Simyu_Kubun"] = 2;
    older["periods"][0]["W_Yoso"]["106"] = 1;
    expect_refused(older.dump(), " periods[0].W_Yoso.106：", "コード");
    const struct {
        std::string text;
        const char *named, *reason;
    } texts[] = {
        {"", "：", "JSON"},
        {"{", "：", "JSON"},
        {"{\"format\": \"\xff\"}", "：", "JSON"},
        {"null {}", "：", "JSON"},
        {"{\"format\": NaN}", "：", "JSON"},
        {R"({"format": "\ud800"})", "：", "JSON"},
        {"{\n \"format\": ,", "：", "2行12文字目"},
        {std::string(100'000, '['), "：", "64段"},
        {R"({"periods": [{}, {"Ks_Zaihyo": {"100": 1, "101": 2, "100": 3}}]})", " periods[1].Ks_Zaihyo.100：",
         "2回"},
        {R"({"Jigyo_mas": {}, "Jigyo_mas": {}})", " Jigyo_mas：", "2回"},
        {R"({"periods": [1, 1e999]})", " periods[1]：", "大きすぎます"},
        {"[]", "：", "オブジェクト"},
    };
    for (const auto& c : texts) {
        expect_refused(c.text, c.named, c.reason);
    }
    // What is repeated of a value is short and reaches no terminal raw.
    json firm = Firm();
    firm["Jigyo_mas"]["管理No"] = "\x1b[31m\n" + std::string(1'000'000, 'a');
    expect_refused(firm.dump(), " Jigyo_mas.管理No：", "\"\\x1B[31m\\naaa");
    expect_refused(firm.dump(), " Jigyo_mas.管理No：", "…（全1000006文字）");
    EXPECT_THROW(Import_Case(session, folder.path / "none.json"), Store_Error);
}

// File and row come together, whatever fails or kills between them, also of companies put in place together.
TEST_F(Case_Test, No_Failing_Write_Separates_An_Import_From_Its_Row) {
    Import(Firm(7));
    Import(Firm(9, "同時"));
    fs::rename(Store(9), beside.path / "second.dat");
    Remove_Register_Row(session, 9);
    for (const auto& [number, name] : {std::pair<std::int32_t, std::string>(8, "見本組"), {7, "改名"}}) {
        Write_Text_File(case_file, Firm(number, name.c_str()).dump());
        const File_Contents files = Read_Files(folder.path);
        const auto row = Find_Register_Row(session, number);
        const fs::path store = Store(number);
        // Only the writes at the end touch what stands; the store itself is built beside it.
        const fs::path built = beside.path / "built.dat";
        Import_Case(session, case_file);
        fs::copy_file(store, built, fs::copy_options::overwrite_existing);
        Write_Files(folder.path, files);
        const auto put = [this](std::vector<Registered_Store>& stores, const Register_Row& of,
                                const fs::path& content) {
            stores.push_back({of, File_Replacement::With_Store(content, Store(of.number), session.Db_Key)});
        };
        const auto act = [&, number = number, name = name] {
            std::vector<Registered_Store> stores;
            put(stores, {number, name, "ﾐﾎﾝ"}, built);
            put(stores, {9, "同時", "ﾐﾎﾝ"}, beside.path / "second.dat");
            Put_Registered_Stores(session, stores);
        };
        const auto check = [&, number = number, name = name](Outcome outcome) {
            Sweep_Drafts(folder.path);
            Finish_Pending_Work(session);
            EXPECT_EQ(fs::exists(Store(9)), Find_Register_Row(session, 9).has_value());
            const auto now = Find_Register_Row(session, number);
            ASSERT_EQ(fs::exists(store), now.has_value());
            EXPECT_TRUE(now || outcome != Outcome::Finished);
            if (now) {
                const Connection cn(store, session.Db_Key, Connection::Mode::Read_Only);
                EXPECT_EQ(now->name, Identity_Of(cn).name) << "the row is that of the file";
                EXPECT_TRUE(now->name == name || (outcome != Outcome::Finished && now == row));
            }
        };
        Fail_Every_Write([&] { Write_Files(folder.path, files); }, act, check);
        Write_Files(folder.path, files);
    }
}

// Each file has its end, in their order: among those put in place together a company given twice, a case
// that is none, and a place that refuses the whole block.
TEST_F(Case_Test, Many_Imports_Fail_One_By_One) {
    std::vector<fs::path> files;
    for (const int number : {7, 8, 7, 0, 9, 10}) {
        files.push_back(beside.path / (std::to_string(files.size()) + ".json"));
        Write_Text_File(files.back(), Firm(number).dump());
    }
    const auto ends = [&] {
        std::string told;
        Import_Cases(session, files, [&](const Import_End& end) {
            told += !end.imported ? "-" : end.imported->replaced ? "r" : "n";
        });
        return told;
    };
    EXPECT_EQ(ends(), "nnr-nn");
    EXPECT_EQ(Read_Register(session).size(), 4U);
    // Company 9 fails in the end: a journal that cannot be removed stands in its way.
    fs::create_directories(Store(9).string() + "-journal/x");
    EXPECT_EQ(ends(), "rrr--r");
    EXPECT_EQ(Read_Register(session).size(), 4U);
}

TEST_F(Case_Test, A_Company_Left_In_Hand_Is_Not_Replaced) {
    Import(Firm(7));
    Copy_Store(Store(7), session.Work_Store, session.Db_Key);
    Write_Kidou_Ini(folder.path, {7, "見本組"});
    const auto before = State();
    EXPECT_THROW(Import(Firm(7)), Case_Error);
    EXPECT_EQ(State(), before);
    EXPECT_EQ(Import(Firm(8)).number, 8);
    Write_Kidou_Ini(folder.path, {});
    // A new company that the lock file alone knows.
    Write_Text_File(folder.path / "morvane.lock", "7          \n");
    EXPECT_THROW(Import(Firm(7)), Case_Error);
    fs::remove(folder.path / "morvane.lock");
    EXPECT_TRUE(Import(Firm(7)).replaced);
}

TEST_F(Case_Test, A_File_That_Is_Anothers_Is_Not_Replaced) {
    Import(Firm(7));
    Import(Firm(8));
    fs::rename(Store(7), folder.path / "aside");
    fs::rename(Store(8), Store(7));
    fs::rename(folder.path / "aside", Store(8));
    const auto before = State();
    EXPECT_THROW(Import(Firm(7)), Case_Error);
    EXPECT_THROW(Import(Firm(8)), Case_Error);
    EXPECT_EQ(State(), before);
}

} // namespace
} // namespace morvane::tests
