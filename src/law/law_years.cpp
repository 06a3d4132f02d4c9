// SPDX-FileCopyrightText: The Morvane developers
#include "law/law_rows.h"

namespace morvane {

namespace {

constexpr std::array rows = {law_rows::of_2008, law_rows::of_2011, law_rows::of_2012, law_rows::of_2015};

} // namespace

// Alone in this source, so that a test can link another table in its place.
std::span<const Law_Year> Law_Years() {
    return rows;
}

} // namespace morvane
