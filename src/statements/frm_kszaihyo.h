// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "statements/saving_form.h"
#include "statements/statement_section.h"

#include <map>

class QScrollArea;

namespace morvane {

class Total_Panel;
struct Cell_At;

/// Statement entry (`Frm_KsZaihyo` of a corporation, `Frm_KsZaihyoKJ` of an individual): the accounts of the
/// section that the menu has chosen, and beside them all totals and the balance check, which follow every
/// cell that is left.
class Frm_KsZaihyo : public Saving_Form {
    Q_OBJECT

  public:
    /// Raises Store_Error.
    explicit Frm_KsZaihyo(Shell_Port& shell_port);

  protected:
    void Store(bool save) override { section.Close(save); }
    void resizeEvent(QResizeEvent* event) override;

  private:
    QWidget* Make_Grid();
    QWidget* Make_Panels();
    void Add_Buttons();
    void Fill_Grid();
    void Name_Rows();
    void Take_Cells(const std::vector<Cell_At>& cells);
    void Panel_Show();
    void Fit_Panels();

    Statement_Section section;
    Entry_Grid* grid = nullptr;
    QScrollArea* panel_scroll = nullptr;
    int column_width = 0; ///< of the panel
    std::map<Panel_Group, Total_Panel*> panels;
};

} // namespace morvane
