// SPDX-FileCopyrightText: The Morvane developers
#include "session/install_info.h"

#include "data/store_error.h"
#include "data/store_file.h"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace morvane {

namespace {

using Json = nlohmann::ordered_json;

template <class Int>
Int Whole_Number(const Json& record, const char* key, Int if_absent) {
    const auto found = record.find(key);
    if (found == record.end() || found->is_null()) {
        return if_absent;
    }
    const auto number = found->get<double>();
    if (number != std::floor(number) || number < std::numeric_limits<Int>::min() ||
        number > std::numeric_limits<Int>::max()) {
        throw std::out_of_range(std::string(key) + " が範囲外です");
    }
    return static_cast<Int>(number);
}

std::string Text(const Json& record, const char* key) {
    const auto found = record.find(key);
    return found == record.end() || found->is_null() ? std::string() : found->get<std::string>();
}

constexpr const char* own_keys[] = {"管理者識別", "UserID", "地域CD",   "都道府県名", "法人個人識別",
                                    "処理決算期", "管理No", "事業所名", "接続確認先"};

bool Is_Own_Key(const std::string& key) {
    for (const char* own : own_keys) {
        if (key == own) {
            return true;
        }
    }
    return false;
}

Install_Info From_Json(const Json& record) {
    if (!record.is_object()) {
        throw std::invalid_argument("設定の形ではありません");
    }
    Install_Info info;
    info.kanri_flg = Whole_Number<std::uint8_t>(record, "管理者識別", 0);
    info.user_id = Text(record, "UserID");
    info.tiiki_cd = Text(record, "地域CD");
    info.todofuken_mei = Text(record, "都道府県名");
    info.hojin_kojin = Whole_Number<std::int16_t>(record, "法人個人識別", 1);
    info.syori_ki = Whole_Number<std::int16_t>(record, "処理決算期", 0);
    info.kanri_no = Whole_Number<std::int32_t>(record, "管理No", 0);
    info.office_name = Text(record, "事業所名");
    info.net_check_host = Text(record, "接続確認先");
    for (const auto& [key, value] : record.items()) {
        if (!Is_Own_Key(key) && !value.is_null()) {
            info.optional_columns[key] = value.is_string() ? value.get<std::string>() : value.dump();
        }
    }
    return info;
}

} // namespace

Install_Info Read_Install_Info(const std::filesystem::path& app_path) {
    const std::filesystem::path file = Find_File(app_path, install_info_file);
    const std::string text = Read_Text_File(file);
    try {
        return From_Json(Json::parse(text));
    } catch (const std::exception& error) {
        throw Store_Error(file, Store_Error::Reason::Bad_Content, error.what());
    }
}

void Write_Install_Info(const std::filesystem::path& app_path, const Install_Info& info) {
    Json record;
    record["管理者識別"] = info.kanri_flg;
    record["UserID"] = info.user_id;
    record["地域CD"] = info.tiiki_cd;
    record["都道府県名"] = info.todofuken_mei;
    record["法人個人識別"] = info.hojin_kojin;
    record["処理決算期"] = info.syori_ki;
    record["管理No"] = info.kanri_no;
    record["事業所名"] = info.office_name;
    record["接続確認先"] = info.net_check_host;
    for (const auto& [key, value] : info.optional_columns) {
        record[key] = value;
    }
    Write_Text_File(app_path / install_info_file, record.dump(1) + "\n");
}

} // namespace morvane
