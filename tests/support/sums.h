// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace morvane::tests {

/// What a sum adds or subtracts: an account, or all of a range of accounts.
struct Term {
    int sign, first, last;
    bool is_range;
};

/// Reads sums as they are written down: "179=149+159 281=199-249", a range as "129=100..128".
inline std::vector<std::pair<std::string, std::vector<Term>>> Read_Sums(const std::string& text) {
    std::vector<std::pair<std::string, std::vector<Term>>> sums;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::size_t equals = word.find('=');
        auto& [name, terms] = sums.emplace_back(word.substr(0, equals), std::vector<Term>());
        std::istringstream codes(word.substr(equals + 1));
        for (int code = 0; codes >> code;) {
            Term term{code < 0 ? -1 : 1, std::abs(code), std::abs(code), codes.peek() == '.'};
            if (term.is_range) {
                codes.ignore(2) >> term.last;
            }
            terms.push_back(term);
        }
    }
    return sums;
}

} // namespace morvane::tests
