// SPDX-FileCopyrightText: The Morvane developers
#include "review/twelve.h"

#include "support/installation_fixture.h"

namespace morvane::tests {
namespace {

class Twelve : public Installation {
  protected:
    [[nodiscard]] std::string Stored() const {
        return List(
            "SELECT 要素CD, 現状, 改善後 FROM XW_Yoso WHERE 決算期=10 AND 要素CD<=32 ORDER BY 要素CD");
    }
};

// Elements 21 to 32 follow the statement, whatever the period has of them; what else they hold stays.
TEST_F(Twelve, Stored_As_Computed_Whatever_Stood_There) {
    Make_Company(1, 1, 10);
    Put_Amounts({{101, 2e6}, {103, 4e6}, {400, 36e6}, {402, 36e6}, {179, 7e6}, {319, 2e6}});
    Put_Amounts({{469, -1'234'567}, {480, 50'500}});
    Run({"INSERT OR REPLACE INTO XW_Yoso (決算期, 要素CD, 現状, 改善後) VALUES (10, 21, 9, 5)",
         "DELETE FROM XW_Yoso WHERE 要素CD=26",
         "INSERT OR REPLACE INTO XW_Yoso (決算期, 要素CD) VALUES (10, 29)",
         "INSERT INTO XW_Yoso (決算期, 要素CD, 現状) VALUES (9, 21, 7)"});
    const std::string others = List("SELECT 決算期, 要素CD, 現状 FROM XW_Yoso WHERE 決算期<>10 OR 要素CD>32");
    Store_Twelve(session);
    const auto values = Read_Twelve(session);
    EXPECT_EQ(values[0], -3.428); // −1,234 ／ 36,000: half up is towards the greater one
    EXPECT_EQ(values[5], 2.0);
    EXPECT_EQ(values[8], 0.139);
    EXPECT_EQ(values[9], 28.571);
    EXPECT_EQ(values[6], 0.0) << "without capital";
    EXPECT_EQ(Field("XW_Yoso", "改善後", "決算期=10 AND 要素CD=21").As_Double(), 5.0);
    EXPECT_EQ(Field("XW_Yoso", "要素名", "決算期=10 AND 要素CD=26").As_Text(), "受取勘定月商倍率");
    EXPECT_EQ(List("SELECT 決算期, 要素CD, 現状 FROM XW_Yoso WHERE 決算期<>10 OR 要素CD>32"), others);
    const std::string once = Stored();
    Store_Twelve(session);
    EXPECT_EQ(Stored(), once);
    Put_Amounts({{103, 1'000'000'000'000'000.0}});
    EXPECT_THROW(Store_Twelve(session), Run_Time_Error) << "an amount beyond the width";
    EXPECT_EQ(Stored(), once);
}

} // namespace
} // namespace morvane::tests
