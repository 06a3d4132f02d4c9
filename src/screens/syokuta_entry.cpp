// SPDX-FileCopyrightText: The Morvane developers
#include "screens/syokuta_entry.h"

#include "law/elements.h"
#include "review/settle.h"
#include "review/social.h"
#include "review/y_calc.h"

#include <stdexcept>

namespace morvane {

Syokuta_Entry::Syokuta_Entry(const Session& session, const Screen_Sides& screen_sides) : sides(screen_sides) {
    Start_Sides(session, sides);
    if (sides.read_only) {
        before = Viewed(session, *sides.before);
        after = Viewed(session, sides.after);
        return;
    }
    after = Loaded(session, sides.after);
    if (!after.fault && !after.figures.elements[element::w1].up) {
        after.shown = after.screen; // nothing is stored yet that could be shown
    }
    try { // found here, before anything is typed, and not on storing
        static_cast<void>(Calc_Y(after.figures.statement, after.figures.firm));
    } catch (const Run_Time_Error& error) {
        throw Fault_Of_Statement(sides, error);
    }
    if (sides.before) {
        before = Loaded_Before(session, *sides.before);
    }
}

Syokuta_Entry::Held_Side Syokuta_Entry::Loaded(const Session& session, const Screen_Side& side) {
    Held_Side loaded;
    auto& [figures, kikai_ten_of_load, screen, shown, fault] = loaded;
    figures = Load_Review(session, side.Of(session));
    screen.items.Load(figures);
    kikai_ten_of_load = screen.items.Kikai_Ten;
    shown = screen;
    try {
        screen.x2 = Calc_X2(figures);
        shown = screen;
        Calculate(loaded, screen);
    } catch (const Run_Time_Error& error) {
        fault = error;
    }
    return loaded;
}

// What is only shown keeps no screen from opening.
Syokuta_Entry::Held_Side Syokuta_Entry::Loaded_Before(const Session& session, const Screen_Side& side) {
    try {
        return Loaded(session, side);
    } catch (const Run_Time_Error& error) {
        Held_Side nothing;
        nothing.fault = error;
        return nothing;
    }
}

Syokuta_Entry::Held_Side Syokuta_Entry::Viewed(const Session& session, const Screen_Side& side) {
    const Viewed_Side view = View_Side(session, side);
    notice += view.notice;
    Held_Side viewed;
    viewed.figures = view.figures;
    viewed.fault = view.fault;
    // What was keyed is shown though a score of it cannot be computed.
    viewed.screen.items.Load(view.figures);
    viewed.screen.x2 = view.scores.x2;
    viewed.shown = viewed.screen;
    return viewed;
}

const Review_Figures& Syokuta_Entry::Checked_Figures(bool of_before) const {
    const Held_Side& side = of_before && before ? *before : after;
    if (side.fault) {
        throw Run_Time_Error(*side.fault);
    }
    return side.figures;
}

// X2 by the basis that was keyed, then the items; these stay where they cannot be calculated.
void Syokuta_Entry::Calculate(const Held_Side& side, Syokuta& pass) {
    pass.x2 = Calc_X2(side.figures, pass.items.JikoS);
    pass.items = Calc_W_2012(pass.items, side.kikai_ten_of_load, side.figures);
}

void Syokuta_Entry::Take(int element, std::int32_t value) {
    if (sides.read_only) {
        throw std::logic_error("the screen takes no entries");
    }
    Syokuta next = after.screen;
    next.items.At(element) = value;
    if (next.items.JikoS == 0) {
        next.items.JikoS = 1;
    }
    try {
        Calculate(after, next);
        const Syokuta first_pass = next;
        Calculate(after, next);
        after.fault.reset();
        after.shown = first_pass;
    } catch (const Run_Time_Error& error) {
        if (!after.fault) {
            throw;
        }
        after.fault = error;
        after.shown = next;
    }
    after.screen = next;
}

std::optional<P_Gain> Syokuta_Entry::Gain() const {
    if (!before || before->fault || after.fault) {
        return std::nullopt;
    }
    try {
        return P_Gain_Of(before->figures, sides.read_only ? after.figures
                                                          : With_Items(after.figures, after.screen.items,
                                                                       sides.after.scenario));
    } catch (const Run_Time_Error&) {
        return std::nullopt; // storing tells it
    }
}

void Syokuta_Entry::Store(const Session& session) const {
    if (sides.read_only) {
        return;
    }
    const Side side = sides.after.Of(session);
    Store_And_Settle(session, side, [&](const Connection& cn) {
        if (after.fault) {
            throw Run_Time_Error(*after.fault);
        }
        Store_W_2012(cn, side, after.figures.firm, after.screen.items);
    });
}

Syokuta_Entry Open_Syokuta(const Session& session, const Syokuta_Screen& screen) {
    if (screen.starts != nullptr && Law_Of(session.Simyu_Kubun).*screen.starts) {
        try {
            Kaizen_Tenki(session);
        } catch (const Run_Time_Error&) {
            // A period that cannot be improved can be compared; the improved screens tell why it cannot.
        }
    }
    return Syokuta_Entry(session, screen.sides);
}

std::string Syokuta_Entry::Refusal(int element, std::int32_t value) {
    const Element_Info& item = *Find_Element(element);
    return value > item.most_read ? std::string(item.name) + "は" + std::to_string(item.most_read) +
                                        "までの数で入力してください。"
                                  : "";
}

} // namespace morvane
