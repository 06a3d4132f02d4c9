// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/value.h"

#include <QString>

namespace morvane {

/// What a cell takes from the keyboard.
enum class Entry_Kind {
    Text,    ///< any text
    Digits,  ///< "0" to "9"
    Decimal, ///< digits and "."
    Amount,  ///< digits and "-"; shown with commas while it has no focus
    Figure,  ///< digits; shown with commas while it has no focus
    Rounded, ///< digits, "-" and "."; becomes a whole number, a half the even one, shown as an amount
    Choice   ///< one of a few keys
};

/// Whether a kind is shown with commas, at the right.
constexpr bool Has_Commas(Entry_Kind kind) {
    return kind == Entry_Kind::Amount || kind == Entry_Kind::Figure || kind == Entry_Kind::Rounded;
}

/// Whether a kind is a whole number.
constexpr bool Is_Whole(Entry_Kind kind) {
    return Has_Commas(kind) || kind == Entry_Kind::Digits;
}

/// What remains of a text after the key filter of a kind; sets `refused` where something was dropped.
/// `choices` are the keys of a Choice.
QString Filtered_Text(Entry_Kind kind, const QString& choices, const QString& input, bool& refused);

/// Whether a text without commas is an entry of a kind: blank, any text, a whole number, a number with at
/// most one point, one of the choices.
bool Is_Entry(Entry_Kind kind, const QString& choices, const QString& bare);

/// A typed text as a value: Null where it is blank, a number for Amount, Figure and Digits where it is one,
/// else text.
Value Entry_Value(Entry_Kind kind, const QString& bare);

/// Whether a text is a number as it is keyed here: ASCII digits behind at most one minus sign. What other
/// notations read as numbers (exponents, "inf", "0x1F", a plus) is none.
bool Is_Number(const QString& bare);

/// A figure as other programs show it in the form it is typed here: white space, commas, the yen sign and 円
/// go, full-width digits become ASCII, parentheses and triangles a minus, decimals that are all zero go.
/// What is no figure stays recognisable as none.
QString Bare_Figure(const QString& shown);

} // namespace morvane
