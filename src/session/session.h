// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/store_key.h"
#include "law/data_form.h"
#include "law/firm_kind.h"
#include "session/office.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace morvane {

enum class Law_Year_No : std::uint8_t; // law/law_year.h

class Connection;
class Messages;
struct Install_Info;

/// What one run of the program works on: the installation, the company in hand, its period. Made once at
/// start and handed down by reference.
struct Session {
    /// The password of the delivered stores.
    static constexpr const char* default_password = "vrdqn52";

    std::string Db_Pass;              ///< store password, the first value set
    Store_Key Db_Key;                 ///< the key derived from it, once
    std::filesystem::path App_Path;   ///< folder that holds the stores
    std::filesystem::path Work_Store; ///< Morvane.dat of App_Path unless a tool builds elsewhere

    Office_Mode Kanri_Flg = Office_Mode::Single; ///< one company or many
    std::string User_ID;                         ///< id of the installation
    std::optional<Edition> Tiiki_CD;             ///< edition; none before it was chosen
    std::string Todofuken_Mei;                   ///< name of the edition
    std::string Office_Name;                     ///< name of the office or of the firm

    std::int32_t Kanri_No = 0;                                     ///< company in hand, 0 none
    std::string Jigyo_Name;                                        ///< its name, empty none
    std::optional<Firm_Type> Hojin_Kojin = Firm_Type::Corporation; ///< none where its store tells none
    std::int16_t Syori_Ki = 0;                                     ///< period in hand
    Data_Form_No Data_Ver{};                                       ///< form of its statement (Get_Data_Ver)
    Law_Year_No Simyu_Kubun{};                                     ///< its law year (Get_Simyu_Kubun)
    Display_Unit Tani_Kbn = Display_Unit::Ones;                    ///< of statements on the screen
    bool Edit_Flg = false;                                         ///< a screen of the work area is open
    bool Jg_New_Flg = false; ///< the company screen registers a new company

    Messages* messages = nullptr; ///< where notices and questions go

    [[nodiscard]] bool Is_Multi() const { return Kanri_Flg == Office_Mode::Multi; }
    [[nodiscard]] bool Is_Hokkaido() const { return Tiiki_CD == Edition::Hokkaido; }
    [[nodiscard]] bool Is_Corporation() const { return Hojin_Kojin == Firm_Type::Corporation; }
    [[nodiscard]] bool Is_Individual() const { return Hojin_Kojin == Firm_Type::Individual; }
    [[nodiscard]] Firm_Kind Kind() const { return {Counted(Tiiki_CD), Counted(Hojin_Kojin)}; }
};

/// A session on the installation in `app_path`: password and key, Install_Info read into it, unit yen.
/// Raises Store_Error where the settings cannot be read.
Session Make_Session(const std::filesystem::path& app_path, Messages& messages,
                     const std::string& password = Session::default_password);

/// Puts an installation's settings into the session.
void Take_Install_Info(Session& session, const Install_Info& info);

// The openers: one a store, each raising Store_Error. The connection closes with the object.
Connection Cn_Open(const Session& session);       ///< the working store
Connection Cn_Open_Tmp(const Session& session);   ///< morv_tmp.dat, read only
Connection Cn_Open_Jgmas(const Session& session); ///< the company register
Connection Cn_Open_Org(const Session& session);   ///< morv_org.dat, read only

} // namespace morvane
