// SPDX-FileCopyrightText: The Morvane developers
#include "statements/up_check.h"

#include "session/kyotu_mod.h"

#include <algorithm>

namespace morvane {

Up_Check::Up_Check(const Session& session)
    : form(Statement_Form_Of(session.Kind())),
      book(Cn_Open(session), session.Syori_Ki, {"改善後残高", "金額"}, Hidden_Rows::Counted),
      lines(Statement_Lines(form, line_view::balance_check)) {}

bool Up_Check::Check() const {
    const auto difference = std::find_if(lines.begin(), lines.end(), [](const Statement_Line& line) {
        return std::string_view(line.control) == "Chk_Sa";
    });
    const Amounts amounts = Shown(*difference);
    return amounts[0] == Yen() && amounts[1] == Yen();
}

const char* Up_Check::Check_Text() const {
    return Check_Text_Of(Check(), (form & statement_form::corporation) != 0);
}

std::string Up_Check::Control(const std::string& line, std::size_t column) {
    if (column == 0) {
        return line;
    }
    const std::size_t end = line.find('_');
    const std::string place = line.substr(0, end); // BsIp, PLIp, Chk
    return (place.ends_with("Ip") ? place.substr(0, 2) : place) + "Ks" + line.substr(end);
}

} // namespace morvane
