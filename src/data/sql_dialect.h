// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// A statement of the program's SQL dialect as the store engine takes it.
struct Engine_Sql {
    std::string text;
    /// The table of a plain `SELECT * FROM T ...`; empty for any other statement. Such a result can be
    /// updated.
    std::string table;
};

/// Rewrites the program's SQL into the engine's. Literals and names pass untouched; these forms are changed:
///
///   DELETE T.* FROM T ..., DELETE * FROM T ...   ->  DELETE FROM T ...
///   UPDATE T SET T.c = v, T![d] = w              ->  UPDATE T SET c = v, [d] = w
///   T![c]                                        ->  T.[c]
///   c = True, c <> False                         ->  c <> 0
///   c = False, c <> True                         ->  c = 0 (a Null is neither)
///   True, False elsewhere                        ->  -1, 0 (true is stored as -1)
///   IIf(a, b, c)                                 ->  CASE WHEN a THEN b ELSE c END
///   left(c, n)                                   ->  substr(c, 1, n)
///   a trailing ;                                 ->  dropped
///
/// A plain `SELECT * FROM T` gets the row's identity as its first column, which the recordset needs for
/// updates. Raises std::invalid_argument for a text literal or a bracket that is not closed.
Engine_Sql To_Engine_Sql(std::string_view sql);

} // namespace morvane
