// SPDX-FileCopyrightText: The Morvane developers
#include "batch/score_format.h"
#include "company/data_set.h"
#include "company/law_change.h"
#include "law/elements.h"
#include "report/kekka.h"
#include "review/settle.h"
#include "screens/kanko_entry.h"
#include "screens/syokuta_entry.h"
#include "screens/syokuta_table.h"
#include "statements/statement_section.h"
#include "statements/zaimu_calc.h"
#include "support/installation_fixture.h"

#include <functional>
#include <random>

namespace morvane::tests {
namespace {

void Take_Law(Session& session, int law) {
    Set_Law_Year(session, 10, Law_Of(law).code);
    session.Simyu_Kubun = Law_Of(law).code;
}

Kekka_Figures Print(const Session& session) {
    return Kekka_Read(Cn_Open(session), session, Side_In_Hand(session));
}

/// A firm whose screens are visited in any order, with any edits. What the store holds, what is
/// printed and what the batch tool says of the store must be one result, after every step.
class One_Result : public Installation, public ::testing::WithParamInterface<const char*> {
  protected:
    One_Result() : Installation(GetParam(), false) {}

    std::int32_t Up_To(std::uint32_t most) { return static_cast<std::int32_t>(random() % (most + 1)); }

    void Make_Firm(int law, std::int16_t type) {
        Make_Company(1, type, 10);
        Take_Law(session, law);
        for (int i = 0; i < 3; ++i) {
            Edit_Statement();
        }
    }

    void Edit_Statement() {
        constexpr std::array<std::uint8_t, 6> screens = {41, 42, 44, 45, 46, 48};
        Statement_Section section(session, *Section_Of_Screen(screens[random() % screens.size()]));
        for (int i = 0; i < 4; ++i) {
            const std::size_t row = random() % section.Rows().size();
            if (section.Rows()[row].amount_open) {
                section.Set_Amount(row, random() % 8 == 0 ? Value() : Value(Up_To(900'000) * 1000.0));
            }
        }
        section.Close(true);
        Settle_Again(session);
    }

    void Edit_Prior_Figures() {
        Put_Amounts({{820 + Up_To(18), Up_To(900'000) * 1000.0}, {829, Up_To(90'000) * 1000.0}});
        Settle_Again(session);
    }

    void Change_Date() {
        const int year = 4 + Up_To(3);
        const int day = 28 + (year % 2 == 0 ? Up_To(1) : 0);
        Cn_Open(session).Execute("UPDATE Jigyo_mas SET 決算期終了年=" + std::to_string(year) +
                                 ", 決算期終了月=2, 決算期終了日=" + std::to_string(day));
        Settle_Again(session);
    }

    void Change_Law() {
        Take_Law(session, 2 + Up_To(2));
        Settle_Again(session);
    }

    void Visit_X2W(int edits) {
        Syokuta_Entry entry(session);
        const Law_Year& law = entry.Law();
        for (const Syokuta_Group& group : Syokuta_Groups()) {
            for (const Syokuta_Row& row : group.rows) {
                for (const Syokuta_Cell& cell : row.cells) {
                    if (cell.element == 0 || !group.law.Has(law) || !row.law.Has(law) || Up_To(9) >= edits) {
                        continue;
                    }
                    const Element_Info& item = *Find_Element(cell.element);
                    const Choice* choice = Choice_Of(item, law);
                    entry.Take(cell.element, choice == nullptr
                                                 ? Up_To(item.amount ? 200'000 : 40)
                                                 : choice->keys[random() % choice->keys.size()] - '0');
                }
            }
        }
        Leave(entry, &Syokuta_Entry::Store, entry.Fault());
    }

    void Visit_Works(const char* form, int edits) {
        Kanko_Entry entry(session, Kanko_Screen_Of(form));
        for (int i = 0; i < edits; ++i) {
            const auto column = random() % entry.screen.columns.size();
            const Kanko_Column& of = entry.screen.columns[column];
            const int row = Up_To(kanko_rows - 1);
            const bool count = of.use == Kanko_Use::Count;
            if (of.use == Kanko_Use::Amount || (count && Line_Of_Row(row) < scored_lines)) {
                const Kanko_Entered keyed = {row, static_cast<int>(column),
                                             random() % 6 == 0
                                                 ? std::nullopt
                                                 : std::optional<std::int64_t>(Up_To(count ? 12 : 900'000))};
                entry.Take({&keyed, 1});
            }
        }
        if (entry.screen.Has_Years() && random() % 3 == 0) {
            entry.Take_Kanko_Avg(2 + Up_To(1));
        }
        Leave(entry, &Kanko_Entry::Save, entry.Fault());
    }

    /// Stores a screen, for a check or in closing.
    template <class Entry>
    void Leave(const Entry& entry, void (Entry::*save)(const Session&) const,
               const std::optional<Run_Time_Error>& fault) {
        ASSERT_FALSE(fault) << fault->what();
        (entry.*save)(session);
        if (random() % 3 == 0) {
            Expect_One_Print();
        }
    }

    [[nodiscard]] Settled_Score Batch() const {
        const Connection cn(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
        return Score_Company(cn, session.Kind().edition);
    }

    /// What is printed is what the batch tool says.
    void Expect_One_Print() {
        const Kekka_Figures printed = Print(session);
        const Settled_Score batch = Batch();
        EXPECT_EQ(printed.figures.works, batch.figures.works);
        EXPECT_EQ(printed.figures.elements, batch.figures.elements);
        EXPECT_EQ(printed.y.score, batch.y.score);
        EXPECT_EQ(printed.x2.score, batch.x2.score);
        EXPECT_EQ(printed.x2w_entered, !Field("W_Yoso", "現状", "要素CD=100").Is_Null());
    }

    /// And both print what is stored, once both sides were entered.
    void Expect_One_Result() {
        Expect_One_Print();
        const Settled_Score batch = Batch();
        const Review_Figures stored = Load_Review(session, {10});
        if (!stored.elements[100].up || !stored.elements[202].up) {
            return;
        }
        ++settled;
        EXPECT_EQ(stored.works, batch.figures.works);
        for (std::size_t code = 0; code < stored.elements.size(); ++code) {
            EXPECT_EQ(stored.elements[code], batch.figures.elements[code]) << "element " << code;
        }
        // By the rows themselves: what a later screen or a CSV file reads.
        std::string points;
        for (const Work_Line& line : batch.figures.works) {
            points += (points.empty() ? "" : " ") + (line.P.up ? std::to_string(line.P.value) : "-");
        }
        EXPECT_EQ(List("SELECT 総合評点P FROM Kandaka_Gj WHERE 決算期=10 ORDER BY 工種CD"), points);
        EXPECT_EQ(Field("W_Yoso", "現状", "要素CD=200").As_Integer(), batch.figures.Yoso(200));
    }

    std::mt19937 random;
    int settled = 0;
};

TEST_P(One_Result, Whatever_The_Order_Of_Visits) {
    for (unsigned firm = 0; firm < 8; ++firm) {
        random.seed(7100 + firm);
        const int law = 1 + static_cast<int>(firm % 4);
        Make_Firm(law, firm < 4 ? std::int16_t{1} : std::int16_t{2});
        std::string visits;
        for (int step = 0; step < 8; ++step) {
            const struct {
                char name;
                std::function<void()> visit;
            } all[] = {{'x', [&] { Visit_X2W(Up_To(4)); }},
                       {'k', [&] { Visit_Works("Frm_Kanko", Up_To(8)); }},
                       {'g', [&] { Visit_Works("Frm_Kanko2", Up_To(8)); }},
                       {'s', [&] { Edit_Statement(); }},
                       {'v', [&] { Edit_Prior_Figures(); }},
                       {'d', [&] { Change_Date(); }},
                       {'l', [&] { law == 1 ? Edit_Statement() : Change_Law(); }}};
            // The review screens are visited as often as all the others.
            const auto& next = all[random() % 2 == 0 ? random() % 3 : random() % std::size(all)];
            visits += next.name;
            SCOPED_TRACE(testing::Message() << "firm " << firm << " law " << law << " visits " << visits);
            next.visit();
            Expect_One_Result();
            if (HasFailure()) {
                return;
            }
        }
    }
    EXPECT_GT(settled, 10);
    EXPECT_TRUE(messages.shown.empty());
}

INSTANTIATE_TEST_SUITE_P(Editions, One_Result, ::testing::Values("13", "01"));

class Mended_Screens : public Installation {
  protected:
    Mended_Screens() : Installation("13", false) {
        Make_Company(1, 1, 10);
        Syokuta_Entry(session).Store(session);
        Kanko_Entry(session, Kanko_Screen_Of("Frm_Kanko")).Save(session);
    }
};

// Where a score could not be computed before either, what is keyed to mend it is kept, so that neither screen
// waits for the other.
TEST_F(Mended_Screens, Overflow_And_The_Way_Out) {
    Kanko_Entry engineers(session, Kanko_Screen_Of("Frm_Kanko2"));
    const Kanko_Entered count = {3, 0, 7};
    engineers.Take({&count, 1});
    const std::string settled = Dump(session.Work_Store);
    // While the screen is open another hand brings the research costs beyond their sum.
    Put_Elements({{141, 3}, {151, 2'000'000'000}, {152, 2'000'000'000}});
    const std::string broken = Dump(session.Work_Store);
    EXPECT_TRUE(broken != settled);
    engineers.Save(session);
    EXPECT_TRUE(Dump(session.Work_Store) != broken) << "no score before either: what was keyed is kept";
    EXPECT_THROW(static_cast<void>(Print(session)), Run_Time_Error);
    Settle_Again(session);

    Syokuta_Entry social(session);
    ASSERT_TRUE(social.Fault());
    social.Take(element::research_before, 0);
    social.Store(session);
    EXPECT_EQ(List("SELECT 技術者1 FROM Kandaka_Gj WHERE 工種CD=3"), "7");
    EXPECT_NO_THROW(static_cast<void>(Print(session)));
}

// A date that is none leaves to the engineers what they keyed; W waits for the date.
TEST_F(Mended_Screens, A_Date_That_Is_None_Blocks_W_Alone) {
    Cn_Open(session).Execute("UPDATE Jigyo_mas SET 決算期終了年=7, 決算期終了月=2, 決算期終了日=30");
    Kanko_Entry engineers(session, Kanko_Screen_Of("Frm_Kanko2"));
    EXPECT_FALSE(engineers.Fault());
    const Kanko_Entered count = {3, 0, 7};
    engineers.Take({&count, 1});
    engineers.Save(session);
    EXPECT_EQ(List("SELECT 技術者1 FROM Kandaka_Gj WHERE 工種CD=3"), "7");
    for (const int law : {1, 2, 4}) {
        Take_Law(session, law);
        EXPECT_EQ(Syokuta_Entry(session).Fault().has_value(), law > 1) << law;
        EXPECT_TRUE(Kanko_Entry(session, Kanko_Screen_Of("Frm_Kanko")).Fault()) << law;
        const auto print = [this] { static_cast<void>(Print(session)); };
        EXPECT_PRED2(Has, Refusal_Of<Run_Time_Error>(print), "7/2/30") << law;
    }
    Cn_Open(session).Execute("UPDATE Jigyo_mas SET 決算期終了日=28");
    Settle_Again(session);
    EXPECT_NO_THROW(static_cast<void>(Print(session)));
}

} // namespace
} // namespace morvane::tests
