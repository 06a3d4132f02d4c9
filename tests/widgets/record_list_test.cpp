// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/record_list.h"

#include "support/keyboard.h"

namespace morvane::tests {
namespace {

constexpr List_Column columns[] = {{"番号", 8, true}, {"名称"}};

class Record_List_Test : public ::testing::Test {
  protected:
    Record_List_Test() : list(columns) {
        list.Set_Source(10000, [](int row, int column) {
            return column == 0 ? QString::number(row) : QStringLiteral("ｶﾌﾞ%1建設").arg(row);
        });
        list.resize(500, 300);
        Show(list);
        QObject::connect(&list, &Record_List::Row_Opened, [this](int row) { opened.push_back(row); });
    }

    Record_List list;
    std::vector<int> opened;
};

TEST_F(Record_List_Test, Nothing_Is_Selected_Until_The_User_Selects) {
    list.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(list.Selected_Row(), -1);
    EXPECT_TRUE(opened.empty());
    const QPoint second = list.visualRect(list.model()->index(1, 1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(list.Selected_Row(), 1);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(opened, (std::vector{2, 1}));
    list.Set_Rows({{"5", "一つ"}});
    EXPECT_EQ(list.Selected_Row(), -1) << "new records, no selection";
}

TEST_F(Record_List_Test, Keys_Reach_The_Ends_And_The_Marked_Record) {
    list.Set_Marked_Row(4321);
    list.Show_Row(4321);
    EXPECT_EQ(list.Selected_Row(), -1) << "marked is not selected";
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(list.model()->index(4321, 0))));
    for (const auto& [key, row] : {std::pair{Qt::Key_Down, 4321}, {Qt::Key_End, 9999}, {Qt::Key_Home, 0}}) {
        QTest::keyClick(&list, key);
        EXPECT_EQ(list.Selected_Row(), row);
    }
}

TEST_F(Record_List_Test, Typed_Characters_Find_A_Record) {
    list.Set_Find_Column(1);
    QTest::keyClicks(&list, "7");
    EXPECT_EQ(list.Selected_Row(), -1) << "no name begins so";
    QInputMethodEvent composed;
    composed.setCommitString("カブ７");
    QApplication::sendEvent(&list, &composed);
    EXPECT_EQ(list.Selected_Row(), 7);
    QTest::keyClicks(&list, "89");
    EXPECT_EQ(list.Selected_Row(), 789);
    EXPECT_TRUE(list.visualRect(list.model()->index(789, 0)).isValid()) << "it is in view";
}

} // namespace
} // namespace morvane::tests
