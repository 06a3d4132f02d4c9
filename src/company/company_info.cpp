// SPDX-FileCopyrightText: The Morvane developers
#include "company/company_info.h"

#include "data/connection.h"
#include "data/shown_text.h"
#include "law/era_date.h"
#include "session/boxes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace morvane {

namespace {

using enum Company_Section;
using enum Company_Field::Entry;

constexpr std::array<Company_Field, 21> fields = {{
    {"JigyoCD", "管理No", "事業所番号", "・・・重複しないように入力してください。", Company, Digits, true, 10,
     true},
    {"SyaMei", "事業所名", "事業所名", "", Company, Text, false, 60},
    {"SyaKana", "事業所カナ名", "事業所カナ名",
     "・・・先頭の１文字でも結構です。（事業所指定時の検索用です。）", Company, Text, false, 60, true},
    {"Daihyo_Yaku", "代表者役職", "代表者役職", "", Company, Text, false, 30},
    {"Daihyo", "代表者名", "代表者名", "", Company, Text, false, 30},
    {"Yu1", "郵便番号1", "郵便番号", "", Address, Digits, false, 3},
    {"Yu2", "郵便番号2", "", "", Address, Digits, false, 4},
    {"Syozai", "所在地", "所在地", "", Address, Text, false, 100},
    {"Bilmei", "ビル名", "ビル名", "", Address, Text, false, 60},
    {"Tel", "電話番号", "電話番号", "", Address, Text, false, 20},
    {"Fax", "Fax番号", "FAX番号", "", Address, Text, false, 20},
    {"Tanto", "担当者名", "担当者名", "", Address, Text, false, 30},
    {"EMail", "EMail", "E-Mail", "", Address, Text, false, 100},
    {"Ks_ki", "処理決算期", "決算期", "期", Period, Digits, true, 5},
    {"Ksnen_St", "決算期開始年", "決算期間始　年", "年", Period, Digits, true, 2},
    {"KsTuki_St", "決算期開始月", "決算期間始　月", "月", Period, Digits, true, 2},
    {"KsHi_St", "決算期開始日", "決算期間始　日", "日", Period, Digits, true, 2},
    {"Ksnen_Ed", "決算期終了年", "決算期間終　年", "年", Period, Digits, true, 2},
    {"KsTuki_Ed", "決算期終了月", "決算期間終　月", "月", Period, Digits, true, 2},
    {"KsHi_Ed", "決算期終了日", "決算期間終　日", "日（和暦）", Period, Digits, true, 2},
    {"HoKo", "法人個人識別", "法人・個人", "・・・法人：1　個人：2", Kind, Choice, true, 1},
}};

constexpr std::array<std::array<const char*, 3>, 2> dates = {
    {{"Ksnen_St", "KsTuki_St", "KsHi_St"}, {"Ksnen_Ed", "KsTuki_Ed", "KsHi_Ed"}}};

/// A field that must not be blank, under the name that its message gives. The end of the period bears the
/// words of its start.
struct Required {
    const char* control;
    const char* name;
};

constexpr std::array<Required, 11> required = {{{"JigyoCD", "事業所番号"},
                                                {"SyaMei", "事業所名"},
                                                {"SyaKana", "事業所カナ名"},
                                                {"Ks_ki", "決算期"},
                                                {"Ksnen_St", "決算期間始　年"},
                                                {"KsTuki_St", "決算期間始　月"},
                                                {"KsHi_St", "決算期間始　日"},
                                                {"Ksnen_Ed", "決算期間始　年"},
                                                {"KsTuki_Ed", "決算期間始　月"},
                                                {"KsHi_Ed", "決算期間始　日"},
                                                {"HoKo", "法人・個人"}}};

std::string Refuse(const Session& session, const char* control, const std::string& title,
                   const std::string& text) {
    Tell(session, title, text);
    return control;
}

std::string Refuse_Missing(const Session& session, const Required& field) {
    const std::string name = field.name;
    return Refuse(session, field.control, name + "入力確認",
                  name + "が入力されていません。必須項目です。\n入力してください。");
}

/// The tests that only the firm's own screen makes, ahead of the others.
std::string Test_Own_Firm(const Session& session, const Company_Entry& entry) {
    if (Is_Blank(entry.Text("Ks_ki"))) {
        return Refuse_Missing(session, {"Ks_ki", "決算期"});
    }
    for (const char* control : {"Ksnen_Ed", "KsTuki_Ed"}) {
        if (Is_Blank(entry.Text(control))) {
            return Refuse(session, control, "決算期間終了入力確認",
                          "決算期間の終了年月が入力されていません。Ｘ１の加点修正識別に必要です。\n"
                          "入力してください。");
        }
    }
    if (entry.tani < 1 || entry.tani > 3) {
        return Refuse(session, "En", "処理単位指定確認",
                      "処理単位が（円、千円、百万円）が指定されていません。\n指定してください。");
    }
    return {};
}

// Nine digits are a limit that can be told; 999999 is the marker of a clean end, 0 stands for no company in
// hand.
bool Is_Company_Number(std::int64_t number) {
    return number >= 1 && number <= 999'999'999 && number != 999'999;
}

std::size_t Characters(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string Test_Width(const Session& session, const Company_Field& field, const std::string& text,
                       const std::string& stored) {
    const std::string control = field.control;
    // Data from before the first period was numbered keep their 0 until it is changed.
    const bool is_kept_0 = text == stored && Number_Of(text) == 0;
    if (control == "Ks_ki" && !is_kept_0 && !Test_Period(session, text)) {
        return control;
    }
    if (control == "HoKo" && text != "1" && text != "2") {
        return Refuse_Missing(session, {field.control, field.caption});
    }
    if (control == "JigyoCD" && text != stored && !Is_Company_Number(Number_Of(text))) {
        return Refuse(session, field.control, "事業所番号エラー",
                      "事業所番号には 1 から始まる 9 桁までの番号を入力してください。\n"
                      "999999 は使用できません。");
    }
    if (text != stored && Characters(text) > static_cast<std::size_t>(field.max_length)) {
        return Refuse(session, field.control, "文字数エラー",
                      std::string(field.caption) + "は" + std::to_string(field.max_length) +
                          "文字以内で入力してください。");
    }
    return {};
}

Value Stored_Value(const Company_Field& field, const std::string& text) {
    if (Is_Blank(text)) {
        return {};
    }
    return field.is_number ? Value(Number_Of(text)) : Value(text);
}

} // namespace

std::span<const Company_Field> Company_Fields() {
    return fields;
}

bool Is_On(Company_Screen screen, const Company_Field& field) {
    return screen == Company_Screen::Jg_New || !field.only_jg_new;
}

Company_Entry Load_Company(const Session& session, Company_Screen screen) {
    Company_Entry entry;
    for (const Company_Field& field : Company_Fields()) {
        if (Is_On(screen, field)) {
            entry.texts[field.control];
        }
    }
    if (screen == Company_Screen::Jg_New && session.Jg_New_Flg) {
        return entry;
    }
    const Connection cn = Cn_Open(session);
    const Recordset firm = cn.Open("SELECT * FROM jigyo_mas");
    if (firm.Eof()) {
        return entry;
    }
    for (const Company_Field& field : Company_Fields()) {
        if (Is_On(screen, field)) {
            entry.texts[field.control] = firm[field.column].As_Text();
        }
    }
    if (entry.texts["HoKo"] != "1" && entry.texts["HoKo"] != "2") {
        entry.texts["HoKo"].clear();
    }
    if (screen == Company_Screen::Jgmas) {
        entry.tani = static_cast<std::int16_t>(firm["単位"].As_Integer());
    }
    return entry;
}

void Put_Company(const Connection& cn, Company_Screen screen, const Company_Entry& entry) {
    Recordset firm = cn.Open("SELECT * FROM jigyo_mas");
    if (firm.Eof()) {
        firm.Add_New();
    }
    for (const Company_Field& field : Company_Fields()) {
        if (Is_On(screen, field)) {
            firm.Set(field.column, Stored_Value(field, entry.Text(field.control)));
        }
    }
    if (screen == Company_Screen::Jgmas) {
        firm.Set("単位", entry.tani == 0 ? Value() : Value(entry.tani));
    }
    firm.Update();
}

bool Is_Era_Date(std::string_view year, std::string_view month, std::string_view day) {
    const Era_Date date = {Number_Of(year), Number_Of(month), Number_Of(day)};
    return date.year >= 1 && date.year <= 99 && Is_Date(date);
}

bool Test_Period(const Session& session, std::string_view text) {
    const std::int64_t period = Number_Of(text);
    if (period >= 1 && period <= std::numeric_limits<std::int16_t>::max()) {
        return true;
    }
    Tell(session, "決算期エラー", "決算期は 1 から 32767 までの数字で入力してください。");
    return false;
}

std::int64_t Number_Of(std::string_view text) {
    std::int32_t number = -1;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc() && read.ptr == text.data() + text.size() && number >= 0 ? number : -1;
}

std::string Text_Refusal(std::string_view text, std::size_t most, bool has_lines) {
    if (Has_Control(text, has_lines)) {
        return "使えない文字（制御文字）があります。";
    }
    if (const std::size_t count = Characters(text); count > most) {
        return std::to_string(most) + "文字以内で指定してください（" + std::to_string(count) + "文字）。";
    }
    return {};
}

std::string Column_Refusal(std::string_view column, const Value& value) {
    if (value.Is_Null()) {
        return {};
    }
    const std::int64_t number = value.As_Integer();
    if (column == "管理No") {
        return number >= 0 && number != 999'999 ? "" : "使用できない番号です。";
    }
    if (column == "法人個人識別") {
        return number == 1 || number == 2 ? "" : "1（法人）か 2（個人）を指定してください。";
    }
    if (column == "単位") {
        return number >= 1 && number <= 3 ? ""
                                          : "1（円）、2（千円）、3（百万円）のどれかを指定してください。";
    }
    if (column == "処理決算期") {
        return number >= 0 ? "" : "0 以上の数を指定してください。";
    }
    const auto* const field = std::find_if(fields.begin(), fields.end(),
                                           [&](const Company_Field& f) { return column == f.column; });
    if (!value.Is_Text()) {
        return {};
    }
    constexpr std::size_t most_elsewhere = 100;
    const bool is_on_screen = field != fields.end();
    std::string refusal = Text_Refusal(
        value.As_Text(), is_on_screen ? static_cast<std::size_t>(field->max_length) : most_elsewhere, false);
    if (refusal.empty() && is_on_screen && field->entry == Digits && !Is_Blank(value.As_Text()) &&
        Number_Of(value.As_Text()) < 0) {
        refusal = "数字だけを指定してください。";
    }
    return refusal;
}

bool Is_Blank(std::string_view text) {
    constexpr std::string_view wide_blank = "　";
    while (!text.empty()) {
        if (text.starts_with(wide_blank)) {
            text.remove_prefix(wide_blank.size());
        } else if (text.front() == ' ') {
            text.remove_prefix(1);
        } else {
            return false;
        }
    }
    return true;
}

std::string Test_Entry(const Session& session, Company_Screen screen, const Company_Entry& entry,
                       const Company_Entry& stored) {
    if (screen == Company_Screen::Jgmas) {
        if (std::string refused = Test_Own_Firm(session, entry); !refused.empty()) {
            return refused;
        }
    }
    for (const Required& field : required) {
        const auto text = entry.texts.find(field.control);
        if (text != entry.texts.end() && Is_Blank(text->second)) {
            return Refuse_Missing(session, field);
        }
    }
    for (const Company_Field& field : Company_Fields()) {
        const auto text = entry.texts.find(field.control);
        if (text == entry.texts.end()) {
            continue;
        }
        if (std::string refused = Test_Width(session, field, text->second, stored.Text(field.control));
            !refused.empty()) {
            return refused;
        }
    }
    for (std::size_t i = 0; i < dates.size(); ++i) {
        const auto& [year, month, day] = dates.at(i);
        if (!Is_Era_Date(entry.Text(year), entry.Text(month), entry.Text(day))) {
            return Refuse(session, year, "決算期日付エラー",
                          i == 0 ? "決算期始まりの日付が不正です。確認修正してください。"
                                 : "決算期終わりの日付が不正です。確認修正してください。");
        }
    }
    return {};
}

} // namespace morvane
