// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/check_opener.h"
#include "screens/keiei.h"
#include "widgets/form.h"

class QBoxLayout;
class QGridLayout;
class QLabel;

namespace morvane {

class Other_Firm_Entry;
class Rate_Bar;

/// The analysis of the management status: the fourteen elements, the eight indicators with their rates, the
/// points A and the score Y, of the period in hand (Frm_Keiei) or of two sides beside each other
/// (Frm_KeieiKz). It stores nothing. Of another firm beside the own one the elements are keyed; its figures
/// follow every key.
class Frm_Keiei : public Form {
    Q_OBJECT

  public:
    /// `name` is the form's; what is compared goes by the mode of the menu. Raises Store_Error, and
    /// Run_Time_Error where a single side cannot be computed.
    explicit Frm_Keiei(Shell_Port& shell_port, const char* name = "Frm_Keiei");

  protected:
    bool May_Close() override { return checks.May_Close(); }
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    /// The figures of an indicator on a side.
    struct Figures {
        QLabel* value = nullptr;
        Rate_Bar* bar = nullptr;
        QLabel* rate = nullptr;
    };

    /// What shows a side.
    struct Shown {
        std::array<Figures, y_indicators.size()> indicators;
        QLabel* points = nullptr;
        QLabel* score = nullptr;
        Rate_Bar* gauge = nullptr;
    };

    [[nodiscard]] bool Compares() const { return columns.size() > 1; }
    void Add_Notices();
    [[nodiscard]] QWidget* Make_Elements();
    [[nodiscard]] QWidget* Make_Indicators();
    [[nodiscard]] QWidget* Make_Legend();
    [[nodiscard]] QWidget* Make_Score();
    void Add_Indicator(QGridLayout& grid, std::size_t index);
    void Add_Single(QGridLayout& grid, int row, std::size_t index);
    void Add_Compared(QGridLayout& grid, int row, std::size_t index);
    const Figures& Make_Figures(std::size_t side, std::size_t index);
    QLabel* Add_Scores(QBoxLayout& lines, QLabel* Shown::*place, const char* Keiei_Names::*name,
                       double points);
    void Add_Gauges(QBoxLayout& lines);
    void Show_Column(std::size_t side);
    void Show_Gain();
    QPushButton* Make_Check(int index, const QString& of_what);
    void Make_Buttons();
    void Open_Check(int index);
    [[nodiscard]] Checked_Side Checked(const Screen_Side& side) const;

    const Keiei_Screen& screen;
    std::vector<Keiei_Column> columns;
    std::vector<Shown> shown; ///< by column
    QLabel* points_gain = nullptr;
    QLabel* score_gain = nullptr;
    Other_Firm_Entry* other_firm = nullptr; ///< where it is compared with one
    Check_Opener checks{*this, shell};
    QBoxLayout* halves = nullptr;
    QBoxLayout* left = nullptr; ///< elements and score
    QWidget* indicators = nullptr;
    QPushButton* menu_button = nullptr; ///< where there are two sides
};

} // namespace morvane
