// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/side.h"
#include "screens/syokuta_table.h"
#include "session/run_time_error.h"

#include <cstdint>
#include <optional>
#include <string>

namespace morvane {

/// The entry screen of X2 and W without its window. After every entry the calculation runs twice: the fields
/// show the first pass, the second one is what is stored, so that late sub-scores are in it.
class Syokuta_Entry {
  public:
    /// Reads the period in hand in a scenario; the fields show what is stored. Raises Store_Error, and
    /// Run_Time_Error where Y, which storing needs, cannot be computed.
    Syokuta_Entry(const Session& session, int scenario_number);

    /// Why the items as they are stored cannot be calculated; empty where they can. Then there are no scores,
    /// and the screen is there to correct the items.
    [[nodiscard]] const std::optional<Run_Time_Error>& Fault() const { return fault; }

    /// Takes the entry of an element into its item and calculates. Raises Run_Time_Error on overflow; nothing
    /// has changed then. While there is a fault it takes what it is given.
    void Take(int element, std::int32_t value);

    /// Why an entry cannot be stored, in Japanese; empty where it can.
    [[nodiscard]] static std::string Refusal(int element, std::int32_t value);

    /// What the fields show.
    [[nodiscard]] const Syokuta& Shown() const { return shown; }

    [[nodiscard]] const Law_Year& Law() const { return Law_Of(figures.law_year); }

    /// Stores the second pass, forms P anew and settles the scores of its scenario (Store_And_Settle) in one
    /// transaction. Raises Store_Error, and Run_Time_Error while there is a fault or where a score cannot be
    /// computed; nothing is stored then.
    void Store(const Session& session) const;

  private:
    void Store(const Connection& cn, const Session& session) const;

    void Calculate(Syokuta& pass) const;

    int scenario;
    Review_Figures figures;
    std::int32_t kikai_ten_of_load = 0; ///< the machine score that W takes at some law years
    Syokuta screen;
    Syokuta shown;
    std::optional<Run_Time_Error> fault;
};

} // namespace morvane
