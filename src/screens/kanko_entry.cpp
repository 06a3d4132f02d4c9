// SPDX-FileCopyrightText: The Morvane developers
#include "screens/kanko_entry.h"

#include "law/checked.h"
#include "review/settle.h"
#include "session/kyotu_mod.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace morvane {

namespace {

const Kanko_Column& Column(const Kanko_Screen& screen, int column) {
    return screen.columns[static_cast<std::size_t>(column)];
}

// Amounts have 32 bits, the columns of the engineers 16.
std::int32_t Within_Column(Kanko_Use use, std::int64_t number) {
    return use == Kanko_Use::Count ? Narrow<std::int16_t>(number, "技術職員数")
                                   : Narrow<std::int32_t>(number, "完成工事高");
}

// The lines of a side with the scores that P takes besides.
Works Loaded_Works(const Review_Figures& figures) {
    const Statement_Scores scores = Calc_Statement(figures);
    return Load_Kanko(figures, scores.x2.score, scores.y.score);
}

} // namespace

Kanko_Entry::Kanko_Entry(const Session& session, const Kanko_Screen& screen_row) : screen(screen_row) {
    Start_Sides(session, screen.sides);
    if (screen.sides.read_only) {
        View(session);
        return;
    }
    try {
        after = Loaded(session, screen.sides.after);
    } catch (const Run_Time_Error& error) {
        throw Fault_Of_Statement(screen.sides, error);
    }
    Calculate_Or_Tell(after);
    if (screen.sides.before) {
        before = Loaded_Before(session, *screen.sides.before);
    }
}

void Kanko_Entry::View(const Session& session) {
    before = Viewed(session, *screen.sides.before);
    after = Viewed(session, screen.sides.after);
    improved = after.works.lines;
    const auto of_improvement = std::find_if(screen.columns.begin(), screen.columns.end(),
                                             [](const Kanko_Column& column) { return column.improved; });
    if (of_improvement != screen.columns.end()) {
        View_Improvement(session, *of_improvement);
    }
}

// Until the improvement has figures of that class those of the period stand there.
void Kanko_Entry::View_Improvement(const Session& session, const Kanko_Column& column) {
    Review_Figures figures;
    Read_Works(Cn_Open(session), {screen.sides.after.Of(session).period, Scenario::Kaizen}, figures);
    const auto figure = [&column](Work_Line& line) { return column.figure(line); };
    if (std::none_of(figures.works.begin(), figures.works.end(),
                     [&](Work_Line& line) { return figure(line).up; })) {
        return;
    }
    improved = figures.works;
    if (!std::equal(improved.begin(), improved.begin() + scored_lines, after.works.lines.begin(),
                    [&](Work_Line& a, Work_Line& b) { return figure(a) == figure(b); })) {
        notice +=
            screen.sides.after.name +
            std::string("の管理補佐の欄は改善シミュレーションの人数です。評点は現状の人数で計算しています。");
    }
}

Kanko_Entry::Held_Side Kanko_Entry::Viewed(const Session& session, const Screen_Side& side) {
    const Viewed_Side view = View_Side(session, side);
    notice += view.notice;
    Held_Side viewed = {view.figures, {}, side.scenario, view.fault};
    viewed.works.lines = view.figures.works;
    if (!view.fault) {
        viewed.works = Load_Kanko(view.figures, view.scores.x2.score, view.scores.y.score);
        Calculate_Or_Tell(viewed);
    }
    return viewed;
}

Kanko_Entry::Held_Side Kanko_Entry::Loaded(const Session& session, const Screen_Side& side) {
    Held_Side loaded = {Load_Review(session, side.Of(session)), {}, side.scenario, {}};
    loaded.works = Loaded_Works(loaded.figures);
    return loaded;
}

// What is only shown keeps no screen from opening.
Kanko_Entry::Held_Side Kanko_Entry::Loaded_Before(const Session& session, const Screen_Side& side) const {
    Held_Side loaded = {Load_Review(session, side.Of(session)), {}, side.scenario, {}};
    loaded.works.lines = loaded.figures.works;
    try {
        loaded.works = Loaded_Works(loaded.figures);
        Calculate(loaded);
    } catch (const Run_Time_Error& error) {
        loaded.fault = error;
    }
    return loaded;
}

const Review_Figures& Kanko_Entry::Checked_Figures(bool of_before) const {
    const Held_Side& side = of_before && before ? *before : after;
    if (side.fault) {
        throw Run_Time_Error(*side.fault);
    }
    return side.figures;
}

void Kanko_Entry::Reload(const Session& session) {
    if (screen.sides.read_only) {
        return;
    }
    auto keyed = after.works.lines;
    after = Loaded(session, screen.sides.after);
    for (const Kanko_Column& column : screen.columns) {
        if (!Is_Keyed(column.use)) {
            continue;
        }
        for (std::size_t i = 0; i < keyed.size(); ++i) {
            column.figure(after.works.lines[i]) = column.figure(keyed[i]);
        }
    }
    Calculate_Or_Tell(after);
}

void Kanko_Entry::Calculate_Or_Tell(Held_Side& side) const {
    side.fault.reset();
    try {
        Calculate(side);
    } catch (const Run_Time_Error& error) {
        side.fault = error;
    }
}

void Kanko_Entry::Calculate(Held_Side& side) const {
    if (screen.part != Kanko_Part::Completed) {
        side.works = Calc_Gijutu_All(side.works, side.figures);
    }
    if (screen.part != Kanko_Part::Technical) {
        side.works = Calc_Kanko_All(side.works, side.figures, W_Form_Of(side.scenario));
    }
}

template <class Held>
void Kanko_Entry::Change(Held& held, const Held& next) {
    if (screen.sides.read_only) {
        throw std::logic_error(std::string(screen.name) + " takes no entries");
    }
    const Held former = held;
    held = next;
    try {
        Calculate(after);
        after.fault.reset();
    } catch (const Run_Time_Error& error) {
        if (!after.fault) {
            held = former;
            throw;
        }
        after.fault = error;
    }
}

void Kanko_Entry::Take(std::span<const Kanko_Entered> entered) {
    auto lines = after.works.lines;
    for (const Kanko_Entered& entry : entered) {
        const Kanko_Column& column = Column(screen, entry.column);
        Figure& figure = column.figure(lines[Line_Of_Row(entry.row)]);
        if (entry.number) {
            figure.Set(Within_Column(column.use, *entry.number));
        } else {
            figure.Set_Null();
        }
    }
    Change(after.works.lines, lines);
}

void Kanko_Entry::Take_Kanko_Avg(std::int32_t years) {
    Change(after.works.Kanko_Avg, years);
}

std::optional<std::int32_t> Kanko_Entry::Shown(int row, int column) const {
    const Kanko_Column& shown = Column(screen, column);
    const std::size_t index = Line_Of_Row(row);
    if (shown.use == Kanko_Use::Gain) {
        return Change_Of(index).Difference();
    }
    const Held_Side& side = Side_Of(shown);
    Work_Line line = shown.improved ? improved[index] : side.works.lines[index];
    const Figure& figure = shown.figure(line);
    bool is_seen = figure.up;
    if (shown.use == Kanko_Use::Result || shown.use == Kanko_Use::Score) {
        is_seen = !side.fault && Shows(line, shown.shows) &&
                  (shown.use == Kanko_Use::Result || index < scored_lines);
    }
    return is_seen ? std::optional(figure.value) : std::nullopt;
}

P_Change Kanko_Entry::Change_Of(std::size_t line) const {
    const auto p_of = [line](const Held_Side& side) {
        const Work_Line& of = side.works.lines[line];
        const bool is_seen = !side.fault && line < scored_lines && Shows(of, Kanko_Shows::With_Work);
        return is_seen ? std::optional(of.P.value) : std::nullopt;
    };
    return before ? P_Change{p_of(*before), p_of(after)} : P_Change{};
}

P_Gain Kanko_Entry::Gain() const {
    P_Changes lines;
    if (Fault() || Fault_Before()) {
        return P_Gain_Of(lines); // a side without scores is neither risen nor fallen nor new
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lines[i] = Change_Of(i);
    }
    return P_Gain_Of(lines);
}

std::optional<std::int32_t> Kanko_Entry::Shown_Total(int column) const {
    const Kanko_Column& shown = Column(screen, column);
    const Held_Side& side = Side_Of(shown);
    if (shown.total == nullptr || side.fault) {
        return std::nullopt;
    }
    const bool completed = screen.part == Kanko_Part::Completed;
    const Works& works = side.works;
    return shown.total(completed ? works.totals : works.motouke, works.Kanko_Avg).Count();
}

bool Kanko_Entry::Can_Check(int row) const {
    const std::size_t index = Line_Of_Row(row);
    const bool completed = screen.part == Kanko_Part::Completed;
    const auto has_text = [&](const Held_Side& side) {
        return !side.fault &&
               Shows(side.works.lines[index], completed ? Kanko_Shows::With_Work : Kanko_Shows::With_Any);
    };
    const bool of_both = screen.sides.read_only && before;
    return index < scored_lines && (has_text(after) || (of_both && has_text(*before)));
}

void Kanko_Entry::Save(const Session& session) const {
    if (screen.sides.read_only) {
        return;
    }
    const Side side = screen.sides.after.Of(session);
    Store_And_Settle(session, side, [&](const Connection& cn) {
        if (after.fault) {
            throw Run_Time_Error(*after.fault);
        }
        Store_Works(cn, side, after.works, screen.part == Kanko_Part::Technical);
    });
}

} // namespace morvane
