// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_cell.h"

#include "support/keyboard.h"
#include "widgets/entry_text.h"

#include <QClipboard>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

namespace morvane::tests {
namespace {

class Entry_Cell_Test : public ::testing::Test {
  protected:
    Entry_Cell_Test() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&cell);
        layout->addWidget(&other);
        cell.Set_Choices("13");
        Show(window);
        other.setFocus();
        QObject::connect(&cell, &Entry_Cell::Refused, [this] { ++refused; });
        QObject::connect(&cell, &Entry_Cell::Left, [this] { ++left; });
    }

    /// Comes to the cell by the keyboard, with a value in it.
    void Come_To(const Value& value) {
        cell.Set_Value(value);
        cell.setFocus(Qt::TabFocusReason);
        refused = 0;
    }

    /// A key with the text that it has by its modifiers.
    void Send(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&cell, &press);
    }

    QWidget window;
    Entry_Cell cell{Entry_Kind::Amount};
    QPushButton other;
    int refused = 0;
    int left = 0;
};

TEST_F(Entry_Cell_Test, Amount_Is_Bare_In_Focus_And_Formatted_When_Left) {
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

TEST_F(Entry_Cell_Test, A_Text_That_Is_No_Number_Keeps_The_Focus) {
    std::string acted;
    QObject::connect(&cell, &Entry_Cell::Next_Field, [&] { acted += "next "; });
    QObject::connect(&other, &QPushButton::clicked, [&] { acted += "pressed"; });
    const std::vector<std::function<void()>> ways = {[] { Key(Qt::Key_Return); }, [] { Key(Qt::Key_Tab); },
                                                     [this] { QTest::mouseClick(&other, Qt::LeftButton); },
                                                     [this] {
                                                         QTest::mousePress(&other, Qt::LeftButton);
                                                         QTest::qWait(1);
                                                         QTest::mouseRelease(&other, Qt::LeftButton);
                                                     }};
    for (const auto& leave : ways) {
        Come_To(777);
        Type("--5");
        leave();
        QTest::qWait(1);
        EXPECT_TRUE(cell.hasFocus());
        EXPECT_EQ(cell.Entry(), Value(777.0));
        EXPECT_EQ(refused, 1);
    }
    EXPECT_EQ(acted, "");
    EXPECT_EQ(left, 0);
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_EQ(acted, "pressed") << "once the entry holds";
}

TEST_F(Entry_Cell_Test, Every_Way_In_Is_Filtered) {
    QMimeData dragged;
    dragged.setText("△1,23");
    QApplication::clipboard()->setText("（４５,６）\n");
    const std::vector<std::pair<std::function<void()>, const char*>> ways = {
        {[] { Key(Qt::Key_V, Qt::ControlModifier); }, "-456"},
        {[] { Key(Qt::Key_Insert, Qt::ShiftModifier); }, "-456"},
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
        Come_To({});
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

TEST_F(Entry_Cell_Test, Keys_By_Kind) {
    const std::tuple<Entry_Kind, const char*, const char*, int> cases[] = {
        {Entry_Kind::Choice, "1", "1", 0},
        {Entry_Kind::Choice, "123", "3", 1},
        {Entry_Kind::Digits, "-0９a", "09", 2},
        {Entry_Kind::Amount, "5-", "5-", 0},
        {Entry_Kind::Text, "株 𠮷野-1", "株 𠮷野-1", 0}};
    for (const auto& [kind, keys, text, refusals] : cases) {
        cell.Set_Kind(kind);
        Come_To({});
        Type(keys);
        EXPECT_EQ(cell.Bare_Text(), text);
        EXPECT_EQ(refused, refusals) << keys;
    }
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(cell.Bare_Text(), "株 𠮷野-1") << "typing can be undone in the cell";
}

TEST_F(Entry_Cell_Test, No_Text_Comes_In_With_Ctrl_Alt_Or_Meta) {
    const std::pair<int, Qt::KeyboardModifiers> slips[] = {
        {Qt::Key_Z, Qt::AltModifier},
        {Qt::Key_9, Qt::AltModifier},
        {Qt::Key_9, Qt::MetaModifier},
        {Qt::Key_I, Qt::AltModifier | Qt::ShiftModifier},
        {Qt::Key_9, Qt::ControlModifier | Qt::AltModifier},
        {Qt::Key_5, Qt::ControlModifier | Qt::KeypadModifier},
    };
    for (const Entry_Kind kind : {Entry_Kind::Text, Entry_Kind::Digits, Entry_Kind::Decimal,
                                  Entry_Kind::Amount, Entry_Kind::Figure, Entry_Kind::Choice}) {
        cell.Set_Kind(kind);
        Come_To(3);
        for (const auto& [key, modifiers] : slips) {
            Send(key, modifiers, QString(QChar(key)).toLower());
            EXPECT_EQ(cell.Bare_Text(), "3") << key << " " << static_cast<int>(modifiers);
        }
        // A character of the user's own and a joiner are text and nothing else.
        for (const char16_t mark : {u'\uE000', u'\u200D'}) {
            Send(0, Qt::NoModifier, QString(QChar(mark)));
        }
        EXPECT_EQ(cell.text().size(), kind == Entry_Kind::Text ? 2 : 1);
        Send(Qt::Key_1, Qt::GroupSwitchModifier, QStringLiteral("1"));
        EXPECT_TRUE(cell.text().endsWith(QLatin1Char('1'))) << "AltGr makes characters";
    }
}

TEST_F(Entry_Cell_Test, Esc_Takes_Back_What_Is_Typed_And_Then_Is_The_Forms) {
    Come_To(1234);
    Type("98");
    for (const bool expected : {true, false}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        static_cast<QObject&>(cell).event(&press);
        EXPECT_EQ(press.isAccepted(), expected);
        EXPECT_EQ(cell.text().toStdString(), "1234");
        EXPECT_EQ(cell.selectedText().toStdString(), "1234");
    }
}

TEST_F(Entry_Cell_Test, A_Click_Selects_The_Next_One_Places_The_Cursor) {
    cell.Set_Value(437);
    const auto click = [this] {
        QTest::mouseClick(&cell, Qt::LeftButton, {}, QPoint(cell.width() - 22, cell.height() / 2));
        return cell.selectedText().toStdString();
    };
    EXPECT_EQ(click(), "437");
    EXPECT_EQ(click(), "");
    other.setFocus();
    click();
    Type("9");
    EXPECT_EQ(cell.text().toStdString(), "9");
    // Where the keyboard has selected it the first click finds the focus there.
    other.setFocus();
    Come_To(437);
    EXPECT_EQ(click(), "437");
    EXPECT_EQ(click(), "");
    // Dragging marks from where the press was.
    cell.Set_Value(437);
    other.setFocus();
    const QPoint end(cell.width() - 4, cell.height() / 2);
    QTest::mousePress(&cell, Qt::LeftButton, {}, end);
    cell.repaint(); // where the characters stand is known once they are painted
    QMouseEvent drag(QEvent::MouseMove, QPointF(2, 5), cell.mapToGlobal(QPointF(2, 5)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&cell, &drag);
    EXPECT_EQ(cell.cursorPosition(), 0);
    QTest::mouseRelease(&cell, Qt::LeftButton, {}, QPoint(2, 5));
    EXPECT_EQ(cell.selectedText().toStdString(), "437");
}

TEST_F(Entry_Cell_Test, A_Locked_Amount_Keeps_Its_Commas) {
    cell.Set_Locked(true);
    cell.Set_Value(-1234567);
    cell.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(cell.text().toStdString(), "-1,234,567");
    cell.Set_Value(-1234567);
    EXPECT_EQ(cell.text().toStdString(), "-1,234,567");
    EXPECT_EQ(cell.Entry(), Value(-1234567.0));
    EXPECT_FALSE(cell.Is_Uncommitted());
}

TEST_F(Entry_Cell_Test, A_Window_Over_The_Cells_Own_Does_Not_Leave_It) {
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

TEST(Entry_Text_Test, Only_What_Is_Keyed_Here_Is_A_Number) {
    const std::tuple<const char*, bool, bool, bool> cases[] = {
        {"", true, true, true},        {"007", true, true, true},      {"-0", true, false, false},
        {"1.5", false, false, true},   {"1.2.3", false, false, false}, {".", false, false, false},
        {"inf", false, false, false},  {"nan", false, false, false},   {"1e5", false, false, false},
        {"0x1F", false, false, false}, {"+5", false, false, false},    {"5-", false, false, false},
        {"-", false, false, false},    {" 5", false, false, false}};
    for (const auto& [text, amount, figure, decimal] : cases) {
        EXPECT_EQ(Is_Entry(Entry_Kind::Amount, {}, text), amount) << text;
        EXPECT_EQ(Is_Entry(Entry_Kind::Figure, {}, text), figure) << text;
        EXPECT_EQ(Is_Entry(Entry_Kind::Digits, {}, text), figure) << text;
        EXPECT_EQ(Is_Entry(Entry_Kind::Decimal, {}, text), decimal) << text;
    }
    EXPECT_EQ(Entry_Value(Entry_Kind::Amount, "-0"), Value(0.0));
    EXPECT_FALSE(std::signbit(std::get<double>(Entry_Value(Entry_Kind::Amount, "-0").held)));
    EXPECT_FALSE(Is_Entry(Entry_Kind::Choice, "23", "29"));
    EXPECT_FALSE(Is_Entry(Entry_Kind::Choice, "23", "9"));
}

TEST(Entry_Text_Test, Figures_Of_Other_Programs) {
    const std::pair<const char*, const char*> cases[] = {
        {"￥1,234円", "1234"}, {" (5,678) ", "-5678"}, {"▲９，０００", "-9000"},
        {"１２．００", "12"},  {"12.50", "12.50"},     {"-", "-"},
        {"()", "()"},          {"1.2E+3", "1.2E+3"},   {"", ""},
        {".0", ".0"}};
    for (const auto& [shown, bare] : cases) {
        EXPECT_EQ(Bare_Figure(QString::fromUtf8(shown)).toStdString(), bare);
    }
}

} // namespace
} // namespace morvane::tests
