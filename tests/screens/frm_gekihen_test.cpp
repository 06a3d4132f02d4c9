// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_gekihen.h"

#include "session/kyotu_mod.h"
#include "support/generated_firm.h"
#include "support/ui_fixture.h"
#include "widgets/entry_grid.h"

namespace morvane::tests {
namespace {

class Gekihen_Window : public Ui_Installation {};

// The screen shows what is computed, marks it as computed, and leaves the stores as they are.
TEST_F(Gekihen_Window, Shows_And_Marks_What_Is_Computed) {
    constexpr const char* names[] = {"a", "b", "c", "d"};
    Make_Company(1, 1, 10);
    for (int law = 1; law <= 4; ++law) {
        std::mt19937 random(static_cast<unsigned>(law));
        Store_Firm(session, Side_In_Hand(session), Generated_Firm(Law_Of(law), random));
        SCOPED_TRACE(law);
        const Gekihen_Table table = Calc_Gekihen(session);
        const auto before = State();
        Frm_Gekihen form(shell);
        form.show();
        auto* grid = Child<Entry_Grid>(form, "grid");
        for (std::size_t i = 0; i < scored_lines; ++i) {
            for (std::size_t column = 0; column < std::size(names); ++column) {
                const int place = static_cast<int>(column);
                const std::string cell = names[column] + ("(" + std::to_string(i) + ")");
                EXPECT_EQ(grid->Cell_Text(cell).toStdString(), Comma_Str(table[i].P[column])) << cell;
                EXPECT_EQ(grid->Is_Best(static_cast<int>(i), place), table[i].best[column]) << cell;
            }
        }
        for (std::size_t column = 0; column < std::size(names); ++column) {
            EXPECT_EQ(grid->Cell_Text(names[column] + std::string("_Kei")).toStdString(),
                      Comma_Str(table.Of_All(column).P));
        }
        Click(form, "Prt");
        EXPECT_EQ(shell.calls.back(), "Open_Form Rpt_Gekihen");
        EXPECT_EQ(State(), before);
    }
}

} // namespace
} // namespace morvane::tests
