// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "company/data_set.h"
#include "data/value.h"
#include "session/session.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace morvane {

/// A registered fiscal period of the company in hand.
struct Period_Entry {
    std::int16_t number;   ///< ordinal 決算期
    Data_Form_No data_ver; ///< data form (Get_Data_Ver)
    Law_Year_No law_year;  ///< law year (Get_Simyu_Kubun)

    /// Only the statement of 2010 is reviewed under more than one law year.
    [[nodiscard]] bool Has_Law_Options() const { return Is_Present(data_ver); }
};

/// The registered periods in ascending order. Raises Store_Error.
std::vector<Period_Entry> Read_Periods(const Session& session);

/// A period as the list shows it: "  35期".
std::string Period_Line(int number);

/// The law year of a period by name, or that its data are older than the forms the program reviews.
std::string Law_Text(const Period_Entry& period);

/// The number that stands next to the registered periods on one side; none where that side has no further
/// number.
std::optional<int> Proposed_Period(const std::vector<Period_Entry>& periods, Copy_Mode mode);

/// The law year that a new period on one side is proposed to have: the present one behind the newest, that of
/// the neighbour before the oldest.
Law_Year_No Proposed_Law_Year(const std::vector<Period_Entry>& periods, Copy_Mode mode);

/// Why there is no number before the oldest period, in Japanese; empty where there is one.
std::string No_Period_Before(const std::vector<Period_Entry>& periods);

/// Why an entry cannot become the number of a new period, in Japanese; empty where it can: it is blank, below
/// 1 or beyond 16 bits, registered already, or has no registered neighbour to be copied from.
std::string New_Period_Fault(const std::vector<Period_Entry>& periods, const Value& number, Copy_Mode mode);

/// How far the creation of a period came.
enum class Creation { Made, Bad_Number, Declined };

/// Makes a new period with the law year `law_year` beside its neighbour and takes it in hand: asks,
/// refuses an oldest period older than the form of 2008, copies, says that it is done. A number with a fault
/// gives Bad_Number without a box. Where it is not made, store and session are as they were. One
/// transaction. Raises Store_Error.
Creation Create_Period(Session& session, const Value& number, Copy_Mode mode, Law_Year_No law_year);

/// Takes a registered period in hand: Jigyo_mas with its years, then the session by Company_Reload. False
/// where nothing is chosen or the data form is none of 2008 or later, each with its box. Raises Store_Error.
bool Choose_Period(Session& session, std::optional<std::int16_t> chosen);

/// Deletes the oldest or the newest period with its rows: refusals, question, finish box. False where it was
/// refused or answered with No. One transaction. Raises Store_Error.
bool Delete_Period(const Session& session, std::optional<std::int16_t> chosen);

/// The user picks a law year for a registered period, whose options show `marked`: asks and renumbers,
/// refuses 2008, changes nothing where the period lacks the items of 2015, which have a conversion of their
/// own. The law year of the session follows where the period is the one in hand. Gives the option to be
/// marked afterwards. One transaction. Raises Store_Error.
Law_Year_No Change_Law_Year(Session& session, std::int16_t period, Law_Year_No wanted, Law_Year_No marked);

/// Refuses 2008 as a law year to be simulated.
void Refuse_Law_2008(const Session& session);

} // namespace morvane
