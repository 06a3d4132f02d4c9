// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace morvane {

/// A text that is no JSON, or none that the program takes.
class Json_Fault : public std::runtime_error {
  public:
    Json_Fault(std::string place, const std::string& reason)
        : std::runtime_error(reason), path(std::move(place)) {}

    std::string path; ///< inside the text, as periods[0].決算期; empty where it is the text itself
};

/// How deep arrays and objects may stand in each other.
inline constexpr int most_json_depth = 64;

/// How many members an object and elements an array may have: some times what the largest table has.
inline constexpr std::size_t most_json_members = 5000;

/// How many values a text may have in all: more than a case of as many periods as it may have.
inline constexpr std::size_t most_json_values = 3'000'000;

/// A value of a JSON text; objects keep their members in the order in which they came.
class Json {
  public:
    using Member = std::pair<std::string, Json>;
    using Elements = std::vector<Json>;
    using Members = std::vector<Member>;

    Json() = default;       ///< null
    Json(std::nullptr_t) {} ///< null
    Json(bool value) : held(value) {}
    Json(int value) : held(std::int64_t{value}) {}
    Json(std::int64_t value) : held(value) {}
    Json(std::uint64_t value) : held(value) {}
    Json(double value) : held(value) {}
    Json(const char* value) : held(std::string(value)) {}
    Json(std::string value) : held(std::move(value)) {}
    Json(std::string_view value) : held(std::string(value)) {}
    static Json Array() { return Json(Held(Elements())); }
    static Json Object() { return Json(Held(Members())); }
    static Json Object(std::initializer_list<Member> members) { return Json(Held(Members(members))); }

    [[nodiscard]] bool Is_Null() const { return std::holds_alternative<std::monostate>(held); }
    [[nodiscard]] bool Is_Boolean() const { return std::holds_alternative<bool>(held); }
    [[nodiscard]] bool Is_Number() const;
    [[nodiscard]] bool Is_Text() const { return std::holds_alternative<std::string>(held); }
    [[nodiscard]] bool Is_Array() const { return std::holds_alternative<Elements>(held); }
    [[nodiscard]] bool Is_Object() const { return std::holds_alternative<Members>(held); }

    // What it holds; Json_Fault where that is of another kind.
    [[nodiscard]] double As_Double() const;
    [[nodiscard]] const std::string& As_Text() const;
    [[nodiscard]] const Elements& Array_Elements() const;
    [[nodiscard]] const Members& Items() const;

    /// The member of an object; null where it has none of that name or is no object.
    [[nodiscard]] const Json* Find(std::string_view key) const;
    [[nodiscard]] bool Has(std::string_view key) const { return Find(key) != nullptr; }

    /// The member of an object; Json_Fault where there is none.
    const Json& operator[](std::string_view key) const;

    /// The member of an object, made where there is none. A null becomes an object.
    Json& operator[](std::string_view key);

    void Erase(std::string_view key);

    /// Adds an element to an array, a member that it has not yet to an object; tells where it stands.
    Json& Add(Json element);
    Json& Add(std::string key, Json member);

    /// The members of an object, elements of an array; 0 for anything else.
    [[nodiscard]] std::size_t Size() const;
    [[nodiscard]] bool Is_Empty() const { return Size() == 0; }

    /// The text: in one line, or with each level indented by one column more. Bytes that are no UTF-8 stand
    /// as U+FFFD.
    [[nodiscard]] std::string Text(bool indented = false) const;

    /// Numbers are equal by their value, objects with their members in the same order.
    friend bool operator==(const Json& a, const Json& b);

  private:
    using Held = std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, std::string,
                              Elements, Members>;
    explicit Json(Held value) : held(std::move(value)) {}
    void Write(std::string& text, int level) const; ///< below 0 in one line

    Held held;
};

/// Reads a JSON text. Raises Json_Fault, in Japanese, for one that is none (with line and column), for a key
/// that stands twice in its object, a number beyond all measure, for too many members or values, and for more
/// than 64 levels or 64 MB.
Json Json_Of(std::string_view text);

/// A value as it can stand in a message.
std::string Shown_Json(const Json& value);

} // namespace morvane
