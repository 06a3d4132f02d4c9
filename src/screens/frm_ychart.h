// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/keiei.h"
#include "widgets/form.h"

class QBoxLayout;
class QLabel;

namespace morvane {

class Chart_View;

/// The chart of the eight indicators: of the current figures, from where the consultation goes on to the
/// advice, or of the two sides that the menu compares. It stores nothing.
class Frm_Ychart : public Form {
    Q_OBJECT

  public:
    /// Raises Store_Error, and Run_Time_Error where a single side cannot be computed.
    explicit Frm_Ychart(Shell_Port& shell_port);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    [[nodiscard]] QWidget* Make_Chart();
    [[nodiscard]] QWidget* Make_Consul_Mnu();
    void Make_Buttons();

    const Keiei_Screen& screen;
    const std::vector<Keiei_Column> columns;
    Chart_View* chart = nullptr;
    QBoxLayout* halves = nullptr; ///< of the consultation: the chart and what leads on from it
    QLabel* heading = nullptr;    ///< of the latter, with its layout
    QBoxLayout* consul = nullptr;
    QPushButton* menu_button = nullptr;
};

} // namespace morvane
