// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/check_sheet.h"

#include <QWidget>

class QGridLayout;

namespace morvane {

/// A table of texts under its heading: striped, in blocks side by side, the row in force tinted.
class Check_Table_View : public QWidget {
  public:
    explicit Check_Table_View(const Check_Table& table, QWidget* parent = nullptr);

  private:
    static void Add_Row(QGridLayout& grid, const Check_Table& table, std::size_t row, int at, int column);
};

} // namespace morvane
