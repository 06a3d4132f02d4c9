// SPDX-FileCopyrightText: The Morvane developers
#include "company/company_save.h"

#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/kana.h"
#include "company/left_work.h"
#include "company/pending_work.h"
#include "data/store_file.h"
#include "session/kidou_ini.h"
#include "support/installation_fixture.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <tuple>

namespace morvane::tests {

namespace fs = std::filesystem;

namespace {

using Outcome_Of_Save = Save_Result::Outcome;

/// Company 1 with the periods 5 to 7 in hand, 6 the one in work, and an edit that its data file lacks;
/// company 2 at rest.
class Company_Save_Test : public Kept_Installation {
  protected:
    Company_Save_Test() {
        Register_Company(2, "見本2", 2, 7);
        Register_Company(1, "見本1");
        Check_Out(session, 1, "見本1");
        Period_Copy(session, 6, 5, Copy_Mode::After);
        Period_Copy(session, 7, 6, Copy_Mode::After);
        session.Syori_Ki = 6;
        Run({"UPDATE Jigyo_mas SET 処理決算期=6, 単位=2; UPDATE W_Yoso SET 現状=3 WHERE 要素CD=210"});
        Check_In(session);
        Put_Amounts({{101, 4711.0}});
        Keep();
    }

    void Be_Own_Firm() {
        session.Kanri_Flg = Office_Mode::Single;
        screen = Company_Screen::Jgmas;
    }

    /// The entry of the screen with changes, each control=text, between blanks.
    Company_Entry Loaded(const std::string& changes = "") const {
        Company_Entry loaded = Load_Company(session, screen);
        std::istringstream parts(changes);
        for (std::string part; std::getline(parts, part, ' ');) {
            loaded.texts[part.substr(0, part.find('='))] = part.substr(part.find('=') + 1);
        }
        if (const auto unit = loaded.texts.extract("unit"); !unit.empty()) {
            loaded.tani = static_cast<std::int16_t>(std::stoi(unit.mapped()));
        }
        return loaded;
    }

    /// How it went, with the field that has the focus and the titles of the boxes. What is refused changes
    /// nothing.
    std::string Save(const std::string& changes, std::vector<Answer> answers = {},
                     bool leave_period = false) {
        messages.shown.clear();
        messages.answers = std::move(answers);
        entry = Loaded(changes);
        before = State();
        const Save_Result result =
            leave_period ? Leave_Period(session, entry) : Save_Company(session, screen, entry);
        EXPECT_TRUE(result.outcome != Outcome_Of_Save::Refused || State() == before) << changes;
        static constexpr const char* names[] = {"Saved", "Registered", "Refused", "Failed", "Discarded"};
        return names[static_cast<int>(result.outcome)] + std::string(" ") + result.focus + ": " + Titles();
    }

    /// Number=name of every row, and the data files.
    [[nodiscard]] std::string Register() const {
        std::string text;
        for (const Register_Row& row : Read_Register(session)) {
            text += std::to_string(row.number) + "=" + row.name + "/" + row.kana + " ";
        }
        for (const auto& [name, content] : Read_Files(folder.path / "data")) {
            text += name.string() + " ";
        }
        return text;
    }

    const std::string new_company = "JigyoCD=9 SyaMei=新規建設 SyaKana=しんき Ks_ki=12 Ksnen_St=6 "
                                    "KsTuki_St=4 KsHi_St=1 Ksnen_Ed=7 KsTuki_Ed=3 KsHi_Ed=31 HoKo=2 Yu1=060";
    Company_Screen screen = Company_Screen::Jg_New;
    Company_Entry entry;
};

TEST_F(Company_Save_Test, Refusals_Name_Their_Field_And_Change_Nothing) {
    const std::string missing = "が入力されていません。必須項目です。\n入力してください。";
    const std::string twice = "事業所番号重複エラー：事業所番号が重複しています。確認修正してください。";
    const std::string no_start = "決算期日付エラー：決算期始まりの日付が不正です。確認修正してください。";
    const std::string no_end = "決算期日付エラー：決算期終わりの日付が不正です。確認修正してください。";
    using Rows = std::vector<std::tuple<std::string, std::string, std::string>>;
    const auto expect_refused = [this](const Rows& rows) {
        for (const auto& [changes, focus, box] : rows) {
            EXPECT_TRUE(Save(changes).starts_with("Refused " + focus + ":")) << changes;
            EXPECT_TRUE(messages.shown.size() == 1U && messages.shown[0].beep) << changes;
            EXPECT_TRUE(Last_Box().starts_with(box)) << Last_Box();
        }
    };
    expect_refused({{"JigyoCD= SyaMei=", "JigyoCD", "事業所番号入力確認：事業所番号" + missing},
                    {"SyaMei=　", "SyaMei", "事業所名入力確認：事業所名" + missing},
                    {"SyaKana=", "SyaKana", "事業所カナ名入力確認：事業所カナ名" + missing},
                    {"Ks_ki= Ksnen_St=", "Ks_ki", "決算期入力確認：決算期" + missing},
                    {"KsTuki_St=", "KsTuki_St", "決算期間始　月入力確認：決算期間始　月" + missing},
                    {"KsHi_Ed=", "KsHi_Ed", "決算期間始　日入力確認：決算期間始　日" + missing},
                    {"HoKo= KsHi_St=32", "HoKo", "法人・個人入力確認：法人・個人" + missing},
                    {"KsTuki_St=13", "Ksnen_St", no_start},
                    {"KsHi_Ed=32", "Ksnen_Ed", no_end},
                    {"JigyoCD=2", "JigyoCD", twice},
                    {"JigyoCD=5000002", "JigyoCD", twice},
                    {"JigyoCD=999999", "JigyoCD", "事業所番号エラー：事業所番号"},
                    {"JigyoCD=2147483648", "JigyoCD", "事業所番号エラー：事業所番号"},
                    {"Ks_ki=32768", "Ks_ki", "決算期エラー：決算期"},
                    {"Syozai=" + std::string(101, 'x'), "Syozai",
                     "文字数エラー：所在地は100文字以内で入力してください"}});
    // The screen of a firm of its own tests in an order of its own.
    Be_Own_Firm();
    expect_refused({{"Ks_ki= Ksnen_Ed= SyaMei= unit=1", "Ks_ki", "決算期入力確認"},
                    {"KsTuki_Ed= SyaMei= unit=0", "KsTuki_Ed", "決算期間終了入力確認"},
                    {"SyaMei= unit=0", "En", "処理単位指定確認"},
                    {"SyaMei= KsHi_Ed= unit=1", "SyaMei", "事業所名入力確認"},
                    {"KsHi_Ed=31 KsTuki_Ed=2 unit=1", "Ksnen_Ed", no_end}});
    EXPECT_FALSE(Loaded().texts.contains("JigyoCD"));
}

TEST_F(Company_Save_Test, All_Questions_Come_Before_Any_Action) {
    const std::string changes = "JigyoCD=3 Ks_ki=8 HoKo=2 Tel=011-1";
    const std::string refusals[] = {"JigyoCD: 事業所番号変更確認", "Ks_ki: 事業所番号変更確認 決算期変更確認",
                                    "HoKo: 事業所番号変更確認 決算期変更確認 法人・個人識別変更確認"};
    for (std::vector<Answer> answers; const std::string& refusal : refusals) {
        answers.push_back(Answer::No);
        EXPECT_EQ(Save(changes, answers), "Refused " + refusal);
        answers.back() = Answer::Yes;
        EXPECT_EQ(messages.shown.back().icon, Icon::Warning);
        EXPECT_EQ(messages.shown.back().default_answer, Answer::No);
        const std::string field = refusal.substr(0, refusal.find(':'));
        EXPECT_EQ(entry.Text(field), Loaded().Text(field)) << "the field has its stored value again";
        EXPECT_EQ(entry.Text("Tel"), "011-1");
    }
    EXPECT_EQ(messages.shown[2].text, "法人・個人識別が変更されました。"
                                      "既に入力されている全てのデータを消去します。\nよろしいですか？");
    // The refusal of the shift comes before the question that follows it.
    EXPECT_EQ(Save("Ks_ki=1 HoKo=2", {Answer::Yes}), "Refused Ks_ki: 決算期変更確認 決算期変更確認");
    EXPECT_EQ(messages.shown[1].text, "既に登録されている決算期が0になります。"
                                      "決算期の番号は1からです。\nこの決算期には変更できません。");
    EXPECT_EQ(Save("Ks_ki=32767", {Answer::Yes}), "Refused Ks_ki: 決算期変更確認 決算期変更確認");

    EXPECT_EQ(Save(changes, {Answer::Yes, Answer::Yes, Answer::Yes}).substr(0, 5), "Saved");
    EXPECT_EQ(Register(), "2=見本2/ｱ 3=見本1/ｱ 000002.dat 000003.dat ");
    Expect_Rows(
        {{"決算期 FROM Ks_ki", "8"}, // moved from 6, the others are wiped
         {"管理No, 処理決算期, 法人個人識別, 電話番号 FROM Jigyo_mas", "3=8=2=011-1"},
         {"count(金額), count(*) FROM Ks_Zaihyo WHERE 決算期=8 And 建設科目名 Is 個人科目名", "0=255"}});
    EXPECT_TRUE(In_Hand().starts_with("3 見本1 8 個人 ")) << In_Hand();
    EXPECT_EQ(State()["kidou.ini"], "3,\"見本1\"\n");
    // Elements that the wipe left behind stand under 7 and 9: the next shift goes over them.
    EXPECT_EQ(Save("Ks_ki=7", {Answer::Yes}), "Saved : 決算期変更確認");
    EXPECT_EQ(List("SELECT DISTINCT 決算期 FROM Ks_Zaihyo"), "7");
}

TEST_F(Company_Save_Test, A_Shift_Moves_Every_Period_In_Either_Direction) {
    Run({"UPDATE W_Yoso SET 現状 = 決算期 WHERE 要素CD=111",
         "INSERT INTO Kandaka_Kz (決算期, 工種CD) VALUES (6, 1)"});
    for (const auto& [change, moved] :
         {std::pair("Ks_ki=8", "7=5 8=6 9=7"), {"Ks_ki=7", "6=5 7=6 8=7"}, {"Ks_ki=2", "1=5 2=6 3=7"}}) {
        EXPECT_EQ(Save(change, {Answer::Yes}), "Saved : 決算期変更確認");
        EXPECT_EQ(List("SELECT 決算期, 現状 FROM W_Yoso WHERE 要素CD=111 ORDER BY 決算期"), moved);
        EXPECT_EQ(Amount(101), 4711.0);
        for (const std::string table : {"Ks_Zaihyo", "Kandaka_Gj", "QandA"}) {
            EXPECT_EQ(List("SELECT count(DISTINCT 決算期) FROM " + table), "3") << table;
        }
    }
    EXPECT_EQ(List("SELECT 決算期 FROM Kandaka_Kz"), "6");
    EXPECT_EQ(Save("Ks_ki=1", {Answer::Yes}).substr(0, 7), "Refused") << "it would leave a period 0";
}

TEST_F(Company_Save_Test, A_New_Company_Is_Registered_And_Taken_In_Hand) {
    Start_New_Company(session);
    EXPECT_EQ(Titles(), "処理中の事業所保存");
    EXPECT_EQ(session.Kanri_No, 0);
    session.Jg_New_Flg = true;
    session.Simyu_Kubun = Law_Of(1).code;
    session.User_ID = "U-7";
    EXPECT_EQ(Load_Company(session, screen).Text("SyaMei"), "");
    EXPECT_EQ(Save(new_company + " JigyoCD=1000001"), "Refused JigyoCD: 事業所番号重複エラー")
        << "the data file would be that of company 1";

    EXPECT_EQ(Save(new_company), "Registered : ");
    EXPECT_EQ(Register(), "1=見本1/ｱ 2=見本2/ｱ 9=新規建設/ｼﾝｷ 000001.dat 000002.dat 000009.dat ");
    Expect_Rows({{"管理No, 事業所名, 地域CD, 地域名, UserID, 単位, 郵便番号1, 法人個人識別, 処理決算期, "
                  "決算期終了日, 所在地 FROM Jigyo_mas",
                  "9=新規建設=13=全国=U-7=1=060=2=12=31=-"},
                 {"決算期 FROM Ks_ki", "12"}});
    auto now = State();
    EXPECT_TRUE(now["Morvane.dat"] == now["data/000009.dat"]);
    EXPECT_EQ(now["kidou.ini"], "999999,\"正常終了\"\n");
    EXPECT_FALSE(now.contains("pending.json"));
    EXPECT_EQ(In_Hand(), "9 新規建設 12 個人 5 4");
    EXPECT_FALSE(session.Jg_New_Flg);
    EXPECT_EQ(Save(new_company), "Saved : ") << "from now on an existing company";
}

TEST_F(Company_Save_Test, A_Template_That_Does_Not_Fit_Registers_Nothing) {
    Check_In_And_Release(session);
    session.Jg_New_Flg = true;
    Connection(folder.path / "morv_set.dat", Delivered_Key())
        .Execute("DELETE FROM Ks_Zaihyo WHERE 建設科目CD=101");
    EXPECT_EQ(Save(new_company), "Refused : データ異常");
}

TEST_F(Company_Save_Test, The_Own_Firm_Changes_Its_Name_And_Type) {
    Be_Own_Firm();
    EXPECT_EQ(Loaded().tani, 2);
    EXPECT_EQ(Save("SyaMei=改名建設 HoKo=2 unit=3", {Answer::Yes}), "Saved : 法人・個人識別変更確認");
    EXPECT_EQ(List("SELECT 管理No, 事業所名, 事業所カナ名, 単位 FROM Jigyo_mas"), "1=改名建設=ｱ=3");
    EXPECT_EQ(session.Tani_Kbn, Display_Unit::Millions);
    EXPECT_EQ(In_Hand(), "1 改名建設 6 個人 5 3") << "the law year is read again";
}

TEST_F(Company_Save_Test, Leaving_The_Period_Shifts_At_Once) {
    Be_Own_Firm();
    const auto leave = [this](const std::string& changes, const std::vector<Answer>& answers) {
        return Save(changes, answers, true);
    };
    EXPECT_EQ(leave("Ks_ki=06 SyaMei=改名", {}), "Saved : ") << "the same period";
    EXPECT_TRUE(State() == before);
    EXPECT_EQ(leave("Ks_ki=", {}), "Refused Ks_ki: 決算期入力確認");
    EXPECT_EQ(messages.shown[0].text,
              "決算期は省略できません。必須項目です。\n個人事業の場合も事業年度等として入力してください。");
    EXPECT_EQ(leave("Ks_ki=8", {Answer::No}), "Refused Ks_ki: 決算期変更確認");
    EXPECT_EQ(entry.Text("Ks_ki"), "6");
    EXPECT_EQ(leave("Ks_ki=1", {Answer::Yes}), "Refused Ks_ki: 決算期変更確認 決算期変更確認");
    EXPECT_EQ(leave("Ks_ki=0", {}), "Refused Ks_ki: 決算期エラー");
    // What is whole of the other edits is saved; the firm type waits for its own question.
    EXPECT_EQ(leave("Ks_ki=8 SyaMei= Tel=011 KsTuki_St=13 KsHi_Ed=30 HoKo=2", {Answer::Yes}),
              "Saved : 決算期変更確認 保存確認");
    Expect_Rows({{"処理決算期, 事業所名, 電話番号, 決算期開始月, 決算期終了日, 法人個人識別 FROM Jigyo_mas",
                  "8=見本1=011=4=30=1"},
                 {"決算期 FROM Ks_ki ORDER BY 決算期", "7 8 9"}});
    EXPECT_EQ(session.Syori_Ki, 8);
    EXPECT_EQ(entry.Text("HoKo"), "2");
}

TEST(Company_Info_Test, Era_Dates_And_Readings) {
    const auto is_date = [](const std::array<const char*, 3>& date) {
        return Is_Era_Date(date[0], date[1], date[2]);
    };
    const std::array<const char*, 3> dates[] = {{"30", "4", "1"},   {"1", "1", "1"},  {"99", "12", "31"},
                                                {"07", "03", "31"}, {"4", "2", "29"}, {"12", "2", "29"},
                                                {"6", "2", "29"},   {"8", "2", "29"}};
    EXPECT_EQ(std::find_if_not(std::begin(dates), std::end(dates), is_date), std::end(dates));
    const std::array<const char*, 3> none[] = {{"0", "4", "1"},  {"100", "4", "1"}, {"5", "13", "1"},
                                               {"5", "0", "1"},  {"5", "4", "31"},  {"5", "4", "0"},
                                               {"5", "2", "29"}, {"7", "2", "29"},  {"", "4", "1"}};
    EXPECT_EQ(std::find_if(std::begin(none), std::end(none), is_date), std::end(none));
    EXPECT_EQ(Half_Width_Kana("ばパがーヴん・ッ ｱｲ　A漢é"), "ﾊﾞﾊﾟｶﾞｰｳﾞﾝ･ｯ ｱｲ A漢é");
    EXPECT_EQ(Common_Kanji("髙﨑𠮷邊邉齋齊斉濵濱嶋澤廣國櫻工業A"), "高崎吉辺辺斎斎斎浜浜島沢広国桜工業A");
}

/// Where nothing was begun or all of it is done, and what the next start makes of a killed process.
class Company_Files_Test : public Company_Save_Test {
  protected:
    using Contents = std::map<std::string, std::string>;

    Contents State_After_Start() {
        Sweep_Drafts(folder.path);
        Finish_Pending_Work(session);
        Settle_Marker(session);
        return State();
    }

    /// Every write of `act` fails in every manner; behind the next start everything is as before or as after
    /// a good run, and a failure that was only said left it as before.
    void Expect_Whole(const std::function<Outcome_Of_Save()>& act,
                      const std::function<bool(const Contents&)>& may_be = {}) {
        Contents after;
        Outcome_Of_Save outcome{};
        const auto check = [&](Outcome how) {
            if (how == Outcome::Finished && outcome == Outcome_Of_Save::Failed) {
                EXPECT_PRED2(Has, Titles(), "エラー");
                auto now = State();
                now.erase("pending.json"); // which cannot be removed where nothing can be
                EXPECT_TRUE(now == before);
                EXPECT_EQ(session.Kanri_No, start.Kanri_No);
                EXPECT_EQ(session.Jg_New_Flg, start.Jg_New_Flg);
            }
            const auto now = State_After_Start();
            if (after.empty()) {
                after = now;
                EXPECT_TRUE(after != before);
            }
            const bool done = now == after;
            EXPECT_TRUE(done || now == before || (may_be && may_be(now)));
            EXPECT_TRUE(done || how != Outcome::Finished || outcome == Outcome_Of_Save::Failed);
        };
        const auto yes = [&] {
            messages.answers = {Answer::Yes};
            outcome = act();
        };
        Fail_Every_Write([this] { Restore(); }, yes, check);
    }
    void Expect_Whole_Save(const std::string& changes,
                           const std::function<bool(const Contents&)>& may_be = {}) {
        const auto save = [&] {
            entry = Loaded(changes);
            return Save_Company(session, screen, entry).outcome;
        };
        Expect_Whole(save, may_be);
    }
};

TEST_F(Company_Files_Test, No_Failing_Write_Separates_A_New_Number_From_Its_Data) {
    Expect_Whole_Save("JigyoCD=3 SyaMei=改名");
    // A company that was only registered yet: the marker tells a clean end.
    Restore();
    Check_In_And_Release(session);
    session.Kanri_No = 1;
    session.Jigyo_Name = "見本1";
    Keep();
    // The marker may already tell that the company is in hand.
    Expect_Whole_Save("JigyoCD=3 SyaMei=改名", [this](auto now) {
        now["kidou.ini"] = before["kidou.ini"];
        return now == before;
    });
}

TEST_F(Company_Files_Test, No_Failing_Write_Leaves_Half_A_Registration) {
    Check_In_And_Release(session);
    session.Jg_New_Flg = true;
    Keep();
    // Registered, though the working store still holds the former company, which is saved.
    Expect_Whole_Save(new_company, [this](auto now) {
        return now["Morvane.dat"] == before["Morvane.dat"] && now.contains("data/000009.dat") &&
               Find_Register_Row(session, 9) == Register_Row{9, "新規建設", "ｼﾝｷ"};
    });
}

TEST_F(Company_Files_Test, No_Failing_Write_Leaves_Half_A_Deletion_Or_Spoils_An_Address) {
    Expect_Whole([this] {
        return Delete_Company(session, Register_Row{2, "見本2", "ｱ"}) ? Outcome_Of_Save::Saved
                                                                      : Outcome_Of_Save::Failed;
    });
    Expect_Whole_Save("Syozai=札幌市");
}

TEST_F(Company_Files_Test, The_Next_Start_Can_Be_Killed_Too) {
    // A renumbering that was killed right behind the working store.
    Write_Text_File(folder.path / "pending.json", R"({"処理":"変更","事業所CD":3,"事業所名":"見本1",
        "事業所カナ名":"ｱ","変更前CD":1})");
    Run({"UPDATE Jigyo_mas SET 管理No=3"});
    Keep();
    Contents after;
    const auto check = [&](Outcome) {
        const auto now = State_After_Start();
        after = after.empty() ? now : after;
        EXPECT_TRUE(now == after);
    };
    Fail_Every_Write([this] { Restore(); }, [this] { Finish_Pending_Work(session); }, check);
    EXPECT_EQ(Register(), "2=見本2/ｱ 3=見本1/ｱ 000002.dat 000003.dat ");
    EXPECT_EQ(Read_Kidou_Ini(folder.path).number, 3);
    EXPECT_EQ(Amount(101), 4711.0);
}

TEST_F(Company_Files_Test, A_Harmed_Intent_Is_Dropped_Only_Where_Nothing_Needs_It) {
    for (const char* text : {"{", "[]", R"({"処理":"消去"})", ""}) {
        Write_Text_File(folder.path / "pending.json", text);
        EXPECT_TRUE(State_After_Start() == before) << text;
    }
    Write_Text_File(folder.path / "pending.json", "{");
    fs::remove(folder.path / "data/000002.dat");
    EXPECT_PRED2(Has, Refusal_Of([this] { Finish_Pending_Work(session); }), "pending.json");
    session.Kanri_Flg = Office_Mode::Single;
    EXPECT_NO_THROW(Finish_Pending_Work(session)) << "single-company mode knows no register";
}

} // namespace
} // namespace morvane::tests
