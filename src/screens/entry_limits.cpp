// SPDX-FileCopyrightText: The Morvane developers
#include "screens/entry_limits.h"

#include "review/scenario.h"
#include "screens/syokuta_table.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace morvane {

namespace {

template <class Int>
Entry_Limit Width_Of() {
    return {.lowest = std::numeric_limits<Int>::min(), .highest = std::numeric_limits<Int>::max()};
}

constexpr Entry_Limit amount_limit = {.highest = std::numeric_limits<std::int32_t>::max()};
constexpr Entry_Limit count_limit = {.highest = std::numeric_limits<std::int16_t>::max()};

// The elements that the screens hold beside the field list.
constexpr const char* equity_basis_control = "JikoS(0)";
constexpr Entry_Limit years_of_average = {.choices = "23"};
constexpr Entry_Limit law_year_of_element = {.choices = "1234"};

const Social_Field* Field_Of(int element) {
    const auto fields = Social_Fields();
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [element](const Social_Field& field) { return field.code == element; });
    return found == fields.end() ? nullptr : &*found;
}

std::int64_t Most_Of_Digits(int digits) {
    std::int64_t most = 1;
    for (int i = 0; i < digits; ++i) {
        most *= 10;
    }
    return most - 1;
}

/// The entry of a control on the screen of a law year; of any law year where `law_year` is 0.
const Syokuta_Cell* Entry_Of(std::string_view control, int law_year) {
    const auto holds = [law_year](const auto& part) {
        return law_year == 0 || (law_year >= part.law_from && law_year <= part.law_to);
    };
    for (const Syokuta_Group& group : Syokuta_Groups()) {
        for (const Syokuta_Row& row : group.rows) {
            for (const Syokuta_Cell& cell : row.cells) {
                if (cell.place != nullptr && control == cell.name && holds(group) && holds(row)) {
                    return &cell;
                }
            }
        }
    }
    return nullptr;
}

Entry_Limit Limit_Of_Cell(const Syokuta_Cell& cell, std::int32_t read_limit) {
    if (cell.keys != nullptr) {
        return {.choices = cell.keys};
    }
    return {.highest = std::min<std::int64_t>(Most_Of_Digits(cell.digits), read_limit)};
}

} // namespace

bool Entry_Limit::Takes(std::int64_t number) const {
    if (choices.empty()) {
        return number >= lowest && number <= highest;
    }
    return number == 0 || (number > 0 && number <= 9 &&
                           choices.find(static_cast<char>('0' + number)) != std::string_view::npos);
}

std::string Entry_Limit::In_Words() const {
    if (choices.empty()) {
        return std::to_string(lowest) + " から " + std::to_string(highest) + " まで";
    }
    std::string words;
    for (const char key : choices) {
        words += words.empty() ? "" : "、";
        words += key;
    }
    return words + " のどれか";
}

Entry_Limit Limit_Of_Element(int element, int law_year) {
    switch (element) {
    case 201:
        return years_of_average;
    case 202:
    case 203:
        return amount_limit;
    case 210:
        return law_year_of_element;
    default:
        break;
    }
    const Social_Field* field = Field_Of(element);
    const std::string_view control = element == 1       ? equity_basis_control
                                     : field != nullptr ? field->control
                                                        : "";
    for (const int law : {law_year, 0}) {
        if (const Syokuta_Cell* cell = Entry_Of(control, law)) {
            return Limit_Of_Cell(*cell, field != nullptr ? field->limit : INT32_MAX);
        }
    }
    return field != nullptr ? Width_Of<std::int16_t>() : Width_Of<std::int32_t>();
}

Entry_Limit Limit_Of_Work(Kanko_Use use) {
    switch (use) {
    case Kanko_Use::Amount:
        return amount_limit;
    case Kanko_Use::Count:
        return count_limit;
    default:
        return Width_Of<std::int32_t>();
    }
}

Entry_Limit Limit_Of_Work_Column(std::string_view column) {
    for (const Scenario& scenario : scenarios) {
        if (!scenario.prefix.empty() && column.starts_with(scenario.prefix)) {
            column.remove_prefix(scenario.prefix.size());
            break;
        }
    }
    if (column.starts_with("技術者")) {
        return Limit_Of_Work(Kanko_Use::Count);
    }
    // The routines hold a score in sixteen bits and an average in thirty-two.
    if (column.starts_with("評点") || column == "総合評点P") {
        return Width_Of<std::int16_t>();
    }
    return Limit_Of_Work(column.ends_with("平均") ? Kanko_Use::Result : Kanko_Use::Amount);
}

} // namespace morvane
