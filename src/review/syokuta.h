// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/social_items.h"
#include "review/x2_calc.h"
#include "session/session.h"

#include <cstdint>

namespace morvane {

/// The figures behind the entry screens of X2 and W (Frm_Syokuta, Frm_Syokuta_2011, Frm_Syokuta_2012) and
/// their improved counterparts: the items, the calculation after every field, the store. The law year decides
/// what is read, counted and stored.
class Syokuta {
  public:
    Social_Items items;
    X2_Calc x2;

    /// Reads the items of a scenario's figures, as the screen does when it opens.
    void Load_W_2012(const Review_Figures& figures);

    /// The whole calculation in the order of the screen. The scores of young engineers
    /// and of knowledge enter W1 as the pass before left them, and W takes the machine score of the opening.
    /// Raises Run_Time_Error on overflow; the items are then as before the call.
    void Calc_W_2012(const Review_Figures& figures, WZX_Calc& wzx);

    /// Puts the items into the figures, as closing the screen does.
    void Store_W_2012(Review_Figures& figures) const { items.Store(figures); }

  private:
    std::int32_t kikai_ten_of_load = 0;
};

/// Forms P of the work types that have one from their stored X1 and Z with the stored W (32 lines). Raises
/// Run_Time_Error on overflow.
void Recalc_P_All(Review_Figures& figures, std::int16_t x2, std::int16_t y);

/// Stores the items of a scenario of the period in hand and forms P anew, as closing the screen does; where
/// the law year has the rows of knowledge and skill, they are added where they are missing. The caller holds
/// the transaction. Raises Store_Error, Run_Time_Error.
void Store_W_2012(const Connection& cn, const Session& session, int scenario, const Syokuta& screen);

/// Adds the rows of knowledge and skill to a period that lacks them. The caller holds the transaction. Raises
/// Store_Error.
void Add_Knowledge_Rows(const Connection& cn, int period);

/// Adds the rows of the elements `first` to `last` that a period lacks. The caller holds the transaction.
/// Raises Store_Error.
void Add_Missing_Elements(const Connection& cn, int period, int first, int last);

} // namespace morvane
