// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/value.h"
#include "session/session.h"

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>

namespace morvane {

/// The two screens of a company's master data.
enum class Company_Screen : std::uint8_t {
    Jg_New, ///< Frm_JgNew: multi-company mode, also registers a new company
    Jgmas   ///< Frm_Jgmas: the firm's own data, single-company mode
};

/// The groups of fields on the screens.
enum class Company_Section : std::uint8_t { Company, Address, Period, Kind };

/// One field of the master data.
struct Company_Field {
    enum class Entry : std::uint8_t { Text, Digits, Choice };

    const char* control; ///< objectName of its cell
    const char* column;  ///< of Jigyo_mas
    const char* caption;
    const char* hint;
    Company_Section section;
    Entry entry;
    bool is_number; ///< the column holds a number
    int max_length; ///< in characters
    bool only_jg_new = false;
};

/// The fields in the order of the screens.
std::span<const Company_Field> Company_Fields();

/// Whether a screen has a field.
bool Is_On(Company_Screen screen, const Company_Field& field);

/// What stands on a screen: the texts by control and the unit (1 yen, 2 thousand, 3 million, 0 none chosen).
struct Company_Entry {
    std::map<std::string, std::string> texts;
    std::int16_t tani = 0;

    [[nodiscard]] const std::string& Text(const std::string& control) const { return texts.at(control); }
    friend bool operator==(const Company_Entry&, const Company_Entry&) = default;
};

/// The stored master data of the company in hand as the screen shows them; blank for a new company
/// (Jg_New_Flg). Raises Store_Error.
Company_Entry Load_Company(const Session& session, Company_Screen screen);

/// Puts the texts of an entry into the row of Jigyo_mas, which is added where it is missing: blank is Null.
/// The caller holds the transaction. Raises Store_Error.
void Put_Company(const Connection& cn, Company_Screen screen, const Company_Entry& entry);

/// Whether year (1 to 99), month and day are a date of that year of Heisei or of Reiwa.
bool Is_Era_Date(std::string_view year, std::string_view month, std::string_view day);

/// The number a text of digits stands for; -1 for one that is blank, none, or beyond 32 bits.
std::int64_t Number_Of(std::string_view text);

/// Why a text cannot stand in a field of `most` characters; empty where it can. Control characters cannot,
/// but for line feeds and tabs in a field of several lines.
std::string Text_Refusal(std::string_view text, std::size_t most, bool has_lines);

/// Why a value that comes from a file cannot stand in a column of Jigyo_mas, by the fields of the screens;
/// empty where it can, as Null can in each. Dates are tested as a whole, by Is_Era_Date.
std::string Column_Refusal(std::string_view column, const Value& value);

/// Whether there is nothing but blanks in a text.
bool Is_Blank(std::string_view text);

/// Whether a text is a period number, from 1 to 16 bits; else it is said.
bool Test_Period(const Session& session, std::string_view text);

/// Tests an entry as far as it can be without the stores: required fields, lengths and widths, dates. The
/// first refusal is shown and its field returned; empty where the entry passes. `stored` is what a longer
/// text may have come from.
std::string Test_Entry(const Session& session, Company_Screen screen, const Company_Entry& entry,
                       const Company_Entry& stored);

} // namespace morvane
