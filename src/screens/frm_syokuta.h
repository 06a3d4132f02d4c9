// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/check_opener.h"
#include "screens/syokuta_entry.h"
#include "widgets/form.h"

#include <vector>

class QLabel;
class QScrollArea;

namespace morvane {

class Gain_Strip;
class Result_Strip;
class Syokuta_Edit;
class Syokuta_Sheet;

/// "自己資本額・利益額・従業職員数・その他（Ｘ２，Ｗ）": the entry of the items of X2 and W in the version of
/// the period's law year (Frm_Syokuta, Frm_Syokuta_2011, Frm_Syokuta_2012), and of the improvement beside the
/// current items (Frm_Syokutakaiz, ...); two periods without entries (Frm_SyokutaHKzen, ...). Leaving a field
/// calculates, closing the screen stores.
class Frm_Syokuta : public Form {
    Q_OBJECT

  public:
    /// `name` is that of a form of the family; the law year of the period tells which member it is. Raises
    /// Store_Error, Run_Time_Error.
    explicit Frm_Syokuta(Shell_Port& shell_port, const char* name = "Frm_Syokuta");

  protected:
    bool May_Close() override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Make_Sheet();
    [[nodiscard]] QWidget* Make_Legend();
    void Make_Strips();
    void Make_Buttons();

    void Show_W_2012();
    void Show_Before();
    [[nodiscard]] std::int32_t Item(const Syokuta_Edit& edit) const;
    bool Put(const Syokuta_Edit& edit, std::int32_t value);
    void Show_Gain_Of(const Syokuta_Entry& shown);
    void Try(const Syokuta_Edit& edit);
    bool Take_Entry(Syokuta_Edit& edit);
    void Step_Entry(bool back);
    bool Take_Focused();
    void Cmd_W2X(int index);
    void Prt();
    bool Save_First();

    /// An entry that was taken.
    struct Taken {
        Syokuta_Edit* edit;
        std::int32_t former;
        std::int32_t later;
    };

    const Syokuta_Screen& screen;
    Syokuta_Entry entry;
    Check_Opener checks;
    std::vector<Taken> done; ///< what Ctrl+Z takes back, the last one first
    std::vector<Taken> undone;
    Syokuta_Sheet* sheet;
    QScrollArea* scroll;
    Result_Strip* strip = nullptr;
    Gain_Strip* gain_strip = nullptr; ///< where there is a side before
    QLabel* fault_before = nullptr;   ///< why that one has no figures
};

} // namespace morvane
