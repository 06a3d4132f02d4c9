// SPDX-FileCopyrightText: The Morvane developers
#include "screens/screen_sides.h"

#include "review/settle.h"

namespace morvane {

void Start_Sides(const Session& session, const Screen_Sides& sides) {
    if (sides.after.scenario == Scenario::Kaizen && !sides.read_only) {
        Kaizen_Tenki(session);
    }
}

} // namespace morvane
