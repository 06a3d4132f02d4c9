// SPDX-FileCopyrightText: The Morvane developers
#include "company/periods.h"

#include "company/hoko_change.h"
#include "company/law_change.h"
#include "session/kyotu_mod.h"
#include "support/installation_fixture.h"

#include <tuple>

namespace morvane::tests {
namespace {

class Periods_Test : public Kept_Installation {
  protected:
    /// Company 1 with the periods 33, 34 and 35, 34 in hand; the pension row of each period is 1103.
    Periods_Test() {
        Make_Company(1, 1, 34);
        Run({"UPDATE W_Yoso SET 現状 = 1000 + 要素CD WHERE 要素CD<>210"});
        Period_Copy(session, 35, 34, Copy_Mode::After, Law_Of(4).code);
        Period_Copy(session, 33, 35, Copy_Mode::Before, Law_Of(4).code);
        Choose_Period(session, 34);
        Keep();
    }

    /// Period and years of the store, and what the session has in hand.
    [[nodiscard]] std::string Turned() const {
        return List("SELECT 処理決算期, 決算期開始年, 決算期終了年 FROM Jigyo_mas") + " " + In_Hand();
    }

    /// The insurances and schemes of a period with its law year.
    [[nodiscard]] std::string Elements(int period) const {
        return List("SELECT 要素CD, 現状 FROM W_Yoso WHERE 決算期=" + std::to_string(period) +
                    " And (要素CD>=103 And 要素CD<=106 Or 要素CD=210 Or 要素CD=999) ORDER BY 要素CD");
    }

    /// The box, after a question where there was one: a question warns and has No as default.
    void Expect_Last_Box(const std::string& box, std::size_t of = 1) const {
        ASSERT_EQ(messages.shown.size(), of) << box;
        EXPECT_EQ(Last_Box(), box);
        for (const Message_Box& shown : messages.shown) {
            const bool asks = shown.text.ends_with("よろしいですか？");
            EXPECT_EQ(shown.buttons, asks ? Buttons::Yes_No : Buttons::Ok);
            EXPECT_EQ(shown.default_answer, asks ? Answer::No : Answer::Ok);
            EXPECT_EQ(shown.icon, asks ? Icon::Warning : Icon::Information);
            EXPECT_TRUE(shown.beep);
        }
    }
};

TEST_F(Periods_Test, The_List_Tells_Form_And_Law_Year) {
    Set_Law_Year(session, 33, Law_Of(2).code);
    Run({"DELETE FROM Ks_Zaihyo WHERE 決算期=34 And 建設科目CD=99",
         "UPDATE Ks_Zaihyo SET 並び順 = Null WHERE 決算期=35 And 建設科目CD=99"});
    std::string read;
    for (const Period_Entry& period : Read_Periods(session)) {
        read += Period_Line(period.number) + "/" + std::to_string(Number_Of(period.data_ver)) + "/" +
                std::to_string(Law_Number(period.law_year)) + (period.Has_Law_Options() ? "+ " : "- ");
    }
    EXPECT_EQ(read, "  33期/5/2+   34期/51/4-   35期/2/4- ");
    EXPECT_EQ(Period_Line(7) + Period_Line(12345), "   7期12345期");
}

TEST_F(Periods_Test, A_New_Period_Has_The_Law_Year_Chosen_For_It) {
    const std::string now = "103=1103 104=1104 105=1105 106=- 210=";
    const std::string parked = "103=1104 104=1105 105=- 210=2 999=1103";
    constexpr auto after = Copy_Mode::After, earlier = Copy_Mode::Before;
    const std::tuple<Copy_Mode, int, int, std::string, const char*> cases[] = {
        {after, 36, 4, now + "4", "36=8=9 1 見本1 36 法人 5 4"},
        {after, 36, 3, now + "3", "36=8=9 1 見本1 36 法人 5 3"},
        {after, 36, 2, parked, "36=8=9 1 見本1 36 法人 5 2"},
        {earlier, 32, 2, parked, "32=4=5 1 見本1 32 法人 5 2"},
        {earlier, 32, 1, "103=1104 104=1105 105=- 210=1 999=1103", "32=4=5 1 見本1 32 法人 5 1"}};
    for (const auto& [mode, number, law, elements, in_hand] : cases) {
        Restore();
        messages.answers = {Answer::Yes};
        EXPECT_EQ(Create_Period(session, number, mode, Law_Of(law).code), Creation::Made);
        EXPECT_EQ(Elements(number), elements) << number << " " << law;
        EXPECT_EQ(Turned(), in_hand);
        Expect_Last_Box("新決算期処理終了：新規決算期処理が終了しました。", 2);
    }
    // Of a source of the law year 2011 the waiting pension row counts.
    messages.answers = {Answer::Yes};
    EXPECT_EQ(Create_Period(session, 31, Copy_Mode::Before, Law_Of(4).code), Creation::Made);
    EXPECT_EQ(Elements(31), now + "4");
}

TEST_F(Periods_Test, A_New_Period_Lacks_Nothing_Of_The_Present_Tables) {
    // The oldest period was never in hand since these rows came.
    Run({"DELETE FROM W_Yoso WHERE 決算期=33 And 要素CD>=210",
         "DELETE FROM Kandaka_Gj WHERE 決算期=33 And 工種CD>=32",
         "UPDATE Kandaka_Gj SET 工種略 = 'その他' WHERE 決算期=33 And 工種CD=31"});
    messages.answers = {Answer::Yes};
    EXPECT_EQ(Create_Period(session, 32, Copy_Mode::Before, Law_Of(4).code), Creation::Made);
    const std::string of = " FROM W_Yoso WHERE (要素CD>=210 And 要素CD<=227 Or 要素CD>=235) And 決算期=";
    EXPECT_EQ(List("SELECT count(*)" + of + "32"), List("SELECT count(*)" + of + "34"));
    EXPECT_EQ(List("SELECT 工種CD, 工種略 FROM Kandaka_Gj WHERE 決算期=32 And 工種CD>=31"),
              "31=解体 32=と・解 33=その他");
}

TEST_F(Periods_Test, What_Is_Refused_Or_Declined_Changes_Nothing) {
    enum class Act { Create, Choose, Delete };
    using enum Act;
    const std::string too_old = "決算期指定エラー：指定の決算期は、2008年改正以後の経審のデータではありません"
                                "。決算変更はできません。";
    const std::string no_deletion = "決算期削除不可エラー：";
    const char* const of_2005 = "UPDATE Ks_Zaihyo SET 並び順 = 2 WHERE 決算期=33 And 建設科目CD=99";
    const char* const no_marker = "DELETE FROM Ks_Zaihyo WHERE 決算期=33 And 建設科目CD=99";
    const std::tuple<Act, std::optional<std::int16_t>, const char*, std::string> cases[] = {
        {Create, 36, "",
         "新規決算期処理確認：新規決算期（後）のデータを作成します。作成されるデータは、2015年改正以降の"
         "データです。\nよろしいですか？"},
        {Create, 32, "",
         "新決算期指定エラー：新規決算期（前）のデータを作成します。作成されるデータは、2010年改正財務の\n"
         "データですが、2008年改正以降は、2010年改正データで計算可能です。\nよろしいですか？"},
        {Create, 32, of_2005,
         "新決算期指定エラー：最古のデータが2008年改正以外は、新規情報を登録できません。\n"
         "（リース資産関連の科目が、2010年以降追加になっています。）"},
        {Choose, {}, "", "既存指定：既存の決算期が指定されていません。"},
        {Choose, 33, of_2005, too_old},
        {Choose, 33, no_marker, too_old},
        {Delete, {}, "", "削除決算期指定：削除する決算期が指定されていません。"},
        {Delete, 34, "", no_deletion + "現在処理中の決算期は削除できません。"},
        {Delete, 33, "DELETE FROM Ks_ki WHERE 決算期<>33",
         no_deletion + "登録決算期が１期のみの場合は削除できません。\n"
                       "変更が必要な場合は、[自社情報]の決算期を変更してください。"},
        {Delete, 33, "UPDATE Ks_ki SET 決算期 = 32 WHERE 決算期=34",
         no_deletion + "削除できる決算期は、最古または最新決算期のみです。中間の決算期は削除できません。"},
        {Delete, 33, "",
         "指定決算期データ削除確認：指定された決算期の全データを削除します。削除したデータは復活できません！"
         "\nよろしいですか？"}};
    start.Data_Ver = Data_Form_No::National_2008;
    for (const auto& [act, period, change, box] : cases) {
        Restore();
        Run({change});
        before = State();
        EXPECT_FALSE(act == Choose   ? Choose_Period(session, period)
                     : act == Delete ? Delete_Period(session, period)
                                     : Create_Period(session, *period,
                                                     *period == 36 ? Copy_Mode::After : Copy_Mode::Before,
                                                     Law_Of(4).code) == Creation::Made)
            << box;
        Expect_Last_Box(box);
        EXPECT_TRUE(State() == before) << box;
        EXPECT_EQ(In_Hand(), "1 見本1 34 法人 3 4") << box;
    }
}

TEST_F(Periods_Test, A_Number_That_Cannot_Be_A_New_Period) {
    constexpr auto after = Copy_Mode::After, earlier = Copy_Mode::Before;
    const std::tuple<Copy_Mode, Value, const char*> cases[] = {
        {after, {}, "入力してください"},
        {after, 35, "第35期は既に登録されています。"},
        {after, 37, "前の期（第36期）が登録されていません。"},
        {after, 32768, "1 から 32767 まで"},
        {after, std::int64_t{65536 + 36}, "1 から 32767 まで"},
        {after, 1e30, "1 から 32767 まで"},
        {earlier, 34, "第34期は既に登録されています。"},
        {earlier, 31, "次の期（第32期）が登録されていません。"},
        {earlier, -1, "1 から 32767 まで"},
        {earlier, 0, "1 から 32767 まで"}};
    for (const auto& [mode, number, part] : cases) {
        EXPECT_PRED2(Has, New_Period_Fault(Read_Periods(session), number, mode), part);
        EXPECT_EQ(Create_Period(session, number, mode, Law_Of(4).code), Creation::Bad_Number);
    }
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(State() == before);

    const auto proposed = [](std::int16_t number, Copy_Mode mode) {
        return Proposed_Period({{number, Data_Form_No::National, {}}}, mode);
    };
    EXPECT_EQ(proposed(2, Copy_Mode::Before), 1);
    EXPECT_EQ(proposed(1, Copy_Mode::Before), std::nullopt);
    for (const Value& number : {Value(), Value(0), Value(7)}) {
        EXPECT_PRED2(Has, New_Period_Fault({{1, Data_Form_No::National, {}}}, number, Copy_Mode::Before),
                     "これより前の決算期は作成できません");
    }
    EXPECT_EQ(proposed(0, Copy_Mode::Before), std::nullopt);
    EXPECT_EQ(proposed(32766, Copy_Mode::After), 32767);
    EXPECT_EQ(proposed(32767, Copy_Mode::After), std::nullopt);
}

// The end of a month stays the end of its month, a leap year being one of Heisei or of Reiwa.
TEST_F(Periods_Test, A_Shifted_Date_Keeps_The_End_Of_Its_Month) {
    const std::tuple<const char*, int, const char*> cases[] = {
        {"6, 2, 29", 1, "7=2=28"},   {"7, 2, 28", 1, "8=2=29"}, {"8, 2, 28", 1, "9=2=28"},
        {"6, 2, 29", -1, "5=2=28"},  {"5, 2, 28", 2, "7=2=28"}, {"7, 3, 31", 2, "9=3=31"},
        {"7, 2, 29", 1, "8=2=29"},   {"7, 4, 31", 1, "8=4=31"}, {"2, 2, 28", -3, "-1=2=28"},
        {"1, 12, 31", -1, "0=12=31"}};
    for (const auto& [from, years, to] : cases) {
        Run({std::string("UPDATE Jigyo_mas SET (決算期終了年, 決算期終了月, 決算期終了日) = (SELECT ") +
             from + ")"});
        Take_Period(Cn_Open(session), 35 + years, 35);
        EXPECT_EQ(List("SELECT 決算期終了年, 決算期終了月, 決算期終了日 FROM Jigyo_mas"), to) << from;
    }
}

TEST_F(Periods_Test, Turning_To_A_Period_Shifts_The_Years) {
    Set_Law_Year(session, 33, Law_Of(2).code);
    EXPECT_EQ(Turned(), "34=6=7 1 見本1 34 法人 5 4");
    EXPECT_TRUE(Choose_Period(session, 33));
    EXPECT_EQ(Turned(), "33=5=6 1 見本1 33 法人 5 2");
    EXPECT_TRUE(Choose_Period(session, 35));
    EXPECT_EQ(Turned(), "35=7=8 1 見本1 35 法人 5 4");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(Periods_Test, A_Period_At_Either_End_Is_Deleted_With_Its_Rows) {
    Run({"INSERT INTO Kandaka_KzT (決算期, 工種CD) VALUES (35, 1)"});
    for (const std::int16_t period : {std::int16_t{35}, std::int16_t{33}}) {
        messages.shown.clear();
        messages.answers = {Answer::Yes};
        EXPECT_TRUE(Delete_Period(session, period));
        Expect_Last_Box("決算期削除処理終了：指定された決算期データの削除が終了しました。", 2);
    }
    for (const char* table : {"Ks_Zaihyo", "Kandaka_Gj", "W_Yoso", "Ks_ki", "QandA"}) {
        EXPECT_EQ(List(std::string("SELECT DISTINCT 決算期 FROM ") + table), "34") << table;
    }
    EXPECT_EQ(List("SELECT 決算期 FROM Kandaka_KzT"), "35");
    EXPECT_EQ(Turned(), "34=6=7 1 見本1 34 法人 5 4");
}

TEST_F(Periods_Test, The_Law_Year_Follows_The_Options) {
    const auto question = [](const std::string& law) {
        return "経審計算年の変更確認：" + law + "年改正のデータに変更します。\nよろしいですか？";
    };
    const std::string no_2008 = "経審年指定エラー：2008年のシミュレーションはできません。";
    // An empty box is none.
    using Row = std::tuple<std::int16_t, int, int, int, Answer, std::string, int, int>;
    for (const auto& [period, present, wanted, marked, answer, box, mark_after, law_after] :
         {Row{34, 4, 1, 4, Answer::Ok, no_2008, 4, 4},
          {34, 1, 1, 1, Answer::Ok, "", 1, 1},
          {34, 4, 4, 2, Answer::Ok, "", 4, 4},
          {34, 2, 4, 2, Answer::Ok, "", 4, 2},
          {34, 2, 2, 4, Answer::Yes, "", 2, 2},
          {34, 4, 2, 4, Answer::No, question("2011"), 3, 4},
          {34, 2, 3, 2, Answer::No, question("2012"), 2, 2},
          {34, 4, 2, 4, Answer::Yes, question("2011"), 2, 2},
          {34, 2, 3, 2, Answer::Yes, question("2012"), 3, 3},
          {33, 4, 2, 4, Answer::Yes, question("2011"), 2, 2}}) {
        SCOPED_TRACE(std::to_string(present) + " to " + std::to_string(wanted));
        Set_Law_Year(session, period, Law_Of(present).code);
        session.Simyu_Kubun = Law_Of(period == 34 ? present : 4).code;
        messages.shown.clear();
        messages.answers = {answer};
        EXPECT_EQ(Law_Number(Change_Law_Year(session, period, Law_Of(wanted).code, Law_Of(marked).code)),
                  mark_after);
        EXPECT_EQ(Field("W_Yoso", "現状", "要素CD=210 And 決算期=" + std::to_string(period)).As_Integer(),
                  law_after);
        EXPECT_EQ(Law_Number(session.Simyu_Kubun), period == 34 ? law_after : 4);
        Expect_Last_Box(box, box.empty() ? 0 : 1);
    }
    Set_Law_Year(session, 34, Law_Of(4).code);
    EXPECT_EQ(Elements(34), "103=1103 104=1104 105=1105 106=1106 210=4");
}

TEST_F(Periods_Test, No_Failing_Write_Leaves_Half_A_Change) {
    const std::function<void(Session&)> acts[] = {
        [](Session& copy) { Create_Period(copy, 36, Copy_Mode::After, Law_Of(2).code); },
        [](Session& copy) { Create_Period(copy, 32, Copy_Mode::Before, Law_Of(1).code); },
        [](Session& copy) { Choose_Period(copy, 33); },
        [](Session& copy) { Delete_Period(copy, 33); },
        [](Session& copy) { Change_Law_Year(copy, 34, Law_Of(2).code, Law_Of(4).code); },
        [](Session& copy) { Set_Law_Year(copy, 33, Law_Of(3).code); },
        [](Session& copy) { To_Kojin(copy, 0); }};
    Set_Law_Year(session, 33, Law_Of(2).code);
    Keep();
    for (const auto& act : acts) {
        Restore();
        const auto done = [&] {
            Session copy = session;
            messages.answers = {Answer::Yes};
            try {
                act(copy);
            } catch (const Store_Error&) {
                EXPECT_EQ(copy.Syori_Ki, 34);
                EXPECT_EQ(Law_Number(copy.Simyu_Kubun), 4);
                throw;
            }
        };
        Expect_All_Or_Nothing(folder.path, done, [this] { return State(); });
    }
}

} // namespace
} // namespace morvane::tests
