// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/prt_modset.h"
#include "report/recorded_sheet.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace morvane::tests {

/// A text on a sheet with its box, mm.
struct Box_Of_Text {
    std::string text;
    double left, top, right, bottom;
    double size; ///< points
};

inline std::vector<Box_Of_Text> Texts_Of(const Recorded_Sheet& sheet, std::size_t page = 0) {
    std::vector<Box_Of_Text> boxes;
    for (const Drawn& drawn : sheet.Pages().at(page)) {
        if (const auto* text = std::get_if<Drawn_Text>(&drawn)) {
            boxes.push_back({text->text, text->x, text->y,
                             text->x + Print_Target::Text_Width(text->text, text->face, text->size),
                             text->y + text->size * Print_Target::mm_per_point, text->size});
        }
    }
    return boxes;
}

/// What an operation draws on a sheet of its own.
template <class Draw>
std::vector<Box_Of_Text> Texts_Drawn_By(const Draw& draw) {
    const Print_State state = {.Prt_Doing = true};
    Recorded_Sheet sheet;
    Prt_ModSet operations(state, sheet);
    draw(operations);
    EXPECT_EQ(sheet.Pages().size(), 1U);
    return Texts_Of(sheet);
}

/// Texts one behind the other.
inline std::string Joined(const std::vector<Box_Of_Text>& boxes, const char* between = "|") {
    std::string joined;
    for (const Box_Of_Text& box : boxes) {
        joined += (joined.empty() ? "" : between) + box.text;
    }
    return joined;
}

/// The first box with a text; at the place 0 where there is none.
inline Box_Of_Text Box_Of(const std::vector<Box_Of_Text>& boxes, const std::string& text) {
    const auto found =
        std::find_if(boxes.begin(), boxes.end(), [&](const auto& b) { return b.text == text; });
    return found == boxes.end() ? Box_Of_Text{} : *found;
}

/// The texts that lie on another one, or not between the edges of what is printed on; empty where none does.
inline std::string Astray(const std::vector<Box_Of_Text>& boxes) {
    std::string astray;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const Box_Of_Text& a = boxes[i];
        if (a.left < 12 || a.right > 198 || a.top < 7 || a.bottom > 290 || a.size < 5.999) {
            astray += a.text + " at " + std::to_string(a.left) + " size " + std::to_string(a.size) + "\n";
        }
        for (std::size_t k = i + 1; k < boxes.size(); ++k) {
            const Box_Of_Text& b = boxes[k];
            if (a.right > b.left + 0.01 && b.right > a.left + 0.01 && a.bottom > b.top + 0.01 &&
                b.bottom > a.top + 0.01) {
                astray += a.text + " on " + b.text + "\n";
            }
        }
    }
    return astray;
}

} // namespace morvane::tests
