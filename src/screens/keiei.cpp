// SPDX-FileCopyrightText: The Morvane developers
#include "screens/keiei.h"

#include "law/run_time_error.h"
#include "session/kyotu_mod.h"

#include <stdexcept>

namespace morvane {

namespace {

constexpr Screen_Sides improvement = {.after = {.scenario = Scenario::Kaizen, .caption = "改善後"},
                                      .before = Screen_Side{.caption = "改善前"},
                                      .read_only = true};
constexpr Screen_Sides two_periods = {.after = {.caption = "当期"},
                                      .before = Screen_Side{.periods_back = 1, .caption = "前期"},
                                      .read_only = true};
constexpr Screen_Sides two_firms = {
    .after = {.caption = "他社"}, .before = Screen_Side{.caption = "自社"}, .read_only = true};

constexpr std::array screens = {
    Keiei_Screen{"Frm_Keiei", Sim_Mode::Current, current_figures, "Rpt_Keiei"},
    Keiei_Screen{"Frm_KeieiKz", Sim_Mode::Improvement, improvement, "Rpt_KeieiHK"},
    Keiei_Screen{"Frm_KeieiKz", Sim_Mode::Prior_Period, two_periods, "Rpt_KeieiHK"},
    Keiei_Screen{"Frm_KeieiKz", Sim_Mode::Other_Firm, two_firms, "Rpt_KeieiHK", true},
    Keiei_Screen{"Frm_Ychart", Sim_Mode::Current, current_figures, "Rpt_Ychart"},
    Keiei_Screen{"Frm_Ychart", Sim_Mode::Improvement, improvement, "Rpt_YchartHK"},
    Keiei_Screen{"Frm_Ychart", Sim_Mode::Prior_Period, two_periods, "Rpt_YchartHK"},
    Keiei_Screen{"Frm_Ychart", Sim_Mode::Other_Firm, two_firms, "Rpt_YchartHK", true},
};

constexpr Keiei_Names alone = {"Yoso", "kekka", "TRitu", "Bou", "YTen", "Y"};
constexpr Keiei_Names first = {"Yoso", "Kzkekka", "TRitu", "BouKz", "YTen", "Y"};
constexpr Keiei_Names second = {"YosoGo", "Gekekka", "GeTRitu", "Bou", "GeYTen", "GeY"};

Keiei_Column Computed(const Session& session, const Screen_Side& side, const Keiei_Names& names) {
    Keiei_Column column = {side, names, Calc_Y(session, side.Of(session)), {}, {}};
    column.texts = Show_Keiei(*column.y);
    return column;
}

Keiei_Column Computed_Or_Told(const Session& session, const Screen_Side& side, const Keiei_Names& names) {
    try {
        return Computed(session, side, names);
    } catch (const Run_Time_Error& error) {
        return {side, names, {}, {}, error.what()};
    }
}

} // namespace

Keiei_Texts Show_Keiei(const Y_Result& y) {
    Keiei_Texts texts;
    for (std::size_t i = 0; i < y.elements.size(); ++i) {
        texts.Yoso[i] = Comma_Str(y.elements[i]);
    }
    for (std::size_t i = 0; i < y.indicators.size(); ++i) {
        texts.kekka[i] = Fixed_Str(y.indicators[i], 3);
        texts.TRitu[i] = Fixed_Str(y.rates[i], 1);
    }
    texts.YTen = Fixed_Str(y.points, 2);
    texts.Y = y.score == Points() ? "" : Comma_Str(y.score);
    return texts;
}

const Keiei_Screen& Keiei_Screen_Of(std::string_view form, Sim_Mode mode) {
    const Keiei_Screen* of_form = nullptr;
    for (const Keiei_Screen& screen : screens) {
        if (screen.form == form && (of_form == nullptr || screen.mode == mode)) {
            of_form = &screen;
        }
    }
    if (of_form == nullptr) {
        throw std::out_of_range("no screen of the analysis is " + std::string(form));
    }
    return *of_form;
}

std::vector<Keiei_Column> Keiei_Columns(const Session& session, const Keiei_Screen& screen) {
    const Screen_Sides& sides = screen.sides;
    if (!sides.before) {
        return {Computed(session, sides.after, alone)};
    }
    return {Computed_Or_Told(session, *sides.before, first),
            screen.other_firm ? Column_Of_Other_Firm(screen, {})
                              : Computed_Or_Told(session, sides.after, second)};
}

Keiei_Column Column_Of_Other_Firm(const Keiei_Screen& screen, const Y_Elements& elements) {
    Keiei_Column column = {screen.sides.after, second, {}, {}, {}};
    if (elements != Y_Elements{}) {
        column.y = Calc_Y(elements);
        column.texts = Show_Keiei(*column.y);
    }
    return column;
}

Keiei_Gain Gain_Of(const std::vector<Keiei_Column>& columns) {
    if (columns.size() < 2 || !columns[0].y || !columns[1].y) {
        return {};
    }
    const Y_Result& before = *columns[0].y;
    const Y_Result& after = *columns[1].y;
    return {Gain_Str(after.points - before.points, 2),
            Gain_Str(std::int32_t{after.score.Count()} - before.score.Count())};
}

} // namespace morvane
