// SPDX-FileCopyrightText: The Morvane developers
#include "company/left_work.h"

#include "company/company_identity.h"
#include "company/datacheck.h"
#include "company/register.h"
#include "company/templates.h"
#include "data/store_error.h"
#include "data/store_file.h"
#include "session/boxes.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"

#include <optional>

namespace morvane {

namespace fs = std::filesystem;

namespace {

/// What a look at the working store gave: whose it is, or why it cannot be read.
struct Work_Look {
    Store_Identity identity;
    bool has_company = false;
    std::string fault;
};

/// `every_page`: also what only a later routine would stumble over. Failures that may pass (no permission,
/// another process) are raised.
Work_Look Look_At_Work(const Session& session, bool every_page) {
    Work_Look look;
    try {
        if (every_page) {
            Verify_Store(session.Work_Store, session.Db_Key);
        }
        const Connection cn(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
        look.identity = Identity_Of(cn);
        look.has_company = !cn.Open("SELECT * FROM Jigyo_mas").Eof();
    } catch (const Store_Error& error) {
        if (!Is_Unreadable(error)) {
            throw;
        }
        look.fault = error.what();
    }
    return look;
}

// The name guards against another office's company of the same number. It may have been changed in the
// register or in the data file alone by a program that was killed, hence either of them.
bool Fits_Register(const Session& session, const Store_Identity& identity) {
    if (!identity.number || !Identity_Fault(session, identity, identity.number).empty()) {
        return false;
    }
    const auto row = Find_Register_Row(session, *identity.number);
    if (!row || row->name == identity.name) {
        return row.has_value();
    }
    try {
        const Connection cn = Open_Company_Store(session, Company_Store(session, row->number), row->number);
        return Identity_Of(cn).name == identity.name;
    } catch (const Store_Error&) {
        return false;
    }
}

/// Takes the company from its own file; the reason why it could not be, or nothing.
std::string Take_From_File(Session& session, const Register_Row& row) {
    try {
        session.Kanri_No = 0;
        Check_Out(session, row.number, row.name);
        return {};
    } catch (const Store_Error& error) {
        return error.what();
    }
}

void Put_Blank_Work(const Session& session) {
    Copy_Store(Find_File(session.App_Path, Blank_Work_Store(session.Tiiki_CD)), session.Work_Store,
               session.Db_Key);
    Jigyo_Init(session, Read_Install_Info(session.App_Path));
    Write_Kidou_Ini(session.App_Path, {});
}

void Replace_Work(Session& session, const Work_Look& look, std::int32_t wanted) {
    std::string text = look.fault.empty()
                           ? "作業用のデータファイルは、前回処理中の事業所のデータではありませんでした。"
                           : "作業用のデータファイルを開けませんでした。\n" + look.fault;
    // A blank one has nothing to keep.
    if ((look.has_company || !look.fault.empty()) && Is_There(session.Work_Store)) {
        text += "\n元のファイルは「" + Set_Aside(session.Work_Store).filename().string() +
                "」という名前で残してあります。";
    }
    const auto row = wanted != 0 ? Find_Register_Row(session, wanted) : std::nullopt;
    const std::string failure = row ? Take_From_File(session, *row) : std::string();
    if (row && failure.empty()) {
        text += "\n事業所「" + row->name + "」は、最後に保存されたデータを読み込みました。";
    } else {
        Put_Blank_Work(session);
        text += (failure.empty() ? "" : "\n" + failure) + "\n事業所を指定していない状態で起動します。";
    }
    Tell(session, "作業用データの確認", text);
}

} // namespace

std::int32_t Company_In_Working_Store(const Session& session, std::int32_t recorded) {
    if (!session.Is_Multi() || !Is_There(Kidou_File(session.App_Path))) {
        return 0;
    }
    const Kidou_Marker marker = Read_Kidou_Ini(session.App_Path);
    if (marker.Is_Clean() && recorded == 0) {
        return 0;
    }
    const Work_Look look = Look_At_Work(session, false);
    const bool fits = look.fault.empty() && Fits_Register(session, look.identity);
    if (marker.Is_Clean()) {
        return fits && look.identity.number == recorded ? recorded : 0;
    }
    return fits ? *look.identity.number : marker.number;
}

void Settle_Marker(const Session& session) {
    if (!session.Is_Multi()) {
        return;
    }
    const Kidou_Marker marker = Read_Kidou_Ini(session.App_Path);
    if (marker.Is_Clean()) {
        return;
    }
    const Work_Look look = Look_At_Work(session, false);
    if (look.fault.empty() && look.identity.number != marker.number &&
        Fits_Register(session, look.identity)) {
        Write_Kidou_Ini(session.App_Path, {*look.identity.number, look.identity.name});
    }
}

void Mend_Working_Store(Session& session, std::int32_t recorded) {
    if (!session.Is_Multi() || !Is_There(Kidou_File(session.App_Path))) {
        return;
    }
    Settle_Marker(session);
    const Kidou_Marker marker = Read_Kidou_Ini(session.App_Path);
    const std::int32_t wanted = marker.Is_Clean() ? recorded : marker.number;
    const Work_Look look = Look_At_Work(session, true);
    // Under a clean marker the working store may be anybody's: it is saved. It counts as in hand only where
    // the lock file names its company.
    const bool in_hand = !marker.Is_Clean() || (wanted != 0 && look.identity.number == wanted);
    const bool fits = look.identity.number == wanted && Fits_Register(session, look.identity);
    if (!look.fault.empty() || (in_hand && !fits)) {
        Replace_Work(session, look, wanted);
    }
}

} // namespace morvane
