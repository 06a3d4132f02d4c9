// SPDX-FileCopyrightText: The Morvane developers
#include "screens/kanko_entry.h"

#include "law/checked.h"
#include "review/settle.h"
#include "review/x2_calc.h"

#include <utility>

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

} // namespace

Kanko_Entry::Kanko_Entry(const Session& session, const Kanko_Screen& screen_row) : screen(screen_row) {
    Load(session);
    Calculate_Or_Tell();
}

void Kanko_Entry::Load(const Session& session) {
    Review_Figures stored =
        Load_Review(Cn_Open(session), session.Syori_Ki, Scenario_Of(screen.scenario), session.Kind());
    Y_Calc y;
    y.Calc_Y(stored.statement, stored.firm);
    X2_Calc x2;
    x2.Calc_X2(stored, false);
    works = Load_Kanko(stored, Points(x2.X2_Ten), Points(y.Y_Ten));
    figures = std::move(stored);
}

void Kanko_Entry::Reload(const Session& session) {
    auto keyed = works.lines;
    Load(session);
    for (const Kanko_Column& column : screen.columns) {
        if (column.use != Kanko_Use::Amount && column.use != Kanko_Use::Count) {
            continue;
        }
        for (std::size_t i = 0; i < keyed.size(); ++i) {
            column.figure(works.lines[i]) = column.figure(keyed[i]);
        }
    }
    Calculate_Or_Tell();
}

void Kanko_Entry::Calculate_Or_Tell() {
    fault.reset();
    try {
        Calculate();
    } catch (const Run_Time_Error& error) {
        fault = error;
    }
}

void Kanko_Entry::Calculate() {
    works = screen.gijutu ? Calc_Gijutu_All(works, figures) : Calc_Kanko_All(works, figures);
}

template <class Held>
void Kanko_Entry::Change(Held& held, const Held& next) {
    const Held former = held;
    held = next;
    try {
        Calculate();
        fault.reset();
    } catch (const Run_Time_Error& error) {
        if (!fault) {
            held = former;
            throw;
        }
        fault = error;
    }
}

void Kanko_Entry::Take(std::span<const Kanko_Entered> entered) {
    auto lines = works.lines;
    for (const Kanko_Entered& entry : entered) {
        const Kanko_Column& column = Column(screen, entry.column);
        Figure& figure = column.figure(lines[Line_Of_Row(entry.row)]);
        if (entry.number) {
            figure.Set(Within_Column(column.use, *entry.number));
        } else {
            figure.Set_Null();
        }
    }
    Change(works.lines, lines);
}

void Kanko_Entry::Take_Kanko_Avg(std::int32_t years) {
    Change(works.Kanko_Avg, years);
}

std::optional<std::int32_t> Kanko_Entry::Shown(int row, int column) const {
    const Kanko_Column& shown = Column(screen, column);
    const std::size_t index = Line_Of_Row(row);
    Work_Line line = works.lines[index];
    const Figure& figure = shown.figure(line);
    bool is_seen = figure.up;
    if (shown.use == Kanko_Use::Result || shown.use == Kanko_Use::Score) {
        is_seen =
            !fault && Shows(line, shown.shows) && (shown.use == Kanko_Use::Result || index < scored_lines);
    }
    return is_seen ? std::optional(figure.value) : std::nullopt;
}

std::optional<std::int32_t> Kanko_Entry::Shown_Total(int column) const {
    const auto total = Column(screen, column).total;
    if (total == nullptr || fault) {
        return std::nullopt;
    }
    return total(screen.gijutu ? works.motouke : works.totals, works.Kanko_Avg).Count();
}

bool Kanko_Entry::Can_Check(int row) const {
    const std::size_t index = Line_Of_Row(row);
    const Work_Line& line = works.lines[index];
    const bool has_text = Shows(line, screen.gijutu ? Kanko_Shows::With_Any : Kanko_Shows::With_Work);
    return !fault && has_text && index < scored_lines;
}

void Kanko_Entry::Save(const Connection& cn, const Session& session) const {
    if (fault) {
        throw Run_Time_Error(*fault);
    }
    const Side side = {static_cast<std::int16_t>(session.Syori_Ki), &Scenario_Of(screen.scenario)};
    Store_Works(cn, side, works, screen.gijutu);
}

void Kanko_Entry::Save(const Session& session) const {
    Store_And_Settle(session, Scenario_Of(screen.scenario), [&](const Connection& cn) { Save(cn, session); });
}

} // namespace morvane
