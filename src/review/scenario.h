// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace morvane {

/// A scenario is a family of columns on the rows of a period: the current figures, the working scenario after
/// improvement, three saved ones.
struct Scenario {
    std::uint8_t number;            ///< 1 to 5
    std::string_view name;          ///< as the batch tool names it
    std::string_view yoso_column;   ///< its column of W_Yoso
    std::string_view zaihyo_column; ///< its balance in Ks_Zaihyo
    std::string_view prefix;        ///< before its columns of Kandaka_Gj
};

inline constexpr std::array<Scenario, 5> scenarios = {{
    {1, "genjo", "現状", "金額", ""},
    {2, "kaizen", "改善後0", "改善後残高", "改0"},
    {3, "1", "改善後1", "改善後残高1", "改1"},
    {4, "2", "改善後2", "改善後残高2", "改2"},
    {5, "3", "改善後3", "改善後残高3", "改3"},
}};

/// The scenario with number 1 to 5; std::out_of_range otherwise.
constexpr const Scenario& Scenario_Of(int number) {
    return scenarios.at(static_cast<std::size_t>(number - 1));
}

inline constexpr const Scenario& scenario_genjo = scenarios[0];
inline constexpr const Scenario& scenario_kaizen = scenarios[1];

} // namespace morvane
