// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "statements/account_grid.h"
#include "statements/saving_form.h"
#include "statements/statement_section.h"

#include <span>

class QLabel;
class QScrollArea;

namespace morvane {

class Line_Panels;
struct Cell_At;

/// A way in which the totals stand beside the grid.
struct Panel_Layout {
    int stacks;                              ///< of panels beside each other
    int width;                               ///< of a stack
    int least_grid;                          ///< the width that the grid has left
    const char* sheet = "";                  ///< style of what the panels show
    int amount_width = account_amount_width; ///< of the amounts in the grid; longer ones are squeezed
    std::size_t shown_of = 0;                ///< the first column of figures that the panels show
};

/// What a screen over a section of the statements shows.
struct Statement_Look {
    Account_Columns columns;
    std::array<Row_Amount, 4> amounts;     ///< in the columns of amounts, in their order
    std::span<const Panel_Layout> layouts; ///< the first one that the window has room for, else the last
    int widest_grid;
    int characters;                          ///< of a figure in the panels
    std::span<const char* const> headings{}; ///< of several columns of figures in the panels
};

/// A screen over a section of the statements: its accounts in a grid, and beside them all totals and the
/// balance check, which follow every cell that is left.
class Statement_Form : public Saving_Form {
    Q_OBJECT

  protected:
    /// `the_look` must outlive the form.
    Statement_Form(Shell_Port& shell_port, const QString& name, const QString& title,
                   const Statement_Look& the_look, Statement_Section first_section,
                   On_Cancel what_canseru_does = On_Cancel::Throw_Away);

    /// Adds grid and panels to the body and shows the section in hand.
    void Add_Fields();

    /// Shows another section of the same use.
    void Show_Section(Statement_Section another);

    /// Told what the check of the panel says, whenever it was formed.
    virtual void Checked(bool /*holds*/, const char* /*text*/) {}

    void resizeEvent(QResizeEvent* event) override;

    Statement_Section section;
    Entry_Grid* grid = nullptr;

  private:
    QWidget* Make_Grid();
    QWidget* Make_Panels();
    void Fill_Grid();
    void Name_Rows();
    void Take_Cells(const std::vector<Cell_At>& cells);
    void Show_Computed();
    void Panel_Show();
    [[nodiscard]] const Panel_Layout& Fitting_Layout() const;
    void Fit_Panels();
    [[nodiscard]] int First_Amount() const { return look.columns.signs ? gaku_behind_sign : gaku; }
    [[nodiscard]] std::size_t Amount_Count() const;
    /// Whether a cell shows what was computed.
    [[nodiscard]] bool Is_Computed(std::size_t row, std::size_t amount) const;

    const Statement_Look& look;
    QLabel* empty = nullptr;
    QScrollArea* panel_scroll = nullptr;
    const Panel_Layout* layout_in_hand = nullptr;
    Line_Panels* panels = nullptr;
};

} // namespace morvane
