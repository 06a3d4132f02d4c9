// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/store_key.h"
#include "law/firm_kind.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace morvane {

/// The stores delivered with the program, by file name.
std::span<const char* const> Template_Names();

/// The delivered store that a blank working store of an edition is a copy of.
std::string Blank_Work_Store(std::optional<Edition> edition);

/// Makes the delivered stores from the text tables in `source` into `target`: the empty company store, the
/// charts of accounts of both editions, the working stores of the editions, the auxiliary store, an empty
/// register. Files that stand there are replaced. Raises Store_Error.
void Make_Templates(const std::filesystem::path& source, const std::filesystem::path& target,
                    const Store_Key& key);

} // namespace morvane
