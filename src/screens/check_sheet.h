// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/law_year.h"
#include "review/explain.h"
#include "session/session.h"

#include <set>
#include <string>
#include <vector>

namespace morvane {

/// What a button "計算チェック" asks for: the check screen and which of its scores.
struct Check_Request {
    std::string form; ///< Frm_X2_Calc_Check, Frm_XZP_Calc_Check, ...
    std::string mode; ///< the score: "X", "P", "Z", "Z1", "Z2" of a work type; "W1", "X2-1", ... else
    std::size_t Kosyu_Sel = 0; ///< the work type by its place, for the scores of a work type
};

/// One of the buttons Cmd_W2X of the entry screen of X2 and W, by its index: the score that it
/// explains.
inline constexpr const char* w2x_buttons[] = {"W1",   "W2",   "W3", "W4", "W6", "W",  "W5",
                                              "X2-1", "X2-2", "X2", "W7", "W8", "W9", "W10"};

/// The request of Cmd_W2X(index), by law year. Raises std::out_of_range for an index without a button and for
/// a score that the law year does not have.
Check_Request W2X_Request(const Law_Year& law, int index);

/// The request of a score of a work type: mode "X", "P", "Z", "Z1" or "Z2".
Check_Request XZP_Request(const std::string& mode, std::size_t Kosyu_Sel);

/// The request of Cmd_X(index) of the Y analysis: 0 to 7 the indicators X1 to X8, 8 the points A, 9 the score
/// Y.
Check_Request Y1_Request(int index);

/// The request of one of the twelve indicators by its place.
Check_Request Twelve_Request(std::size_t place);

/// The row of the table of Z1 that its check marks: no score sets the number.
inline constexpr int Tbl_No_Z1 = 0;

/// A text with the name of the control that shows it; empty names are given by the screen.
struct Named_Text {
    std::string text;
    std::string name = {};
};

/// A captioned figure.
struct Check_Line {
    std::string caption;
    Named_Text value;
};

/// A table in a check screen: rows of texts, one of them marked as in force.
struct Check_Table {
    std::string heading;
    std::vector<std::string> columns; ///< headings
    std::set<int> words;              ///< columns of words, at the left; the others are figures
    std::vector<std::vector<Named_Text>> rows;
    int mark = -1;  ///< row in force, -1 none
    int blocks = 1; ///< side by side
};

/// What a check screen shows of one score, from top to bottom.
struct Check_Sheet {
    std::string title;
    std::string sub_title;
    bool amounts = false; ///< the inputs are thousand yen
    std::vector<Check_Line> inputs;
    std::vector<std::string> formula;            ///< lines of lbl_San
    std::vector<std::vector<Named_Text>> filled; ///< formulas with figures in their places
    std::vector<Check_Step> steps;               ///< from the inputs to the score
    std::vector<Check_Line> results;             ///< the last one is the score
    std::vector<std::string> closing;
    std::vector<Check_Table> tables;
    std::string help_key;    ///< of the explanatory page; empty: none
    std::string table_form;  ///< the form behind Cmd_Tbl; empty: none
    int Tbl_Disp_No = 0;     ///< table of Frm_Calc_Tbl: 1 X1, 2 X2_1, 3 X2_2, 4 Z2, 5 Z1
    int table_row = 0;       ///< its row in force
    Law_Year_No law_year{};  ///< that the sheet was made for
    std::string notice = {}; ///< a box before the screen comes up
};

/// The sheet of a score from the stored figures of a side. Raises Store_Error, Run_Time_Error,
/// std::out_of_range for a request that no screen serves.
Check_Sheet Make_Check_Sheet(const Session& session, Side side, const Check_Request& request);

/// The same from figures in hand.
Check_Sheet Make_Check_Sheet(const Review_Figures& figures, const Check_Request& request);

/// The sheet of the form behind a sheet's Cmd_Tbl: Frm_Calc_Tbl or Frm_W2_Calc_Table.
Check_Sheet Make_Table_Sheet(const Check_Sheet& of);

} // namespace morvane
