// SPDX-FileCopyrightText: The Morvane developers
#include "screens/syokuta_entry.h"

#include "law/elements.h"
#include "review/settle.h"
#include "review/social.h"
#include "review/y_calc.h"

namespace morvane {

Syokuta_Entry::Syokuta_Entry(const Session& session, int scenario_number)
    : scenario(scenario_number),
      figures(Load_Review(Cn_Open(session), session.Syori_Ki, Scenario_Of(scenario_number), session.Kind())) {
    // Found here, before anything is typed, and not on storing.
    Y_Calc().Calc_Y(figures.statement, figures.firm);
    screen.items.Load(figures);
    kikai_ten_of_load = screen.items.Kikai_Ten;
    shown = screen;
    try {
        screen.x2.Calc_X2(figures, false);
        shown = screen;
        Calculate(screen);
        if (!figures.elements[element::w1].up) {
            shown = screen; // nothing is stored yet that could be shown
        }
    } catch (const Run_Time_Error& error) {
        fault = error;
    }
}

// X2 by the basis that was keyed, then the items; these stay where they cannot be calculated.
void Syokuta_Entry::Calculate(Syokuta& pass) const {
    pass.x2.JikoS = pass.items.JikoS;
    pass.x2.Calc_X2(figures, true);
    pass.items = Calc_W_2012(pass.items, kikai_ten_of_load, figures);
}

void Syokuta_Entry::Take(int element, std::int32_t value) {
    Syokuta next = screen;
    next.items.At(element) = value;
    if (next.items.JikoS == 0) {
        next.items.JikoS = 1;
    }
    try {
        Calculate(next);
        const Syokuta first_pass = next;
        Calculate(next);
        fault.reset();
        shown = first_pass;
    } catch (const Run_Time_Error& error) {
        if (!fault) {
            throw;
        }
        fault = error;
        shown = next;
    }
    screen = next;
}

void Syokuta_Entry::Store(const Connection& cn, const Session& session) const {
    if (fault) {
        throw Run_Time_Error(*fault);
    }
    const Side side = {static_cast<std::int16_t>(session.Syori_Ki), &Scenario_Of(scenario)};
    Store_W_2012(cn, session, side, screen.items);
}

void Syokuta_Entry::Store(const Session& session) const {
    Store_And_Settle(session, Scenario_Of(scenario), [&](const Connection& cn) { Store(cn, session); });
}

std::string Syokuta_Entry::Refusal(int element, std::int32_t value) {
    const Element_Info& item = *Find_Element(element);
    return value > item.most_read ? std::string(item.name) + "は" + std::to_string(item.most_read) +
                                        "までの数で入力してください。"
                                  : "";
}

} // namespace morvane
