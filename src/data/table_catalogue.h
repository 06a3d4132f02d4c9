// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// What a column holds. Integer is 16 bits, Long 32 bits, Double an amount or a figure, Boolean -1 or 0.
enum class Column_Type { Integer, Long, Text, Boolean, Double };

struct Column_Info {
    std::string name;
    Column_Type type;
};

/// The stores a table belongs to.
enum class Store_Kind {
    Company,  ///< working store, resting stores, the templates morv_set, morv_01, morv_13
    Register, ///< Jgmas.dat
    Master,   ///< morv_org.dat
    Auxiliary ///< morv_tmp.dat
};

struct Table_Info {
    std::string name;
    std::vector<Column_Info> columns;
    std::vector<std::string> key; ///< columns that identify a row; empty for a table of one row
};

/// The tables of a kind of store, in the order in which they are made.
std::span<const Table_Info> Tables_Of(Store_Kind kind);

/// A table of a kind of store. Raises std::out_of_range for a name that is not in the catalogue.
const Table_Info& Table_Of(Store_Kind kind, std::string_view name);

/// Makes the tables of `kind` in an empty store.
void Create_Tables(const Connection& store, Store_Kind kind);

/// What a store lacks of its catalogue, one Japanese line each; empty where it is complete. Columns that
/// later releases added in place (the sixth engineer class) count as lacking only where `in_full`.
std::vector<std::string> Missing_In_Store(const Connection& store, Store_Kind kind, bool in_full = true);

} // namespace morvane
