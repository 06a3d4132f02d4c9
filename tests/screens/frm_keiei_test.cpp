// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_keiei.h"

#include "screens/rate_bar.h"
#include "support/ui_fixture.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

namespace morvane::tests {
namespace {

class Keiei_Window : public Ui_Installation {
  protected:
    Keiei_Window() {
        Make_Company(1, 1, 10);
        Put_Amounts({{402, 1.8e9},
                     {419, 2.6e8},
                     {480, 3.6e6},
                     {489, -6.8e7},
                     {319, 3.2e8},
                     {179, 4.2e8},
                     {229, 5.5e8},
                     {399, 1.0e9},
                     {830, 9.0e8},
                     {289, 2.8e8}});
    }

    static std::string Text(Frm_Keiei& form, const std::string& name) {
        return Child<QLabel>(form, name.c_str())->text().toStdString();
    }
};

TEST_F(Keiei_Window, Shows_The_Analysis_Of_The_Period_In_Hand) {
    const Y_Result y = Calc_Y(session, Side_In_Hand(session));
    ASSERT_TRUE(y.has_figures);
    const Keiei_Texts texts = Show_Keiei(y);
    Frm_Keiei form(shell);
    for (std::size_t i = 0; i < texts.Yoso.size(); ++i) {
        EXPECT_EQ(Text(form, "Yoso(" + std::to_string(i) + ")"), texts.Yoso[i]);
    }
    for (std::size_t i = 0; i < texts.kekka.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        EXPECT_EQ(Text(form, "kekka" + number), texts.kekka[i]);
        EXPECT_EQ(Text(form, "TRitu" + number), texts.TRitu[i] + " %");
    }
    EXPECT_EQ(Text(form, "YTen"), texts.YTen);
    EXPECT_EQ(Text(form, "Y"), texts.Y);
    EXPECT_EQ(Text(form, "Yoso(4)"), "-68,000");
}

TEST_F(Keiei_Window, A_Bar_Is_As_Long_As_Its_Rate) {
    const struct {
        double rate;
        int length;
    } cases[] = {{-5, 0}, {0, 0}, {25, 50}, {50, 100}, {100, 200}, {250, 200}};
    for (const auto& c : cases) {
        Rate_Bar bar;
        bar.resize(200, bar.sizeHint().height());
        bar.Set_Rate(c.rate);
        const QImage image = bar.grab().toImage();
        int length = 0;
        for (int x = 0; x < image.width(); ++x) {
            length += image.pixelColor(x, 1).blue() > image.pixelColor(x, 1).red() + 60 ? 1 : 0;
        }
        EXPECT_NEAR(length, c.length, 4) << c.rate;
    }
}

TEST_F(Keiei_Window, Every_Check_Opens_And_Keeps_The_Screen_Open) {
    Frm_Keiei form(shell);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    for (int index = 0; index < 10; ++index) {
        messages.shown.clear();
        Click(form, ("Cmd_X(" + std::to_string(index) + ")").c_str());
        QDialog* check = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->objectName() == QLatin1String("Frm_Y1_Calc_Check")) {
                check = qobject_cast<QDialog*>(window);
            }
        }
        ASSERT_NE(check, nullptr) << index;
        const QString of = index == 8   ? QStringLiteral("（Ａ）")
                           : index == 9 ? QStringLiteral("（Ｙ）")
                                        : QStringLiteral("（Ｘ") + QChar(u'１' + index);
        EXPECT_TRUE(check->windowTitle().startsWith(of)) << check->windowTitle().toStdString();
        Click(form, "Tojiru");
        EXPECT_TRUE(form.isVisible());
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].title, "クローズエラー");
        check->reject();
    }
    Click(form, "Prt");
    EXPECT_EQ(shell.calls.back(), "Open_Form Rpt_Keiei");
    Click(form, "Tojiru");
    EXPECT_FALSE(form.isVisible());
}

} // namespace
} // namespace morvane::tests
