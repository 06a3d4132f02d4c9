// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace morvane {

/// The lock of an installation folder: one program at a time may write its stores. The operating system frees
/// the lock when the process ends, however it ends; the file then remains with the company number it
/// recorded.
class Instance_Lock {
  public:
    /// Takes the lock of `app_path`; empty where another process holds it. Raises Store_Error where the lock
    /// file cannot be written.
    static std::optional<Instance_Lock> Take(const std::filesystem::path& app_path);

    /// The company number that the lock of `app_path` records, held or not; 0 none. For those who only read.
    static std::int32_t Recorded(const std::filesystem::path& app_path);

    Instance_Lock(Instance_Lock&& other) noexcept;
    Instance_Lock& operator=(Instance_Lock&&) = delete;
    Instance_Lock(const Instance_Lock&) = delete;
    Instance_Lock& operator=(const Instance_Lock&) = delete;

    /// Frees the lock. The record stays as it is: only a clean end records that no company is in hand.
    ~Instance_Lock();

    /// The company number that a process which ended without freeing its lock had in hand; 0 none.
    [[nodiscard]] std::int32_t Left_Behind() const { return left_behind; }

    /// Records the company in hand (0 none).
    void Record(std::int32_t kanri_no) const;

  private:
    Instance_Lock(int file_descriptor, std::int32_t left) : descriptor(file_descriptor), left_behind(left) {}

    int descriptor;
    std::int32_t left_behind;
};

} // namespace morvane
