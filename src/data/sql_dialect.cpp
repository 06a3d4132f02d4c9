// SPDX-FileCopyrightText: The Morvane developers
#include "data/sql_dialect.h"

#include "data/same_name.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <vector>

namespace morvane {

namespace {

enum class Kind { Word, Number, Text, Bracket, Sign };

struct Token {
    Kind kind;
    std::string text;
};

bool Is_Name_Byte(unsigned char c) {
    return std::isalnum(c) != 0 || c == '_' || c >= 0x80;
}

std::size_t End_Of_Quoted(std::string_view sql, std::size_t begin, char quote) {
    std::size_t at = begin + 1;
    while (at < sql.size()) {
        if (sql[at] == quote) {
            if (quote != ']' && at + 1 < sql.size() && sql[at + 1] == quote) {
                at += 2;
                continue;
            }
            return at + 1;
        }
        ++at;
    }
    throw std::invalid_argument("SQL: a literal is not closed: " + std::string(sql));
}

std::vector<Token> Tokens_Of(std::string_view sql) {
    std::vector<Token> tokens;
    std::size_t at = 0;
    while (at < sql.size()) {
        const auto c = static_cast<unsigned char>(sql[at]);
        std::size_t end = at + 1;
        Kind kind = Kind::Sign;
        if (std::isspace(c) != 0) {
            ++at;
            continue;
        }
        if (c == '\'' || c == '"') {
            kind = Kind::Text;
            end = End_Of_Quoted(sql, at, static_cast<char>(c));
        } else if (c == '[') {
            kind = Kind::Bracket;
            end = End_Of_Quoted(sql, at, ']');
        } else if (std::isdigit(c) != 0) {
            kind = Kind::Number;
            while (end < sql.size() &&
                   (std::isdigit(static_cast<unsigned char>(sql[end])) != 0 || sql[end] == '.')) {
                ++end;
            }
        } else if (Is_Name_Byte(c)) {
            kind = Kind::Word;
            while (end < sql.size() && Is_Name_Byte(static_cast<unsigned char>(sql[end]))) {
                ++end;
            }
        } else if (end < sql.size() &&
                   (sql.substr(at, 2) == "<>" || sql.substr(at, 2) == "<=" || sql.substr(at, 2) == ">=")) {
            ++end;
        }
        tokens.push_back({kind, std::string(sql.substr(at, end - at))});
        at = end;
    }
    return tokens;
}

/// Walks a token list and writes the engine's text.
class Rewriter {
  public:
    explicit Rewriter(std::vector<Token> list) : tokens(std::move(list)) {}

    Engine_Sql Run() {
        Drop_Delete_List();
        Drop_Set_Qualifiers();
        Engine_Sql sql;
        sql.table = Plain_Select_Table();
        sql.text = Expression(0, tokens.size());
        if (!sql.table.empty()) {
            sql.text.replace(sql.text.find('*'), 1, "rowid AS _row_, *");
        }
        return sql;
    }

  private:
    [[nodiscard]] bool Word_At(std::size_t at, std::string_view word) const {
        return at < tokens.size() && tokens[at].kind == Kind::Word && Same_Name(tokens[at].text, word);
    }
    [[nodiscard]] bool Sign_At(std::size_t at, std::string_view sign) const {
        return at < tokens.size() && tokens[at].kind == Kind::Sign && tokens[at].text == sign;
    }
    [[nodiscard]] bool Name_At(std::size_t at) const {
        return at < tokens.size() && (tokens[at].kind == Kind::Word || tokens[at].kind == Kind::Bracket);
    }

    void Drop_Delete_List() {
        while (!tokens.empty() && Sign_At(tokens.size() - 1, ";")) {
            tokens.pop_back();
        }
        if (!Word_At(0, "DELETE")) {
            return;
        }
        std::size_t from = 1;
        while (from < tokens.size() && !Word_At(from, "FROM")) {
            ++from;
        }
        tokens.erase(tokens.begin() + 1, tokens.begin() + static_cast<std::ptrdiff_t>(from));
    }

    // In the list after SET the engine takes bare column names on the left of each assignment.
    void Drop_Set_Qualifiers() {
        if (!Word_At(0, "UPDATE")) {
            return;
        }
        std::size_t at = 0;
        while (at < tokens.size() && !Word_At(at, "SET")) {
            ++at;
        }
        ++at;
        while (at < tokens.size()) {
            if (Name_At(at) && (Sign_At(at + 1, ".") || Sign_At(at + 1, "!")) && Name_At(at + 2)) {
                tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(at),
                             tokens.begin() + static_cast<std::ptrdiff_t>(at + 2));
            }
            int depth = 0;
            while (at < tokens.size() && !(depth == 0 && Sign_At(at, ","))) {
                if (depth == 0 && Word_At(at, "WHERE")) {
                    return;
                }
                depth += Sign_At(at, "(") ? 1 : 0;
                depth -= Sign_At(at, ")") ? 1 : 0;
                ++at;
            }
            ++at;
        }
    }

    [[nodiscard]] std::string Plain_Select_Table() const {
        if (Word_At(0, "SELECT") && Sign_At(1, "*") && Word_At(2, "FROM") && Name_At(3) &&
            (tokens.size() == 4 || Word_At(4, "WHERE") || Word_At(4, "ORDER"))) {
            return tokens[3].text;
        }
        return {};
    }

    [[nodiscard]] std::size_t Matching_Bracket(std::size_t open) const {
        int depth = 0;
        for (std::size_t at = open; at < tokens.size(); ++at) {
            depth += Sign_At(at, "(") ? 1 : 0;
            depth -= Sign_At(at, ")") ? 1 : 0;
            if (depth == 0) {
                return at;
            }
        }
        throw std::invalid_argument("SQL: a bracket is not closed.");
    }

    [[nodiscard]] std::vector<std::pair<std::size_t, std::size_t>> Arguments(std::size_t open,
                                                                             std::size_t close) const {
        std::vector<std::pair<std::size_t, std::size_t>> parts;
        int depth = 0;
        std::size_t begin = open + 1;
        for (std::size_t at = open + 1; at <= close; ++at) {
            if (at == close || (depth == 0 && Sign_At(at, ","))) {
                parts.emplace_back(begin, at);
                begin = at + 1;
                continue;
            }
            depth += Sign_At(at, "(") ? 1 : 0;
            depth -= Sign_At(at, ")") ? 1 : 0;
        }
        return parts;
    }

    /// The comparison with a boolean literal that starts at `at`, if there is one.
    [[nodiscard]] std::optional<std::string> Boolean_Test(std::size_t at) const {
        const bool equal = Sign_At(at, "=");
        if (!equal && !Sign_At(at, "<>")) {
            return std::nullopt;
        }
        if (Word_At(at + 1, "True")) {
            return equal ? "<> 0" : "= 0";
        }
        if (Word_At(at + 1, "False")) {
            return equal ? "= 0" : "<> 0";
        }
        return std::nullopt;
    }

    // An UPDATE's assignment looks like a comparison; there True and False are values.
    [[nodiscard]] bool Is_Assignment(std::size_t at) const {
        if (!Word_At(0, "UPDATE")) {
            return false;
        }
        for (std::size_t i = 0; i < at; ++i) {
            if (Word_At(i, "WHERE")) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] std::string Expression(std::size_t begin, std::size_t end) const {
        std::string out;
        const auto put = [&out](const std::string& text, bool tight) {
            if (!out.empty() && !tight) {
                out += ' ';
            }
            out += text;
        };
        for (std::size_t at = begin; at < end; ++at) {
            const Token& token = tokens[at];
            const bool tight = Sign_At(at, ".") || Sign_At(at, "!") ||
                               (at > begin && (Sign_At(at - 1, ".") || Sign_At(at - 1, "!")));
            const bool call = token.kind == Kind::Word && Sign_At(at + 1, "(");
            if (call && (Same_Name(token.text, "IIf") || Same_Name(token.text, "left"))) {
                const std::size_t close = Matching_Bracket(at + 1);
                put(Function_Call(Same_Name(token.text, "IIf"), Arguments(at + 1, close)), false);
                at = close;
            } else if (const auto test = Boolean_Test(at); test && !Is_Assignment(at)) {
                put(*test, false);
                ++at;
            } else if (Word_At(at, "True") || Word_At(at, "False")) {
                put(Word_At(at, "True") ? "-1" : "0", false);
            } else {
                put(Sign_At(at, "!") ? "." : token.text, tight);
            }
        }
        return out;
    }

    [[nodiscard]] std::string
    Function_Call(bool is_iif, const std::vector<std::pair<std::size_t, std::size_t>>& parts) const {
        const auto part = [&](std::size_t i) { return Expression(parts.at(i).first, parts.at(i).second); };
        if (is_iif) {
            return "CASE WHEN " + part(0) + " THEN " + part(1) + " ELSE " + part(2) + " END";
        }
        return "substr(" + part(0) + ", 1, " + part(1) + ")";
    }

    std::vector<Token> tokens;
};

} // namespace

Engine_Sql To_Engine_Sql(std::string_view sql) {
    return Rewriter(Tokens_Of(sql)).Run();
}

} // namespace morvane
