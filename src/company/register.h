// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// A row of the company register.
struct Register_Row {
    std::int32_t number = 0;
    std::string name;
    std::string kana; ///< half-width kana

    friend bool operator==(const Register_Row&, const Register_Row&) = default;
};

/// A button that narrows the list to names of one kana initial.
struct Kana_Filter {
    const char* button;  ///< its objectName
    const char* caption; ///< its full-width kana
    const char* kana;    ///< the half-width kana; a voiced mark follows it as a letter of its own
    int row, column;     ///< its place in the kana table
};

/// The 44 initials in the order of the syllabary.
std::span<const Kana_Filter> Kana_Filters();

/// The register in the order of the numbers, all of it or the names of one kana initial. Raises Store_Error.
std::vector<Register_Row> Read_Register(const Session& session, std::string_view initial = {});

/// The company of that number. Raises Store_Error.
std::optional<Register_Row> Find_Register_Row(const Session& session, std::int32_t number);

/// The rows that the register has under the numbers of `rows`, in their order. Raises Store_Error.
std::vector<Register_Row> Standing_Rows(const Session& session, std::span<const Register_Row> rows);

/// Takes the companies `gone` off the register and adds `rows` or changes their names, in one transaction.
/// Raises Store_Error.
void Change_Register(const Session& session, std::span<const Register_Row> rows,
                     std::span<const std::int32_t> gone = {});

/// Adds a company to the register or changes its names; it takes the place of the row `former` where another
/// number is given. Raises Store_Error.
void Put_Register_Row(const Session& session, const Register_Row& row);
void Put_Register_Row(const Session& session, const Register_Row& row, std::int32_t former);

/// Takes a company off the register. Raises Store_Error.
void Remove_Register_Row(const Session& session, std::int32_t number);

/// Whether another company of the register keeps its data under the file of company `number` (numbers of
/// seven digits and more keep only their last six). Raises Store_Error.
bool Is_Store_Shared(const Session& session, std::int32_t number);

/// Whether a new company, or the company `own`, cannot have that number: another company has it or keeps its
/// data under the same six digits, or a data file of that name stands there. Raises Store_Error.
bool Is_Number_Taken(const Session& session, std::int32_t number, std::int32_t own = 0);

/// How taking a company in hand went.
enum class Taken {
    Refused, ///< none was chosen; nothing changed
    Too_Old, ///< it is in hand, but its data are older than the revision of 2008
    In_Hand
};

/// Takes the chosen company in hand (Check_Out), with the refusals. Raises Store_Error.
Taken Take_Company(Session& session, const std::optional<Register_Row>& chosen);

/// Prepares the registration of a new company: says that the one in hand is saved, saves and releases it.
/// Raises Store_Error.
void Start_New_Company(Session& session);

/// Deletes the chosen company after the question: its data file, then its row. A file that cannot be deleted
/// is reported and nothing is deleted. False where nothing was. `on_deleted` runs before the finish is told.
/// Raises Store_Error where the register fails behind the deleted file (the next start then finishes).
bool Delete_Company(const Session& session, const std::optional<Register_Row>& chosen,
                    const std::function<void()>& on_deleted = {});

} // namespace morvane
