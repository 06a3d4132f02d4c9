// SPDX-FileCopyrightText: The Morvane developers
#include "review/works.h"

#include "law/elements.h"
#include "review/settle.h"
#include "support/installation_fixture.h"

namespace morvane::tests {
namespace {

// What the scores come to is held against the calculation of tests/reference. The form of W is told apart in
// the comparison of averages alone.
TEST(Works, W_In_The_Form_Of_The_Comparison) {
    using Elements = std::map<int, double>;
    const Elements six = {{element::w1, 10},  {element::w2, 5}, {element::w3, 20},
                          {element::w4, -15}, {element::w6, 3}, {element::w7, 7}};
    const struct {
        int law;
        Elements elements;
        std::int16_t by_law_year, of_eight;
    } cases[] = {
        {1, six, 230, 218}, {1, {{element::w4, -30}}, 0, -285}, {2, {{element::w4, -30}}, -285, -285}};
    for (const auto& c : cases) {
        Review_Figures figures;
        figures.law_year = Law_Of(c.law).code;
        for (const auto& [code, score] : c.elements) {
            figures.elements[static_cast<std::size_t>(code)] = {score, true, true, false};
        }
        const Works works = Load_Kanko(figures, Points(454), Points(0));
        EXPECT_EQ(Calc_Kanko_All(works, figures, W_Form::By_Law_Year).scores.W.Count(), c.by_law_year)
            << c.law;
        EXPECT_EQ(Calc_Kanko_All(works, figures, W_Form::Of_Eight).scores.W.Count(), c.of_eight) << c.law;
    }
}

class Works_Store : public Installation {
  protected:
    void SetUp() override {
        Make_Company(1, 1, 10);
        for (const char* prefix : {"", "改0"}) {
            const auto put = [&](int line, const std::map<std::string, double>& given) {
                std::map<std::string, double> prefixed;
                for (const auto& [column, value] : given) {
                    prefixed[prefix + column] = value;
                }
                Put_Work(line, prefixed);
            };
            put(0, {{"完工高前々期", 1000}});
            put(2, {{"完工高前々期", 1},
                    {"完工高前期", 2},
                    {"完工高基準", 3},
                    {"完工高平均", 4},
                    {"評点X1", 5},
                    {"評点Z1", 6},
                    {"評点Z2", 7},
                    {"評点Z", 8},
                    {"総合評点P", 9},
                    {"元請完工高基準", 500}});
            put(5, {{"完工高前期", 60},
                    {"完工高基準", 40},
                    {"元請完工高前期", 30},
                    {"元請完工高平均", 15},
                    {"技術者1", 1}});
            put(32, {{"完工高基準", 7}, {"元請完工高基準", 8}, {"総合評点P", 9}, {"評点Z", 9}});
            put(33, {{"完工高前期", 100}, {"完工高基準", 201}, {"評点X1", 5}, {"総合評点P", 9}});
        }
    }

    Works Screen(Side side) const {
        const Connection cn = Cn_Open(session);
        figures = Load_Review(cn, side, {});
        return Load_Kanko(figures, Points(454), Points(0));
    }

    /// Stored figures of a line, "-" for Null.
    std::string Stored(int line, const std::vector<std::string>& columns,
                       const std::string& prefix = "") const {
        std::string text;
        for (const std::string& column : columns) {
            const Value value =
                Field("Kandaka_Gj", prefix + column, "決算期=10 And 工種CD=" + std::to_string(line));
            text += (text.empty() ? "" : " ") + (value.Is_Null() ? "-" : value.As_Text());
        }
        return text;
    }
    std::string Element(int code, const std::string& column = "現状") const {
        const Value value = Field("W_Yoso", column, "決算期=10 And 要素CD=" + std::to_string(code));
        return value.Is_Null() ? "-" : value.As_Text();
    }

    mutable Review_Figures figures;
    const std::vector<std::string> amounts = {"完工高前々期", "完工高前期", "完工高前平均", "完工高基準",
                                              "完工高平均"};
    const std::vector<std::string> scores = {"評点X1", "評点Z1", "評点Z2", "評点Z", "総合評点P"};
    const std::vector<std::string> prime = {"元請完工高前々期", "元請完工高前期", "元請完工高前平均",
                                            "元請完工高基準", "元請完工高平均"};
};

TEST_F(Works_Store, Completed_Work_As_It_Is_Left) {
    for (const Side side : {Side{10, Scenario::Genjo}, Side{10, Scenario::Kaizen}}) {
        const std::string prefix(Columns_Of(side.scenario).prefix);
        const std::string column(Columns_Of(side.scenario).yoso);
        Put_Elements({{200, 5}, {210, 4}}, column);
        Works works = Screen(side);
        Work_Line& emptied = works.lines[2];
        emptied.Zzki.Set_Null();
        emptied.Zki.Set_Null();
        emptied.Kijun.Set_Null();
        works.lines[5].Mzki.Set_Null();
        works = Calc_Kanko_All(works, figures);
        Store_Works(Cn_Open(session), side, works, false);
        EXPECT_EQ(Stored(0, amounts, prefix), "1000 0 0 0 0");
        EXPECT_EQ(Stored(0, scores, prefix), "397 0 241 450 280");
        EXPECT_EQ(Stored(0, prime, prefix), "- - - - -");
        EXPECT_EQ(Stored(2, amounts, prefix), "- - - - -");
        EXPECT_EQ(Stored(2, scores, prefix), "- - - - -");
        EXPECT_EQ(Stored(2, prime, prefix), "0 0 0 500 250");
        EXPECT_EQ(Stored(5, amounts, prefix), "0 60 60 40 50");
        EXPECT_EQ(Stored(5, prime, prefix), "- - - - -");
        EXPECT_EQ(Stored(32, amounts, prefix), "- - - 7 -") << "the combined line";
        EXPECT_EQ(Stored(32, scores, prefix), "- - - 9 9");
        EXPECT_EQ(Stored(33, amounts, prefix), "0 100 100 201 151") << "other works";
        EXPECT_EQ(Stored(33, scores, prefix), "- - - - -");
        EXPECT_EQ(Element(201, column), "2");
        EXPECT_EQ(Element(202, column), "201");
        // 1000: (0 + 2 × 500) / 3; 60, 40: (40 + 2 × 30) / 3; 100, 201: (201 + 2 × 50) / 3
        EXPECT_EQ(Element(203, column), std::to_string(333 + 33 + 100));
        EXPECT_EQ(Element(140, column), "0");
        EXPECT_EQ(Element(200, column), side.Is_Current() ? "0" : "5") << "the improved screen leaves W";
        EXPECT_EQ(Element(100, column), "-");
    }
}

TEST_F(Works_Store, Engineers_As_They_Are_Left) {
    for (const Side side : {Side{10, Scenario::Genjo}, Side{10, Scenario::Kaizen}}) {
        const std::string prefix(Columns_Of(side.scenario).prefix);
        const std::string column(Columns_Of(side.scenario).yoso);
        Put_Elements({{200, 5}}, column);
        const std::string works_before = Stored(0, amounts, prefix) + Stored(5, amounts, prefix);
        Works works = Screen(side);
        works.lines[5].gijutusya[0].Set_Null();
        works.lines[5].gijutusya[5].Set(Head_Count(0));
        works.lines[7].gijutusya[5].Set(Head_Count(1));
        works.lines[33].gijutusya[0].Set(Head_Count(3));
        works.lines[33].Mkijun.Set(Thousand_Yen(10));
        works = Calc_Gijutu_All(works, figures);
        Store_Works(Cn_Open(session), side, works, true);
        const std::vector<std::string> z_p = {"評点Z1", "評点Z2", "評点Z", "総合評点P"};
        EXPECT_EQ(Stored(5, {"技術者1", "技術者2", "技術者6"}, prefix), "- - 0");
        EXPECT_EQ(Stored(5, prime, prefix), "0 30 30 0 15");
        EXPECT_NE(Stored(5, {"総合評点P"}, prefix), "-");
        EXPECT_EQ(Stored(7, {"技術者6"}, prefix), "1");
        EXPECT_EQ(Stored(7, z_p, prefix), "559 241 495 -") << "P needs completed work";
        EXPECT_EQ(Stored(9, z_p, prefix), "- - - -");
        EXPECT_EQ(Stored(32, prime, prefix), "- - - 8 -");
        EXPECT_EQ(Stored(33, {"技術者1", "元請完工高平均", "評点Z1"}, prefix), "- 5 -");
        EXPECT_EQ(Stored(0, amounts, prefix) + Stored(5, amounts, prefix), works_before);
        EXPECT_EQ(Element(200, column), "5");
        EXPECT_EQ(Element(201), "-");
    }
}

} // namespace
} // namespace morvane::tests
