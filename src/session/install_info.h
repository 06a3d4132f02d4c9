// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/firm_kind.h"
#include "session/network_settings.h"
#include "session/office.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace morvane {

/// The settings of an installation, kept as a JSON file beside the stores. Keys are the Japanese names below.
struct Install_Info {
    Office_Mode kanri_flg = Office_Mode::Single;    ///< 管理者識別
    std::string user_id;                            ///< UserID
    std::string tiiki_cd;                           ///< 地域CD: its first two characters are the edition
    std::string todofuken_mei;                      ///< 都道府県名: 北海道 or 全国
    Firm_Type hojin_kojin = Firm_Type::Corporation; ///< 法人個人識別
    std::int16_t syori_ki = 0;                      ///< 処理決算期
    std::int32_t kanri_no = 0;                      ///< 管理No
    std::string office_name;                        ///< 事業所名
    std::string net_check_host; ///< 接続確認先: host[:port] that the connection test reaches
    Network_Settings network;   ///< 通信設定: an object with the keys of Network_Fields
    /// Further columns of the company record by their store names (text or number as text); absent means
    /// Null.
    std::map<std::string, std::string> optional_columns;
};

/// The name of the settings file in an installation folder.
inline constexpr const char* install_info_file = "install_info.json";

/// Reads the settings of an installation. Raises Store_Error where the file is missing or cannot be read as
/// such.
Install_Info Read_Install_Info(const std::filesystem::path& app_path);

/// Writes the settings, whole or not at all; what the file holds beyond them stays. Only the owner can read
/// the file, for it holds passwords. Raises Store_Error.
void Write_Install_Info(const std::filesystem::path& app_path, const Install_Info& info);

} // namespace morvane
