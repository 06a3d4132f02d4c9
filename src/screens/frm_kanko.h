// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/check_opener.h"
#include "screens/kanko_entry.h"
#include "widgets/entry_grid.h"
#include "widgets/form.h"

#include <functional>

class QLabel;

namespace morvane {

class Entry_Cell;
class Gain_Strip;
class Result_Strip;

/// The screens of the work types: completed work with X1 and P (Frm_Kanko), engineers and prime-contract work
/// with Z (Frm_Kanko2), and the same with another side before them to compare with (Frm_KankoKaiz,
/// Frm_KankoKaiz2, Frm_KankoKaiz3), where what is keyed is in three screens; these also show two periods
/// without taking entries (Frm_KankoKaizzen, Frm_KankoKaiz2zen, Frm_KankoKaiz3zen). Leaving any field runs
/// the whole calculation; closing stores. Where storing fails the screen stays with everything that was
/// keyed.
class Frm_Kanko : public Form {
    Q_OBJECT

  public:
    /// `form` is the name of the screen. Raises Store_Error, Run_Time_Error.
    Frm_Kanko(Shell_Port& shell_port, const char* form);

  protected:
    bool May_Close() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Make_Grid();
    [[nodiscard]] QWidget* Make_Strip();
    [[nodiscard]] QWidget* Make_Result_Strip();
    [[nodiscard]] QWidget* Make_Head();
    void Make_Buttons();
    void Print(const Kanko_Button& report);

    void Try(const std::function<void(Kanko_Entry&)>& change);
    void Try_Entry(int row, int column, const Value& value);
    bool Take(const std::vector<Cell_At>& cells);
    [[nodiscard]] std::int32_t Keyed_Avg() const;
    void Take_Avg();
    void Show_Entries();
    void Show_Column(int column);
    void Show_Total(int column);
    void Show_Years();
    void Show_Kanko();
    void Show_Basis();
    void Show_Row_In_Hand();
    [[nodiscard]] int First_Row() const;
    void Set_Cmd_Enable();
    void Open_Check(int row, int column);
    bool Finish_Entry();
    bool Save_First();

    Kanko_Entry entry;
    Check_Opener checks{*this, shell};
    Entry_Grid* grid;
    Entry_Cell* Kanko_Avg = nullptr;  ///< on the screen of completed work
    Result_Strip* strip = nullptr;    ///< the scores of the work type in hand
    Gain_Strip* gain_strip = nullptr; ///< in its place where two sides are compared: what P gains
    QLabel* basis;                    ///< the scores that P takes besides
    QLabel* fault;                    ///< why nothing can be computed
};

} // namespace morvane
