// SPDX-FileCopyrightText: The Morvane developers
#include "review/works.h"

#include "law/run_time_error.h"
#include "review/settle.h"
#include "support/installation_fixture.h"

namespace morvane::tests {
namespace {

/// Figures of a law year with every row there and nothing entered.
Review_Figures Blank(int law_year, const std::map<int, double>& elements = {}) {
    Review_Figures figures;
    figures.law_year = Law_Of(law_year).code;
    for (std::size_t code = 0; code < figures.elements.size(); ++code) {
        const auto given = elements.find(static_cast<int>(code));
        figures.elements[code] = {given == elements.end() ? 0.0 : given->second, given != elements.end(),
                                  true, false};
    }
    for (Work_Line& line : figures.works) {
        line.row = true;
    }
    return figures;
}

void Enter(Amount_Figure& zzki, Amount_Figure& zki, Amount_Figure& kijun, std::int32_t a, std::int32_t b,
           std::int32_t c) {
    zzki.Set(Thousand_Yen(a));
    zki.Set(Thousand_Yen(b));
    kijun.Set(Thousand_Yen(c));
}

Works Loaded(const Review_Figures& figures, std::int16_t x2 = 454, std::int16_t y = 0) {
    return Load_Kanko(figures, Points(x2), Points(y));
}

TEST(Works, Totals_Leave_Parts_Of_Other_Lines_Out) {
    for (const std::int32_t avg : {2, 3}) {
        Review_Figures figures = Blank(4, {{201, avg}});
        Works works = Loaded(figures);
        for (std::size_t i = 0; i < work_line_count; ++i) {
            Work_Line& line = works.lines[i];
            if (i != combined_line) {
                Enter(line.Zzki, line.Zki, line.Kijun, 30, 20, 10);
                Enter(line.Mzzki, line.Mzki, line.Mkijun, 3, 2, 1);
            }
        }
        const auto texts = [](const Kanko_Totals& t) {
            return std::vector({t.Zzki.Count(), t.Zki.Count(), t.Kijun.Count(), t.Zheikin.Count(),
                                t.two_year.Count(), t.three_year.Count()});
        };
        // 31 single lines and その他, without 011, 051 and 111; a line has the averages 15 and 20.
        const Works calculated = Calc_Kanko_All(works, figures);
        EXPECT_EQ(texts(calculated.totals), std::vector({900, 600, 300, avg == 2 ? 600 : 750, 450, 600}));
        EXPECT_EQ(calculated.totals.Nheikin(avg).Count(), avg == 2 ? 450 : 600);
        // 3, 2 and 1 on a line: averages 2 and 2, before them 2 and 3.
        const auto prime = std::vector({90, 60, 30, avg == 2 ? 60 : 90, 60, 60});
        EXPECT_EQ(texts(calculated.motouke), prime);
        EXPECT_EQ(texts(Calc_Gijutu_All(works, figures).motouke), prime);
        const Work_Line& line = calculated.lines[3];
        EXPECT_EQ(
            std::vector({line.Nheikin.value, line.Zheikin.value, line.Mnheikin.value, line.Mzheikin.value}),
            std::vector(avg == 2 ? std::initializer_list{15, 20, 2, 2}
                                 : std::initializer_list{20, 25, 2, 3}));
    }
}

TEST(Works, Tables_And_Scores_Of_A_Law_Year) {
    const struct {
        int law;
        std::int32_t zi, x1, z2, z, p;
    } cases[] = {{1, 510, 390, 210, 450, 278}, {2, 510, 397, 241, 456, 281}, {4, 510, 397, 241, 456, 281},
                 {1, 0, 390, 210, 450, 278},   {3, 0, 397, 241, 450, 280},   {4, 900, 397, 241, 768, 359}};
    for (const auto& c : cases) {
        Review_Figures figures = Blank(c.law);
        figures.works[8].Zi = {c.zi, true, false};
        Works works = Loaded(figures);
        works = Calc_Kanko_All(works, figures);
        const Work_Line& line = works.lines[8];
        EXPECT_EQ(line.X1.value, c.x1) << c.law;
        EXPECT_EQ(line.Zro.value, c.z2) << c.law;
        EXPECT_EQ(line.Z.value, c.z) << c.law << " " << c.zi;
        EXPECT_EQ(line.P.value, c.p) << c.law << " " << c.zi; // 0.25 X1 + 0.15 × 454 + 0.25 Z
    }
}

TEST(Works, W_By_Law_Year) {
    const std::map<int, double> items = {{100, 10}, {110, 5}, {111, 35}, {120, 20}, {130, -15},
                                         {140, 77}, {150, 3}, {211, 1},  {213, 7},  {216, 4}};
    std::map<int, double> running = items;
    running[211] = 0;
    const std::map<int, double> bad = {{130, -30}};
    const Review_Date late{2023, 8, 14};
    constexpr W_Form by_law = W_Form::By_Law_Year;
    constexpr W_Form of_eight = W_Form::Of_Eight;
    const struct {
        const char* name;
        int law;
        W_Form form;
        std::map<int, double> elements;
        std::optional<Review_Date> date;
        std::int16_t w;
    } cases[] = {
        {"six sub-scores", 1, by_law, items, {}, 230},
        {"six sub-scores in the form of eight", 1, of_eight, items, {}, 218},
        {"the same from the cut-off", 1, of_eight, items, late, 201},
        {"years less rehabilitation", 2, of_eight, items, {}, 275},
        {"in the comparison", 2, by_law, items, {}, 275},
        {"years", 3, of_eight, running, {}, 845},
        {"years, cut-off", 4, of_eight, running, late, 778},
        {"never below 0", 1, by_law, bad, {}, 0},
        {"below 0", 1, of_eight, bad, {}, -285},
        {"below 0 from 2011", 2, of_eight, bad, {}, -285},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Review_Figures figures = Blank(c.law, c.elements);
        figures.review_date = c.date;
        Works works = Loaded(figures);
        works = Calc_Kanko_All(works, figures, c.form);
        EXPECT_EQ(works.scores.W.Count(), c.w);
        EXPECT_EQ(works.items.W, c.w);
        EXPECT_EQ(works.items.Jms_Ten, 0);
        const Points x1(c.law == 1 ? 390 : 397);
        EXPECT_EQ(works.lines[0].P.value,
                  Calc_P_Ten(x1, Points(454), Points(), Points(450), Points(c.w)).Count());
    }
}

TEST(Works, W5_Follows_The_Running_Total_And_W10_Stays_Outside) {
    const struct {
        std::int32_t avg, other_line_work;
        int w5;
    } cases[] = {{2, 39'999, 10}, {2, 40'000, 6}, {3, 59'999, 10}, {3, 60'000, 6}};
    for (const auto& c : cases) {
        // Stored totals of another entry play no part; one accountant of second grade.
        Review_Figures figures = Blank(
            4, {{201, c.avg}, {202, 9'000'000}, {203, 9'000'000}, {143, 1}, {228, 30}, {229, 1}, {100, 4}});
        Works works = Loaded(figures);
        Enter(works.lines[0].Zzki, works.lines[0].Zki, works.lines[0].Kijun, 0, 60'000, 60'000);
        Enter(works.lines[1].Zzki, works.lines[1].Zki, works.lines[1].Kijun, 60'000, 60'000, 60'000);
        Enter(works.lines[33].Zzki, works.lines[33].Zki, works.lines[33].Kijun, c.other_line_work,
              c.other_line_work, c.other_line_work);
        works = Calc_Kanko_All(works, figures);
        EXPECT_EQ(works.items.Jms_Ten, c.w5) << c.avg << " " << c.other_line_work;
        EXPECT_EQ(works.items.W10_ten, 10);
        EXPECT_EQ(works.scores.W.Count(), (4 + c.w5) * 19 / 2);
    }
    Review_Figures figures = Blank(4, {{229, 1}, {233, 3}});
    Works works = Loaded(figures);
    works = Calc_Kanko_All(works, figures);
    EXPECT_EQ(works.items.W10_ten, 3) << "without units the stored score stays";
}

TEST(Works, Engineers_Give_Z_And_P_With_The_Stored_X1) {
    Review_Figures figures = Blank(4, {{200, 1000}});
    figures.works[20].X1 = {700, true, false};
    for (Count_Figure& count : figures.works[20].gijutusya) {
        count = {1, true, false};
    }
    Works works = Loaded(figures, 600, 500);
    works = Calc_Gijutu_All(works, figures);
    const Work_Line& line = works.lines[20];
    EXPECT_EQ(line.Zi.value, 766);
    EXPECT_EQ(line.Z.value, 661); // 0.8 × 766 + 0.2 × 241 is whole
    EXPECT_EQ(line.P.value, 680); // 175 + 90 + 100 + 165.25 + 150
    EXPECT_EQ(works.lines[0].Zi.value, 510);
    EXPECT_EQ(works.lines[0].P.value, 454); // 0 + 90 + 100 + 114 + 150
}

TEST(Works, Overflow) {
    Review_Figures figures = Blank(4, {{143, 1}});
    const struct {
        const char* name;
        std::size_t first, last;
        std::int32_t amount;
        bool prime;
    } cases[] = {{"X1 out of reach", 33, 33, 28'633'116, false},
                 {"Z2 out of reach", 33, 33, 19'522'579, true},
                 {"total", 0, 33, 100'000'000, false},
                 {"sum of two periods", 0, 0, 2'000'000'000, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Works works = Loaded(figures);
        for (std::size_t i = c.first; i <= c.last; ++i) {
            Work_Line& line = works.lines[i];
            c.prime ? Enter(line.Mzzki, line.Mzki, line.Mkijun, 0, c.amount, c.amount)
                    : Enter(line.Zzki, line.Zki, line.Kijun, 0, c.amount, c.amount);
        }
        EXPECT_THROW(static_cast<void>(Calc_Kanko_All(works, figures)), Run_Time_Error);
        if (c.prime) {
            EXPECT_THROW(static_cast<void>(Calc_Gijutu_All(works, figures)), Run_Time_Error);
        }
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
        return Loaded(figures);
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
