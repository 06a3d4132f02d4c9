// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_cell.h"

#include "support/ui_fixture.h"

#include <QVBoxLayout>

namespace morvane::tests {
namespace {

TEST(Entry_Cell_Test, Amount_is_bare_in_focus_and_formatted_when_left) {
    QWidget window;
    QVBoxLayout layout(&window);
    Entry_Cell amount(Entry_Kind::Amount);
    Entry_Cell other(Entry_Kind::Text);
    layout.addWidget(&amount);
    layout.addWidget(&other);
    amount.Set_Value(-1234567);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    EXPECT_EQ(amount.text().toStdString(), "-1,234,567");
    amount.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(amount.text().toStdString(), "-1234567");
    QTest::keyClicks(&amount, "98a76-5.");
    EXPECT_EQ(amount.text().toStdString(), "9876-5");
    other.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(amount.Entry(), Value(-1234567.0)) << "a text that is no number goes back to the former value";
}

} // namespace
} // namespace morvane::tests
