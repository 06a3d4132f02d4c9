// SPDX-FileCopyrightText: The Morvane developers
#include "report/y_chart.h"

#include "support/sheet_texts.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace morvane::tests {
namespace {

TEST(Y_Chart_Test, A_Rate_Is_Plotted_In_Whole_Tenths) {
    // 64.2 as a single is a little less than it says.
    const std::pair<float, float> rows[] = {
        {0.0F, 0.0F},    {0.09F, 0.0F},    {0.1F, 0.001F},   {33.96F, 0.339F}, {50.0F, 0.5F},
        {64.3F, 0.643F}, {91.19F, 0.911F}, {99.99F, 0.999F}, {100.0F, 1.0F},   {64.2F, 0.641F}};
    for (const auto& [rate, share] : rows) {
        EXPECT_EQ(Plotted_Share(rate), share) << rate;
    }
}

/// A chart as it was drawn: the lines of a look (dots, style), from the middle of the chart.
struct Drawn_Chart {
    Recorded_Sheet sheet;
    std::vector<Drawn_Line> axes;

    Drawn_Chart(const Radar_Chart& chart, const Area& area) {
        const Print_State state;
        Prt_ModSet operations(state, sheet);
        Page_Layout page(operations);
        Draw_Radar(page, area, chart);
        page.End_Page();
        axes = Lines(1, 0);
        axes.erase(axes.begin(), axes.end() - static_cast<std::ptrdiff_t>(chart.axes.size()));
    }

    [[nodiscard]] std::vector<Drawn_Line> Lines(int width, int style) const {
        std::vector<Drawn_Line> lines;
        for (const Drawn& drawn : sheet.Pages().front()) {
            const auto* line = std::get_if<Drawn_Line>(&drawn);
            if (line != nullptr && line->pen.width == width && line->pen.style == style) {
                lines.push_back(*line);
            }
        }
        return lines;
    }

    /// The line of a series begins on each axis as far out as its shares say.
    void Expect_Shares(const Chart_Series& series, int style) const {
        const auto lines = Lines(2, style);
        ASSERT_GE(lines.size(), axes.size());
        for (std::size_t i = 0; i < axes.size(); ++i) {
            const double share = static_cast<double>(series.shares[i]);
            EXPECT_NEAR(lines[i].x1, std::lerp(axes[i].x1, axes[i].x2, share), 1e-3) << i;
            EXPECT_NEAR(lines[i].y1, std::lerp(axes[i].y1, axes[i].y2, share), 1e-3) << i;
        }
    }

    /// The captions and values that a line of the series runs through.
    [[nodiscard]] std::string Struck(const std::vector<Box_Of_Text>& texts) const {
        std::string struck;
        for (const int style : {0, 1}) {
            for (const Drawn_Line& line : Lines(2, style)) {
                for (int step = 0; step <= 20; ++step) {
                    const double x = std::lerp(line.x1, line.x2, step / 20.0);
                    const double y = std::lerp(line.y1, line.y2, step / 20.0);
                    for (const Box_Of_Text& text : texts) {
                        if (text.size > 7 && x > text.left && x < text.right && y > text.top &&
                            y < text.bottom) {
                            struck += text.text + "\n";
                        }
                    }
                }
            }
        }
        return struck;
    }
};

Y_Result Random_Result(std::mt19937& random) {
    Y_Result y;
    for (float& rate : y.rates) {
        rate = std::clamp(static_cast<float>(random() % 120'000) / 1000.0F - 10.0F, 0.0F, 100.0F);
    }
    return y;
}

TEST(Y_Chart_Test, Points_Are_The_Plotted_Shares_And_No_Text_Lies_On_Another) {
    std::mt19937 random(13);
    for (int firm = 0; firm < 20; ++firm) {
        const std::array results = {Random_Result(random), Random_Result(random)};
        const std::array<Y_Chart_Side, 2> sides = {{{"改善前", &results[0]}, {"改善後", &results[1]}}};
        for (const std::size_t count : {1U, 2U}) {
            const Radar_Chart chart = Y_Chart(std::span(sides).first(count));
            const Room least = Least_Room(chart);
            for (const auto& [wider, higher] :
                 {std::pair{1.0F, 1.0F}, {1.5F, 1.0F}, {1.0F, 2.5F}, {1.5F, 2.0F}}) {
                SCOPED_TRACE(std::to_string(wider) + " x " + std::to_string(higher));
                const Drawn_Chart drawn(chart,
                                        {13, 20, 13 + wider * least.width, 20 + higher * least.height});
                drawn.Expect_Shares(chart.series.back(), 0);
                if (count == 2) {
                    drawn.Expect_Shares(chart.series.front(), 1);
                }
                const auto texts = Texts_Of(drawn.sheet);
                ASSERT_EQ(Astray(texts), "");
                ASSERT_EQ(drawn.Struck(texts), "");
                EXPECT_EQ(Box_Of(texts, "総資本売上総利益率(X3)").size, 8);
                EXPECT_EQ(Box_Of(texts, "：改善後").size, count == 2 ? 8 : 0);
            }
        }
    }
}

} // namespace
} // namespace morvane::tests
