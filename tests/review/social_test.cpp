// SPDX-FileCopyrightText: The Morvane developers
#include "review/social.h"

#include "law/elements.h"
#include "law/run_time_error.h"
#include "review/settle.h"
#include "support/installation_fixture.h"

#include <set>

namespace morvane::tests {
namespace {

using Elements = std::map<int, double>;

/// Figures of a law year with every row there and some elements entered.
Review_Figures Of(int law_year, const Elements& elements) {
    Review_Figures figures;
    figures.law_year = Law_Of(law_year).code;
    for (Element& element : figures.elements) {
        element.row = true;
    }
    for (const auto& [code, value] : elements) {
        figures.elements[static_cast<std::size_t>(code)] = {value, true, true, false};
    }
    for (Work_Line& line : figures.works) {
        line.row = true;
    }
    return figures;
}

Social_Items Items_Of(const Review_Figures& figures) {
    Social_Items items;
    items.Load(figures);
    return items;
}

/// One pass of a screen that was opened with `items`.
Social_Items Pass(const Social_Items& items, const Review_Figures& figures) {
    return Calc_W_2012(items, items.Kikai_Ten, figures);
}

/// Element codes by the law year that first has them.
const std::map<int, std::set<int>> codes_of_law = {{1, {1,   100, 101, 102, 103, 104, 105, 110, 111, 120, 121,
                                                        130, 131, 140, 141, 142, 143, 150, 151, 152, 200}},
                                                   {2, {211, 212, 213, 214, 215, 216}},
                                                   {3, {106}},
                                                   {4, {221, 222, 223, 224, 225, 226, 227, 228, 229, 230,
                                                        231, 232, 233, 235, 236, 237, 238, 239, 240, 241}}};

TEST(Social, A_Law_Year_Reads_And_Stores_Its_Elements) {
    for (int law = 1; law <= 4; ++law) {
        Elements ones;
        for (int code = 0; code < 256; ++code) {
            ones[code] = 1;
        }
        Review_Figures target = Of(law, {});
        target.elements[131].row = false;
        Items_Of(Of(law, ones)).Store(target);
        std::set<int> stored;
        for (int code = 0; code < 256; ++code) {
            const Element& element = target.elements[static_cast<std::size_t>(code)];
            if (element.up) {
                stored.insert(code);
                EXPECT_EQ(element.value, 1) << law << " " << code;
            }
        }
        std::set<int> expected;
        for (const auto& [first_law, codes] : codes_of_law) {
            if (first_law <= law) {
                expected.insert(codes.begin(), codes.end());
            }
        }
        expected.erase(131);
        EXPECT_EQ(stored, expected) << law << ": rows of the law year, none of others, none that is missing";
    }
}

TEST(Social, Limits_On_Reading) {
    const std::tuple<int, double, double> cases[] = {
        {101, 2, 2}, {101, 3, 0},     {102, 3, 0},       {103, 3, 0},   {104, 2, 2}, {104, 3, 0}, {105, 3, 0},
        {106, 2, 2}, {106, 3, 0},     {111, 200, 200},   {111, 201, 0}, {121, 1, 1}, {121, 2, 0}, {131, 2, 2},
        {131, 3, 0}, {142, 999, 999}, {212, 5000, 5000}, {1, 0, 1},     {1, 2, 2},   {238, 9, 9}};
    for (const auto& [code, stored, read] : cases) {
        Review_Figures target = Of(4, {});
        Items_Of(Of(4, {{code, stored}})).Store(target);
        EXPECT_EQ(target.elements[static_cast<std::size_t>(code)].value, read) << code << " " << stored;
    }
    EXPECT_EQ(Items_Of(Of(4, {})).JikoS, 1);
}

// What the scores of a firm do not tell: percentages, and what stays where there are no engineers.
TEST(Social, Young_Engineers) {
    const std::tuple<const char*, Elements, int, double> cases[] = {
        {"kept", {{221, 101}, {222, 15}}, 223, 14},
        {"new", {{221, 100}, {225, 7}}, 226, 7},
        {"no engineers: rate stays", {{222, 15}, {223, 33}, {224, 1}}, 223, 33},
        {"no engineers: score stays", {{222, 15}, {223, 33}, {224, 1}}, 224, 1},
    };
    for (const auto& [name, elements, code, value] : cases) {
        Review_Figures figures = Of(4, elements);
        Pass(Items_Of(figures), figures).Store(figures);
        EXPECT_EQ(figures.elements[static_cast<std::size_t>(code)].value, value) << name;
    }
}

// Which scores reach the totals at once, in the next pass, or when the screen is opened again.
TEST(Social, Late_Scores) {
    // W1 and W after the first pass, the second, and one of the screen opened again
    using Passes = std::array<int, 3>;
    const std::tuple<const char*, int, Elements, Passes, Passes> cases[] = {
        {"young engineers", 4, {{221, 100}, {222, 15}, {225, 1}}, {0, 2, 2}, {0, 19, 19}},
        {"knowledge", 4, {{228, 30}, {229, 1}}, {0, 10, 10}, {0, 95, 95}},
        {"certificate and history", 4, {{235, 1}, {238, 1}}, {15, 15, 15}, {142, 142, 142}},
        {"machines", 4, {{212, 14}}, {0, 0, 0}, {0, 0, 142}},
        {"machines at law year 3", 3, {{212, 14}}, {0, 0, 0}, {0, 0, 142}},
        {"machines given up", 3, {{212, 0}, {213, 15}}, {0, 0, 0}, {142, 142, 0}},
        {"machines at law year 2", 2, {{212, 14}}, {0, 0, 0}, {142, 142, 142}},
    };
    for (const auto& [name, law, changed, w1, w] : cases) {
        SCOPED_TRACE(name);
        Elements elements = changed;
        elements.insert({{101, 1}, {102, 1}, {103, law > 2 ? 1 : 0}});
        Review_Figures figures = Of(law, elements);
        Social_Items items = Items_Of(figures);
        std::int32_t kikai_ten_of_load = items.Kikai_Ten;
        for (std::size_t pass = 0; pass < 3; ++pass) {
            if (pass == 2) {
                items.Store(figures);
                items = Items_Of(figures);
                kikai_ten_of_load = items.Kikai_Ten;
            }
            items = Calc_W_2012(items, kikai_ten_of_load, figures);
            EXPECT_EQ(std::pair(items.RF_Ten, items.W), std::pair(w1[pass], w[pass])) << pass;
        }
    }
}

TEST(Social, Overflow) {
    const Elements cases[] = {{{141, 3}, {151, INT32_MAX}, {152, 1}},
                              {{130, 7}, {224, INT16_MAX}, {238, 4}},
                              {{221, 1}, {222, INT32_MAX}, {224, 40'000}}};
    for (const Elements& elements : cases) {
        const Review_Figures figures = Of(4, elements);
        EXPECT_THROW(static_cast<void>(Pass(Items_Of(figures), figures)), Run_Time_Error);
    }
}

class Social_Store : public Installation {};

TEST_F(Social_Store, Adds_The_Rows_Of_Knowledge_And_Forms_P_Anew) {
    for (const int law : {4, 3}) {
        Make_Company(1, 1, 10);
        session.Simyu_Kubun = Law_Of(law).code;
        const std::string of_period = "決算期=10 And 要素CD>=228 And 要素CD<=233";
        Run({"DELETE FROM W_Yoso WHERE " + of_period});
        Put_Elements({{210, law}, {101, 1}, {102, 1}, {103, 1}, {121, 1}, {201, 3}});
        for (const int line : {0, 2, 32}) {
            Put_Work(line, {{"評点X1", 1000}, {"評点Z", 900}});
        }
        Run({"UPDATE Kandaka_Gj SET 総合評点P=1 WHERE 工種CD In (0, 32)"});
        const Connection cn = Cn_Open(session);
        const Review_Figures figures = Load_Review(cn, {10}, {});
        Store_W_2012(cn, {10}, {}, Pass(Items_Of(figures), figures));
        EXPECT_EQ(List("SELECT 要素CD, 要素名, 現状 FROM W_Yoso WHERE " + of_period + " ORDER BY 要素CD"),
                  law == 3 ? ""
                           : "228=CPD単位取得数=0 229=技術者数=0 230=レベル向上者数=0 231=技能者数=0 "
                             "232=控除対象者数=0 233=技術向上_点数=0");
        // The closing date is 2024: W = 200 × 175/200. Y of a statement without figures is 41, X2 its least,
        // 454.
        EXPECT_EQ(List("SELECT 総合評点P FROM Kandaka_Gj WHERE 工種CD In (0, 2, 32) ORDER BY 工種CD"),
                  "578 - 1")
            << "250 + 68.1 + 8.2 + 225 + 26.25";
        EXPECT_EQ(List("SELECT 現状 FROM W_Yoso WHERE 要素CD In (200, 201, 202, 210) ORDER BY 要素CD"),
                  "175 3 - " + std::to_string(law));
    }
}

} // namespace
} // namespace morvane::tests
