// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/law_year.h"
#include "report/prt_modset.h"
#include "report/report_heading.h"
#include "review/settle.h"
#include "review/side.h"
#include "session/session.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace morvane {

/// The forms of the result report, by the law years they were made for.
enum class Kekka_Form : std::uint8_t { Rpt_Kekka = 1, Rpt_Kekka_2011 = 2, Rpt_Kekka_2012 = 3 };

/// The figures of the result report (結果通知書): one period in one scenario. Amounts are thousand yen.
struct Kekka_Figures {
    Report_Heading heading;
    bool x2w_entered = false; ///< false: the items of X2 and W count as blank, nobody has entered them yet
    Review_Figures figures;
    Social_Items items;
    Y_Result y;
    X2_Result x2;
    std::array<std::optional<Thousand_Yen>, y_element::count>
        y_zenki;            ///< the elements of Y of the period before
    bool has_zenki = false; ///< the period before has a statement, or figures of it were keyed into this one
};

/// Scores a side of the company in an open store, as Score_Company does, which tells what it raises. Of the
/// session it takes edition and office.
Kekka_Figures Kekka_Read(const Connection& cn, const Session& session, const Side& side);

/// What is to be said of a sheet beside it: that the items of X2 and W were never entered. Empty where they
/// were.
std::string Entry_Notice(const Kekka_Figures& kekka);

/// Draws the sheet in one of its forms.
void Draw_Kekka(Prt_ModSet& prt, const Kekka_Figures& kekka, Kekka_Form form);

} // namespace morvane
