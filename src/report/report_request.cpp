// SPDX-FileCopyrightText: The Morvane developers
#include "report/report_request.h"

#include <stdexcept>

namespace morvane {

std::vector<Side> Sides_Of(Report_Sides sides, const Side& in_hand) {
    switch (sides) {
    case Report_Sides::One:
        return {in_hand};
    case Report_Sides::Improvement:
        return {{in_hand.period, Scenario::Genjo}, {in_hand.period, Scenario::Kaizen}};
    case Report_Sides::Prior:
        return {in_hand.Before(), in_hand};
    case Report_Sides::All_Scenarios:
        std::vector<Side> all;
        for (const Scenario scenario : every_scenario) {
            all.push_back({in_hand.period, scenario});
        }
        return all;
    }
    throw std::logic_error("sides of a report");
}

} // namespace morvane
