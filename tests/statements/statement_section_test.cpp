// SPDX-FileCopyrightText: The Morvane developers
#include "statements/statement_section.h"

#include "statements/prior_figures.h"
#include "support/failing_writes.h"
#include "support/installation_fixture.h"

#include <random>

namespace morvane::tests {
namespace {

struct Firm {
    const char* name;
    const char* edition;
    std::int16_t type;
    bool form_2008 = false; ///< without the lines of leases
};
constexpr Firm firms[] = {{"National_Corporation", "13", 1},
                          {"National_Individual", "13", 2},
                          {"Hokkaido_Corporation", "01", 1},
                          {"Hokkaido_Individual", "01", 2},
                          {"National_Corporation_Of_2008", "13", 1, true},
                          {"Hokkaido_Individual_Of_2008", "01", 2, true}};

/// What the store must hold of a line of the panel after saving: accounts added, negative ones subtracted.
struct Line {
    const char* control;
    std::vector<int> corporation;
    std::vector<int> individual;
};
const std::vector<Line> stored_lines = {
    {"BsIp_Rds", {129}, {129}},
    {"BsIp_Yks", {149}, {149}},
    {"BsIp_Mks", {159}, {159}},
    {"BsIp_Tst", {178}, {178}},
    {"BsIp_KtsKei", {179}, {179}},
    {"BsIp_KnsKei", {189}, {}},
    {"BsIp_SSKei", {199}, {199}},
    {"BsIp_Rdf", {229}, {229}},
    {"BsIp_Ktf", {248}, {248}},
    {"BsIp_FSiKei", {249}, {249}},
    {"BsIp_Shk", {250, 251, 269}, {250, 251, -273}},
    {"BsIp_Krj", {281}, {}},
    {"BsIp_Msr", {}, {281}},
    {"BsIp_Rjkei", {289}, {}},
    {"BsIp_JKabu", {291, 290}, {}},
    {"BsIp_KKbkei", {298}, {}},
    {"BsIp_Hyok", {303}, {}},
    {"BsIp_Skb", {310}, {}},
    {"bsIp_SHKei", {319}, {319}},
    {"BsIp_FSSKei", {399}, {399}},
    {"PLIp_Ksr", {417}, {417}}, // 409 of the Hokkaido form
    {"PLIp_Kjr", {418}, {418}},
    {"PLIp_Usr", {419}, {419}},
    {"PLIp_Hkr", {468}, {468}},
    {"PLIp_EgrKei", {469}, {469}},
    {"PLIp_Egs", {479}, {479}},
    {"PLIp_Egh", {488}, {488}},
    {"PLIp_KjrKei", {489}, {489}},
    {"PLIp_TrKei", {499}, {}},
    {"PLIp_TsKei", {509}, {}},
    {"PLIp_ZtrKei", {510}, {}},
    {"PLIp_Hjz", {511, 512}, {}},
    {"PLIp_TkrKei", {519}, {}},
    {"Chk_ZRki", {838}, {}},
    {"Chk_TJrki", {519}, {}},
    {"Chk_TRki", {281}, {}},
    {"Chk_THen", {901}, {}},
    {"Chk_Sa", {838, 519, -281, -901}, {281, -529}},
    {"Chk_Tai", {}, {281}},
    {"Chk_Son", {}, {529}},
};

class Section_Test : public Installation {
  protected:
    explicit Section_Test(const std::string& edition = "13") : Installation(edition) {}

    /// Opens the section that begins with an account.
    Statement_Section Open(int first) {
        for (const Account_Section& section : account_sections) {
            if (Code(section.first) == first) {
                return {session, section};
            }
        }
        throw std::out_of_range("no section");
    }

    static double Shown(const Statement_Section& section, std::string_view control) {
        for (const Statement_Line& line : section.Lines()) {
            if (control == line.control) {
                return section.Panel().Shown(line)[0].Count();
            }
        }
        ADD_FAILURE() << control;
        return 0.0;
    }

    static std::size_t Row_Of(const Statement_Section& section, int code) {
        std::size_t row = 0;
        while (section.Rows().at(row).code != code) {
            ++row;
        }
        return row;
    }

    void Key(Statement_Section& section, int code, const Value& amount) const {
        section.Set_Amount(Row_Of(section, code), amount);
        section.Sec_Subtotals();
    }
};

class Firm_Test : public Section_Test, public ::testing::WithParamInterface<Firm> {
  protected:
    Firm_Test() : Section_Test(GetParam().edition) {}
    void SetUp() override {
        Make_Company(1, GetParam().type, 10);
        if (GetParam().form_2008) {
            Make_Form_2008();
        }
    }

    /// Each line of the panel against the accounts of the store.
    void Expect_Stored(const Statement_Section& section) const {
        std::map<int, double> amounts;
        const Connection cn = Cn_Open(session);
        for (Recordset row = cn.Open("SELECT * FROM Ks_Zaihyo"); !row.Eof(); row.Move_Next()) {
            amounts[static_cast<int>(row["建設科目CD"].As_Integer())] = row["金額"].As_Double();
        }
        std::size_t compared = 0;
        for (const Line& line : stored_lines) {
            const auto& codes = session.Is_Corporation() ? line.corporation : line.individual;
            double stored = 0.0;
            for (int code : codes) {
                code = code == 417 && session.Is_Hokkaido() ? 409 : code;
                stored += code > 0 ? amounts.at(code) : -amounts.at(-code);
            }
            if (!codes.empty()) {
                EXPECT_EQ(Shown(section, line.control), stored) << line.control;
                ++compared;
            }
        }
        EXPECT_EQ(compared, section.Lines().size());
    }
};

INSTANTIATE_TEST_SUITE_P(Forms, Firm_Test, ::testing::ValuesIn(firms),
                         [](const auto& firm) { return std::string(firm.param.name); });

TEST_P(Firm_Test, The_Panel_Follows_The_Keys_To_What_The_Store_Comes_To) {
    std::mt19937_64 random(20250331);
    const auto any_amount = [&random] {
        return random() % 6 == 0 ? Value()
                                 : Value(static_cast<double>(random() % 2'000'000'000) - 300'000'000.0);
    };
    // Figures stand in every row before; those of rows that are not shown enter nothing.
    Cn_Open(session).Execute("UPDATE Ks_Zaihyo SET 金額=建設科目CD*7919 WHERE 金額編集識別<>0");
    Put_Amounts({{838, 4'000'000}, {901, -1'500'000}});
    for (const Account_Section& of : account_sections) {
        SCOPED_TRACE(of.title);
        Statement_Section section(session, of);
        Expect_Stored(section);
        for (std::size_t row = 0; row < section.Rows().size(); ++row) {
            if (section.Rows()[row].amount_open) {
                section.Set_Amount(row, any_amount());
            }
        }
        section.Sec_Subtotals();
        section.Save_Rows();
        Expect_Stored(section);
    }
}

TEST_P(Firm_Test, Depreciation_Comes_Off_The_Asset_Above_It) {
    const struct {
        Value cost, depreciation, book;
    } cases[] = {{1000, 300, 700.0}, {1000, {}, 1000.0}, {{}, 300, -300.0}, {{}, {}, {}}, {0, {}, 0.0}};
    // The lines of leases are a corporation's; what stands between the triples has no book value.
    const bool old = GetParam().form_2008;
    std::vector<int> costs = {130, 133, 136, old ? 141 : 144};
    if (session.Is_Corporation() && !old) {
        costs.push_back(140);
    }
    Put_Amounts({{130, 70}, {131, 20}});
    Statement_Section section = Open(130);
    EXPECT_EQ(section.Rows()[2].amount, Value(50.0)) << "imported without its book value";
    for (const int cost : costs) {
        const std::size_t row = Row_Of(section, cost);
        EXPECT_FALSE(section.Rows()[row + 1].name_open) << cost;
        for (const auto& c : cases) {
            EXPECT_EQ(section.Set_Amount(row, c.cost), row + 2) << cost;
            EXPECT_EQ(section.Set_Amount(row + 1, c.depreciation), row + 2) << cost;
            EXPECT_EQ(section.Rows()[row + 2].code, cost + 2);
            EXPECT_TRUE(section.Rows()[row + 2].amount == c.book) << cost << " " << c.book.As_Text();
        }
    }
    for (const int alone : {139, old ? 140 : 143}) {
        EXPECT_EQ(section.Set_Amount(Row_Of(section, alone), 50), std::nullopt) << alone;
    }
    section.Sec_Subtotals();
    EXPECT_EQ(Shown(section, "BsIp_Yks"), 100.0);
}

class Corporation_Test : public Section_Test {
  protected:
    void SetUp() override { Make_Company(1, 1, 10); }
};

TEST_F(Corporation_Test, Blank_And_Zero_And_Captions_Are_Stored_As_They_Stand) {
    Put_Amounts({{100, 5}, {101, 6}, {103, 7}});
    Statement_Section section = Open(100);
    Key(section, 100, {});
    Key(section, 101, 0);
    const std::size_t free_line = Row_Of(section, 105);
    section.Set_Name(free_line, "電子記録債権");
    section.Save_Rows();
    EXPECT_TRUE(Field("Ks_Zaihyo", "金額", "建設科目CD=100").Is_Null());
    EXPECT_EQ(Amount(101), 0.0);
    EXPECT_FALSE(Field("Ks_Zaihyo", "金額", "建設科目CD=101").Is_Null());
    EXPECT_EQ(Amount(103), 7.0);
    EXPECT_EQ(Field("Ks_Zaihyo", "建設科目名", "建設科目CD=105").As_Text(), "電子記録債権");
    section.Set_Name(free_line, {});
    section.Save_Rows();
    EXPECT_TRUE(Field("Ks_Zaihyo", "建設科目名", "建設科目CD=105").Is_Null());
}

TEST_F(Corporation_Test, Leaving_Without_Saving_Still_Forms_The_Balances) {
    Put_Amounts({{100, 500}, {200, 100}});
    Statement_Section section = Open(100);
    Key(section, 100, 9000);
    section.Close(false);
    EXPECT_EQ(Amount(100), 500.0);
    EXPECT_EQ(Amount(281, "改善後残高"), 400.0);
    section.Close(true);
    EXPECT_EQ(Amount(281, "改善後残高"), 8900.0);
}

// Amounts never stand beside totals that do not hold them, whichever write fails or kills the program.
TEST_F(Corporation_Test, No_Failing_Write_Separates_Amounts_And_Totals) {
    Put_Amounts({{100, 500}, {200, 100}});
    Open(100).Close(true);
    Expect_All_Or_Nothing(
        folder.path,
        [this] {
            Statement_Section section = Open(100);
            Key(section, 100, 9000);
            section.Close(true);
        },
        [this] {
            std::map<std::string, std::string> state;
            for (const char* column : {"金額", "改善後残高"}) {
                for (const int code : {100, 129, 199, 281, 399}) {
                    state[column + std::to_string(code)] = std::to_string(Amount(code, column));
                }
            }
            return state;
        });
}

/// A statement that is complete and balances, with one account changed.
struct Y_Case {
    const char* name;
    std::int16_t type;
    std::map<int, double> change;
    const char* refusal; ///< title; none: Y opens
};
const Y_Case y_cases[] = {
    {"corporation", 1, {}, ""},
    {"one yen too much", 1, {{100, 3001}}, "バランス不合エラー"},
    {"no profit carried", 1, {{838, 0}}, "バランス不合エラー"},
    {"no fixed assets", 1, {{139, 0}}, "財務データエラー"},
    {"sales without gross profit", 1, {{530, 2000}}, "財務データエラー"},
    {"individual", 2, {}, ""},
    {"individual, unbalanced", 2, {{100, 3001}}, ""},
    {"individual without gross profit", 2, {{530, 2000}}, ""},
    {"individual without completed work", 2, {{400, 0}, {401, 900}}, "財務データエラー"},
};

TEST_F(Section_Test, Y_Needs_A_Complete_And_Of_A_Corporation_A_Balanced_Statement) {
    for (const Y_Case& c : y_cases) {
        SCOPED_TRACE(c.name);
        Make_Company(1, c.type, 10);
        Put_Amounts({{100, 3000}, {139, 4000}, {200, 1000}, {250, 5000}, {400, 2000}, {530, 1200}});
        // The remainder is 1000 and the profit 800.
        Put_Amounts({{838, 150}, {901, -50}});
        Put_Amounts(c.change);
        const bool refused = *c.refusal != 0;
        const Statement_Section section = Open(200);
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            messages.shown.clear();
            messages.answers = {answer};
            EXPECT_EQ(section.Y_Disp(), answer == Answer::Yes && !refused);
            const bool asked = refused && std::string_view(c.refusal) == "財務データエラー"
                                   ? messages.shown.size() == 1
                                   : messages.shown.front().title == "編集保存確認";
            EXPECT_TRUE(asked);
        }
        EXPECT_EQ(refused ? messages.shown.back().title : "", c.refusal);
        EXPECT_EQ(std::string(section.Panel().Check_Text()), section.Panel().Check() ? "チェック ⇒ ＯＫ！"
                                                             : c.type == 1 ? "チェック ⇒ Ｎｏ！"
                                                                           : "チェック ⇒ Ｎｏ？");
    }
}

TEST_F(Corporation_Test, A_Section_Without_Accounts_Is_Empty_And_Closes) {
    Put_Amounts({{100, 70}});
    const Statement_Section section = Open(600);
    EXPECT_TRUE(section.Rows().empty());
    EXPECT_EQ(Shown(section, "BsIp_SSKei"), 70.0);
    section.Close(true);
    EXPECT_EQ(Amount(100), 70.0);
}

TEST_F(Corporation_Test, The_Change_Of_Equity_Gets_Its_Row) {
    Cn_Open(session).Execute("DELETE FROM Ks_Zaihyo WHERE 建設科目CD=901;");
    EXPECT_TRUE(Load_Equity_Change(session).amount.Is_Null());
    EXPECT_EQ(Load_Equity_Change(session).name, "変動計算書　剰余金の配当") << "and only once";
    Put_Amounts({{100, 9e15}});
    Save_Equity_Change(session, 5);
    EXPECT_EQ(List("SELECT 金額, 改善後残高 FROM Ks_Zaihyo WHERE 建設科目CD=901"), "5=5")
        << "Y overflows, the entry is kept";
}

} // namespace
} // namespace morvane::tests
