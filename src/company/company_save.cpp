// SPDX-FileCopyrightText: The Morvane developers
#include "company/company_save.h"

#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/hoko_change.h"
#include "company/kana.h"
#include "company/pending_work.h"
#include "company/period_shift.h"
#include "data/store_file.h"
#include "session/boxes.h"
#include "session/kidou_ini.h"
#include "session/kyotu_mod.h"
#include "session/save_or_stay.h"

#include <exception>
#include <optional>

namespace morvane {

namespace fs = std::filesystem;

namespace {

using Outcome = Save_Result::Outcome;

bool Confirmed(const Session& session, const std::string& title, const std::string& text) {
    return Ask(session, title, text + "\nよろしいですか？");
}

/// One saving of a company screen.
class Company_Saving {
  public:
    Company_Saving(Session& the_session, Company_Screen the_screen, Company_Entry& the_entry)
        : session(the_session), screen(the_screen), entry(the_entry),
          is_new(screen == Company_Screen::Jg_New && session.Jg_New_Flg),
          stored(Load_Company(session, screen)) {}

    Save_Result Run() {
        if (screen == Company_Screen::Jg_New) {
            entry.texts["SyaKana"] = Half_Width_Kana(entry.Text("SyaKana"));
        }
        if (std::string refused = Test_Entry(session, screen, entry, stored); !refused.empty()) {
            return {Outcome::Refused, refused};
        }
        Take_Numbers();
        if (!May_Take_Number()) {
            return {Outcome::Refused, "JigyoCD"};
        }
        if (!is_new && !May_Shift()) {
            return {Outcome::Refused, "Ks_ki"};
        }
        if (!is_new && !May_Convert()) {
            return {Outcome::Refused, "HoKo"};
        }
        if (is_new) {
            return Register();
        }
        if (screen == Company_Screen::Jg_New && Row() != Find_Register_Row(session, session.Kanri_No)) {
            Change_With_Register();
        } else {
            Change_In_Place();
        }
        return {Outcome::Saved, ""};
    }

    Save_Result Shift_Now() {
        if (Is_Blank(entry.Text("Ks_ki"))) {
            Tell(
                session, "決算期入力確認",
                "決算期は省略できません。必須項目です。\n個人事業の場合も事業年度等として入力してください。");
            return {Outcome::Refused, "Ks_ki"};
        }
        if (!Test_Period(session, entry.Text("Ks_ki"))) {
            return {Outcome::Refused, "Ks_ki"};
        }
        Take_Numbers();
        if (period == session.Syori_Ki) {
            return {Outcome::Saved, ""};
        }
        if (!May_Shift()) {
            return {Outcome::Refused, "Ks_ki"};
        }
        Show_Message(session, {.title = "保存確認", .text = "編集中のデータを一旦保存します。"});
        Change_In_Place();
        Set_Session(Outcome::Saved);
        return {Outcome::Saved, ""};
    }

    /// Brings the session in line with what was saved.
    void Set_Session(Outcome outcome) const {
        session.Kanri_No = number;
        session.Jigyo_Name = entry.Text("SyaMei");
        session.Syori_Ki = period;
        session.Hojin_Kojin = hojin_kojin;
        if (outcome == Outcome::Registered) {
            session.Data_Ver = Present_Form(session.Kind().edition);
            session.Simyu_Kubun = Get_Simyu_Kubun(session, period);
            session.Jg_New_Flg = false;
        }
    }

  private:
    void Take_Numbers() {
        number = screen == Company_Screen::Jg_New
                     ? static_cast<std::int32_t>(Number_Of(entry.Text("JigyoCD")))
                     : session.Kanri_No;
        period = static_cast<std::int16_t>(Number_Of(entry.Text("Ks_ki")));
        // Any type but 1 counts as an individual.
        const auto type = [](const std::string& text) {
            return text == "1" ? Firm_Type::Corporation : Firm_Type::Individual;
        };
        hojin_kojin = type(entry.Text("HoKo"));
        type_changes = !is_new && hojin_kojin != type(stored.Text("HoKo"));
    }

    bool Put_Back(const char* control) {
        entry.texts[control] = stored.Text(control);
        return false;
    }

    bool May_Take_Number() {
        if (!is_new && number == session.Kanri_No) {
            return true;
        }
        if (Is_Number_Taken(session, number, is_new ? 0 : session.Kanri_No)) {
            Tell(session, "事業所番号重複エラー", "事業所番号が重複しています。確認修正してください。");
            return false;
        }
        return is_new ||
               Confirmed(session, "事業所番号変更確認",
                         "事業所番号が変更されました。既に入力されている全てのデータを変更します。") ||
               Put_Back("JigyoCD");
    }

    bool May_Shift() {
        if (period == session.Syori_Ki) {
            return true;
        }
        if (!Confirmed(session, "決算期変更確認",
                       "決算期が変更されました。既に入力されている全てのデータを変更します。")) {
            return Put_Back("Ks_ki");
        }
        const Shift_Test test = Test_Shift(Cn_Open(session), period - session.Syori_Ki);
        if (test == Shift_Test::Possible) {
            return true;
        }
        const char* reason = "既に登録されている決算期が32767を超えます。";
        if (test == Shift_Test::Below_Zero) {
            reason = "既に登録されている決算期がマイナスになります。";
        } else if (test == Shift_Test::To_Zero) {
            reason = "既に登録されている決算期が0になります。決算期の番号は1からです。";
        }
        Tell(session, "決算期変更確認", std::string(reason) + "\nこの決算期には変更できません。");
        return Put_Back("Ks_ki");
    }

    bool May_Convert() {
        return !type_changes ||
               Confirmed(session, "法人・個人識別変更確認",
                         "法人・個人識別が変更されました。既に入力されている全てのデータを消去します。") ||
               Put_Back("HoKo");
    }

    [[nodiscard]] Register_Row Row() const { return {number, entry.Text("SyaMei"), entry.Text("SyaKana")}; }

    void Apply(const Connection& cn) const {
        if (period != session.Syori_Ki) {
            Period_Shift(cn, period - session.Syori_Ki);
        }
        if (type_changes) {
            hojin_kojin == Firm_Type::Corporation ? To_Houjin(cn, period, 0) : To_Kojin(cn, period, 0);
        }
        Put_Company(cn, screen, entry);
    }

    void Change_In_Place() const {
        const Connection cn = Cn_Open(session);
        Transaction transaction(cn);
        Apply(cn);
        transaction.Commit();
    }

    // The working store is changed on a draft and put in place first: by what it says the next start decides.
    void Change_With_Register() const {
        const std::int32_t former = session.Kanri_No;
        const std::optional<Register_Row> former_row = Find_Register_Row(session, former);
        const fs::path from = Company_Store(session, former);
        const fs::path to = Company_Store(session, number);
        const bool moves = from != to && Is_There(from);
        Pending_Work pending(session, {.kind = Work_Intent::Kind::Change, .row = Row(), .former = former});
        File_Replacement working =
            File_Replacement::With_Draft(session.Work_Store, session.Work_Store, session.Db_Key);
        working.Change(session.Db_Key, [this](const Connection& cn) { return Apply(cn), true; });
        // A company that was only registered yet is in hand under a clean marker. From here on the marker has
        // to tell whose the working store is.
        File_Replacement marked = File_Replacement::With_Text(Kidou_Text({former, session.Jigyo_Name}),
                                                              Kidou_File(session.App_Path));
        File_Replacement marker =
            File_Replacement::With_Text(Kidou_Text({number, Row().name}), Kidou_File(session.App_Path));
        pending.Do([&] { marked.Commit(); }, [&] { marked.Undo(); });
        pending.Do([&] { working.Commit(); }, [&] { working.Undo(); });
        pending.Do([&] { moves ? Move_Company_Store(session, former, number) : void(); },
                   [&] {
                       if (moves && !Is_There(from)) {
                           Move_Company_Store(session, number, former);
                       } else if (moves && Is_There(to)) {
                           Remove_Store(to);
                       }
                   });
        pending.Do([&] { Put_Register_Row(session, Row(), former); },
                   [&] {
                       if (former_row && Find_Register_Row(session, former) != former_row) {
                           Put_Register_Row(session, *former_row, number);
                       }
                   });
        pending.Do([&] { marker.Commit(); }, [&] { marker.Undo(); });
    }

    Save_Result Register() const {
        if (session.Kanri_No != 0) {
            Check_In_And_Release(session);
        }
        Pending_Work pending(session, {.kind = Work_Intent::Kind::Registration, .row = Row()});
        File_Replacement resting = File_Replacement::With_Draft(
            Find_File(session.App_Path, "morv_set.dat"), Company_Store(session, number), session.Db_Key);
        const bool filled = resting.Change(session.Db_Key, [this](const Connection& cn) {
            const Firm_Kind kind = {session.Kind().edition, hojin_kojin};
            return Fill_Blank_Company(cn, Blank_Statement(Cn_Open_Org(session), kind, period), period) &&
                   Put_New_Company(cn);
        });
        if (!filled) {
            Report_Bad_Template(session);
            return {Outcome::Refused, ""};
        }
        File_Replacement working =
            File_Replacement::With_Store(resting.Draft(), session.Work_Store, session.Db_Key);
        pending.Do([&] { resting.Commit(); }, [&] { resting.Undo(); });
        pending.Do([&] { Put_Register_Row(session, Row()); },
                   [&] {
                       if (Find_Register_Row(session, number)) {
                           Remove_Register_Row(session, number);
                       }
                   });
        pending.Do([&] { working.Commit(); }, [&] { working.Undo(); });
        return {Outcome::Registered, ""};
    }

    bool Put_New_Company(const Connection& cn) const {
        Put_Company(cn, screen, entry);
        Recordset firm = cn.Open("SELECT * FROM jigyo_mas");
        firm.Set("地域CD", Code_Of(session.Tiiki_CD));
        firm.Set("地域名", session.Todofuken_Mei);
        firm.Set("UserID", session.User_ID);
        firm.Set("単位", 1);
        firm.Update();
        return true;
    }

    Session& session;
    Company_Screen screen;
    Company_Entry& entry;
    bool is_new;
    Company_Entry stored;
    std::int32_t number = 0;
    std::int16_t period = 0;
    Firm_Type hojin_kojin = Firm_Type::Corporation;
    bool type_changes = false;
};

/// Tells a failure and offers another attempt. What only the next start can finish is raised.
template <class Work>
Save_Result Reported(const Session& session, Work work) {
    Save_Result result;
    std::exception_ptr unfinished;
    const Save_End end = Save_Or_Stay(session, [&] {
        try {
            result = work();
        } catch (const Unfinished_Work&) {
            unfinished = std::current_exception();
        }
    });
    if (unfinished) {
        std::rethrow_exception(unfinished);
    }
    switch (end) {
    case Save_End::Saved:
        return result;
    case Save_End::Discard:
        return {Outcome::Discarded, ""};
    case Save_End::Stay:
        break;
    }
    return {Outcome::Failed, ""};
}

/// What is blank, no date, or needs a question of its own stays as it is stored.
void Keep_Stored_Where_Not_Whole(Company_Entry& entry, const Company_Entry& stored) {
    entry.texts["HoKo"] = stored.Text("HoKo");
    if (Is_Blank(entry.Text("SyaMei"))) {
        entry.texts["SyaMei"] = stored.Text("SyaMei");
    }
    for (const std::string end : {"_St", "_Ed"}) {
        const std::string year = "Ksnen" + end;
        const std::string month = "KsTuki" + end;
        const std::string day = "KsHi" + end;
        if (!Is_Era_Date(entry.Text(year), entry.Text(month), entry.Text(day))) {
            for (const std::string& control : {year, month, day}) {
                entry.texts[control] = stored.Text(control);
            }
        }
    }
}

} // namespace

Save_Result Save_Company(Session& session, Company_Screen screen, Company_Entry& entry) {
    std::optional<Company_Saving> saving;
    const Save_Result result = Reported(session, [&] {
        Finish_Pending_Work(session);
        return saving.emplace(session, screen, entry).Run();
    });
    if (result.outcome == Outcome::Saved || result.outcome == Outcome::Registered) {
        saving->Set_Session(result.outcome);
        if (screen == Company_Screen::Jgmas) {
            session.Tani_Kbn = Display_Unit_Of(entry.tani);
            Company_Reload(session);
        }
    }
    return result;
}

Save_Result Leave_Period(Session& session, Company_Entry& entry) {
    std::optional<Company_Saving> saving;
    Company_Entry interim = entry;
    const Save_Result result = Reported(session, [&] {
        Keep_Stored_Where_Not_Whole(interim, Load_Company(session, Company_Screen::Jgmas));
        return saving.emplace(session, Company_Screen::Jgmas, interim).Shift_Now();
    });
    entry.texts["Ks_ki"] = interim.Text("Ks_ki");
    return result;
}

} // namespace morvane
