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
    void Enter(bool is_array) {
        Value();
        levels.push_back({.is_array = is_array});
        if (levels.size() > static_cast<std::size_t>(most_json_depth)) {
            throw Json_Fault("", std::to_string(most_json_depth) + "段を超える入れ子があります。");
        }
    }

    void Leave() { levels.pop_back(); }

    void Key(const std::string& key) {
        Level& level = levels.back();
        if (level.keys.size() == most_json_members) {
            throw Too_Many(Holder(), most_json_members, "項目");
        }
        level.key = key;
        if (!level.keys.insert(key).second) {
            throw Json_Fault(Path(), "同じ名前が2回あります。");
        }
    }

    /// A value begins: of an array the next element.
    void Value() {
        if (++values > most_json_values) {
            throw Too_Many("", most_json_values, "値");
        }
        if (levels.empty()) {
            return;
        }
        if (levels.back().is_array && levels.back().elements == most_json_members) {
            throw Too_Many(Holder(), most_json_members, "要素");
        }
        ++levels.back().elements;
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

    /// The array or object that is being read.
    [[nodiscard]] std::string Holder() {
        Level last = std::move(levels.back());
        levels.pop_back();
        std::string path = Path();
        levels.push_back(std::move(last));
        return path;
    }

    static Json_Fault Too_Many(const std::string& path, std::size_t most, const std::string& what) {
        return {path, what + "が多すぎます（" + std::to_string(most) + "まで）。"};
    }

    std::size_t values = 0;
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

/// Builds the document while the watch looks on. (The parser's own callbacks would go through all members of
/// an object again for each of them.)
template <class Json>
class Json_Builder {
  public:
    Json_Builder(Json& document, std::string_view source) : text(source), build(document) {}

    bool null() { return Value(&Build::null); }
    bool boolean(bool value) { return Value(&Build::boolean, value); }
    bool number_integer(typename Json::number_integer_t value) {
        return Value(&Build::number_integer, value);
    }
    bool number_unsigned(typename Json::number_unsigned_t value) {
        return Value(&Build::number_unsigned, value);
    }
    bool number_float(typename Json::number_float_t value, const std::string& digits) {
        watch.Value();
        return build.number_float(value, digits);
    }
    bool string(std::string& value) {
        watch.Value();
        return build.string(value);
    }
    bool binary(typename Json::binary_t& value) {
        watch.Value();
        return build.binary(value);
    }
    bool start_object(std::size_t size) {
        watch.Enter(false);
        return build.start_object(size);
    }
    bool key(std::string& name) {
        watch.Key(name);
        return build.key(name);
    }
    bool end_object() {
        watch.Leave();
        return build.end_object();
    }
    bool start_array(std::size_t size) {
        watch.Enter(true);
        return build.start_array(size);
    }
    bool end_array() {
        watch.Leave();
        return build.end_array();
    }
    template <class Error>
    bool parse_error(std::size_t byte, const std::string& /*token*/, const Error& error) {
        constexpr int out_of_range = 406;
        if (error.id != out_of_range) {
            throw Json_Fault("", "JSONとして読めません（" + Place_Of_Byte(text, byte) + "）。");
        }
        watch.Value();
        throw Json_Fault(watch.Path(), "数値が大きすぎます。");
    }

  private:
    using Build = nlohmann::detail::json_sax_dom_parser<Json>;

    template <class Add, class... Values>
    bool Value(Add add, Values... values) {
        watch.Value();
        return (build.*add)(values...);
    }

    std::string_view text;
    Build build;
    Json_Watch watch;
};

template <class Json>
Json Parsed(std::string_view text) {
    if (text.size() > most_bytes) {
        throw Json_Fault("", "大きすぎます（64MBまで）。");
    }
    Json document;
    Json_Builder<Json> builder(document, text);
    static_cast<void>(Json::sax_parse(text.begin(), text.end(), &builder));
    return document;
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
