// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/firm_kind.h"

#include <cstdint>
#include <optional>

namespace morvane {

/// The form of a period's chart of accounts, which its marker row 99 holds in 並び順. Another number than
/// these stays what it is and counts as a form from 2008 on that is none of the named ones.
enum class Data_Form_No : std::uint8_t {
    Form_1 = 1, ///< before the forms of 2008
    Form_2 = 2,
    National_2008 = 3,
    Hokkaido_2008 = 4,
    National = 5, ///< with lease accounts, from 2010 on
    Hokkaido = 6,
    Unmarked_National = 51, ///< a period without the marker row
    Unmarked_Hokkaido = 52,
    Old_Hokkaido = 53 ///< Hokkaido's form 1, or 2 without account 552
};

/// The form that a stored number means.
constexpr Data_Form_No Data_Form_Of(std::int64_t number) {
    return static_cast<Data_Form_No>(number);
}
constexpr int Number_Of(Data_Form_No form) {
    return static_cast<int>(form);
}

/// The form of periods made now.
constexpr Data_Form_No Present_Form(Edition edition) {
    return edition == Edition::Hokkaido ? Data_Form_No::Hokkaido : Data_Form_No::National;
}

constexpr bool Is_Present(Data_Form_No form) {
    return form == Data_Form_No::National || form == Data_Form_No::Hokkaido;
}

/// Forms 1 and 2, with the statement of changes of the old law; too old to be scored.
constexpr bool Is_Before_2008(Data_Form_No form) {
    return form == Data_Form_No::Form_1 || form == Data_Form_No::Form_2;
}

/// Whose form it is; others than those from 2008 on do not tell.
constexpr std::optional<Edition> Edition_Of(Data_Form_No form) {
    switch (form) {
    case Data_Form_No::National_2008:
    case Data_Form_No::National:
        return Edition::National;
    case Data_Form_No::Hokkaido_2008:
    case Data_Form_No::Hokkaido:
        return Edition::Hokkaido;
    default:
        return std::nullopt;
    }
}

} // namespace morvane
