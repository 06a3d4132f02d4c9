// SPDX-FileCopyrightText: The Morvane developers
#include "screens/kanko_table.h"

#include <array>
#include <stdexcept>
#include <string>

namespace morvane {

namespace {

using enum Kanko_Use;
using enum Kanko_Shows;

template <auto Member>
Figure& Of(Work_Line& line) {
    return line.*Member;
}

template <std::size_t Index>
Figure& Engineer(Work_Line& line) {
    return line.gijutusya[Index];
}

template <auto Member>
Thousand_Yen Total(const Kanko_Totals& totals, std::int32_t /*kanko_avg*/) {
    return totals.*Member;
}

Thousand_Yen Total_Of_Averages(const Kanko_Totals& totals, std::int32_t kanko_avg) {
    return totals.Nheikin(kanko_avg);
}

constexpr const char* completed = "完成工事高（千円）";
constexpr const char* prime = "元請完成工事高（千円）";
constexpr const char* prime_averages = "元請平均（千円）";
constexpr const char* engineers = "技術職員数（人）";
constexpr const char* score = "評点";
constexpr const char* check = "計算チェック";

constexpr Kanko_Column zzki = {
    "Zzki", "前々期", completed, Amount, 8, Of<&Work_Line::Zzki>, With_Work, Total<&Kanko_Totals::Zzki>};
constexpr Kanko_Column zki = {
    "Zki", "前期", completed, Amount, 8, Of<&Work_Line::Zki>, With_Work, Total<&Kanko_Totals::Zki>};
constexpr Kanko_Column kijun = {
    "Kijun", "基準決算", completed, Amount, 8, Of<&Work_Line::Kijun>, With_Work, Total<&Kanko_Totals::Kijun>};
constexpr Kanko_Column zheikin = {"Zheikin", "前平均",
                                  completed, Result,
                                  8,         Of<&Work_Line::Zheikin>,
                                  With_Work, Total<&Kanko_Totals::Zheikin>};
constexpr Kanko_Column nheikin = {"Nheikin", "年平均",         completed, Result, 8, Of<&Work_Line::Nheikin>,
                                  With_Work, Total_Of_Averages};
constexpr Kanko_Column x1 = {"X1", "Ｘ１", score, Score, 5, Of<&Work_Line::X1>};
constexpr Kanko_Column z = {"Z", "Ｚ", score, Score, 5, Of<&Work_Line::Z>};

constexpr Kanko_Column z1 = {"Z1", "監理", engineers, Count, 4, Engineer<0>};
constexpr Kanko_Column z2 = {"Z2", "１級", engineers, Count, 4, Engineer<1>};
constexpr Kanko_Column z22 = {"Z22", "管理\n補佐", engineers, Count, 4, Engineer<5>};
constexpr Kanko_Column z3 = {"Z3", "基幹", engineers, Count, 4, Engineer<2>};
constexpr Kanko_Column z4 = {"Z4", "２級", engineers, Count, 4, Engineer<3>};
constexpr Kanko_Column z5 = {"Z5", "その他", engineers, Count, 4, Engineer<4>};
constexpr Kanko_Column prime_zzki = {
    "Zzki", "前々期", prime, Amount, 8, Of<&Work_Line::Mzzki>, With_Prime, Total<&Kanko_Totals::Zzki>};
constexpr Kanko_Column prime_zki = {
    "Zki", "前期", prime, Amount, 8, Of<&Work_Line::Mzki>, With_Prime, Total<&Kanko_Totals::Zki>};
constexpr Kanko_Column prime_kijun = {
    "Kijun", "基準決算", prime, Amount, 8, Of<&Work_Line::Mkijun>, With_Prime, Total<&Kanko_Totals::Kijun>};
constexpr Kanko_Column prime_zheikin = {"Zheikin",
                                        "前平均",
                                        prime_averages,
                                        Result,
                                        8,
                                        Of<&Work_Line::Mzheikin>,
                                        With_Prime,
                                        Total<&Kanko_Totals::Zheikin>};
constexpr Kanko_Column prime_nheikin = {
    "Nheikin", "年平均", prime_averages, Result, 8, Of<&Work_Line::Mnheikin>, With_Prime, Total_Of_Averages};
constexpr Kanko_Column z_of_any = {"Z", "Ｚ", score, Score, 4, Of<&Work_Line::Z>, With_Any};
constexpr Kanko_Column p = {"P", "Ｐ", score, Score, 4, Of<&Work_Line::P>};

constexpr Kanko_Column Check_Of(const char* name, const char* heading, const char* mode) {
    return {.name = name, .heading = heading, .group = check, .use = Check, .width = 4, .mode = mode};
}

// In the order of the notice of results: what was done, its averages, the scores they give.
constexpr std::array kanko_columns = {
    zzki,
    zki,
    kijun,
    zheikin,
    nheikin,
    x1,
    z,
    Kanko_Column{"P", "総合評点\n（Ｐ）", score, Score, 6, Of<&Work_Line::P>},
    Check_Of("Cmd_X", "Ｘ１", "X"),
    Check_Of("Cmd_P", "Ｐ", "P"),
};

// What is keyed and the scores it gives stand together, so that both are in view beside the menu.
constexpr std::array gijutu_columns = {
    z1,
    z2,
    z22,
    z3,
    z4,
    z5,
    prime_zzki,
    prime_zki,
    prime_kijun,
    Kanko_Column{"Zi", "Ｚ１", score, Score, 4, Of<&Work_Line::Zi>, With_Any},
    Kanko_Column{"Zro", "Ｚ２", score, Score, 4, Of<&Work_Line::Zro>, With_Any},
    z_of_any,
    p,
    prime_zheikin,
    prime_nheikin,
    Check_Of("Cmd_Z1", "Ｚ１", "Z1"),
    Check_Of("Cmd_Z2", "Ｚ２", "Z2"),
    Check_Of("Cmd_Z", "Ｚ", "Z"),
};

// ---- two sides beside each other

/// Narrower, so that both sides stand beside the menu: what is keyed and P are in view without scrolling.
constexpr int Width_Of_Side(Kanko_Use use) {
    switch (use) {
    case Count:
        return 3;
    case Score:
        return 4;
    default:
        return 7;
    }
}

/// The column under the caption of its side.
constexpr Kanko_Column After(Kanko_Column column) {
    column.group = nullptr;
    column.width = Width_Of_Side(column.use);
    return column;
}

/// Its counterpart of the side before, where nothing is keyed.
constexpr Kanko_Column Before(const char* name, const Kanko_Column& of) {
    Kanko_Column column = After(of);
    column.name = name;
    column.use = Is_Keyed(of.use) ? Kept : of.use;
    column.before = true;
    return column;
}

constexpr Kanko_Column z5_of_side = {"Z5", "その\n他", engineers, Count, 3, Engineer<4>};
constexpr Kanko_Column gain = {"Sa", "Ｐの差", nullptr, Gain, 5};

// The side before, then what is keyed with the scores it gives; the averages behind them.
constexpr std::array kaiz_columns = {
    Before("Mae_Zheikin", zheikin),
    Before("Mae_Nheikin", nheikin),
    Before("Mae_X1", x1),
    Before("Mae_Z", z),
    Before("Mae_P", p),
    After(zzki),
    After(zki),
    After(kijun),
    After(x1),
    After(z),
    After(p),
    gain,
    After(zheikin),
    After(nheikin),
    Check_Of("Cmd_X", "Ｘ１", "X"),
    Check_Of("Cmd_P", "Ｐ", "P"),
};

constexpr std::array kaiz2_columns = {
    Before("Mae_Z1", z1),
    Before("Mae_Z2", z2),
    Before("Mae_Z22", z22),
    Before("Mae_Z3", z3),
    Before("Mae_Z4", z4),
    Before("Mae_Z5", z5_of_side),
    Before("Mae_Z", z_of_any),
    Before("Mae_P", p),
    After(z1),
    After(z2),
    After(z22),
    After(z3),
    After(z4),
    After(z5_of_side),
    After(z_of_any),
    After(p),
    gain,
    Check_Of("Cmd_Z1", "Ｚ１", "Z1"),
    Check_Of("Cmd_Z", "Ｚ", "Z"),
};

constexpr std::array kaiz3_columns = {
    Before("Mae_Zheikin", prime_zheikin),
    Before("Mae_Nheikin", prime_nheikin),
    Before("Mae_X1", x1),
    Before("Mae_Z", z_of_any),
    Before("Mae_P", p),
    After(prime_zzki),
    After(prime_zki),
    After(prime_kijun),
    After(z_of_any),
    After(p),
    gain,
    After(prime_zheikin),
    After(prime_nheikin),
    Check_Of("Cmd_Z2", "Ｚ２", "Z2"),
    Check_Of("Cmd_Z", "Ｚ", "Z"),
};

// Two periods to look at: on both sides averages and scores beside each other, the amounts behind them.
constexpr std::array kaizzen_columns = {
    Before("Mae_Zheikin", zheikin),
    Before("Mae_Nheikin", nheikin),
    Before("Mae_X1", x1),
    Before("Mae_Z", z),
    Before("Mae_P", p),
    After(zheikin),
    After(nheikin),
    After(x1),
    After(z),
    After(p),
    gain,
    After(zzki),
    After(zki),
    After(kijun),
    Check_Of("Cmd_X", "Ｘ１", "X"),
    Check_Of("Cmd_P", "Ｐ", "P"),
};

constexpr std::array kaiz3zen_columns = {
    Before("Mae_Zheikin", prime_zheikin),
    Before("Mae_Nheikin", prime_nheikin),
    Before("Mae_X1", x1),
    Before("Mae_Z", z_of_any),
    Before("Mae_P", p),
    After(prime_zheikin),
    After(prime_nheikin),
    After(z_of_any),
    After(p),
    gain,
    After(prime_zzki),
    After(prime_zki),
    After(prime_kijun),
    Check_Of("Cmd_Z2", "Ｚ２", "Z2"),
    Check_Of("Cmd_Z", "Ｚ", "Z"),
};

// The class that came last is shown as the improvement of the period has it.
constexpr auto kaiz2zen_columns = [] {
    auto columns = kaiz2_columns;
    for (Kanko_Column& column : columns) {
        column.improved = std::string_view(column.name) == z22.name;
    }
    return columns;
}();

// ---- the screens

constexpr std::array print_result = {Kanko_Button{"Prt", "計算結果印刷"}};
constexpr std::array print_improved = {Kanko_Button{"Cmd_Hikaku", "総合比較印刷", "Rpt_KankoHK"},
                                       Kanko_Button{"Cmd_Kekka", "改善後結果印刷"}};

constexpr std::array to_engineers = {Kanko_Button{"edit_z", "Z編集", "Frm_Kanko2"}};
constexpr std::array to_completed_work = {Kanko_Button{"edit_x1", "X1編集", "Frm_Kanko"}};

constexpr Kanko_Button edit_x1 = {"edit_x1", "X1(完工高)", "Frm_KankoKaiz"};
constexpr Kanko_Button edit_z1 = {"edit_z1", "Z(イ技術者)", "Frm_KankoKaiz2"};
constexpr Kanko_Button edit_z2 = {"edit_z2", "Z（ロ元請）", "Frm_KankoKaiz3"};
constexpr std::array beside_kaiz = {edit_z1, edit_z2};
constexpr std::array beside_kaiz2 = {edit_x1, edit_z2};
constexpr std::array beside_kaiz3 = {edit_x1, edit_z1};

constexpr std::array print_comparison = {print_improved[0]};
constexpr Kanko_Button zen_x1 = {edit_x1.name, edit_x1.caption, "Frm_KankoKaizzen"};
constexpr Kanko_Button zen_z1 = {edit_z1.name, edit_z1.caption, "Frm_KankoKaiz2zen"};
constexpr Kanko_Button zen_z2 = {edit_z2.name, edit_z2.caption, "Frm_KankoKaiz3zen"};
constexpr std::array beside_kaizzen = {zen_z1, zen_z2};
constexpr std::array beside_kaiz2zen = {zen_x1, zen_z2};
constexpr std::array beside_kaiz3zen = {zen_x1, zen_z1};

constexpr const char* work_total = "完成工事高合計";
constexpr const char* prime_total = "元請完成工事高合計";
constexpr const char* comparison = "改善比較";
constexpr const char* comparison_of_periods = "前期比較";
constexpr const char* of_work = "完成工事高（Ｘ１）";
constexpr const char* of_engineers = "技術職員数（Ｚ１）";
constexpr const char* of_prime = "元請完工高（Ｚ２）";

using enum Kanko_Part;
constexpr auto screens = std::to_array<Kanko_Screen>({
    {"Frm_Kanko", "総合評点・完工高（Ｐ、Ｘ１）", "完成工事高の採用", Completed, current_figures,
     kanko_columns, work_total, to_engineers, print_result},
    {"Frm_Kanko2", "技術職員数・元請完工高（Ｚ）", "", Technical, current_figures, gijutu_columns,
     prime_total, to_completed_work, print_result},
    {"Frm_KankoKaiz", comparison, of_work, Completed, improved_figures, kaiz_columns, work_total, beside_kaiz,
     print_improved},
    {"Frm_KankoKaiz2", comparison, of_engineers, Technical, improved_figures, kaiz2_columns, nullptr,
     beside_kaiz2, print_improved},
    {"Frm_KankoKaiz3", comparison, of_prime, Prime, improved_figures, kaiz3_columns, prime_total,
     beside_kaiz3, print_improved},
    {"Frm_KankoKaizzen", comparison_of_periods, of_work, Completed, compared_periods, kaizzen_columns,
     work_total, beside_kaizzen, print_comparison},
    {"Frm_KankoKaiz2zen", comparison_of_periods, of_engineers, Technical, compared_periods, kaiz2zen_columns,
     nullptr, beside_kaiz2zen, print_comparison},
    {"Frm_KankoKaiz3zen", comparison_of_periods, of_prime, Prime, compared_periods, kaiz3zen_columns,
     prime_total, beside_kaiz3zen, print_comparison},
});

} // namespace

const Kanko_Screen& Kanko_Screen_Of(std::string_view form) {
    for (const Kanko_Screen& screen : screens) {
        if (form == screen.name) {
            return screen;
        }
    }
    throw std::out_of_range("no work-type screen " + std::string(form));
}

bool Shows(const Work_Line& line, Kanko_Shows what) {
    switch (what) {
    case With_Work:
        return line.Has_Kanko();
    case With_Prime:
        return line.Has_Motouke();
    case With_Any:
        break;
    }
    return line.Has_Kanko() || line.Has_Engineer() || line.Has_Motouke();
}

} // namespace morvane
