// SPDX-FileCopyrightText: The Morvane developers
#include "session/instance_lock.h"

#include "data/store_error.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace morvane {

namespace {

/// The number that an open lock file records; 0 for none or for anything else.
std::int32_t Record_In(int descriptor) {
    std::array<char, 32> text{};
    const ssize_t size = ::pread(descriptor, text.data(), text.size(), 0);
    std::int32_t number = 0;
    if (size > 0) {
        std::from_chars(text.data(), text.data() + size, number);
    }
    return number;
}

bool Is_Regular(int descriptor) {
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

std::filesystem::path Lock_File(const std::filesystem::path& app_path) {
    return app_path / "morvane.lock";
}

} // namespace

std::optional<Instance_Lock> Instance_Lock::Take(const std::filesystem::path& app_path) {
    const std::filesystem::path file = Lock_File(app_path);
    const int descriptor =
        ::open(file.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        if (errno == ENOENT) {
            throw Store_Error(app_path, Store_Error::Reason::Missing, "フォルダ");
        }
        Throw_Errno(file, "起動の確認");
    }
    if (!Is_Regular(descriptor)) {
        ::close(descriptor);
        throw Store_Error(file, Store_Error::Reason::Failed, "通常のファイルではありません");
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const int error_number = errno;
        ::close(descriptor);
        if (error_number == EWOULDBLOCK) {
            return std::nullopt;
        }
        errno = error_number;
        Throw_Errno(file, "起動の確認");
    }
    return Instance_Lock(descriptor, Record_In(descriptor));
}

std::int32_t Instance_Lock::Recorded(const std::filesystem::path& app_path) {
    const int descriptor =
        ::open(Lock_File(app_path).c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return 0;
    }
    const std::int32_t number = Is_Regular(descriptor) ? Record_In(descriptor) : 0;
    ::close(descriptor);
    return number;
}

Instance_Lock::Instance_Lock(Instance_Lock&& other) noexcept
    : descriptor(std::exchange(other.descriptor, -1)), left_behind(other.left_behind) {}

Instance_Lock::~Instance_Lock() {
    if (descriptor >= 0) {
        ::close(descriptor);
    }
}

void Instance_Lock::Record(std::int32_t kanri_no) const {
    // Eleven characters hold every 32-bit number, so that a shorter one always overwrites a longer one.
    std::string text = std::to_string(kanri_no);
    text.resize(11, ' ');
    text += '\n';
    static_cast<void>(::pwrite(descriptor, text.data(), text.size(), 0) > 0);
}

} // namespace morvane
