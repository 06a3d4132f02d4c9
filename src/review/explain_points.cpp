// SPDX-FileCopyrightText: The Morvane developers
#include "law/social_points.h"
#include "review/explain.h"

#include <algorithm>
#include <array>

namespace morvane {

namespace {

std::string Number(std::int32_t value) {
    return Expression(value).text;
}

} // namespace

void Points_Table::Add(const std::string& of, Points points, bool in_force) {
    if (in_force) {
        mark = static_cast<int>(rows.size());
    }
    rows.push_back({of, points});
}

Points_Table Points_Of_W2(const Check_Figures& f) {
    Points_Table table{"営業年数"};
    const std::int32_t years = f.items.Enen;
    const auto points = [](std::int32_t n) { return Calc_W2_Ten(Head_Count(n)); };
    table.Add(Number(w2_years_without) + "年以下", points(w2_years_without),
              years >= 0 && years <= w2_years_without);
    for (std::int32_t n = w2_years_without + 1; n < w2_years_most; ++n) {
        table.Add(Number(n) + "年", points(n), years == n);
    }
    table.Add(Number(w2_years_most) + "年以上", points(w2_years_most), years < 0 || years >= w2_years_most);
    return table;
}

Points_Table Points_Of_W3(const Check_Figures& f) {
    Points_Table table{"防災協定の締結"};
    table.Add("1：有", Calc_W3_Ten(1), f.items.Bkyotei == 1);
    table.Add("0：無", Calc_W3_Ten(0), f.items.Bkyotei == 0);
    return table;
}

Points_Table Points_Of_W4(const Check_Figures& f) {
    constexpr std::array<const char*, 3> cases = {"0：無", "1：指示を受けた場合",
                                                  "2：営業の全部もしくは一部の停止を命ぜられた場合"};
    Points_Table table{"法令遵守の状況"};
    for (std::int32_t n = 0; n < 3; ++n) {
        table.Add(cases[static_cast<std::size_t>(n)], Calc_W4_Ten(n), f.items.Horei == n);
    }
    return table;
}

// The bands of the average cost: thousand yen, points only with an accounting auditor.
Points_Table Points_Of_W6(const Check_Figures& f) {
    const std::int64_t average = (std::int64_t{f.items.Kihatu[0]} + f.items.Kihatu[1]) / 2;
    Points_Table table{"平均研究開発費（千円）"};
    std::int64_t above = INT64_MAX;
    const auto add = [&](const Points_Band& band) {
        table.Add(Number(band.from) + "以上", Points(band.points),
                  f.items.keiri_kansa == audit_by_auditor && average >= band.from && average < above);
        above = band.from;
    };
    std::for_each(w6_bands.begin(), w6_bands.end(), add);
    add({0, 0});
    return table;
}

Points_Table Points_Of_W7(const Check_Figures& f) {
    const std::int32_t most = w7_bands.front().from;
    Points_Table table{"所有及びリース台数"};
    const std::int32_t machines = f.items.Kikai;
    for (std::int32_t n = 0; n <= most; ++n) {
        table.Add(Number(n) + (n == most ? "台以上" : "台"), Calc_W7_Ten(Head_Count(n)),
                  n == most ? machines >= most : machines == n);
    }
    return table;
}

Points_Table Points_Of_W8(const Check_Figures& f) {
    struct Holding {
        const char* text;
        std::array<std::int32_t, 3> iso;
    };
    constexpr std::array<Holding, 6> holdings = {{{"ISO9001とISO14001", {0, 1, 1}},
                                                  {"ISO9001とエコアクション21", {1, 1, 0}},
                                                  {"ISO14001", {0, 0, 1}},
                                                  {"ISO9001", {0, 1, 0}},
                                                  {"エコアクション21", {1, 0, 0}},
                                                  {"登録・認証なし", {0, 0, 0}}}};
    std::array<std::int32_t, 3> held = f.items.Iso;
    if (held[2] == 1) {
        held[0] = 0; // Eco Action counts only without ISO14001
    }
    Points_Table table{"登録・認証の状況"};
    for (const Holding& holding : holdings) {
        if (holding.iso[0] == 0 || f.Law().has_additions) {
            table.Add(holding.text, Calc_W8_Ten(holding.iso[0], holding.iso[1], holding.iso[2]),
                      held == holding.iso);
        }
    }
    return table;
}

} // namespace morvane
