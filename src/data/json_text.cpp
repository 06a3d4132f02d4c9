// SPDX-FileCopyrightText: The Morvane developers
#include "data/json_text.h"

#include "data/shown_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

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
class Json_Builder {
  public:
    Json_Builder(Json& root, std::string_view source) : text(source), document(root) {}

    bool null() { return Put({}); }
    bool boolean(bool value) { return Put(value); }
    bool number_integer(std::int64_t value) { return Put(value); }
    bool number_unsigned(std::uint64_t value) { return Put(value); }
    bool number_float(double value, const std::string& /*digits*/) { return Put(value); }
    bool string(std::string& value) { return Put(std::move(value)); }
    bool binary(nlohmann::json::binary_t& /*value*/) { return false; } // no text has one
    bool start_object(std::size_t /*size*/) { return Enter(Json::Object()); }
    bool key(std::string& name) {
        watch.Key(name);
        last_key = std::move(name);
        return true;
    }
    bool end_object() { return Leave(); }
    bool start_array(std::size_t /*size*/) { return Enter(Json::Array()); }
    bool end_array() { return Leave(); }

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
    bool Put(Json value) {
        watch.Value();
        Place(std::move(value));
        return true;
    }

    bool Enter(Json holder) {
        watch.Enter(holder.Is_Array());
        open.push_back(&Place(std::move(holder)));
        return true;
    }

    bool Leave() {
        watch.Leave();
        open.pop_back();
        return true;
    }

    /// Puts a value where the text stands. Only the innermost holder grows, so that those around it stay
    /// where they are.
    Json& Place(Json value) {
        if (open.empty()) {
            return document = std::move(value);
        }
        return open.back()->Is_Array() ? open.back()->Add(std::move(value))
                                       : open.back()->Add(std::move(last_key), std::move(value));
    }

    std::string_view text;
    Json& document;
    std::vector<Json*> open; ///< arrays and objects around the place
    std::string last_key;
    Json_Watch watch;
};

// Texts and numbers with a fraction are written by the library that reads them.
template <class Scalar>
std::string Scalar_Text(const Scalar& value) {
    return nlohmann::json(value).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void Write_Break(std::string& text, int level) {
    if (level >= 0) {
        text += "\n" + std::string(static_cast<std::size_t>(level), ' ');
    }
}

[[noreturn]] void Throw_Kind(const Json& value, const char* wanted) {
    throw Json_Fault("", std::string(wanted) + "ではありません（" + Shown_Json(value) + "）");
}

} // namespace

bool Json::Is_Number() const {
    return std::holds_alternative<std::int64_t>(held) || std::holds_alternative<std::uint64_t>(held) ||
           std::holds_alternative<double>(held);
}

double Json::As_Double() const {
    if (const auto* whole = std::get_if<std::int64_t>(&held)) {
        return static_cast<double>(*whole);
    }
    if (const auto* large = std::get_if<std::uint64_t>(&held)) {
        return static_cast<double>(*large);
    }
    if (const auto* number = std::get_if<double>(&held)) {
        return *number;
    }
    Throw_Kind(*this, "数値");
}

const std::string& Json::As_Text() const {
    if (!Is_Text()) {
        Throw_Kind(*this, "文字列");
    }
    return std::get<std::string>(held);
}

const Json::Elements& Json::Array_Elements() const {
    if (!Is_Array()) {
        Throw_Kind(*this, "配列");
    }
    return std::get<Elements>(held);
}

const Json::Members& Json::Items() const {
    if (!Is_Object()) {
        Throw_Kind(*this, "オブジェクト");
    }
    return std::get<Members>(held);
}

const Json* Json::Find(std::string_view key) const {
    const auto* members = std::get_if<Members>(&held);
    if (members == nullptr) {
        return nullptr;
    }
    const auto found = std::find_if(members->begin(), members->end(),
                                    [key](const Member& member) { return member.first == key; });
    return found == members->end() ? nullptr : &found->second;
}

const Json& Json::operator[](std::string_view key) const {
    if (const Json* found = Find(key)) {
        return *found;
    }
    throw Json_Fault(std::string(key), "指定されていません。");
}

Json& Json::operator[](std::string_view key) {
    if (Is_Null()) {
        held = Members();
    }
    for (Member& member : std::get<Members>(held)) {
        if (member.first == key) {
            return member.second;
        }
    }
    return Add(std::string(key), {});
}

void Json::Erase(std::string_view key) {
    std::erase_if(std::get<Members>(held), [key](const Member& member) { return member.first == key; });
}

Json& Json::Add(Json element) {
    return std::get<Elements>(held).emplace_back(std::move(element));
}

Json& Json::Add(std::string key, Json member) {
    return std::get<Members>(held).emplace_back(std::move(key), std::move(member)).second;
}

std::size_t Json::Size() const {
    return Is_Array() ? Array_Elements().size() : Is_Object() ? Items().size() : 0;
}

std::string Json::Text(bool indented) const {
    std::string text;
    Write(text, indented ? 0 : -1);
    return text;
}

void Json::Write(std::string& text, int level) const {
    const int inner = level < 0 ? level : level + 1;
    const auto write_all = [&](const auto& list, char begin, char end, auto write) {
        text += begin;
        const char* comma = "";
        for (const auto& entry : list) {
            text += comma;
            Write_Break(text, inner);
            write(entry);
            comma = ",";
        }
        if (!list.empty()) {
            Write_Break(text, level);
        }
        text += end;
    };
    if (Is_Array()) {
        write_all(Array_Elements(), '[', ']', [&](const Json& element) { element.Write(text, inner); });
    } else if (Is_Object()) {
        write_all(Items(), '{', '}', [&](const Member& member) {
            text += Scalar_Text(member.first) + (level < 0 ? ":" : ": ");
            member.second.Write(text, inner);
        });
    } else if (Is_Null()) {
        text += "null";
    } else if (const auto* truth = std::get_if<bool>(&held)) {
        text += *truth ? "true" : "false";
    } else if (const auto* whole = std::get_if<std::int64_t>(&held)) {
        text += std::to_string(*whole);
    } else if (const auto* large = std::get_if<std::uint64_t>(&held)) {
        text += std::to_string(*large);
    } else {
        text += Is_Text() ? Scalar_Text(As_Text()) : Scalar_Text(As_Double());
    }
}

bool operator==(const Json& a, const Json& b) {
    return a.Is_Number() && b.Is_Number() ? a.As_Double() == b.As_Double() : a.held == b.held;
}

Json Json_Of(std::string_view text) {
    if (text.size() > most_bytes) {
        throw Json_Fault("", "大きすぎます（64MBまで）。");
    }
    Json document;
    Json_Builder builder(document, text);
    static_cast<void>(nlohmann::json::sax_parse(text.begin(), text.end(), &builder));
    return document;
}

std::string Shown_Json(const Json& value) {
    if (value.Is_Text()) {
        return "\"" + Shown_Text(value.As_Text()) + "\"";
    }
    return value.Is_Object() ? "オブジェクト" : value.Is_Array() ? "配列" : value.Text();
}

} // namespace morvane
