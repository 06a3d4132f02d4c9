// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/check_opener.h"
#include "screens/keiei.h"
#include "widgets/form.h"

class QBoxLayout;
class QGridLayout;
class QLabel;

namespace morvane {

class Rate_Bar;
class Total_Panel;

/// The analysis of the management status of the period in hand: the fourteen elements, the eight indicators
/// with their rates, the points A and the score Y. It stores nothing.
class Frm_Keiei : public Form {
    Q_OBJECT

  public:
    /// Raises Store_Error, Run_Time_Error.
    explicit Frm_Keiei(Shell_Port& shell_port);

  protected:
    bool May_Close() override { return checks.May_Close(); }
    void resizeEvent(QResizeEvent* event) override;

  private:
    [[nodiscard]] QWidget* Make_Elements();
    [[nodiscard]] QWidget* Make_Indicators();
    [[nodiscard]] QWidget* Make_Score();
    void Add_Indicator(QGridLayout& grid, std::size_t index);
    QPushButton* Make_Check(int index, const QString& of_what);
    void Make_Buttons();
    void Open_Check(int index);

    Y_Result y;
    Keiei_Texts texts;
    Check_Opener checks{*this, shell};
    QBoxLayout* columns = nullptr;
};

} // namespace morvane
