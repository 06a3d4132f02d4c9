// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "app/menu_button.h"
#include "app/work_area.h"
#include "widgets/shell_port.h"

#include <QLabel>
#include <QWidget>
#include <functional>
#include <map>
#include <vector>

class QVBoxLayout;

namespace morvane {

/// The line that connects the pressed main button with its panel.
class Panel_Line : public QWidget {
  public:
    Panel_Line();
    void Point_At(const QWidget* pressed);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const QWidget* button = nullptr;
};

/// The menu: the column of main buttons at the left of the frame and the panels that open beside it. Every
/// screen is reached from here.
class Frm_Command : public QWidget {
    Q_OBJECT

  public:
    /// `end` is the normal end of the program (Cmd_End).
    Frm_Command(Shell_Port& shell_port, Work_Area& work_area, std::function<void()> end);

    /// Labels, captions and buttons by the session: a company is in hand.
    void Show_Company();

    /// No company is in hand.
    void Show_No_Company();

    /// A company has just been registered: the caption of the statement of changes follows its data form.
    void Show_Registered();

    /// Opens a form of the table; the menu keeps track of it.
    void Open_Form(const QString& form);

    /// Closes a screen and opens its sister in its place: for the menu they are one screen.
    void Replace_Form(Form* screen, const QString& sister);

    /// Closes the panel that is open, with its screens; a panel of the statements stores the sums of what was
    /// keyed in it. False where a screen or the panel stays.
    bool Close_Panel();

    /// Puts the focus on the first button that can be pressed.
    void Focus_First();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Add_Heading(QVBoxLayout& column);
    void Add_Groups(QVBoxLayout& column);
    void Fit_Buttons();
    void Fit_Column();
    QWidget* Make_Panel(const Menu_Panel& panel);
    Menu_Button* Add_Button(QVBoxLayout& column, const Menu_Entry& entry);
    [[nodiscard]] Menu_Button* Button(const char* name) const;

    void Press(Menu_Button& button);
    void Open_Panel(Menu_Button& button);
    bool Store_Sums();
    void Fold_Panel();
    void Open_Screen(Menu_Button& button);
    void Highlight(Menu_Button* button);
    void Screens_Closed();
    void Settle_Scores();
    void Update_Captions();
    void Update_Enabled();

    Shell_Port& shell;
    Work_Area& area;
    std::function<void()> normal_end;
    QFrame* command; ///< the column of the main buttons
    QLabel* SyaMei;
    QLabel* KsKi_Dsp;
    QLabel* JimusyoMei;
    QLabel* TiikiMei;
    Panel_Line* panel_line;
    std::vector<Menu_Button*> main_buttons;
    std::vector<Menu_Button*> panel_buttons;
    std::map<std::string, QWidget*> panel_widgets;
    std::vector<QLabel*> panel_companies; ///< the company over a panel that stands without the column
    const Menu_Panel* open_panel = nullptr;
    Menu_Button* panel_owner = nullptr;
    std::int32_t panel_company = 0; ///< company in hand when the panel was opened
    Menu_Button* Last_Button = nullptr;
    bool replacing = false; ///< one screen has closed and its sister is to come
};

} // namespace morvane
