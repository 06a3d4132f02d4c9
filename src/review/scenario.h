// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace morvane {

/// A scenario is a family of columns on the rows of a period: the current figures, the working scenario after
/// improvement, three saved ones.
enum class Scenario : std::uint8_t { Genjo = 1, Kaizen, Slot_1, Slot_2, Slot_3 };

inline constexpr std::array every_scenario = {Scenario::Genjo, Scenario::Kaizen, Scenario::Slot_1,
                                              Scenario::Slot_2, Scenario::Slot_3};

/// Where a scenario stands in the stores.
struct Side_Columns {
    std::string_view name;   ///< as the batch tool names it
    std::string_view yoso;   ///< its column of W_Yoso
    std::string_view zaihyo; ///< its balance in Ks_Zaihyo
    std::string_view debit;  ///< the journal that led there; the current amounts have none
    std::string_view credit;
    std::string_view prefix; ///< before its columns of Kandaka_Gj
};

inline constexpr std::array<Side_Columns, every_scenario.size()> side_columns = {{
    {"genjo", "現状", "金額", "", "", ""},
    {"kaizen", "改善後0", "改善後残高", "借方", "貸方", "改0"},
    {"1", "改善後1", "改善後残高1", "借方1", "貸方1", "改1"},
    {"2", "改善後2", "改善後残高2", "借方2", "貸方2", "改2"},
    {"3", "改善後3", "改善後残高3", "借方3", "貸方3", "改3"},
}};

constexpr const Side_Columns& Columns_Of(Scenario scenario) {
    return side_columns[static_cast<std::size_t>(scenario) - 1];
}

/// The scenario that the batch tool names so; empty for another name.
constexpr std::optional<Scenario> Scenario_Named(std::string_view name) {
    const auto found = std::find_if(every_scenario.begin(), every_scenario.end(),
                                    [name](Scenario scenario) { return Columns_Of(scenario).name == name; });
    return found == every_scenario.end() ? std::nullopt : std::optional(*found);
}

} // namespace morvane
