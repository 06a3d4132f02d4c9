// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"
#include "data/table_catalogue.h"

#include <filesystem>
#include <string>
#include <vector>

namespace morvane {

/// A table kept as text: tab-separated, the first line the column names; an empty field is Null.
struct Text_Table {
    std::filesystem::path file;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
};

/// Reads a text table. Raises Store_Error (bad content) with the line where a row has another number of
/// fields.
Text_Table Read_Text_Table(const std::filesystem::path& file);

/// Adds the rows of a text table to a table of an open store, `extra` columns with the same value in every
/// row. Numbers are stored as numbers where the catalogue says so; raises Store_Error where a field is none.
void Add_Rows(const Connection& store, const Table_Info& table, const Text_Table& text,
              const std::vector<std::pair<std::string, Value>>& extra = {});

} // namespace morvane
