// SPDX-FileCopyrightText: The Morvane developers
#include "data/output_file.h"

#include "data/store_error.h"
#include "data/store_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace morvane {

namespace fs = std::filesystem;

namespace {

constexpr const char* writing = "書き込み";

/// Files by which an installation folder is known.
constexpr std::array installation_marks = {"install_info.json", "Morvane.dat", "Jgmas.dat"};

/// Writes into what stands there.
void Write_Into(const fs::path& target, std::string_view bytes) {
    const int file = ::open(target.c_str(), O_WRONLY | O_TRUNC | O_NOCTTY | O_CLOEXEC);
    if (file < 0) {
        Throw_Errno(target, writing);
    }
    int failure = 0;
    while (!bytes.empty() && failure == 0) {
        const ssize_t done = ::write(file, bytes.data(), bytes.size());
        if (done >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(done));
        } else if (errno != EINTR) {
            failure = errno;
        }
    }
    // The last failure of a network file system comes at the end.
    if (::close(file) != 0 && failure == 0 && errno != EINTR) {
        failure = errno;
    }
    if (failure != 0) {
        errno = failure;
        Throw_Errno(target, writing);
    }
}

// /dev/stdout, /dev/fd/63: names of what the shell has opened, whatever stands behind them.
bool Is_Open_File(const fs::path& target) {
    std::error_code error;
    const fs::path folder = fs::canonical(fs::absolute(target).parent_path(), error);
    return !error && (folder == "/dev" || folder.string().starts_with("/proc/"));
}

bool Can_Be_Replaced(const fs::path& file, const struct stat& status) {
    const fs::path folder = fs::absolute(file).parent_path();
    return S_ISREG(status.st_mode) && status.st_uid == ::geteuid() && status.st_nlink == 1 &&
           ::access(folder.c_str(), W_OK) == 0;
}

/// Where a chain of links ends; links that lead round in a circle end nowhere.
fs::path Behind_Links(fs::path target) {
    constexpr int most_links = 40;
    std::error_code error;
    for (int i = 0; fs::is_symlink(target, error); ++i) {
        if (i == most_links) {
            errno = ELOOP;
            Throw_Errno(target, writing);
        }
        const fs::path next = fs::read_symlink(target, error);
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return target;
}

// A folder with settings or a working store is one that the program works in.
bool Is_Installation(const fs::path& folder) {
    return std::any_of(installation_marks.begin(), installation_marks.end(), [&folder](const char* mark) {
        std::error_code error;
        return fs::exists(Find_File(folder, mark), error);
    });
}

/// Whether a folder is that of an installation, or one below it that holds its files.
bool Is_Of_Installation(const fs::path& folder) {
    if (Is_Installation(folder)) {
        return true;
    }
    fs::path below = folder;
    for (fs::path above = folder.parent_path(); above != below; above = above.parent_path()) {
        const fs::path name = below.filename();
        if ((name == "data" || name == "templates") && Is_Installation(above)) {
            return true;
        }
        below = above;
    }
    return false;
}

/// Whether a file is a store, wherever it stands and whatever its name is: pages, whose bytes are random
/// (encrypted) and so unlike those of any text.
bool Is_A_Store(const fs::path& file, const struct stat& status) {
    constexpr off_t smallest_page = 512;
    if (!S_ISREG(status.st_mode) || status.st_size == 0 || status.st_size % smallest_page != 0) {
        return false;
    }
    std::array<char, smallest_page> page{};
    std::ifstream(file, std::ios::binary).read(page.data(), page.size());
    return std::string_view(page.data(), 5) != "%PDF-" && std::any_of(page.begin(), page.end(), [](char c) {
               return c >= 0 && c < ' ' && c != '\n' && c != '\r' && c != '\t' && c != '\f';
           });
}

} // namespace

void Test_Output_Place(const fs::path& target) {
    const fs::path file = Behind_Links(target);
    std::error_code error;
    const fs::path real = fs::canonical(fs::absolute(file).parent_path(), error);
    if (Is_Of_Installation(fs::absolute(file).lexically_normal().parent_path()) ||
        (!error && Is_Of_Installation(real))) {
        throw Store_Error(target, Store_Error::Reason::Failed,
                          "Morvaneのデータフォルダです。ほかのフォルダを指定してください");
    }
    struct stat status = {};
    if (::stat(file.c_str(), &status) == 0 && Is_A_Store(file, status)) {
        throw Store_Error(target, Store_Error::Reason::Failed,
                          "Morvaneのデータファイルです。ほかの名前を指定してください");
    }
}

void Write_Output(const fs::path& target, std::string_view bytes) {
    struct stat status = {};
    if (Is_Open_File(target)) {
        Write_Into(target, bytes);
        return;
    }
    Test_Output_Place(target);
    const fs::path file = Behind_Links(target);
    if (::stat(file.c_str(), &status) != 0) {
        if (errno != ENOENT) {
            Throw_Errno(target, writing);
        }
        const fs::path folder = fs::absolute(file).parent_path();
        if (!fs::exists(folder)) {
            throw Store_Error(folder, Store_Error::Reason::Missing, "保存先のフォルダ");
        }
        Write_Text_File(file, bytes);
        return;
    }
    if (S_ISDIR(status.st_mode)) {
        throw Store_Error(target, Store_Error::Reason::Failed, "フォルダです");
    }
    // The administrator could write into any file; one that is closed to all is meant to stay.
    constexpr mode_t any_writer = S_IWUSR | S_IWGRP | S_IWOTH;
    if ((status.st_mode & any_writer) == 0 || ::access(file.c_str(), W_OK) != 0) {
        throw Store_Error(target, Store_Error::Reason::Read_Only, writing);
    }
    if (!Can_Be_Replaced(file, status)) {
        Write_Into(file, bytes);
        return;
    }
    File_Replacement replacement = File_Replacement::With_Text(bytes, file);
    if (::chmod(replacement.Draft().c_str(), status.st_mode & 07777) != 0) {
        Throw_Errno(target, writing);
    }
    replacement.Commit();
}

} // namespace morvane
