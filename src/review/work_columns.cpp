// SPDX-FileCopyrightText: The Morvane developers
#include "review/work_columns.h"

#include "data/work_columns.h"

#include <algorithm>

namespace morvane {

namespace {

using enum Work_Figure;

template <auto Member>
Figure& Place(Work_Line& line) {
    return line.*Member;
}

template <std::size_t Index>
Figure& Engineer(Work_Line& line) {
    return line.gijutusya[Index];
}

constexpr Work_Column work_columns[] = {
    {work_column::before_last, Place<&Work_Line::Zzki>, Amount},
    {work_column::last, Place<&Work_Line::Zki>, Amount},
    {work_column::former_average, Place<&Work_Line::Zheikin>, Average},
    {work_column::base, Place<&Work_Line::Kijun>, Amount},
    {work_column::average, Place<&Work_Line::Nheikin>, Average},
    {work_column::x1, Place<&Work_Line::X1>, Score},
    {work_column::engineers_1, Engineer<0>, Persons},
    {work_column::engineers_2, Engineer<1>, Persons},
    {work_column::engineers_3, Engineer<2>, Persons},
    {work_column::engineers_4, Engineer<3>, Persons},
    {work_column::engineers_5, Engineer<4>, Persons},
    {work_column::z1, Place<&Work_Line::Zi>, Score},
    {work_column::prime_before_last, Place<&Work_Line::Mzzki>, Amount},
    {work_column::prime_last, Place<&Work_Line::Mzki>, Amount},
    {work_column::prime_former_average, Place<&Work_Line::Mzheikin>, Average},
    {work_column::prime_base, Place<&Work_Line::Mkijun>, Amount},
    {work_column::prime_average, Place<&Work_Line::Mnheikin>, Average},
    {work_column::z2, Place<&Work_Line::Zro>, Score},
    {work_column::z, Place<&Work_Line::Z>, Score},
    {work_column::p, Place<&Work_Line::P>, Score},
    {work_column::engineers_6, Engineer<5>, Persons},
};

} // namespace

std::span<const Work_Column> Work_Columns() {
    return work_columns;
}

std::span<const Work_Column> Copied_Work_Columns() {
    return Work_Columns().first(std::size(work_columns) - 1);
}

Entry_Limit Limit_Of(Work_Figure figure) {
    switch (figure) {
    case Amount:
        return {.highest = std::numeric_limits<std::int32_t>::max()};
    case Persons:
        return {.highest = std::numeric_limits<std::int16_t>::max()};
    case Score:
        return Width_Of<std::int16_t>();
    case Average:
        break;
    }
    return Width_Of<std::int32_t>();
}

Entry_Limit Limit_Of_Work_Column(std::string_view column) {
    for (const Scenario scenario : every_scenario) {
        const std::string_view prefix = Columns_Of(scenario).prefix;
        if (!prefix.empty() && column.starts_with(prefix)) {
            column.remove_prefix(prefix.size());
            break;
        }
    }
    const auto* const found =
        std::find_if(std::begin(work_columns), std::end(work_columns),
                     [column](const Work_Column& candidate) { return candidate.name == column; });
    // What is left are the engineers of older forms.
    return Limit_Of(found == std::end(work_columns) ? Persons : found->figure);
}

} // namespace morvane
