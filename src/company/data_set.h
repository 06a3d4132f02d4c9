// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"
#include "law/law_year.h"
#include "session/session.h"

#include <cstdint>
#include <optional>

namespace morvane {

/// Direction in which a period is added: behind the newest or before the oldest.
enum class Copy_Mode : std::uint8_t { After = 1, Before = 2 };

/// Puts a blank company with one period into the working store: the template, over it the edition's chart of
/// accounts with the captions and visible lines of the firm type, the
/// newest law year. Sets Data_Ver. Nothing changes where it fails: a template that does not fit the chart
/// shows "データ異常" and gives false; raises Store_Error.
bool New_Data_Set(Session& session, Firm_Type type, std::int16_t period);

/// Makes `period` the one in hand in Jigyo_mas: 処理決算期, and the years of the fiscal period shifted by the
/// difference to the former one. Within the caller's transaction. Raises Store_Error.
void Take_Period(const Connection& cn, int period, int former);

/// The edition's chart of accounts as the statement of a period without amounts, with the captions and
/// visible lines of the firm type: rows of Ks_Zaihyo in memory, by ascending code. `master` is the store of
/// the charts. Raises Store_Error.
Recordset Blank_Statement(const Connection& master, Firm_Kind kind, std::int16_t period);

/// Makes an open copy of the empty company store that of one period, with the rows of its statement. The
/// caller holds the transaction. False without a box where the template does not fit the statement. Raises
/// Store_Error.
bool Fill_Blank_Company(const Connection& cn, const Recordset& statement, std::int16_t period);

/// Says that a template does not fit ("データ異常").
void Report_Bad_Template(const Session& session);

/// Adds the period `new_period` beside its neighbour, which gives the standing items and, in mode After, the
/// completed work and engineers rolled on by one period. `base_period` is the period in hand, by which the
/// years of Jigyo_mas are shifted. Its law year is as copied or, where given, `law_year`. The new
/// period is in hand afterwards: sets Data_Ver, Syori_Ki and Simyu_Kubun. One transaction; an empty chart
/// shows "データ異常" and gives false. Raises Store_Error, also for a period that is registered already or a
/// neighbour that is not.
bool Period_Copy(Session& session, std::int16_t new_period, std::int16_t base_period, Copy_Mode mode,
                 std::optional<Law_Year_No> law_year = {});

/// The same within the transaction of the caller, with the rows of the new period's statement.
void Period_Copy(const Connection& cn, const Recordset& statement, Session& session, std::int16_t new_period,
                 std::int16_t base_period, Copy_Mode mode, std::optional<Law_Year_No> law_year = {});

} // namespace morvane
