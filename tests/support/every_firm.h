// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "company/law_change.h"
#include "review/settle.h"
#include "session/kyotu_mod.h"
#include "support/generated_firm.h"
#include "support/grid_screen.h"

namespace morvane::tests {

/// Both editions, both firm types and every law year.
inline const auto Every_Kind =
    ::testing::Combine(::testing::Values("13", "01"), ::testing::Values(std::int16_t{1}, std::int16_t{2}),
                       ::testing::Range(1, 5));

/// Generated firms of every kind in a screen of the improvement.
class Every_Firm : public Grid_Screen,
                   public ::testing::WithParamInterface<std::tuple<const char*, std::int16_t, int>> {
  protected:
    Every_Firm() : Grid_Screen(std::get<0>(GetParam()), false) {
        Make_Company(1, std::get<1>(GetParam()), 10);
        Set_Law_Year(session, 10, Law().code);
        session.Simyu_Kubun = Law().code;
    }

    [[nodiscard]] static const Law_Year& Law() { return Law_Of(std::get<2>(GetParam())); }

    std::int32_t Up_To(std::uint32_t most) { return static_cast<std::int32_t>(random() % (most + 1)); }

    /// Stores a generated firm without engineers of the class that came last, which no first visit posts, and
    /// its statement as what the journal left of it.
    void Make_Firm() {
        Review_Figures firm = Generated_Firm(Law(), random);
        for (Work_Line& line : firm.works) {
            line.gijutusya[5] = {};
        }
        Put_Statement(firm.statement);
        Put_Statement(firm.statement, "改善後残高");
        Store_Firm(session, Side_In_Hand(session), std::move(firm));
        current = Stored(Scenario::Genjo);
    }

    /// Another statement than the current one.
    void Move_Statement() {
        Put_Amounts({{319, Up_To(900'000) * 1000.0}, {399, Up_To(900'000) * 1000.0}}, "改善後残高");
    }

    [[nodiscard]] Review_Figures Stored(Scenario scenario) const {
        return Load_Review(session, Side_In_Hand(session, scenario));
    }

    /// What is stored of the improvement is what it scores; what was there before is as it was.
    Review_Figures Expect_Scored() const {
        Review_Figures stored = Stored(Scenario::Kaizen);
        const Asked_Side improved = {{}, Scenario::Kaizen};
        const Review_Figures scored =
            Score_Company(Cn_Open(session), session.Kind().edition, improved).figures;
        EXPECT_TRUE(stored.works == scored.works);
        EXPECT_TRUE(stored.elements == scored.elements);
        EXPECT_TRUE(Stored(Scenario::Genjo).works == current.works);
        EXPECT_TRUE(Stored(Scenario::Genjo).elements == current.elements);
        return stored;
    }

    std::mt19937 random{20260401};
    Review_Figures current;
};

} // namespace morvane::tests
