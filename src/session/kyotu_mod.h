// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"
#include "law/accounts.h"
#include "law/quantity.h"
#include "session/session.h"

#include <cstdint>
#include <stop_token>
#include <string>

namespace morvane {

/// An amount as text with a comma after each group of three digits. Null and an empty text give an empty
/// text. A whole part of up to three digits comes back without its decimals (999.5 gives 999); longer ones
/// keep them.
std::string Comma_Str(const Value& value);

/// A figure of one unit.
template <class Unit, class Width>
std::string Comma_Str(Quantity<Unit, Width> figure) {
    return Comma_Str(Value(figure.Count()));
}

/// A difference of scores with an arrow and its sign, so that it is read without a colour: "↑ +12", "↓ -3",
/// "±0". The triangles that mark a rise elsewhere mark a negative amount in Japanese statements.
std::string Gain_Str(std::int32_t difference);

/// The same of single-precision figures with fixed decimals.
std::string Gain_Str(float difference, int decimals);

/// A single-precision figure with fixed decimals: its decimal digits are rounded, a half away from zero.
std::string Fixed_Str(float figure, int decimals);

/// Whether the screen `screen_no` has a note in the period in hand: a row whose question or advice is not
/// Null.
bool QandA_Flag(const Session& session, int screen_no);

/// 金額 (yen) of an account in an open statement result; 0 for a missing row or Null.
double Kamoku_Get(Account account, Recordset& rows);

/// 現状 of element `code` in an open element result; 0 for a missing row or Null.
double Yoso_Get(int code, Recordset& rows);

/// The data form of period `period`: 並び順 of its marker row 99 (Null reads 2); without the row 51, in the
/// Hokkaido edition 52. There a form 2 without a row 552, and a form 1, read 53.
Data_Form_No Get_Data_Ver(const Session& session, int period);
Data_Form_No Get_Data_Ver(const Connection& cn, Edition edition, int period);

/// The law year of a period: 現状 of element 210; the oldest where it is Null or has no row. Raises
/// Store_Error.
Law_Year_No Get_Simyu_Kubun(const Session& session, int period);
Law_Year_No Get_Simyu_Kubun(const Connection& cn, int period);

/// Opens an address with the desktop's default program, without a shell. Only web addresses (http, https) and
/// local help files (file) are accepted; false where the address is refused or nothing could be started.
bool Url_Open(const std::string& address);

/// How long a host that does not answer is waited for.
inline constexpr int net_check_ms = 3000;

/// Tests by a TCP connection whether `host` (host or host:port, port 443 by default) can be reached. "1"
/// reached, "0" not, also for an empty host. A request to stop ends the wait for an answer, though not the
/// search for the address of a name.
std::string Net_Check(const std::string& host, int timeout_ms = net_check_ms,
                      const std::stop_token& stop = {});

} // namespace morvane
