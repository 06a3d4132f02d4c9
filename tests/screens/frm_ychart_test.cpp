// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_ychart.h"

#include "report/chart_view.h"
#include "report/y_chart.h"
#include "support/ui_fixture.h"

#include <QPushButton>

namespace morvane::tests {
namespace {

class Ychart_Window : public Ui_Installation {
  protected:
    Ychart_Window() {
        Make_Company(1, 1, 10);
        Put_Amounts({{402, 1.8e9},
                     {419, 2.6e8},
                     {489, 6.8e7},
                     {319, 3.2e8},
                     {179, 4.2e8},
                     {229, 5.5e8},
                     {399, 1.0e9},
                     {830, 9.0e8},
                     {289, 2.8e8}});
        Run({"UPDATE Ks_Zaihyo SET 改善後残高=金額"});
        Put_Amounts({{319, 6.4e8}, {229, 3.1e8}}, "改善後残高");
    }
};

TEST_F(Ychart_Window, Shows_The_Sides_Of_The_Mode) {
    struct Row {
        Sim_Mode mode;
        std::vector<std::pair<const char*, Side>> sides;
        const char* report;
    };
    const Row rows[] = {
        {Sim_Mode::Current, {{"：", {10, Scenario::Genjo}}}, "Open_Form Rpt_Ychart"},
        {Sim_Mode::Improvement,
         {{"：改善前", {10, Scenario::Genjo}}, {"：改善後", {10, Scenario::Kaizen}}},
         "Open_Form Rpt_YchartHK"},
        {Sim_Mode::Prior_Period,
         {{"：前期", {9, Scenario::Genjo}}, {"：当期", {10, Scenario::Genjo}}},
         "Open_Form Rpt_YchartHK"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.report);
        shell.menu.mode = row.mode;
        Frm_Ychart form(shell);
        form.show();
        const Radar_Chart& chart = Child<Chart_View>(form, "Chart")->Chart();
        ASSERT_EQ(chart.series.size(), row.sides.size());
        for (std::size_t i = 0; i < row.sides.size(); ++i) {
            const Y_Result y = Calc_Y(session, row.sides[i].second);
            EXPECT_EQ(chart.series[i].name, row.sides[i].first);
            for (std::size_t axis = 0; axis < y.rates.size(); ++axis) {
                EXPECT_EQ(chart.series[i].shares[axis], Plotted_Share(y.rates[axis]));
            }
        }
        Click(form, "Prt");
        EXPECT_EQ(shell.calls.back(), row.report);
        ASSERT_EQ(form.findChild<QPushButton*>("Cmd_Advice") != nullptr, row.mode == Sim_Mode::Current);
        if (row.mode == Sim_Mode::Current) {
            Click(form, "Cmd_Advice");
            EXPECT_EQ(shell.calls.back(), "Open_Form Frm_Advice");
        }
        Click(form, "Tojiru");
        EXPECT_FALSE(form.isVisible());
    }
}

TEST_F(Ychart_Window, Of_Another_Firm_Nothing_Is_Known) {
    shell.menu.mode = Sim_Mode::Other_Firm;
    Frm_Ychart form(shell);
    const auto& series = Child<Chart_View>(form, "Chart")->Chart().series;
    ASSERT_EQ(series.size(), 2U);
    EXPECT_EQ(series[0].name + series[1].name, "：自社：他社");
    EXPECT_EQ(series[0].shares.size(), y_indicators.size());
    EXPECT_TRUE(series[1].shares.empty());
}

// What is smaller scrolls.
TEST_F(Ychart_Window, The_Chart_Has_Room_For_Its_Texts_At_Any_Size) {
    for (const auto mode : {Sim_Mode::Current, Sim_Mode::Improvement}) {
        shell.menu.mode = mode;
        Frm_Ychart form(shell);
        form.show();
        const auto* chart = Child<Chart_View>(form, "Chart");
        const Room least = Least_Room(chart->Chart());
        for (const auto& [width, height] : {std::pair{300, 200},
                                            {520, 400},
                                            {700, 420},
                                            {859, 600},
                                            {860, 600},
                                            {1000, 690},
                                            {1740, 1000}}) {
            form.resize(width, height);
            QCoreApplication::processEvents();
            EXPECT_GE(chart->width() / chart->Dots_Per_Mm(), static_cast<double>(least.width)) << width;
            EXPECT_GE(chart->height() / chart->Dots_Per_Mm(), static_cast<double>(least.height)) << height;
        }
    }
}

} // namespace
} // namespace morvane::tests
