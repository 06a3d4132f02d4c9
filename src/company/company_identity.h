// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/store_error.h"
#include "session/session.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace morvane {

/// Whose a company store is, as the store itself tells. The name of its file is no proof: files are renamed,
/// exchanged and brought from other offices.
struct Store_Identity {
    std::optional<std::int32_t> number; ///< 管理No; empty in a store that is nobody's
    std::string name;                   ///< 事業所名
    std::string kana;                   ///< 事業所カナ名
    std::optional<Edition> region;      ///< edition by 地域CD; none where it does not tell
    std::optional<Edition> chart;       ///< edition by the data form of the statements; none likewise

    /// Whether number, name and reading are these.
    [[nodiscard]] bool Is(std::int32_t a_number, const std::string& a_name, const std::string& a_kana) const;
};

/// Reads whose a store is. Raises Store_Error.
Store_Identity Identity_Of(const Connection& cn);

/// Why a store is not that of company `number` (any company where none is given) in the edition of the
/// session; empty where it is.
std::string Identity_Fault(const Session& session, const Store_Identity& identity,
                           std::optional<std::int32_t> number);

/// Raises Store_Error (bad content), naming `shown`, where the store is not that of company `number`.
void Test_Identity(const Session& session, const Connection& cn, std::optional<std::int32_t> number,
                   const std::filesystem::path& shown);

/// Whether a failure tells that a store is not there or is none that can be read, and will be so the next
/// time too; not that something stands in the way (no permission, another process, a failing disk).
bool Is_Unreadable(const Store_Error& error);

/// Opens the store of company `number` for reading; of any company where none is given. Raises Store_Error,
/// also where it is another one's or of another edition.
Connection Open_Company_Store(const Session& session, const std::filesystem::path& store,
                              std::optional<std::int32_t> number);

} // namespace morvane
