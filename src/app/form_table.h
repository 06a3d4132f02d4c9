// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/form.h"

#include <span>
#include <string_view>

namespace morvane {

/// A form by its name: how it is made, how it is shown, which page of the manual is its own.
struct Form_Row {
    const char* name;
    Form* (*make)(Shell_Port&, const char* name) = nullptr; ///< none: the screen is not there yet
    bool modal = false;         ///< a dialog over the frame instead of a child in it
    const char* page = nullptr; ///< page of the manual, where it is not the form's name

    [[nodiscard]] Form* Make(Shell_Port& shell) const { return make(shell, name); }
};

/// All forms of the program, the reports among them.
std::span<const Form_Row> Form_Table();

/// The row of a form; null for an unknown name.
const Form_Row* Find_Form(std::string_view name);

} // namespace morvane
