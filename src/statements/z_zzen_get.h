// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"
#include "session/session.h"

#include <cstdint>
#include <span>

namespace morvane {

/// Copies the figures that later scores need of the period before `kikan` into its own rows 820 to 838 (金額
/// and 改善後残高, yen). `dest` 1 writes into the auxiliary store, any other value into the working store. A
/// period without rows changes nothing. One transaction. Raises Store_Error, and Run_Time_Error where `kikan`
/// - 1 leaves 16 bits.
void Zen_Get(const Session& session, std::int16_t kikan, std::uint8_t dest);

/// The same from the second-prior period (`kikan` - 2) into rows 800 to 808.
void ZZen_Get(const Session& session, std::int16_t kikan, std::uint8_t dest);

/// Both blocks of the working store `cn` within the caller's transaction. Raises as Zen_Get.
void Fill_Prior_Figures(const Connection& cn, Edition edition, std::int16_t kikan);

/// The same for the rows in memory of periods that follow each other, all in one data form.
void Fill_Prior_Figures(std::span<Recordset> periods, Data_Form_No form);

} // namespace morvane
