// SPDX-FileCopyrightText: The Morvane developers
#include "data/store_file.h"

#include "data/same_name.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <regex>
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
               mode_t mode = 0644)
        : file(shown), number(::open(path.c_str(), flags | O_CLOEXEC, mode)) {
        if (number < 0) {
            Throw_Errno(file, doing);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { ::close(number); }

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

fs::path Folder_Of(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

void Flush_Folder(const fs::path& folder) {
    Descriptor(folder, O_RDONLY | O_DIRECTORY, "フォルダの確認", folder).Flush();
}

fs::path Beside(const fs::path& target, const char* role) {
    static std::atomic<unsigned> counter{0};
    return Folder_Of(target) / ("." + target.filename().string() + "." + role + std::to_string(::getpid()) +
                                "-" + std::to_string(counter++));
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
    if (fs::exists(Journal_Of(store))) {
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

// A file that stands at `to` can only be the rest of a process that is gone.
void Copy_Content(const fs::path& from, const fs::path& to, const fs::path& shown) {
    const Descriptor in(from, O_RDONLY, "開く処理", from);
    const Descriptor out(to, O_WRONLY | O_CREAT | O_TRUNC, "書き込み", shown);
    // Whoever may not read the one may not read the other.
    struct stat status = {};
    if (::stat(from.c_str(), &status) == 0) {
        static_cast<void>(::chmod(to.c_str(), status.st_mode & 0777) == 0);
    }
    std::vector<char> buffer(1U << 18U);
    while (const std::size_t size = in.Read_Some(buffer)) {
        out.Write_All(buffer.data(), size);
    }
    out.Flush();
}

} // namespace

fs::path Find_File(const fs::path& folder, std::string_view name) {
    const fs::path given = folder / fs::path(name);
    std::error_code error;
    if (fs::exists(given, error)) {
        return given;
    }
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        if (Same_Name(entry.path().filename().string(), name)) {
            return entry.path();
        }
    }
    return given;
}

void Verify_Store(const fs::path& store, const Store_Key& key) {
    const Connection connection(store, key, Connection::Mode::Read_Only);
    Statement check = connection.Prepare("PRAGMA quick_check(1)");
    if (!check.Step() || check.Text_At(0) != "ok") {
        throw Store_Error(store, Store_Error::Reason::Damaged, "検査結果 " + std::string(check.Text_At(0)));
    }
}

File_Replacement::File_Replacement(fs::path target_file)
    : target(std::move(target_file)), temporary(Beside(target, "new")) {}

File_Replacement::File_Replacement(File_Replacement&& other) noexcept
    : target(std::move(other.target)), temporary(std::exchange(other.temporary, {})),
      former(std::exchange(other.former, {})), committed(other.committed) {}

File_Replacement::~File_Replacement() {
    std::error_code ignored;
    for (const fs::path& rest : {temporary, former}) {
        if (!rest.empty()) {
            fs::remove(rest, ignored);
            fs::remove(Journal_Of(rest), ignored);
        }
    }
}

File_Replacement File_Replacement::With_Store(const fs::path& source, const fs::path& target,
                                              const Store_Key& key) {
    if (!fs::exists(source)) {
        throw Store_Error(source, Store_Error::Reason::Missing, "");
    }
    Settle_Journal(source, key);
    Settle_Target(target, key);
    File_Replacement replacement(target);
    Copy_Content(source, replacement.temporary, target);
    try {
        Verify_Store(replacement.temporary, key);
    } catch (const Store_Error& error) {
        throw Store_Error(source, error.reason, "コピーの検査");
    }
    return replacement;
}

File_Replacement File_Replacement::With_Text(std::string_view text, const fs::path& target,
                                             File_Readers readers) {
    File_Replacement replacement(target);
    const Descriptor out(replacement.temporary, O_WRONLY | O_CREAT | O_TRUNC, "書き込み", target,
                         readers == File_Readers::Owner ? 0600 : 0644);
    out.Write_All(text.data(), text.size());
    out.Flush();
    return replacement;
}

bool File_Replacement::Change(const Store_Key& key, const std::function<bool(const Connection&)>& change,
                              Connection::Mode mode) const {
    try {
        const Connection cn(temporary, key, mode);
        Transaction transaction(cn);
        if (!change(cn)) {
            return false;
        }
        transaction.Commit();
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
    const fs::path backup = Beside(target, "old");
    std::error_code ignored;
    fs::remove(backup, ignored);
    if (::link(target.c_str(), backup.c_str()) == 0) {
        former = backup;
        return;
    }
    if (errno == ENOENT) {
        return;
    }
    if (errno != EPERM && errno != EOPNOTSUPP) {
        Throw_Errno(target, "置き換えの準備");
    }
    // A file system without hard links (a USB stick) keeps a copy.
    former = backup;
    Copy_Content(target, backup, target);
}

void File_Replacement::Commit() {
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
    // The names of Beside, the stores that an import builds, and their journals.
    static const std::regex draft(R"(\.(.+\.(new|old)\d+-\d+|import-\d+-\d+\.dat)(-journal)?)");
    for (const fs::path& folder : {app_path, app_path / "data"}) {
        std::error_code error;
        std::vector<fs::path> drafts;
        for (const auto& entry : fs::directory_iterator(folder, error)) {
            const std::string name = entry.path().filename().string();
            if (name.front() == '.' && std::regex_match(name, draft)) {
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

std::string Read_Text_File(const fs::path& file) {
    const Descriptor in(file, O_RDONLY, "開く処理", file);
    std::string text;
    std::vector<char> buffer(1U << 16U);
    while (const std::size_t size = in.Read_Some(buffer)) {
        text.append(buffer.data(), size);
    }
    return text;
}

void Rename_Store(const fs::path& from, const fs::path& to, const Store_Key& key) {
    if (fs::exists(to)) {
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
