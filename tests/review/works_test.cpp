// SPDX-FileCopyrightText: The Morvane developers
#include "review/works.h"

#include "review/p_gain.h"
#include "review/settle.h"
#include "session/kyotu_mod.h"
#include "support/installation_fixture.h"

namespace morvane::tests {
namespace {

class Works_Store : public Installation {};

// The current side is held against the batch tool by the test of one result.
TEST_F(Works_Store, The_Improved_Side_Is_Left_In_Its_Own_Columns) {
    constexpr Side side = {10, Scenario::Kaizen};
    Make_Company(1, 1, 10);
    Put_Work(0, {{"改0完工高前々期", 1000}});
    Put_Work(2, {{"改0完工高前期", 2}, {"改0評点X1", 5}, {"改0総合評点P", 9}, {"改0元請完工高基準", 500}});
    Put_Work(32, {{"改0完工高基準", 7}, {"改0元請完工高基準", 8}, {"改0総合評点P", 9}, {"改0評点Z", 9}});
    Put_Work(33, {{"改0完工高前期", 100}, {"改0完工高基準", 201}, {"改0評点X1", 5}});
    Put_Elements({{200, 5}, {210, 4}}, "改善後0");
    const Connection cn = Cn_Open(session);
    const auto screen = [&](Review_Figures& figures) {
        figures = Load_Review(cn, side, {});
        return Load_Kanko(figures, Points(454), Points(0));
    };
    Review_Figures figures;
    Works works = screen(figures);
    works.lines[2].Zki.Set_Null();
    Store_Works(cn, side, Calc_Kanko_All(works, figures), false);
    EXPECT_EQ(
        List("SELECT 改0完工高前々期, 改0完工高前期, 改0完工高基準, 改0完工高平均, 改0評点X1, 改0評点Z, "
             "改0総合評点P, 改0元請完工高基準, 改0元請完工高平均 FROM Kandaka_Gj WHERE 工種CD In (0, 2, 32, "
             "33) "
             "ORDER BY 工種CD"),
        "1000=0=0=0=397=450=280=-=- -=-=-=-=-=-=-=500=250 -=-=7=-=-=9=9=8=- 0=100=201=151=-=-=-=-=-")
        << "empty, combined and other works have no scores";
    // Over three years: (0 + 2 × 500) / 3 and (201 + 2 × 50) / 3.
    EXPECT_EQ(List("SELECT 要素CD, 改善後0 FROM W_Yoso WHERE 改善後0 Is Not Null ORDER BY 要素CD"),
              "140=0 200=5 201=2 202=151 203=433 210=4")
        << "this screen leaves W";

    works = screen(figures);
    works.lines[7].gijutusya[5].Set(Head_Count(1));
    works.lines[33].gijutusya[0].Set(Head_Count(3));
    Store_Works(cn, side, Calc_Gijutu_All(works, figures), true);
    EXPECT_EQ(
        List("SELECT 改0技術者1, 改0技術者6, 改0評点Z1, 改0評点Z2, 改0評点Z, 改0総合評点P FROM Kandaka_Gj "
             "WHERE 工種CD In (7, 33) ORDER BY 工種CD"),
        "-=1=559=241=495=- -=-=-=-=-=-")
        << "P needs completed work";
    EXPECT_EQ(List("SELECT count(*) FROM Kandaka_Gj WHERE 評点X1 Is Not Null Or 評点Z1 Is Not Null Or "
                   "技術者6 Is Not Null"),
              "0");

    works.Kanko_Avg = 3;
    works.lines[7].Mzzki.Set(Thousand_Yen(100));
    works.lines[7].Mzki.Set(Thousand_Yen(300));
    Save_Kanko(Calc_Kanko_All(works, figures), figures, false);
    EXPECT_EQ(figures.works[7].Mzheikin.value, 200) << "the mean of the periods before";
}

TEST(P_Gain_Test, Counts_What_Has_P_On_Both_Sides) {
    Review_Figures before;
    Review_Figures after;
    const std::array<std::array<int, 2>, 6> lines = {
        {{700, 712}, {800, 760}, {650, 650}, {0, 600}, {500, 0}, {900, 940}}};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        before.works[i].P = {lines[i][0], lines[i][0] != 0, false};
        after.works[i].P = {lines[i][1], lines[i][1] != 0, false};
    }
    const P_Gain gain = P_Gain_Of(before, after);
    EXPECT_EQ(gain.sum, 12 - 40 + 40);
    EXPECT_EQ((std::array{gain.risen, gain.fallen, gain.added, gain.dropped}), (std::array{2, 1, 1, 1}));
    EXPECT_EQ(gain.most_changed, std::optional<std::size_t>(1)) << "the first of two";
    EXPECT_EQ(P_Gain_Of(before, before).most_changed, std::nullopt);
    EXPECT_EQ(Gain_Str(gain.sum) + Gain_Str(-1234) + Gain_Str(0), "↑ +12↓ -1,234±0");
}

} // namespace
} // namespace morvane::tests
