// SPDX-FileCopyrightText: The Morvane developers
#include "support/failing_writes.h"

#include "data/store_error.h"
#include "data/store_file.h"

#include <array>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sqlcipher/sqlite3.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

// What the linker puts in the place of the program's own calls, and the true ones.
extern "C" {
ssize_t __real_write(int file, const void* data, std::size_t size);
int __real_fsync(int file);
int __real_rename(const char* from, const char* to);
int __real_link(const char* from, const char* to);
int __real_unlink(const char* path);
ssize_t __wrap_write(int file, const void* data, std::size_t size);
int __wrap_unlink(const char* path);
}

namespace morvane::tests {

namespace fs = std::filesystem;

namespace {

// The system's calls have no argument for a device, hence the one global of the tests.
Failing_Writes* device = nullptr;

template <class Call>
int Counted(Call call) {
    return device != nullptr && device->Next_Fails([] {}) ? -1 : call();
}

/// Half of the data of a failing write is written.
template <class Call>
ssize_t Counted_Write(std::size_t size, Call call) {
    const auto half = [&] { static_cast<void>(call(size / 2)); };
    return device != nullptr && device->Next_Fails(half) ? -1 : call(size);
}

using Engine_Call = sqlite3_syscall_ptr;

ssize_t Engine_Pwrite(int file, const void* data, std::size_t size, off_t at) {
    return Counted_Write(size, [&](std::size_t part) { return ::pwrite(file, data, part, at); });
}

int Engine_Truncate(int file, off_t size) {
    return Counted([&] { return ::ftruncate(file, size); });
}

int (*engine_open)(const char*, int, int) = nullptr;

int Engine_Open(const char* path, int flags, int mode) {
    if ((flags & O_CREAT) != 0 && ::access(path, F_OK) != 0) {
        return Counted([&] { return engine_open(path, flags, mode); });
    }
    return engine_open(path, flags, mode);
}

void Hook_Engine(bool on) {
    sqlite3_vfs* const vfs = sqlite3_vfs_find(nullptr);
    const std::pair<const char*, Engine_Call> calls[] = {
        {"write", reinterpret_cast<Engine_Call>(__wrap_write)},
        {"pwrite", reinterpret_cast<Engine_Call>(Engine_Pwrite)},
        {"pwrite64", reinterpret_cast<Engine_Call>(Engine_Pwrite)},
        {"ftruncate", reinterpret_cast<Engine_Call>(Engine_Truncate)},
        {"unlink", reinterpret_cast<Engine_Call>(__wrap_unlink)},
        {"open", reinterpret_cast<Engine_Call>(Engine_Open)},
    };
    for (const auto& [name, call] : calls) {
        const Engine_Call own = vfs->xGetSystemCall(vfs, name);
        if (own == nullptr) {
            continue;
        }
        if (on && std::string_view(name) == "open") {
            engine_open = reinterpret_cast<int (*)(const char*, int, int)>(own);
        }
        vfs->xSetSystemCall(vfs, name, on ? call : nullptr);
    }
}

} // namespace

Failing_Writes::Failing_Writes(int fail_at, Manner how, int with_error)
    : failing(fail_at), manner(how), error(with_error) {
    sqlite3_initialize();
    Hook_Engine(true);
    device = this;
}

Failing_Writes::~Failing_Writes() {
    device = nullptr;
    Hook_Engine(false);
}

bool Failing_Writes::Next_Fails(const std::function<void()>& half_of_it) {
    ++count;
    if (failing == 0 || count < failing || (manner == Manner::Once && count > failing)) {
        return false;
    }
    failed = true;
    half_of_it();
    if (manner == Manner::Kill) {
        ::_exit(1);
    }
    errno = error;
    return true;
}

File_Contents Read_Files(const fs::path& folder) {
    File_Contents files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            std::ifstream in(entry.path(), std::ios::binary);
            files[fs::relative(entry.path(), folder)] = {std::istreambuf_iterator<char>(in), {}};
        }
    }
    return files;
}

void Write_Files(const fs::path& folder, const File_Contents& files) {
    const File_Contents present = Read_Files(folder);
    for (const auto& [name, content] : present) {
        if (!files.contains(name)) {
            fs::remove(folder / name);
        }
    }
    for (const auto& [name, content] : files) {
        const auto found = present.find(name);
        if (found == present.end() || found->second != content) {
            std::ofstream(folder / name, std::ios::binary | std::ios::trunc) << content;
        }
    }
}

void Fail_Every_Write(const std::function<void()>& prepare, const std::function<void()>& act,
                      const std::function<void(Outcome)>& check, bool hard_links) {
    const auto attempt = [&](Failing_Writes& writes) {
        writes.Allow_Links(hard_links);
        try {
            act();
            return Outcome::Finished;
        } catch (const Store_Error&) {
            return Outcome::Threw;
        }
    };
    prepare();
    int writes_of_good_run = 0;
    {
        Failing_Writes writes;
        ASSERT_EQ(attempt(writes), Outcome::Finished);
        writes_of_good_run = writes.Count();
    }
    ASSERT_NO_FATAL_FAILURE(check(Outcome::Finished));
    ASSERT_GT(writes_of_good_run, 0);
    constexpr std::array manners = {std::pair(Failing_Writes::Manner::Once, EIO),
                                    std::pair(Failing_Writes::Manner::From_Then_On, ENOSPC),
                                    std::pair(Failing_Writes::Manner::Kill, 0)};
    const auto fail = [&](int at, Failing_Writes::Manner manner, int error) {
        Failing_Writes writes(at, manner, error);
        const Outcome outcome = attempt(writes);
        EXPECT_TRUE(writes.Has_Failed()) << "the write was not reached";
        return outcome;
    };
    for (int at = 1; at <= writes_of_good_run; ++at) {
        const bool in_every_manner = at <= 12 || at > writes_of_good_run - 12;
        for (std::size_t i = 0; i < manners.size(); ++i) {
            if (!in_every_manner && i != static_cast<std::size_t>(at) % manners.size()) {
                continue;
            }
            const auto& [manner, error] = manners[i];
            SCOPED_TRACE("write " + std::to_string(at) + " of " + std::to_string(writes_of_good_run) +
                         ", manner " + std::to_string(i));
            prepare();
            Outcome outcome = Outcome::Killed;
            if (manner != Failing_Writes::Manner::Kill) {
                outcome = fail(at, manner, error);
            } else if (const pid_t child = ::fork(); child == 0) {
                fail(at, manner, error);
                ::_exit(0);
            } else {
                int status = 0;
                ASSERT_EQ(::waitpid(child, &status, 0), child);
                ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << "the write was not reached";
            }
            ASSERT_NO_FATAL_FAILURE(check(outcome));
        }
    }
}

void Expect_All_Or_Nothing(const fs::path& folder, const std::function<void()>& act,
                           const std::function<std::map<std::string, std::string>()>& state,
                           bool by_replacement) {
    const File_Contents files = Read_Files(folder);
    const auto before = state();
    std::map<std::string, std::string> after;
    const auto check = [&](Outcome outcome) {
        if (outcome == Outcome::Killed && by_replacement) {
            Sweep_Drafts(folder);
        }
        const auto now = state();
        if (outcome == Outcome::Finished && after.empty()) {
            after = now;
            EXPECT_TRUE(after != before);
        }
        const bool may_be_after = outcome != Outcome::Threw || by_replacement;
        EXPECT_TRUE((now == before && outcome != Outcome::Finished) || (now == after && may_be_after));
    };
    Fail_Every_Write([&] { Write_Files(folder, files); }, act, check);
}

} // namespace morvane::tests

extern "C" {
using morvane::tests::Counted;

ssize_t __wrap_write(int file, const void* data, std::size_t size) {
    return morvane::tests::Counted_Write(size,
                                         [&](std::size_t part) { return __real_write(file, data, part); });
}

int __wrap_fsync(int file) {
    return Counted([&] { return __real_fsync(file); });
}

int __wrap_rename(const char* from, const char* to) {
    return Counted([&] { return __real_rename(from, to); });
}

int __wrap_link(const char* from, const char* to) {
    if (morvane::tests::device != nullptr && !morvane::tests::device->Links()) {
        errno = ::access(from, F_OK) == 0 ? EPERM : ENOENT;
        return -1;
    }
    return Counted([&] { return __real_link(from, to); });
}

int __wrap_unlink(const char* path) {
    return Counted([&] { return __real_unlink(path); });
}
}
