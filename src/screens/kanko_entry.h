// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/run_time_error.h"
#include "review/p_gain.h"
#include "review/y_calc.h"
#include "screens/kanko_table.h"

#include <optional>
#include <span>

namespace morvane {

/// What was keyed into a cell; empty where it was emptied.
struct Kanko_Entered {
    int row = 0; ///< control index
    int column = 0;
    std::optional<std::int64_t> number;
};

/// A work-type screen without its window: what each cell shows, and what an entry changes. Rows are control
/// indexes, columns those of the screen's table.
class Kanko_Entry {
  public:
    /// Reads the sides of the screen and calculates, as it does when it opens: Y, X2, then the lines. An
    /// improvement is started by its first visit. Raises Store_Error, and Run_Time_Error where Y or X2 of
    /// what is edited cannot be computed.
    Kanko_Entry(const Session& session, const Kanko_Screen& screen_row);

    /// Why the lines as they are stored cannot be calculated; empty where they can. Then there are no
    /// results, and the screen is there to correct the figures.
    [[nodiscard]] const std::optional<Run_Time_Error>& Fault() const { return after.fault; }

    /// What a reader of the scores of a screen without entries has to know; mostly empty.
    [[nodiscard]] const std::string& Notice() const { return notice; }

    /// The figures that a check of the side explains. Raises its fault.
    [[nodiscard]] const Review_Figures& Checked_Figures(bool of_before) const;

    /// Why the side before has no results; empty where it has, and where there is none.
    [[nodiscard]] std::optional<Run_Time_Error> Fault_Before() const {
        return before ? before->fault : std::nullopt;
    }

    /// Takes entries and runs the whole calculation over all lines. Raises Run_Time_Error where a figure or a
    /// score leaves its width; nothing has changed then. While there is a fault it takes what it is given and
    /// raises nothing but for a figure itself. A screen that is read only takes nothing (std::logic_error).
    void Take(std::span<const Kanko_Entered> entered);

    /// Takes the years of the average, 2 or 3, in the same way.
    void Take_Kanko_Avg(std::int32_t years);

    /// The number that a cell shows, of the side that its column belongs to; empty where it shows nothing.
    [[nodiscard]] std::optional<std::int32_t> Shown(int row, int column) const;

    /// What the side before has become; no line of a screen with one side has a difference.
    [[nodiscard]] P_Gain Gain() const;

    /// The total of a column; empty where it has none.
    [[nodiscard]] std::optional<std::int32_t> Shown_Total(int column) const;

    /// Whether the calculation checks of a line can be opened: it shows scores.
    [[nodiscard]] bool Can_Check(int row) const;

    /// The years of the average of the side that a column belongs to.
    [[nodiscard]] std::int32_t Kanko_Avg(const Kanko_Column& column) const {
        return Side_Of(column).works.Kanko_Avg;
    }
    [[nodiscard]] std::int32_t Kanko_Avg() const { return after.works.Kanko_Avg; }
    [[nodiscard]] const Works::Scores& Scores() const { return after.works.scores; }
    [[nodiscard]] const Works::Scores* Scores_Before() const {
        return before && !before->fault ? &before->works.scores : nullptr;
    }

    /// Stores what the screen holds and settles the scores of its side (Store_And_Settle) in one transaction;
    /// nothing where it is read only. Raises Store_Error, and Run_Time_Error while there is a fault or where
    /// a score cannot be computed; nothing is stored then.
    void Save(const Session& session) const;

    /// Calculates anew from what is stored, so that a screen that stays open after Save has the settled
    /// scores. What was keyed stays as it was keyed, an emptied cell empty. Raises as the constructor does;
    /// nothing has changed then. Where nothing is keyed nothing was stored.
    void Reload(const Session& session);

    const Kanko_Screen& screen;

  private:
    /// What is held of a side.
    struct Held_Side {
        Review_Figures figures;
        Works works;
        Scenario scenario = Scenario::Genjo;
        std::optional<Run_Time_Error> fault;
    };

    void View(const Session& session);
    void View_Improvement(const Session& session, const Kanko_Column& column);
    [[nodiscard]] Held_Side Viewed(const Session& session, const Screen_Side& side);
    [[nodiscard]] static Held_Side Loaded(const Session& session, const Screen_Side& side);
    [[nodiscard]] Held_Side Loaded_Before(const Session& session, const Screen_Side& side) const;
    void Calculate(Held_Side& side) const;
    void Calculate_Or_Tell(Held_Side& side) const;
    [[nodiscard]] const Held_Side& Side_Of(const Kanko_Column& column) const {
        return column.before && before ? *before : after;
    }
    [[nodiscard]] P_Change Change_Of(std::size_t line) const;
    template <class Held>
    void Change(Held& held, const Held& next);

    Held_Side after;
    std::optional<Held_Side> before;
    std::array<Work_Line, work_line_count> improved{}; ///< where a column shows them
    std::string notice;
};

} // namespace morvane
