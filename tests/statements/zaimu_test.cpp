// SPDX-FileCopyrightText: The Morvane developers
#include "statements/zaimu_calc.h"

#include "company/data_set.h"
#include "law/run_time_error.h"
#include "statements/z_zzen_get.h"
#include "support/installation_fixture.h"
#include "support/sums.h"

#include <random>

namespace morvane::tests {
namespace {

/// The four statement forms; the masks name them in tables.
struct Form {
    const char* name;
    const char* edition;
    std::int16_t type;
    int mask;
};
constexpr int nc = 1, ni = 2, hc = 4, hi = 8;
constexpr int nat = nc | ni, hok = hc | hi, corp = nc | hc, ind = ni | hi, any = 15;
constexpr Form forms[] = {{"National_Corporation", "13", 1, nc},
                          {"National_Individual", "13", 2, ni},
                          {"Hokkaido_Corporation", "01", 1, hc},
                          {"Hokkaido_Individual", "01", 2, hi}};

/// Totals by the lines above them, whatever their classes: ranges of shown lines that are entered, those with
/// the mark △ taken off, and totals that stand before in the table. From 1000 on they have no line of their
/// own.
constexpr std::pair<int, const char*> rules[] = {
    {any, "129=100..128 149=130..148 159=150..158 178=160..177 179=149+159+178"},
    {corp, "189=180..188 199=129+179+189"},
    {ind, "199=129+179"},
    {any, "229=200..228 248=230..247 249=229+248 2500=250..268+273..273"},
    {corp, "269=260..268 2700=270..274 2900=290..291 303=300..302 3100=310..310"},
    {corp, "281=199-249-2500-2700-2900-303-3100 289=2700+281 298=2500+289+2900 319=298+303+3100"},
    {ind, "281=199-249-2500 319=2500+281"},
    {any, "399=319+249"},
    {hok, "534=540..578 579=534 539=530..531+533..533+534 401=539"},
    {nat, "539=530..531+533..534 403=539"},
    {any, "726=720..722+725..725 728=727..727+726 702=728 703=700..701+702 705=704..704+703"},
    {nat, "413=705 402=400..401 414=403+413 417=400..400-403 418=401..401-413 419=417+418"},
    {hok, "411=705 409=400..400-401 418=410..410-411 419=409+418"},
    {any, "468=420..467 469=419-468 479=470..478 488=480..487 489=469+479-488"},
    {ind, "529=489"},
    {corp, "499=490..498 509=500..508 510=489+499-509 5110=511..512 519=510-5110"},
};

/// A line of a statement in one column.
struct Line {
    bool shown, entered, deducted, debit;
    double amount;
};
using Lines = std::map<int, Line>;

class Statement_Test : public Installation {
  protected:
    explicit Statement_Test(const std::string& edition) : Installation(edition) {}

    Lines Read(const std::string& column) const {
        Lines lines;
        const Connection cn = Cn_Open(session);
        for (Recordset row = cn.Open("SELECT * FROM Ks_Zaihyo WHERE 決算期=?", session.Syori_Ki); !row.Eof();
             row.Move_Next()) {
            lines[static_cast<int>(row["建設科目CD"].As_Integer())] = {
                !row["非表示識別"].As_Boolean(), row["金額編集識別"].As_Boolean(),
                row["正負識別"].As_Text() == "△", row["貸借正負"].As_Integer() == 1, row[column].As_Double()};
        }
        return lines;
    }

    /// Fills a column of every row below 800: entry rows at random (some blank), computed ones with a stale
    /// figure.
    void Fill(const std::string& column, std::mt19937_64& random, bool hidden_too) {
        const Connection cn = Cn_Open(session);
        Transaction transaction(cn);
        Recordset row = cn.Open("SELECT * FROM Ks_Zaihyo WHERE 建設科目CD>=100 And 建設科目CD<800");
        for (; !row.Eof(); row.Move_Next()) {
            const bool blank = random() % 6 == 0 || (row["非表示識別"].As_Boolean() && !hidden_too);
            const double amount = static_cast<double>(random() % 2'000'000'000) - 300'000'000.0;
            row.Set(column, !row["金額編集識別"].As_Boolean() ? Value(987'654'321)
                            : blank                           ? Value()
                                                              : Value(amount));
            row.Update();
        }
        transaction.Commit();
    }
};

class Form_Test : public Statement_Test, public ::testing::WithParamInterface<Form> {
  protected:
    Form_Test() : Statement_Test(GetParam().edition) {}
    void SetUp() override { Make_Company(1, GetParam().type, 10); }

    /// What is entered in the shown lines of a range.
    static double Entered(const Lines& lines, const Term& range) {
        double sum = 0.0;
        for (auto at = lines.lower_bound(range.first); at != lines.upper_bound(range.last); ++at) {
            const Line& line = at->second;
            sum += !line.shown || !line.entered ? 0.0 : line.deducted ? -line.amount : line.amount;
        }
        return sum;
    }

    /// Each total against the lines above it. `except` is a total that this column does not hold.
    static void Expect_Totals(const Lines& lines, int except = 0) {
        std::map<int, double> totals;
        for (const auto& [masks, sums] : rules) {
            for (const auto& [name, terms] : Read_Sums((masks & GetParam().mask) != 0 ? sums : "")) {
                const int total = std::stoi(name);
                for (const Term& term : terms) {
                    totals[total] +=
                        term.sign * (term.is_range ? Entered(lines, term) : totals.at(term.first));
                }
                if (total < 1000 && total != except) {
                    EXPECT_EQ(lines.at(total).amount, totals[total]) << total;
                }
            }
        }
        EXPECT_EQ(totals.at(199), totals.at(399));
    }
};

INSTANTIATE_TEST_SUITE_P(Forms, Form_Test, ::testing::ValuesIn(forms),
                         [](const auto& form) { return std::string(form.param.name); });

TEST_P(Form_Test, Totals_Follow_From_The_Lines_Above_Them) {
    constexpr std::pair<const char*, Amount_Column> columns[] = {{"仮金額", Amount_Column::Provisional},
                                                                 {"金額", Amount_Column::Current},
                                                                 {"改善後残高", Amount_Column::Improved}};
    std::mt19937_64 random(20250331);
    for (const auto& [name, column] : columns) {
        SCOPED_TRACE(name);
        Fill(name, random, true);
        Zaimu_Shukei(session, column);
        const Lines lines = Read(name);
        Expect_Totals(lines);
        EXPECT_EQ(lines.at(189).amount == 987'654'321.0, !session.Is_Corporation())
            << "an individual has no deferred assets";
    }
}

// The journal: each row by its side, the totals in all three columns. The completed-work profit of the
// Hokkaido form keeps its amount, and the owner's drawings turn their sign.
TEST_P(Form_Test, Journal_Reaches_Rows_And_Totals) {
    std::mt19937_64 random(19891001);
    Fill("金額", random, false);
    Zaimu_Shukei(session, Amount_Column::Current);
    Fill("借方", random, false);
    Fill("貸方", random, false);
    Cn_Open(session).Execute(
        "UPDATE Ks_Zaihyo SET 借方 = Null, 貸方 = Null, 改善後残高 = 5 WHERE 金額編集識別=0");
    const std::string blanks = "SELECT count(*) FROM Ks_Zaihyo WHERE 金額編集識別<>0 And 借方 Is Null";
    const std::string blank = List(blanks);
    Zaimu_Shukei_KK(session);
    const Lines amounts = Read("金額");
    Lines debits = Read("借方");
    Lines credits = Read("貸方");
    const Lines balances = Read("改善後残高");
    for (const auto& [code, line] : balances) {
        if (line.entered) {
            const double change = debits[code].amount - credits[code].amount;
            const double amount = amounts.at(code).amount;
            EXPECT_EQ(line.amount, code == 273  ? -amount + change
                                   : line.debit ? amount + change
                                                : amount - change)
                << code;
        }
    }
    for (const Lines& lines : {debits, credits, balances}) {
        Expect_Totals(lines, 409);
    }
    if (session.Is_Hokkaido()) {
        EXPECT_EQ(balances.at(409).amount, amounts.at(409).amount);
        EXPECT_TRUE(Field("Ks_Zaihyo", "借方", "建設科目CD=409").Is_Null());
    }
    EXPECT_EQ(List(blanks), blank) << "beside balances that were written";
}

class National_Test : public Statement_Test {
  protected:
    National_Test() : Statement_Test("13") {}
};

TEST_F(National_Test, Flags_Of_Rows) {
    const std::tuple<const char*, int, double, double> cases[] = {
        {"UPDATE Ks_Zaihyo SET 仮金額 = Null", 129, 900, 900},
        {"UPDATE Ks_Zaihyo SET 非表示識別=-1 WHERE 建設科目CD=100", 129, -100, 900},
        {"UPDATE Ks_Zaihyo SET 集計識別=0 WHERE 建設科目CD=100", 129, -100, -100},
        {"UPDATE Ks_Zaihyo SET 内部処理正負=Null WHERE 建設科目CD=114", 129, 1100, 1100},
        {"UPDATE Ks_Zaihyo SET 科目分類識別='Kdf' WHERE 建設科目CD=232", 248, 0, 0}, // a lease debt
        {"UPDATE Ks_Zaihyo SET 科目分類識別='Kdf' WHERE 建設科目CD=232", 249, 300, 300},
        {"DELETE FROM Ks_Zaihyo WHERE 建設科目CD=229", 249, 350, 350},
        {"DELETE FROM Ks_Zaihyo WHERE 建設科目CD=260", 269, 7, 7},
    };
    for (const auto& [change, code, shukei, shukei_kk] : cases) {
        SCOPED_TRACE(change);
        Make_Company(1, 1, 10);
        Put_Amounts({{100, 1000}, {114, 100}, {201, 300}, {232, 50}, {268, 7}});
        Cn_Open(session).Execute(change);
        Zaimu_Shukei(session, Amount_Column::Current);
        EXPECT_EQ(Amount(code), shukei);
        Zaimu_Shukei_KK(session);
        EXPECT_EQ(Amount(code, "改善後残高"), shukei_kk);
        EXPECT_EQ(Amount(199), Amount(399));
    }
}

TEST_F(National_Test, A_Period_Without_Summed_Rows_Stays) {
    Make_Company(1, 1, 10);
    Put_Amounts({{100, 1000}, {129, 5}});
    for (const auto& [period, change] :
         {std::pair{99, "SELECT 1"}, {10, "UPDATE Ks_Zaihyo SET 集計識別=0"}}) {
        session.Syori_Ki = static_cast<std::int16_t>(period);
        Run({change});
        const std::string before = Dump(session.Work_Store);
        Zaimu_Shukei(session, Amount_Column::Current);
        EXPECT_EQ(Dump(session.Work_Store), before) << change;
    }
    Run({"UPDATE Ks_Zaihyo SET 集計識別=-1 WHERE 建設科目CD=480"});
    Zaimu_Shukei(session, Amount_Column::Current);
    EXPECT_EQ(List("SELECT 金額 FROM Ks_Zaihyo WHERE 建設科目CD In (129, 519)"), "0 0")
        << "one row of one side is enough for all totals";
}

/// Where the prior-period rows come from in a statement of each form; 0 stands for a figure of 0.
struct Prior_Case {
    const char* name;
    const char* edition;
    int form; ///< of the earlier periods; 0: they have no row 99
    int allowance, advances, equity, capital, depreciation, side;
};
constexpr Prior_Case prior_cases[] = {
    {"Form_5", "13", 5, 114, 209, 319, 399, 536, 729}, {"Form_6", "01", 6, 114, 210, 319, 399, 536, 729},
    {"Form_3", "13", 3, 114, 209, 319, 399, 536, 729}, {"Form_4", "01", 4, 115, 209, 319, 399, 552, 729},
    {"Form_2", "13", 2, 115, 209, 319, 399, 552, 729}, {"Form_51", "13", 0, 114, 208, 298, 299, 536, 0},
    {"Form_52", "01", 0, 114, 208, 298, 299, 552, 0}};

class Prior_Test : public Statement_Test, public ::testing::WithParamInterface<Prior_Case> {
  protected:
    Prior_Test() : Statement_Test(GetParam().edition) {}

    /// Of each row of the third period that was written, where both of its columns came from.
    [[nodiscard]] std::string Written() const {
        return List("SELECT 建設科目CD, 金額, 改善後残高 FROM Ks_Zaihyo WHERE 決算期=12 And "
                    "(金額<>-1 Or 改善後残高<>-2) ORDER BY 建設科目CD");
    }
};

INSTANTIATE_TEST_SUITE_P(Forms, Prior_Test, ::testing::ValuesIn(prior_cases),
                         [](const auto& c) { return std::string(c.param.name); });

TEST_P(Prior_Test, Copies_The_Rows_Of_The_Earlier_Form) {
    const Prior_Case& c = GetParam();
    Make_Company(1, 1, 10);
    ASSERT_TRUE(Period_Copy(session, 11, 10, Copy_Mode::After));
    ASSERT_TRUE(Period_Copy(session, 12, 11, Copy_Mode::After));
    const Connection cn = Cn_Open(session);
    cn.Execute(c.form == 0 ? "DELETE FROM Ks_Zaihyo WHERE 建設科目CD=99 And 決算期<12"
                           : "UPDATE Ks_Zaihyo SET 並び順=" + std::to_string(c.form) +
                                 " WHERE 建設科目CD=99 And 決算期<12");
    cn.Execute("INSERT INTO Ks_Zaihyo (決算期, 建設科目CD) VALUES (10, 299), (11, 299)");
    // An amount tells its period and code; the period that is filled has marks in every column.
    cn.Execute("UPDATE Ks_Zaihyo SET 金額=決算期*1000+建設科目CD");
    cn.Execute("UPDATE Ks_Zaihyo SET 金額=-1, 改善後残高=-2, 借方=3, 貸方=4 WHERE 決算期=12");
    const int sources[] = {101,        103,      106,       107, c.allowance, 177, 200, 201,
                           c.advances, c.equity, c.capital, 436, 469,         489, 511, c.depreciation,
                           724,        c.side,   281};
    const auto block = [&sources](int first, int count, int period) {
        std::string rows;
        for (int i = 0; i < count; ++i) {
            const std::string amount = std::to_string(sources[i] == 0 ? 0 : period * 1000 + sources[i]);
            rows += (i == 0 ? "" : " ") + std::to_string(first + i) + "=" + amount + "=" + amount;
        }
        return rows;
    };
    Zen_Get(session, 12, 2);
    EXPECT_EQ(Written(), block(820, 19, 11));
    ZZen_Get(session, 12, 2);
    EXPECT_EQ(Written(), block(800, 9, 10) + " " + block(820, 19, 11));
    EXPECT_EQ(List("SELECT DISTINCT 借方, 貸方 FROM Ks_Zaihyo WHERE 決算期=12"), "3=4");
}

TEST_F(National_Test, Prior_Figures_Without_Sources_Or_Targets) {
    Make_Company(1, 1, 10);
    ASSERT_TRUE(Period_Copy(session, 11, 10, Copy_Mode::After));
    Put_Amounts({{824, 1}, {825, 2}, {826, 3}});
    const std::string before = Dump(session.Work_Store);
    Zen_Get(session, 10, 2);
    ZZen_Get(session, 11, 2);
    EXPECT_EQ(Dump(session.Work_Store), before) << "no such earlier period";
    EXPECT_THROW(Zen_Get(session, INT16_MIN, 2), Run_Time_Error);
    EXPECT_THROW(ZZen_Get(session, INT16_MIN + 1, 2), Run_Time_Error);

    {
        const Connection tmp(folder.path / "morv_tmp.dat", session.Db_Key);
        tmp.Execute("INSERT INTO Ks_Zaihyo (決算期, 建設科目CD) VALUES (11, 825)");
    }
    Cn_Open(session).Execute("UPDATE Ks_Zaihyo SET 金額=70 WHERE 決算期=10 And 建設科目CD=177;");
    const std::string prepared = Dump(session.Work_Store);
    Zen_Get(session, 11, 1);
    EXPECT_EQ(Dump(session.Work_Store), prepared) << "into the auxiliary store";
    EXPECT_EQ(Cn_Open_Tmp(session).Open("SELECT * FROM Ks_Zaihyo")["改善後残高"].As_Double(), 70.0);

    Cn_Open(session).Execute("DELETE FROM Ks_Zaihyo WHERE 決算期=11 And 建設科目CD=824;");
    Zen_Get(session, 11, 2);
    EXPECT_EQ(Amount(825), 70.0) << "behind a target that is missing";
    EXPECT_EQ(Amount(826), 0.0) << "a blank source";
}

} // namespace
} // namespace morvane::tests
