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
    Choice   ///< one of a few keys
};

/// What remains of a text after the key filter of a kind; sets `refused` where something was dropped.
/// `choices` are the keys of a Choice.
QString Filtered_Text(Entry_Kind kind, const QString& choices, const QString& input, bool& refused);

/// A typed text as a value: Null where it is blank, a number for Amount and Digits where it reads as one,
/// else text.
Value Entry_Value(Entry_Kind kind, const QString& bare);

/// Whether a text without commas reads as a number.
bool Is_Number(const QString& bare);

/// A figure as other programs show it in the form it is typed here: white space, commas, the yen sign and 円
/// go, full-width digits become ASCII, parentheses and triangles a minus, decimals that are all zero go.
/// What is no figure stays recognisable as none.
QString Bare_Figure(const QString& shown);

} // namespace morvane
