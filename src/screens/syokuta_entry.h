// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/syokuta.h"

#include <cstdint>
#include <string>

namespace morvane {

/// The entry screen of X2 and W without its window. After every entry the calculation runs twice: the fields
/// show the first pass, the second one is what is stored, so that late sub-scores are in it.
class Syokuta_Entry {
  public:
    /// Reads the period in hand in a scenario; the fields show what is stored. Raises Store_Error, and
    /// Run_Time_Error where X2 or Y of the statements, which storing needs, leave their width.
    Syokuta_Entry(const Session& session, int scenario_number);

    /// Takes an entry into its item and calculates. Raises Run_Time_Error on overflow; nothing has changed
    /// then.
    void Take(std::int32_t& (*place)(Social_Items&), std::int32_t value);

    /// Why an entry cannot be stored, in Japanese; empty where it can.
    [[nodiscard]] static std::string Fault(const std::string& control, std::int32_t value);

    /// What the fields show.
    [[nodiscard]] const Syokuta& Shown() const { return shown; }

    [[nodiscard]] const Law_Year& Law() const { return Law_Of(figures.law_year); }

    /// Stores the second pass and forms P anew. Raises Store_Error, Run_Time_Error.
    void Store(const Session& session) const { Store_W_2012(session, scenario, screen); }

  private:
    int scenario;
    Review_Figures figures;
    WZX_Calc wzx;
    Syokuta screen;
    Syokuta shown;
};

} // namespace morvane
