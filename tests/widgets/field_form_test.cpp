// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/field_form.h"

#include "support/keyboard.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <stdexcept>

namespace morvane::tests {
namespace {

constexpr Field fields[] = {
    {.name = "Yu1", .caption = "郵便番号", .kind = Entry_Kind::Digits, .max_length = 3, .width = 3},
    {.name = "Yu2", .kind = Entry_Kind::Digits, .max_length = 4, .width = 4, .before = "-", .label = "下"},
    {.name = "HoKo", .caption = "法人・個人", .kind = Entry_Kind::Choice, .width = 2, .choices = "12"},
    {.name = "Syozai", .caption = "所在地", .max_length = 5, .hint = "・・・市区町村から"},
};

class Field_Form_Test : public ::testing::Test {
  protected:
    Field_Form_Test() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(form);
        layout->addWidget(button);
        Show(window);
    }

    QWidget window;
    Field_Form* form = new Field_Form(fields);
    QPushButton* button = new QPushButton;
};

TEST_F(Field_Form_Test, Enter_Moves_On_Through_All_Cells_To_What_Follows) {
    form->Focus("Yu1");
    std::string way;
    for (int i = 0; i < 4; ++i) {
        way += Place() + " ";
        Key(Qt::Key_Return);
    }
    EXPECT_EQ(way, "Yu1 Yu2 HoKo Syozai ");
    EXPECT_TRUE(button->hasFocus());
}

TEST_F(Field_Form_Test, Texts_Go_In_And_Out_And_Edits_Are_Told) {
    form->Set_Texts({{"Yu1", "012"}, {"Syozai", "札幌市"}, {"Other", "x"}});
    EXPECT_FALSE(form->Is_Edited());
    std::string told;
    QObject::connect(form, &Field_Form::Edited,
                     [&](const QString& name) { told += name.toStdString() + " "; });
    Type_Into(window, "Yu2", "１2a345");
    Type_Into(window, "HoKo", "32");
    Type_Into(window, "Syozai", "札幌市中央区");
    button->setFocus();
    EXPECT_EQ(form->Texts(), (std::map<std::string, std::string>{
                                 {"Yu1", "012"}, {"Yu2", "1234"}, {"HoKo", "2"}, {"Syozai", "札幌市中央"}}));
    EXPECT_EQ(told.substr(0, 4), "Yu2 ");
    EXPECT_TRUE(form->Is_Edited());
    EXPECT_EQ(form->Cell("Yu2").accessibleName().toStdString(), "下");
    EXPECT_THROW(static_cast<void>(form->Cell("Nobody")), std::out_of_range);
}

} // namespace
} // namespace morvane::tests
