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

// In the order of the notice of results: what was done, its averages, the scores they give.
constexpr std::array kanko_columns = std::to_array<Kanko_Column>({
    {"Zzki", "前々期", completed, Amount, 8, Of<&Work_Line::Zzki>, With_Work, Total<&Kanko_Totals::Zzki>},
    {"Zki", "前期", completed, Amount, 8, Of<&Work_Line::Zki>, With_Work, Total<&Kanko_Totals::Zki>},
    {"Kijun", "基準決算", completed, Amount, 8, Of<&Work_Line::Kijun>, With_Work,
     Total<&Kanko_Totals::Kijun>},
    {"Zheikin", "前平均", completed, Result, 8, Of<&Work_Line::Zheikin>, With_Work,
     Total<&Kanko_Totals::Zheikin>},
    {"Nheikin", "年平均", completed, Result, 8, Of<&Work_Line::Nheikin>, With_Work, Total_Of_Averages},
    {"X1", "Ｘ１", score, Score, 5, Of<&Work_Line::X1>},
    {"Z", "Ｚ", score, Score, 5, Of<&Work_Line::Z>},
    {"P", "総合評点\n（Ｐ）", score, Score, 6, Of<&Work_Line::P>},
    {.name = "Cmd_X", .heading = "Ｘ１", .group = check, .use = Check, .width = 4, .mode = "X"},
    {.name = "Cmd_P", .heading = "Ｐ", .group = check, .use = Check, .width = 4, .mode = "P"},
});

// What is keyed and the scores it gives stand together, so that both are in view beside the menu.
constexpr std::array gijutu_columns = std::to_array<Kanko_Column>({
    {"Z1", "監理", engineers, Count, 4, Engineer<0>},
    {"Z2", "１級", engineers, Count, 4, Engineer<1>},
    {"Z22", "管理\n補佐", engineers, Count, 4, Engineer<5>},
    {"Z3", "基幹", engineers, Count, 4, Engineer<2>},
    {"Z4", "２級", engineers, Count, 4, Engineer<3>},
    {"Z5", "その他", engineers, Count, 4, Engineer<4>},
    {"Zzki", "前々期", prime, Amount, 8, Of<&Work_Line::Mzzki>, With_Prime, Total<&Kanko_Totals::Zzki>},
    {"Zki", "前期", prime, Amount, 8, Of<&Work_Line::Mzki>, With_Prime, Total<&Kanko_Totals::Zki>},
    {"Kijun", "基準決算", prime, Amount, 8, Of<&Work_Line::Mkijun>, With_Prime, Total<&Kanko_Totals::Kijun>},
    {"Zi", "Ｚ１", score, Score, 4, Of<&Work_Line::Zi>, With_Any},
    {"Zro", "Ｚ２", score, Score, 4, Of<&Work_Line::Zro>, With_Any},
    {"Z", "Ｚ", score, Score, 4, Of<&Work_Line::Z>, With_Any},
    {"P", "Ｐ", score, Score, 4, Of<&Work_Line::P>, With_Work},
    {"Zheikin", "前平均", prime_averages, Result, 8, Of<&Work_Line::Mzheikin>, With_Prime,
     Total<&Kanko_Totals::Zheikin>},
    {"Nheikin", "年平均", prime_averages, Result, 8, Of<&Work_Line::Mnheikin>, With_Prime, Total_Of_Averages},
    {.name = "Cmd_Z1", .heading = "Ｚ１", .group = check, .use = Check, .width = 4, .mode = "Z1"},
    {.name = "Cmd_Z2", .heading = "Ｚ２", .group = check, .use = Check, .width = 4, .mode = "Z2"},
    {.name = "Cmd_Z", .heading = "Ｚ", .group = check, .use = Check, .width = 4, .mode = "Z"},
});

constexpr std::array<Kanko_Screen, 2> screens = {{
    {"Frm_Kanko", "総合評点・完工高（Ｐ、Ｘ１）", false, current_figures, kanko_columns, "完成工事高合計",
     "edit_z", "Z編集", "Frm_Kanko2"},
    {"Frm_Kanko2", "技術職員数・元請完工高（Ｚ）", true, current_figures, gijutu_columns,
     "元請完成工事高合計", "edit_x1", "X1編集", "Frm_Kanko"},
}};

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
