// SPDX-FileCopyrightText: The Morvane developers
#include "company/period_shift.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

namespace morvane {

namespace {

constexpr const char* period_tables[] = {"Ks_Zaihyo", "Kandaka_Gj", "W_Yoso", "QandA", "Ks_ki"};

std::vector<int> Periods(const Connection& cn, bool ascending) {
    std::vector<int> periods;
    Statement rows =
        cn.Prepare(std::string("SELECT 決算期 FROM Ks_Ki ORDER BY 決算期 ") + (ascending ? "ASC" : "DESC"));
    while (rows.Step()) {
        periods.push_back(static_cast<int>(rows.Integer_At(0)));
    }
    return periods;
}

} // namespace

Shift_Test Test_Shift(const Connection& cn, int difference) {
    const std::vector<int> periods = Periods(cn, true);
    if (!periods.empty() && periods.front() + difference < 0) {
        return Shift_Test::Below_Zero;
    }
    if (!periods.empty() && periods.front() + difference == 0) {
        return Shift_Test::To_Zero;
    }
    if (!periods.empty() && periods.back() + difference > std::numeric_limits<std::int16_t>::max()) {
        return Shift_Test::Too_Large;
    }
    return Shift_Test::Possible;
}

void Period_Shift(const Connection& cn, int difference) {
    // In this order a renumbered period never meets one that has not moved yet.
    const std::vector<int> periods = Periods(cn, difference < 0);
    for (const int period : periods) {
        const int target = period + difference;
        const bool registered = std::find(periods.begin(), periods.end(), target) != periods.end();
        for (const std::string table : period_tables) {
            // Rows of a period that is registered no more (a change of firm type leaves elements) stand in
            // the way; nothing reads them.
            if (!registered) {
                cn.Execute("DELETE FROM " + table + " WHERE 決算期=?", target);
            }
            cn.Execute("UPDATE " + table + " SET 決算期 = ? WHERE 決算期=?", target, period);
        }
    }
}

} // namespace morvane
