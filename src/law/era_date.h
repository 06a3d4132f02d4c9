// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <compare>
#include <cstdint>
#include <optional>

namespace morvane {

/// The review base date (審査基準日), the last day of the business year, in the western calendar. The caller
/// has tested that the day exists.
struct Review_Date {
    int year;
    int month;
    int day;

    auto operator<=>(const Review_Date&) const = default;
};

/// A date as the firm's data hold it: the year of an era that is not written beside it.
struct Era_Date {
    std::int64_t year;
    std::int64_t month;
    std::int64_t day;

    friend bool operator==(const Era_Date&, const Era_Date&) = default;
};

/// The last day of a month: the longer one where Heisei (1988 + year) and Reiwa (2018 + year) differ, which
/// they do in February. 0 for a month or a year that is none.
[[nodiscard]] std::int64_t Last_Day(std::int64_t year, std::int64_t month);

/// Whether a date is one of its year as Heisei or as Reiwa.
[[nodiscard]] bool Is_Date(const Era_Date& date);

/// The date so many years later or, below 0, earlier. The end of a month stays the end of its month; a date
/// that is none only changes its year.
[[nodiscard]] Era_Date Shift_Years(Era_Date date, std::int64_t years);

/// The day in the western calendar, the year taken as Reiwa, where a 29 February that it does not have is the
/// 28th. Empty for a date that is none.
[[nodiscard]] std::optional<Review_Date> Reiwa_Day(const Era_Date& date);

} // namespace morvane
