// SPDX-FileCopyrightText: The Morvane developers
#include "data/value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace morvane {

double Value::As_Double(double if_null) const {
    if (const auto* whole = std::get_if<std::int64_t>(&held)) {
        return static_cast<double>(*whole);
    }
    if (const auto* real = std::get_if<double>(&held)) {
        return *real;
    }
    if (const auto* text = std::get_if<std::string>(&held)) {
        char* end = nullptr;
        const double number = std::strtod(text->c_str(), &end);
        return end == text->c_str() ? if_null : number;
    }
    return if_null;
}

std::int64_t Value::As_Integer(std::int64_t if_null) const {
    if (const auto* whole = std::get_if<std::int64_t>(&held)) {
        return *whole;
    }
    const double number = As_Double(static_cast<double>(if_null));
    if (!(std::abs(number) < 9.2e18)) {
        return if_null;
    }
    return static_cast<std::int64_t>(number);
}

std::string Value::As_Text() const {
    if (const auto* whole = std::get_if<std::int64_t>(&held)) {
        return std::to_string(*whole);
    }
    if (const auto* real = std::get_if<double>(&held)) {
        return Number_Text(*real);
    }
    if (const auto* text = std::get_if<std::string>(&held)) {
        return *text;
    }
    return {};
}

std::string Number_Text(double number) {
    std::array<char, 32> buffer{};
    if (number == std::floor(number) && std::abs(number) < 1e15) {
        const auto end = std::to_chars(buffer.begin(), buffer.end(), static_cast<std::int64_t>(number)).ptr;
        return {buffer.begin(), end};
    }
    const auto end = std::to_chars(buffer.begin(), buffer.end(), number).ptr;
    return {buffer.begin(), end};
}

} // namespace morvane
