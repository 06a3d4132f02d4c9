// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace morvane {

/// The balance of a period's statement, in yen. A corporation: retained earnings brought forward (838) and
/// profit (519) against retained earnings (281) and the changes (901); an individual: 281 against 529.
/// `assets` and `capital` are 199 and 399.
struct Balance_Check {
    double left = 0.0, right = 0.0;
    double assets = 0.0, capital = 0.0;

    [[nodiscard]] bool Is_Ok() const { return left == right && assets == capital; }
};

/// The balance of a period. Raises Store_Error.
Balance_Check Check_Balance(const Connection& cn, int period, Firm_Type type);

/// What is wrong with a company store: pages, tables, columns, balances, an end date for which W cannot be
/// scored; one Japanese line each.
std::vector<std::string> Check_Company_Store(const std::filesystem::path& store, const Store_Key& key);

/// Checks every store of an installation and writes what is wrong, a line each. Gives the number of stores
/// with findings.
std::size_t Check_Run(const Session& session, std::ostream& out);

} // namespace morvane
