// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/form.h"

#include "widgets/theme.h"
#include "widgets/window_keys.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

Form::Form(Shell_Port& shell_port, const QString& name, const QString& title)
    : QDialog(nullptr), shell(shell_port), body(new QVBoxLayout), buttons(new QHBoxLayout),
      title_label(new QLabel), sub_title_label(new QLabel) {
    setObjectName(name);
    auto* header = new QFrame;
    theme::Set_Look(header, "header");
    auto* header_row = new QHBoxLayout(header);
    header_row->setContentsMargins(16, 8, 16, 8);
    theme::Set_Look(title_label, "title");
    title_label->setObjectName(QStringLiteral("Lbl_Title"));
    theme::Set_Look(sub_title_label, "muted");
    sub_title_label->setObjectName(QStringLiteral("Lbl_SubTitle"));
    header_row->addWidget(title_label);
    header_row->addSpacing(12);
    header_row->addWidget(sub_title_label, 1, Qt::AlignRight | Qt::AlignVCenter);

    body->setContentsMargins(16, 12, 16, 12);
    body->setSpacing(theme::panel_gap);
    buttons->setContentsMargins(16, 0, 16, 12);
    buttons->setSpacing(8);
    buttons->addStretch(1);

    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->addWidget(header);
    whole->addLayout(body, 1);
    whole->addLayout(buttons);
    Set_Title(title);
    Set_Sub_Title({});
    new Window_Keys(*this, *buttons);
}

void Form::Set_Title(const QString& title) {
    title_label->setText(title);
    setWindowTitle(title);
    setAccessibleName(title);
}

void Form::Set_Sub_Title(const QString& text) {
    sub_title_label->setText(text);
    sub_title_label->setVisible(!text.isEmpty());
}

Form* Form::Of(QWidget* widget) {
    while (widget != nullptr) {
        if (auto* form = qobject_cast<Form*>(widget)) {
            return form;
        }
        widget = widget->parentWidget();
    }
    return nullptr;
}

void Form::reject() {
    bool may_close = false;
    shell.Guard([&] { may_close = May_Close(); });
    if (may_close) {
        QDialog::reject();
    }
}

void Form::keyPressEvent(QKeyEvent* event) {
    const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (auto* button = qobject_cast<QPushButton*>(focusWidget()); button != nullptr && is_enter) {
        button->animateClick();
        return;
    }
    if (qobject_cast<QAbstractButton*>(focusWidget()) != nullptr && is_enter) {
        focusNextChild(); // an option is a field as any other
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        Cancel();
        return;
    }
    QDialog::keyPressEvent(event);
}

QPushButton* Form::Add_Button(const QString& name, const QString& caption, const char* look, bool left) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    button->setMinimumWidth(96);
    if (look != nullptr) {
        theme::Set_Look(button, look);
    }
    if (left) {
        buttons->insertWidget(left_buttons++, button);
    } else {
        buttons->addWidget(button);
    }
    return button;
}

QPushButton* Form::Add_Help_Button() {
    QPushButton* button = Add_Button(QStringLiteral("Cmd_help"), QStringLiteral("ﾍﾙﾌﾟ"), nullptr, true);
    Wire(button, &QPushButton::clicked, [this] { shell.Show_Help(objectName()); });
    return button;
}

QPushButton* Form::Add_Menu_Button() {
    QPushButton* button = Add_Button(QStringLiteral("Cmd_Mnu"), {}, nullptr, true);
    const auto say = [this, button] {
        button->setText(shell.Is_Menu_Shown() ? QStringLiteral("« ﾒﾆｭｰを隠す")
                                              : QStringLiteral("» ﾒﾆｭｰを表示"));
        button->setAccessibleName(button->text().mid(2));
    };
    say();
    Wire(button, &QPushButton::clicked, [this, say] {
        shell.Toggle_Menu();
        say();
        if (focusProxy() != nullptr) {
            setFocus(Qt::OtherFocusReason); // the keying goes on where it was
        }
    });
    return button;
}

} // namespace morvane
