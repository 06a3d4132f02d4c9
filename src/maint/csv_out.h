// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"

#include <filesystem>
#include <string>

namespace morvane {

/// A table as CSV: the column names, then a line per row, fields in column order. Null is empty, numbers and
/// texts stand as they are, without quotes. Raises Store_Error.
std::string Csv_Text(const Connection& store, const std::string& table);

/// Writes the five tables into `folder` as table name + ".csv", each file whole or not at all. Raises
/// Store_Error.
void Csv_Out(const Connection& store, const std::filesystem::path& folder);

} // namespace morvane
