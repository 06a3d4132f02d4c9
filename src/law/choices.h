// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace morvane {

/// One answer of a choice and its words, which differ by the room there is for them.
struct Answer_Word {
    std::int32_t number;
    const char* entry;               ///< on the entry screen
    const char* in_check = nullptr;  ///< in a calculation check, where it differs
    const char* in_report = nullptr; ///< in the result report, where it differs

    [[nodiscard]] const char* Check_Word() const { return in_check != nullptr ? in_check : entry; }
    [[nodiscard]] const char* Report_Word() const { return in_report != nullptr ? in_report : entry; }
};

/// An item that is answered by a single key.
struct Choice {
    std::string_view keys;                ///< that are taken
    std::span<const Answer_Word> answers; ///< in the order in which the entry screen tells them
    const char* told = nullptr;           ///< how it tells them, where that is no list of them all

    /// The answers as the entry screen tells them: "0：無　1：有"; where further keys are taken, that those
    /// give no points.
    [[nodiscard]] std::string Hint() const;

    /// The answer of that number; null where there is none.
    [[nodiscard]] const Answer_Word* Find(std::int32_t number) const;
};

namespace choice {

extern const Choice equity_basis;
extern const Choice yes_no;
extern const Choice yes_no_exempt;    ///< public insurances
extern const Choice compliance;       ///< 法令遵守
extern const Choice audit;            ///< 監査の受審
extern const Choice women;            ///< 女性活躍推進法に基づく認定
extern const Choice next_generation;  ///< 次世代法に基づく認定
extern const Choice youth;            ///< 若者雇用促進法に基づく認定
extern const Choice work_history;     ///< 就業履歴の蓄積
extern const Choice years_of_average; ///< of completed work

/// The audit with its answers, as a caption.
inline constexpr const char* audit_caption =
    " 監査の受審( 0無  1経理処理の適正を確認した旨の書類の提出  2会計参与の設置  3会計監査人の設置)";

} // namespace choice

} // namespace morvane
