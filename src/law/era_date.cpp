// SPDX-FileCopyrightText: The Morvane developers
#include "law/era_date.h"

#include <algorithm>
#include <chrono>

namespace morvane {

namespace {

constexpr int heisei_year_0 = 1988;
constexpr int reiwa_year_0 = 2018;
constexpr std::int64_t farthest_year = 9999; // either way

std::int64_t Days_Of(int western, std::int64_t month) {
    const std::chrono::year_month_day_last last(
        std::chrono::year(western),
        std::chrono::month_day_last(std::chrono::month(static_cast<unsigned>(month))));
    return static_cast<unsigned>(last.day());
}

} // namespace

std::int64_t Last_Day(std::int64_t year, std::int64_t month) {
    if (year < -farthest_year || year > farthest_year || month < 1 || month > 12) {
        return 0;
    }
    const int y = static_cast<int>(year);
    return std::max(Days_Of(heisei_year_0 + y, month), Days_Of(reiwa_year_0 + y, month));
}

bool Is_Date(const Era_Date& date) {
    return date.day >= 1 && date.day <= Last_Day(date.year, date.month);
}

Era_Date Shift_Years(Era_Date date, std::int64_t years) {
    const bool is_date = Is_Date(date);
    const bool is_end = is_date && date.day == Last_Day(date.year, date.month);
    date.year += years;
    const std::int64_t last = Last_Day(date.year, date.month);
    if (is_date && last != 0) {
        date.day = is_end ? last : std::min(date.day, last);
    }
    return date;
}

std::optional<Review_Date> Reiwa_Day(const Era_Date& date) {
    if (!Is_Date(date)) {
        return std::nullopt;
    }
    const int western = reiwa_year_0 + static_cast<int>(date.year);
    return Review_Date{western, static_cast<int>(date.month),
                       static_cast<int>(std::min(date.day, Days_Of(western, date.month)))};
}

} // namespace morvane
