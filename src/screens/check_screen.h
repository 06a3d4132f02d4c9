// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/check_sheet.h"
#include "widgets/form.h"

#include <QPointer>
#include <functional>

class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace morvane {

/// The way from a check to that of the other of two sides.
struct Other_Side {
    QString caption = {}; ///< of its button
    std::function<void()> show = {};
};

/// A window that shows how a score came about, or a table of the law behind it: whatever its sheet says. It
/// is modeless, belongs to the screen that opened it and goes with it.
class Check_Screen : public Form {
    Q_OBJECT

  public:
    /// Makes a window of `owner` by the form's name and shows it. A notice of the sheet comes up before.
    static Check_Screen* Show_Beside(Form& owner, Shell_Port& shell, const QString& form, Check_Sheet sheet,
                                     const Other_Side& other = {});

    /// Closes the check screens of a screen with what they opened, as the menu does: without the refusals,
    /// which belong to their own buttons.
    static void Unload_Beside(const Form& owner);

  protected:
    bool May_Close() override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Check_Screen(Shell_Port& shell_port, const QString& form, Check_Sheet the_sheet);

    void Add_Figures();
    void Add_Formula();
    void Add_Steps();
    void Add_Results();
    void Add_Buttons();
    void Add_Other_Side(const Other_Side& other);
    void Open_Table();
    void Explain();
    bool Scroll_By_Key(int key);

    Check_Sheet sheet;
    QScrollArea* scroll;
    QVBoxLayout* content = nullptr; ///< what it scrolls
    QPointer<Check_Screen> table;   ///< the window behind Cmd_Tbl while it is open
};

} // namespace morvane
