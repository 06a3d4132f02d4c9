// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/elements.h"
#include "review/review_figures.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace morvane {

/// What a figure of a work type is, by which it is bounded.
enum class Work_Figure : std::uint8_t {
    Amount,  ///< thousand yen, keyed
    Average, ///< thousand yen, formed of amounts
    Persons, ///< engineers, keyed
    Score
};

/// A column of Kandaka_Gj, without the prefix of its scenario, and its place in a line.
struct Work_Column {
    std::string_view name;
    Figure& (*place)(Work_Line&);
    Work_Figure figure;
};

/// The columns of a scenario. The sixth engineer class, which came last, stands behind the others.
[[nodiscard]] std::span<const Work_Column> Work_Columns();

/// Those that go with a scenario when it is copied: all but the sixth engineer class, which stays where it
/// is.
[[nodiscard]] std::span<const Work_Column> Copied_Work_Columns();

/// What a figure of a work type takes: persons and amounts are not negative, results have the width of their
/// column.
[[nodiscard]] Entry_Limit Limit_Of(Work_Figure figure);

/// The limit of a column of Kandaka_Gj by its name, with or without the prefix of a scenario.
[[nodiscard]] Entry_Limit Limit_Of_Work_Column(std::string_view column);

} // namespace morvane
