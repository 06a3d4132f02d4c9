// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_grid.h"

#include "support/keyboard.h"
#include "widgets/grid_block.h"

#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace morvane::tests {
namespace {

/// Three rows of: an amount, a shown figure, an amount whose row 1 is locked, a choice, a button.
std::vector<Grid_Column> Columns() {
    return {
        {.name = "A", .heading = "前期", .group = "完工高"},
        {.name = "S", .heading = "平均", .group = "完工高", .use = Cell_Use::Shown},
        {.name = "B", .heading = "基準\n決算", .max_length = 6, .locked = [](int row) { return row == 1; }},
        {.name = "C", .heading = "区分", .kind = Entry_Kind::Choice, .choices = "12"},
        {.name = "P", .heading = "計算", .use = Cell_Use::Button, .button = "チェック"}};
}

class Entry_Grid_Test : public ::testing::Test {
  protected:
    Entry_Grid_Test() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&before);
        layout->addWidget(grid);
        layout->addWidget(&after);
        grid->Set_Captions({{"工種", 10}}, {{"土木"}, {"建築"}, {"大工"}});
        window.resize(800, 400);
        Show(window);
        grid->setFocus(Qt::TabFocusReason);
    }

    /// The texts of all rows of the columns A, B, C.
    std::string Texts() const {
        std::string texts;
        for (int row = 0; row < 3; ++row) {
            for (const char* column : {"A", "B", "C"}) {
                texts += grid->Cell_Text(column + ("(" + std::to_string(row) + ")")).toStdString() + "|";
            }
        }
        return texts;
    }

    QWidget window;
    QPushButton before;
    Entry_Grid* grid = new Entry_Grid(Columns(), 3);
    QPushButton after;
};

TEST_F(Entry_Grid_Test, Keys_Move_Through_The_Cells) {
    using enum Qt::Key;
    using enum Qt::KeyboardModifier;
    const Grid_Keys same{.wrap = Grid_Wrap::Same_Column, .row_step_at_right = -1};
    const Grid_Keys stop{.wrap = Grid_Wrap::Stop, .enter_along_row = true, .arrows_leave = true};
    constexpr Qt::KeyboardModifiers none = NoModifier, shift = ShiftModifier, ctrl = ControlModifier;
    // B(1) is locked: Enter and Tab pass what cannot be keyed. A button stands beyond the entry columns.
    const std::tuple<Grid_Keys, const char*, Qt::Key, Qt::KeyboardModifiers, const char*> moves[] = {
        {{}, "A(0)", Key_Return, none, "A(1)"},   {{}, "A(2)", Key_Return, none, "B(0)"},
        {{}, "C(2)", Key_Down, none, "A(0)"},     {{}, "B(0)", Key_Up, none, "A(2)"},
        {{}, "B(0)", Key_Down, none, "B(1)"},     {{}, "B(0)", Key_Return, none, "B(2)"},
        {{}, "B(2)", Key_Return, shift, "B(0)"},  {{}, "A(1)", Key_Tab, none, "C(1)"},
        {{}, "C(1)", Key_Backtab, none, "A(1)"},  {{}, "A(0)", Key_Tab, none, "B(0)"},
        {{}, "C(0)", Key_Tab, none, "A(1)"},      {{}, "A(1)", Key_Backtab, none, "C(0)"},
        {{}, "C(1)", Key_Right, ctrl, "P(1)"},    {{}, "P(1)", Key_Right, ctrl, "A(2)"},
        {{}, "A(0)", Key_Left, ctrl, "C(2)"},     {{}, "B(0)", Key_Right, none, "B(0)"},
        {{}, "B(1)", Key_End, ctrl, "C(2)"},      {same, "A(2)", Key_Return, none, "A(0)"},
        {same, "A(0)", Key_Up, none, "A(2)"},     {same, "P(0)", Key_Right, ctrl, "A(2)"},
        {stop, "A(2)", Key_Down, none, "A(2)"},   {stop, "A(0)", Key_Return, none, "B(0)"},
        {stop, "C(2)", Key_Return, none, "C(2)"}, {stop, "A(0)", Key_Right, none, "B(0)"},
        {stop, "A(0)", Key_Up, none, "A(0)"},     {stop, "A(0)", Key_Left, ctrl, "A(0)"},
        {stop, "P(2)", Key_Right, ctrl, "P(2)"},  {{}, "A(0)", Key_PageDown, none, "A(2)"},
        {{}, "C(2)", Key_PageUp, none, "C(0)"},   {{}, "B(2)", Key_Home, ctrl, "A(0)"},
        {{}, "P(0)", Key_Up, none, "C(2)"}};
    for (const auto& [keys, from, key, modifiers, to] : moves) {
        grid->Set_Keys(keys);
        ASSERT_TRUE(grid->Focus_Cell(from));
        Key(key, modifiers);
        EXPECT_EQ(Place(), to) << from << " " << key;
    }
}

TEST_F(Entry_Grid_Test, Tab_Comes_In_And_Goes_Out) {
    grid->Focus_Cell("C(2)");
    Key(Qt::Key_Tab);
    EXPECT_TRUE(after.hasFocus());
    grid->Focus_Cell("A(0)");
    Key(Qt::Key_Backtab);
    EXPECT_TRUE(before.hasFocus());
    Key(Qt::Key_Tab);
    EXPECT_EQ(Place(), "A(0)");
}

TEST_F(Entry_Grid_Test, An_Entry_Holds_When_Its_Cell_Is_Left_By_Any_Way) {
    std::string told;
    QObject::connect(grid, &Entry_Grid::Cell_Left, [&](int row, int column) {
        told +=
            std::to_string(row) + std::to_string(column) + "=" + grid->Get_Value(row, column).As_Text() + " ";
    });
    Type("1234567");
    EXPECT_EQ(grid->Get_Value("A(0)"), Value(1234567.0)) << "the running entry is seen";
    Key(Qt::Key_Return);
    Type("5");
    QTest::mouseClick(&after, Qt::LeftButton);
    grid->Focus_Cell("A(2)");
    Type("-6000");
    auto* view = grid->findChild<Grid_View*>();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->Cell_Rect({0, 2}).center());
    EXPECT_EQ(Place(), "B(0)");
    Type("77");
    EXPECT_TRUE(grid->Finish_Entry());
    EXPECT_EQ(told, "00=1234567 10=5 20=-6000 02=77 ");
    EXPECT_EQ(Texts(), "1,234,567|77||5|||-6,000|||");
    EXPECT_EQ(QApplication::focusWidget()->accessibleName().toStdString(), "土木 基準 決算");
}

TEST_F(Entry_Grid_Test, What_Is_Composed_Belongs_To_Its_Cell) {
    Entry_Grid names({{.name = "Kamk", .kind = Entry_Kind::Text, .max_length = 2}}, 2);
    Show(names);
    names.Focus_Cell("Kamk(0)");
    QInputMethodEvent composing("現金預", {}); // taken as far as it fits
    QApplication::sendEvent(QApplication::focusWidget(), &composing);
    Key(Qt::Key_Return);
    EXPECT_EQ(names.Cell_Text("Kamk(0)").toStdString(), "現金");
    EXPECT_EQ(names.Cell_Text("Kamk(1)").toStdString(), "");
    // Left by the mouse, and taken without being left, as a save takes it.
    QApplication::sendEvent(QApplication::focusWidget(), &composing);
    auto* view = names.findChild<Grid_View*>();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->Cell_Rect({0, 0}).center());
    EXPECT_EQ(names.Get_Value("Kamk(1)"), Value("現金"));
    names.Set_Value("Kamk(0)", Value());
    QApplication::sendEvent(QApplication::focusWidget(), &composing);
    EXPECT_TRUE(names.Finish_Entry());
    EXPECT_EQ(names.Get_Value("Kamk(0)"), Value("現金"));
}

TEST_F(Entry_Grid_Test, Cells_Take_Only_Their_Keys) {
    Type("--5");
    Key(Qt::Key_Return);
    EXPECT_EQ(Place(), "A(0)") << "no number: the focus stays";
    EXPECT_EQ(grid->Cell_Text("A(0)"), "");
    grid->Set_Value("B(1)", 40);
    grid->Focus_Cell("B(1)");
    Type("9");
    Key(Qt::Key_Delete);
    EXPECT_EQ(grid->Cell_Text("B(1)"), "40") << "locked";
    grid->Focus_Cell("C(1)");
    Type("132");
    EXPECT_EQ(grid->Cell_Text("C(1)"), "2");
    int pressed = 0;
    QObject::connect(grid, &Entry_Grid::Button_Pressed, [&](int row, int) { pressed += row; });
    grid->Focus_Cell("P(2)");
    Key(Qt::Key_Space);
    grid->Set_Locked(2, 4, true);
    Key(Qt::Key_Space);
    EXPECT_EQ(pressed, 2) << "a locked button is disabled";
    EXPECT_THROW(static_cast<void>(grid->Cell_Text("A(3)")), std::out_of_range);
}

TEST_F(Entry_Grid_Test, The_Screen_Can_Take_An_Entry_Back) {
    grid->Set_Value("A(0)", 100);
    grid->Set_Value("A(1)", 999.5);
    bool holds = true;
    std::string seen;
    int restored = 0;
    grid->on_left = [&](int row, int column) {
        seen += grid->Get_Value(row, column).As_Text() + " ";
        return holds;
    };
    QObject::connect(grid, &Entry_Grid::Values_Restored, [&] { ++restored; });
    holds = false;
    Type("2147483648");
    for (const auto& leave : std::vector<std::function<void()>>{
             [] { Key(Qt::Key_Return); }, [&] { QTest::mouseClick(&after, Qt::LeftButton); }}) {
        leave();
        QTest::qWait(1);
        EXPECT_EQ(Place(), "A(0)");
        EXPECT_EQ(grid->Cell_Text("A(0)"), "100");
        Type("3");
    }
    EXPECT_EQ(restored, 2);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(grid->Is_Edited()) << "nothing taken back remains to be undone";
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Place(), "A(2)") << "an unchanged cell is left in any case";
    EXPECT_EQ(seen, "2147483648 3 100 999.5 ");
    EXPECT_EQ(grid->Get_Value("A(1)"), Value(999.5));
}

TEST_F(Entry_Grid_Test, A_Block_Is_Pasted_Cell_By_Cell_And_Undone_At_Once) {
    std::vector<Paste_Refused> refused;
    grid->on_refused = [&](const std::vector<Paste_Refused>& cells) { refused = cells; };
    grid->Set_Value("A(1)", 5);
    grid->Set_Value("B(1)", 6);
    Paste("\"1,200\"\tx\t￥３０\t2\r\n\t\t7\t3\r\n(8)\t\t1234567\t1\t\t9\r\n△4\r\n");
    EXPECT_EQ(Texts(), "1200|30|2||6||-8||1|") << "in place, blanks clear, locked cells stay";
    ASSERT_EQ(refused.size(), 4U);
    std::string text = grid->Refusal_Text(refused);
    EXPECT_PRED2(Has, text, "「建築」の「区分」：3");
    EXPECT_NE(text.find("「大工」の「基準 決算」：1234567"), std::string::npos) << "too long for the cell";
    EXPECT_PRED2(Has, text, "3行目6列目（表の外）：9");
    EXPECT_PRED2(Has, text, "4行目");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "|||5|6|||||");
    EXPECT_FALSE(grid->Is_Edited());
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "1200|30|2||6||-8||1|");
    grid->on_block = [](const std::vector<Cell_At>& cells) { return cells.size() > 2; };
    Paste("1\n2\n");
    EXPECT_EQ(Texts(), "1200|30|2||6||-8||1|") << "the screen has taken the paste back";
    // A refusal names few cells and short texts.
    refused.assign(10, {0, 0, QStringLiteral("12345678901234567890x")});
    refused.front().row = 99;
    text = grid->Refusal_Text(refused);
    EXPECT_PRED2(Has, text, "100行目1列目（表の外）：12345678901234567890…\n「土木」の「完工高 前期」：");
    EXPECT_TRUE(text.ends_with("\nほか2件")) << text;
}

// What spreadsheets put on the clipboard, as rows of cells; written again it reads the same.
TEST(Grid_Block, Clipboard_Texts_Are_Read_Into_Cells) {
    using Rows = std::vector<std::vector<std::string>>;
    const std::pair<const char*, Rows> cases[] = {
        {"", {{""}}},
        {"1\t2\r\n3", {{"1", "2"}, {"3"}}},
        {"1\r2\r", {{"1"}, {"2"}}},
        {"1\n\n", {{"1"}, {""}}}, // an empty row is one
        {"\"a\nb\"\t\"c\td\"", {{"a\nb", "c\td"}}},
        {"\"say \"\"yes\"\"\"", {{"say \"yes\""}}},
        {"\"open\t1", {{"\"open", "1"}}}, // a quote that is never closed is text
        {"5\" wide", {{"5\" wide"}}},
    };
    for (const auto& [text, rows] : cases) {
        const Text_Block block = Read_Block(QString::fromUtf8(text));
        Rows read;
        for (const auto& line : block) {
            auto& cells = read.emplace_back();
            for (const QString& cell : line) {
                cells.push_back(cell.toStdString());
            }
        }
        EXPECT_EQ(read, rows) << text;
        EXPECT_EQ(Read_Block(Write_Block(block)), block) << text;
    }
}

TEST_F(Entry_Grid_Test, A_Paste_Begins_At_The_Mark) {
    // rows, columns: further ones that are marked
    const std::tuple<const char*, int, int, const char*, const char*, std::size_t> cases[] = {
        {"A(0)", 2, 0, "7", "7|||7|||7|||", 0},               // one value into every marked cell
        {"A(0)", 2, 3, "1", "1|1|1|1||1|1|1|1|", 0},          // past the locked one and the shown ones
        {"A(0)", 1, 0, "1\t\t2\n3\n4\n", "1|2||3|||4|||", 0}, // a block goes on beyond the mark
        {"B(1)", 0, 0, "8\n9\n", "|||||||9||", 0},            // locked where it begins
        {"C(2)", 0, 0, "1\n2\n", "||||||||1|", 1},            // below the last row
        {"A(1)", 0, 0, "▲１，０００\tx\n", "|||-1000||||||", 0},
        {"A(1)", 0, 0, "=1+1\t\n", "|||||||||", 1},
        {"A(0)", 2, 0, "x", "|||||||||", 3},
    };
    for (const auto& [from, rows, columns, text, texts, not_taken] : cases) {
        SCOPED_TRACE(testing::Message() << from << " " << text);
        grid->Set_Row_Count(3);
        std::size_t refused = 0;
        grid->on_refused = [&](const std::vector<Paste_Refused>& cells) { refused = cells.size(); };
        ASSERT_TRUE(grid->Focus_Cell(from));
        for (int row = 0; row < rows; ++row) {
            Key(Qt::Key_Down, Qt::ShiftModifier);
        }
        for (int column = 0; column < columns; ++column) {
            Key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
        }
        Paste(text);
        EXPECT_EQ(Texts(), texts);
        EXPECT_EQ(refused, not_taken);
    }
    EXPECT_FALSE(grid->Is_Edited()) << "of rows made anew nothing is left to be undone";
}

TEST_F(Entry_Grid_Test, The_Screen_Can_Refuse_An_Undo) {
    Paste("1\n2\n");
    bool holds = false;
    int restored = 0;
    grid->on_block = [&](const std::vector<Cell_At>&) { return holds; };
    QObject::connect(grid, &Entry_Grid::Values_Restored, [&] { ++restored; });
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "1|||2||||||");
    EXPECT_EQ(restored, 1);
    holds = true;
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "|||||||||") << "it is still there to be undone";
    holds = false;
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "|||||||||");
}

TEST_F(Entry_Grid_Test, The_Mouse_Marks_A_Block) {
    auto* view = grid->findChild<Grid_View*>();
    const auto at = [&](int row, int column) { return view->Cell_Rect({row, column}).center(); };
    const auto paste = [&](const char* text, const char* texts) {
        Paste(text);
        EXPECT_EQ(Texts(), texts);
        Key(Qt::Key_Z, Qt::ControlModifier);
    };
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at(0, 2));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ShiftModifier, at(2, 3));
    paste("1", "|1|1|||1||1|1|");
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, at(2, 0));
    QTest::mouseMove(view->viewport(), at(1, 0));
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, at(1, 0));
    paste("3", "|||3|||3|||");
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Type("9");
    Key(Qt::Key_Return);
    EXPECT_EQ(Texts(), "|||9||||||") << "a key ends the mark and is typed";
}

TEST_F(Entry_Grid_Test, A_Marked_Block_Is_Copied_And_Cleared) {
    grid->Set_Value("A(0)", 1234);
    grid->Set_Value("S(1)", "a\tb");
    grid->Set_Value("B(1)", 7);
    grid->Set_Value("A(2)", 1);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "1234\t\t\n\t\"a\tb\"\t7\n");
    EXPECT_EQ(Read_Block(QApplication::clipboard()->text())[1][1], "a\tb");
    Key(Qt::Key_Delete);
    EXPECT_EQ(Texts(), "||||7||1|||");
}

TEST_F(Entry_Grid_Test, Single_Entries_Are_Undone_Where_They_Were_Made) {
    Type("1");
    Key(Qt::Key_Return);
    Type("2");
    Key(Qt::Key_Return);
    Type("34");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "1|||2||||||") << "first what is being typed";
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Place(), "A(1)");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "|||||||||");
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "1|||||||||");
}

// A part of a figure reads as another one.
TEST_F(Entry_Grid_Test, Sideways_No_Figure_Is_Cut) {
    grid->Set_Totals({{"合計"}});
    window.resize(340, 250);
    QTest::qWait(1);
    const QList<Grid_View*> views = grid->findChildren<Grid_View*>();
    QScrollBar* bar = views[0]->horizontalScrollBar();
    const int end = bar->maximum();
    ASSERT_GT(end, 2);
    grid->Focus_Cell("C(2)");
    EXPECT_GT(bar->value(), 0) << "it is in view";
    for (const int to : {1, end / 2, end, end - 1, end / 2, 0}) {
        bar->setValue(to);
        int whole = -1; // the first column in view
        while (views[0]->columnViewportPosition(++whole) < 0) {
        }
        EXPECT_EQ(views[0]->columnViewportPosition(whole), 0) << to;
        EXPECT_EQ(views[1]->columnViewportPosition(whole), 0) << to;
        if (to == end) {
            EXPECT_LE(views[0]->columnViewportPosition(4) + views[0]->columnWidth(4),
                      views[0]->viewport()->width());
        }
    }
    int cuts = 0;
    for (int column = 0; column < 3; ++column) {
        const int right = views[0]->columnViewportPosition(column) + views[0]->columnWidth(column);
        const bool cut = right > views[0]->viewport()->width();
        const auto look = [&](int figure) {
            grid->Set_Value(2, column, figure);
            grid->Set_Total(0, column, figure);
            return std::pair(views[0]->viewport()->grab(views[0]->Cell_Rect({2, column})).toImage(),
                             views[1]->viewport()->grab(views[1]->Cell_Rect({0, column})).toImage());
        };
        const auto [one, total_of_one] = look(123456);
        const auto [other, total_of_other] = look(987654);
        EXPECT_EQ(one == other, cut) << column;
        EXPECT_EQ(total_of_one == total_of_other, cut) << column;
        cuts += cut ? 1 : 0;
    }
    EXPECT_GE(cuts, 1);
}

TEST_F(Entry_Grid_Test, The_Rows_Scroll_Over_The_Totals) {
    grid->Set_Row_Count(60);
    grid->Set_Totals({{"合計"}});
    QTest::qWait(1);
    const QList<Grid_View*> views = grid->findChildren<Grid_View*>();
    const auto place = [&] { return views[1]->mapTo(grid, QPoint()); };
    const QPoint before_scrolling = place();
    const std::pair<Qt::Key, Qt::KeyboardModifiers> ways[] = {{Qt::Key_PageDown, {}},
                                                              {Qt::Key_End, Qt::ControlModifier},
                                                              {Qt::Key_PageUp, {}},
                                                              {Qt::Key_Home, Qt::ControlModifier},
                                                              {Qt::Key_Up, {}}};
    for (const auto& [key, modifiers] : ways) {
        Key(key, modifiers);
        EXPECT_TRUE(views[0]->viewport()->rect().contains(views[0]->Cell_Rect(grid->Current())));
        EXPECT_EQ(QApplication::focusWidget()->geometry(), views[0]->Cell_Rect(grid->Current()));
        EXPECT_EQ(place(), before_scrolling);
    }
    EXPECT_EQ(grid->Current().row, 59) << "up from the first row";
    EXPECT_EQ(views[0]->viewport()->width(), views[1]->viewport()->width()) << "beside the scroll bar";
}

} // namespace
} // namespace morvane::tests
