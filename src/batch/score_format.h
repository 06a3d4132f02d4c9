// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/relief.h"
#include "review/settle.h"
#include "review/twelve.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace morvane {

enum class Score_Format { Table, Csv, Json };

/// A company whose score failed.
struct Score_Failure {
    std::int32_t number = 0;
    std::string name;
    std::string reason;
};

/// What stands before the first company, between two of them, and behind the last.
std::string Score_Head(Score_Format format);
std::string Score_Separator(Score_Format format);
std::string Score_Tail(Score_Format format, const std::vector<Score_Failure>& failures);

/// What is told of a company besides its scores; only JSON has a place for it.
struct Score_Extras {
    std::optional<Gekihen_Table> relief = {};
    std::optional<Twelve_Result> twelve = {};
};

/// One company. Single-precision figures are written in the shortest form that reads back to the same single.
std::string Score_Text(Score_Format format, const Settled_Score& score, const Score_Extras& extras = {});

} // namespace morvane
