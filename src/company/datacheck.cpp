// SPDX-FileCopyrightText: The Morvane developers
#include "company/datacheck.h"

#include "company/company_identity.h"
#include "company/table_edit.h"
#include "data/store_file.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"
#include "session/kyotu_mod.h"

#include <optional>
#include <utility>

namespace morvane {

void Company_Reload(Session& session) {
    {
        const Connection cn = Cn_Open(session);
        const Recordset firm = cn.Open("SELECT * FROM Jigyo_mas");
        if (!firm.Eof()) {
            session.Syori_Ki = static_cast<std::int16_t>(firm["処理決算期"].As_Integer());
            session.Hojin_Kojin = Firm_Type_Of(firm["法人個人識別"].As_Integer());
        }
    }
    session.Data_Ver = Get_Data_Ver(session, session.Syori_Ki);
    Table_Edit_Run(session);
    session.Simyu_Kubun = Get_Simyu_Kubun(session, session.Syori_Ki);
}

std::filesystem::path Company_Store(const Session& session, std::int32_t number) {
    const std::string digits = "000000" + std::to_string(number);
    const std::filesystem::path store =
        session.App_Path / "data" / (digits.substr(digits.size() - 6) + ".dat");
    // Only the ending has letters, so that the folder of thousands of companies need not be searched.
    std::filesystem::path upper_case = store;
    upper_case.replace_extension(".DAT");
    return !Is_There(store) && Is_There(upper_case) ? upper_case : store;
}

namespace {

/// The company in hand as it is about to be put over its resting store: what is not that company's never is.
File_Replacement Saved_Work(const Session& session) {
    Open_Company_Store(session, session.Work_Store, session.Kanri_No).Close();
    return File_Replacement::With_Store(session.Work_Store, Company_Store(session, session.Kanri_No),
                                        session.Db_Key);
}

} // namespace

void Check_In(const Session& session) {
    if (session.Kanri_No != 0) {
        Saved_Work(session).Commit();
    }
}

void Check_In_And_Release(Session& session) {
    Check_In(session);
    Write_Kidou_Ini(session.App_Path, {});
    session.Kanri_No = 0;
    session.Jigyo_Name.clear();
}

void Check_Out(Session& session, std::int32_t number, const std::string& name) {
    const std::filesystem::path wanted = Company_Store(session, number);
    std::optional<File_Replacement> saved;
    if (session.Kanri_No != 0) {
        saved.emplace(Saved_Work(session));
    }
    // The company in hand is taken again from what has just been saved.
    const bool same = saved && Company_Store(session, session.Kanri_No) == wanted;
    File_Replacement working =
        File_Replacement::With_Store(same ? session.Work_Store : wanted, session.Work_Store, session.Db_Key);
    Session next = session;
    next.Kanri_No = number;
    next.Jigyo_Name = name;
    next.Work_Store = working.Draft();
    Test_Identity(session, Connection(working.Draft(), session.Db_Key, Connection::Mode::Read_Only), number,
                  wanted);
    try {
        Company_Reload(next);
    } catch (const Store_Error& error) {
        // The draft is nobody's file: the failure is that of the store it came from.
        if (error.file != working.Draft()) {
            throw;
        }
        throw Store_Error(wanted, error.reason, "データの読み込み");
    }
    next.Work_Store = session.Work_Store;
    File_Replacement marker =
        File_Replacement::With_Text(Kidou_Text({number, name}), Kidou_File(session.App_Path));
    if (saved) {
        saved->Commit();
    }
    try {
        working.Commit();
        marker.Commit();
    } catch (...) {
        // Where even the way back fails, no company counts as in hand: none is saved under another's number.
        const std::int32_t former = std::exchange(session.Kanri_No, 0);
        working.Undo();
        session.Kanri_No = former;
        throw;
    }
    session = std::move(next);
}

void Jigyo_Init(const Session& session, const Install_Info& info) {
    const auto optional = [&info](const char* column) -> Value {
        const auto found = info.optional_columns.find(column);
        return found == info.optional_columns.end() ? Value() : Value(found->second);
    };
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Recordset firm = cn.Open("SELECT * FROM Jigyo_mas");
    if (firm.Eof()) {
        firm.Add_New();
    }
    firm.Set("管理No", info.kanri_no);
    firm.Set("地域CD", info.tiiki_cd);
    firm.Set("地域名", info.todofuken_mei);
    firm.Set("事業所名", info.office_name);
    firm.Set("法人個人識別", Number_Of(info.hojin_kojin));
    firm.Set("処理決算期", info.syori_ki);
    firm.Set("UserID", info.user_id);
    for (const char* column :
         {"事業所カナ名", "代表者名", "代表者役職", "郵便番号1", "郵便番号2", "所在地", "電話番号", "Fax番号",
          "決算期開始年", "決算期開始月", "決算期開始日", "決算期終了年", "決算期終了月", "決算期終了日",
          "許可番号1", "許可番号2", "許可番号3", "許可番号4", "単位"}) {
        firm.Set(column, optional(column));
    }
    firm.Update();
    transaction.Commit();
}

} // namespace morvane
