// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/menu_state.h"
#include "session/session.h"

#include <QString>
#include <functional>

class QWidget;

namespace morvane {

class Form;

/// What a form asks of the shell around it: the session, the menu beside it, help, and the one place where
/// failures end.
class Shell_Port {
  public:
    explicit Shell_Port(Session& the_session) : session(the_session) {}
    Shell_Port(const Shell_Port&) = delete;
    Shell_Port& operator=(const Shell_Port&) = delete;
    virtual ~Shell_Port() = default;

    Session& session;
    Menu_State menu; ///< changed by the menu alone

    /// A company is in hand (or its period or firm type has changed): the menu follows the session and the
    /// instance lock records its number.
    virtual void Show_Company() = 0;

    /// No company is in hand: the menu says so and disables what needs one.
    virtual void Show_No_Company() = 0;

    /// As Show_Company, after the registration of a new company: the caption of the statement of changes
    /// follows the data form.
    virtual void Show_Registered() = 0;

    /// Opens the form of that name, by the one table of forms: as a child of the frame or as a dialog. A form
    /// that is not there yet says so.
    virtual void Open_Form(const QString& form) = 0;

    /// Closes a screen by its cancel path and opens its sister in its place, as one screen for the menu: its
    /// button stays lit and Edit_Flg set. Nothing opens where the screen stays.
    virtual void Replace_Form(Form* screen, const QString& sister) = 0;

    /// Hides the menu, so that the screen has its room, or shows it again. It comes back by itself when the
    /// last screen has closed.
    virtual void Toggle_Menu() = 0;
    [[nodiscard]] virtual bool Is_Menu_Shown() const = 0;

    /// Opens the page of a form in the help window.
    virtual void Show_Help(const QString& form) = 0;

    /// Runs an event's work. A Run_Time_Error shows one box and false is returned; a Store_Error shows one
    /// box and ends the process with a failure status. Every slot of a form runs inside.
    virtual bool Guard(const std::function<void()>& work) = 0;

    /// Puts a dialog to where it last stood and keeps its place.
    virtual void Place(QWidget* /*window*/) {}

    /// The window over which boxes and dialogs stand; may be null.
    virtual QWidget* Window() = 0;
};

} // namespace morvane
