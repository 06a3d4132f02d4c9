// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <cstdint>

namespace morvane {

/// Direction in which a period is added: behind the newest or before the oldest.
enum class Copy_Mode : std::uint8_t { After = 1, Before = 2 };

/// Puts a blank company with one period into the working store: the template, over it the edition's chart of
/// accounts with the captions and visible lines of the firm type (1 corporation, else individual), law
/// year 4. Sets Data_Ver. Nothing changes where it fails: a template that does not fit the chart shows
/// "データ異常" and gives false; raises Store_Error.
bool New_Data_Set(Session& session, std::int16_t hojin_kojin, std::int16_t period);

/// The same on an open copy of the empty company store, of which nothing else changes. The caller holds the
/// transaction. False without a box where the template does not fit. Raises Store_Error.
bool Fill_Blank_Company(const Connection& cn, const Session& session, std::int16_t hojin_kojin,
                        std::int16_t period);

/// Says that a template does not fit ("データ異常").
void Report_Bad_Template(const Session& session);

/// Adds the period `new_period` beside its neighbour, which gives the standing items and, in mode After, the
/// completed work and engineers rolled on by one period. `base_period` is the period in hand, by which the
/// years of Jigyo_mas are shifted. Sets Data_Ver and Syori_Ki. One transaction; an empty chart shows
/// "データ異常" and gives false. Raises Store_Error, also for a period that is registered already or a
/// neighbour that is not.
bool Period_Copy(Session& session, std::int16_t new_period, std::int16_t base_period, Copy_Mode mode);

/// The data form of periods made now: 6 in the Hokkaido edition, else 5.
std::uint8_t Present_Data_Ver(const Session& session);

/// Renumbers the elements of period `period` to the law year 2011, which has no row of its own for 厚生年金:
/// that row waits under code 999, the rows behind it move up by one; 210 becomes 2. One transaction. Raises
/// Store_Error.
void To_Law2011(const Session& session, int period);

/// The way back to the law year 2012: the rows move down again, the waiting row (or a new one) becomes 103;
/// 210 becomes 3. One transaction. Raises Store_Error.
void To_Law2012(const Session& session, int period);

/// Brings the elements of a period to the revision of 2015 and later: the numbering with 厚生年金, the rows
/// of the young engineers, 210 becomes 4. One transaction. Raises Store_Error.
void To_Law2015(const Session& session, int period);

/// Sets the law year of a period (1 to 4) where it has a row 210, and renumbers its elements so that they
/// mean what the screens of that law year read. One transaction. Raises Store_Error.
void Set_Law_Year(const Session& session, int period, int law_year);

} // namespace morvane
