// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"
#include "law/accounts.h"
#include "law/era_date.h"
#include "law/firm_kind.h"
#include "law/law_year.h"
#include "law/quantity.h"
#include "law/work_types.h"
#include "review/side.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>

namespace morvane {

/// A stored figure of a work type as stores, tables and texts handle it, whatever it counts. `up` tells that
/// it was entered or computed (a Null in the store reads as 0 with the flag down); `dirty` that it was
/// assigned since it was read.
struct Figure {
    std::int32_t value = 0;
    bool up = false;
    bool dirty = false;

    void Set(std::int32_t number) { *this = {number, true, true}; }
    void Set_Null() { *this = {0, false, true}; }

    friend bool operator==(const Figure& a, const Figure& b) { return a.value == b.value && a.up == b.up; }
};

/// A figure of one unit, as the arithmetic handles it.
template <class Unit>
struct Figure_Of : Figure {
    Figure_Of() = default;
    Figure_Of(std::int32_t number, bool is_up, bool is_dirty) : Figure{number, is_up, is_dirty} {}

    /// Raises Run_Time_Error (overflow, without a name) for what is stored beyond the unit's width.
    [[nodiscard]] Unit Number() const { return Unit::Of(value); }

    void Set(Unit number) { Figure::Set(number.Count()); }

    /// Takes a number and keeps the flags: what a calculation forms is stored by other figures' flags.
    void Put(Unit number) { value = number.Count(); }

    /// Takes another figure's number where the condition holds, else becomes Null.
    void Set_If(bool condition, const Figure_Of& from) {
        *this = {condition ? from.value : 0, condition, true};
    }
};
using Amount_Figure = Figure_Of<Thousand_Yen>;
using Count_Figure = Figure_Of<Head_Count>;
using Score_Figure = Figure_Of<Points>;

/// One line of Kandaka_Gj in one scenario.
struct Work_Line {
    Amount_Figure Zzki, Zki, Kijun;        ///< completed work: period before last, last, base
    Amount_Figure Zheikin, Nheikin;        ///< adopted previous figure and adopted average
    Score_Figure X1;                       ///< 評点X1
    std::array<Count_Figure, 6> gijutusya; ///< 技術者1 to 技術者6
    Score_Figure Zi;                       ///< 評点Z1
    Amount_Figure Mzzki, Mzki, Mkijun;     ///< the same of prime-contract work
    Amount_Figure Mzheikin, Mnheikin;
    Score_Figure Zro; ///< 評点Z2
    Score_Figure Z;   ///< 評点Z
    Score_Figure P;   ///< 総合評点P
    bool row = false; ///< the store has the line

    [[nodiscard]] bool Has_Kanko() const { return Zzki.up || Zki.up || Kijun.up; }
    [[nodiscard]] bool Has_Motouke() const { return Mzzki.up || Mzki.up || Mkijun.up; }
    [[nodiscard]] bool Has_Engineer() const;

    friend bool operator==(const Work_Line&, const Work_Line&) = default;
};

/// One row of W_Yoso in one scenario.
struct Element {
    double value = 0.0;
    bool up = false;
    bool row = false;
    bool dirty = false;

    friend bool operator==(const Element& a, const Element& b) { return a.value == b.value && a.up == b.up; }
};

/// The amounts of a statement in one column by account code. Null and missing rows are 0.
struct Statement_Figures {
    static constexpr std::size_t code_end = 1000;
    std::array<Yen, code_end> amount{};
    int form = 0;                              ///< data form of the marker row 99, 0 without one
    bool has_rows = false;                     ///< the period has rows
    std::map<int, std::string> beyond_32_bits; ///< the names of accounts that have no place in 32 bits

    /// The amount of an account, cut. Raises Run_Time_Error (overflow) that names it.
    [[nodiscard]] Thousand_Yen Get_Y_Kamoku(Account account) const;

    /// The sum of such amounts. An overflow of the sum bears no name.
    [[nodiscard]] Thousand_Yen Get_Y_Sum(std::span<const Account> accounts) const;
};

/// What the store holds of a side, as far as the review needs it.
struct Review_Figures {
    Statement_Figures statement;
    std::array<Element, 256> elements{}; ///< by 要素CD
    std::array<Work_Line, work_line_count> works{};
    Law_Year_No law_year{};                 ///< element 210 of the current figures; without one the oldest
    std::optional<Review_Date> review_date; ///< last day of the period; empty where Jigyo_mas has no row
    std::string date_error;                 ///< why Jigyo_mas has no such day; empty where it has
    Firm_Kind firm;

    /// Reads what the figures hold by a law year, with the rows of its items counted as present.
    void Take_Law_Year(Law_Year_No code);

    /// Element `code`; Null, a missing row and a value above `limit` read as 0. Rounded half to even into 32
    /// bits.
    [[nodiscard]] std::int32_t Yoso(int code, std::int32_t limit = INT32_MAX) const;

    /// Assigns element `code` where the period has its row.
    void Put_Yoso(int code, double value);

    /// Whether these figures of a scenario are its own. The working scenario is started by the first figure
    /// in one of the columns that its first visit posts, on any line; a saved one by the first 総合評点P. The
    /// current figures always are.
    [[nodiscard]] bool Is_Started(Scenario scenario) const;

    /// The last day of the period, for W. Raises Run_Time_Error (type mismatch) where what is stored is none.
    [[nodiscard]] const std::optional<Review_Date>& Date_For_W() const;
};

/// Reads the statement of a side. Raises Store_Error.
Statement_Figures Read_Statement(const Connection& cn, Side side);

/// Reads elements and works of a side, with the rows that a store gets when it is next taken in hand counted
/// as present. Raises Store_Error, and Run_Time_Error for a figure beyond its width.
void Read_Elements(const Connection& cn, Side side, Review_Figures& figures);
void Read_Works(const Connection& cn, Side side, Review_Figures& figures);

/// Reads the last day of a period, without one of that in hand, into the figures: nothing where Jigyo_mas has
/// no row, and why there is none where what it holds is no date. Jigyo_mas has that of the period in hand; a
/// fiscal period is one year. Raises Store_Error.
void Read_Review_Date(const Connection& cn, Review_Figures& figures, std::optional<int> period = {});

/// Reads statement, elements, works and the last day of a side. Raises Store_Error, Run_Time_Error.
Review_Figures Load_Review(const Connection& cn, Side side, Firm_Kind firm);

/// The side of a firm that is asked for, by the period in hand of its store. Raises Store_Error.
Side Side_Of(const Connection& cn, const Asked_Side& asked);

/// The same from the working store.
Review_Figures Load_Review(const Session& session, Side side);

/// Writes the dirty elements and the dirty columns of works into a side. The caller holds the transaction.
void Write_Elements(const Connection& cn, Side side, Review_Figures& figures);
void Write_Works(const Connection& cn, Side side, Review_Figures& figures);

/// Adds the rows of the elements `first` to `last` that a period lacks. The caller holds the transaction.
/// Raises Store_Error.
void Add_Missing_Elements(const Connection& cn, int period, int first, int last);

/// Takes the mark of an assignment from every figure that is what `stored` has, so that it is not written.
void Forget_Unchanged(const Review_Figures& stored, Review_Figures& figures);

/// What the first visit of a working scenario puts into it, of which `improved` has elements and works as
/// they are stored: the works (32 lines, without the sixth engineer class) of the current figures and the
/// elements that it has none of its own for. Nothing where it was started before; whether it was not. Raises
/// Store_Error, and Run_Time_Error where the period lacks lines of work.
bool Post_Current(const Connection& cn, int period, Review_Figures& improved);

} // namespace morvane
