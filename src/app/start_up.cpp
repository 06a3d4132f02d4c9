// SPDX-FileCopyrightText: The Morvane developers
#include "app/start_up.h"

#include "company/company_identity.h"
#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/left_work.h"
#include "company/pending_work.h"
#include "company/table_edit.h"
#include "company/templates.h"
#include "data/store_file.h"
#include "session/boxes.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"
#include "session/kyotu_mod.h"

#include <optional>
#include <sys/stat.h>

namespace morvane {

namespace fs = std::filesystem;

namespace {

bool Refuse_Too_Old(const Session& session) {
    if (session.Data_Ver >= Data_Form_No::National_2008) {
        return false;
    }
    Show_Message(
        session,
        {.title = "データ異常エラー", .text = "データが2008年より古いため、起動できません。", .beep = true});
    return true;
}

/// Reads the company of the working store into the session; false where Jigyo_mas has no row.
bool Read_Own_Company(Session& session) {
    const Connection cn = Cn_Open(session);
    const Recordset firm = cn.Open("SELECT * FROM Jigyo_mas");
    if (firm.Eof()) {
        return false;
    }
    session.Kanri_No = static_cast<std::int32_t>(firm["管理No"].As_Integer());
    session.Jigyo_Name = firm["事業所名"].As_Text();
    session.Hojin_Kojin = Firm_Type_Of(firm["法人個人識別"].As_Integer());
    session.Syori_Ki = static_cast<std::int16_t>(firm["処理決算期"].As_Integer());
    session.Tani_Kbn = Display_Unit::Ones;
    return true;
}

bool First_Run(Session& session) {
    Tell(session, "ご利用のご挨拶",
         "『Morvane』のご利用ありがとうございます。"
         "末永くご愛顧の程よろしくお願い申し上げます。");
    if (!session.Is_Multi() && !New_Data_Set(session, session.Kind().type, session.Syori_Ki)) {
        return false;
    }
    Jigyo_Init(session, Read_Install_Info(session.App_Path));
    return Read_Own_Company(session);
}

bool Has_Period_Dates(const Session& session) {
    const Connection cn = Cn_Open(session);
    const Recordset firm = cn.Open("SELECT * FROM Jigyo_mas");
    if (firm.Eof()) {
        return true;
    }
    for (const char* column :
         {"決算期終了年", "決算期終了月", "決算期終了日", "決算期開始年", "決算期開始月", "決算期開始日"}) {
        if (firm[column].Is_Null()) {
            return false;
        }
    }
    return true;
}

Start_Result Load_Single(Session& session, const std::function<void()>& edit_own_company) {
    if (!Has_Period_Dates(session)) {
        Tell(session, "決算期情報未入力確認",
             "決算期情報が不完全です。\n"
             "自社情報の編集画面を開きますので入力して下さい。");
        edit_own_company();
    }
    Open_Company_Store(session, session.Work_Store, std::nullopt).Close();
    session.Data_Ver = Get_Data_Ver(session, session.Syori_Ki);
    Table_Edit_Run(session);
    session.Simyu_Kubun = Get_Simyu_Kubun(session, session.Syori_Ki);
    return Refuse_Too_Old(session) ? Start_Result::Ended : Start_Result::Ready;
}

// The company of a session that ended abnormally, by the marker or by the lock file.
std::optional<Kidou_Marker> Left_In_Hand(const Session& session, const Instance_Lock& lock, bool first_run) {
    if (first_run && !Is_There(Kidou_File(session.App_Path))) {
        Write_Kidou_Ini(session.App_Path, {});
    }
    const Kidou_Marker marker = Read_Kidou_Ini(session.App_Path);
    if (!marker.Is_Clean()) {
        return marker;
    }
    const std::int32_t number = Company_In_Working_Store(session, lock.Left_Behind());
    if (number == 0) {
        return std::nullopt;
    }
    return Kidou_Marker{number, Cn_Open(session).Open("SELECT * FROM Jigyo_mas")["事業所名"].As_Text()};
}

Start_Result Load_Multi(Session& session, const Instance_Lock& lock, bool first_run) {
    const std::optional<Kidou_Marker> left = Left_In_Hand(session, lock, first_run);
    if (!left) {
        session.Kanri_No = 0;
        session.Jigyo_Name.clear();
        return Start_Result::Ready;
    }
    Tell(session, "前回の異常終了を確認",
         "前回の処理時に異常終了したようです。\n"
         "前回処理中の事業所を指定した状態で起動します。");
    session.Kanri_No = left->number;
    session.Jigyo_Name = left->name;
    Company_Reload(session);
    return Refuse_Too_Old(session) ? Start_Result::Ended : Start_Result::Ready;
}

bool Belongs_To(const fs::path& file, const struct stat& folder) {
    struct stat status = {};
    return ::lstat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == folder.st_uid &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

} // namespace

bool Has_Edition(const Install_Info& info) {
    return info.tiiki_cd.size() >= 2;
}

void Choose_Edition(const fs::path& app_path, Edition edition) {
    const Store_Key key = Store_Key::Derive(Session::default_password);
    const fs::path working_store = Find_File(app_path, "Morvane.dat");
    if (Is_There(working_store)) {
        const Connection cn(working_store, key, Connection::Mode::Read_Only);
        if (!cn.Open("SELECT * FROM Jigyo_mas").Eof()) {
            Keep_Backup(working_store, key);
        }
    }
    Install_Info info = Read_Install_Info(app_path);
    Copy_Store(Find_File(app_path, Blank_Work_Store(edition)), working_store, key);
    info.tiiki_cd = Code_Of(edition);
    info.todofuken_mei = Name_Of(edition);
    Write_Install_Info(app_path, info);
}

void Swap_Updater(const fs::path& app_path) {
    const fs::path fresh = app_path / "PgUpdataUP.exe";
    const fs::path present = app_path / "PgUpdata.exe";
    struct stat folder = {};
    if (::stat(app_path.c_str(), &folder) != 0 || !Belongs_To(fresh, folder)) {
        return;
    }
    std::error_code error;
    if (!fs::exists(fs::symlink_status(present, error)) || Belongs_To(present, folder)) {
        fs::rename(fresh, present, error);
    }
}

Start_Result Load_Session(Session& session, const Instance_Lock& lock,
                          const std::function<void()>& edit_own_company) {
    Take_Install_Info(session, Read_Install_Info(session.App_Path));
    Sweep_Drafts(session.App_Path);
    Swap_Updater(session.App_Path);
    Finish_Pending_Work(session);
    Mend_Working_Store(session, lock.Left_Behind());
    const bool first_run = !Read_Own_Company(session);
    if (first_run && !First_Run(session)) {
        return Start_Result::Ended;
    }
    return session.Is_Multi() ? Load_Multi(session, lock, first_run) : Load_Single(session, edit_own_company);
}

bool Query_Unload(const Session& session) {
    if (!session.Edit_Flg) {
        return true;
    }
    Tell(session, "終了エラー", "編集中の画面を閉じてから終了して下さい。");
    return false;
}

bool May_Unload(Session& session) {
    if (!session.Is_Multi()) {
        return true;
    }
    const Kidou_Marker marker = Read_Kidou_Ini(session.App_Path);
    if (marker.Is_Clean() && session.Kanri_No == 0) {
        return true;
    }
    Tell(session, "終了エラー",
         "指定中の事業所のデータが保存されていません。"
         "[終了]ボタンより終了してください。");
    if (!marker.Is_Clean()) {
        session.Kanri_No = marker.number;
        session.Jigyo_Name = marker.name;
    }
    Company_Reload(session);
    return false;
}

void Normal_End(Session& session, const Instance_Lock& lock) {
    if (session.Is_Multi() && session.Kanri_No != 0) {
        Check_In_And_Release(session);
    }
    lock.Record(0);
}

} // namespace morvane
