// SPDX-FileCopyrightText: The Morvane developers
#include "data/json_text.h"

#include "data/shown_text.h"

#include <algorithm>
#include <set>
#include <vector>

namespace morvane {

namespace {

constexpr std::size_t most_bytes = std::size_t{64} << 20U;

/// Follows the parser through the text: knows where it is and refuses what a document must not have.
class Json_Watch {
  public:
    using Event = nlohmann::json::parse_event_t;

    void See(int event, const std::string* key) {
        switch (static_cast<Event>(event)) {
        case Event::object_start:
        case Event::array_start:
            Next_Value();
            levels.push_back({.is_array = static_cast<Event>(event) == Event::array_start});
            if (levels.size() > static_cast<std::size_t>(most_json_depth)) {
                throw Json_Fault("", std::to_string(most_json_depth) + "段を超える入れ子があります。");
            }
            break;
        case Event::object_end:
        case Event::array_end:
            levels.pop_back();
            break;
        case Event::key:
            levels.back().key = *key;
            if (!levels.back().keys.insert(*key).second) {
                throw Json_Fault(Path(), "同じ名前が2回あります。");
            }
            break;
        case Event::value:
            Next_Value();
            break;
        }
    }

    [[nodiscard]] std::string Path() const {
        std::string path;
        for (const Level& level : levels) {
            if (level.is_array) {
                path += "[" + std::to_string(std::max(level.elements, 1U) - 1U) + "]";
            } else {
                path += (path.empty() || level.key.empty() ? "" : ".") + level.key;
            }
        }
        return path;
    }

  private:
    struct Level {
        bool is_array = false;
        unsigned elements = 0;
        std::string key = {};
        std::set<std::string> keys = {};
    };

    void Next_Value() {
        if (!levels.empty()) {
            ++levels.back().elements;
        }
    }

    std::vector<Level> levels;
};

std::string Place_Of_Byte(std::string_view text, std::size_t byte) {
    const std::string_view before = text.substr(0, byte == 0 ? 0 : std::min(byte - 1, text.size()));
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const std::string_view rest = before.substr(before.rfind('\n') + 1);
    const auto column = 1 + std::count_if(rest.begin(), rest.end(), [](char c) {
                            return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
                        });
    return std::to_string(line) + "行" + std::to_string(column) + "文字目";
}

template <class Json>
Json Parsed(std::string_view text) {
    if (text.size() > most_bytes) {
        throw Json_Fault("", "大きすぎます（64MBまで）。");
    }
    Json_Watch watch;
    try {
        return Json::parse(text.begin(), text.end(),
                           [&](int, typename Json::parse_event_t event, Json& parsed) {
                               const bool is_key = event == Json::parse_event_t::key;
                               watch.See(static_cast<int>(event),
                                         is_key ? &parsed.template get_ref<const std::string&>() : nullptr);
                               return true;
                           });
    } catch (const typename Json::parse_error& error) {
        throw Json_Fault("", "JSONとして読めません（" + Place_Of_Byte(text, error.byte) + "）。");
    } catch (const typename Json::exception&) {
        watch.See(static_cast<int>(Json_Watch::Event::value), nullptr);
        throw Json_Fault(watch.Path(), "数値が大きすぎます。");
    }
}

template <class Json>
std::string Shown(const Json& value) {
    if (value.is_string()) {
        return "\"" + Shown_Text(value.template get_ref<const std::string&>()) + "\"";
    }
    return value.is_object() ? "オブジェクト" : value.is_array() ? "配列" : value.dump();
}

} // namespace

nlohmann::json Json_Of(std::string_view text) {
    return Parsed<nlohmann::json>(text);
}

nlohmann::ordered_json Ordered_Json_Of(std::string_view text) {
    return Parsed<nlohmann::ordered_json>(text);
}

std::string Shown_Json(const nlohmann::json& value) {
    return Shown(value);
}

std::string Shown_Json(const nlohmann::ordered_json& value) {
    return Shown(value);
}

} // namespace morvane
