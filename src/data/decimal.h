// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

namespace morvane {

/// The whole number that a text is: decimal digits behind an optional minus, leading zeros allowed, nothing
/// else beside them. Empty for any other text and for one beyond 64 bits.
inline std::optional<std::int64_t> Decimal(std::string_view text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (text.empty() || read.ec != std::errc() || read.ptr != end) {
        return std::nullopt;
    }
    return number;
}

} // namespace morvane
