// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/run_time_error.h"
#include "review/p_gain.h"
#include "screens/screen_sides.h"
#include "screens/syokuta_table.h"

#include <cstdint>
#include <optional>
#include <string>

namespace morvane {

/// The entry screen of X2 and W without its window. After every entry the calculation runs twice: the fields
/// show the first pass, the second one is what is stored, so that late sub-scores are in it.
class Syokuta_Entry {
  public:
    /// Reads the sides of the screen, an improvement after its first visit; the fields show what is stored,
    /// of an improvement what comes of it. Raises Store_Error, and Run_Time_Error where Y, which storing
    /// needs, cannot be computed.
    explicit Syokuta_Entry(const Session& session, const Screen_Sides& screen_sides = current_figures);

    /// Why the items as they are stored cannot be calculated; empty where they can. Then there are no scores,
    /// and the screen is there to correct the items.
    [[nodiscard]] const std::optional<Run_Time_Error>& Fault() const { return after.fault; }

    /// What a reader of the scores of a screen without entries has to know; mostly empty.
    [[nodiscard]] const std::string& Notice() const { return notice; }

    /// The figures that a check of the side explains. Raises its fault.
    [[nodiscard]] const Review_Figures& Checked_Figures(bool of_before) const;

    /// Takes the entry of an element into its item and calculates. Raises Run_Time_Error on overflow; nothing
    /// has changed then. While there is a fault it takes what it is given. A screen that is read only takes
    /// nothing (std::logic_error).
    void Take(int element, std::int32_t value);

    /// Why an entry cannot be stored, in Japanese; empty where it can.
    [[nodiscard]] static std::string Refusal(int element, std::int32_t value);

    /// What the fields show.
    [[nodiscard]] const Syokuta& Shown() const { return after.shown; }

    /// The same of the side before; null where the screen has none or its scores cannot be computed.
    [[nodiscard]] const Syokuta* Shown_Before() const {
        return before && !before->fault ? &before->shown : nullptr;
    }

    /// Why the side before cannot be shown; empty where it can, and where there is none.
    [[nodiscard]] std::optional<Run_Time_Error> Fault_Before() const {
        return before ? before->fault : std::nullopt;
    }

    /// What the items bring to P against the side before, by what Store would leave in the store; empty where
    /// there is no such side or P cannot be computed.
    [[nodiscard]] std::optional<P_Gain> Gain() const;

    [[nodiscard]] const Law_Year& Law() const { return Law_Of(after.figures.law_year); }

    /// Stores the second pass, forms P anew and settles the scores of its side (Store_And_Settle) in one
    /// transaction; nothing where the screen is read only. Raises Store_Error, and Run_Time_Error while there
    /// is a fault or where a score cannot be computed; nothing is stored then.
    void Store(const Session& session) const;

  private:
    /// What is held of a side.
    struct Held_Side {
        Review_Figures figures;
        std::int32_t kikai_ten_of_load = 0; ///< the machine score that W takes at some law years
        Syokuta screen;                     ///< what would be stored
        Syokuta shown;
        std::optional<Run_Time_Error> fault;
    };

    [[nodiscard]] static Held_Side Loaded(const Session& session, const Screen_Side& side);
    [[nodiscard]] static Held_Side Loaded_Before(const Session& session, const Screen_Side& side);
    [[nodiscard]] Held_Side Viewed(const Session& session, const Screen_Side& side);
    static void Calculate(const Held_Side& side, Syokuta& pass);

    Screen_Sides sides;
    Held_Side after;
    std::optional<Held_Side> before;
    std::string notice;
};

struct Syokuta_Screen;

/// What a screen of the family does when it opens: the first visit of the improvement, where it makes one,
/// then reads. Raises as the entry does.
[[nodiscard]] Syokuta_Entry Open_Syokuta(const Session& session, const Syokuta_Screen& screen);

} // namespace morvane
