// SPDX-FileCopyrightText: The Morvane developers
#include "law/work_types.h"

namespace morvane {

std::array<std::string_view, work_line_count> Get_Kosyu_Name() {
    std::array<std::string_view, work_line_count> names;
    for (std::size_t i = 0; i < names.size(); ++i) {
        names[i] = work_types[i].name;
    }
    return names;
}

} // namespace morvane
