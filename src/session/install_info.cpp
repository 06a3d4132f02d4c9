// SPDX-FileCopyrightText: The Morvane developers
#include "session/install_info.h"

#include "data/decimal.h"
#include "data/json_text.h"
#include "data/shown_text.h"
#include "data/store_error.h"
#include "data/store_file.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace morvane {

namespace {

template <class Int>
Int Whole_Number(const Json& record, const char* key, Int if_absent) {
    const Json* found = record.Find(key);
    if (found == nullptr || found->Is_Null()) {
        return if_absent;
    }
    if (!found->Is_Number()) {
        throw Json_Fault(key, "数値ではありません（" + Shown_Json(*found) + "）");
    }
    const auto number = found->As_Double();
    if (number != std::floor(number) || number < std::numeric_limits<Int>::min() ||
        number > std::numeric_limits<Int>::max()) {
        throw Json_Fault(key, "数値が範囲外です（" + Shown_Json(*found) + "）");
    }
    return static_cast<Int>(number);
}

// A text of the settings goes into one line, wherever it goes.
std::string Tested_Text(const char* key, std::string text) {
    if (std::any_of(text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; })) {
        throw Json_Fault(key, "使えない文字（制御文字）があります（" + Shown_Text(text) + "）");
    }
    return text;
}

std::string Text(const Json& record, const char* key) {
    const Json* found = record.Find(key);
    if (found == nullptr || found->Is_Null()) {
        return {};
    }
    if (!found->Is_Text()) {
        throw Json_Fault(key, "文字列ではありません（" + Shown_Json(*found) + "）");
    }
    return Tested_Text(key, found->As_Text());
}

constexpr const char* network_key = "通信設定";
constexpr const char* security_names[] = {"なし", "STARTTLS", "TLS"};

constexpr const char* own_keys[] = {"管理者識別", "UserID", "地域CD",   "都道府県名", "法人個人識別",
                                    "処理決算期", "管理No", "事業所名", "接続確認先", network_key};

bool Is_Own_Key(const std::string& key) {
    for (const char* own : own_keys) {
        if (key == own) {
            return true;
        }
    }
    return false;
}

// A field of any type as the text that stands for it in the store.
std::string Plain_Text(const Json& value) {
    return value.Is_Text() ? value.As_Text() : value.Text();
}

bool Is_Plain(const Json& value) {
    return value.Is_Text() || value.Is_Number() || value.Is_Boolean();
}

Network_Settings Network_From_Json(const Json& record) {
    std::map<std::string, std::string> texts;
    for (const Network_Field& field : Network_Fields()) {
        const Json* found = record.Find(field.key);
        if (found == nullptr || found->Is_Null()) {
            continue;
        }
        if (!Is_Plain(*found)) {
            throw Json_Fault(field.key, "文字列ではありません（" + Shown_Json(*found) + "）");
        }
        std::string text = Tested_Text(field.key, Plain_Text(*found));
        if (field.security != nullptr) {
            const auto* name = std::find(std::begin(security_names), std::end(security_names), text);
            if (name == std::end(security_names)) {
                throw Json_Fault(field.key, "なし、STARTTLS、TLS のどれかを指定してください（" +
                                                Shown_Text(text) + "）");
            }
            text = std::to_string(name - std::begin(security_names));
        } else if (field.number != nullptr) {
            text = std::to_string(Whole_Number<std::uint16_t>(record, field.key, 0));
        }
        texts[field.control] = std::move(text);
    }
    return Network_Of_Texts(texts);
}

// Puts the settings into the record; defaults need no entry.
void Network_To_Json(const Network_Settings& settings, Json& record) {
    auto texts = Network_Texts(settings);
    auto defaults = Network_Texts({});
    for (const Network_Field& field : Network_Fields()) {
        const std::string& text = texts[field.control];
        if (text == defaults[field.control] && !record.Has(field.key)) {
            continue;
        }
        if (field.security != nullptr) {
            record[field.key] = security_names[Decimal(text).value_or(0)];
        } else if (field.number != nullptr) {
            record[field.key] = Decimal(text).value_or(0);
        } else {
            record[field.key] = text;
        }
    }
}

Install_Info From_Json(const Json& record) {
    Install_Info info;
    info.kanri_flg = Office_Mode_Of(Whole_Number<std::uint8_t>(record, "管理者識別", 0));
    info.user_id = Text(record, "UserID");
    info.tiiki_cd = Text(record, "地域CD");
    info.todofuken_mei = Text(record, "都道府県名");
    info.hojin_kojin = Counted(Firm_Type_Of(Whole_Number<std::int16_t>(record, "法人個人識別", 1)));
    info.syori_ki = Whole_Number<std::int16_t>(record, "処理決算期", 0);
    info.kanri_no = Whole_Number<std::int32_t>(record, "管理No", 0);
    info.office_name = Text(record, "事業所名");
    info.net_check_host = Text(record, "接続確認先");
    if (const Json* network = record.Find(network_key)) {
        info.network = Network_From_Json(*network);
    }
    for (const auto& [key, value] : record.Items()) {
        if (!Is_Own_Key(key) && Is_Plain(value)) {
            info.optional_columns[key] = Plain_Text(value);
        }
    }
    return info;
}

[[noreturn]] void Throw_Bad_Content(const std::filesystem::path& file, const Json_Fault& fault) {
    throw Store_Error(file, Store_Error::Reason::Bad_Content,
                      fault.path.empty() ? fault.what() : Shown_Text(fault.path) + "：" + fault.what());
}

Json Read_Record(const std::filesystem::path& file) {
    const std::string text = Read_Text_File(file);
    try {
        Json record = Json_Of(text);
        if (!record.Is_Object()) {
            throw Json_Fault("", "設定の形ではありません");
        }
        if (const Json* network = record.Find(network_key); network != nullptr && !network->Is_Object()) {
            throw Json_Fault(network_key, "オブジェクトではありません（" + Shown_Json(*network) + "）");
        }
        return record;
    } catch (const Json_Fault& fault) {
        Throw_Bad_Content(file, fault);
    }
}

} // namespace

Install_Info Read_Install_Info(const std::filesystem::path& app_path) {
    const std::filesystem::path file = Find_File(app_path, install_info_file);
    const Json record = Read_Record(file);
    try {
        return From_Json(record);
    } catch (const Json_Fault& fault) {
        Throw_Bad_Content(file, fault);
    }
}

void Write_Install_Info(const std::filesystem::path& app_path, const Install_Info& info) {
    const std::filesystem::path file = Find_File(app_path, install_info_file);
    Json record = Is_There(file) ? Read_Record(file) : Json::Object();
    record["管理者識別"] = Number_Of(info.kanri_flg);
    record["UserID"] = info.user_id;
    record["地域CD"] = info.tiiki_cd;
    record["都道府県名"] = info.todofuken_mei;
    record["法人個人識別"] = Number_Of(info.hojin_kojin);
    record["処理決算期"] = info.syori_ki;
    record["管理No"] = info.kanri_no;
    record["事業所名"] = info.office_name;
    record["接続確認先"] = info.net_check_host;
    for (const auto& [key, value] : info.optional_columns) {
        // A number that was read stays one.
        if (const Json* found = record.Find(key); found == nullptr || Plain_Text(*found) != value) {
            record[key] = value;
        }
    }
    const Json* former = record.Find(network_key);
    Json network = former != nullptr ? *former : Json::Object();
    Network_To_Json(info.network, network);
    if (!network.Is_Empty()) {
        record[network_key] = std::move(network);
    }
    Write_Text_File(file, record.Text(true) + "\n", File_Readers::Owner);
}

} // namespace morvane
