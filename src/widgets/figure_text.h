// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QString>

namespace morvane {

/// A full-width digit, minus or black or white triangle (the accountants' minus) as its ASCII twin; any other
/// character as it is.
QChar Half_Width(QChar c);

/// Whether a text without commas reads as a number.
bool Is_Number(const QString& bare);

/// A figure as other programs show it in the form it is typed here: white space, commas, the yen sign and 円
/// go, full-width digits become ASCII, parentheses and triangles a minus, decimals that are all zero go.
/// What is no figure stays recognisable as none.
QString Bare_Figure(const QString& shown);

} // namespace morvane
