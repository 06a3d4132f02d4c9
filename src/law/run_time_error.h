// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <stdexcept>
#include <string>

namespace morvane {

/// A computation that has no result: an integer that leaves its width, a division by zero, a text or a date
/// that is none. It is never replaced by a figure: the caller reports it and stores nothing.
class Run_Time_Error : public std::runtime_error {
  public:
    enum class Kind { Overflow, Division_By_Zero, Type_Mismatch };

    /// `what` is the Japanese text that names what could not be computed.
    Run_Time_Error(Kind error_kind, const std::string& what) : std::runtime_error(what), kind(error_kind) {}

    /// Whether nothing has been said yet of what could not be computed.
    [[nodiscard]] bool Is_Unnamed() const { return *what() == '\0'; }

    Kind kind;
};

} // namespace morvane
