// SPDX-FileCopyrightText: The Morvane developers
#include "data/store_key.h"

#include <array>
#include <openssl/evp.h>
#include <stdexcept>

namespace morvane {

Store_Key Store_Key::Derive(std::string_view password) {
    // The salt only separates this product's keys from those of others; each file has a random salt of its
    // own for its page authentication.
    static constexpr std::string_view salt = "Morvane store key v1";
    static constexpr int iterations = 20'000;
    std::array<unsigned char, 32> key{};
    if (PKCS5_PBKDF2_HMAC(password.data(), static_cast<int>(password.size()),
                          reinterpret_cast<const unsigned char*>(salt.data()), static_cast<int>(salt.size()),
                          iterations, EVP_sha256(), static_cast<int>(key.size()), key.data()) != 1) {
        throw std::runtime_error("データファイルの鍵を作れませんでした。");
    }
    static constexpr std::string_view digits = "0123456789abcdef";
    Store_Key result;
    result.literal = "x'";
    for (const unsigned char byte : key) {
        result.literal += digits[byte >> 4U];
        result.literal += digits[byte & 15U];
    }
    result.literal += '\'';
    return result;
}

} // namespace morvane
