// SPDX-FileCopyrightText: The Morvane developers
#include "screens/syokuta_entry.h"

#include "law/elements.h"
#include "review/settle.h"
#include "review/y_calc.h"

namespace morvane {

Syokuta_Entry::Syokuta_Entry(const Session& session, int scenario_number)
    : scenario(scenario_number),
      figures(Load_Review(Cn_Open(session), session.Syori_Ki, Scenario_Of(scenario_number), session.Kind())) {
    // Found here, before anything is typed, and not on storing.
    Y_Calc().Calc_Y(figures.statement, figures.firm);
    screen.Load_W_2012(figures);
    shown = screen;
    try {
        screen.x2.Calc_X2(figures, wzx, false);
        shown = screen;
        screen.Calc_W_2012(figures, wzx);
        if (!figures.elements[element::w1].up) {
            shown = screen; // nothing is stored yet that could be shown
        }
    } catch (const Run_Time_Error& error) {
        fault = error;
    }
}

void Syokuta_Entry::Take(int element, std::int32_t value) {
    Syokuta next = screen;
    next.items.At(element) = value;
    if (next.items.JikoS == 0) {
        next.items.JikoS = 1;
    }
    try {
        next.Calc_W_2012(figures, wzx);
        const Syokuta first_pass = next;
        next.Calc_W_2012(figures, wzx);
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
    Store_W_2012(cn, session, scenario, screen);
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
