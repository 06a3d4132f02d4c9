// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/total_panel.h"

#include "support/ui_fixture.h"

#include <QLabel>

namespace morvane::tests {
namespace {

constexpr Total_Field fields[] = {{.caption = "資産の部", .line = Total_Field::Line::Heading},
                                  {"BsIp_Rds", "流動資産"},
                                  {"BsIp_SSKei", "資産合計", Total_Field::Line::Sum},
                                  {"Check", "", Total_Field::Line::Check}};

TEST(Total_Panel_Test, Figures_And_Marks_Are_Shown_As_They_Change) {
    Total_Panel panel("貸借対照表", fields);
    panel.Set_Value("BsIp_Rds", -1234567);
    panel.Set_Value("BsIp_SSKei", 0);
    EXPECT_EQ(panel.Text("BsIp_Rds").toStdString(), "-1,234,567");
    EXPECT_EQ(panel.Text("BsIp_SSKei").toStdString(), "0");
    panel.Set_Value("BsIp_Rds", {});
    EXPECT_EQ(panel.Text("BsIp_Rds").toStdString(), "");
    EXPECT_THROW(panel.Set_Value("Nobody", 1), std::out_of_range);

    // The marks' colours are seen, whatever the style sheet says of labels.
    for (const auto& [holds, colour] : {std::pair(true, 0xFFFFFF00U), std::pair(false, 0xFFFF0000U)}) {
        panel.Set_Check("Check", holds, "チェック");
        const QImage mark = Child<QLabel>(panel, "Check")->grab().toImage();
        EXPECT_EQ(mark.pixel(2, mark.height() / 2), colour);
    }
}

} // namespace
} // namespace morvane::tests
