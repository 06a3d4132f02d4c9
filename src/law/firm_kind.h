// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace morvane {

/// Whose form of the construction statements a firm uses: that of 国土交通大臣 and of most prefectures, or
/// that of 北海道, which has accounts of its own.
enum class Edition : std::uint8_t { National, Hokkaido };

/// 法人 or 個人: the statements of the two differ (建設業法施行規則 様式第15号・第16号 and 第18号・第19号).
enum class Firm_Type : std::uint8_t { Corporation, Individual };

/// The edition that a 地域CD tells by its first two characters; nothing where it is neither.
constexpr std::optional<Edition> Edition_Of(std::string_view code) {
    const std::string_view region = code.substr(0, 2);
    return region == "01"   ? std::optional(Edition::Hokkaido)
           : region == "13" ? std::optional(Edition::National)
                            : std::nullopt;
}

/// The edition as stores, settings and case files hold it; empty where none is known.
inline std::string Code_Of(std::optional<Edition> edition) {
    return !edition ? "" : edition == Edition::Hokkaido ? "01" : "13";
}

/// 北海道 or 全国.
inline std::string Name_Of(Edition edition) {
    return edition == Edition::Hokkaido ? "北海道" : "全国";
}

/// The firm type of a 法人個人識別; nothing where it is neither.
constexpr std::optional<Firm_Type> Firm_Type_Of(std::int64_t number) {
    return number == 1   ? std::optional(Firm_Type::Corporation)
           : number == 2 ? std::optional(Firm_Type::Individual)
                         : std::nullopt;
}

/// The firm type as stores and settings hold it.
constexpr std::int16_t Number_Of(Firm_Type type) {
    return type == Firm_Type::Corporation ? 1 : 2;
}

/// What decides which form of the statements a firm has, and so which accounts its figures are taken from.
/// Where a store tells neither of two, the arithmetic takes the national edition and an individual.
struct Firm_Kind {
    Edition edition = Edition::National;
    Firm_Type type = Firm_Type::Corporation;

    [[nodiscard]] constexpr bool Is_Hokkaido() const { return edition == Edition::Hokkaido; }
    [[nodiscard]] constexpr bool Is_Corporation() const { return type == Firm_Type::Corporation; }
};

/// The firm type in the arithmetic: what is no corporation counts as an individual.
constexpr Firm_Type Counted(std::optional<Firm_Type> type) {
    return type.value_or(Firm_Type::Individual);
}

/// The edition in the arithmetic: what is not Hokkaido's counts as national.
constexpr Edition Counted(std::optional<Edition> edition) {
    return edition.value_or(Edition::National);
}

} // namespace morvane
