// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace morvane {

/// Lines of Kandaka_Gj by 工種CD. Three are parts of other lines and stay out of the totals; 32 combines two
/// lines for reports and holds no figures; 33 (その他) has amounts but no scores.
inline constexpr std::size_t work_line_count = 34;
inline constexpr std::size_t scored_lines = 32;
inline constexpr std::size_t combined_line = 32;
inline constexpr std::size_t other_line = 33;
constexpr bool Is_Sub_Line(std::size_t index) {
    return index == 1 || index == 6 || index == 13;
}

/// A work type (建設業許可の業種, 建設業法 別表第一, with the three lines that are parts of others).
struct Work_Type {
    std::string_view label; ///< 010 to 290; empty for the lines behind them
    std::string_view name;
};

/// The work types in the order of 工種CD.
inline constexpr std::array<Work_Type, work_line_count> work_types = {{
    {"010", "土木一式"},
    {"011", "ﾌﾟﾚｽﾄﾚｽﾄｺﾝｸﾘｰﾄ"},
    {"020", "建築一式"},
    {"030", "大工"},
    {"040", "左官"},
    {"050", "とび･土工･ｺﾝｸﾘｰﾄ"},
    {"051", "法面処理"},
    {"060", "石"},
    {"070", "屋根"},
    {"080", "電気"},
    {"090", "管"},
    {"100", "ﾀｲﾙ･れんが･ﾌﾞﾛｯｸ"},
    {"110", "鋼構造物"},
    {"111", "鋼橋上部"},
    {"120", "鉄筋"},
    {"130", "ほ装"},
    {"140", "しゅんせつ"},
    {"150", "板金"},
    {"160", "ガラス"},
    {"170", "塗装"},
    {"180", "防水"},
    {"190", "内装仕上"},
    {"200", "機械器具設置"},
    {"210", "熱絶縁"},
    {"220", "電気通信"},
    {"230", "造園"},
    {"240", "さく井"},
    {"250", "建具"},
    {"260", "水道施設"},
    {"270", "消防施設"},
    {"280", "清掃施設"},
    {"290", "解体"},
    {"", "とび･土工･ｺﾝｸﾘ･解体"},
    {"", "その他"},
}};

} // namespace morvane
