// SPDX-FileCopyrightText: The Morvane developers
#include "data/store_file.h"

#include "data/same_name.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace morvane {

namespace fs = std::filesystem;

namespace {

/// A file descriptor that closes itself.
class Descriptor {
  public:
    /// Failures name the file `shown`: of a draft its target.
    Descriptor(const fs::path& path, int flags, const std::string& doing, const fs::path& shown,
               mode_t mode = 0666)
        : file(shown), number(::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode)) {
        if (number >= 0) {
            return;
        }
        if (errno == ENOENT && (flags & O_CREAT) != 0) {
            throw Store_Error(file.has_parent_path() ? file.parent_path() : fs::path("."),
                              Store_Error::Reason::Missing, "フォルダ");
        }
        Throw_Errno(file, doing);
    }
    Descriptor(Descriptor&& other) noexcept
        : file(std::move(other.file)), number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number >= 0) {
            ::close(number);
        }
    }

    /// A file to be read that must be a regular one of at most `most` bytes; a pipe is not waited for.
    static Descriptor Of_File(const fs::path& path, Store_Error::Reason otherwise, std::size_t most) {
        Descriptor in(path, O_RDONLY | O_NONBLOCK, "読み込み", path);
        const struct stat status = in.Status();
        if (!S_ISREG(status.st_mode)) {
            throw Store_Error(path, otherwise, "フォルダや装置など、通常のファイルではありません");
        }
        if (static_cast<std::uintmax_t>(status.st_size) > most) {
            throw Store_Error(path, otherwise, "大きすぎます");
        }
        return in;
    }

    /// A draft: a file that is not there yet, not even as a link.
    static Descriptor Of_Draft(const fs::path& path, const fs::path& shown, mode_t mode) {
        return {path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, "書き込み", shown, mode};
    }

    [[nodiscard]] struct stat Status() const {
        struct stat status = {};
        if (::fstat(number, &status) != 0) {
            Throw_Errno(file, "読み込み");
        }
        return status;
    }

    /// Gives the file the mode of the one it takes the place of. One that lies where modes mean nothing is
    /// as it is.
    void Take_Mode(mode_t mode) const { static_cast<void>(::fchmod(number, mode) == 0); }

    void Write_All(const char* data, std::size_t size) const {
        while (size > 0) {
            const ssize_t done = ::write(number, data, size);
            if (done < 0 && errno == EINTR) {
                continue;
            }
            if (done < 0) {
                Throw_Errno(file, "書き込み");
            }
            data += done;
            size -= static_cast<std::size_t>(done);
        }
    }

    [[nodiscard]] std::size_t Read_Some(std::vector<char>& buffer) const {
        for (;;) {
            const ssize_t done = ::read(number, buffer.data(), buffer.size());
            if (done >= 0) {
                return static_cast<std::size_t>(done);
            }
            if (errno != EINTR) {
                Throw_Errno(file, "読み込み");
            }
        }
    }

    void Flush() const {
        if (::fsync(number) != 0) {
            Throw_Errno(file, "ディスクへの書き出し");
        }
    }

  private:
    fs::path file;
    int number;
};

// No company comes near that.
constexpr std::size_t most_store_bytes = std::size_t{1} << 30U;

fs::path Folder_Of(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

void Flush_Folder(const fs::path& folder) {
    Descriptor(folder, O_RDONLY | O_DIRECTORY, "フォルダの確認", folder).Flush();
}

// Drafts bear names that nobody can foretell.
fs::path Beside(const fs::path& target, const char* role) {
    std::uint64_t chance = 0;
    if (::getentropy(&chance, sizeof chance) != 0) {
        Throw_Errno(target, "書き込み");
    }
    return Folder_Of(target) / ("." + target.filename().string() + "." + role + std::to_string(::getpid()) +
                                "-" + std::to_string(chance));
}

void Rename(const fs::path& from, const fs::path& to) {
    if (std::rename(from.c_str(), to.c_str()) != 0) {
        Throw_Errno(to, "置き換え");
    }
}

fs::path Journal_Of(const fs::path& store) {
    return store.string() + "-journal";
}

// A write that a crash interrupted is rolled back by opening the store for writing.
void Settle_Journal(const fs::path& store, const Store_Key& key) {
    if (Is_There(Journal_Of(store))) {
        Connection(store, key).Close();
    }
}

// The same for a store that is about to be replaced: should the replacement fail, a whole file stays. One
// that does not open has nothing to lose.
void Settle_Target(const fs::path& store, const Store_Key& key) {
    try {
        Settle_Journal(store, key);
    } catch (const Store_Error& error) {
        using enum Store_Error::Reason;
        if (error.reason != Missing && error.reason != Not_A_Store && error.reason != Damaged) {
            throw;
        }
    }
}

// A journal that is left over must never meet a new file of the same name.
void Drop_Journal(const fs::path& store) {
    const fs::path journal = Journal_Of(store);
    if (::unlink(journal.c_str()) == 0) {
        Flush_Folder(Folder_Of(store));
    } else if (errno != ENOENT) {
        Throw_Errno(journal, "削除");
    }
}

/// What stands at a path, links followed; empty for nothing.
std::optional<struct stat> Status_Of(const fs::path& file) {
    struct stat status = {};
    if (::stat(file.c_str(), &status) == 0) {
        return status;
    }
    if (errno != ENOENT && errno != ENOTDIR) {
        Throw_Errno(file, "読み込み");
    }
    return std::nullopt;
}

/// What stands where a file is to be put: a regular file or nothing.
std::optional<struct stat> Status_Of_Target(const fs::path& target) {
    const auto status = Status_Of(target);
    if (status && !S_ISREG(status->st_mode)) {
        throw Store_Error(target, Store_Error::Reason::Failed,
                          "フォルダや装置など、通常のファイルではありません");
    }
    return status;
}

// Stores are their owner's. Where the group could write the former one, that was given to it on purpose.
mode_t Store_Mode(const std::optional<struct stat>& former) {
    return former && (former->st_mode & S_IWGRP) != 0 ? 0660 : 0600;
}

enum class Flush : bool { Now, Later };

void Copy_Content(const fs::path& from, const fs::path& to, const fs::path& shown, mode_t mode,
                  Flush flush = Flush::Now) {
    const Descriptor in = Descriptor::Of_File(from, Store_Error::Reason::Not_A_Store, most_store_bytes);
    const Descriptor out = Descriptor::Of_Draft(to, shown, 0600);
    out.Take_Mode(mode);
    std::vector<char> buffer(1U << 18U);
    while (const std::size_t size = in.Read_Some(buffer)) {
        out.Write_All(buffer.data(), size);
    }
    if (flush == Flush::Now) {
        out.Flush();
    }
}

/// Puts a file under a second name: a link, or a copy where the file system has none.
void Put_Under(const fs::path& file, const fs::path& name) {
    if (::link(file.c_str(), name.c_str()) == 0) {
        return;
    }
    if (errno != EPERM && errno != EOPNOTSUPP) {
        Throw_Errno(file, "退避");
    }
    const auto status = Status_Of(file);
    try {
        Copy_Content(file, name, file, status ? status->st_mode & 0777 : 0600);
    } catch (const Store_Error&) {
        ::unlink(name.c_str());
        throw;
    }
}

bool Is_Digits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

/// Whether a text is two numbers with a hyphen between them.
bool Is_Number_Pair(std::string_view text) {
    const auto hyphen = text.find('-');
    return hyphen != text.npos && Is_Digits(text.substr(0, hyphen)) && Is_Digits(text.substr(hyphen + 1));
}

/// The names of Beside and their journals.
bool Is_Draft(std::string_view name) {
    constexpr std::string_view journal = "-journal";
    if (name.ends_with(journal)) {
        name.remove_suffix(journal.size());
    }
    const auto dot = name.rfind('.');
    return name.starts_with('.') && dot > 1 && dot != name.npos &&
           (name.substr(dot).starts_with(".new") || name.substr(dot).starts_with(".old")) &&
           Is_Number_Pair(name.substr(dot + 4));
}

std::tm Today() {
    const std::time_t now = std::time(nullptr);
    std::tm today = {};
    ::localtime_r(&now, &today);
    return today;
}

} // namespace

fs::path Find_File(const fs::path& folder, std::string_view name) {
    const fs::path given = folder / fs::path(name);
    std::error_code error;
    if (fs::exists(given, error)) {
        return given;
    }
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (Same_Name(entry->path().filename().string(), name)) {
            return entry->path();
        }
    }
    return given;
}

bool Is_There(const fs::path& file) {
    struct stat status = {};
    if (::lstat(file.c_str(), &status) == 0) {
        return true;
    }
    if (errno != ENOENT && errno != ENOTDIR) {
        Throw_Errno(file, "読み込み");
    }
    return false;
}

void Verify_Store(const fs::path& store, const Store_Key& key) {
    const Connection connection(store, key, Connection::Mode::Read_Only);
    Statement check = connection.Prepare("PRAGMA quick_check(1)");
    if (!check.Step() || check.Text_At(0) != "ok") {
        throw Store_Error(store, Store_Error::Reason::Damaged, "全ページの検査");
    }
}

File_Replacement::File_Replacement(fs::path target_file)
    : target(std::move(target_file)), temporary(Beside(target, "new")) {}

File_Replacement::File_Replacement(File_Replacement&& other) noexcept
    : target(std::move(other.target)), temporary(std::exchange(other.temporary, {})),
      former(std::exchange(other.former, {})), complete(other.complete), committed(other.committed) {}

File_Replacement::~File_Replacement() {
    std::error_code ignored;
    for (const fs::path& rest : {temporary, former}) {
        if (!rest.empty()) {
            fs::remove(rest, ignored);
            fs::remove(Journal_Of(rest), ignored);
        }
    }
}

File_Replacement File_Replacement::With_Draft(const fs::path& source, const fs::path& target,
                                              const Store_Key& key) {
    if (!Is_There(source)) {
        throw Store_Error(source, Store_Error::Reason::Missing, "");
    }
    const auto former = Status_Of_Target(target);
    Settle_Journal(source, key);
    Settle_Target(target, key);
    File_Replacement replacement(target);
    Copy_Content(source, replacement.temporary, target, Store_Mode(former), Flush::Later);
    replacement.complete = false;
    return replacement;
}

File_Replacement File_Replacement::With_Store(const fs::path& source, const fs::path& target,
                                              const Store_Key& key) {
    File_Replacement replacement = With_Draft(source, target, key);
    try {
        replacement.Finish_Draft(key);
    } catch (const Store_Error& error) {
        if (error.file != replacement.temporary) {
            throw;
        }
        throw Store_Error(source, error.reason, "コピーの検査");
    }
    return replacement;
}

void File_Replacement::Finish_Draft(const Store_Key& key) {
    Verify_Store(temporary, key);
    Descriptor(temporary, O_RDONLY, "読み込み", target).Flush();
    complete = true;
}

File_Replacement File_Replacement::With_Text(std::string_view text, const fs::path& target,
                                             File_Readers readers) {
    const auto former = Status_Of_Target(target);
    File_Replacement replacement(target);
    const bool of_owner = readers == File_Readers::Owner;
    const Descriptor out = Descriptor::Of_Draft(replacement.temporary, target, of_owner ? 0600 : 0666);
    if (former && !of_owner) {
        out.Take_Mode(former->st_mode & 0777);
    }
    out.Write_All(text.data(), text.size());
    out.Flush();
    return replacement;
}

bool File_Replacement::Change(const Store_Key& key, const std::function<bool(const Connection&)>& change) {
    complete = false;
    try {
        {
            const Connection cn(temporary, key, Connection::Mode::Scratch);
            Transaction transaction(cn);
            if (!change(cn)) {
                return false;
            }
            transaction.Commit();
        }
        Finish_Draft(key);
        return true;
    } catch (const Store_Error& error) {
        // The draft is nobody's file: the failure is that of the store it was to become.
        if (error.file != temporary) {
            throw;
        }
        throw Store_Error(target, error.reason, "新しい内容の作成");
    }
}

void File_Replacement::Keep_Former() {
    if (!Status_Of_Target(target)) {
        return;
    }
    former = Beside(target, "old");
    Put_Under(target, former);
}

void File_Replacement::Commit() {
    if (!complete) {
        throw std::logic_error("a draft that nobody filled");
    }
    Keep_Former();
    Drop_Journal(target);
    Rename(temporary, target);
    temporary.clear();
    committed = true;
    try {
        Flush_Folder(Folder_Of(target));
    } catch (...) {
        Undo();
        throw;
    }
}

void File_Replacement::Undo() {
    if (!committed) {
        return;
    }
    if (former.empty()) {
        if (::unlink(target.c_str()) != 0) {
            Throw_Errno(target, "削除");
        }
    } else {
        Rename(former, target);
        former.clear();
    }
    committed = false;
    Flush_Folder(Folder_Of(target));
}

void Sweep_Drafts(const fs::path& app_path) {
    for (const fs::path& folder : {app_path, app_path / "data"}) {
        std::error_code error;
        std::vector<fs::path> drafts;
        for (const auto& entry : fs::directory_iterator(folder, error)) {
            if (Is_Draft(entry.path().filename().string())) {
                drafts.push_back(entry.path());
            }
        }
        for (const fs::path& path : drafts) {
            fs::remove(path, error);
        }
    }
}

void Copy_Store(const fs::path& source, const fs::path& target, const Store_Key& key) {
    File_Replacement::With_Store(source, target, key).Commit();
}

void Write_Text_File(const fs::path& target, std::string_view text, File_Readers readers) {
    File_Replacement::With_Text(text, target, readers).Commit();
}

std::string Read_Text_File(const fs::path& file, std::size_t most) {
    const Descriptor in = Descriptor::Of_File(file, Store_Error::Reason::Bad_Content, most);
    std::string text;
    std::vector<char> buffer(1U << 16U);
    while (const std::size_t size = in.Read_Some(buffer)) {
        text.append(buffer.data(), size);
        if (text.size() > most) {
            throw Store_Error(file, Store_Error::Reason::Bad_Content, "大きすぎます");
        }
    }
    return text;
}

fs::path Set_Aside(const fs::path& file) {
    const std::tm today = Today();
    std::array<char, 16> date{};
    static_cast<void>(std::strftime(date.data(), date.size(), "-%Y%m%d", &today));
    const auto named = [&](int number) {
        return Folder_Of(file) /
               (file.stem().string() + date.data() + (number == 1 ? "" : "-" + std::to_string(number)) +
                file.extension().string());
    };
    int number = 1;
    while (Is_There(named(number)) || Is_There(Journal_Of(named(number)))) {
        ++number;
    }
    const fs::path aside = named(number);
    const auto status = Status_Of(file);
    if (!status || !S_ISREG(status->st_mode)) {
        Rename(file, aside);
    } else {
        if (Is_There(Journal_Of(file))) {
            Put_Under(Journal_Of(file), Journal_Of(aside));
        }
        Put_Under(file, aside);
    }
    Flush_Folder(Folder_Of(file));
    return aside;
}

void Keep_Backup(const fs::path& store, const Store_Key& key) {
    if (!Is_There(store)) {
        return;
    }
    std::tm today = Today();
    today.tm_hour = today.tm_min = today.tm_sec = 0;
    const std::time_t midnight = std::mktime(&today);
    fs::path backup = store.string() + ".bak";
    for (int number = 2;; ++number) {
        const auto status = Status_Of(backup);
        if (!status || status->st_mtime < midnight) {
            break;
        }
        backup = store.string() + ".bak" + std::to_string(number);
    }
    Copy_Store(store, backup, key);
}

void Rename_Store(const fs::path& from, const fs::path& to, const Store_Key& key) {
    if (Is_There(to)) {
        throw Store_Error(to, Store_Error::Reason::Failed, "同じ名前のファイルが既にあります");
    }
    Settle_Journal(from, key);
    Drop_Journal(to);
    Rename(from, to);
    Flush_Folder(Folder_Of(to));
}

void Remove_Store(const fs::path& store) {
    if (::unlink(store.c_str()) != 0) {
        Throw_Errno(store, "削除");
    }
    Drop_Journal(store);
    Flush_Folder(Folder_Of(store));
}

} // namespace morvane
