// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

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

/// Reads a JSON text. Raises Json_Fault, in Japanese, for one that is none (with line and column), for a key
/// that stands twice in its object, a number beyond all measure, for too many members or values, and for more
/// than 64 levels or 64 MB.
nlohmann::json Json_Of(std::string_view text);

/// The same with the keys in the order of the text.
nlohmann::ordered_json Ordered_Json_Of(std::string_view text);

/// A value as it can stand in a message.
std::string Shown_Json(const nlohmann::json& value);
std::string Shown_Json(const nlohmann::ordered_json& value);

} // namespace morvane
