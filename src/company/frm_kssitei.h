// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "company/periods.h"
#include "widgets/form.h"

#include <array>
#include <optional>
#include <vector>

class QButtonGroup;
class QRadioButton;
class QStackedWidget;

namespace morvane {

class Entry_Cell;
class Record_List;

/// "決算期処理": chooses the period in hand, adds one on either side, deletes one at either end, sets the law
/// year of a period.
class Frm_KsSitei : public Form {
    Q_OBJECT

  public:
    explicit Frm_KsSitei(Shell_Port& shell_port);

  protected:
    bool May_Close() override;

  private:
    enum class Mode { Existing, After, Before };

    QWidget* Make_Mode_Panel();
    QWidget* Make_Law_Panel();
    QWidget* Make_List_Panel();
    QWidget* Make_New_Panel();

    void Show_Periods();
    void Show_Mode(Mode to);
    void Show_Law_Of_Chosen();
    void Mark_Law(std::optional<Law_Year_No> law_year, bool enabled);
    void Law_Clicked(Law_Year_No law_year);
    void Excute();
    void Show_Fault(const QString& text);

    [[nodiscard]] std::optional<std::int16_t> Chosen() const;
    [[nodiscard]] Copy_Mode New_Mode() const {
        return mode == Mode::After ? Copy_Mode::After : Copy_Mode::Before;
    }

    std::vector<Period_Entry> periods;
    Mode mode = Mode::Existing;
    Law_Year_No marked_law{}; ///< {} none

    Record_List* list;
    QLabel* Lbl_Kizon;
    Entry_Cell* Ks_ki;
    QLabel* fault;
    QLabel* what_is_carried;
    QStackedWidget* pages;
    QButtonGroup* law_options;
    QPushButton* Cmd_Excute;
    QPushButton* Cmd_Del;
};

} // namespace morvane
