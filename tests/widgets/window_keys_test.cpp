// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/window_keys.h"

#include "support/keyboard.h"
#include "widgets/entry_cell.h"
#include "widgets/form.h"
#include "widgets/record_list.h"

#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace morvane::tests {
namespace {

constexpr List_Column list_columns[] = {{"名称"}};

class Keyed_Form : public Form {
  public:
    explicit Keyed_Form(Shell_Port& shell_port, bool with_fields)
        : Form(shell_port, QStringLiteral("Frm_Test"), QStringLiteral("試験")) {
        if (with_fields) {
            cell = new Entry_Cell(Entry_Kind::Amount);
            option = new QRadioButton(QStringLiteral("円"));
            list = new Record_List(list_columns);
            list->Set_Rows({{"一"}, {"二"}});
            body->addWidget(cell);
            body->addWidget(option);
            body->addWidget(list);
        }
        Add_Help_Button();
        for (const char* name : {"Cmd_Help_Me", "Cmd_Save", "Cmd_Send", "Tojiru"}) {
            const bool is_close = std::string_view(name) == "Tojiru";
            QPushButton* button = Add_Button(QString::fromLatin1(name), QStringLiteral("閉じる"),
                                             is_close ? "primary" : nullptr);
            connect(button, &QPushButton::clicked, [this, name] { pressed += std::string(name) + " "; });
        }
    }

    Entry_Cell* cell = nullptr;
    QRadioButton* option = nullptr;
    Record_List* list = nullptr;
    std::string pressed;
};

class Window_Keys_Test : public Ui_Installation {
  protected:
    void Open(bool with_fields) {
        form = std::make_unique<Keyed_Form>(shell, with_fields);
        Show(*form);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(form->windowHandle(), key, modifiers);
    }
    QWidget frame;
    std::unique_ptr<Keyed_Form> form;
};

TEST_F(Window_Keys_Test, Every_Button_Has_A_Letter_Of_Its_Own) {
    Open(true);
    std::string letters;
    for (const auto* button : form->findChildren<QPushButton*>()) {
        const QString text = button->text();
        ASSERT_TRUE(text.endsWith(u')') && text.contains(QLatin1String("(&"))) << text.toStdString();
        EXPECT_FALSE(button->accessibleName().contains(u'&'));
        const char letter = text.at(text.size() - 2).toLatin1();
        EXPECT_EQ(letters.find(letter), std::string::npos) << letter;
        letters += letter;
    }
    for (const char letter : letters) {
        Key(static_cast<Qt::Key>(letter), Qt::AltModifier);
    }
    EXPECT_EQ(form->pressed.size(), std::string("Cmd_Help_Me Cmd_Save Cmd_Send Tojiru ").size());
    // In the frame a form has to do with the room that is there.
    form->setParent(&frame, Qt::Widget);
    frame.show();
    form->show();
    form->resize(200, 300);
    QTest::qWait(1);
    EXPECT_EQ(Child<QPushButton>(*form, "Tojiru")->text().toStdString(), "閉じる") << "no room for more";
    form->pressed.clear();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    form->cell->setFocus();
    QTest::keyClick(frame.windowHandle(), Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(form->pressed, "Tojiru ");
}

TEST_F(Window_Keys_Test, A_Letter_Takes_The_Entry_In_Hand_First) {
    Open(true);
    int left = 0;
    QObject::connect(form->cell, &Entry_Cell::Left, [&] { ++left; });
    form->cell->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(form->cell, "12");
    Key(Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(left, 1);
    EXPECT_EQ(form->pressed, "Tojiru ");
    form->cell->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(form->cell, "--");
    Key(Qt::Key_C, Qt::AltModifier);
    QTest::qWait(1);
    EXPECT_EQ(form->pressed, "Tojiru ") << "a refused entry is seen first";
    EXPECT_TRUE(form->cell->hasFocus());
    EXPECT_EQ(form->cell->Entry(), Value(12.0));
}

TEST_F(Window_Keys_Test, Keys_Go_From_Part_To_Part) {
    Open(true);
    form->option->setFocus();
    const std::vector<QWidget*> round = {form->list, Child<QPushButton>(*form, "Tojiru"), form->option};
    for (QWidget* part : round) {
        Key(Qt::Key_F6);
        EXPECT_TRUE(part->hasFocus()) << Place();
    }
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(form->list->hasFocus());
    Key(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(form->option->hasFocus());
    Key(Qt::Key_Return);
    EXPECT_TRUE(form->list->hasFocus()) << "Enter goes on from an option";
}

/// A button pressed a moment after another would be carried out under the question that the other one asks.
TEST_F(Window_Keys_Test, A_Button_Is_Pressed_At_Once) {
    Open(false);
    EXPECT_EQ(Place(), "Tojiru") << "a form of buttons opens on its action";
    auto* save = form->findChild<QPushButton*>("Cmd_Save");
    auto* labelled = new QPushButton(QStringLiteral("実行(&Q)"), form.get());
    labelled->show();
    QObject::connect(labelled, &QPushButton::clicked, [this] { form->pressed += "Q "; });
    save->setFocus();
    QTest::keyClick(save, Qt::Key_Return);
    EXPECT_EQ(form->pressed, "Cmd_Save ");
    QTest::keyClick(form.get(), Qt::Key_Q, Qt::AltModifier);
    EXPECT_EQ(form->pressed, "Cmd_Save Q ");
}

} // namespace
} // namespace morvane::tests
