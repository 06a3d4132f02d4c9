// SPDX-FileCopyrightText: The Morvane developers
#include "report/kekka.h"

#include "batch/case_file.h"
#include "company/datacheck.h"
#include "report/recorded_sheet.h"
#include "report/report_table.h"
#include "review/work_columns.h"
#include "session/kyotu_mod.h"
#include "support/failing_writes.h"
#include "support/installation_fixture.h"
#include "support/sheet_texts.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace morvane::tests {
namespace {

std::vector<Box_Of_Text> Texts_Of(const Kekka_Figures& kekka, Kekka_Form form) {
    return Texts_Drawn_By([&](Prt_ModSet& prt) { Draw_Kekka(prt, kekka, form); });
}

/// The texts in the line of a text, from left to right; between `from` and `to` millimetres.
std::vector<Box_Of_Text> Line_Of(const std::vector<Box_Of_Text>& texts, const std::string& first,
                                 double from = 0, double to = 210) {
    const auto found = std::find_if(texts.begin(), texts.end(), [&](const Box_Of_Text& text) {
        return text.text == first && text.left >= from;
    });
    std::vector<Box_Of_Text> line;
    if (found == texts.end()) {
        ADD_FAILURE() << "not on the sheet: " << first;
        return line;
    }
    std::copy_if(texts.begin(), texts.end(), std::back_inserter(line), [&](const Box_Of_Text& text) {
        return std::abs((text.top + text.bottom) - (found->top + found->bottom)) < 1.2 && text.left >= from &&
               text.right <= to;
    });
    std::sort(line.begin(), line.end(), [](const auto& a, const auto& b) { return a.left < b.left; });
    return line;
}

class Kekka_Test : public Installation {
  protected:
    using Installation::Installation;

    /// Takes a sample in hand.
    Settled_Score Take_In_Hand(const std::string& sample, int number, int period, Scenario scenario) {
        Import_Case(session, Samples_Folder() / sample);
        session.Work_Store = Company_Store(session, number);
        session.Kanri_No = number;
        session.Syori_Ki = static_cast<std::int16_t>(period);
        in_hand = scenario;
        const Connection cn = Cn_Open(session);
        Settled_Score score = Score_Company(cn, session.Kind().edition, {period, scenario});
        session.Jigyo_Name = score.jigyo_name;
        session.Hojin_Kojin = score.figures.firm.type;
        return score;
    }

    /// What the window in this state of the session would print.
    [[nodiscard]] Kekka_Figures Read() const {
        const Report_Request request = Request_In_Hand(session, in_hand, *Find_Report("Rpt_Kekka"));
        return Kekka_Read(Cn_Open(session), session, request.sides.front());
    }

    Scenario in_hand = Scenario::Genjo;
};

class Kekka_Hokkaido_Test : public Kekka_Test {
  protected:
    Kekka_Hokkaido_Test() : Kekka_Test("01", true) {}
};

/// What the sheet has in common with all reports, and the column widths that firms of every day need.
TEST_F(Kekka_Test, Samples_Are_Set_In_Full_Size) {
    const std::tuple<const char*, int, int, Scenario, Kekka_Form, const char*> rows[] = {
        {"aoba_kensetsu.json", 1, 35, Scenario::Genjo, Kekka_Form::Rpt_Kekka_2012, "（改善前）"},
        {"midori_denki.json", 4, 20, Scenario::Genjo, Kekka_Form::Rpt_Kekka_2011, "（改善前）"},
        {"sakura_setsubi.json", 5, 28, Scenario::Kaizen, Kekka_Form::Rpt_Kekka_2012, "（改善後）"},
    };
    for (const auto& [sample, number, period, scenario, form, title] : rows) {
        SCOPED_TRACE(sample);
        const Settled_Score score = Take_In_Hand(sample, number, period, scenario);
        const auto texts = Texts_Of(Read(), form);
        std::set<double> sizes;
        for (const Box_Of_Text& text : texts) {
            sizes.insert(std::round(text.size * 10));
        }
        EXPECT_EQ(sizes, (std::set<double>{70, 75, 90, 105, 120, 150}));
        Line_Of(texts, std::string("経営事項審査 シミュレーション結果") + title);
        EXPECT_EQ(Joined(Line_Of(texts, "事業所名：")),
                  "事業所名：|" + score.jigyo_name + "|（第" + std::to_string(period) + "期決算）");
    }
}

TEST_F(Kekka_Hokkaido_Test, Totals_Count_No_Line_Twice) {
    Take_In_Hand("hokurei_doboku.json", 3, 42, Scenario::Genjo);
    const auto texts = Texts_Of(Read(), Kekka_Form::Rpt_Kekka_2012);
    // The parts of 土木, とび・土工 and 鋼構造物 do not count twice; sums by hand from the case file.
    EXPECT_EQ(Joined(Line_Of(texts, "合　　計")), "合　　計|984,730|957,230|966,396|673,701|675,188|674,693");
    EXPECT_EQ(Joined(Line_Of(texts, "利益額", 0, 110)), "利益額|48,844|41,781|(平均)|45,312|688");
    EXPECT_EQ(Joined(Line_Of(texts, "固定資産", 0, 110)), "固定資産|246,172|243,552");
    EXPECT_EQ(Joined(Line_Of(texts, "経常利益", 0, 110)), "経常利益|27,930|19,423");
}

// ---- the request

TEST_F(Kekka_Test, A_Report_Shows_The_Side_It_Is_Asked_For) {
    Take_In_Hand("midori_denki.json", 4, 21, Scenario::Genjo);
    const Report_Row& report = *Find_Report("Rpt_Kekka_2011");
    const Rpt_Draw drawn = report.read(Cn_Open(session), session, {.sides = {{20, Scenario::Kaizen}}});
    EXPECT_EQ(Document_Title(report.title, drawn.heading),
              "結果通知書 " + session.Jigyo_Name + " 第20期 改善後");
    EXPECT_THROW(report.read(Cn_Open(session), session, {.sides = {{99, Scenario::Genjo}}}), Score_Refusal);
    EXPECT_THROW(report.read(Cn_Open(session), session, {.sides = {{21, Scenario::Slot_3}}}), Score_Refusal);
}

TEST(Report_Request_Test, Sides_Beside_Each_Other) {
    const Side in_hand = {35, Scenario::Kaizen};
    const Side current = {35, Scenario::Genjo};
    using Sides = std::vector<Side>;
    EXPECT_EQ(Sides_Of(Report_Sides::One, in_hand), Sides({in_hand}));
    EXPECT_EQ(Sides_Of(Report_Sides::Improvement, in_hand), Sides({current, in_hand}));
    EXPECT_EQ(Sides_Of(Report_Sides::Prior, in_hand), Sides({{34, Scenario::Kaizen}, in_hand}));
    EXPECT_EQ(
        Sides_Of(Report_Sides::All_Scenarios, in_hand),
        Sides({current, in_hand, {35, Scenario::Slot_1}, {35, Scenario::Slot_2}, {35, Scenario::Slot_3}}));
}

// ---- the forms and the law years

Kekka_Form Form_Of(int law) {
    return static_cast<Kekka_Form>(std::min(law, 3));
}

Kekka_Figures Figures_Of_Law(int law) {
    Kekka_Figures kekka;
    kekka.figures.law_year = Law_Of(law).code;
    for (Element& element : kekka.figures.elements) {
        element = {1, true, true, false};
    }
    kekka.items.Load(kekka.figures);
    kekka.items.keiri_kansa = 3;
    kekka.items.Horei = 2;
    kekka.items.wlb = {4, 1, 0};
    kekka.items.rireki = 2;
    return kekka;
}

TEST(Kekka_Form_Test, Rows_By_Law_Year) {
    // Lines by law year; null: the form has no such row
    const std::pair<const char*, std::array<const char*, 4>> rows[] = {
        {"健保及び厚生年金加入の有無", {"有", "有", nullptr, nullptr}},
        {"健康保険│厚生年金保険加入の有無", {nullptr, nullptr, "有│有", "有│有"}},
        {"法定外労働災害補償制度加入の有無", {"有", "有", "有", "有"}},
        {"若年技術職員の継続的な育成及び確保", {nullptr, nullptr, "適用外", "1/1（1%）|1"}},
        {"女性の活躍推進の法律に基づく認定", {nullptr, nullptr, "適用外", "えるぼし第1段目"}},
        {"次世代育成支援法に基づく認定の状況", {nullptr, nullptr, "適用外", "プラチナくるみん|1"}},
        {"工事に従事する者の就業履歴の措置の実施状況", {nullptr, nullptr, "適用外", "全ての公共工事|1"}},
        {"労働福祉の状況", {"1", "1", nullptr, nullptr}},
        {"建設工事の担い手育成に関する取組の状況", {nullptr, nullptr, "1", "1"}},
        {"営業年数", {"1年", nullptr, nullptr, nullptr}},
        {"営業年数│民事再生法等適用の有無", {nullptr, "1年│有", "1年│有", "1年│有"}},
        {"営業停止処分の有無│指示処分の有無", {"有│無", "有│無", "有│無", "有│無"}},
        {"監査の受審状況", {"監査人", "監査人", "監査人", "監査人"}},
        {"建設機械の保有及びリース台数│点数", {nullptr, "1台|1", "1台|1", "1台|1"}},
        {"エコアクション21認証の有無", {nullptr, nullptr, "適用外", "有"}},
        {"補佐", {nullptr, nullptr, "", ""}},
    };
    for (int law = 1; law <= 4; ++law) {
        const Kekka_Form form = Form_Of(law);
        const auto texts = Texts_Of(Figures_Of_Law(law), form);
        for (const auto& [label, lines] : rows) {
            SCOPED_TRACE(std::string(label) + " at law year " + std::to_string(law));
            const char* expected = lines[static_cast<std::size_t>(law - 1)];
            if (expected == nullptr || *expected == '\0') {
                EXPECT_EQ(Box_Of(texts, label).size > 0, expected != nullptr);
            } else {
                EXPECT_EQ(Joined(Line_Of(texts, label, 110)), std::string(label) + "|" + expected);
            }
        }
    }
}

// ---- the sheet

/// Every figure as long as it can be, names of 40 full-width characters.
Kekka_Figures Longest_Figures(int law) {
    Kekka_Figures kekka = Figures_Of_Law(law);
    std::string name;
    for (int i = 0; i < 40; ++i) {
        name += "鑑";
    }
    kekka.heading = {name, 999, "改善前", "2026/12/31", name};
    for (Work_Line& line : kekka.figures.works) {
        for (const Work_Column& column : Work_Columns()) {
            column.place(line).Set(INT32_MIN);
        }
        for (Figure& figure : line.gijutusya) {
            figure.Set(99'999);
        }
    }
    for (Element& element : kekka.figures.elements) {
        element.value = -INT32_MAX;
    }
    Social_Items& items = kekka.items;
    items.Kjm = {INT32_MAX, INT32_MAX};
    items.Kihatu = {INT32_MIN, INT32_MIN};
    items.JyakunenAll = items.JyakunenK = items.JyakunenS = items.JyakunenK_ritu = INT32_MAX;
    items.tishikiGJ = {INT32_MAX, 1};
    items.tishikiGN = {INT32_MIN, INT32_MIN, INT32_MIN};
    items.Kikai = items.Enen = INT32_MAX;
    items.rireki = 5;
    kekka.y.elements.fill(Thousand_Yen(INT32_MIN));
    kekka.y_zenki.fill(Thousand_Yen(INT32_MIN));
    kekka.y.indicators.fill(-99999.999F);
    kekka.y.score = Points(INT16_MIN);
    kekka.x2.equities.fill(Thousand_Yen(INT32_MIN));
    kekka.x2.profits.fill(Thousand_Yen(INT32_MIN));
    kekka.x2.score = Points(INT16_MIN);
    kekka.x2.equity = kekka.x2.profit = {{}, Thousand_Yen(INT32_MAX), {kekka.x2.score, 0}};
    return kekka;
}

/// Figures as they can be at most.
TEST(Kekka_Form_Test, Texts_Keep_Apart_And_On_The_Sheet) {
    for (int law = 1; law <= 4; ++law) {
        EXPECT_EQ(Astray(Texts_Of(Longest_Figures(law), Form_Of(law))), "") << law;
    }
}

/// The figures of the largest firms: none is left out.
TEST(Kekka_Form_Test, Large_Figures_Are_Printed_Whole) {
    for (const auto& [amount, engineers, texts, size] : {std::tuple(9'999'999, 99, "9,999,999|99", 7.0),
                                                         {99'999'999, 999, "99,999,999|999", 6.6},
                                                         {999'999'999, 12'345, "999,999,999|12,345", 6},
                                                         {1'234'567'890, 999, "1234567890|999", 6}}) {
        Kekka_Figures kekka = Figures_Of_Law(4);
        kekka.figures.works[0].Kijun.Set(Thousand_Yen(amount));
        kekka.figures.works[0].gijutusya[0].Set(Head_Count(engineers));
        const auto line = Line_Of(Texts_Of(kekka, Kekka_Form::Rpt_Kekka_2012), "010");
        EXPECT_EQ(Joined(line), std::string("010|土木一式|") + texts);
        EXPECT_NEAR(line.at(2).size, size, 0.1);
    }
}

// ---- the row of the margins

TEST_F(Kekka_Test, Margins_By_Report_Number) {
    Make_Company(1, 1, 1);
    const Report_Row& newest = *Find_Report("Rpt_Kekka_2012");
    const Report_Row& oldest = *Find_Report("Rpt_Kekka");
    const Connection cn = Cn_Open(session);
    cn.Execute("DELETE FROM Report_Info WHERE レポートNo=17;");
    Print_State state;
    state.Prt_Scale = 0.5F;
    state.Prt_Busu = 3;
    state.Prt_Doing = true;
    Load_Report_Info(cn, newest, state);
    EXPECT_EQ(std::tuple(state.Prt_Scale, state.Prt_Busu, state.Prt_Doing), std::tuple(1.0F, 1, false));
    const std::string rows =
        "SELECT レポートNo, 書式名称, オブジェクト名, 用紙サイズ, 用紙向き, 用紙幅, 用紙高, "
        "上余白, 左余白 FROM Report_Info WHERE レポートNo=17 Or レポートNo=35";
    EXPECT_EQ(List(rows), "35=結果通知書(2011)=Rpt_Kekka_2011=9=1=210=297=0=0");

    // Number 35 is shared; number 17 is not repaired and keeps nothing.
    state.Ue_Mrg_Val = 2.5F;
    state.Hida_Mrg_Val = 3.0F;
    Save_Report_Info(session, newest, state);
    Save_Report_Info(session, oldest, state);
    Load_Report_Info(cn, *Find_Report("Rpt_Kekka_2011"), state);
    EXPECT_EQ(std::pair(state.Prt_Top, state.Prt_Left), std::pair(2.5F, 3.0F));
    Load_Report_Info(cn, oldest, state);
    EXPECT_EQ(state.Prt_Top, 0.0F);
    EXPECT_EQ(List("SELECT レポートNo FROM Report_Info WHERE レポートNo=17"), "");

    // Margins as they are stored write nothing, as on a disk that can only be read.
    cn.Execute("UPDATE Report_Info SET 上余白=2.55 WHERE レポートNo=35");
    Load_Report_Info(cn, newest, state);
    const Failing_Writes read_only(1, Failing_Writes::Manner::From_Then_On, EROFS);
    EXPECT_NO_THROW(Save_Report_Info(session, newest, state));
    state.Hida_Mrg_Val = 4.0F;
    EXPECT_THROW(Save_Report_Info(session, newest, state), Store_Error);
}

} // namespace
} // namespace morvane::tests
