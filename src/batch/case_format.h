// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"
#include "data/json_text.h"
#include "law/firm_kind.h"
#include "law/law_year.h"
#include "review/scenario.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace morvane {

/// The tables of a period in a case file.
enum class Case_Table { Ks_Zaihyo, Kandaka_Gj, W_Yoso, QandA };

struct Case_Period {
    std::int16_t number = 0;                       ///< 決算期
    Law_Year_No law_year = Newest_Law_Year().code; ///< Simyu_Kubun
    std::size_t index = 0;                         ///< place in the file
    Json tables;
};

/// A case file that has been read and tested as far as it can be without a store.
struct Case_Record {
    std::filesystem::path file;
    Edition edition = Edition::National;
    std::map<std::string, Value> firm; ///< columns of Jigyo_mas
    std::vector<Case_Period> periods;  ///< in ascending order without a gap

    /// Puts a table of a period into its rows, of the store or in memory. Raises Case_Error for an unknown
    /// code or column, an amount on a computed line and a wrong type.
    void Put_Table(Recordset& rows, const Case_Period& period, Case_Table table) const;
    void Put_Table(const Connection& cn, const Case_Period& period, Case_Table table) const;

    /// Puts the prior-period figures (800 to 838) that the case gives over those filled from earlier periods;
    /// a null stands for a line left blank.
    void Put_Prior_Figures(Recordset& rows, const Case_Period& period) const;

    /// Whether the case gives amounts of the statement in a column itself.
    [[nodiscard]] bool Gives_Amounts(const Case_Period& period, std::string_view column) const;

    /// Puts the balances after improvement that the case gives.
    void Put_Balances(Recordset& rows, const Case_Period& period) const;

    /// Whether the case gives an item of the review or a figure of a work type in a scenario.
    [[nodiscard]] bool Gives_Figures(const Case_Period& period, Scenario scenario) const;
};

/// Reads a case file. Raises Case_Error with the path inside the file, Store_Error where it cannot be read.
Case_Record Read_Case(const std::filesystem::path& file);

} // namespace morvane
