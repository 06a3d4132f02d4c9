// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QString>
#include <vector>

namespace morvane {

/// A block of cells as spreadsheets put it on the clipboard: rows by line ends, cells by tabs, a cell with
/// either of them in quotes.
using Text_Block = std::vector<std::vector<QString>>;

/// Reads a block; the line end behind the last row makes no further row.
Text_Block Read_Block(const QString& text);

/// Writes a block.
QString Write_Block(const Text_Block& block);

} // namespace morvane
