// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "company/new_installation.h"
#include "session/instance_lock.h"
#include "session/messages.h"
#include "session/session.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace morvane {

/// A wrong argument or a folder that is none: the tool ends with status 2.
class Usage_Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Notices of the system's routines on the error stream. Questions take their default answer.
class Stderr_Messages : public Messages {
  public:
    Answer Show(const Message_Box& box) override;
};

/// A text as one line in which nothing reaches the terminal raw, for lists in which each line is one entry.
std::string One_Line(std::string text);

/// A company of an installation: its number, its name and where its newest state is. Thousands of them are
/// held at a time, so the path itself is formed when it is needed.
struct Company {
    enum class Place : std::uint8_t { Resting_Store, Working_Store, Nowhere };

    std::int32_t number = 0;
    std::string name;
    Place place = Place::Resting_Store;
};

/// The file that holds a company's newest state. Raises Score_Refusal for a number that is not registered.
std::filesystem::path File_Of(const Session& session, const Company& company);

/// The same, of which it is certain that it is that company's, in the edition of the installation. Raises
/// Store_Error where it is not, or cannot be read.
std::filesystem::path Store_Of(const Session& session, const Company& company);

/// Opens the store of a company for reading, with the same certainty.
Connection Open_Company(const Session& session, const Company& company);

/// Opens the installation in `folder`. Raises Usage_Error where it is none, Store_Error where its settings
/// fail.
Session Open_Installation(const std::filesystem::path& folder, Messages& messages);

/// Takes the lock for a command that writes. Raises Usage_Error while the desktop program holds the folder.
Instance_Lock Lock_Installation(const Session& session);

/// All companies: those of the register, or the one of the working store in single mode. A company that a
/// session broken off left in the working store is read from there. Raises Store_Error.
std::vector<Company> Companies_Of(const Session& session);

/// The company whose newest state the working store holds in multi-company mode, because the desktop program
/// has it in hand or was broken off; 0 none.
std::int32_t Company_Left_In_Hand(const Session& session);

/// Makes an installation folder from the delivered templates and gives its lock. Raises Usage_Error where any
/// part of one stands there already or another process holds the folder. What fails leaves no part behind.
Instance_Lock Init_Installation(const std::filesystem::path& folder, const Init_Options& options);

/// Makes what the installation in a folder has lost (see Repair_Installation). Raises Usage_Error where no
/// part of one is there or the desktop program holds it.
std::vector<std::string> Repair_Folder(const std::filesystem::path& folder, std::optional<Edition> edition);

/// The folder of the delivered templates: beside the program, or where it is installed. Raises Usage_Error.
std::filesystem::path Templates_Folder();

/// The case files of the sample firms of an edition. Raises Usage_Error where they are not delivered.
std::vector<std::filesystem::path> Sample_Cases(Edition edition);

} // namespace morvane
