// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_cell.h"

#include "support/ui_fixture.h"
#include "widgets/entry_text.h"

#include <QClipboard>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane::tests {
namespace {

class Entry_Cell_Test : public ::testing::Test {
  protected:
    Entry_Cell_Test() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&cell);
        layout->addWidget(&other);
        cell.Set_Choices("13");
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        other.setFocus();
        QObject::connect(&cell, &Entry_Cell::Refused, [this] { ++refused; });
        QObject::connect(&cell, &Entry_Cell::Left, [this] { ++left; });
    }

    void Type(const char* keys) {
        for (const char32_t c : QString::fromUtf8(keys).toUcs4()) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&c, 1));
            QApplication::sendEvent(&cell, &press);
        }
    }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&cell, key, modifiers); }

    QWidget window;
    Entry_Cell cell{Entry_Kind::Amount};
    QPushButton other;
    int refused = 0;
    int left = 0;
};

TEST_F(Entry_Cell_Test, Amount_is_bare_in_focus_and_formatted_when_left) {
    cell.setMaxLength(8);
    cell.Set_Value(-1234567);
    EXPECT_EQ(cell.text().toStdString(), "-1,234,567") << "commas do not count against the length";
    cell.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(cell.text().toStdString(), "-1234567");
    Type("98a７6.54321");
    EXPECT_EQ(cell.text().toStdString(), "98765432");
    EXPECT_EQ(refused, 3) << "a, point, the ninth digit";
    other.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(cell.text().toStdString(), "98,765,432");
    EXPECT_EQ(cell.Entry(), Value(98765432.0));
    EXPECT_EQ(left, 1);
}

TEST_F(Entry_Cell_Test, Passing_a_cell_changes_nothing) {
    for (const Value& value : {Value(999.5), Value(123456789012.0), Value()}) {
        cell.setMaxLength(5);
        cell.Set_Value(value);
        cell.setFocus(Qt::TabFocusReason);
        other.setFocus(Qt::TabFocusReason);
        EXPECT_EQ(cell.Entry(), value);
    }
}

TEST_F(Entry_Cell_Test, A_text_that_is_no_number_keeps_the_focus) {
    cell.Set_Value(777);
    bool moved_on = false;
    QObject::connect(&cell, &Entry_Cell::Next_Field, [&] { moved_on = true; });
    const std::vector<std::function<void()>> ways = {[this] { Key(Qt::Key_Return); },
                                                     [this] { Key(Qt::Key_Tab); },
                                                     [this] { QTest::mouseClick(&other, Qt::LeftButton); }};
    for (const auto& leave : ways) {
        cell.setFocus(Qt::TabFocusReason);
        refused = 0;
        Type("--5");
        leave();
        QTest::qWait(1);
        EXPECT_TRUE(cell.hasFocus());
        EXPECT_EQ(cell.Entry(), Value(777.0));
        EXPECT_EQ(refused, 1);
    }
    EXPECT_FALSE(moved_on);
    EXPECT_EQ(left, 0);
}

TEST_F(Entry_Cell_Test, Every_way_in_is_filtered) {
    QMimeData dragged;
    dragged.setText("△1,23");
    QApplication::clipboard()->setText("（４５,６）\n");
    const std::vector<std::pair<std::function<void()>, const char*>> ways = {
        {[this] { Key(Qt::Key_V, Qt::ControlModifier); }, "-456"},
        {[this] { Key(Qt::Key_Insert, Qt::ShiftModifier); }, "-456"},
        {[&] {
             QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
             static_cast<QObject&>(cell).event(&drop);
         },
         "-123"},
        {[this] {
             QContextMenuEvent ask(QContextMenuEvent::Mouse, QPoint(5, 5), cell.mapToGlobal(QPoint(5, 5)));
             QApplication::sendEvent(&cell, &ask);
             auto* menu = cell.findChild<QMenu*>();
             ASSERT_NE(menu, nullptr);
             menu->findChild<QAction*>("Mnu_Paste")->trigger();
             delete menu;
         },
         "-456"},
        {[this] {
             QInputMethodEvent event;
             event.setCommitString("－８");
             QApplication::sendEvent(&cell, &event);
         },
         "-8"},
    };
    for (const auto& [way, expected] : ways) {
        cell.Set_Value({});
        cell.setFocus(Qt::TabFocusReason);
        way();
        EXPECT_EQ(cell.Bare_Text(), expected);
        cell.Set_Locked(true);
        cell.Set_Value(7);
        way();
        EXPECT_EQ(cell.Bare_Text(), "7") << "a locked cell takes nothing";
        cell.Set_Locked(false);
    }
    cell.Set_Value(5);
    for (const char* no_figure : {"1.5", "1E3", "12345678901"}) {
        cell.setMaxLength(10);
        QApplication::clipboard()->setText(no_figure);
        cell.selectAll();
        Key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(cell.Bare_Text(), "5") << "whole or not at all: " << no_figure;
    }
}

TEST_F(Entry_Cell_Test, Keys_by_kind) {
    const struct {
        Entry_Kind kind;
        const char* keys;
        const char* text;
        int refused;
    } cases[] = {{Entry_Kind::Choice, "1", "1", 0},
                 {Entry_Kind::Choice, "123", "3", 1},
                 {Entry_Kind::Digits, "-0９a", "09", 2},
                 {Entry_Kind::Amount, "5-", "5-", 0},
                 {Entry_Kind::Text, "株 𠮷野-1", "株 𠮷野-1", 0}};
    for (const auto& c : cases) {
        cell.Set_Kind(c.kind);
        cell.Set_Value({});
        cell.setFocus(Qt::TabFocusReason);
        refused = 0;
        Type(c.keys);
        EXPECT_EQ(cell.Bare_Text(), c.text);
        EXPECT_EQ(refused, c.refused) << c.keys;
    }
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(cell.Bare_Text(), "株 𠮷野-1") << "typing can be undone in the cell";
}

TEST_F(Entry_Cell_Test, What_is_composed_belongs_to_the_entry) {
    cell.Set_Kind(Entry_Kind::Text);
    cell.setMaxLength(3);
    cell.setFocus(Qt::TabFocusReason);
    QInputMethodEvent composing("けんせつ", {});
    QApplication::sendEvent(&cell, &composing);
    other.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(cell.Bare_Text(), "けんせ") << "as far as it fits";
    EXPECT_EQ(left, 1);
}

TEST_F(Entry_Cell_Test, A_window_over_the_cells_own_does_not_leave_it) {
    cell.setFocus(Qt::TabFocusReason);
    Type("1234");
    QWidget above;
    above.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&above));
    EXPECT_EQ(left, 0);
    EXPECT_EQ(cell.text().toStdString(), "1234");
    other.setFocus();
    above.close();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(left, 1) << "the focus was put elsewhere meanwhile";
    EXPECT_EQ(cell.text().toStdString(), "1,234");
}

TEST(Entry_Text_Test, Figures_of_other_programs) {
    const struct {
        const char* shown;
        const char* bare;
    } cases[] = {{"￥1,234円", "1234"}, {" (5,678) ", "-5678"}, {"▲９，０００", "-9000"},
                 {"１２．００", "12"},  {"12.50", "12.50"},     {"-", "-"},
                 {"()", "()"},          {"1.2E+3", "1.2E+3"},   {"", ""},
                 {".0", ".0"}};
    for (const auto& c : cases) {
        EXPECT_EQ(Bare_Figure(QString::fromUtf8(c.shown)).toStdString(), c.bare);
    }
}

} // namespace
} // namespace morvane::tests
