// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/relief.h"
#include "widgets/form.h"

namespace morvane {

class Entry_Grid;

/// The relief comparison: P of every work type under the four ways of averaging that the law leaves to the
/// firm, the best ones marked. It stores nothing.
class Frm_Gekihen : public Form {
    Q_OBJECT

  public:
    /// Raises Store_Error, Run_Time_Error.
    explicit Frm_Gekihen(Shell_Port& shell_port);

    /// What is shown; the report takes its marks from here.
    [[nodiscard]] const Gekihen_Table& Shown() const { return table; }

  private:
    [[nodiscard]] QWidget* Make_Scores() const;
    [[nodiscard]] QWidget* Make_Legend() const;
    void Show_Lines();
    void Show_Line(int row, const Gekihen_Line& line);
    void Make_Buttons();

    const Gekihen_Table table;
    Entry_Grid* grid;
};

} // namespace morvane
