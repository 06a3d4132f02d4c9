// SPDX-FileCopyrightText: The Morvane developers
#include "support/ui_fixture.h"

#include "law/run_time_error.h"
#include "session/boxes.h"
#include "widgets/form.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

namespace morvane::tests {

void Fake_Shell::Open_Form(const QString& form) {
    calls.push_back("Open_Form " + form.toStdString());
    if (on_open_form) {
        on_open_form(form);
    }
}

void Fake_Shell::Replace_Form(Form* screen, const QString& sister) {
    calls.push_back("Replace_Form " + sister.toStdString());
    screen->reject();
}

bool Fake_Shell::Guard(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const Run_Time_Error& error) {
        Show_Message(session, {.title = "実行時エラー", .text = error.what(), .beep = true});
    } catch (const Store_Error& error) {
        failure = error.what();
    }
    return false;
}

void Form_Installation::Open(Form* form) {
    opened.reset(form);
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form));
}

std::string Form_Installation::Press(const char* button) {
    messages.shown.clear();
    Click(*opened, button);
    return Titles() + (opened->isVisible() ? "@" + Focused() : "closed");
}

std::string Form_Installation::Focused() const {
    return opened->focusWidget() == nullptr ? "" : opened->focusWidget()->objectName().toStdString();
}

std::string Form_Installation::Text(const char* name) const {
    return opened->findChild<QWidget*>(QString::fromUtf8(name))->property("text").toString().toStdString();
}

void Click(QWidget& form, const char* button) {
    auto* widget = Child<QAbstractButton>(form, button);
    ASSERT_NE(widget, nullptr);
    ASSERT_TRUE(widget->isVisible()) << button;
    ASSERT_TRUE(widget->isEnabled()) << button;
    QTest::mouseClick(widget, Qt::LeftButton);
}

void Type_Into(QWidget& form, const char* cell, const char* keys) {
    auto* widget = Child<QLineEdit>(form, cell);
    ASSERT_NE(widget, nullptr);
    widget->setFocus(Qt::TabFocusReason);
    widget->selectAll();
    QTest::keyClick(widget, Qt::Key_Delete);
    for (const QChar c : QString::fromUtf8(keys)) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &press);
    }
}

void With_Dialogs(const std::function<void()>& act,
                  const std::vector<std::function<void(QDialog&)>>& during) {
    std::size_t opened = 0;
    QPointer<QWidget> last;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == last) {
            return;
        }
        last = dialog;
        if (opened < during.size()) {
            during[opened++](*dialog);
        } else {
            ADD_FAILURE() << "a dialog nobody waits for: " << dialog->objectName().toStdString();
            dialog->done(QDialog::Rejected);
        }
    });
    look.start(1);
    act();
    EXPECT_EQ(opened, during.size()) << "dialogs that opened";
}

void With_Dialog(const std::function<void()>& act, const std::function<void(QDialog&)>& during) {
    With_Dialogs(act, {during});
}

} // namespace morvane::tests
