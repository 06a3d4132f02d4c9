// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"
#include "statements/statement_panel.h"

#include <string>
#include <vector>

namespace morvane {

/// The improved statements of the period in hand beside the current ones, as the store holds them: the first
/// column is 改善後残高, the second 金額.
class Up_Check {
  public:
    /// Raises Store_Error.
    explicit Up_Check(const Session& session);

    [[nodiscard]] const std::vector<Statement_Line>& Lines() const { return lines; }
    [[nodiscard]] Amounts Shown(const Statement_Line& line) const { return book.Sum(line.figures); }

    /// Whether balance sheet and income statement agree to the yen, improved and current.
    [[nodiscard]] bool Check() const;
    [[nodiscard]] const char* Check_Text() const;

    /// The control of a line in a column.
    static std::string Control(const std::string& line, std::size_t column);

  private:
    unsigned form;
    Account_Book book;
    std::vector<Statement_Line> lines;
};

} // namespace morvane
