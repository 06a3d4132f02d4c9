// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace morvane {

/// One field of a store: Null, a whole number, a real number or a text.
class Value {
  public:
    Value() = default;
    Value(int number) : held(std::int64_t{number}) {}
    Value(std::int64_t number) : held(number) {}
    Value(double number) : held(number) {}
    Value(std::string text) : held(std::move(text)) {}
    Value(std::string_view text) : held(std::string(text)) {}
    Value(const char* text) : held(std::string(text)) {}

    [[nodiscard]] bool Is_Null() const { return std::holds_alternative<std::monostate>(held); }
    [[nodiscard]] bool Is_Text() const { return std::holds_alternative<std::string>(held); }

    /// The number held; Null and a text that starts with no number give `if_null`.
    [[nodiscard]] double As_Double(double if_null = 0.0) const;

    /// The number held, cut toward zero; Null gives `if_null`.
    [[nodiscard]] std::int64_t As_Integer(std::int64_t if_null = 0) const;

    /// A stored boolean: anything but Null and 0 is true (true is stored as -1).
    [[nodiscard]] bool As_Boolean() const { return As_Double() != 0.0; }

    /// The text held, or the number as text (whole numbers without a decimal point, others in the shortest
    /// form that reads back to the same number); Null gives an empty text.
    [[nodiscard]] std::string As_Text() const;

    friend bool operator==(const Value&, const Value&) = default;

    std::variant<std::monostate, std::int64_t, double, std::string> held;
};

/// A number as text: whole numbers up to 15 digits without point or exponent, others in the shortest form
/// that reads back to the same number.
std::string Number_Text(double number);

} // namespace morvane
