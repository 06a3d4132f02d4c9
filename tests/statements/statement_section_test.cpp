// SPDX-FileCopyrightText: The Morvane developers
#include "statements/statement_section.h"

#include "statements/prior_figures.h"
#include "support/failing_writes.h"
#include "support/installation_fixture.h"
#include "support/sums.h"

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

/// What the store must hold of a line of the panel after saving, by its control.
constexpr const char* of_both =
    "BsIp_Rds=129 BsIp_Yks=149 BsIp_Mks=159 BsIp_Tst=178 BsIp_KtsKei=179 BsIp_SSKei=199 BsIp_Rdf=229 "
    "BsIp_Ktf=248 BsIp_FSiKei=249 bsIp_SHKei=319 BsIp_FSSKei=399 PLIp_Kjr=418 PLIp_Usr=419 PLIp_Hkr=468 "
    "PLIp_EgrKei=469 PLIp_Egs=479 PLIp_Egh=488 PLIp_KjrKei=489 ";
constexpr const char* of_corporation =
    "BsIp_KnsKei=189 BsIp_Shk=250+251+269 BsIp_Krj=281 BsIp_Rjkei=289 BsIp_JKabu=291+290 BsIp_KKbkei=298 "
    "BsIp_Hyok=303 BsIp_Skb=310 PLIp_TrKei=499 PLIp_TsKei=509 PLIp_ZtrKei=510 PLIp_Hjz=511+512 "
    "PLIp_TkrKei=519 Chk_ZRki=838 Chk_TJrki=519 Chk_TRki=281 Chk_THen=901 Chk_Sa=838+519-281-901";
constexpr const char* of_individual =
    "BsIp_Shk=250+251-273 BsIp_Msr=281 Chk_Sa=281-529 Chk_Tai=281 Chk_Son=529";

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
        const auto lines =
            Read_Sums(of_both + std::string(session.Is_Hokkaido() ? "PLIp_Ksr=409 " : "PLIp_Ksr=417 ") +
                      (session.Is_Corporation() ? of_corporation : of_individual));
        std::map<int, double> amounts;
        const Connection cn = Cn_Open(session);
        for (Recordset row = cn.Open("SELECT * FROM Ks_Zaihyo"); !row.Eof(); row.Move_Next()) {
            amounts[static_cast<int>(row["建設科目CD"].As_Integer())] = row["金額"].As_Double();
        }
        for (const auto& [control, terms] : lines) {
            double stored = 0.0;
            for (const Term& term : terms) {
                stored += term.sign * amounts.at(term.first);
            }
            EXPECT_EQ(Shown(section, control), stored) << control;
        }
        EXPECT_EQ(lines.size(), section.Lines().size());
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
        const Statement_Section stored(session, of);
        for (std::size_t row = 0; row < section.Rows().size(); ++row) {
            EXPECT_EQ(section.Rows()[row].amount.As_Double(), stored.Rows()[row].amount.As_Double()) << row;
        }
    }
}

TEST_P(Firm_Test, Depreciation_Comes_Off_The_Asset_Above_It) {
    const std::tuple<Value, Value, Value> cases[] = {
        {1000, 300, 700.0}, {1000, {}, 1000.0}, {{}, 300, -300.0}, {{}, {}, {}}, {0, {}, 0.0}};
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
        for (const auto& [price, depreciation, book] : cases) {
            EXPECT_EQ(section.Set_Amount(row, price), row + 2) << cost;
            EXPECT_EQ(section.Set_Amount(row + 1, depreciation), row + 2) << cost;
            EXPECT_EQ(section.Rows()[row + 2].code, cost + 2);
            EXPECT_TRUE(section.Rows()[row + 2].amount == book) << cost << " " << book.As_Text();
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

// Amounts never stand beside totals that do not hold them, whichever write fails or kills the program.
TEST_F(Corporation_Test, No_Failing_Write_Separates_Amounts_And_Totals) {
    Put_Amounts({{100, 500}, {200, 100}});
    Open(100).Close(true);
    Expect_All_Or_Nothing(
        folder.path,
        [this] {
            Statement_Section section = Open(100);
            section.Set_Amount(0, 9000);
            section.Close(true);
        },
        [this] {
            return std::map<std::string, std::string>{{"", List("SELECT 金額, 改善後残高 FROM Ks_Zaihyo")}};
        });
}

TEST_F(Section_Test, Y_Needs_A_Complete_And_Of_A_Corporation_A_Balanced_Statement) {
    /// A statement that is complete and balances, with one account changed.
    const std::tuple<const char*, std::int16_t, std::map<int, double>, const char*, const char*> cases[] = {
        {"corporation", 1, {}, "編集保存確認", "ＯＫ！"},
        {"one yen too much", 1, {{100, 3001}}, "編集保存確認 バランス不合エラー", "Ｎｏ！"},
        {"no profit carried", 1, {{838, 0}}, "編集保存確認 バランス不合エラー", "Ｎｏ！"},
        {"no fixed assets", 1, {{139, 0}}, "財務データエラー", "Ｎｏ！"},
        {"sales without gross profit", 1, {{530, 2000}}, "財務データエラー", "Ｎｏ！"},
        {"individual", 2, {}, "編集保存確認", "Ｎｏ？"},
        {"individual, balanced", 2, {{100, 2800}}, "編集保存確認", "ＯＫ！"},
        {"individual without gross profit", 2, {{530, 2000}}, "編集保存確認", "Ｎｏ？"},
        {"individual without completed work", 2, {{400, 0}, {401, 900}}, "財務データエラー", "Ｎｏ？"},
    };
    for (const auto& [name, type, change, boxes, check] : cases) {
        SCOPED_TRACE(name);
        Make_Company(1, type, 10);
        Put_Amounts({{100, 3000}, {139, 4000}, {200, 1000}, {250, 5000}, {400, 2000}, {530, 1200}});
        // The remainder is 1000 and the profit 800.
        Put_Amounts({{838, 150}, {901, -50}});
        Put_Amounts(change);
        const Statement_Section section = Open(200);
        EXPECT_FALSE(section.Y_Disp()) << "No is the default";
        messages.shown.clear();
        messages.answers = {Answer::Yes};
        EXPECT_EQ(section.Y_Disp(), std::string_view(boxes) == "編集保存確認");
        messages.answers.clear();
        EXPECT_EQ(Told(), boxes);
        EXPECT_EQ(section.Panel().Check_Text(), "チェック ⇒ " + std::string(check));
    }
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
