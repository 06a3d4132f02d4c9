// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "support/installation_fixture.h"
#include "widgets/form.h"
#include "widgets/shell_port.h"

#include <QDialog>
#include <QTest>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace morvane::tests {

/// A shell around a single form: keeps what the form asked of it.
class Fake_Shell : public Shell_Port {
  public:
    using Shell_Port::Shell_Port;

    void Show_Company() override { calls.emplace_back("Show_Company"); }
    void Show_No_Company() override { calls.emplace_back("Show_No_Company"); }
    void Show_Registered() override { calls.emplace_back("Show_Registered"); }
    void Open_Form(const QString& form) override;
    void Replace_Form(Form* screen, const QString& sister) override;
    void Toggle_Menu() override {
        calls.emplace_back("Toggle_Menu");
        menu_shown = !menu_shown;
    }
    [[nodiscard]] bool Is_Menu_Shown() const override { return menu_shown; }
    void Show_Help(const QString& form) override { calls.push_back("Show_Help " + form.toStdString()); }
    bool Guard(const std::function<void()>& work) override;
    QWidget* Window() override { return nullptr; }

    std::vector<std::string> calls;
    bool menu_shown = true;
    std::string failure;                              ///< text of the Store_Error that would end the process
    std::function<void(const QString&)> on_open_form; ///< what a form opened from the form does
};

/// An installation with a shell, for tests of forms.
class Ui_Installation : public Installation {
  protected:
    explicit Ui_Installation(const std::string& edition = "13", bool multi = true)
        : Installation(edition, multi), shell(session) {}

    Fake_Shell shell;
};

/// The same around one form.
class Form_Installation : public Ui_Installation {
  protected:
    using Ui_Installation::Ui_Installation;

    /// Shows a form and waits until the keys are its.
    void Open(Form* form);

    /// Clicks a button of the form: the titles of the boxes that came, then @ and the cell that has the
    /// focus, or "closed".
    std::string Press(const char* button);

    [[nodiscard]] std::string Focused() const;

    /// The text of an entry cell, a label or a button.
    [[nodiscard]] std::string Text(const char* name) const;

    std::unique_ptr<Form> opened;
};

/// The child of that objectName; a test failure and a crash where there is none of that type.
template <class Widget>
Widget* Child(QWidget& parent, const char* name) {
    auto* child = parent.findChild<Widget*>(QString::fromUtf8(name));
    EXPECT_NE(child, nullptr) << name;
    return child;
}

/// Clicks a button as a user does: it must be visible and enabled.
void Click(QWidget& form, const char* button);

/// Types over the content of an entry cell: focus, select all, the keys; the focus stays there.
void Type_Into(QWidget& form, const char* cell, const char* keys);

/// Runs `act`, which opens a modal dialog, and `during` while that dialog is open. Fails where none opens.
void With_Dialog(const std::function<void()>& act, const std::function<void(QDialog&)>& during);

/// The same for dialogs that open one after the other, or one over the other; a further one fails and is
/// rejected.
void With_Dialogs(const std::function<void()>& act, const std::vector<std::function<void(QDialog&)>>& during);

} // namespace morvane::tests
