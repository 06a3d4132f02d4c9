// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cerrno>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

namespace morvane::tests {

/// Makes the n-th write operation of the process fail while the object lives. Counted are write, fsync,
/// rename, link and unlink of the program's own code and the writes, truncations, deletions and new files of
/// the store engine. Of the data of a failing write the first half still reaches the file. Reads never fail.
class Failing_Writes {
  public:
    enum class Manner {
        Once,         ///< only the n-th operation
        From_Then_On, ///< the n-th and all that follow
        Kill          ///< the process ends there, without a destructor
    };

    /// `fail_at` counts from 1; with 0 nothing fails and the operations are only counted.
    explicit Failing_Writes(int fail_at = 0, Manner how = Manner::Once, int with_error = EIO);
    Failing_Writes(const Failing_Writes&) = delete;
    Failing_Writes& operator=(const Failing_Writes&) = delete;
    ~Failing_Writes();

    /// A file system may know no hard links.
    void Allow_Links(bool allowed) { links = allowed; }

    [[nodiscard]] int Count() const { return count; }
    [[nodiscard]] bool Has_Failed() const { return failed; }

    /// Takes note of an operation and tells whether it is to fail; then half of it is done and errno is set.
    bool Next_Fails(const std::function<void()>& half_of_it);
    [[nodiscard]] bool Links() const { return links; }

  private:
    int failing;
    Manner manner;
    int error;
    int count = 0;
    bool failed = false;
    bool links = true;
};

/// The files below a folder with their content.
using File_Contents = std::map<std::filesystem::path, std::string>;
File_Contents Read_Files(const std::filesystem::path& folder);

/// Makes a folder hold exactly these files.
void Write_Files(const std::filesystem::path& folder, const File_Contents& files);

/// How an attempt ended.
enum class Outcome { Finished, Threw, Killed };

/// Lets every single write operation of `act` fail: `prepare`, `act`, `check` for each. The first and the
/// last dozen, where files are opened, flushed and renamed, fail in every manner; those between them, pages
/// that are written one after the other, in one of the manners by turns. A killed attempt runs in a process
/// of its own. The first run of all is without failure.
void Fail_Every_Write(const std::function<void()>& prepare, const std::function<void()>& act,
                      const std::function<void(Outcome)>& check, bool hard_links = true);

/// The same where the files of `folder` must be, by what `state` tells of them, as they were before `act` or
/// as its good run leaves them: the former after a failure, either after a kill. Where files are replaced, a
/// failure of everything behind the replacement may leave the new ones; a kill leaves drafts.
void Expect_All_Or_Nothing(const std::filesystem::path& folder, const std::function<void()>& act,
                           const std::function<std::map<std::string, std::string>()>& state,
                           bool by_replacement = false);

} // namespace morvane::tests
