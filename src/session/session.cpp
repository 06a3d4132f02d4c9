// SPDX-FileCopyrightText: The Morvane developers
#include "session/session.h"

#include "data/connection.h"
#include "data/store_file.h"
#include "session/install_info.h"

namespace morvane {

Session Make_Session(const std::filesystem::path& app_path, Messages& messages, const std::string& password) {
    Session session;
    session.Db_Pass = password;
    session.Db_Key = Store_Key::Derive(session.Db_Pass);
    session.App_Path = app_path;
    session.Work_Store = Find_File(app_path, "Morvane.dat");
    session.messages = &messages;
    Take_Install_Info(session, Read_Install_Info(app_path));
    return session;
}

void Take_Install_Info(Session& session, const Install_Info& info) {
    session.Kanri_Flg = info.kanri_flg;
    session.User_ID = info.user_id;
    session.Tiiki_CD = Edition_Of(info.tiiki_cd);
    session.Todofuken_Mei = info.todofuken_mei;
    session.Hojin_Kojin = info.hojin_kojin;
    session.Syori_Ki = info.syori_ki;
    session.Kanri_No = info.kanri_no;
    session.Office_Name = info.office_name;
    session.Tani_Kbn = Display_Unit::Ones;
}

Connection Cn_Open(const Session& session) {
    return {session.Work_Store, session.Db_Key};
}

Connection Cn_Open_Tmp(const Session& session) {
    return {Find_File(session.App_Path, "morv_tmp.dat"), session.Db_Key, Connection::Mode::Read_Only};
}

Connection Cn_Open_Jgmas(const Session& session) {
    return {Find_File(session.App_Path, "Jgmas.dat"), session.Db_Key};
}

Connection Cn_Open_Org(const Session& session) {
    return {Find_File(session.App_Path, "morv_org.dat"), session.Db_Key, Connection::Mode::Read_Only};
}

} // namespace morvane
