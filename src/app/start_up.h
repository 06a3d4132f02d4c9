// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/instance_lock.h"
#include "session/session.h"

#include <filesystem>
#include <functional>
#include <string>

namespace morvane {

/// Whether an edition has been chosen for the installation; without one the start asks for it.
bool Has_Edition(const Install_Info& info);

/// Sets the edition of an installation: its working store over Morvane.dat,
/// then the settings. A working store that already holds a company is kept as Morvane.dat.bak (.bak2 …).
/// Raises
/// Store_Error; nothing is chosen then.
void Choose_Edition(const std::filesystem::path& app_path, Edition edition);

/// Lets the updater replace itself between two runs: PgUpdataUP.exe becomes PgUpdata.exe. Only files that
/// belong to the installation are touched: plain files of the folder's owner that nobody else may write.
void Swap_Updater(const std::filesystem::path& app_path);

/// What the load of the frame found.
enum class Start_Result { Ready, Ended };

/// Builds the session at start, the lock being held: settings, first run, own company with its period dates,
/// or the company that an abnormal end left in the working store. `edit_own_company` shows the company screen
/// (single-company mode). Messages are shown on the way. Ended: the data are older than the form of 2008 or
/// the templates are none, the program ends. Raises Store_Error.
Start_Result Load_Session(Session& session, const Instance_Lock& lock,
                          const std::function<void()>& edit_own_company);

/// Before the frame closes: refuses while a screen is open ("編集中の画面を閉じてから終了して下さい。").
bool Query_Unload(const Session& session);

/// The frame's own close box with a company in hand is refused: its data have not been saved. The session is
/// taken from the marker again. True where the frame may go.
bool May_Unload(Session& session);

/// The normal end: check-in of the company in hand and the marker of a clean end, the lock records no
/// company. Raises Store_Error; the company is then still in hand.
void Normal_End(Session& session, const Instance_Lock& lock);

} // namespace morvane
