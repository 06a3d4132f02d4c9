// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/kekka.h"

#include <string>
#include <vector>

namespace morvane {

/// A row of the social items (W) as it is printed.
struct Social_Row {
    std::string label;
    std::string value;              ///< what was answered or counted; empty where nothing is known
    std::string points;             ///< empty where the row has none of its own
    std::size_t rows_of_points = 1; ///< the points belong to so many rows, this one being the first
    bool is_score = false;          ///< a sub-score of W
};

/// The rows of a form, in their order on the sheet.
std::vector<Social_Row> Social_Rows(const Kekka_Figures& kekka, Kekka_Form form);

/// The score that an element holds; empty where none was stored.
std::string Score_Text(const Kekka_Figures& kekka, int element);

/// A figure with commas; `zero_blank` leaves 0 out.
std::string Figure_Text(std::int64_t figure, bool zero_blank = false);

} // namespace morvane
