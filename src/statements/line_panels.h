// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "statements/statement_panel.h"
#include "widgets/total_panel.h"

#include <map>
#include <span>

namespace morvane {

/// Lines of figures, a panel for each group, in two stacks: assets over liabilities, profit over the check.
class Line_Panels : public QWidget {
  public:
    /// `characters` is the least width of the figures in half-width characters.
    Line_Panels(std::span<const Statement_Line> lines, int characters, const Total_Columns& columns = {});

    /// Shows a line in all columns of the panels.
    void Show_Line(const Statement_Line& line, const Amounts& amounts);
    void Set_Check(bool holds, const char* text);

    /// Puts the stacks beside or, as one, under each other, each of that width, and shows the last columns
    /// of figures, from `first_column` on.
    void Lay(int stacks, int width, std::size_t first_column);

  private:
    std::size_t column_count;
    std::map<Panel_Group, Total_Panel*> panels;
};

} // namespace morvane
