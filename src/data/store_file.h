// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/connection.h"
#include "data/store_key.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace morvane {

/// The file `name` in `folder`, found without regard to the case of ASCII letters; the given spelling where
/// nothing matches.
std::filesystem::path Find_File(const std::filesystem::path& folder, std::string_view name);

/// Whether something stands at a path, be it a folder or the end of a link that leads nowhere. Raises
/// Store_Error where that cannot be told (a folder above it may not be looked into).
bool Is_There(const std::filesystem::path& file);

/// Reads every page of a store with the key. Raises Store_Error where it does not open or verify.
void Verify_Store(const std::filesystem::path& store, const Store_Key& key);

/// Who can read a file that is written.
enum class File_Readers {
    All,  ///< whom the umask allows, or the file that is replaced
    Owner ///< nobody but its owner: it holds secrets
};

/// A file about to be replaced (only a regular file is, or one that is not there yet): the new content stands
/// beside the target, complete and flushed to disk, and Commit renames it over. Until then, and when the
/// object goes without Commit, the target is as it was.
class File_Replacement {
  public:
    /// The new content is a copy of the store `source`, verified with the key. An interrupted write in the
    /// source is rolled back first. Only its owner can read the new file, and the group that could write the
    /// former one. Raises Store_Error.
    static File_Replacement With_Store(const std::filesystem::path& source,
                                       const std::filesystem::path& target, const Store_Key& key);

    /// The new content is a copy of the store `source` that Change is still to fill.
    static File_Replacement With_Draft(const std::filesystem::path& source,
                                       const std::filesystem::path& target, const Store_Key& key);

    /// The new content is `text`.
    static File_Replacement With_Text(std::string_view text, const std::filesystem::path& target,
                                      File_Readers readers = File_Readers::All);

    File_Replacement(File_Replacement&& other) noexcept;
    File_Replacement& operator=(File_Replacement&&) = delete;
    File_Replacement(const File_Replacement&) = delete;
    File_Replacement& operator=(const File_Replacement&) = delete;
    ~File_Replacement();

    /// The new content before Commit, for changes that belong to it.
    [[nodiscard]] const std::filesystem::path& Draft() const { return temporary; }

    /// Changes a draft, written in one go that is then verified and flushed. Where `change` gives false
    /// nothing is kept, which is returned. Failures of the draft are raised as those of the target.
    bool Change(const Store_Key& key, const std::function<bool(const Connection&)>& change);

    /// Puts the new content in place. The former file is kept until the object goes, for Undo. Where it fails
    /// the target is as it was, unless the way back fails too.
    void Commit();

    /// Puts the former file back (or removes the new one where there was none). Nothing where nothing stands
    /// in its place.
    void Undo();

  private:
    explicit File_Replacement(std::filesystem::path target_file);
    void Finish_Draft(const Store_Key& key);
    void Keep_Former();

    std::filesystem::path target;
    std::filesystem::path temporary;
    std::filesystem::path former;
    bool complete = true; ///< verified and flushed
    bool committed = false;
};

/// Removes the drafts that killed processes left in an installation folder and its data folder. None of them
/// is needed: a target is replaced by a rename and stands whole at every moment, so that a new content that
/// did not get there and a former one that was kept for the way back are both copies. To be called with the
/// instance lock held. What cannot be removed stays without a word.
void Sweep_Drafts(const std::filesystem::path& app_path);

/// Copies a store over another one: written beside the target, verified, renamed. Raises Store_Error.
void Copy_Store(const std::filesystem::path& source, const std::filesystem::path& target,
                const Store_Key& key);

/// Writes a small text file whole: beside the target first, then renamed. Raises Store_Error.
void Write_Text_File(const std::filesystem::path& target, std::string_view text,
                     File_Readers readers = File_Readers::All);

/// How long a text file may be that is read whole, in bytes.
inline constexpr std::size_t most_text_bytes = std::size_t{64} << 20U;

/// Reads a small text file. Raises Store_Error, also for what is no regular file or is longer than `most`.
std::string Read_Text_File(const std::filesystem::path& file, std::size_t most = most_text_bytes);

/// Keeps a file that is about to be replaced or remade under a dated name beside it
/// (Morvane-20250331.dat, Morvane-20250331-2.dat), with its journal, and gives that name; nothing is
/// overwritten. A regular file stays in its place too, anything else (a folder, a pipe) leaves it. Raises
/// Store_Error.
std::filesystem::path Set_Aside(const std::filesystem::path& file);

/// Copies a store that is about to be replaced to its name with the ending .bak. A copy of the same day is
/// not overwritten: the next one ends in .bak2, .bak3. Nothing where no store stands. Raises Store_Error.
void Keep_Backup(const std::filesystem::path& store, const Store_Key& key);

/// Renames a store that is closed, with its flush to disk; an interrupted write in it is rolled back first.
/// Raises Store_Error; an existing target is refused.
void Rename_Store(const std::filesystem::path& from, const std::filesystem::path& to, const Store_Key& key);

/// Removes a store. Raises Store_Error.
void Remove_Store(const std::filesystem::path& store);

} // namespace morvane
