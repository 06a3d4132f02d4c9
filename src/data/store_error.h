// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace morvane {

/// A store or another file of the installation that cannot be opened, read, written or replaced. The text is
/// Japanese and names the file and the reason; nothing of the failed operation has been kept.
class Store_Error : public std::runtime_error {
  public:
    enum class Reason {
        Missing,        ///< no such file
        Not_A_Store,    ///< empty, cut short, of another program, or under another password
        Damaged,        ///< a page that does not verify
        Read_Only,      ///< file or folder without write permission
        Disk_Full,      ///< no space left
        Busy,           ///< held by another process
        Missing_Table,  ///< a table that the catalogue names is not there
        Missing_Column, ///< a column that the catalogue names is not there
        Bad_Content,    ///< a text file (marker, settings) that cannot be read as such
        Failed          ///< any other failure of the file system or the store engine
    };

    Store_Error(std::filesystem::path failed_file, Reason why, const std::string& detail);

    std::filesystem::path file;
    Reason reason;
};

/// The Japanese text of a reason, without the file.
std::string Reason_Text(Store_Error::Reason reason);

/// The reason behind a failed system call's errno.
Store_Error::Reason Reason_Of_Errno(int error_number);

/// Raises the Store_Error of the current errno for `file`; `doing` is the Japanese name of the step.
[[noreturn]] void Throw_Errno(const std::filesystem::path& file, const std::string& doing);

} // namespace morvane
