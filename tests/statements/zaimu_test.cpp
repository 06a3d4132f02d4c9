// SPDX-FileCopyrightText: The Morvane developers
#include "statements/zaimu_calc.h"

#include "company/data_set.h"
#include "session/run_time_error.h"
#include "statements/z_zzen_get.h"
#include "support/installation_fixture.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <random>
#include <set>

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

/// The sections of the statement screens, by their first and last code.
constexpr std::pair<int, int> sections[] = {{100, 129}, {130, 149}, {150, 199}, {200, 249},
                                            {250, 399}, {400, 419}, {420, 469}, {470, 489},
                                            {490, 529}, {530, 579}, {700, 729}};

/// Screen rows (from 0) that a subtotal of the panel adds, and the class that holds the same accounts.
struct Range {
    int section;
    int masks;
    std::size_t first, last;
    const char* of_class;
};
constexpr Range ranges[] = {
    {100, nat, 0, 12, "Rds"},     {100, hok, 0, 14, "Rds"},   {130, corp, 0, 16, "Yks"},
    {130, ind, 0, 13, "Yks"},     {150, corp, 0, 4, "Mks"},   {150, ind, 0, 3, "Mks"},
    {150, nc, 6, 13, "Tst"},      {150, ni, 5, 13, "Tst"},    {150, hc, 6, 14, "Tst"},
    {150, hi, 5, 14, "Tst"},      {150, nc, 16, 20, "Kns"},   {150, hc, 17, 21, "Kns"},
    {200, nc, 0, 14, "Rdf"},      {200, ni, 0, 13, "Rdf"},    {200, hc, 0, 17, "Rdf"},
    {200, hi, 0, 16, "Rdf"},      {200, nc, 16, 24, "Ktf"},   {200, ni, 15, 22, "Ktf"},
    {200, hc, 19, 27, "Ktf"},     {200, hi, 18, 25, "Ktf"},   {250, any, 0, 3, "Hjk"},
    {250, corp, 5, 7, "Rjk"},     {250, corp, 10, 11, "Jsg"}, {250, corp, 13, 15, "Hks"},
    {250, corp, 17, 17, "Skabu"}, {400, nat, 0, 0, "Kku_u"},  {400, nat, 1, 1, "Knu_u"},
    {400, hok, 0, 0, "Kku"},      {400, hok, 3, 3, "Knu"},    {420, nat, 0, 22, "Ipk"},
    {420, hok, 0, 24, "Ipk"},     {470, any, 0, 2, "Egs"},    {470, any, 4, 8, "Egh"},
    {490, nc, 0, 2, "Tbr"},       {490, nc, 4, 6, "Tbs"},     {490, nc, 9, 10, "SesT"},
    {490, hc, 0, 4, "Tbr"},       {490, hc, 6, 9, "Tbs"},     {490, hc, 12, 13, "SesT"},
    {530, nat, 0, 6, "Kkg"},      {530, hok, 0, 4, "Kkg"},    {530, hok, 7, 25, "Kgu"},
    {700, any, 0, 2, "KugG"},     {700, any, 4, 4, "KugT"},   {700, any, 6, 11, "SguH"},
    {700, any, 13, 13, "SguT"},
};

/// A row as a statement screen shows it.
struct Screen_Row {
    int code;
    std::string of_class;
    bool adds, subtracts, entered, debit;
    std::optional<double> amount;
};

class Statement_Test : public Installation {
  protected:
    explicit Statement_Test(const std::string& edition) : Installation(edition) {}

    /// The visible rows of the sections with a column's amounts.
    std::map<int, std::vector<Screen_Row>> Screens(const std::string& column) const {
        std::map<int, std::vector<Screen_Row>> screens;
        const Connection cn = Cn_Open(session);
        for (const auto& [from, to] : sections) {
            Recordset row = cn.Open(
                "SELECT * FROM Ks_Zaihyo WHERE 決算期=" + std::to_string(session.Syori_Ki) +
                " And 建設科目CD>=" + std::to_string(from) + " And 建設科目CD<=" + std::to_string(to) +
                " And 非表示識別=0 ORDER BY 建設科目CD;");
            for (; !row.Eof(); row.Move_Next()) {
                screens[from].push_back(
                    {static_cast<int>(row["建設科目CD"].As_Integer()), row["科目分類識別"].As_Text(),
                     row["集計識別"].As_Boolean(), row["内部処理正負"].As_Integer() == 1,
                     row["金額編集識別"].As_Boolean(), row["貸借正負"].As_Integer() == 1,
                     row[column].Is_Null() ? std::nullopt : std::optional(row[column].As_Double())});
            }
        }
        return screens;
    }

    /// Fills a column of every row below 800: entry rows at random (some blank), computed ones with a stale
    /// figure.
    void Fill(const std::string& column, std::mt19937_64& random, bool hidden_too) {
        const Connection cn = Cn_Open(session);
        Transaction transaction(cn);
        Recordset row = cn.Open("SELECT * FROM Ks_Zaihyo WHERE 建設科目CD>=100 And 建設科目CD<800;");
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

/// The panel of the statement screens, formed from the screens' rows alone.
class Panel {
  public:
    Panel(std::map<int, std::vector<Screen_Row>> rows, int form)
        : screens(std::move(rows)), mask(form), corporation((form & corp) != 0), hokkaido((form & hok) != 0) {
    }

    std::map<int, double> Fields() {
        Assets_And_Debts();
        corporation ? Corporate_Capital() : Own_Capital();
        Gross_Profit();
        Profits();
        return fields;
    }

    /// Rows first to last of a section, as far as the screen has them: marked ones that are not blank,
    /// deductions subtracted.
    [[nodiscard]] double Rows(int section, std::size_t first, std::size_t last) const {
        double sum = 0.0;
        const std::vector<Screen_Row>& on_screen = screens.at(section);
        for (std::size_t i = first; i <= last && i < on_screen.size(); ++i) {
            const Screen_Row& row = on_screen[i];
            sum += row.adds ? (row.subtracts ? -1.0 : 1.0) * row.amount.value_or(0.0) : 0.0;
        }
        return sum;
    }

    /// Tangible assets by their book values: triples of cost, depreciation and book value, the others as they
    /// are.
    [[nodiscard]] double By_Book_Values() const {
        const std::vector<Screen_Row>& rows = screens.at(130);
        std::vector<std::size_t> triples = {0, 3, 6};
        std::vector<std::size_t> alone = {9};
        if (corporation) {
            triples.insert(triples.end(), {10, 14});
            alone.push_back(13);
        } else {
            triples.push_back(11);
            alone.push_back(10);
        }
        double sum = 0.0;
        for (const std::size_t i : triples) {
            sum += rows.at(i).amount.value_or(0.0) - rows.at(i + 1).amount.value_or(0.0);
            EXPECT_FALSE(rows.at(i + 2).entered) << rows.at(i + 2).code;
            EXPECT_FALSE(rows.at(i + 2).adds) << rows.at(i + 2).code;
        }
        for (const std::size_t i : alone) {
            sum += rows.at(i).amount.value_or(0.0);
        }
        return sum;
    }

  private:
    double Of(const std::string& of_class) const {
        for (const Range& range : ranges) {
            if ((range.masks & mask) != 0 && of_class == range.of_class) {
                return Rows(range.section, range.first, range.last);
            }
        }
        return 0.0;
    }
    double Amount(int section, int code) const {
        for (const Screen_Row& row : screens.at(section)) {
            if (row.code == code) {
                return row.amount.value_or(0.0);
            }
        }
        return 0.0;
    }

    void Assets_And_Debts() {
        fields[129] = Of("Rds");
        fields[149] = Of("Yks");
        fields[159] = Of("Mks");
        fields[178] = Of("Tst");
        fields[179] = fields[149] + fields[159] + fields[178];
        if (corporation) {
            fields[189] = Of("Kns");
        }
        fields[199] = fields[129] + fields[179] + Of("Kns");
        fields[229] = Of("Rdf");
        fields[248] = Of("Ktf");
        fields[249] = fields[229] + fields[248];
    }
    void Corporate_Capital() {
        const double capital = Of("Hjk");
        const double between = Of("Rjk");
        const double treasury = Amount(250, 291) - Amount(250, 290);
        fields[281] = fields[199] - fields[249] - capital - between - treasury - Of("Hks") - Of("Skabu");
        fields[269] = Amount(250, 260) + Amount(250, 268);
        fields[289] = fields[281] + between;
        fields[298] = fields[289] + capital + treasury;
        fields[303] = Of("Hks");
        fields[319] = fields[298] + fields[303] + Of("Skabu");
        fields[399] = fields[319] + fields[249];
    }
    void Own_Capital() {
        const double capital = Of("Hjk");
        fields[281] = fields[199] - fields[249] - capital;
        fields[319] = fields[281] + capital;
        fields[399] = fields[319] + fields[249];
    }
    void Gross_Profit() {
        const double made = Rows(700, 6, 11) + Rows(700, 13, 13);
        fields[726] = Rows(700, 6, 11);
        fields[702] = fields[728] = made;
        fields[703] = Rows(700, 0, 1) + made;
        fields[705] = fields[703] + Rows(700, 4, 4); // the closing stock is a deduction
        if (hokkaido) {
            fields[534] = fields[579] = Rows(530, 7, 25);
        }
        const double cost = hokkaido ? Rows(530, 0, 3) + fields[534] : Rows(530, 0, 6);
        const double sales = Rows(400, 0, 0);
        const double side_sales = hokkaido ? Rows(400, 3, 3) : Rows(400, 1, 1);
        fields[539] = fields[hokkaido ? 401 : 403] = cost;
        fields[hokkaido ? 411 : 413] = fields[705];
        fields[hokkaido ? 409 : 417] = sales - cost;
        fields[418] = side_sales - fields[705];
        fields[419] = sales - cost + fields[418];
        if (!hokkaido) {
            fields[402] = sales + side_sales;
            fields[414] = cost + fields[705];
        }
    }
    void Profits() {
        fields[468] = Of("Ipk");
        fields[469] = fields[419] - fields[468];
        fields[479] = Of("Egs");
        fields[488] = Of("Egh");
        fields[489] = fields[469] + fields[479] - fields[488];
        if (!corporation) {
            fields[529] = fields[489];
            return;
        }
        fields[499] = Of("Tbr");
        fields[509] = Of("Tbs");
        fields[510] = fields[489] + fields[499] - fields[509];
        fields[519] = fields[510] - Of("SesT");
    }

    std::map<int, std::vector<Screen_Row>> screens;
    int mask;
    bool corporation, hokkaido;
    std::map<int, double> fields;
};

class Form_Test : public Statement_Test, public ::testing::WithParamInterface<Form> {
  protected:
    Form_Test() : Statement_Test(GetParam().edition) {}
    void SetUp() override { Make_Company(1, GetParam().type, 10); }
};

INSTANTIATE_TEST_SUITE_P(Forms, Form_Test, ::testing::ValuesIn(forms),
                         [](const auto& form) { return std::string(form.param.name); });

// What a subtotal of the screen adds and what a class sums are the same accounts, so that both give one
// figure.
TEST_P(Form_Test, Screen_Ranges_Hold_The_Accounts_Of_Their_Classes) {
    const auto screens = Screens("金額");
    std::set<int> summed;
    std::map<std::string, std::set<int>> by_class;
    for (const auto& [section, rows] : screens) {
        EXPECT_LE(rows.size(), 31U) << section;
        for (const Screen_Row& row : rows) {
            if (row.adds) {
                summed.insert(row.code);
                by_class[row.of_class].insert(row.code);
                EXPECT_EQ(row.entered, row.code != 702 && (row.code != 534 || !session.Is_Hokkaido()))
                    << row.code;
            }
        }
    }
    for (const Range& range : ranges) {
        if ((range.masks & GetParam().mask) == 0) {
            continue;
        }
        std::set<int> on_rows;
        const std::vector<Screen_Row>& on_screen = screens.at(range.section);
        for (std::size_t i = range.first; i <= range.last && i < on_screen.size(); ++i) {
            const Screen_Row& row = on_screen[i];
            if (row.adds) {
                on_rows.insert(row.code);
                summed.erase(row.code);
            }
        }
        EXPECT_EQ(on_rows, by_class[range.of_class]) << range.section << " " << range.of_class;
    }
    EXPECT_EQ(summed, std::set<int>()) << "summed by no range";
}

TEST_P(Form_Test, Chart_Holds_Every_Code_Of_A_Role) {
    static constexpr int roles[] = {
        99,  101, 103, 106, 107, 114, 115, 129, 140, 141, 142, 149, 153, 159, 161, 163, 177, 178, 179, 185,
        189, 199, 200, 201, 203, 204, 208, 209, 210, 229, 232, 248, 249, 250, 251, 260, 268, 269, 270, 272,
        273, 274, 281, 289, 290, 291, 298, 303, 310, 319, 399, 400, 401, 402, 403, 409, 410, 411, 413, 414,
        417, 418, 419, 436, 468, 469, 470, 479, 480, 488, 489, 499, 509, 510, 511, 519, 529, 534, 536, 539,
        552, 579, 702, 703, 705, 724, 726, 728, 729, 800, 801, 802, 803, 804, 805, 806, 807, 808, 820, 821,
        822, 823, 824, 825, 826, 827, 828, 829, 830, 831, 832, 833, 834, 835, 836, 837, 838, 901};
    static constexpr int computed[] = {129, 132, 135, 138, 142, 146, 149, 159, 178, 179, 189, 199, 229, 248,
                                       249, 269, 281, 289, 298, 303, 319, 399, 418, 419, 468, 469, 479, 488,
                                       489, 499, 509, 510, 519, 529, 539, 702, 703, 705, 726, 728};
    std::set<int> protected_codes(std::begin(computed), std::end(computed));
    if (session.Is_Hokkaido()) {
        protected_codes.insert({401, 409, 411, 534, 579});
    } else {
        protected_codes.insert({402, 403, 413, 414, 417});
    }
    const Connection cn = Cn_Open(session);
    Recordset rows = cn.Open("SELECT * FROM Ks_Zaihyo ORDER BY 建設科目CD;");
    EXPECT_EQ(rows.Count(), 255U);
    for (const int code : roles) {
        EXPECT_TRUE(rows.Find("建設科目CD", code)) << code;
    }
    std::set<int> found;
    for (rows.Move_First(); !rows.Eof(); rows.Move_Next()) {
        if (!rows["金額編集識別"].As_Boolean() && rows["建設科目CD"].As_Integer() != 99) {
            found.insert(static_cast<int>(rows["建設科目CD"].As_Integer()));
        }
    }
    EXPECT_EQ(found, protected_codes);
}

TEST_P(Form_Test, Stored_Totals_Are_Those_Of_The_Panel) {
    static constexpr const char* columns[] = {"仮金額", "金額", "改善後残高"};
    std::mt19937_64 random(20250331);
    for (std::uint8_t statement = 0; statement < 9; ++statement) {
        const std::string column = columns[statement % 3];
        SCOPED_TRACE(testing::Message() << column << " " << int{statement});
        Fill(column, random, true);
        Zaimu_Shukei(session, static_cast<std::uint8_t>(statement % 3 + 1));
        Panel panel(Screens(column), GetParam().mask);
        auto fields = panel.Fields();
        for (const auto& [code, amount] : fields) {
            EXPECT_EQ(Amount(code, column), amount) << code;
        }
        EXPECT_EQ(panel.By_Book_Values(), fields[149]);
        EXPECT_EQ(Amount(199, column), Amount(399, column));
        if (!session.Is_Corporation()) {
            EXPECT_EQ(Amount(489, column), Amount(529, column));
            EXPECT_EQ(Amount(189, column), 987'654'321.0) << "no deferred assets of an individual";
        }
    }
}

// The journal: each row by its side, the totals in all three columns as on the panel. The completed-work
// profit of the Hokkaido form keeps its amount, and the owner's drawings turn their sign.
TEST_P(Form_Test, Journal_Reaches_Rows_And_Totals) {
    std::mt19937_64 random(19891001);
    Fill("金額", random, false);
    Zaimu_Shukei(session, 2);
    Fill("借方", random, false);
    Fill("貸方", random, false);
    Cn_Open(session).Execute(
        "UPDATE Ks_Zaihyo SET 借方 = Null, 貸方 = Null, 改善後残高 = 5 WHERE 金額編集識別=0;");
    const double completed_profit = Amount(409);
    Zaimu_Shukei_KK(session);
    for (const auto& [section, rows] : Screens("改善後残高")) {
        for (const Screen_Row& row : rows) {
            if (row.entered) {
                const double change = Amount(row.code, "借方") - Amount(row.code, "貸方");
                const double amount = Amount(row.code);
                EXPECT_EQ(row.amount, row.code == 273 ? -amount + change
                                      : row.debit     ? amount + change
                                                      : amount - change)
                    << row.code;
            }
        }
    }
    for (const char* column : {"借方", "貸方", "改善後残高"}) {
        auto fields = Panel(Screens(column), GetParam().mask).Fields();
        fields.erase(409);
        for (const auto& [code, amount] : fields) {
            EXPECT_EQ(Amount(code, column), amount) << column << code;
        }
        EXPECT_EQ(Amount(199, column), Amount(399, column));
    }
    if (session.Is_Hokkaido()) {
        EXPECT_EQ(Amount(409, "改善後残高"), completed_profit);
        EXPECT_TRUE(Field("Ks_Zaihyo", "借方", "建設科目CD=409").Is_Null());
        EXPECT_NE(Amount(400, "借方"), 0.0);
    }
}

class National_Test : public Statement_Test {
  protected:
    National_Test() : Statement_Test("13") {}
};

TEST_F(National_Test, Flags_Of_Rows) {
    const struct {
        const char* name;
        const char* change;
        int code;
        double shukei, shukei_kk;
    } cases[] = {
        {"as it stands", "UPDATE Ks_Zaihyo SET 仮金額 = Null;", 129, 900, 900},
        {"a hidden row", "UPDATE Ks_Zaihyo SET 非表示識別=-1 WHERE 建設科目CD=100;", 129, -100, 900},
        {"not summed", "UPDATE Ks_Zaihyo SET 集計識別=0 WHERE 建設科目CD=100;", 129, -100, -100},
        {"no mark of deduction", "UPDATE Ks_Zaihyo SET 内部処理正負=Null WHERE 建設科目CD=114;", 129, 1100,
         1100},
        {"another mark", "UPDATE Ks_Zaihyo SET 内部処理正負=2 WHERE 建設科目CD=114;", 129, 1100, 1100},
        {"lease debt in 248", "UPDATE Ks_Zaihyo SET 仮金額 = Null;", 248, 50, 50},
        {"lease debt of class Kdf", "UPDATE Ks_Zaihyo SET 科目分類識別='Kdf' WHERE 建設科目CD=232;", 248, 0,
         0},
        {"Kdf in 249", "UPDATE Ks_Zaihyo SET 科目分類識別='Kdf' WHERE 建設科目CD=232;", 249, 300, 300},
        {"a total without its row", "DELETE FROM Ks_Zaihyo WHERE 建設科目CD=229;", 249, 350, 350},
        {"a line without its row", "DELETE FROM Ks_Zaihyo WHERE 建設科目CD=260;", 269, 7, 7},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Make_Company(1, 1, 10);
        Put_Amounts({{100, 1000}, {114, 100}, {201, 300}, {232, 50}, {268, 7}});
        Cn_Open(session).Execute(c.change);
        Zaimu_Shukei(session, 2);
        EXPECT_EQ(Amount(c.code), c.shukei);
        Zaimu_Shukei_KK(session);
        EXPECT_EQ(Amount(c.code, "改善後残高"), c.shukei_kk);
        EXPECT_EQ(Amount(199), Amount(399));
    }
}

TEST_F(National_Test, Drawings_Lower_The_Improved_Profit_Twice) {
    Make_Company(1, 2, 10);
    Put_Amounts({{100, 1000}, {250, 400}, {251, 50}, {273, 30}});
    Zaimu_Shukei(session, 2);
    EXPECT_EQ(Amount(281), 1000 - (400 + 50 - 30));
    Zaimu_Shukei_KK(session);
    EXPECT_EQ(Amount(273, "改善後残高"), -30);
    EXPECT_EQ(Amount(281, "改善後残高"), Amount(281) - 2 * 30);
    EXPECT_EQ(Amount(319, "改善後残高"), Amount(319));
}

TEST_F(National_Test, A_Period_Without_Summed_Rows_Stays) {
    Make_Company(1, 1, 10);
    Put_Amounts({{100, 1000}, {129, 5}});
    const std::string before = Dump(session.Work_Store);
    session.Syori_Ki = 99;
    Zaimu_Shukei(session, 2);
    Zaimu_Shukei_KK(session);
    EXPECT_EQ(Dump(session.Work_Store), before);

    session.Syori_Ki = 10;
    Cn_Open(session).Execute("UPDATE Ks_Zaihyo SET 集計識別=0;");
    const std::string unmarked = Dump(session.Work_Store);
    Zaimu_Shukei(session, 2);
    EXPECT_EQ(Dump(session.Work_Store), unmarked);
    Cn_Open(session).Execute("UPDATE Ks_Zaihyo SET 集計識別=-1 WHERE 建設科目CD=480;");
    Zaimu_Shukei(session, 2);
    EXPECT_EQ(Amount(129), 0.0) << "one row of one side is enough for all totals";
    EXPECT_FALSE(Field("Ks_Zaihyo", "金額", "建設科目CD=519").Is_Null());
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

    /// Three periods; an amount of the first two tells its period and code, the third has marks in every
    /// column.
    void SetUp() override {
        Make_Company(1, 1, 10);
        ASSERT_TRUE(Period_Copy(session, 11, 10, Copy_Mode::After));
        ASSERT_TRUE(Period_Copy(session, 12, 11, Copy_Mode::After));
        const Connection cn = Cn_Open(session);
        cn.Execute("UPDATE Ks_Zaihyo SET 並び順=" + std::to_string(GetParam().form) +
                   " WHERE 建設科目CD=99 And 決算期<12;");
        if (GetParam().form == 0) {
            cn.Execute("DELETE FROM Ks_Zaihyo WHERE 建設科目CD=99 And 決算期<12;");
        }
        for (const char* period : {"10", "11"}) {
            cn.Execute(std::string("INSERT INTO Ks_Zaihyo (決算期, 建設科目CD) VALUES (") + period +
                       ", 299)");
        }
        cn.Execute("UPDATE Ks_Zaihyo SET 金額=決算期*1000+建設科目CD;");
        cn.Execute("UPDATE Ks_Zaihyo SET 金額=-1, 改善後残高=-2, 借方=3, 貸方=4 WHERE 決算期=12;");
    }

    std::vector<int> Sources() const {
        const Prior_Case& c = GetParam();
        return {101, 103, 106, 107, c.allowance,    177, 200,    201, c.advances, c.equity, c.capital,
                436, 469, 489, 511, c.depreciation, 724, c.side, 281};
    }

    void Expect_Block(int first_code, std::size_t count, int period) const {
        for (std::size_t i = 0; i < count; ++i) {
            const int code = first_code + static_cast<int>(i);
            const int source = Sources()[i];
            EXPECT_EQ(Amount(code), source == 0 ? 0 : period * 1000 + source) << code;
            EXPECT_EQ(Amount(code, "改善後残高"), Amount(code)) << code;
            EXPECT_EQ(Amount(code, "借方") + 10 * Amount(code, "貸方"), 43) << code;
        }
    }
    std::size_t Touched() const {
        return Cn_Open(session)
            .Open("SELECT * FROM Ks_Zaihyo WHERE 決算期=12 And (金額<>-1 Or 改善後残高<>-2);")
            .Count();
    }
};

INSTANTIATE_TEST_SUITE_P(Forms, Prior_Test, ::testing::ValuesIn(prior_cases),
                         [](const auto& c) { return std::string(c.param.name); });

TEST_P(Prior_Test, Copies_The_Rows_Of_The_Earlier_Form) {
    Zen_Get(session, 12, 2);
    Expect_Block(820, 19, 11);
    EXPECT_EQ(Touched(), 19U);
    ZZen_Get(session, 12, 2);
    Expect_Block(800, 9, 10);
    EXPECT_EQ(Touched(), 19U + 9U);
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
