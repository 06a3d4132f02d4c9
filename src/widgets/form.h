// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/background_work.h"
#include "widgets/shell_port.h"

#include <QDialog>
#include <memory>
#include <optional>
#include <utility>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace morvane {

class Body_Scroll;

/// A screen: a header with its title, a body, a row of buttons at its foot. It stands in the frame as a child
/// or, shown with exec, as a dialog. The close button of the window, Cmd_Cancel and Esc outside of a
/// half-typed entry all take the one way out through May_Close. F1 opens its help page.
class Form : public QDialog {
    Q_OBJECT

  public:
    /// `name` is the form's name and objectName, `title` its caption.
    Form(Shell_Port& shell_port, const QString& name, const QString& title);

    void Set_Title(const QString& title);

    /// The line beside the title (Lbl_SubTitle); empty hides it.
    void Set_Sub_Title(const QString& text);

    /// The form that has a widget in it; null outside of forms.
    static Form* Of(QWidget* widget);

    void reject() override;

  protected:
    /// Enter presses the button that has the focus; Esc cancels; the paging keys scroll.
    void keyPressEvent(QKeyEvent* event) override;

    /// Asked before the form closes by its cancel path; false keeps it open.
    virtual bool May_Close() { return true; }

    /// What Esc does: the cancel button of the form, which here is its close.
    virtual void Cancel() { reject(); }

    /// Closes without asking.
    void Close_Form() { QDialog::accept(); }

    /// Puts the focus back into the field of the body that had it last, as a button at the foot does whose
    /// work leaves the form open for more entries; into the form's own first one where none had it.
    void Focus_Field();

    /// Adds a button at the foot: at the right, or at the left of the row (`left`). `look` "primary" marks
    /// the one that carries the form out.
    QPushButton* Add_Button(const QString& name, const QString& caption, const char* look = nullptr,
                            bool left = false);

    /// Adds Cmd_help, which opens the page of the form.
    QPushButton* Add_Help_Button();

    /// Adds Cmd_Mnu, the picture that hides and shows the menu.
    QPushButton* Add_Menu_Button();

    /// Connects a signal to work that runs inside the shell's guard.
    template <class Sender, class Signal, class Work>
    void Wire(Sender* sender, Signal signal, Work work) {
        if constexpr (std::is_invocable_v<Work>) {
            connect(sender, signal, this, [this, work] { shell.Guard(work); });
        } else {
            connect(sender, signal, this,
                    [this, work](auto... arguments) { shell.Guard([&] { work(arguments...); }); });
        }
    }

    /// Runs `job` beside the windows and then `then` with its result; see Run_In_Background.
    template <class Job, class Then>
    void Run_Beside(const Work_Notice& notice, Job job, Then then) {
        auto result = std::make_shared<std::optional<std::invoke_result_t<Job, Progress&>>>();
        Run_In_Background(
            *this, shell, notice, [job, result](Progress& progress) { result->emplace(job(progress)); },
            [then, result] { then(**result); });
    }

    Shell_Port& shell;
    QVBoxLayout* body;    ///< what the form shows
    QHBoxLayout* buttons; ///< the row at its foot

  private:
    Body_Scroll* scroll;
    QLabel* title_label;
    QLabel* sub_title_label;
    int left_buttons = 0;
};

} // namespace morvane
