// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/kanko_table.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane {

/// What an entry of the review takes, on its screen as from a file.
struct Entry_Limit {
    std::string_view choices = {}; ///< the single keys of a choice; empty: a number
    std::int64_t lowest = 0;
    std::int64_t highest = 0;

    [[nodiscard]] bool Takes(std::int64_t number) const;

    /// What is taken, in Japanese: "0、1、2 のどれか", "0 から 200 まで".
    [[nodiscard]] std::string In_Words() const;
};

/// The limit of an element of W_Yoso at a law year, by the fields of the entry screens; an element that no
/// screen of that law year has keeps the limit of the others, a computed one the width of its figure. A
/// choice may always be 0, which stands for one that was never made.
Entry_Limit Limit_Of_Element(int element, int law_year);

/// The limit of a column of the work types by its use: persons and amounts are not negative, results have the
/// width of their column.
Entry_Limit Limit_Of_Work(Kanko_Use use);

/// The limit of a column of Kandaka_Gj by its name, with or without the prefix of its scenario.
Entry_Limit Limit_Of_Work_Column(std::string_view column);

} // namespace morvane
