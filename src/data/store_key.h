// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// The raw 256-bit key of the stores. Deriving it from the password is deliberately slow, so it is done once
/// in a process and handed to every opener; a store then opens without a derivation of its own.
class Store_Key {
  public:
    Store_Key() = default;

    /// Derives the key of `password` (PBKDF2 with HMAC-SHA-256, fixed salt of the product).
    static Store_Key Derive(std::string_view password);

    /// The key as the engine's raw key literal, x'..' with 64 hexadecimal digits.
    [[nodiscard]] const std::string& Literal() const { return literal; }

  private:
    std::string literal;
};

} // namespace morvane
