// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"
#include "session/session.h"
#include "statements/account_book.h"

#include <cstdint>

namespace morvane {

/// The columns of amounts that are summed one by one.
enum class Amount_Column : std::uint8_t {
    Provisional, ///< 仮金額
    Current,     ///< 金額
    Improved     ///< 改善後残高
};

/// Reads the rows of the period in hand with one column of amounts; rows that are not shown enter no sum.
/// Raises Store_Error.
Account_Book Read_Book(const Connection& cn, const Session& session, Amount_Column column);

/// Reads the rows of the period in hand with 借方, 貸方 and 改善後残高; rows that are not shown are counted.
/// Raises Store_Error.
Account_Book Read_Journal(const Connection& cn, const Session& session);

/// Sums one amount column of the period in hand into its classes and writes subtotals and totals back into
/// their own rows, in yen. Rows that are not shown stay out of the sums. Where no row enters a sum the period
/// is left untouched. Within the transaction of the caller. Raises Store_Error.
void Zaimu_Shukei(const Connection& cn, const Session& session, Amount_Column column);

/// The same with the rows of a period in memory.
void Zaimu_Shukei(Recordset& rows, Firm_Kind kind, Amount_Column column);

/// The same in a transaction of its own.
void Zaimu_Shukei(const Session& session, Amount_Column column);

/// Forms 改善後残高 of every row of the period in hand from 金額, 借方 and 貸方 and then sums 借方, 貸方 and
/// 改善後残高 together. Rows that are not shown are counted here. Within the transaction of the caller.
/// Raises Store_Error.
void Zaimu_Shukei_KK(const Connection& cn, const Session& session);

/// The same with the rows of a period in memory, for the journal of the working scenario or of a saved one.
void Zaimu_Shukei_KK(Recordset& rows, Firm_Kind kind,
                     const Account_Book::Columns& journal = Account_Book::journal);

/// The same in a transaction of its own.
void Zaimu_Shukei_KK(const Session& session);

} // namespace morvane
