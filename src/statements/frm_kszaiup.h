// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "statements/statement_form.h"

#include <cstddef>
#include <functional>
#include <vector>

class QGridLayout;
class QPushButton;

namespace morvane {

class Note_Button;

/// The journal of the improvement (`Frm_KsZaiUP` of a corporation, `Frm_KsZaiUPKJ` of an individual): debits
/// and credits against the accounts of the statements, a section at a time, with the balances that follow.
/// Leaving a section stores it, and so does every way of closing the screen.
class Frm_KsZaiUP : public Statement_Form {
    Q_OBJECT

  public:
    /// Raises Store_Error.
    explicit Frm_KsZaiUP(Shell_Port& shell_port);

  protected:
    void Store(bool) override { section.Save_Rows(); }
    void resizeEvent(QResizeEvent* event) override;
    void Checked(bool holds, const char* text) override;

  private:
    QWidget* Make_Chooser();
    QPushButton* Add_Choice(const char* caption, std::function<void()> chosen);
    void Lay_Chooser();
    void Add_Buttons();
    void Step_Section(int step);
    void Go_To_Section(std::size_t place);
    /// Runs `store`, then opens a section and shows it; false where that failed and the screen stays.
    bool Open_After(const std::function<void()>& store, std::size_t place);
    void Name_Section();
    bool Save();
    /// Asks whether the section may be stored now, and stores it.
    bool Save_Asked(const char* question);
    void BLCheck();
    void DtClear();
    void Y_Disp();

    std::size_t in_hand = 0; ///< the place of the section that is shown
    QGridLayout* chooser = nullptr;
    std::vector<QPushButton*> Cmd_Upz;
    QLabel* check;
    Note_Button* note = nullptr;
};

} // namespace morvane
