// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <cstdint>

namespace morvane {

/// Sums one amount column of the period in hand into its classes and writes subtotals and totals back into
/// their own rows, in yen and double precision. `kbn` 1: 仮金額, 2: 金額, 3: 改善後残高. Rows that are not
/// shown stay out of the sums. An empty period is left untouched. The balance sheet (様式第15号, 個人
/// 様式第18号) balances because row 281 is the remainder. All of it is one transaction. Raises Store_Error.
void Zaimu_Shukei(const Session& session, std::uint8_t kbn);

/// The same within the transaction of the caller.
void Zaimu_Shukei(const Connection& cn, const Session& session, std::uint8_t kbn);

/// Forms 改善後残高 of every row of the period in hand from 金額, 借方 and 貸方 and then aggregates 借方,
/// 貸方 and 改善後残高 together. Rows that are not shown are counted here. One transaction. Raises
/// Store_Error.
void Zaimu_Shukei_KK(const Session& session);

/// The same within the transaction of the caller.
void Zaimu_Shukei_KK(const Connection& cn, const Session& session);

/// The balance after the journal of the current row of a statement, in yen: a debit-normal row rises by a
/// debit. The owner's drawings (273) turn their sign, deliberately, since they lower the capital.
double Improved_Balance(const Recordset& row);

} // namespace morvane
