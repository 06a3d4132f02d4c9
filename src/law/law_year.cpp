// SPDX-FileCopyrightText: The Morvane developers
#include "law/law_year.h"

#include <algorithm>

namespace morvane {

const Law_Year& Law_Of(std::int64_t number) {
    const std::span<const Law_Year> rows = Law_Years();
    const auto last = static_cast<std::int64_t>(rows.size());
    return rows[static_cast<std::size_t>(std::clamp(number, std::int64_t{1}, last) - 1)];
}

const Law_Year& Law_Of(Law_Year_No code) {
    return Law_Of(std::int64_t{Law_Number(code)});
}

const Law_Year& Newest_Law_Year() {
    return Law_Years().back();
}

const Law_Year& Oldest_Law_Year() {
    return Law_Years().front();
}

const Law_Year& First_Law_Year(bool Law_Year::*feature) {
    const std::span<const Law_Year> rows = Law_Years();
    return *std::find_if(rows.begin(), rows.end(), [feature](const Law_Year& law) { return law.*feature; });
}

} // namespace morvane
