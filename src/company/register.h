// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
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
    const char* kana;    ///< the half-width kana
    int forms;           ///< 1 plain, 2 with the voiced mark, 3 with the half-voiced mark too
    int row, column;     ///< its place in the kana table
};

/// The 44 initials in the order of the syllabary.
std::span<const Kana_Filter> Kana_Filters();

/// The condition on the register that a button stands for.
std::string Filter_Text(const Kana_Filter& filter);

/// The register in the order of the numbers, narrowed by a condition (empty: all of it). Raises Store_Error.
std::vector<Register_Row> Read_Register(const Session& session, const std::string& filter = {});

/// The company of that number. Raises Store_Error.
std::optional<Register_Row> Find_Register_Row(const Session& session, std::int32_t number);

/// Adds a company to the register or changes its names; it takes the place of the row `former` where another
/// number is given. Raises Store_Error.
void Put_Register_Row(const Session& session, const Register_Row& row);
void Put_Register_Row(const Session& session, const Register_Row& row, std::int32_t former);

/// Takes a company off the register. Raises Store_Error.
void Remove_Register_Row(const Session& session, std::int32_t number);

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
