// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/explain.h"
#include "screens/check_sheet.h"
#include "session/kyotu_mod.h"

#include <functional>

namespace morvane {

/// One line of a sheet: what stands before the figure, the figure, the control that shows it.
struct Sheet_Line {
    std::string caption;
    std::function<std::string(const Check_Figures&)> value;
    const char* name = "";
};

/// The texts of a sheet, for the law years that share them.
struct Sheet_Text {
    std::string mode;
    Law_Range law = {};
    const char* form = nullptr; ///< null: the law year's form of W1, W3, W4 and W6
    std::string title = {};
    std::string help_key = {};
    const char* help_key_b = nullptr; ///< by the tables in force from April 2011, where it differs
    bool amounts = false;
    std::vector<Sheet_Line> inputs = {};
    std::vector<std::string> formula = {};
    std::vector<Sheet_Line> results = {};
    std::vector<std::string> closing = {};
    const char* table_form = "";
    int Tbl_Disp_No = 0;
    std::function<void(const Check_Figures&, Check_Sheet&)> more = {}; ///< what depends on the figures
    std::function<void(const Check_Figures&, Steps&)> steps = {};      ///< how the score came about
};

/// The sheets of X2, of W, of the works, of Y and of the twelve indicators.
const std::vector<Sheet_Text>& X2_Sheets();
const std::vector<Sheet_Text>& W_Sheets();
const std::vector<Sheet_Text>& XZP_Sheets();
const std::vector<Sheet_Text>& Y1_Sheets();
const std::vector<Sheet_Text>& Twelve_Sheets();

inline std::string Number(std::int32_t value) {
    return Comma_Str(value);
}
template <class Unit, class Width>
std::string Number(Quantity<Unit, Width> value) {
    return Comma_Str(value);
}

/// A weight or rate of the law with the decimals that it has.
inline std::string Decimal(double figure) {
    return Expression::Decimal(figure).text;
}

/// How a score that is cut and has a least is told.
std::string Least_Text(std::int32_t least);

/// A figure of a work type; blank where it was not entered.
inline std::string Own(const Figure& figure) {
    return figure.up ? Comma_Str(figure.value) : std::string();
}

/// One of the items of W.
template <std::int32_t Social_Items::*Member>
std::string Item(const Check_Figures& f) {
    return Number(f.items.*Member);
}

template <auto Member, std::size_t Index>
std::string Item_Of(const Check_Figures& f) {
    return Number((f.items.*Member)[Index]);
}

} // namespace morvane
