// SPDX-FileCopyrightText: The Morvane developers
#include "session/instance_lock.h"

#include "data/store_error.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace morvane {

std::optional<Instance_Lock> Instance_Lock::Take(const std::filesystem::path& app_path) {
    const std::filesystem::path file = app_path / "morvane.lock";
    const int descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (descriptor < 0) {
        Throw_Errno(file, "起動の確認");
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
    std::array<char, 32> text{};
    const ssize_t size = ::pread(descriptor, text.data(), text.size(), 0);
    std::int32_t left = 0;
    if (size > 0) {
        std::from_chars(text.data(), text.data() + size, left);
    }
    return Instance_Lock(descriptor, left);
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
