// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <algorithm>
#include <cctype>
#include <string_view>

namespace morvane {

/// Whether two table, column or file names are the same: ASCII letters without regard to case.
inline bool Same_Name(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

} // namespace morvane
