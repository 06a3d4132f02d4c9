// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "statements/prior_figures.h"
#include "statements/saving_form.h"

#include <vector>

namespace morvane {

/// Prior-period figures (`Frm_KsZenki` of a corporation, `Frm_KsZenkiKJ` of an individual): two blocks that
/// are keyed or copied from the statements of the two periods before.
class Frm_KsZenki : public Saving_Form {
    Q_OBJECT

  public:
    /// Raises Store_Error.
    explicit Frm_KsZenki(Shell_Port& shell_port);

  protected:
    void Store(bool save) override;

  private:
    /// A block on the screen.
    struct Block {
        std::vector<Prior_Row>* rows = nullptr;
        Entry_Grid* grid = nullptr;
    };

    QWidget* Add_Block(Block& block, std::vector<Prior_Row>& rows, bool second_prior);
    static void Fill(Block& block);
    void Copy(bool second_prior);

    Prior_Figures figures;
    Block prior;
    Block second_prior;
};

} // namespace morvane
